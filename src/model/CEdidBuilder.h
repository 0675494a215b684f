#pragma once
// The map between a pen display's two identities, built from the model table: the product code
// its monitor shows in EDID and the id of its USB tablet (vendor id in the high half, product id
// in the low half).

#include "model/ModelTable.h"

#include <cstdint>
#include <map>
#include <vector>

using EdidToTabletMap = std::map<uint16_t, uint32_t>;

class CEdidBuilder {
public:
    // The one object, built on first use from the model table.
    static CEdidBuilder* Instance();

    // Adds a pair; an EDID number already present keeps its first tablet.
    static void AddEdid(uint32_t tabletId_I, uint16_t edid_I);
    // All EDID numbers of the tablet, ascending; empty for an unknown tablet.
    static std::vector<uint16_t> EdidListForTablet(uint32_t tabletId_I);
    static bool IsEdidOfTablet(uint32_t tabletId_I, uint16_t edid_I);
    // The tablet of an EDID number, or kNoTablet.
    static uint32_t TabletForEdid(uint16_t edid_I);

    static constexpr uint32_t kNoTablet = 0xFFFFFFFFu;

private:
    CEdidBuilder();

    EdidToTabletMap mEdidToTabletMap;
};

#pragma once
// The table between a pen display's two identities: the product code its monitor shows in EDID
// and the id of its USB tablet (vendor id in the high half, product id in the low half). The
// model predicates of the session and the channel rules of discovery are all built on
// IsEdidOfTablet.

#include <cstdint>
#include <map>
#include <vector>

using EdidToTabletMap = std::map<uint16_t, uint32_t>;

// The tablet ids of the family's models.
namespace TabletId {
constexpr uint32_t kVendor = 0x0F5E0000u;
constexpr uint32_t Alder = kVendor | 0x0304u;
constexpr uint32_t Aspen = kVendor | 0x0307u;
constexpr uint32_t AspenTwo = kVendor | 0x0325u;
constexpr uint32_t AlderTouch = kVendor | 0x0333u;
constexpr uint32_t BirchTouch = kVendor | 0x032Bu;
constexpr uint32_t Birch = kVendor | 0x032Au;
constexpr uint32_t ElmSmall = kVendor | 0x034Fu;
constexpr uint32_t ElmMedium = kVendor | 0x0350u;
constexpr uint32_t ElmLargeTouch = kVendor | 0x0351u;
constexpr uint32_t ElmHuge = kVendor | 0x0352u;
constexpr uint32_t ElmLarge = kVendor | 0x037Cu;
constexpr uint32_t FirSmall = kVendor | 0x0390u;
constexpr uint32_t FirSmallLite = kVendor | 0x0396u;
constexpr uint32_t CedarSmallTwo = kVendor | 0x0398u;
constexpr uint32_t CedarLargeTwo = kVendor | 0x0399u;
constexpr uint32_t Hazel = kVendor | 0x03A6u;
constexpr uint32_t FirSmallTwo = kVendor | 0x03AEu;
constexpr uint32_t FirSmallLiteTwo = kVendor | 0x03B0u;
constexpr uint32_t CedarSmall = kVendor | 0x034Du;
constexpr uint32_t CedarLarge = kVendor | 0x034Eu;
constexpr uint32_t FirLarge = kVendor | 0x0391u;
} // namespace TabletId

class CEdidBuilder {
public:
    // The one object; the first call fills the shared map. Call it before any look-up.
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

    static CEdidBuilder* mInstance;
    static EdidToTabletMap mEdidToTabletMap;
};

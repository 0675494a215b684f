#include "model/CEdidBuilder.h"

#include "foundation/Trace.h"

#include <algorithm>

CEdidBuilder::CEdidBuilder() {
    for (const SModelRow& row : kModels) {
        for (const uint16_t edid : row.edidNumbers) {
            if (edid != 0) {
                mEdidToTabletMap.emplace(edid, TabletId::kVendor | row.productId);
            }
        }
    }
}

CEdidBuilder* CEdidBuilder::Instance() {
    static CEdidBuilder builder;
    return &builder;
}

void CEdidBuilder::AddEdid(uint32_t tabletId_I, uint16_t edid_I) {
    VRX_ASSERT(edid_I < 0xFFFF);
    Instance()->mEdidToTabletMap.emplace(edid_I, tabletId_I);
}

std::vector<uint16_t> CEdidBuilder::EdidListForTablet(uint32_t tabletId_I) {
    std::vector<uint16_t> edids;
    for (const auto& [edid, tablet] : Instance()->mEdidToTabletMap) {
        if (tablet == tabletId_I) {
            edids.push_back(edid);
        }
    }
    return edids;
}

bool CEdidBuilder::IsEdidOfTablet(uint32_t tabletId_I, uint16_t edid_I) {
    const std::vector<uint16_t> edids = EdidListForTablet(tabletId_I);
    return std::find(edids.begin(), edids.end(), edid_I) != edids.end();
}

uint32_t CEdidBuilder::TabletForEdid(uint16_t edid_I) {
    const EdidToTabletMap& map = Instance()->mEdidToTabletMap;
    const auto found = map.find(edid_I);
    return found == map.end() ? kNoTablet : found->second;
}

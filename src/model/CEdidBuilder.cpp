#include "model/CEdidBuilder.h"

#include "foundation/Trace.h"

#include <algorithm>

namespace {

struct SEdidPair {
    uint32_t tabletId;
    uint16_t edid;
};

// Four models answer to two EDID numbers: two production runs of the same panel.
const SEdidPair kShippedPairs[] = {
    {TabletId::Alder, 0x1040},           {TabletId::Aspen, 0x1041},
    {TabletId::AspenTwo, 0x1042},        {TabletId::AlderTouch, 0x1046},
    {TabletId::BirchTouch, 0x1043},      {TabletId::BirchTouch, 0x1048},
    {TabletId::Birch, 0x1044},           {TabletId::Birch, 0x1049},
    {TabletId::ElmSmall, 0x1054},        {TabletId::ElmMedium, 0x1055},
    {TabletId::ElmLargeTouch, 0x1056},   {TabletId::ElmHuge, 0x1057},
    {TabletId::ElmLarge, 0x1060},        {TabletId::ElmLarge, 0x1063},
    {TabletId::FirSmall, 0x1064},        {TabletId::FirSmallLite, 0x1068},
    {TabletId::CedarSmallTwo, 0x1066},   {TabletId::CedarLargeTwo, 0x1067},
    {TabletId::Hazel, 0x1070},           {TabletId::FirSmallTwo, 0x1071},
    {TabletId::FirSmallLiteTwo, 0x1072}, {TabletId::CedarSmall, 0x1052},
    {TabletId::CedarLarge, 0x1053},      {TabletId::FirLarge, 0x1065},
};

} // namespace

CEdidBuilder* CEdidBuilder::mInstance = nullptr;
EdidToTabletMap CEdidBuilder::mEdidToTabletMap;

CEdidBuilder::CEdidBuilder() {
    mEdidToTabletMap.clear();
    for (const SEdidPair& pair : kShippedPairs) {
        AddEdid(pair.tabletId, pair.edid);
    }
}

CEdidBuilder* CEdidBuilder::Instance() {
    if (mInstance == nullptr) {
        mInstance = new CEdidBuilder();
    }
    return mInstance;
}

void CEdidBuilder::AddEdid(uint32_t tabletId_I, uint16_t edid_I) {
    VRX_ASSERT(edid_I < 0xFFFF);
    mEdidToTabletMap.emplace(edid_I, tabletId_I);
}

std::vector<uint16_t> CEdidBuilder::EdidListForTablet(uint32_t tabletId_I) {
    std::vector<uint16_t> edids;
    for (const auto& [edid, tablet] : mEdidToTabletMap) {
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
    const auto found = mEdidToTabletMap.find(edid_I);
    return found == mEdidToTabletMap.end() ? kNoTablet : found->second;
}

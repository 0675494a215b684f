#include "model/ModelTable.h"

#include "ddc/Connector.h"

#include <algorithm>

namespace {

constexpr SModelRow kUnknownModel{};

} // namespace

const SModelRow& ModelOfEdid(uint16_t edid_I) {
    if (edid_I == 0) {
        return kUnknownModel;
    }
    for (const SModelRow& row : kModels) {
        if (std::find(row.edidNumbers.begin(), row.edidNumbers.end(), edid_I) !=
            row.edidNumbers.end()) {
            return row;
        }
    }
    return kUnknownModel;
}

bool IsInChannelGroup(EChannelGroup group_I, uint16_t edid_I) {
    return (ModelOfEdid(edid_I).channels & static_cast<ChannelGroups>(group_I)) != 0;
}

EFtdiEdid FtdiEdidOfTablet(uint32_t tabletId_I) {
    if (tabletId_I == kNoTabletId) {
        return EFtdiEdid::eIndexed;
    }
    if ((tabletId_I & 0xFFFF0000u) != TabletId::kVendor) {
        return EFtdiEdid::eFragments;
    }
    const auto productId = static_cast<uint16_t>(tabletId_I & 0xFFFFu);
    for (const SModelRow& row : kModels) {
        if (row.productId == productId) {
            return row.ftdiEdid;
        }
    }
    for (const ModelTableRows::SFtdiOnlyTablet& tablet : ModelTableRows::kFtdiOnlyTablets) {
        if (tablet.productId == productId) {
            return tablet.ftdiEdid;
        }
    }
    return EFtdiEdid::eFragments;
}

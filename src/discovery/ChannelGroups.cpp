#include "discovery/ChannelGroups.h"

#include "model/CEdidBuilder.h"

#include <algorithm>

namespace {

using namespace TabletId;

constexpr uint32_t kSerialGroup[] = {Alder, AlderTouch, Aspen, AspenTwo};
constexpr uint32_t kFtdiGroup[] = {
    BirchTouch,    Birch,         ElmSmall, ElmMedium,   ElmLarge,     ElmLargeTouch,   ElmHuge,
    CedarSmallTwo, CedarLargeTwo, FirSmall, FirSmallTwo, FirSmallLite, FirSmallLiteTwo, Hazel};
constexpr uint32_t kTiGroup[] = {CedarSmall, CedarLarge};
constexpr uint32_t kHidGroup[] = {Hazel, FirSmallTwo, FirSmallLiteTwo};
constexpr uint32_t kBuiltInGroup[] = {CedarSmall, CedarLarge, CedarSmallTwo, CedarLargeTwo};

} // namespace

std::span<const uint32_t> ChannelGroupModels(EChannelGroup group_I) {
    switch (group_I) {
    case EChannelGroup::eSerial:
        return kSerialGroup;
    case EChannelGroup::eFtdi:
        return kFtdiGroup;
    case EChannelGroup::eTi:
        return kTiGroup;
    case EChannelGroup::eHid:
        return kHidGroup;
    case EChannelGroup::eBuiltIn:
        return kBuiltInGroup;
    }
    return {};
}

bool IsInChannelGroup(EChannelGroup group_I, uint16_t edid_I) {
    const std::span<const uint32_t> models = ChannelGroupModels(group_I);
    return std::any_of(models.begin(), models.end(), [edid_I](uint32_t tabletId) {
        return CEdidBuilder::IsEdidOfTablet(tabletId, edid_I);
    });
}

#include "model/ModelTable.h"
#include "ddc/Connector.h"
#include "model/CEdidBuilder.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

namespace {

// The simulator keeps its own model data, written apart from the program's; both must name the
// same displays, or the simulated runs would test models that do not exist.
TEST(ModelTable, TheSimulatorSimulatesExactlyTheTablesModels) {
    ASSERT_EQ(SimModels().size(), kModels.size());
    for (const SModelRow& row : kModels) {
        SCOPED_TRACE(std::string(row.name));
        const SSimModel* sim = FindSimModelByEdid(row.edidNumbers[0]);
        ASSERT_NE(sim, nullptr);
        EXPECT_EQ(sim->productId, row.productId);
        EXPECT_EQ(sim->edidNumbers, row.edidNumbers);
        const struct {
            ESimChannel simChannel;
            EChannelGroup group;
        } channels[] = {{ESimChannel::eSerial, EChannelGroup::eSerial},
                        {ESimChannel::eFtdi, EChannelGroup::eFtdi},
                        {ESimChannel::eTi, EChannelGroup::eTi},
                        {ESimChannel::eHid, EChannelGroup::eHid}};
        for (const auto& c : channels) {
            EXPECT_EQ((sim->group & SimChannelBit(c.simChannel)) != 0,
                      IsInChannelGroup(c.group, row.edidNumbers[0]))
                << SimChannelName(c.simChannel);
        }
        EXPECT_EQ(sim->builtIn, IsInChannelGroup(EChannelGroup::eBuiltIn, row.edidNumbers[0]));
    }
}

TEST(ModelTable, ChannelGroupsAndFtdiEdidWays) {
    EXPECT_TRUE(IsInChannelGroup(EChannelGroup::eHid, 0x1070));
    EXPECT_TRUE(IsInChannelGroup(EChannelGroup::eFtdi, 0x1070));
    EXPECT_FALSE(IsInChannelGroup(EChannelGroup::eTi, 0x1070));
    // FirLarge stands in the EDID map but in no channel group.
    ASSERT_NE(CEdidBuilder::TabletForEdid(0x1065), CEdidBuilder::kNoTablet);
    for (const EChannelGroup group :
         {EChannelGroup::eSerial, EChannelGroup::eFtdi, EChannelGroup::eTi, EChannelGroup::eHid,
          EChannelGroup::eBuiltIn}) {
        EXPECT_FALSE(IsInChannelGroup(group, 0x1065));
        EXPECT_FALSE(IsInChannelGroup(group, 0x1234));
        EXPECT_FALSE(IsInChannelGroup(group, 0));
    }

    const struct {
        uint32_t tabletId;
        EFtdiEdid way;
    } ways[] = {
        {kNoTabletId, EFtdiEdid::eIndexed},
        {TabletId::Birch, EFtdiEdid::eFragments},
        {TabletId::ElmLarge, EFtdiEdid::eIndexed},
        {TabletId::ElmLargeTouch, EFtdiEdid::eIndexedWarnsEmpty},
        {TabletId::kVendor | 0x0355, EFtdiEdid::eIndexedWarnsEmpty},
        {TabletId::kVendor | 0x034A, EFtdiEdid::eIndexed},
        {TabletId::FirSmallLiteTwo, EFtdiEdid::eNone},
        {TabletId::FirLarge, EFtdiEdid::eNone},
        {TabletId::kVendor | 0x9999, EFtdiEdid::eFragments},
        // Another vendor's product id that is a model's.
        {0x12340390u, EFtdiEdid::eFragments},
    };
    for (const auto& w : ways) {
        EXPECT_EQ(FtdiEdidOfTablet(w.tabletId), w.way) << std::hex << w.tabletId;
    }
}

} // namespace

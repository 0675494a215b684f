#include "FakeDisplayPlatform.h"

#include "discovery/CDisplayConfigInterface.h"
#include "foundation/VirtualClock.h"
#include "model/CEdidBuilder.h"
#include "model/UiDisplayDelegate.h"

#include <gtest/gtest.h>

namespace {

TEST(LookupByEDID, MapsAShortNameToItsTablet) {
    CEdidBuilder::Instance();
    const std::pair<const char*, uint32_t> rows[] = {
        {"VRX1041", TabletId::Aspen},         {"VRX1048", TabletId::BirchTouch},
        {"VRX9999", CEdidBuilder::kNoTablet}, {"ACR1041", CEdidBuilder::kNoTablet},
        {"VRX", CEdidBuilder::kNoTablet},
    };
    for (const auto& [shortName, tablet] : rows) {
        EXPECT_EQ(CDisplayConfigInterface::LookupByEDID(shortName), tablet) << shortName;
    }
}

TEST(MonitorList, KeepsOnlyTheFamilysReadableMonitors) {
    CScopedVirtualClock clock;
    auto platform = std::make_shared<CFakeDisplayPlatform>();
    platform->monitors = {
        {"MONITOR\\ACR0001", "card0-DP-1", TestEdid("SN0", "OTHER")},
        {"MONITOR\\VRX7777", "card0-DP-2", TestEdid("SN1", "UNKNOWN")},
        {"MONITOR\\vrx1041", "card0-DP-3", TestEdid("SN2", "LOWER")},
        {"MONITOR\\VRX1041", "card0-DP-4", TestEdid("", "NO SERIAL")},
        {"MONITOR\\VRX1041", "card0-DP-5", TestEdid("SN4", "")},
        {"MONITOR\\VRX1041", "card0-DP-6", {}},
        {"MONITOR\\VRX1044", "card1-HDMI-A-1", TestEdid("SN6", "PDX-2700")},
        // Incomplete without a device key: the video cable refuses it, a bridge serves it.
        {"MONITOR\\VRX1044", "", TestEdid("SN7", "NO KEY")},
    };
    platform->videoSerials = {L"SN6", L"SN7"};
    platform->handles[L"MONITOR\\VRX1044\\CARD1-HDMI-A-1"] = "/dev/i2c-7";
    platform->Add(eConnectorType_FTDI, "SN7");
    SDisplayConfigOptions options;
    options.language = LanguageProvider("en");

    CDisplayConfigInterface config(options, platform);

    ASSERT_EQ(config.DisplayInfos().size(), 2u);
    const SDisplayInfo& info = config.DisplayInfos()[0];
    EXPECT_EQ(info.DeviceID(), L"MONITOR\\VRX1044\\CARD1-HDMI-A-1");
    EXPECT_EQ(info.edidNumber, 0x1044);
    EXPECT_EQ(info.serialNumber, L"SN6");
    EXPECT_EQ(info.monitorName, L"PDX-2700");
    EXPECT_FALSE(info.modelNumber.empty());
    EXPECT_EQ(info.monitorHandle, "/dev/i2c-7");
    ASSERT_EQ(info.edid.size(), SDisplayInfo::kEdidBufferSize);
    EXPECT_EQ(ByteVector(info.edid.begin(), info.edid.begin() + 128), TestEdid("SN6", "PDX-2700"));
    EXPECT_TRUE(info.IsComplete());

    const SDisplayInfo& keyless = config.DisplayInfos()[1];
    EXPECT_EQ(keyless.serialNumber, L"SN7");
    EXPECT_TRUE(keyless.DeviceID().empty());
    EXPECT_TRUE(keyless.monitorHandle.empty());
    EXPECT_FALSE(keyless.IsComplete());
    EXPECT_EQ(keyless.display->GetConnector()->ConnectorType(), eConnectorType_FTDI);
}

} // namespace

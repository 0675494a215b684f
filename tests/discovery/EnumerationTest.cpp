#include "discovery/CDisplayConfigInterface.h"
#include "foundation/VirtualClock.h"
#include "model/CEdidBuilder.h"
#include "model/UiDisplayDelegate.h"
#include "platform/sim/CSimulatedPlatform.h"

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

// The simulated platform behind a desktop that shows more monitors than the family's readable
// ones, and the device key of the last simulated monitor taken away.
class CDesktopPlatform final : public IDisplayPlatform {
public:
    CDesktopPlatform(std::shared_ptr<CSimulatedPlatform> sim_I, std::vector<SMonitorSource> more_I)
        : mSim(std::move(sim_I)), mMore(std::move(more_I)) {}
    std::vector<SMonitorSource> ListMonitors() override {
        std::vector<SMonitorSource> monitors = mMore;
        for (const SMonitorSource& monitor : mSim->ListMonitors()) {
            monitors.push_back(monitor);
        }
        monitors.back().deviceKey.clear();
        return monitors;
    }
    bool RefreshMonitor(SDisplayInfo& info_IO) override { return mSim->RefreshMonitor(info_IO); }
    std::shared_ptr<CMonitorConnectorDP> MakeVideoConnector() override {
        return mSim->MakeVideoConnector();
    }
    std::vector<std::string> ListHidChannels() override { return mSim->ListHidChannels(); }
    std::shared_ptr<Connector> MakeHidConnector() override { return mSim->MakeHidConnector(); }
    std::vector<std::string> ListSerialPorts() override { return mSim->ListSerialPorts(); }
    std::shared_ptr<Connector> MakeSerialConnector() override {
        return mSim->MakeSerialConnector();
    }
    uint32_t FtdiDeviceCount() override { return mSim->FtdiDeviceCount(); }
    std::shared_ptr<Connector> MakeFtdiConnector() override { return mSim->MakeFtdiConnector(); }
    int TiDeviceCount() override { return mSim->TiDeviceCount(); }
    std::shared_ptr<Connector> MakeTiConnector() override { return mSim->MakeTiConnector(); }
    bool IsMakerSystem() override { return false; }
    SPlatformReport Describe() override { return {}; }

private:
    std::shared_ptr<CSimulatedPlatform> mSim;
    std::vector<SMonitorSource> mMore;
};

// The EDID with its descriptor of this tag turned into a dummy one.
ByteVector Without(ByteVector edid_I, uint8_t tag_I) {
    for (size_t at = 0x36; at < 0x7E; at += 18) {
        if (edid_I[at] == 0 && edid_I[at + 1] == 0 && edid_I[at + 3] == tag_I) {
            edid_I[at + 3] = 0x10;
        }
    }
    return edid_I;
}

TEST(MonitorList, KeepsOnlyTheFamilysReadableMonitors) {
    CScopedVirtualClock clock;
    std::string error;
    // Incomplete without a device key, the last monitor is refused by the video cable and
    // served by its bridge.
    auto sim = CSimulatedPlatform::FromDescription("Aspen@none,Birch@video,Birch@ftdi", error);
    const ByteVector aspen = sim->Display(0).Edid();
    const std::vector<SMonitorSource> more = {
        {"MONITOR\\ACR1041", "card0-DP-1", aspen},
        {"MONITOR\\VRX7777", "card0-DP-2", aspen},
        {"MONITOR\\vrx1041", "card0-DP-3", aspen},
        {"MONITOR\\VRX1041", "card0-DP-4", Without(aspen, 0xFF)},
        {"MONITOR\\VRX1041", "card0-DP-5", Without(aspen, 0xFC)},
        {"MONITOR\\VRX1041", "card0-DP-6", {}},
    };
    SDisplayConfigOptions options;
    options.language = LanguageProvider("en");

    CDisplayConfigInterface config(options, std::make_shared<CDesktopPlatform>(sim, more));

    ASSERT_EQ(config.DisplayInfos().size(), 2u);
    const SDisplayInfo& info = config.DisplayInfos()[0];
    EXPECT_EQ(info.DeviceID(), L"MONITOR\\VRX1044\\SIM-2");
    EXPECT_EQ(info.edidNumber, 0x1044);
    EXPECT_EQ(info.serialNumber, L"VRX1044000002");
    EXPECT_EQ(info.monitorName, L"PDX-2700");
    EXPECT_FALSE(info.modelNumber.empty());
    EXPECT_EQ(info.monitorHandle, CSimulatedPlatform::MonitorHandle(1));
    ASSERT_EQ(info.edid.size(), SDisplayInfo::kEdidBufferSize);
    EXPECT_EQ(ByteVector(info.edid.begin(), info.edid.begin() + 128),
              ByteVector(sim->Display(1).Edid().begin(), sim->Display(1).Edid().begin() + 128));
    EXPECT_TRUE(info.IsComplete());

    const SDisplayInfo& keyless = config.DisplayInfos()[1];
    EXPECT_EQ(keyless.serialNumber, L"VRX1044000003");
    EXPECT_TRUE(keyless.DeviceID().empty());
    EXPECT_TRUE(keyless.monitorHandle.empty());
    EXPECT_FALSE(keyless.IsComplete());
    EXPECT_EQ(keyless.display->GetConnector()->ConnectorType(), eConnectorType_FTDI);
}

} // namespace

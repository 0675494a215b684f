#include "UmockdevRig.h"

#include "channels/CI2CBusConnectorDP.h"
#include "foundation/StringUtilities.h"
#include "foundation/VirtualClock.h"
#include "platform/linux/CLinuxI2CBus.h"
#include "platform/linux/CLinuxPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>

using ::testing::ElementsAre;

namespace {

class LinuxMonitorTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!CUmockdevRig::InMockEnvironment()) {
            GTEST_SKIP() << "needs umockdev-wrapper";
        }
    }

    CSimDisplay mDisplay{*FindSimModel("Birch"), "BRC0000000042",
                         SimChannelBit(ESimChannel::eVideo)};
    CSimDisplay mOther{*FindSimModel("Aspen"), "ASP0000000007", 0};
    CUmockdevRig mRig;
    CLinuxPlatform mPlatform;
};

std::wstring Hex(const wchar_t* maker_I, uint16_t code_I) {
    wchar_t text[16];
    std::swprintf(text, 16, L"%ls%04X", maker_I, code_I);
    return text;
}

std::vector<uint8_t> ForeignEdid() {
    std::vector<uint8_t> edid(128, 0x00);
    edid[8] = 0x04; // ACR
    edid[9] = 0x72;
    edid[10] = 0x01;
    edid[11] = 0x00;
    return edid;
}

TEST_F(LinuxMonitorTest, ListsConnectedConnectorsWithEdidAndFindsTheirBus) {
    mRig.AddConnector("card0-DP-1", mDisplay.Edid(), "connected", 5);
    mRig.AddConnector("card0-HDMI-A-1", mOther.Edid(), "disconnected", 6);
    mRig.AddConnector("card0-DP-2", {}, "connected", 7);
    mRig.AddConnector("card1-eDP-1", ForeignEdid(), "connected", -1, 9);
    mRig.AddConnector("card1-DP-3", mOther.Edid(), "connected", -1);

    const auto sources = mPlatform.ListMonitors();
    std::vector<std::string> seen;
    for (const SMonitorSource& source : sources) {
        seen.push_back(source.hardwareId + " " + source.deviceKey);
    }
    std::sort(seen.begin(), seen.end());
    const std::wstring birchId = L"MONITOR\\" + Hex(L"VRX", mDisplay.EdidNumber());
    const std::wstring aspenId = L"MONITOR\\" + Hex(L"VRX", mOther.EdidNumber());
    EXPECT_THAT(seen, ElementsAre("MONITOR\\ACR0001 card1-eDP-1", ToNarrow(aspenId) + " card1-DP-3",
                                  ToNarrow(birchId) + " card0-DP-1"));
    for (const SMonitorSource& source : sources) {
        if (source.deviceKey == "card0-DP-1") {
            EXPECT_EQ(source.edid, mDisplay.Edid());
        }
    }

    // The identity is compared ignoring case; the bus comes from the ddc link or the child; a
    // connector without a bus or without a monitor has no handle.
    const struct {
        std::wstring deviceId;
        std::string bus;
    } cases[] = {
        {birchId + L"\\CARD0-DP-1", "/dev/i2c-5"},
        {L"monitor\\acr0001\\card1-edp-1", "/dev/i2c-9"},
        {birchId + L"\\CARD0-DP-2", ""},
        {aspenId + L"\\CARD1-DP-3", ""},
    };
    for (const auto& row : cases) {
        SDisplayInfo info;
        info.deviceID = row.deviceId;
        EXPECT_EQ(mPlatform.RefreshMonitor(info), !row.bus.empty()) << row.bus;
        EXPECT_EQ(info.monitorHandle, row.bus);
    }
}

} // namespace

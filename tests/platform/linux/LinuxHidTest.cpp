#include "UmockdevRig.h"

#include "channels/CVcpHIDDeviceConnector.h"
#include "foundation/VirtualClock.h"
#include "platform/linux/CLinuxHidDevice.h"
#include "platform/linux/CLinuxPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;

namespace {

class LinuxHidTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!CUmockdevRig::InMockEnvironment()) {
            GTEST_SKIP() << "needs umockdev-wrapper";
        }
    }

    CScopedVirtualClock mClock;
    CSimDisplay mDisplay{*FindSimModel("Hazel"), "HZL0000000042", SimChannelBit(ESimChannel::eHid)};
    CSimHidDevice mScaler{mDisplay, {"/dev/hidraw1", 0x0F5E, 0x03A6}};
    CSimHidDevice mPen{mDisplay, {"/dev/hidraw0", 0x0F5E, 0x03A6, 0x0001, 0x000D, 0x0002}};
    CUmockdevRig mRig;
    CLinuxPlatform mPlatform;
};

TEST_F(LinuxHidTest, FindsTheScalerInterfaceByItsUsagePageAndTalksFeatureReports) {
    mRig.AddHidraw("hidraw0", 0x0F5E, 0x03A6, 0x000D, mPen);
    mRig.AddHidraw("hidraw1", 0x0F5E, 0x03A6, kScalerHidUsagePage, mScaler);
    ASSERT_THAT(mPlatform.ListHidChannels(), ElementsAre("/dev/hidraw1"));

    const std::shared_ptr<Connector> connector = mPlatform.MakeHidConnector();
    ASSERT_TRUE(connector->Open("/dev/hidraw1"));
    EXPECT_EQ(connector->SerialNumber(kNoTabletId), "HZL0000000042");
    EXPECT_EQ(connector->CapabilitiesString(), mDisplay.Scaler().CapabilityString());
    EXPECT_GT(mScaler.Requests(), 0u);
    EXPECT_EQ(mPen.Requests(), 0u);
    EXPECT_THAT(mScaler.HostErrors(), ElementsAre());
}

TEST_F(LinuxHidTest, AVanishedDeviceFailsItsReports) {
    mRig.AddHidraw("hidraw1", 0x0F5E, 0x03A6, kScalerHidUsagePage, mScaler);
    CLinuxHidDevice device;
    EXPECT_FALSE(device.Open("/dev/hidraw7"));
    ASSERT_TRUE(device.Open("/dev/hidraw1"));
    mScaler.SetPresent(false);
    ByteVector report(512, 0x00);
    report[0] = 0xE5;
    EXPECT_FALSE(device.SetFeature(report));
    EXPECT_FALSE(device.GetFeature(report));
    EXPECT_NE(device.LastError(), 0u);
}

} // namespace

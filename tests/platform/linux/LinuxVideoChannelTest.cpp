#include "UmockdevRig.h"

#include "channels/CI2CBusConnectorDP.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "platform/linux/CLinuxPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr uint8_t kBrightness = 0x10;

class LinuxVideoChannelTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!CUmockdevRig::InMockEnvironment()) {
            GTEST_SKIP() << "needs umockdev-wrapper";
        }
        // The display holds the host to DDC/CI's gaps.
        mDisplay.SetTimingRules(CI2CBusConnectorDP::kReplyGapMs, CI2CBusConnectorDP::kWriteGapMs);
        mRig.AddConnector("card0-DP-1", mDisplay.Edid(), "connected", 5);
        mRig.AttachI2C(5, mDisplay.I2C());
        mInfo.deviceID = L"MONITOR\\VRX1044\\CARD0-DP-1";
        mInfo.monitorName = L"PDX-2700";
        mInfo.serialNumber = L"BRC0000000042";
        mInfo.modelNumber = L"PDX-2700";
        mInfo.edidNumber = 0x1044;
    }

    // The platform's video channel for the record's monitor.
    bool OpenConnector() {
        return mPlatform.RefreshMonitor(mInfo) && mConnector->OpenDisplayInfo(mInfo);
    }

    CScopedVirtualClock mClock;
    CSimDisplay mDisplay{*FindSimModel("Birch"), "BRC0000000042",
                         SimChannelBit(ESimChannel::eVideo)};
    CUmockdevRig mRig;
    CLinuxPlatform mPlatform;
    SDisplayInfo mInfo;
    std::shared_ptr<CMonitorConnectorDP> mConnector = mPlatform.MakeVideoConnector();
};

TEST_F(LinuxVideoChannelTest, CarriesDdcCiToTheDisplayWithItsTiming) {
    ASSERT_TRUE(OpenConnector());
    EXPECT_EQ(mInfo.monitorHandle, "/dev/i2c-5");
    EXPECT_EQ(mConnector->SerialNumber(kNoTabletId), "BRC0000000042");
    EXPECT_EQ(mConnector->ReadEDID(kNoTabletId), mInfo.edid);

    EXPECT_EQ(mConnector->CapabilitiesString(), mDisplay.Scaler().CapabilityString());
    const auto& firmware = mDisplay.Model().firmware;
    const FileVersion version = mConnector->FWVersion();
    EXPECT_EQ(version.mMajor, firmware[0]);
    EXPECT_EQ(version.mMinor, firmware[1]);

    const ByteVector written =
        mConnector->SendRequest(BuildSetVCPFeature(kBrightness, 37), 0.05, 3, 0);
    EXPECT_FALSE(written.empty());
    const ByteVector reply = mConnector->SendRequest(BuildGetVCPFeature(kBrightness), 0.04, 11, 0);
    ASSERT_EQ(reply.size(), 11u);
    EXPECT_EQ(Checksum(reply, 0x50), 0);
    EXPECT_EQ(reply[8] << 8 | reply[9], 37);

    // No gap was cut short.
    EXPECT_THAT(mDisplay.Scaler().HostErrors(), IsEmpty());
}

TEST_F(LinuxVideoChannelTest, RefusedTransactionsAndMissingBusesComeBackAsValues) {
    ASSERT_TRUE(OpenConnector());
    mDisplay.Faults().Arm({ESimFault::eNack, 2});
    EXPECT_THAT(mConnector->SendRequest(BuildGetVCPFeature(kBrightness), 0.04, 11, 0), IsEmpty());
    // The bus goes on after a NACK.
    EXPECT_EQ(mConnector->SendRequest(BuildGetVCPFeature(kBrightness), 0.04, 11, 0).size(), 11u);

    // A record whose bus node is missing: closed, and a text that names the node and the cure.
    SDisplayInfo gone = mInfo;
    gone.monitorHandle = "/dev/i2c-8";
    const std::shared_ptr<CMonitorConnectorDP> other = mPlatform.MakeVideoConnector();
    EXPECT_FALSE(other->OpenDisplayInfo(gone));
    EXPECT_FALSE(other->IsOpen());
    EXPECT_THAT(other->LastCapsError(), HasSubstr("/dev/i2c-8"));
    EXPECT_THAT(other->LastCapsError(), HasSubstr("modprobe i2c-dev"));
    EXPECT_THAT(other->CapabilitiesString(), IsEmpty());
    EXPECT_THAT(other->LastCapsError(), HasSubstr("/dev/i2c-8"));
}

} // namespace

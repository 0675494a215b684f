#include "sim/CSimTiBridge.h"
#include "sim/CSimI2CFaultTarget.h"

#include "SimFakeTargets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;

namespace {

// Get VCP Feature for luminance, without the address byte that the bridge puts on the bus.
const std::vector<uint8_t> kGetLuminance = {0x51, 0x82, 0x01, 0x10, 0xAC};

class TiBridge : public ::testing::Test {
protected:
    void SetUp() override {
        mBridge.AddDevice(mFaulty);
        mBridge.AddDevice(mOther);
    }
    int WriteLuminanceRequest() {
        return mBridge.WriteI2C(0x37, kGetLuminance.data(),
                                static_cast<uint16_t>(kGetLuminance.size()));
    }

    CRecordingI2CTarget mTarget;
    CSimI2CFaultTarget mFaulty{mTarget};
    CRecordingI2CTarget mOther;
    CSimTiBridge mBridge;
};

TEST_F(TiBridge, WholeMessagesCrossTheBusAsTransfers) {
    ASSERT_EQ(mBridge.AvailableDevices(), 2);
    ASSERT_NE(mBridge.OpenDevice(0), 0u);
    EXPECT_EQ(WriteLuminanceRequest(), 1);

    mTarget.toRead = {0x6E, 0x88, 0x02, 0x00};
    uint8_t buffer[4] = {};
    EXPECT_EQ(mBridge.ReadI2C(0x37, buffer, sizeof buffer), 1);
    EXPECT_THAT(buffer, ElementsAre(0x6E, 0x88, 0x02, 0x00));
    // Every byte acknowledged but the last, as a master ends a read.
    EXPECT_THAT(mTarget.events, ElementsAre("A6E+", "W51+", "W82+", "W01+", "W10+", "WAC+", "P",
                                            "A6F+", "R6E+", "R88+", "R02+", "R00-", "P"));
    EXPECT_TRUE(mOther.events.empty());
}

TEST_F(TiBridge, FailuresAreZero) {
    uint8_t buffer[2] = {};
    EXPECT_EQ(mBridge.OpenDevice(2), 0u);
    EXPECT_EQ(WriteLuminanceRequest(), 0) << "no bridge open";
    ASSERT_NE(mBridge.OpenDevice(0), 0u);
    mTarget.addresses = {};
    EXPECT_EQ(WriteLuminanceRequest(), 0);
    EXPECT_EQ(mBridge.ReadI2C(0x37, buffer, sizeof buffer), 0);
    EXPECT_THAT(mTarget.events, ElementsAre("A6E-", "P", "A6F-", "P"));
}

} // namespace

#include "SimHost.h"

#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include "foundation/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

const Bytes kLuminanceReply = {0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x32, 0xF2};

class SimI2CSlave : public ::testing::Test {
protected:
    CSimDisplay mDisplay{*FindSimModel("Alder"), "SN00000000001",
                         SimChannelBit(ESimChannel::eSerial)};
    ISimI2CTarget& mBus = mDisplay.I2C();
};

} // namespace

TEST_F(SimI2CSlave, WriteThenReadCarriesOneExchange) {
    EXPECT_EQ(I2CRead(mBus, 3), kNullMessage) << "nothing asked, nothing to say";
    ASSERT_TRUE(I2CWriteFrame(mBus, GetVcp(0x10)));
    // Read as the TI bridge does: more bytes than the frame; the bus reads 0xFF beyond it.
    const Bytes read = I2CRead(mBus, 14);
    EXPECT_EQ(Bytes(read.begin(), read.begin() + 11), kLuminanceReply);
    EXPECT_EQ(Bytes(read.begin() + 11, read.end()), (Bytes{0xFF, 0xFF, 0xFF}));
    EXPECT_EQ(I2CRead(mBus, 3), kNullMessage) << "a reply is read once";
}

TEST_F(SimI2CSlave, VideoCableTimingRulesCatchAHastyHost) {
    CScopedVirtualClock clock;
    mDisplay.SetTimingRules(40, 50);
    ASSERT_TRUE(I2CWriteFrame(mBus, GetVcp(0x10)));
    SleepMs(40);
    EXPECT_EQ(I2CRead(mBus, 11), kLuminanceReply);
    ASSERT_TRUE(I2CWriteFrame(mBus, SetVcp(0x10, 50)));
    SleepMs(50);
    ASSERT_TRUE(I2CWriteFrame(mBus, GetVcp(0x10)));
    SleepMs(40);
    EXPECT_EQ(I2CRead(mBus, 11), kLuminanceReply);
    EXPECT_TRUE(mDisplay.Scaler().HostErrors().empty());

    ASSERT_TRUE(I2CWriteFrame(mBus, SetVcp(0x10, 50)));
    SleepMs(49);
    ASSERT_TRUE(I2CWriteFrame(mBus, GetVcp(0x10)));
    SleepMs(39);
    EXPECT_EQ(I2CRead(mBus, 1), Bytes{0x00});
    const std::vector<std::string> expected = {"request 49 ms after a write, wants 50",
                                               "reply read 39 ms after its request, wants 40"};
    EXPECT_EQ(mDisplay.Scaler().HostErrors(), expected);
}

#include "sim/CSimMpsseEngine.h"

#include "MpsseHostSequences.h"
#include "SimFakeTargets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using namespace MpsseHost;

namespace {

class MpsseEngine : public ::testing::Test {
protected:
    // The pin set-up of the host's open sequence: 60 MHz clock, drive-zero on SDA, both lines
    // high, 100 kHz.
    void SetUp() override {
        Feed({0x8A, 0x97, 0x8D, 0x9E, 0x02, 0x00, 0x80, 0x03, 0x03, 0x86, 0x2B, 0x01});
    }

    void Feed(const std::vector<uint8_t>& bytes_I) { mEngine.Feed(bytes_I.data(), bytes_I.size()); }
    std::vector<uint8_t> Output() {
        size_t flushed = 0;
        return mEngine.TakeOutput(flushed);
    }

    CRecordingI2CTarget mTarget;
    CSimMpsseEngine mEngine{mTarget};
};

TEST_F(MpsseEngine, WriteTransferReachesTargetAndAckBitsComeBack) {
    Feed(Join({Start(), SendByte(0x6E), SendByte(0x51), SendByte(0x82), Stop()}));

    EXPECT_THAT(mTarget.events, ElementsAre("A6E+", "W51+", "W82+", "P"));
    // One sampled bit per byte; bit 0 low is the slave's ACK.
    EXPECT_THAT(Output(), ElementsAre(0x00, 0x00, 0x00));
    // The host's STOP leaves SCL low and SDA released.
    EXPECT_FALSE(mEngine.Scl());
    EXPECT_TRUE(mEngine.Sda());
}

TEST_F(MpsseEngine, NackIsSeenInBitZeroAndTheSlaveLetsGo) {
    struct SCase {
        std::set<uint8_t> addresses;
        int nackWriteAt;
        std::vector<std::string> events;
        std::vector<uint8_t> bits;
    };
    const SCase cases[] = {
        // No device at the address: the data byte that follows meets nobody.
        {{}, -1, {"A6E-", "P"}, {0x01, 0x01}},
        // The second data byte is refused; the slave keeps off the bus until STOP.
        {{0x6E}, 1, {"A6E+", "W51+", "W82-", "P"}, {0x00, 0x00, 0x01}},
    };
    for (const SCase& c : cases) {
        mTarget.events.clear();
        mTarget.addresses = c.addresses;
        mTarget.nackWriteAt = c.nackWriteAt;
        std::vector<uint8_t> bytes = Join({Start(), SendByte(0x6E), SendByte(0x51)});
        if (c.bits.size() == 3) {
            bytes = Join({bytes, SendByte(0x82)});
        }
        Feed(Join({bytes, Stop()}));
        EXPECT_EQ(mTarget.events, c.events);
        std::vector<uint8_t> bits;
        for (uint8_t byte : Output()) {
            bits.push_back(byte & 0x01);
        }
        EXPECT_EQ(bits, c.bits);
    }
}

TEST_F(MpsseEngine, ReadTransferWithAckAndNack) {
    mTarget.toRead = {0x6E, 0x88, 0x02};
    Feed(Join({Start(), SendByte(0x6F), ReadByte(true), ReadByte(true), ReadByte(false),
               ReadByte(true), Stop()}));

    // After the NACK the slave no longer drives SDA, so the host reads a released bus and the
    // target is not asked again.
    EXPECT_THAT(Output(), ElementsAre(0x00, 0x6E, 0x88, 0x02, 0xFF));
    EXPECT_THAT(mTarget.events, ElementsAre("A6F+", "R6E+", "R88+", "R02+", "P"));
}

TEST_F(MpsseEngine, StopAfterAnAcknowledgedLastByteNeedsAReleasedBus) {
    // A host that acknowledges the last byte makes the slave put out the next byte's first bit;
    // a STOP works only when that bit is 1.
    for (uint8_t afterEnd : {uint8_t{0xFF}, uint8_t{0x00}}) {
        CRecordingI2CTarget target;
        target.toRead = {0x6E};
        target.afterEnd = afterEnd;
        CSimMpsseEngine engine(target);
        const std::vector<uint8_t> bytes = Join({{0x9E, 0x02, 0x00, 0x80, 0x03, 0x03},
                                                 Start(),
                                                 SendByte(0x6F),
                                                 ReadByte(true),
                                                 Stop()});
        engine.Feed(bytes.data(), bytes.size());
        const bool stopped = !target.events.empty() && target.events.back() == "P";
        EXPECT_EQ(stopped, afterEnd == 0xFF) << int(afterEnd);
    }
}

TEST_F(MpsseEngine, RepeatedStartBeginsANewTransfer) {
    mTarget.toRead = {0x6E};
    Feed(Join({Start(), SendByte(0x6E), SendByte(0x51), Start(), SendByte(0x6F), ReadByte(false),
               Stop()}));
    EXPECT_THAT(mTarget.events, ElementsAre("A6E+", "W51+", "A6F+", "R6E+", "P"));
}

TEST_F(MpsseEngine, DataChangedWhileClockIsHighIsAStopToTheSlave) {
    // 0x10 puts data out on the rising edge: the slave sees SDA move under a high SCL.
    Feed(Join({Start(), {0x10, 0x00, 0x00, 0x6E}, Stop()}));
    ASSERT_FALSE(mTarget.events.empty());
    EXPECT_EQ(mTarget.events.front(), "P");
    EXPECT_EQ(std::count(mTarget.events.begin(), mTarget.events.end(), "A6E+"), 0);
}

TEST_F(MpsseEngine, BadOpcodeIsAnsweredWithFaAndTheOpcode) {
    for (uint8_t opcode : {uint8_t{0xAA}, uint8_t{0xAB}, uint8_t{0x00}, uint8_t{0xFF}}) {
        Feed({opcode, 0x85});
        EXPECT_THAT(Output(), ElementsAre(0xFA, opcode)) << int(opcode);
    }
    EXPECT_EQ(mEngine.BadCommands(), 4u);
}

TEST_F(MpsseEngine, CommandsSplitOverWritesActAsOne) {
    const std::vector<uint8_t> bytes =
        Join({Start(), SendByte(0x6E), SendByte(0x51), {0xAA}, Stop()});
    for (uint8_t byte : bytes) {
        Feed({byte});
    }
    EXPECT_THAT(mTarget.events, ElementsAre("A6E+", "W51+", "P"));
    EXPECT_THAT(Output(), ElementsAre(0x00, 0x00, 0xFA, 0xAA));
}

TEST_F(MpsseEngine, ClockSettingsAndLoopback) {
    EXPECT_EQ(mEngine.SclHz(), 100000u);
    Feed({0x8B});
    EXPECT_EQ(mEngine.SclHz(), 20000u);
    EXPECT_EQ(mEngine.DriveZeroLowMask(), 0x02);

    // In loopback the data in is the data out, and the bus answer does not matter.
    Feed({0x84, 0x80, 0x00, 0x03, 0x31, 0x00, 0x00, 0xA5, 0x85});
    EXPECT_THAT(Output(), ElementsAre(0xA5));
    EXPECT_FALSE(mEngine.Loopback());
}

} // namespace

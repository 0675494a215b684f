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

TEST_F(MpsseEngine, ReadTransferWithAckAndNack) {
    mTarget.toRead = {0x6E, 0x88, 0x02};
    Feed(Join({Start(), SendByte(0x6F), ReadByte(true), ReadByte(true), ReadByte(false),
               ReadByte(true), Stop()}));

    // After the NACK the slave no longer drives SDA, so the host reads a released bus and the
    // target is not asked again.
    EXPECT_THAT(Output(), ElementsAre(0x00, 0x6E, 0x88, 0x02, 0xFF));
    EXPECT_THAT(mTarget.events, ElementsAre("A6F+", "R6E+", "R88+", "R02+", "P"));
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

} // namespace

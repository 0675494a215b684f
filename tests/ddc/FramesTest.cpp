#include "ddc/Frames.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct SFrameCase {
    std::string name;
    ByteVector built;
    ByteVector expected;
};

} // namespace

TEST(Frames, BuildersGiveTheExactBytes) {
    const SFrameCase cases[] = {
        {"get luminance", BuildGetVCPFeature(0x10), {0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC}},
        {"set luminance 50",
         BuildSetVCPFeature(0x10, 50),
         {0x6E, 0x51, 0x84, 0x03, 0x10, 0x00, 0x32, 0x9A}},
        {"set drops the high half",
         BuildSetVCPFeature(0xE0, 0x12345),
         {0x6E, 0x51, 0x84, 0x03, 0xE0, 0x23, 0x45, 0x3E}},
        {"save", BuildSaveCurrentSettings(), {0x6E, 0x51, 0x81, 0x0C, 0xB2}},
        {"reset", BuildScalarReset(), {0xEE, 0x05, 0x11, 0x00, 0x00, 0xEA}},
        {"null message", BuildNullMessage(), {0x6E, 0x80, 0xBE}},
        {"capabilities at 0x120",
         BuildCapabilitiesRequest(0x120),
         {0x6E, 0x51, 0x83, 0xF3, 0x01, 0x20, 0x6E}},
        {"table capabilities at 0x120",
         BuildPrivateCapabilitiesRequest(0x120),
         {0x6E, 0x51, 0x84, 0xE2, 0xF3, 0x01, 0x20, 0x8B}},
        {"simulated read",
         BuildSimulatedResponse(1, 0x10, 50, 100),
         {0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x32, 0xF2}},
        {"simulated write", BuildSimulatedResponse(3, 0x10, 7, 9), {0x6E, 0x80, 0xBE}},
        {"simulated unknown op", BuildSimulatedResponse(7, 0x10, 50, 100), {0x50}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.built, c.expected) << c.name;
    }
}

TEST(Frames, ChecksumSeedsAndTheZeroOverAWholeReply) {
    EXPECT_EQ(Checksum({0x6E, 0x51, 0x82, 0x01, 0x10}, kRequestSeed), 0xAC);
    EXPECT_EQ(Checksum({0x6E, 0x80}, kReplySeed), 0xBE);
    EXPECT_EQ(Checksum({}, kReplySeed), 0x50);
    EXPECT_EQ(Checksum({}, 0x00), 0x00);
    EXPECT_EQ(Checksum({0xEE, 0x05, 0x11, 0x00, 0x00, 0xEA}, 0x00), 0x10);

    const ByteVector read = BuildSimulatedResponse(1, 0xE3, 0xFFFF, 0x1234);
    EXPECT_EQ(Checksum(read, kReplySeed), 0);
    const ByteVector generic = BuildReplyFrame({0xE3, 0x00, 0x20, '(', ')'});
    EXPECT_EQ(generic[1], 0x85);
    EXPECT_EQ(Checksum(generic, kReplySeed), 0);
    const ByteVector request = BuildRequestFrame({0xC0, 0xE1, 0x00, 0x01});
    EXPECT_EQ(request[2], 0x84);
    EXPECT_EQ(Checksum(request, kRequestSeed), 0);
}

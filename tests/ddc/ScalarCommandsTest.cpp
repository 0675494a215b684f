#include "foundation/VirtualClock.h"
#include "support/CFakeConnector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

ByteVector WithCheck(ByteVector bytes_I) {
    bytes_I.push_back(Checksum(bytes_I, kReplySeed));
    return bytes_I;
}

struct SReplyCase {
    std::string name;
    ByteVector reply;
    bool acknowledged;
};

} // namespace

TEST(ScalarCommands, SaveAcceptsTheNullMessageBytesInAnyOfTheFirstTwoPlaces) {
    const SReplyCase cases[] = {
        {"null message", BuildNullMessage(), true},
        {"rotated once", {0x80, 0xBE, 0x6E}, true},
        {"swapped", WithCheck({0x80, 0x6E}), true},
        {"repeated address", {0x6E, 0x6E, 0x6E, 0x6E}, true},
        {"bad check byte", {0x6E, 0x80, 0x00}, true},
        {"feature reply", BuildSimulatedResponse(1, 0x10, 1, 2), false},
        {"host address", WithCheck({0x6E, 0x51}), false},
        {"two bytes", {0x6E, 0x80}, false},
        {"nothing", {}, false},
    };
    for (const auto& c : cases) {
        CScopedVirtualClock clock;
        CFakeConnector connector;
        connector.QueueReply(c.reply);
        EXPECT_EQ(connector.SaveSettingsToScalar(), c.acknowledged) << c.name;

        ASSERT_EQ(connector.Sent().size(), 1u) << c.name;
        const SSentRequest& sent = connector.Sent()[0];
        EXPECT_EQ(sent.frame, (ByteVector{0x6E, 0x51, 0x81, 0x0C, 0xB2})) << c.name;
        EXPECT_DOUBLE_EQ(sent.delay, 0.22) << c.name;
        EXPECT_EQ(sent.expectedSize, 38u) << c.name;
        EXPECT_EQ(sent.retries, 0) << c.name;
        const std::vector<uint32_t> settle =
            c.acknowledged ? std::vector<uint32_t>{200} : std::vector<uint32_t>{};
        EXPECT_EQ(clock->Sleeps(), settle) << c.name;
    }
}

TEST(ScalarCommands, ResetAcceptsExactlyThreeOpenings) {
    const SReplyCase cases[] = {
        {"feature reply", BuildSimulatedResponse(1, 0x04, 0, 1), true},
        {"rotated null message", {0x80, 0xBE, 0x6E, 0x00}, true},
        {"null message is too short", BuildNullMessage(), false},
        {"null message with a tail", {0x6E, 0x80, 0xBE, 0x6E}, false},
        {"swapped opening that save accepts", {0x80, 0x6E, 0xBE, 0x00}, false},
        {"reply code only", WithCheck({0x6E, 0x88, 0x03}), false},
        {"nothing", {}, false},
    };
    for (const auto& c : cases) {
        CScopedVirtualClock clock;
        CFakeConnector connector;
        connector.QueueReply(c.reply);
        EXPECT_EQ(connector.ScalarReset(), c.acknowledged) << c.name;

        ASSERT_EQ(connector.Sent().size(), 1u) << c.name;
        const SSentRequest& sent = connector.Sent()[0];
        EXPECT_EQ(sent.frame, (ByteVector{0xEE, 0x05, 0x11, 0x00, 0x00, 0xEA})) << c.name;
        EXPECT_DOUBLE_EQ(sent.delay, 0.07) << c.name;
        EXPECT_EQ(sent.expectedSize, 38u) << c.name;
        EXPECT_EQ(sent.retries, 0) << c.name;
        EXPECT_TRUE(clock->Sleeps().empty()) << c.name;
    }
}

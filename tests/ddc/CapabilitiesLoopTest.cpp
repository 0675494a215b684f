#include "support/CFakeConnector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

ByteVector Fragment(uint16_t offset_I, const std::string& text_I) {
    ByteVector payload;
    payload.reserve(3 + text_I.size());
    payload.push_back(0xE3);
    payload.push_back(static_cast<uint8_t>(offset_I >> 8));
    payload.push_back(static_cast<uint8_t>(offset_I & 0xFF));
    payload.insert(payload.end(), text_I.begin(), text_I.end());
    return BuildReplyFrame(payload);
}

ByteVector WithBadCheck(ByteVector reply_I) {
    reply_I.back() ^= 0x5A;
    return reply_I;
}

enum class ELoop { Private, Standard };

struct SLoopCase {
    std::string name;
    ELoop loop;
    std::vector<ByteVector> replies;
    std::string expected;
    std::vector<uint16_t> offsetsAsked;
};

} // namespace

TEST(CapabilitiesLoop, FragmentsNullMessagesShortAndLostReplies) {
    const ByteVector null = BuildNullMessage();
    const SLoopCase cases[] = {
        {"fragments up to the empty one",
         ELoop::Private,
         {Fragment(0, "(prot(mon"), Fragment(9, "itor))junk"), Fragment(19, "")},
         "(prot(monitor))",
         {0, 9, 19}},
        {"null message after fragments drops them",
         ELoop::Private,
         {Fragment(0, "(abc"), null},
         "",
         {0, 4}},
        {"lost reply ends the table-read loop at once", ELoop::Private, {{}}, "", {0}},
        {"standard loop goes on after a second try",
         ELoop::Standard,
         {{}, Fragment(0, "(a)"), Fragment(3, "")},
         "(a)",
         {0, 0, 3}},
        {"short replies ask the same frame again",
         ELoop::Private,
         {{0x6E, 0x81, 0xEF}, {0x6E, 0x84, 0xE3, 0x00, 0x00}, Fragment(0, "(ab)"), Fragment(4, "")},
         "(ab)",
         {0, 0, 0, 4}},
        {"bad check byte keeps the data",
         ELoop::Private,
         {WithBadCheck(Fragment(0, "(ab)")), Fragment(4, "")},
         "(ab)",
         {0, 4}},
        {"empty fragment for another offset asks the same offset again",
         ELoop::Private,
         {Fragment(0, "(ab)"), Fragment(7, ""), Fragment(4, "")},
         "(ab)",
         {0, 4, 4}},
    };
    for (const auto& c : cases) {
        CFakeConnector connector;
        connector.QueueReplies(c.replies);
        const int retries = c.loop == ELoop::Private ? 1 : 0;
        const std::string text = c.loop == ELoop::Private
                                     ? connector.ReadCapabilitiesPrivate(retries)
                                     : connector.ReadCapabilitiesStandard(retries);
        EXPECT_EQ(text, c.expected) << c.name;
        EXPECT_EQ(connector.PendingReplies(), 0u) << c.name;

        std::vector<uint16_t> offsets;
        for (const auto& sent : connector.Sent()) {
            const uint16_t offset = c.loop == ELoop::Private ? (sent.frame[5] << 8) | sent.frame[6]
                                                             : (sent.frame[4] << 8) | sent.frame[5];
            EXPECT_DOUBLE_EQ(sent.delay, 0.05) << c.name;
            EXPECT_EQ(sent.expectedSize, 37u) << c.name;
            EXPECT_EQ(sent.retries, retries) << c.name;
            offsets.push_back(offset);
        }
        EXPECT_EQ(offsets, c.offsetsAsked) << c.name;
    }
}

// The video channel's frame layer on a scripted SendRequest; the bus below it runs in the
// channel sessions.

#include "channels/CI2CConnectorDP.h"
#include "ddc/Frames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

namespace {

using ::testing::ElementsAre;

// The frame layer with replies from a script, and the requests it made.
class CScriptedDP final : public CI2CConnectorDP {
public:
    CScriptedDP() { mHandle = 1; }
    ByteVector SendRequest(const ByteVector& toSend_I, double /*delay*/,
                           unsigned /*expectedSize_I*/, int /*retries*/) override {
        sent.push_back(toSend_I);
        if (replies.empty()) {
            return {};
        }
        ByteVector reply = replies.front();
        replies.pop_front();
        return reply;
    }
    std::deque<ByteVector> replies;
    std::vector<ByteVector> sent;
};

ByteVector FactoryMode(bool on_I) {
    return BuildRequestFrame({0xC0, 0xE1, 0x00, on_I ? uint8_t{1} : uint8_t{0}});
}

ByteVector EdidChunk(uint8_t first_I) {
    ByteVector payload(18, 0x00);
    for (uint8_t i = 0; i < 16; ++i) {
        payload[i] = static_cast<uint8_t>(first_I + i);
    }
    return BuildReplyFrame(payload);
}

TEST(FrameLayerDP, EdidChunksEndWithFactoryModeOff) {
    struct SCase {
        const char* name;
        std::deque<ByteVector> chunks;
        size_t edidSize;
        size_t requests;
    };
    const SCase cases[] = {
        {"all sixteen", {}, 256, 18},
        {"none come", {ByteVector{}}, 0, 18},
        {"a reply too short for its header ends the read", {EdidChunk(0), {0x6E, 0x92}}, 16, 4},
        {"a null message adds nothing", {EdidChunk(0), BuildNullMessage()}, 16 * 15, 18},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.name);
        CScriptedDP connector;
        connector.replies.push_back(BuildNullMessage());
        if (c.chunks.empty()) {
            for (int i = 0; i < 16; ++i) {
                connector.replies.push_back(EdidChunk(static_cast<uint8_t>(i * 16)));
            }
        } else if (c.chunks.front().empty()) {
            connector.replies.insert(connector.replies.end(), 16, ByteVector{});
        } else {
            connector.replies.insert(connector.replies.end(), c.chunks.begin(), c.chunks.end());
            while (connector.replies.size() < 17) {
                connector.replies.push_back(EdidChunk(0));
            }
        }
        connector.replies.push_back(BuildNullMessage());
        const ByteVector edid = connector.ReadEDID(kNoTabletId);
        EXPECT_EQ(edid.size(), c.edidSize);
        if (c.edidSize == 256) {
            for (size_t i = 0; i < edid.size(); ++i) {
                ASSERT_EQ(edid[i], static_cast<uint8_t>(i));
            }
        }
        ASSERT_EQ(connector.sent.size(), c.requests);
        EXPECT_EQ(connector.sent.front(), FactoryMode(true));
        EXPECT_EQ(connector.sent.back(), FactoryMode(false));
        EXPECT_EQ(connector.sent[1], BuildRequestFrame({0xC0, 0x66, 0x00}));
    }
}

TEST(FrameLayerDP, FirmwareReplyIsCheckedByteByByte) {
    const auto reply = [](uint8_t opcode, uint8_t result, uint8_t code, uint8_t type) {
        return BuildReplyFrame({opcode, result, code, type, 0x00, 0x03, 0x02, 0x01});
    };
    struct SCase {
        ByteVector reply;
        FileVersion version;
    };
    const FileVersion v321(3, 2, 1, FileVersion::EFinalVersion, 0);
    ByteVector badCheck = reply(0x02, 0x00, 0xC9, 0x00);
    badCheck.back() ^= 0x01;
    const SCase cases[] = {
        {reply(0x02, 0x00, 0xC9, 0x00), v321},
        // A wrong check byte is traced and the reply read all the same.
        {badCheck, v321},
        {reply(0x02, 0x00, 0xC9, 0x02), {}},
        {reply(0x02, 0x01, 0xC9, 0x00), {}},
        {reply(0x02, 0x00, 0x10, 0x00), {}},
        {reply(0x03, 0x00, 0xC9, 0x00), {}},
        {{}, {}},
    };
    for (const SCase& c : cases) {
        CScriptedDP connector;
        connector.replies.push_back(c.reply);
        EXPECT_EQ(connector.FWVersion(), c.version) << testing::PrintToString(c.reply);
        EXPECT_THAT(connector.sent, ElementsAre(BuildGetVCPFeature(0xC9)));
    }
}

TEST(FrameLayerDP, CapabilitiesTryTheTableReadFirst) {
    CScriptedDP connector;
    const std::string caps = "(vcp(10))";
    ByteVector fragment = {0xE3, 0x00, 0x00};
    fragment.insert(fragment.end(), caps.begin(), caps.end());
    connector.replies = {BuildNullMessage(), BuildReplyFrame(fragment),
                         BuildReplyFrame({0xE3, 0x00, 0x09})};
    EXPECT_EQ(connector.CapabilitiesString(), caps);
    EXPECT_THAT(connector.sent,
                ElementsAre(BuildPrivateCapabilitiesRequest(0), BuildCapabilitiesRequest(0),
                            BuildCapabilitiesRequest(9)));
    EXPECT_FALSE(connector.Open(0L));
    EXPECT_FALSE(connector.Open(std::string("COM1")));
}

} // namespace

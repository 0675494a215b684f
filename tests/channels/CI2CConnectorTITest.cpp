// The TI bridge connector against the simulated bridge library and scaler.

#include "ChannelRig.h"

#include "channels/CI2CConnectorTI.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "sim/CSimFaults.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

const ByteVector kGetLuminance = BuildGetVCPFeature(0x10);

TEST(TiConnector, ReadIsSizedByTheFrameItself) {
    struct SCase {
        const char* name;
        ByteVector request;
        unsigned expectedSize;
        ESimFault fault;
        size_t size;
        size_t zerosAtEnd;
    };
    const SCase cases[] = {
        {"reply cut to its length", kGetLuminance, 64, ESimFault::eLate, 11, 0},
        {"reply longer than asked, zero-extended", kGetLuminance, 8, ESimFault::eLate, 11, 3},
        {"null message", BuildSetVCPFeature(0x10, 40), 64, ESimFault::eLate, 3, 0},
        {"busy scaler: no frame, all bytes as read", kGetLuminance, 64, ESimFault::eNotReady, 64,
         64},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.name);
        CScopedVirtualClock clock;
        CChannelRig rig("CedarSmall", ESimChannel::eTi);
        ASSERT_TRUE(rig.Opened());
        rig.Display().Faults().Arm({c.fault, 0, 0, 1});
        const ByteVector reply =
            rig.GetConnector()->SendRequest(c.request, 0.07, c.expectedSize, 0);
        ASSERT_EQ(reply.size(), c.size);
        EXPECT_TRUE(std::all_of(reply.end() - static_cast<long>(c.zerosAtEnd), reply.end(),
                                [](uint8_t b) { return b == 0; }));
        if (c.zerosAtEnd == 0) {
            EXPECT_EQ(Checksum(reply, kReplySeed), 0);
        }
    }
}

TEST(TiConnector, LostCapabilityChunkDoesNotEndTheRead) {
    CScopedVirtualClock clock;
    CChannelRig rig("CedarSmall", ESimChannel::eTi);
    // The check byte of chunk 2 is refused: size request, chunk 1, then chunk 2.
    rig.Display().Faults().Arm({ESimFault::eNack, 6, 2, 1});
    const std::string caps = rig.GetConnector()->CapabilitiesString();
    std::string expected = rig.Scaler().CapabilityString();
    expected.erase(30, 30);
    EXPECT_EQ(caps,
              Connector::ExtractCapabilitiesString(ByteVector(expected.begin(), expected.end())));
    const std::vector<ByteVector>& requests = rig.Tap().writes;
    EXPECT_EQ(std::count_if(requests.begin(), requests.end(),
                            [](const ByteVector& r) { return r.size() == 7 && r[4] == 0x6F; }),
              8)
        << "the size request and seven chunks";
}

} // namespace

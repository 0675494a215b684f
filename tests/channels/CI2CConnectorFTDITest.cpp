// The FTDI connector against a simulated chip whose MPSSE clocks I2C to a simulated scaler.

#include "ChannelRig.h"

#include "channels/CI2CConnectorFTDI.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "sim/CSimFaults.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Not;

const ByteVector kGetLuminance = BuildGetVCPFeature(0x10);

int RequestRounds(CChannelRig& rig_I, const ByteVector& frame_I) {
    const std::vector<ByteVector>& writes = rig_I.Tap().writes;
    return static_cast<int>(std::count_if(writes.begin(), writes.end(), [&](const ByteVector& w) {
        return std::equal(w.begin(), w.end(), frame_I.begin(),
                          frame_I.begin() + static_cast<long>(std::min(w.size(), frame_I.size())));
    }));
}

TEST(FtdiConnector, OpenSetsTheMpsseUpForI2CAt100kHz) {
    CScopedVirtualClock clock;
    CChannelRig rig("Birch", ESimChannel::eFtdi);
    ASSERT_TRUE(rig.Opened());
    const CSimFtdiChip& chip = *rig.FtdiChip();
    EXPECT_EQ(chip.BitMode(), 0x02);
    EXPECT_EQ(chip.LatencyMs(), 8);
    EXPECT_EQ(chip.ReadTimeoutMs(), 5000u);
    EXPECT_EQ(chip.InTransferSize(), 0x10000u);
    const CSimMpsseEngine& engine = chip.Engine();
    EXPECT_EQ(engine.SclHz(), 100000u);
    EXPECT_FALSE(engine.ThreePhaseClocking());
    EXPECT_FALSE(engine.AdaptiveClocking());
    EXPECT_EQ(engine.DriveZeroLowMask(), 0x02);
    EXPECT_EQ(engine.HighValue(), 0x14);
    EXPECT_EQ(engine.BadCommands(), 1u);
}

TEST(FtdiConnector, ResetIsTriedTwentyOneTimesBeforeOpenGivesUp) {
    struct SCase {
        unsigned failures;
        bool opens;
    };
    for (const SCase c : {SCase{20, true}, SCase{21, false}}) {
        CScopedVirtualClock clock;
        CSimDisplay display(*FindSimModel("Birch"), "SN00000000001", 0);
        CSimFtdiChip chip(display.I2C(), {"FT1", "bridge", 0x11});
        chip.FailNextResets(c.failures);
        CSimFtdiLibrary library;
        library.AddChip(chip);
        CI2CConnectorFTDI connector(std::make_shared<CSimFtdiApi>(library));
        EXPECT_EQ(connector.Open(0L), c.opens) << c.failures;
        EXPECT_EQ(connector.IsOpen(), c.opens);
        const std::vector<uint32_t> sleeps = clock->Sleeps();
        EXPECT_EQ(std::count(sleeps.begin(), sleeps.end(), 50u), c.opens ? 21 : 20)
            << "one 50 ms pause per failed reset, and one to settle the MPSSE";
        EXPECT_EQ(chip.IsOpen(), c.opens) << "a failed open gives the handle back";
    }
}

TEST(FtdiConnector, NackCostsOneMoreRoundPerRetry) {
    struct SCase {
        int nacks;
        int retries;
        bool answered;
        int rounds;
    };
    const SCase cases[] = {
        {1, 0, true, 2},
        {2, 0, false, 2},
        {2, 1, true, 3},
        {3, 1, false, 3},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.nacks << " NACKs, retries " << c.retries);
        CScopedVirtualClock clock;
        CChannelRig rig("Birch", ESimChannel::eFtdi);
        ASSERT_TRUE(rig.Opened());
        // The last byte of the request, its check byte, is refused.
        rig.Display().Faults().Arm({ESimFault::eNack, 5, 0, c.nacks});
        const ByteVector reply =
            rig.GetConnector()->SendRequest(kGetLuminance, 0.07, 38, c.retries);
        if (c.answered) {
            EXPECT_EQ(reply, BuildReplyFrame({0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 70}));
        } else {
            EXPECT_TRUE(reply.empty());
        }
        EXPECT_EQ(RequestRounds(rig, kGetLuminance), c.rounds);
    }
}

TEST(FtdiConnector, EdidWayFollowsTheTabletId) {
    struct SCase {
        const char* model;
        bool byTabletId; // false asks with the unknown id
        bool indexed;    // the indexed 0xF2 read brings it
        bool fragments;  // the table read brings it
    };
    const SCase cases[] = {
        {"FirSmall", true, false, false},     {"ElmSmall", true, true, false},
        {"CedarSmallTwo", true, true, false}, {"Birch", true, false, true},
        {"Birch", false, false, true},        {"ElmSmall", false, true, false},
    };
    const ByteVector firstIndexed = BuildRequestFrame({0x01, 0xF2, 0x00, 0x00});
    const ByteVector firstFragment = BuildRequestFrame({0xE2, 0xC3, 0x00, 0x00});
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.model << (c.byTabletId ? " by id" : " unknown id"));
        CScopedVirtualClock clock;
        CChannelRig rig(c.model, ESimChannel::eFtdi);
        rig.Tap().writes.clear();
        const uint32_t sid = c.byTabletId ? rig.Display().TabletId() : kNoTabletId;
        const ByteVector edid = rig.GetConnector()->ReadEDID(sid);
        const ByteVector& expected = rig.Display().Edid();
        if (!c.indexed && !c.fragments) {
            EXPECT_TRUE(edid.empty());
            EXPECT_TRUE(rig.Tap().writes.empty()) << "no traffic for a model without EDID";
            continue;
        }
        ASSERT_GE(edid.size(), expected.size());
        EXPECT_TRUE(std::equal(expected.begin(), expected.end(), edid.begin()));
        EXPECT_EQ(edid.size(), c.indexed ? 256u : 128u);
        EXPECT_EQ(RequestRounds(rig, firstIndexed), c.indexed || !c.byTabletId ? 1 : 0);
        EXPECT_EQ(RequestRounds(rig, firstFragment), c.fragments ? 1 : 0);
    }
}

TEST(FtdiConnector, InformationRecordStandsInForAMissingEdid) {
    CScopedVirtualClock clock;
    CChannelRig rig("FirSmall", ESimChannel::eFtdi, "sn-lower-0001");
    const auto& connector = rig.GetConnector();
    // One lost reply: a second try after a pause.
    rig.Display().Faults().Arm({ESimFault::eSilence, 0, 0, 1});
    EXPECT_EQ(connector->SerialNumber(rig.Display().TabletId()), "SN-LOWER-0001");
    EXPECT_THAT(clock->Sleeps(), Contains(1000u));
    EXPECT_EQ(connector->MonitorName(), "QRN-1600     ");

    // The record, once read, also ends the table read of capabilities.
    rig.Tap().writes.clear();
    EXPECT_EQ(connector->CapabilitiesString(), rig.Scaler().CapabilityString());
    EXPECT_EQ(RequestRounds(rig, BuildPrivateCapabilitiesRequest(0)), 0);
}

TEST(FtdiConnector, NullMessageInTheTableReadFallsBackToTheStandardLoop) {
    CScopedVirtualClock clock;
    CChannelRig rig("Birch", ESimChannel::eFtdi);
    rig.Display().Faults().Arm({ESimFault::eNullMessage, 0, 1, 1});
    EXPECT_EQ(rig.GetConnector()->CapabilitiesString(), rig.Scaler().CapabilityString());
    EXPECT_EQ(RequestRounds(rig, BuildPrivateCapabilitiesRequest(32)), 1);
    EXPECT_EQ(RequestRounds(rig, BuildCapabilitiesRequest(0)), 1);
}

} // namespace

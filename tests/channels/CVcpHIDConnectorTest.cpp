// The HID connector against the simulated scaler's vendor HID interface.

#include "ChannelRig.h"

#include "channels/CVcpHIDDeviceConnector.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "sim/CSimFaults.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace {

using ::testing::ElementsAre;

const ByteVector kGetLuminance = BuildGetVCPFeature(0x6B);

TEST(HidConnector, StatusIsPolledAtMostFourTimes) {
    struct SCase {
        unsigned notReady;
        uint8_t code;
        unsigned polls;
        uint32_t sleptMs;
        uint16_t value; // a report never ready is no reply
    };
    const SCase cases[] = {
        {0, CSimHidDevice::kStatusBusy, 1, 0, 80},
        {2, CSimHidDevice::kStatusBusy, 3, 200, 80},
        {3, CSimHidDevice::kStatusPending, 4, 300, 80},
        {CSimHidDevice::kForever, CSimHidDevice::kStatusBusy, 4, 400, 0},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.notReady);
        CScopedVirtualClock clock;
        CChannelRig rig("Hazel", ESimChannel::eHid);
        ASSERT_TRUE(rig.Opened());
        rig.HidDevice()->SetNotReadyPolls(c.notReady, c.code);
        const unsigned pollsBefore = rig.HidDevice()->StatusPolls();
        const ByteVector reply = rig.GetConnector()->SendRequest(kGetLuminance, 0.07, 38, 0);
        EXPECT_EQ(rig.HidDevice()->StatusPolls() - pollsBefore, c.polls);
        EXPECT_EQ(clock->TotalSleptMs(), c.sleptMs);
        EXPECT_EQ(reply,
                  c.value == 0 ? ByteVector{} : BuildSimulatedResponse(1, 0x6B, c.value, 100));
    }
}

TEST(HidConnector, OversizedRequestNeverLeaves) {
    struct SCase {
        size_t frameSize;
        bool sent;
    };
    for (const SCase c : {SCase{507, true}, SCase{508, false}}) {
        CScopedVirtualClock clock;
        CChannelRig rig("Hazel", ESimChannel::eHid);
        ByteVector frame = kGetLuminance;
        frame.resize(c.frameSize, 0x00);
        rig.GetConnector()->SendRequest(frame, 0.07, 38, 0);
        EXPECT_EQ(rig.HidDevice()->Requests(), c.sent ? 1u : 0u) << c.frameSize;
        EXPECT_EQ(rig.HidPort()->reports.size(), c.sent ? 2u : 0u) << c.frameSize;
    }
}

TEST(HidConnector, OnlyVcpFramesPass) {
    CScopedVirtualClock clock;
    CChannelRig rig("FirSmallTwo", ESimChannel::eHid);
    const auto& connector = rig.GetConnector();
    EXPECT_FALSE(connector->ScalarReset());
    EXPECT_TRUE(connector->SendRequest(BuildCapabilitiesRequest(0), 0.07, 38, 0).empty());
    EXPECT_TRUE(connector->ReadEDID(kNoTabletId).empty());
    EXPECT_FALSE(connector->Open(0L));
    EXPECT_TRUE(rig.HidPort()->reports.empty());
    // Save goes as a write and gets the null message.
    EXPECT_TRUE(connector->SaveSettingsToScalar());
    EXPECT_EQ(rig.HidPort()->reports.front()[2], 0x02);
    EXPECT_THAT(rig.HidDevice()->HostErrors(), ElementsAre());
}

TEST(HidConnector, IdentityIsReadOnceAndKeptPastClose) {
    CScopedVirtualClock clock;
    CChannelRig rig("Hazel", ESimChannel::eHid);
    const auto& connector = rig.GetConnector();
    // A first try on a device gone from USB leaves nothing cached.
    rig.HidDevice()->SetPresent(false);
    EXPECT_EQ(connector->MonitorName(), "");
    rig.HidDevice()->SetPresent(true);
    EXPECT_EQ(connector->MonitorName(), "PDX-2410S    ");
    EXPECT_EQ(connector->SerialNumber(kNoTabletId), rig.Display().SerialNumber());
    const std::string caps = connector->CapabilitiesString();
    const FileVersion firmware = connector->FWVersion();

    const unsigned requests = rig.HidDevice()->Requests();
    EXPECT_TRUE(connector->Close());
    EXPECT_FALSE(connector->IsOpen());
    EXPECT_FALSE(rig.HidDevice()->IsOpen());
    EXPECT_EQ(connector->MonitorName(), "PDX-2410S    ");
    EXPECT_EQ(connector->SerialNumber(kNoTabletId), rig.Display().SerialNumber());
    EXPECT_EQ(connector->CapabilitiesString(), caps);
    EXPECT_EQ(connector->FWVersion(), firmware);
    EXPECT_TRUE(connector->SendRequest(kGetLuminance, 0.07, 38, 0).empty());
    EXPECT_EQ(rig.HidDevice()->Requests(), requests);
}

} // namespace

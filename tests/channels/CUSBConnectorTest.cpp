// The serial-port connector against the simulated scaler at the far end of a 9600-baud line.

#include "ChannelRig.h"

#include "channels/CUSBConnector.h"
#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "sim/CSimFaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace {

using ::testing::ElementsAre;

const ByteVector kGetLuminance = BuildGetVCPFeature(0x10);

TEST(SerialConnector, OpenSetsTheLineAndItsTimeouts) {
    CScopedVirtualClock clock;
    CChannelRig rig("Alder", ESimChannel::eSerial);
    ASSERT_TRUE(rig.Opened());
    const SSerialTimeouts& t = rig.SerialPort()->timeouts;
    EXPECT_EQ(t.readInterval, 0xFFFFFFFFu);
    EXPECT_EQ(t.readTotalMultiplier, 0xFFFFFFFFu);
    EXPECT_EQ(t.readTotalConstant, 10u);
    EXPECT_EQ(t.writeTotalMultiplier, 0xFFFFFFFFu);
    EXPECT_EQ(t.writeTotalConstant, 2000u);
    // The scaler hears the request only at 9600 8N1.
    EXPECT_EQ(rig.GetConnector()->SendRequest(kGetLuminance, 0.07, 38, 0),
              BuildReplyFrame({0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x32}));
    EXPECT_THAT(rig.SerialDevice()->HostErrors(), ElementsAre());
    EXPECT_FALSE(rig.GetConnector()->Open(0L));
}

TEST(SerialConnector, SilentScalerGivesTheLoneCheckByte) {
    CScopedVirtualClock clock;
    CChannelRig rig("Alder", ESimChannel::eSerial);
    rig.SerialDevice()->SetSilent(true);
    const auto& connector = rig.GetConnector();
    EXPECT_EQ(connector->SendRequest(kGetLuminance, 0.07, 38, 0), ByteVector{0x50});
    EXPECT_EQ(connector->CapabilitiesString(), "");
    EXPECT_TRUE(connector->ReadEDID(kNoTabletId).empty());
    EXPECT_EQ(connector->MonitorName(), "");
    const size_t writes = rig.SerialPort()->writes.size();
    EXPECT_EQ(connector->MonitorName(), "");
    EXPECT_EQ(rig.SerialPort()->writes.size(), writes + 1) << "an empty EDID is read again";
    EXPECT_TRUE(connector->IsOpen());
}

TEST(SerialConnector, CapabilityTextEndsAtItsBalancingParenthesis) {
    CScopedVirtualClock clock;
    CChannelRig rig("AspenTwo", ESimChannel::eSerial);
    const std::string& caps = rig.Scaler().CapabilityString();
    EXPECT_EQ(rig.GetConnector()->CapabilitiesString(), caps);
    EXPECT_EQ(rig.SerialPort()->writes.size(), (caps.size() + 31) / 32)
        << "no request past the fragment that balances the text";
    EXPECT_EQ(clock->Sleeps().back(), 100u);
}

TEST(SerialConnector, MonitorNameCostsOneEdidRead) {
    CScopedVirtualClock clock;
    CChannelRig rig("Aspen", ESimChannel::eSerial);
    const auto& connector = rig.GetConnector();
    EXPECT_EQ(connector->MonitorName(), "PDX-2100");
    EXPECT_EQ(connector->MonitorName(), "PDX-2100");
    EXPECT_THAT(rig.SerialPort()->writes, ElementsAre(ByteVector{0xA0, 0x00}));
    const std::vector<uint32_t> sleeps = clock->Sleeps();
    EXPECT_EQ(std::count(sleeps.begin(), sleeps.end(), 700u), 1);
    EXPECT_EQ(connector->ReadEDID(kNoTabletId), rig.Display().Edid());
    EXPECT_FALSE(connector->FWVersion().IsValid());
}

} // namespace

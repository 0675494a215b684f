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
    EXPECT_FALSE(connector->Open(0L));
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
}

} // namespace

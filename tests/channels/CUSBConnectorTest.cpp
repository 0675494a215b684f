// The serial-port connector against the simulated scaler at the far end of a 9600-baud line.

#include "ChannelRig.h"

#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(SerialConnector, CapabilityTextEndsAtItsBalancingParenthesis) {
    CScopedVirtualClock clock;
    CChannelRig rig("AspenTwo", ESimChannel::eSerial);
    const std::string& caps = rig.Scaler().CapabilityString();
    EXPECT_EQ(rig.GetConnector()->CapabilitiesString(), caps);
    EXPECT_EQ(rig.SerialPort()->writes.size(), (caps.size() + 31) / 32)
        << "no request past the fragment that balances the text";
    EXPECT_EQ(clock->Sleeps().back(), 100u);
}

} // namespace

// A display session over each of the five connectors against simulated displays of the
// channel's models: what the session learns at Initialize, and a brightness read, write and
// save with the bytes each wire carries.

#include "ChannelRig.h"

#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "model/CDisplay.h"
#include "sim/CSimFaults.h"
#include "sim/SimModelTable.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;

struct SSessionCase {
    const char* model;
    ESimChannel channel;
    uint8_t brightnessCode;
    // The serial number comes through this channel (EDID or the information record).
    bool hasSerial;
    // The channel has a firmware query.
    bool hasFirmware;
};

std::string Describe(const SSessionCase& case_I) {
    return std::string(case_I.model) + "@" + std::string(SimChannelName(case_I.channel));
}

constexpr SSessionCase kSessionCases[] = {
    {"Birch", ESimChannel::eVideo, 0x10, false, true},
    {"ElmLarge", ESimChannel::eVideo, 0x10, false, true},
    {"Hazel", ESimChannel::eVideo, 0x6B, false, true},
    {"Birch", ESimChannel::eFtdi, 0x10, true, true},
    {"ElmSmall", ESimChannel::eFtdi, 0x10, true, true},
    {"CedarSmallTwo", ESimChannel::eFtdi, 0x10, true, true},
    {"FirSmall", ESimChannel::eFtdi, 0x13, true, true},
    {"CedarSmall", ESimChannel::eTi, 0x10, true, true},
    {"CedarLarge", ESimChannel::eTi, 0x10, true, true},
    {"Hazel", ESimChannel::eHid, 0x6B, true, true},
    {"FirSmallTwo", ESimChannel::eHid, 0x6B, true, true},
    {"Alder", ESimChannel::eSerial, 0x10, true, false},
    {"AspenTwo", ESimChannel::eSerial, 0x10, true, false},
};

TEST(ChannelSession, InitializesAndChangesBrightnessOverEveryChannel) {
    for (const SSessionCase& c : kSessionCases) {
        SCOPED_TRACE(Describe(c));
        CScopedVirtualClock clock;
        CChannelRig rig(c.model, c.channel);
        // The video cable's host keeps the DDC/CI gaps; the bridges keep their own pace.
        if (c.channel == ESimChannel::eVideo) {
            rig.Display().SetTimingRules(40, 50);
        }
        ASSERT_TRUE(rig.Opened());
        const SSimModel& model = rig.Display().Model();

        CDisplay display(rig.GetConnector(), rig.Display().EdidNumber());
        ASSERT_TRUE(display.Initialize(""));
        EXPECT_EQ(display.GetCapabilitiesString(), rig.Scaler().CapabilityString());
        EXPECT_THAT(display.GetMonitorName(), StartsWith(std::string(model.displayName)));
        const FileVersion firmware = display.GetFWVersion();
        if (c.hasFirmware) {
            EXPECT_EQ(firmware.mMajor, model.firmware[0]);
            EXPECT_EQ(firmware.mMinor, model.firmware[1]);
            EXPECT_EQ(firmware.mVariation, model.firmware[2]);
        } else {
            EXPECT_FALSE(firmware.IsValid());
        }
        const std::string serial = rig.GetConnector()->SerialNumber(rig.Display().TabletId());
        EXPECT_EQ(serial, c.hasSerial ? rig.Display().SerialNumber() : "");

        const auto code = static_cast<vcpCode>(c.brightnessCode);
        const uint16_t factory = *rig.Scaler().Current(c.brightnessCode);
        const SVCPResult before = display.GetVCPValue(code, true);
        ASSERT_TRUE(before.valid);
        EXPECT_EQ(before.value, factory);
        EXPECT_EQ(before.maximum, 100);

        const int32_t wanted = factory == 33 ? 34 : 33;
        ASSERT_TRUE(display.SetVCPValue(code, wanted));
        EXPECT_EQ(rig.Scaler().Current(c.brightnessCode), wanted);
        const std::vector<ByteVector> requests = rig.RequestsOnWire();
        const auto write =
            std::find_if(requests.rbegin(), requests.rend(), [](const ByteVector& r) {
                return r.size() > 3 && r[3] == ddcCC_SetVCPFeatureRequest;
            });
        ASSERT_NE(write, requests.rend());
        EXPECT_EQ(*write, BuildSetVCPFeature(c.brightnessCode, wanted));
        EXPECT_EQ(display.GetVCPValue(code, true).value, wanted);

        ASSERT_TRUE(display.SaveSettings());
        EXPECT_EQ(rig.Scaler().Saved(c.brightnessCode), wanted);
        EXPECT_EQ(rig.Scaler().Counters().saves, 1);

        // A factory reset puts the saved value back to the factory's, and the host waits for it.
        clock->ClearSleeps();
        ASSERT_TRUE(display.SetVCPValue(vcpC_RestoreFactoryDefaults, 1));
        EXPECT_EQ(rig.Scaler().Counters().factoryResets, 1);
        EXPECT_EQ(rig.Scaler().Saved(c.brightnessCode), factory);
        EXPECT_THAT(clock->Sleeps(), Contains(5000u));
        EXPECT_THAT(rig.Scaler().HostErrors(), ElementsAre());
    }
}

} // namespace

// A lost HID reply once read as brightness 0: kept as the value to go back to, a revert then
// drove the backlight dark. The scaler's own state must never see that.
TEST(ChannelSession, LostHidRepliesNeverBecomeABrightnessOfZero) {
    CScopedVirtualClock clock;
    CChannelRig rig("Hazel", ESimChannel::eHid);
    ASSERT_TRUE(rig.Opened());
    CDisplay display(rig.GetConnector(), rig.Display().EdidNumber());
    ASSERT_TRUE(display.Initialize(""));
    const auto code = static_cast<vcpCode>(0x6B);
    const std::optional<uint16_t> factory = rig.Scaler().Current(0x6B);
    ASSERT_TRUE(factory.has_value() && *factory != 0);

    rig.Display().Faults().Arm({ESimFault::eSilence, 0, 0, 1});
    EXPECT_FALSE(display.GetVCPValue(code, false).valid);
    EXPECT_EQ(display.GetVCPValue(code, false).value, *factory);
    ASSERT_TRUE(display.SetVCPValue(code, 40));
    EXPECT_EQ(rig.Scaler().Current(0x6B), 40);

    // A firmware that stays busy: the request may or may not have been taken.
    rig.HidDevice()->SetNotReadyPolls(CSimHidDevice::kForever);
    EXPECT_FALSE(display.GetVCPValue(code, true).valid);
    EXPECT_FALSE(display.RevertSettings());
    EXPECT_EQ(display.GetLastFailure().Text(),
              "writing back VCP code 0x6B: the display did not answer");
    EXPECT_NE(rig.Scaler().Current(0x6B), std::optional<uint16_t>(0));

    rig.HidDevice()->SetNotReadyPolls(0);
    EXPECT_TRUE(display.RevertSettings());
    EXPECT_EQ(rig.Scaler().Current(0x6B), factory);
}

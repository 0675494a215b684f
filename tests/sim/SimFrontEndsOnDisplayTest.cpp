// The channel front ends in front of a whole simulated display. The FTDI and TI paths are the
// MPSSE engine, the bridge and the I2C slave, each tested on its own; the channels' tests drive
// all of them with the real connectors.

#include "SimHost.h"

#include "sim/CSimDisplay.h"
#include "sim/CSimDisplayChannels.h"
#include "sim/CSimFtdiLibrary.h"
#include "sim/CSimHidDevice.h"
#include "sim/CSimSerialDevice.h"
#include "sim/CSimTiBridge.h"
#include "sim/SimModelTable.h"

#include "foundation/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

CSimDisplay MakeDisplay(const char* model_I) {
    const SSimModel& model = *FindSimModel(model_I);
    return CSimDisplay(model, "AB12cd34EF567", DefaultSimChannels(model));
}

const SSimChannelAddresses kAddresses = {"/dev/hidraw0", "FTBRIDGE1", "Display bridge", 0x21};

TEST(SimFrontEndsOnDisplay, HidReportsCarryValuesAndTheInformationRecord) {
    CScopedVirtualClock clock;
    CSimDisplay display = MakeDisplay("Hazel");
    CSimDisplayChannels channels(display, kAddresses);
    CSimHidDevice& hid = channels.Hid();

    auto transaction = [&](uint8_t kind_I, const Bytes& frame_I) {
        Bytes report = {0xE5, 0x04, kind_I, 0x00, 0x00};
        report.insert(report.end(), frame_I.begin(), frame_I.end());
        report.resize(512);
        EXPECT_TRUE(hid.SetFeature(report));
        Bytes status(512, 0);
        status[0] = 0xE5;
        status[1] = 0x04;
        EXPECT_TRUE(hid.SetFeature(status));
        EXPECT_TRUE(hid.GetFeature(status));
        return status;
    };
    Bytes report = transaction(0x03, GetVcp(0x18));
    EXPECT_EQ(report[13], 0xFF) << "maximum's low byte";
    EXPECT_EQ(report[15], display.Scaler().Current(0x18).value_or(0xFFFF) & 0xFF);

    report = transaction(0x03, GetVcp(0xF2));
    const std::vector<uint8_t> record = display.Scaler().DisplayInformation();
    EXPECT_EQ(Bytes(report.begin() + 23, report.begin() + 36),
              Bytes(record.begin() + 14, record.begin() + 27));
    EXPECT_EQ(AsText(Bytes(report.begin() + 36, report.begin() + 49)), "AB12cd34EF567");

    display.Faults().Arm({ESimFault::eNotReady});
    EXPECT_EQ(transaction(0x03, GetVcp(0x18))[4], CSimHidDevice::kStatusBusy);

    display.Unplug();
    Bytes status(512, 0);
    status[0] = 0xE5;
    EXPECT_FALSE(hid.GetFeature(status));
}

TEST(SimFrontEndsOnDisplay, SerialLineCarriesCapabilityFragmentsAndEdid) {
    CScopedVirtualClock clock;
    CSimDisplay display = MakeDisplay("Alder");
    CSimDisplayChannels channels(display, kAddresses);
    CSimSerialDevice& serial = channels.Serial();
    auto exchange = [&](const Bytes& frame_I, uint32_t delayMs_I) {
        EXPECT_TRUE(serial.Write(frame_I.data(), frame_I.size()));
        SleepMs(delayMs_I);
        Bytes reply(300);
        const int count = serial.Read(reply.data(), reply.size());
        reply.resize(count < 0 ? 0 : static_cast<size_t>(count));
        return reply;
    };

    const Bytes fragment = exchange(Request({0xF3, 0x00, 0x00}), 200);
    // Header and 32 text bytes: the line carries no check byte.
    ASSERT_EQ(fragment.size(), 37u);
    EXPECT_EQ(AsText(Bytes(fragment.begin() + 5, fragment.end())),
              display.Scaler().CapabilityString().substr(0, 32));

    EXPECT_EQ(exchange({0xA0, 0x00}, 700), display.Edid());

    display.Faults().Arm({ESimFault::eSilence});
    EXPECT_TRUE(exchange(GetVcp(0x10), 70).empty());
}

TEST(SimFrontEndsOnDisplay, FrontEndsAreThereOnlyWhileTheDisplayAnswersOnTheirChannel) {
    CSimDisplay display = MakeDisplay("Hazel");
    CSimDisplayChannels channels(display, kAddresses);
    CSimFtdiLibrary ftdi;
    CSimTiBridge ti;
    channels.Attach(ftdi, ti);
    auto reachable = [&] {
        uint32_t chips = 0;
        ftdi.ListDevices(&chips, nullptr, SimFt::kListNumberOnly);
        const uint8_t byte = 0xA0;
        const bool hid = channels.Hid().Open();
        channels.Hid().Close();
        return std::vector<bool>{chips == 1, ti.AvailableDevices() == 1, hid,
                                 channels.Serial().Write(&byte, 1)};
    };
    EXPECT_EQ(reachable(), (std::vector<bool>{true, false, true, false}));
    EXPECT_EQ(channels.Hid().Identity().productId, display.Model().productId);
    display.Unplug();
    EXPECT_EQ(reachable(), (std::vector<bool>{false, false, false, false}));
    display.Replug();
    display.SetChannels(SimChannelBit(ESimChannel::eTi) | SimChannelBit(ESimChannel::eSerial));
    EXPECT_EQ(reachable(), (std::vector<bool>{false, true, false, true}));
}

} // namespace

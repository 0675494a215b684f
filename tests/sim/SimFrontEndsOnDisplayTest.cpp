// The channel front ends in front of a whole simulated display, driven as each host connector
// drives its channel.

#include "MpsseHostSequences.h"
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

using namespace MpsseHost;

CSimDisplay MakeDisplay(const char* model_I) {
    const SSimModel& model = *FindSimModel(model_I);
    return CSimDisplay(model, "AB12cd34EF567", DefaultSimChannels(model));
}

const SSimChannelAddresses kAddresses = {"/dev/hidraw0", "FTBRIDGE1", "Display bridge", 0x21};

// The FTDI connector's bus work: every step one write and a one-byte read.
class CFtdiHost {
public:
    explicit CFtdiHost(CSimFtdiLibrary& library_I) : mLibrary(library_I) {
        EXPECT_EQ(mLibrary.OpenEx(reinterpret_cast<void*>(uintptr_t{0x21}), SimFt::kOpenByLocation,
                                  &mHandle),
                  SimFt::kOk);
        mLibrary.SetTimeouts(mHandle, 5000, 5000);
        mLibrary.SetLatencyTimer(mHandle, 8);
        mLibrary.SetBitMode(mHandle, 0, 2);
        Write({0x8A, 0x97, 0x8D, 0x9E, 0x02, 0x00, 0x80, 0x03, 0x03, 0x86, 0x2B, 0x01});
    }

    void Write(const Bytes& bytes_I) {
        uint32_t written = 0;
        EXPECT_EQ(mLibrary.Write(mHandle, bytes_I.data(), static_cast<uint32_t>(bytes_I.size()),
                                 &written),
                  SimFt::kOk);
    }
    uint8_t Read1() {
        uint8_t byte = 0xEE;
        uint32_t read = 0;
        EXPECT_EQ(mLibrary.Read(mHandle, &byte, 1, &read), SimFt::kOk);
        EXPECT_EQ(read, 1u);
        return byte;
    }
    bool Send(uint8_t byte_I) {
        Write(SendByte(byte_I));
        return (Read1() & 0x01) == 0;
    }
    uint8_t Receive() {
        Write(ReadByte(true));
        return Read1();
    }
    // Index of the first refused byte, or -1 when the whole frame went out.
    int WriteFrame(const Bytes& frame_I) {
        Write(Start());
        int refused = -1;
        for (size_t i = 0; i < frame_I.size() && refused < 0; ++i) {
            refused = Send(frame_I[i]) ? -1 : static_cast<int>(i);
        }
        Write(Stop());
        return refused;
    }
    // Hunts for the reply's first byte as the connector does; a busy scaler gives {0}.
    Bytes ReadReply() {
        Write(Start());
        EXPECT_TRUE(Send(0x6F));
        Bytes reply;
        for (int guard = 0; guard < 64 && reply.empty(); ++guard) {
            const uint8_t byte = Receive();
            if (byte == 0x6E) {
                reply.push_back(byte);
            } else if (byte == 0x00 || byte == 0xFF) {
                Write(Stop());
                return {byte};
            }
        }
        reply.push_back(Receive());
        for (int i = 0; i <= (reply[1] & 0x7F); ++i) {
            reply.push_back(Receive());
        }
        Write(Stop());
        return reply;
    }

private:
    CSimFtdiLibrary& mLibrary;
    SimFtHandle mHandle = nullptr;
};

TEST(SimFrontEndsOnDisplay, FtdiBusCarriesReadsWritesRecordsAndNacks) {
    CScopedVirtualClock clock;
    CSimDisplay display = MakeDisplay("Birch");
    CSimDisplayChannels channels(display, kAddresses);
    CSimFtdiLibrary library;
    CSimTiBridge ti;
    channels.Attach(library, ti);
    CFtdiHost host(library);

    ASSERT_EQ(host.WriteFrame(GetVcp(0x10)), -1);
    SleepMs(70);
    const SVcpAnswer before = ParseVcpReply(host.ReadReply(), 0x10);
    EXPECT_EQ(before.value, display.Scaler().Current(0x10).value_or(0xFFFF));

    ASSERT_EQ(host.WriteFrame(SetVcp(0x10, 42)), -1);
    SleepMs(130);
    EXPECT_EQ(host.ReadReply(), kNullMessage);
    EXPECT_EQ(display.Scaler().Current(0x10), 42);

    // The scaler's own NACK fault shows in the ACK bit of that very byte.
    display.Faults().Arm({ESimFault::eNack, 3});
    EXPECT_EQ(host.WriteFrame(SetVcp(0x10, 7)), 3);
    EXPECT_EQ(display.Scaler().Current(0x10), 42);

    ASSERT_EQ(host.WriteFrame(GetVcp(0xF2)), -1);
    SleepMs(10);
    const Bytes record = host.ReadReply();
    ASSERT_EQ(record.size(), 56u);
    EXPECT_EQ(XorAll(record, 0x50), 0);
    EXPECT_EQ(AsText(Bytes(record.begin() + 30, record.begin() + 43)), "AB12cd34EF567");

    // A scaler still at work answers 0x00 where the reply should begin.
    display.Faults().Arm({ESimFault::eNotReady});
    ASSERT_EQ(host.WriteFrame(GetVcp(0x10)), -1);
    EXPECT_EQ(host.ReadReply(), Bytes{0x00});
}

TEST(SimFrontEndsOnDisplay, TiBridgeReadsAFrameAndTheFirmwareVersion) {
    CScopedVirtualClock clock;
    CSimDisplay display = MakeDisplay("CedarSmall");
    CSimDisplayChannels channels(display, kAddresses);
    CSimFtdiLibrary ftdi;
    CSimTiBridge bridge;
    channels.Attach(ftdi, bridge);
    ASSERT_NE(bridge.OpenDevice(0), 0u);

    auto exchange = [&](const Bytes& frame_I, uint16_t size_I) {
        EXPECT_EQ(
            bridge.WriteI2C(0x37, frame_I.data() + 1, static_cast<uint16_t>(frame_I.size() - 1)),
            1);
        SleepMs(70);
        Bytes buffer(size_I);
        EXPECT_EQ(bridge.ReadI2C(0x37, buffer.data(), size_I), 1);
        return buffer;
    };
    Bytes reply = exchange(GetVcp(0x10), 38);
    reply.resize((reply[1] & 0x7F) + 3u);
    EXPECT_EQ(ParseVcpReply(reply, 0x10).value, display.Scaler().Current(0x10).value_or(0xFFFF));

    reply = exchange(Request({0xC0, 0xEF}), 64);
    EXPECT_EQ(reply[0], 0x6E);
    EXPECT_EQ(reply[1], 0x86);
    EXPECT_EQ(XorAll(Bytes(reply.begin(), reply.begin() + 9), 0x50), 0);
}

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

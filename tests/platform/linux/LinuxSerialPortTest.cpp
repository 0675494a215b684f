#include "UmockdevRig.h"

#include "platform/linux/CLinuxPlatform.h"
#include "platform/linux/CLinuxSerialPort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <span>
#include <vector>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

constexpr SSerialSettings kLine{9600, 8, 0, 0};
// Reads of 10 ms that the bytes of one write may take at most to cross the pty.
constexpr int kPatientReads = 200;
constexpr SSerialTimeouts kQuickReads{0xFFFFFFFF, 0xFFFFFFFF, 10, 0xFFFFFFFF, 2000};

// Bytes that a cooked tty would change or swallow: interrupt, line ends, flow control, erase.
constexpr std::array<uint8_t, 8> kControlBytes{0x03, 0x0A, 0x0D, 0x11, 0x13, 0x7F, 0x00, 0xFF};

class LinuxSerialPortTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!CUmockdevRig::InMockEnvironment()) {
            GTEST_SKIP() << "needs umockdev-wrapper";
        }
    }

    CUmockdevRig mRig;
    CLinuxPlatform mPlatform;
};

TEST_F(LinuxSerialPortTest, ListsOnlyTheFamilysSerialBridge) {
    mRig.AddUsbSerial("ttyUSB0", 0x067B, 0x2303);
    mRig.AddUsbSerial("ttyUSB1", 0x10C4, 0xEA60);
    mRig.AddUsbSerial("ttyUSB2", 0x0403, 0x6014);
    mRig.AddUsbSerial("ttyUSB3", 0x10C4, 0xEA60);
    EXPECT_THAT(mPlatform.ListSerialPorts(), ElementsAre("/dev/ttyUSB1", "/dev/ttyUSB3"));
}

TEST_F(LinuxSerialPortTest, CarriesEveryByteUnchangedBothWays) {
    const int farEnd = mRig.AddUsbSerial("ttyUSB0", 0x10C4, 0xEA60);
    ASSERT_GE(farEnd, 0);
    // A fresh pty line is cooked and echoing, as a terminal's is.
    CLinuxSerialPort port;
    ASSERT_TRUE(port.Open("ttyUSB0", kLine, kQuickReads)) << port.LastError();
    // The line runs at the asked speed, raw.
    const int watch = ::open(::ptsname(farEnd), O_RDONLY | O_NOCTTY);
    ASSERT_GE(watch, 0);
    termios raw{};
    ASSERT_EQ(::tcgetattr(watch, &raw), 0);
    ::close(watch);
    EXPECT_EQ(::cfgetospeed(&raw), speed_t{B9600});
    EXPECT_EQ(raw.c_lflag & (ICANON | ECHO), 0u);

    size_t count = 0;
    ASSERT_TRUE(port.Write(kControlBytes.data(), kControlBytes.size(), count));
    EXPECT_EQ(count, kControlBytes.size());
    std::array<uint8_t, 16> received{};
    size_t got = 0;
    while (got < kControlBytes.size()) {
        const ssize_t n = ::read(farEnd, received.data() + got, received.size() - got);
        ASSERT_GT(n, 0);
        got += static_cast<size_t>(n);
    }
    EXPECT_THAT(std::span(received.data(), got), ElementsAreArray(kControlBytes));

    ASSERT_EQ(::write(farEnd, kControlBytes.data(), kControlBytes.size()),
              static_cast<ssize_t>(kControlBytes.size()));
    // The pty hands the bytes on in its own time; each empty read is one quiet line time-out.
    std::vector<uint8_t> back;
    for (int read = 0; back.size() < kControlBytes.size() && read < kPatientReads; ++read) {
        ASSERT_TRUE(port.Read(received.data(), received.size(), count));
        back.insert(back.end(), received.begin(), received.begin() + count);
    }
    EXPECT_THAT(back, ElementsAreArray(kControlBytes));

    // Nothing more has come: the read ends empty, as a quiet line does.
    ASSERT_TRUE(port.Read(received.data(), received.size(), count));
    EXPECT_EQ(count, 0u);
}

TEST(LinuxSerialPortFaults, RefusesBadSettingsAndReportsAVanishedDevice) {
    int master = -1;
    int slave = -1;
    std::array<char, 64> name{};
    ASSERT_EQ(::openpty(&master, &slave, name.data(), nullptr, nullptr), 0);
    ::close(slave);

    CLinuxSerialPort port;
    EXPECT_FALSE(port.Open(name.data(), {9601, 8, 0, 0}, kQuickReads));
    EXPECT_FALSE(port.Open(name.data(), {9600, 9, 0, 0}, kQuickReads));
    EXPECT_FALSE(port.Open("/dev/ttyUSB-none", kLine, kQuickReads));

    ASSERT_TRUE(port.Open(name.data(), kLine, kQuickReads));
    ::close(master);
    const uint8_t byte = 0x6E;
    size_t written = 0;
    EXPECT_FALSE(port.Write(&byte, 1, written));
    EXPECT_EQ(port.LastError(), ISerialPort::kErrorDeviceGone);
}

} // namespace

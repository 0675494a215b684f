#include "UmockdevRig.h"

#include "foundation/TimeSeam.h"
#include "platform/linux/CLinuxPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/CSimSerialDevice.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>

namespace {

// How long the kernel may take to move bytes across the pty; a bound, not a pace.
constexpr int kPtyFlushMs = 2000;
// How long a sleep looks for a request that the host may have written before it.
constexpr int kRequestLookMs = 200;

// Virtual time in which the scaler works while the host sleeps: each sleep of the host hands
// what the host wrote to the simulated scaler, lets the time pass, and puts what the scaler sent
// meanwhile on the host's line.
class CPumpingClock final : public IClock {
public:
    CPumpingClock(int farEnd_I, int lineWatch_I, CSimSerialDevice& device_I)
        : mFarEnd(farEnd_I), mLineWatch(lineWatch_I), mDevice(device_I) {}

    void Sleep(uint32_t milliseconds_I) override {
        std::array<uint8_t, 512> bytes{};
        pollfd request{mFarEnd, POLLIN, 0};
        // A request crosses the pty whole; once it has come, only what is left is taken.
        for (int look = kRequestLookMs; ::poll(&request, 1, look) > 0; look = 0) {
            const ssize_t n = ::read(mFarEnd, bytes.data(), bytes.size());
            if (n <= 0) {
                break;
            }
            mDevice.Write(bytes.data(), static_cast<size_t>(n));
        }
        mNowNs += static_cast<int64_t>(milliseconds_I) * 1000000;
        const int n = mDevice.Read(bytes.data(), bytes.size());
        if (n > 0 && ::write(mFarEnd, bytes.data(), static_cast<size_t>(n)) == n) {
            pollfd arrived{mLineWatch, POLLIN, 0};
            ::poll(&arrived, 1, kPtyFlushMs);
        }
    }
    int64_t NowNs() override { return mNowNs; }

private:
    int mFarEnd;
    int mLineWatch;
    CSimSerialDevice& mDevice;
    int64_t mNowNs = 0;
};

TEST(LinuxSerialChannelTest, ReadsTheScalerBehindTheBridgesTty) {
    CUmockdevRig rig;
    if (!CUmockdevRig::InMockEnvironment()) {
        GTEST_SKIP() << "needs umockdev-wrapper";
    }
    CSimDisplay display(*FindSimModel("Aspen"), "ASP0000000007",
                        SimChannelBit(ESimChannel::eSerial));
    CSimSerialDevice device(display);
    const int farEnd = rig.AddUsbSerial("ttyUSB0", 0x10C4, 0xEA60);
    ASSERT_GE(farEnd, 0);
    // A second look at the host's side of the line, opened before the port is held exclusively.
    const int lineWatch = ::open(::ptsname(farEnd), O_RDONLY | O_NOCTTY);
    ASSERT_GE(lineWatch, 0);

    CPumpingClock clock(farEnd, lineWatch, device);
    InstallClock(&clock);
    CLinuxPlatform platform;
    const std::shared_ptr<Connector> connector = platform.MakeSerialConnector();
    ASSERT_TRUE(connector->Open(platform.ListSerialPorts().at(0)));
    EXPECT_EQ(connector->SerialNumber(kNoTabletId), "ASP0000000007");
    EXPECT_EQ(connector->CapabilitiesString(), display.Scaler().CapabilityString());
    connector->Close();
    InstallClock(nullptr);
    ::close(lineWatch);
    EXPECT_TRUE(device.HostErrors().empty());
}

} // namespace

#include "FakeLibFtdi1.h"

#include "channels/CI2CConnectorFTDI.h"
#include "foundation/VirtualClock.h"
#include "platform/linux/CLibFtdi1Api.h"
#include "platform/linux/CLinuxPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/CSimFtdiChip.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <algorithm>

namespace {

// The simulated bridge behind the stand-in library. A USB read that finds nothing lasts one
// latency period, after which the chip sends what it holds.
class CSimFtdiBehindLibFtdi final : public IFakeFtdi {
public:
    CSimFtdiBehindLibFtdi(CSimFtdiChip& chip_I, CVirtualClock& clock_I)
        : mChip(chip_I), mClock(clock_I) {}

    int Count() override { return mChip.IsPresent() ? 1 : 0; }
    int Open(unsigned index_I) override { return index_I == 0 && mChip.Open() ? 0 : -3; }
    int Close() override {
        mChip.Close();
        return 0;
    }
    int Reset() override { return Result(mChip.ResetDevice()); }
    int Purge() override { return Result(mChip.Purge(3)); }
    int Read(unsigned char* buffer_O, int size_I) override {
        uint32_t waiting = 0;
        if (mChip.GetQueueStatus(waiting) != 0) {
            return -1;
        }
        if (waiting == 0) {
            mClock.Advance(mChip.LatencyMs());
            mChip.GetQueueStatus(waiting);
        }
        uint32_t read = 0;
        const auto wanted = std::min(waiting, static_cast<uint32_t>(size_I));
        return wanted == 0 || mChip.Read(buffer_O, wanted, read) == 0 ? static_cast<int>(read) : -1;
    }
    int Write(const unsigned char* data_I, int size_I) override {
        uint32_t written = 0;
        return mChip.Write(data_I, static_cast<uint32_t>(size_I), written) == 0
                   ? static_cast<int>(written)
                   : -1;
    }
    int SetLatency(unsigned char milliseconds_I) override {
        return Result(mChip.SetLatencyTimer(milliseconds_I));
    }
    int SetBitMode(unsigned char mask_I, unsigned char mode_I) override {
        return Result(mChip.SetBitMode(mask_I, mode_I));
    }
    int SetChars(unsigned char event_I, unsigned char eventEnable_I) override {
        return Result(mChip.SetChars(event_I, eventEnable_I, 0, 0));
    }
    int SetChunks(unsigned readSize_I, unsigned writeSize_I) override {
        return Result(mChip.SetUsbParameters(readSize_I, writeSize_I));
    }

private:
    static int Result(SimFtStatus status_I) { return status_I == 0 ? 0 : -1; }

    CSimFtdiChip& mChip;
    CVirtualClock& mClock;
};

class LibFtdi1ApiTest : public ::testing::Test {
protected:
    void SetUp() override {
        mLibrary = ::dlopen(FAKE_LIBFTDI1, RTLD_NOW);
        ASSERT_NE(mLibrary, nullptr);
        mInstall = reinterpret_cast<FakeFtdiInstall>(::dlsym(mLibrary, "fake_ftdi_install"));
        ASSERT_NE(mInstall, nullptr);
        mInstall(&mBehind);
    }
    void TearDown() override {
        if (mInstall != nullptr) {
            mInstall(nullptr);
        }
        if (mLibrary != nullptr) {
            ::dlclose(mLibrary);
        }
    }

    CScopedVirtualClock mClock;
    CSimDisplay mDisplay{*FindSimModel("Birch"), "brc0000000042",
                         SimChannelBit(ESimChannel::eFtdi)};
    CSimFtdiChip mChip{mDisplay.I2C(), {"FT0001", "Vorex bridge", 0x2011}};
    CSimFtdiBehindLibFtdi mBehind{mChip, mClock.Clock()};
    void* mLibrary = nullptr;
    FakeFtdiInstall mInstall = nullptr;
};

TEST_F(LibFtdi1ApiTest, DrivesTheBridgeThroughTheWholeOpenSequenceAndDdcCi) {
    // Without FTDI's own library the platform falls back to libftdi1.
    SLinuxPlatformFiles files;
    files.ftdiLibrary = L"libpaneltune-absent-ftd2xx.so";
    files.ftdiOpenLibrary = L"" FAKE_LIBFTDI1;
    const std::shared_ptr<IFtdiApi> api = CLinuxPlatform(files).FtdiApi();
    ASSERT_NE(api, nullptr);
    EXPECT_EQ(CI2CConnectorFTDI::NumberOfDevices(*api), 1u);

    CI2CConnectorFTDI connector(api);
    ASSERT_TRUE(connector.Open(0L));
    EXPECT_EQ(mChip.BitMode(), 0x02);
    EXPECT_EQ(mChip.LatencyMs(), 8);
    EXPECT_EQ(connector.SerialNumber(kNoTabletId), "BRC0000000042");
    EXPECT_EQ(connector.CapabilitiesString(), mDisplay.Scaler().CapabilityString());
    EXPECT_EQ(connector.FWVersion().mMajor, mDisplay.Model().firmware[0]);
    EXPECT_TRUE(mDisplay.Scaler().HostErrors().empty());

    // An index the library does not have, and a bridge that has gone.
    CI2CConnectorFTDI second(api);
    EXPECT_FALSE(second.Open(1L));
    connector.Close();
    mChip.SetPresent(false);
    EXPECT_EQ(CI2CConnectorFTDI::NumberOfDevices(*api), 0u);
}

// Before the latency is set, the handle counts transfers of the chip's 16 ms latency period: a
// read that gets less than it asks for lasts the read time-out.
TEST_F(LibFtdi1ApiTest, AShortReadLastsTheReadTimeOut) {
    CLibFtdi1Api api(L"" FAKE_LIBFTDI1);
    FtHandle handle = nullptr;
    ASSERT_EQ(api.FT_OpenEx(reinterpret_cast<void*>(uintptr_t{1}), Ft::kOpenByLocation, &handle),
              Ft::kOk);
    ASSERT_EQ(api.FT_SetBitMode(handle, 0x00, 0x02), Ft::kOk);
    // A bad command: the MPSSE answers with two bytes.
    const uint8_t bad = 0xAA;
    uint32_t count = 0;
    ASSERT_EQ(api.FT_Write(handle, &bad, 1, &count), Ft::kOk);
    uint8_t answer[3] = {};
    const int64_t before = mClock->NowNs();
    EXPECT_EQ(api.FT_Read(handle, answer, 3, &count), Ft::kOk);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ((mClock->NowNs() - before) / 1000000, 5008);
    api.FT_Close(handle);
}

TEST(LinuxBridgeLibraries, AreNoneWhenNoneLoads) {
    SLinuxPlatformFiles files;
    files.ftdiLibrary = L"libpaneltune-absent-ftd2xx.so";
    files.ftdiOpenLibrary = L"libpaneltune-absent-ftdi1.so";
    files.tiLibrary = L"libpaneltune-absent-ti.so";
    EXPECT_EQ(CLinuxPlatform(files).FtdiApi(), nullptr);
    EXPECT_EQ(CLinuxPlatform(files).TiApi(), nullptr);
}

} // namespace

#include "sim/CSimFtdiLibrary.h"

#include "MpsseHostSequences.h"
#include "SimFakeTargets.h"

#include "foundation/VirtualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

using ::testing::ElementsAre;
using namespace MpsseHost;

namespace {

class FtdiLibrary : public ::testing::Test {
protected:
    void SetUp() override {
        mLibrary.AddChip(mChipA);
        mLibrary.AddChip(mChipB);
    }

    SimFtHandle OpenA() {
        SimFtHandle handle = nullptr;
        EXPECT_EQ(mLibrary.OpenEx(reinterpret_cast<void*>(uintptr_t{0x1011}),
                                  SimFt::kOpenByLocation, &handle),
                  SimFt::kOk);
        return handle;
    }
    SimFtStatus Write(SimFtHandle handle_I, const std::vector<uint8_t>& bytes_I) {
        uint32_t written = 0;
        const SimFtStatus status = mLibrary.Write(handle_I, bytes_I.data(),
                                                  static_cast<uint32_t>(bytes_I.size()), &written);
        EXPECT_EQ(written, status == SimFt::kOk ? bytes_I.size() : 0u);
        return status;
    }
    std::vector<uint8_t> Read(SimFtHandle handle_I, uint32_t count_I) {
        std::vector<uint8_t> buffer(count_I);
        uint32_t read = 0;
        EXPECT_EQ(mLibrary.Read(handle_I, buffer.data(), count_I, &read), SimFt::kOk);
        buffer.resize(read);
        return buffer;
    }
    // The host's open sequence, in the steps that change the chip; the channels' tests run
    // the whole of it with the real connector.
    void RunOpenSequence(SimFtHandle handle_I) {
        ASSERT_EQ(mLibrary.SetUSBParameters(handle_I, 0x10000, 0x10000), SimFt::kOk);
        ASSERT_EQ(mLibrary.SetTimeouts(handle_I, 5000, 5000), SimFt::kOk);
        ASSERT_EQ(mLibrary.SetLatencyTimer(handle_I, 8), SimFt::kOk);
        ASSERT_EQ(mLibrary.SetBitMode(handle_I, 0, 2), SimFt::kOk);
        ASSERT_EQ(Write(handle_I, {0x8A, 0x97, 0x8D, 0x9E, 0x02, 0x00, 0x80, 0x03, 0x03, 0x86, 0x2B,
                                   0x01, 0x82, 0x14, 0xFF}),
                  SimFt::kOk);
    }

    CScopedVirtualClock mClock;
    CRecordingI2CTarget mTarget;
    CSimFtdiChip mChipA{mTarget, {"FT1A2B3C", "Display Bridge A", 0x1011}};
    CSimFtdiChip mChipB{mTarget, {"FT9Z8Y7X", "Display Bridge B", 0x1012}};
    CSimFtdiLibrary mLibrary;
};

TEST_F(FtdiLibrary, ListsAndOpensByEachKey) {
    uint32_t count = 0;
    EXPECT_EQ(mLibrary.ListDevices(&count, nullptr, SimFt::kListNumberOnly), SimFt::kOk);
    EXPECT_EQ(count, 2u);

    uint32_t location = 0;
    EXPECT_EQ(mLibrary.ListDevices(reinterpret_cast<void*>(uintptr_t{1}), &location,
                                   SimFt::kListByIndex | SimFt::kOpenByLocation),
              SimFt::kOk);
    EXPECT_EQ(location, 0x1012u);
    EXPECT_EQ(mLibrary.ListDevices(reinterpret_cast<void*>(uintptr_t{2}), &location,
                                   SimFt::kListByIndex | SimFt::kOpenByLocation),
              SimFt::kDeviceNotFound);

    struct SCase {
        const void* arg;
        uint32_t flags;
        SimFtStatus status;
        CSimFtdiChip* chip;
    };
    const SCase cases[] = {
        {"FT9Z8Y7X", SimFt::kOpenBySerialNumber, SimFt::kOk, &mChipB},
        {"FT9Z8Y7X", SimFt::kOpenBySerialNumber, SimFt::kDeviceNotOpened, nullptr},
        {"Display Bridge A", SimFt::kOpenByDescription, SimFt::kOk, &mChipA},
        {reinterpret_cast<void*>(uintptr_t{0x2000}), SimFt::kOpenByLocation, SimFt::kDeviceNotFound,
         nullptr},
        {"FT1A2B3C", 0x08, SimFt::kInvalidParameter, nullptr},
    };
    for (const SCase& c : cases) {
        SimFtHandle handle = reinterpret_cast<SimFtHandle>(1);
        EXPECT_EQ(mLibrary.OpenEx(const_cast<void*>(c.arg), c.flags, &handle), c.status);
        EXPECT_EQ(handle, static_cast<SimFtHandle>(c.chip));
    }
}

TEST_F(FtdiLibrary, ClosedOrUnknownHandlesAreRefused) {
    SimFtHandle handle = OpenA();
    ASSERT_EQ(mLibrary.Close(handle), SimFt::kOk);
    uint32_t count = 0;
    EXPECT_EQ(mLibrary.GetQueueStatus(handle, &count), SimFt::kInvalidHandle);
    EXPECT_EQ(mLibrary.Close(handle), SimFt::kInvalidHandle);
    EXPECT_EQ(mLibrary.ResetDevice(&count), SimFt::kInvalidHandle);
    // Closed, it can be opened again.
    EXPECT_NE(OpenA(), nullptr);
}

TEST_F(FtdiLibrary, HostOpenSequenceLeavesTheBusReady) {
    SimFtHandle handle = OpenA();
    RunOpenSequence(handle);

    EXPECT_EQ(mChipA.BitMode(), SimFt::kBitModeMpsse);
    EXPECT_EQ(mChipA.LatencyMs(), 8);
    EXPECT_EQ(mChipA.ReadTimeoutMs(), 5000u);
    EXPECT_EQ(mChipA.InTransferSize(), 0x10000u);
    EXPECT_EQ(mChipA.Engine().SclHz(), 100000u);
    EXPECT_EQ(mChipA.Engine().HighValue(), 0x14);
    EXPECT_EQ(mChipA.Engine().HighDirection(), 0xFF);
    EXPECT_TRUE(mChipA.Engine().Scl());
    EXPECT_TRUE(mChipA.Engine().Sda());
    EXPECT_TRUE(mTarget.events.empty());
}

TEST_F(FtdiLibrary, ReadsWaitForTheLatencyTimerOrTheTimeOut) {
    SimFtHandle handle = OpenA();
    RunOpenSequence(handle);
    mTarget.toRead = {0x6E};
    mClock->ClearSleeps();

    // The ACK bit of a sent byte comes with a send-immediate: no wait.
    ASSERT_EQ(Write(handle, Join({Start(), SendByte(0x6F)})), SimFt::kOk);
    EXPECT_THAT(Read(handle, 1), ElementsAre(0x00));
    EXPECT_TRUE(mClock->Sleeps().empty());

    // A read byte has none: it leaves when the 8 ms latency timer runs out.
    ASSERT_EQ(Write(handle, ReadByte(true)), SimFt::kOk);
    uint32_t queued = 99;
    ASSERT_EQ(mLibrary.GetQueueStatus(handle, &queued), SimFt::kOk);
    EXPECT_EQ(queued, 0u);
    EXPECT_THAT(Read(handle, 1), ElementsAre(0x6E));
    EXPECT_THAT(mClock->Sleeps(), ElementsAre(8u));

    // Asking for more than will come costs the whole read time-out.
    mClock->ClearSleeps();
    ASSERT_EQ(Write(handle, {0xAA, 0x87}), SimFt::kOk);
    EXPECT_THAT(Read(handle, 3), ElementsAre(0xFA, 0xAA));
    EXPECT_THAT(mClock->Sleeps(), ElementsAre(5000u));
}

TEST_F(FtdiLibrary, OutsideMpsseModeWrittenBytesAreNotCommands) {
    SimFtHandle handle = OpenA();
    ASSERT_EQ(Write(handle, {0xAA, 0x87}), SimFt::kOk);
    EXPECT_TRUE(Read(handle, 2).empty());
}

TEST_F(FtdiLibrary, FaultsVanishedChipAndFailingResets) {
    SimFtHandle handle = OpenA();
    mChipA.FailNextResets(3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(mLibrary.ResetDevice(handle), SimFt::kIoError);
    }
    EXPECT_EQ(mLibrary.ResetDevice(handle), SimFt::kOk);

    mChipA.SetPresent(false);
    EXPECT_EQ(Write(handle, {0xAA}), SimFt::kIoError);
    uint32_t count = 0;
    EXPECT_EQ(mLibrary.ListDevices(&count, nullptr, SimFt::kListNumberOnly), SimFt::kOk);
    EXPECT_EQ(count, 1u);
    // The handle can still be closed, as after an unplug.
    EXPECT_EQ(mLibrary.Close(handle), SimFt::kOk);
}

} // namespace

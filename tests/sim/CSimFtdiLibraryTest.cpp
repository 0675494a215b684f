#include "sim/CSimFtdiLibrary.h"

#include "MpsseHostSequences.h"
#include "SimFakeTargets.h"

#include "foundation/VirtualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using namespace MpsseHost;

namespace {

// Bytes the chip holds back leave when the 8 ms latency timer runs out, at a send-immediate, or
// when the host has waited its whole read time-out for more than will come.
TEST(FtdiLibrary, ReadsWaitForTheLatencyTimerOrTheTimeOut) {
    CScopedVirtualClock clock;
    CRecordingI2CTarget target;
    CSimFtdiChip chip{target, {"FT1A2B3C", "Display Bridge A", 0x1011}};
    CSimFtdiLibrary library;
    library.AddChip(chip);
    SimFtHandle handle = nullptr;
    ASSERT_EQ(
        library.OpenEx(reinterpret_cast<void*>(uintptr_t{0x1011}), SimFt::kOpenByLocation, &handle),
        SimFt::kOk);
    ASSERT_EQ(library.SetTimeouts(handle, 5000, 5000), SimFt::kOk);
    ASSERT_EQ(library.SetLatencyTimer(handle, 8), SimFt::kOk);
    ASSERT_EQ(library.SetBitMode(handle, 0, 2), SimFt::kOk);
    auto exchange = [&](std::vector<uint8_t> bytes_I, uint32_t count_I) {
        uint32_t done = 0;
        EXPECT_EQ(
            library.Write(handle, bytes_I.data(), static_cast<uint32_t>(bytes_I.size()), &done),
            SimFt::kOk);
        clock->ClearSleeps();
        std::vector<uint8_t> buffer(count_I);
        EXPECT_EQ(library.Read(handle, buffer.data(), count_I, &done), SimFt::kOk);
        buffer.resize(done);
        return buffer;
    };
    const std::vector<uint8_t> pins = {0x8A, 0x97, 0x8D, 0x9E, 0x02, 0x00,
                                       0x80, 0x03, 0x03, 0x86, 0x2B, 0x01};
    target.toRead = {0x6E};
    EXPECT_THAT(exchange(Join({pins, Start(), SendByte(0x6F)}), 1), ElementsAre(0x00));
    EXPECT_TRUE(clock->Sleeps().empty());
    EXPECT_THAT(exchange(ReadByte(true), 1), ElementsAre(0x6E));
    EXPECT_THAT(clock->Sleeps(), ElementsAre(8u));
    EXPECT_THAT(exchange({0xAA, 0x87}, 3), ElementsAre(0xFA, 0xAA));
    EXPECT_THAT(clock->Sleeps(), ElementsAre(5000u));
}

} // namespace

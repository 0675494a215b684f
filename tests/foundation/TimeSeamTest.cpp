#include "foundation/TimeSeam.h"
#include "foundation/VirtualClock.h"

#include <gtest/gtest.h>

TEST(TimeSeam, VirtualClockRecordsSleepsAndMovesTimeOn) {
    CScopedVirtualClock clock;
    const int64_t start = MonotonicNs();
    const uint64_t totalBefore = TotalRequestedSleepMs();

    SleepMs(5050);
    SleepMs(60);
    clock->Advance(1);

    EXPECT_EQ(clock->Sleeps(), (std::vector<uint32_t>{5050, 60}));
    EXPECT_EQ(clock->TotalSleptMs(), 5110u);
    EXPECT_EQ(MonotonicNs() - start, 5111LL * 1000000);
    EXPECT_EQ(TotalRequestedSleepMs() - totalBefore, 5110u);
}

TEST(TimeSeam, RealClockComesBackWhenTheVirtualOneEnds) {
    {
        CScopedVirtualClock clock;
        SleepMs(100000);
    }
    const int64_t before = MonotonicNs();
    SleepMs(1);
    EXPECT_GE(MonotonicNs() - before, 1000000);
}

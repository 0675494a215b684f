#include "foundation/ScopeTimer.h"
#include "TraceCapture.h"
#include "foundation/VirtualClock.h"

#include <gtest/gtest.h>

#include <string>

TEST(ScopeTimer, DestructorTracesTheElapsedTimeOnce) {
    CScopedVirtualClock clock;
    const CDebugLinesOn debug;
    testing::internal::CaptureStderr();
    {
        CScopeTimer timer("CDisplayConfig::FindDisplays");
        clock->Advance(1500);
    }
    {
        CScopeTimer timer("Counted");
        timer.SetCount(7);
        SleepMs(12);
    }
    {
        CScopeTimer timer("Long");
        clock->Advance(1234567);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "TIME: CDisplayConfig::FindDisplays, = 1500 ms\n"
              "TIME: Counted, = 12 ms, 7\n"
              "TIME: Long, = 1.23457e+06 ms\n");
}

TEST(ScopeTimer, ExplicitReportSilencesTheDestructorAndFeedsTheAverage) {
    CScopedVirtualClock clock;
    SAverageAccumulator average;
    testing::internal::CaptureStderr();
    std::string first, second;
    {
        CScopeTimer timer("A");
        timer.SetAverage(&average);
        clock->Advance(10);
        first = timer.Report();
    }
    {
        CScopeTimer timer("A");
        timer.SetAverage(&average);
        clock->Advance(25);
        second = timer.Report();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(first, "TIME: A, = 10 ms, 10");
    EXPECT_EQ(second, "TIME: A, = 25 ms, 17.5");
    EXPECT_EQ(average.samples, 2u);
}

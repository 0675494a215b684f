#include "foundation/ScopeTimer.h"
#include "TraceCapture.h"
#include "foundation/VirtualClock.h"

#include <gtest/gtest.h>

#include <string>

TEST(ScopeTimer, TracesTheElapsedTimeOnceOrReportsItAndFeedsTheAverage) {
    CScopedVirtualClock clock;
    const CDebugLinesOn debug;
    testing::internal::CaptureStderr();
    {
        CScopeTimer timer("Counted");
        timer.SetCount(7);
        SleepMs(12);
    }
    {
        CScopeTimer timer("Long");
        clock->Advance(1234567);
    }
    SAverageAccumulator average;
    std::string reports;
    for (const int ms : {10, 25}) {
        CScopeTimer timer("A");
        timer.SetAverage(&average);
        clock->Advance(ms);
        reports += timer.Report() + "|";
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "TIME: Counted, = 12 ms, 7\nTIME: Long, = 1.23457e+06 ms\n");
    EXPECT_EQ(reports, "TIME: A, = 10 ms, 10|TIME: A, = 25 ms, 17.5|");
}

#pragma once
// Times a scope and traces "TIME: <name>, = <ms> ms" when it ends, as a debug line (shown only
// while gTraceEnabled). Time comes from MonotonicNs, so a virtual clock gives an exact line.

#include <cstdint>
#include <string>

// A running mean over several timings of the same scope.
struct SAverageAccumulator {
    double mean = 0.0;
    uint32_t samples = 0;
};

class CScopeTimer {
public:
    explicit CScopeTimer(const std::string& name);
    ~CScopeTimer();
    CScopeTimer(const CScopeTimer&) = delete;
    CScopeTimer& operator=(const CScopeTimer&) = delete;

    // An item count printed behind the time; 0 prints nothing.
    void SetCount(uint32_t count) { mCount = count; }
    // Adds each reported time to the accumulator and prints the new mean; null for none.
    void SetAverage(SAverageAccumulator* average) { mAverage = average; }

    // The finished line without a line end; the destructor then prints nothing.
    std::string Report();

private:
    std::string mLabel;
    uint32_t mCount = 0;
    int64_t mFrequency;
    int64_t mStart;
    bool mReported = false;
    SAverageAccumulator* mAverage = nullptr;
};

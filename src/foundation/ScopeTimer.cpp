#include "foundation/ScopeTimer.h"

#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <sstream>

namespace {
// MonotonicNs counts nanoseconds.
constexpr int64_t kTicksPerSecond = 1000000000;
} // namespace

CScopeTimer::CScopeTimer(const std::string& name)
    : mLabel("TIME: " + name), mFrequency(kTicksPerSecond), mStart(MonotonicNs()) {}

CScopeTimer::~CScopeTimer() {
    if (!mReported) {
        TraceDebug("%s\n", Report().c_str());
    }
}

std::string CScopeTimer::Report() {
    const int64_t now = MonotonicNs();
    const double elapsed =
        static_cast<double>(now - mStart) * 1000.0 / static_cast<double>(mFrequency);
    mReported = true;
    std::ostringstream line;
    line << mLabel << ", = " << elapsed << " ms";
    if (mCount != 0) {
        line << ", " << mCount;
    }
    if (mAverage != nullptr) {
        mAverage->mean = (mAverage->mean * mAverage->samples + elapsed) / (mAverage->samples + 1);
        mAverage->samples += 1;
        line << ", " << mAverage->mean;
    }
    return line.str();
}

#include "foundation/VirtualClock.h"

#include <numeric>

namespace {
constexpr int64_t kNsPerMs = 1000000;
}

void CVirtualClock::Sleep(uint32_t milliseconds) {
    std::lock_guard<std::mutex> hold(mLock);
    mSleeps.push_back(milliseconds);
    mNowNs += milliseconds * kNsPerMs;
}

int64_t CVirtualClock::NowNs() {
    std::lock_guard<std::mutex> hold(mLock);
    return mNowNs;
}

void CVirtualClock::Advance(uint32_t milliseconds) {
    std::lock_guard<std::mutex> hold(mLock);
    mNowNs += milliseconds * kNsPerMs;
}

std::vector<uint32_t> CVirtualClock::Sleeps() const {
    std::lock_guard<std::mutex> hold(mLock);
    return mSleeps;
}

uint64_t CVirtualClock::TotalSleptMs() const {
    std::lock_guard<std::mutex> hold(mLock);
    return std::accumulate(mSleeps.begin(), mSleeps.end(), uint64_t{0});
}

void CVirtualClock::ClearSleeps() {
    std::lock_guard<std::mutex> hold(mLock);
    mSleeps.clear();
}

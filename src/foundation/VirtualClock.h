#pragma once
// A clock for tests and simulations: a sleep returns at once, is recorded, and moves time on.

#include "foundation/TimeSeam.h"

#include <cstdint>
#include <mutex>
#include <vector>

class CVirtualClock final : public IClock {
public:
    void Sleep(uint32_t milliseconds) override;
    int64_t NowNs() override;

    // Moves time on without a sleep, as work that takes time would.
    void Advance(uint32_t milliseconds);
    std::vector<uint32_t> Sleeps() const;
    uint64_t TotalSleptMs() const;
    void ClearSleeps();

private:
    mutable std::mutex mLock;
    int64_t mNowNs = 0;
    std::vector<uint32_t> mSleeps;
};

// Installs a virtual clock for the life of the object and restores the real one afterwards.
class CScopedVirtualClock {
public:
    CScopedVirtualClock() { InstallClock(&mClock); }
    ~CScopedVirtualClock() { InstallClock(nullptr); }
    CScopedVirtualClock(const CScopedVirtualClock&) = delete;
    CScopedVirtualClock& operator=(const CScopedVirtualClock&) = delete;

    CVirtualClock& Clock() { return mClock; }
    CVirtualClock* operator->() { return &mClock; }

private:
    CVirtualClock mClock;
};

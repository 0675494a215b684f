#include "foundation/TimeSeam.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace {

class CRealClock final : public IClock {
public:
    void Sleep(uint32_t milliseconds) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
    int64_t NowNs() override {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(
                   std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }
};

CRealClock gRealClock;
std::atomic<IClock*> gClock{&gRealClock};
std::atomic<uint64_t> gTotalSleptMs{0};

} // namespace

void SleepMs(uint32_t milliseconds) {
    gTotalSleptMs += milliseconds;
    gClock.load()->Sleep(milliseconds);
}

int64_t MonotonicNs() {
    return gClock.load()->NowNs();
}

uint64_t TotalRequestedSleepMs() {
    return gTotalSleptMs.load();
}

void InstallClock(IClock* clock) {
    gClock.store(clock ? clock : &gRealClock);
}

#pragma once
// The one place where the program sleeps and reads a monotonic clock. Tests install a virtual
// clock so that protocol delays of seconds cost nothing and can be checked exactly.

#include <cstdint>

class IClock {
public:
    virtual ~IClock() = default;
    virtual void Sleep(uint32_t milliseconds) = 0;
    virtual int64_t NowNs() = 0;
};

// Blocks the calling thread for the given time through the installed clock.
void SleepMs(uint32_t milliseconds);
// Monotonic time in nanoseconds through the installed clock.
int64_t MonotonicNs();
// Sum of every SleepMs asked since the process started, whatever clock served it: the time the
// protocol itself requires, to compare with the wall time a task took.
uint64_t TotalRequestedSleepMs();

// Replaces the clock for the whole process; nullptr restores the real one. The caller keeps
// ownership and uninstalls before the clock dies.
void InstallClock(IClock* clock);

#pragma once
// The in-process named lock. The name serves the trace alone; the lock orders the threads of
// this process only.

#include <atomic>
#include <memory>
#include <string>

class CVrxSemaphore {
public:
    virtual ~CVrxSemaphore() = default;
    // Takes the lock, blocking; a thread that holds it takes it again. Returns 0.
    virtual int Request() = 0;
    // Leaves the lock once. Returns 0.
    virtual int Release() = 0;

    // Silences the contention lines for good. The trace lock needs it: a lock that traced its
    // own contention would call Trace from inside Trace.
    void StopTracing() { mTrace.store(false, std::memory_order_relaxed); }
    bool IsTracing() const { return mTrace.load(std::memory_order_relaxed); }

private:
    std::atomic<bool> mTrace{true};
};

// Creates the recursive lock; traces "Semaphore <name> <address> create <thread>" as a debug
// line.
std::shared_ptr<CVrxSemaphore> CreateVrxSemaphore(const std::string& name_I);

// Holds a lock for a scope. A null lock is skipped.
class CVrxSemaphoreHold {
public:
    explicit CVrxSemaphoreHold(std::shared_ptr<CVrxSemaphore> lock_I) : mLock(std::move(lock_I)) {
        if (mLock) {
            mLock->Request();
        }
    }
    ~CVrxSemaphoreHold() {
        if (mLock) {
            mLock->Release();
        }
    }
    CVrxSemaphoreHold(const CVrxSemaphoreHold&) = delete;
    CVrxSemaphoreHold& operator=(const CVrxSemaphoreHold&) = delete;

private:
    std::shared_ptr<CVrxSemaphore> mLock;
};

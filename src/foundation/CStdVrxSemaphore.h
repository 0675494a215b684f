#pragma once
// The recursive lock behind CVrxSemaphore, on the standard library's recursive mutex.

#include "foundation/CVrxSemaphore.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

class CStdVrxSemaphore final : public CVrxSemaphore {
public:
    explicit CStdVrxSemaphore(const std::string& name_I);
    ~CStdVrxSemaphore() override;
    CStdVrxSemaphore(const CStdVrxSemaphore&) = delete;
    CStdVrxSemaphore& operator=(const CStdVrxSemaphore&) = delete;

    // An uncontended request traces nothing; a contended one traces who holds the lock and
    // when it was taken.
    int Request() override;
    // A release by a thread that does not hold the lock is refused.
    int Release() override;

private:
    void Entered(uint32_t threadId);

    std::recursive_mutex mLock;
    // Owner and depth are written only by the holder; the owner is read by waiters for the trace.
    std::atomic<uint32_t> mOwner{0};
    uint32_t mDepth = 0;
};

#pragma once
// The reader/writer lock behind CVrxReaderWriterSemaphore. Its shared lock is built on a mutex
// and a condition variable, so that any thread may release the write side, as the family allows.

#include "foundation/CVrxReaderWriterSemaphore.h"

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>

class CStdVrxReaderWriterSemaphore final : public CVrxReaderWriterSemaphore {
public:
    explicit CStdVrxReaderWriterSemaphore(const std::string& name_I);
    ~CStdVrxReaderWriterSemaphore() override;
    CStdVrxReaderWriterSemaphore(const CStdVrxReaderWriterSemaphore&) = delete;
    CStdVrxReaderWriterSemaphore& operator=(const CStdVrxReaderWriterSemaphore&) = delete;

    int ReadRequest() override;
    // A thread that holds no read count releases nothing.
    int ReadRelease() override;
    int WriteRequest() override;
    // A release from a thread other than the writer is traced and done all the same.
    int WriteRelease() override;

private:
    void LockShared();
    void UnlockShared();
    bool TryLockExclusive();
    void LockExclusive();
    void UnlockExclusive();

    // The shared lock itself.
    std::mutex mStateLock;
    std::condition_variable mStateChanged;
    uint32_t mSharedCount = 0;
    bool mExclusive = false;

    // Guards the per-thread bookkeeping below.
    std::mutex mGuard;
    std::map<uint32_t, uint32_t> mReaders;
    uint32_t mWriter = 0;
};

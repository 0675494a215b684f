#include "foundation/CStdVrxReaderWriterSemaphore.h"

#include "foundation/ProcessInfo.h"
#include "foundation/Trace.h"

std::shared_ptr<CVrxReaderWriterSemaphore>
CreateVrxReaderWriterSemaphore(const std::string& name_I) {
    return std::make_shared<CStdVrxReaderWriterSemaphore>(name_I);
}

CStdVrxReaderWriterSemaphore::CStdVrxReaderWriterSemaphore(const std::string& name_I) {
    if (IsTracing()) {
        TraceDebug("ReaderWriterSemaphore %s %p create %i\n", name_I.c_str(),
                   static_cast<void*>(this), static_cast<int>(CurrentThreadId()));
    }
}

CStdVrxReaderWriterSemaphore::~CStdVrxReaderWriterSemaphore() {
    if (IsTracing()) {
        TraceDebug("ReaderWriterSemaphore %p destroy %i\n", static_cast<void*>(this),
                   static_cast<int>(CurrentThreadId()));
    }
}

void CStdVrxReaderWriterSemaphore::LockShared() {
    std::unique_lock<std::mutex> hold(mStateLock);
    mStateChanged.wait(hold, [this] { return !mExclusive; });
    ++mSharedCount;
}

void CStdVrxReaderWriterSemaphore::UnlockShared() {
    std::lock_guard<std::mutex> hold(mStateLock);
    if (mSharedCount > 0 && --mSharedCount == 0) {
        mStateChanged.notify_all();
    }
}

bool CStdVrxReaderWriterSemaphore::TryLockExclusive() {
    std::lock_guard<std::mutex> hold(mStateLock);
    if (mExclusive || mSharedCount > 0) {
        return false;
    }
    mExclusive = true;
    return true;
}

void CStdVrxReaderWriterSemaphore::LockExclusive() {
    std::unique_lock<std::mutex> hold(mStateLock);
    mStateChanged.wait(hold, [this] { return !mExclusive && mSharedCount == 0; });
    mExclusive = true;
}

void CStdVrxReaderWriterSemaphore::UnlockExclusive() {
    std::lock_guard<std::mutex> hold(mStateLock);
    mExclusive = false;
    mStateChanged.notify_all();
}

int CStdVrxReaderWriterSemaphore::ReadRequest() {
    const uint32_t self = CurrentThreadId();
    uint32_t writer = 0;
    {
        std::lock_guard<std::mutex> guard(mGuard);
        const auto held = mReaders.find(self);
        if (held != mReaders.end() || mWriter == self) {
            ++mReaders[self];
            return 0;
        }
        writer = mWriter;
    }
    if (IsTracing()) {
        Trace("ReaderWriterSemaphore %p readrequest %i owned (%i)\n", static_cast<void*>(this),
              static_cast<int>(self), static_cast<int>(writer));
    }
    LockShared();
    if (IsTracing()) {
        Trace("ReaderWriterSemaphore %p readrequest %i taken\n", static_cast<void*>(this),
              static_cast<int>(self));
    }
    std::lock_guard<std::mutex> guard(mGuard);
    ++mReaders[self];
    return 0;
}

int CStdVrxReaderWriterSemaphore::ReadRelease() {
    const uint32_t self = CurrentThreadId();
    std::lock_guard<std::mutex> guard(mGuard);
    const auto held = mReaders.find(self);
    if (held == mReaders.end()) {
        VRX_ASSERT_NOT_REACHED("ReaderWriterSemaphore read release without a read request");
        return 0;
    }
    // A thread holds one shared lock for all its read counts, and none while it writes.
    if (--held->second == 0) {
        mReaders.erase(held);
        if (mWriter == 0) {
            UnlockShared();
        }
    }
    return 0;
}

int CStdVrxReaderWriterSemaphore::WriteRequest() {
    const uint32_t self = CurrentThreadId();
    if (!TryLockExclusive()) {
        uint32_t writer = 0;
        {
            std::lock_guard<std::mutex> guard(mGuard);
            writer = mWriter;
        }
        if (IsTracing()) {
            Trace("ReaderWriterSemaphore %p writerequest %i owned (%i)\n", static_cast<void*>(this),
                  static_cast<int>(self), static_cast<int>(writer));
        }
        LockExclusive();
        if (IsTracing()) {
            Trace("ReaderWriterSemaphore %p writerequest %i taken\n", static_cast<void*>(this),
                  static_cast<int>(self));
        }
    }
    std::lock_guard<std::mutex> guard(mGuard);
    mWriter = self;
    return 0;
}

int CStdVrxReaderWriterSemaphore::WriteRelease() {
    const uint32_t self = CurrentThreadId();
    bool keepsReadSide = false;
    {
        std::lock_guard<std::mutex> guard(mGuard);
        if (mWriter != 0 && mWriter != self) {
            Trace("ReaderWriterSemaphore %p release from non-aquired thread %i (%i)\n",
                  static_cast<void*>(this), static_cast<int>(self), static_cast<int>(mWriter));
        }
        UnlockExclusive();
        mWriter = 0;
        keepsReadSide = mReaders.count(self) != 0;
    }
    if (keepsReadSide) {
        LockShared();
    }
    return 0;
}

#include "foundation/CStdVrxSemaphore.h"

#include "foundation/ProcessInfo.h"
#include "foundation/Trace.h"

std::shared_ptr<CVrxSemaphore> CreateVrxSemaphore(const std::string& name_I) {
    return std::make_shared<CStdVrxSemaphore>(name_I);
}

CStdVrxSemaphore::CStdVrxSemaphore(const std::string& name_I) {
    if (IsTracing()) {
        TraceDebug("Semaphore %s %p create %i\n", name_I.c_str(), static_cast<void*>(this),
                   static_cast<int>(CurrentThreadId()));
    }
}

CStdVrxSemaphore::~CStdVrxSemaphore() {
    if (IsTracing()) {
        TraceDebug("Semaphore %p destroy %i\n", static_cast<void*>(this),
                   static_cast<int>(CurrentThreadId()));
    }
}

void CStdVrxSemaphore::Entered(uint32_t threadId) {
    if (mDepth++ == 0) {
        mOwner.store(threadId);
    }
}

int CStdVrxSemaphore::Request() {
    const uint32_t self = CurrentThreadId();
    if (mLock.try_lock()) {
        Entered(self);
        return 0;
    }
    if (IsTracing()) {
        Trace("Semaphore %p request %i owned (%i)\n", static_cast<void*>(this),
              static_cast<int>(self), static_cast<int>(mOwner.load()));
    }
    mLock.lock();
    Entered(self);
    if (IsTracing()) {
        Trace("Semaphore %p request %i taken\n", static_cast<void*>(this), static_cast<int>(self));
    }
    return 0;
}

int CStdVrxSemaphore::Release() {
    if (mOwner.load() != CurrentThreadId()) {
        VRX_ASSERT_NOT_REACHED("Semaphore released by a thread that does not hold it");
        return 0;
    }
    if (--mDepth == 0) {
        mOwner.store(0);
    }
    mLock.unlock();
    return 0;
}

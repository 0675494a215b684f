#include "foundation/SyncObjects.h"

#include "foundation/ProcessInfo.h"

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <map>
#include <mutex>
#include <system_error>

namespace WinUtils {

namespace {

std::mutex& SyncLock() {
    static std::mutex lock;
    return lock;
}

std::condition_variable& SyncChanged() {
    static std::condition_variable changed;
    return changed;
}

std::map<std::wstring, std::weak_ptr<CSyncObject>>& NamedObjects() {
    static std::map<std::wstring, std::weak_ptr<CSyncObject>> names;
    return names;
}

// Index of the object that satisfies the wait, or -1.
int FirstSatisfied(const std::vector<SyncHandle>& objects, bool waitAll, std::thread::id self) {
    if (waitAll) {
        for (const SyncHandle& object : objects) {
            if (!object->IsSignalledFor(self)) {
                return -1;
            }
        }
        return 0;
    }
    for (size_t i = 0; i < objects.size(); ++i) {
        if (objects[i]->IsSignalledFor(self)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace

CSyncEvent::CSyncEvent(bool manualReset_I, bool initialState_I)
    : mManualReset(manualReset_I), mSignalled(initialState_I) {}

void CSyncEvent::Set() {
    std::lock_guard<std::mutex> hold(SyncLock());
    mSignalled = true;
    SyncChanged().notify_all();
}

void CSyncEvent::Reset() {
    std::lock_guard<std::mutex> hold(SyncLock());
    mSignalled = false;
}

bool CSyncEvent::IsSignalledFor(std::thread::id) const {
    return mSignalled;
}

void CSyncEvent::Acquire(std::thread::id) {
    if (!mManualReset) {
        mSignalled = false;
    }
}

CSyncMutex::CSyncMutex(bool initialOwner_I) {
    if (initialOwner_I) {
        mOwner = std::this_thread::get_id();
        mDepth = 1;
    }
}

bool CSyncMutex::Release(uint32_t& error) {
    std::lock_guard<std::mutex> hold(SyncLock());
    if (mDepth == 0 || mOwner != std::this_thread::get_id()) {
        error = kErrorNotOwner;
        return false;
    }
    if (--mDepth == 0) {
        mOwner = std::thread::id();
        SyncChanged().notify_all();
    }
    return true;
}

bool CSyncMutex::IsSignalledFor(std::thread::id waiter) const {
    return mDepth == 0 || mOwner == waiter;
}

void CSyncMutex::Acquire(std::thread::id waiter) {
    mOwner = waiter;
    ++mDepth;
}

CSyncSemaphore::CSyncSemaphore(int32_t initialCount_I, int32_t maximum_I)
    : mCount(initialCount_I), mMaximum(maximum_I) {}

bool CSyncSemaphore::Release(int32_t count_I, uint32_t& error) {
    std::lock_guard<std::mutex> hold(SyncLock());
    if (count_I <= 0 || count_I > mMaximum - mCount) {
        error = count_I <= 0 ? kErrorInvalidParameter : kErrorTooManyPosts;
        return false;
    }
    mCount += count_I;
    SyncChanged().notify_all();
    return true;
}

bool CSyncSemaphore::IsSignalledFor(std::thread::id) const {
    return mCount > 0;
}

void CSyncSemaphore::Acquire(std::thread::id) {
    --mCount;
}

CSyncThread::~CSyncThread() {
    if (!mThread.joinable()) {
        return;
    }
    // The routine's own reference can be the last one; a thread can't join itself.
    if (mThread.get_id() == std::this_thread::get_id()) {
        mThread.detach();
    } else {
        mThread.join();
    }
}

std::shared_ptr<CSyncThread> CSyncThread::Start(Routine routine_I, void* context_I,
                                                uint32_t& error) {
    auto object = std::make_shared<CSyncThread>();
    try {
        object->mThread = std::thread([object, routine_I, context_I] {
            {
                std::lock_guard<std::mutex> hold(SyncLock());
                object->mThreadId = CurrentThreadId();
                SyncChanged().notify_all();
            }
            routine_I(context_I);
            std::lock_guard<std::mutex> hold(SyncLock());
            object->mFinished = true;
            SyncChanged().notify_all();
        });
    } catch (const std::system_error& failure) {
        error = static_cast<uint32_t>(failure.code().value());
        return nullptr;
    }
    std::unique_lock<std::mutex> hold(SyncLock());
    SyncChanged().wait(hold, [&] { return object->mThreadId != 0; });
    return object;
}

uint32_t CSyncThread::ThreadId() const {
    std::lock_guard<std::mutex> hold(SyncLock());
    return mThreadId;
}

bool CSyncThread::IsSignalledFor(std::thread::id) const {
    return mFinished;
}

uint32_t WaitMilliseconds(double seconds) {
    if (std::isinf(seconds) && seconds > 0) {
        return kInfinite;
    }
    if (!(seconds > 0)) {
        return 0;
    }
    const double milliseconds = seconds * 1000.0;
    return milliseconds >= kInfinite ? kInfinite - 1 : static_cast<uint32_t>(milliseconds);
}

uint32_t WaitForObjects(const std::vector<SyncHandle>& objects_I, bool waitAll_I,
                        uint32_t milliseconds_I) {
    if (objects_I.empty()) {
        return kWaitFailed;
    }
    for (const SyncHandle& object : objects_I) {
        if (!object) {
            return kWaitFailed;
        }
    }
    const std::thread::id self = std::this_thread::get_id();
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds_I);
    std::unique_lock<std::mutex> hold(SyncLock());
    int satisfied = -1;
    const auto ready = [&] {
        satisfied = FirstSatisfied(objects_I, waitAll_I, self);
        return satisfied >= 0;
    };
    if (milliseconds_I == kInfinite) {
        SyncChanged().wait(hold, ready);
    } else if (!SyncChanged().wait_until(hold, deadline, ready)) {
        return kWaitTimeout;
    }
    if (waitAll_I) {
        for (const SyncHandle& object : objects_I) {
            object->Acquire(self);
        }
    } else {
        objects_I[static_cast<size_t>(satisfied)]->Acquire(self);
    }
    return static_cast<uint32_t>(satisfied);
}

SyncHandle FindNamedObject(const std::wstring& name_I) {
    std::lock_guard<std::mutex> hold(SyncLock());
    auto& names = NamedObjects();
    const auto found = names.find(name_I);
    if (found == names.end()) {
        return nullptr;
    }
    SyncHandle object = found->second.lock();
    if (!object) {
        names.erase(found);
    }
    return object;
}

SyncHandle FindOrNameObject(const std::wstring& name_I, const std::function<SyncHandle()>& create_I,
                            bool& existed) {
    std::lock_guard<std::mutex> hold(SyncLock());
    std::weak_ptr<CSyncObject>& slot = NamedObjects()[name_I];
    SyncHandle object = slot.lock();
    existed = object != nullptr;
    if (!existed) {
        object = create_I();
        slot = object;
    }
    return object;
}

} // namespace WinUtils

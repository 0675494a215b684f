#pragma once
// The native waitable objects behind the WinUtils handles: events, mutexes, semaphores and
// threads on the standard library, with the results and error numbers the handle family knows.
// All of them share one lock and one condition variable, so that a wait over several objects,
// and a wait for all of them at once, needs nothing more.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace WinUtils {

// Results of a wait.
constexpr uint32_t kWaitObject0 = 0;
constexpr uint32_t kWaitTimeout = 258;
constexpr uint32_t kWaitFailed = 0xFFFFFFFF;
// A wait time that never ends.
constexpr uint32_t kInfinite = 0xFFFFFFFF;

// Error numbers of the family.
constexpr uint32_t kErrorFileNotFound = 2;
constexpr uint32_t kErrorInvalidHandle = 6;
constexpr uint32_t kErrorInvalidParameter = 87;
constexpr uint32_t kErrorAlreadyExists = 183;
constexpr uint32_t kErrorNotOwner = 288;
constexpr uint32_t kErrorTooManyPosts = 298;

class CSyncObject {
public:
    virtual ~CSyncObject() = default;

    // For WaitForObjects, which calls both under the shared lock. A satisfied wait takes what it
    // waited for: an auto-reset event's state, a semaphore's count, a mutex's ownership.
    virtual bool IsSignalledFor(std::thread::id waiter) const = 0;
    virtual void Acquire(std::thread::id) {}
};

using SyncHandle = std::shared_ptr<CSyncObject>;

class CSyncEvent final : public CSyncObject {
public:
    CSyncEvent(bool manualReset_I, bool initialState_I);
    void Set();
    void Reset();

    bool IsSignalledFor(std::thread::id waiter) const override;
    void Acquire(std::thread::id) override;

private:
    bool mManualReset;
    bool mSignalled;
};

class CSyncMutex final : public CSyncObject {
public:
    explicit CSyncMutex(bool initialOwner_I);
    // Leaves one level of ownership; false with kErrorNotOwner when the caller does not own it.
    bool Release(uint32_t& error);

    bool IsSignalledFor(std::thread::id waiter) const override;
    void Acquire(std::thread::id waiter) override;

private:
    std::thread::id mOwner;
    uint32_t mDepth = 0;
};

class CSyncSemaphore final : public CSyncObject {
public:
    CSyncSemaphore(int32_t initialCount_I, int32_t maximum_I);
    // False with kErrorTooManyPosts when the count would pass the maximum.
    bool Release(int32_t count_I, uint32_t& error);

    bool IsSignalledFor(std::thread::id waiter) const override;
    void Acquire(std::thread::id) override;

private:
    int32_t mCount;
    int32_t mMaximum;
};

// A running routine; signalled once the routine has returned.
class CSyncThread final : public CSyncObject {
public:
    using Routine = uint32_t (*)(void* context);
    CSyncThread() = default;
    ~CSyncThread() override;
    // Starts the routine and waits until the new thread knows its id. False with the error of
    // the system when no thread could be made.
    static std::shared_ptr<CSyncThread> Start(Routine routine_I, void* context_I, uint32_t& error);
    uint32_t ThreadId() const;

    bool IsSignalledFor(std::thread::id waiter) const override;

private:
    std::thread mThread;
    uint32_t mThreadId = 0;
    bool mFinished = false;
};

// Seconds as milliseconds of a wait, truncated; infinity never ends, and what is not a
// positive number waits not at all.
uint32_t WaitMilliseconds(double seconds);

// Waits until one object (or, with waitAll, every object at once) is signalled. Returns the
// index of the first signalled object, kWaitTimeout, or kWaitFailed for an empty list or a
// null object.
uint32_t WaitForObjects(const std::vector<SyncHandle>& objects_I, bool waitAll_I,
                        uint32_t milliseconds_I);

// Names of events, mutexes and semaphores, shared by the whole process. A name lives as long as
// one handle of its object does.
SyncHandle FindNamedObject(const std::wstring& name_I);
// The live object of that name, or a new one from create_I under that name; existed tells which.
SyncHandle FindOrNameObject(const std::wstring& name_I, const std::function<SyncHandle()>& create_I,
                            bool& existed);

} // namespace WinUtils

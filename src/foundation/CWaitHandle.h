#pragma once
// A waitable handle: the base of events, mutexes, semaphores and threads.

#include "foundation/SyncObjects.h"

#include <cstdint>
#include <string>

namespace WinUtils {

class CWaitHandle {
public:
    CWaitHandle() = default;
    // Wraps a handle; an owned handle is closed by this object.
    CWaitHandle(SyncHandle handle_I, bool bOwned_I);
    virtual ~CWaitHandle();
    CWaitHandle(const CWaitHandle&) = delete;
    CWaitHandle& operator=(const CWaitHandle&) = delete;

    // True only when the wait ends with the object signalled. 0 tests and returns at once;
    // infinity waits for ever.
    virtual bool WaitFor(double seconds);
    // The same wait, answered as "Event" or "Timeout"; empty without a handle. There is no
    // message queue here: the GUI loop wakes itself for its messages and polls with 0.
    virtual std::string MsgWaitFor(double seconds);
    virtual SyncHandle Handle();
    // Drops the handle; a running thread or a named object lives on in its other holders.
    virtual void Close();

    uint32_t LastError() const { return mLastError; }
    // Whether this object made or opened the handle, rather than being given it.
    bool IsOwned() const { return mOwned; }

protected:
    void Attach(SyncHandle handle_I, bool bOwned_I);
    void SetLastError(uint32_t error) { mLastError = error; }
    bool HasHandle() const { return mHandle != nullptr; }

private:
    SyncHandle mHandle;
    bool mOwned = false;
    uint32_t mLastError = 0;
};

} // namespace WinUtils

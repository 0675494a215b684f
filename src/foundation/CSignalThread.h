#pragma once
// A thread handle with waits: WaitFor(0) tells whether the routine has ended. Closing the
// handle does not stop the thread.

#include "foundation/CWaitHandle.h"

#include <cstdint>

namespace WinUtils {

class CSignalThread : public CWaitHandle {
public:
    using Routine = CSyncThread::Routine;

    // Starts routine_I(context_I) on a new thread. With a handle already there nothing starts
    // and the answer is true. The label names the routine in the trace and nowhere else.
    bool Create(Routine routine_I, const char* label_I, void* context_I);

    // The system id of the thread, 0 before a start or after a failed one.
    uint32_t ThreadId() const { return mThreadId; }

private:
    uint32_t mThreadId = 0;
};

} // namespace WinUtils

#include "foundation/CSignalThread.h"

#include "foundation/ProcessInfo.h"
#include "foundation/Trace.h"

namespace WinUtils {

bool CSignalThread::Create(Routine routine_I, const char* label_I, void* context_I) {
    if (HasHandle()) {
        return true;
    }
    mThreadId = 0;
    TraceDebug("CSignalThread::Create %p (%i)\n", reinterpret_cast<void*>(routine_I),
               static_cast<int>(CurrentThreadId()));
    uint32_t error = 0;
    const std::shared_ptr<CSyncThread> thread = CSyncThread::Start(routine_I, context_I, error);
    if (!thread) {
        SetLastError(error);
        VRX_ASSERT_NOT_REACHED("CSignalThread::Not created");
        Trace("CSignalThread::Create '%s' not created %i\n", label_I, static_cast<int>(error));
        mThreadId = 0;
        return false;
    }
    Attach(thread, true);
    mThreadId = thread->ThreadId();
    TraceDebug("CSignalThread::Create '%s' %i\n", label_I, static_cast<int>(mThreadId));
    return true;
}

} // namespace WinUtils

#include "app/CThreadFrame.h"

#include "foundation/ProcessInfo.h"
#include "foundation/StringUtilities.h"
#include "foundation/ThreadName.h"
#include "foundation/Trace.h"

#include <exception>

namespace {

class CThreadNameScope {
public:
    explicit CThreadNameScope(const std::wstring& name_I) : mName(name_I) {
        SetCurrentThreadName(ToNarrow(mName));
        TraceDebug("Thread %S created (%05u)\n", mName.c_str(), CurrentThreadId());
    }
    ~CThreadNameScope() { TraceDebug("Thread %S ended\n", mName.c_str()); }
    CThreadNameScope(const CThreadNameScope&) = delete;
    CThreadNameScope& operator=(const CThreadNameScope&) = delete;

private:
    std::wstring mName;
};

} // namespace

uint32_t RunInThreadFrame(const std::wstring& name_I, const std::function<void()>& body_I) {
    CThreadNameScope scope(name_I);
    try {
        body_I();
    } catch (const std::exception& error) {
        Trace("Exception %s in thread %S\n", error.what(), name_I.c_str());
        throw;
    } catch (...) {
        Trace("Exception ... in thread %S\n", name_I.c_str());
        throw;
    }
    return 0;
}

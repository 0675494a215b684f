#include "foundation/CSignalSemaphore.h"

#include "foundation/ProcessInfo.h"
#include "foundation/Trace.h"

namespace WinUtils {

CSignalSemaphore::CSignalSemaphore(std::wstring name_I) : mName(std::move(name_I)) {}

CSignalSemaphore::~CSignalSemaphore() {
    mName.clear();
}

bool CSignalSemaphore::Create(int32_t initialCount_I, int32_t maximum_I) {
    if (HasHandle()) {
        return true;
    }
    Trace("CSignalSemaphore::Create (0x%x) %S\n", CurrentThreadId(), mName.c_str());
    const bool countsValid = maximum_I > 0 && initialCount_I >= 0 && initialCount_I <= maximum_I;
    const auto make = [&] { return std::make_shared<CSyncSemaphore>(initialCount_I, maximum_I); };
    bool existed = false;
    SyncHandle handle;
    if (countsValid) {
        handle = mName.empty() ? make() : FindOrNameObject(mName, make, existed);
    }
    if (!std::dynamic_pointer_cast<CSyncSemaphore>(handle)) {
        SetLastError(countsValid ? kErrorInvalidHandle : kErrorInvalidParameter);
        VRX_ASSERT_NOT_REACHED("CSignalSemaphore::Not created");
        Trace("CSignalSemaphore::Not created %i\n", static_cast<int>(LastError()));
        return false;
    }
    SetLastError(existed ? kErrorAlreadyExists : 0);
    Attach(handle, true);
    mCreated = true;
    return true;
}

bool CSignalSemaphore::OpenSync() {
    if (HasHandle()) {
        return true;
    }
    Trace("CSignalSemaphore::OpenSync (0x%x) %S\n", CurrentThreadId(), mName.c_str());
    if (mName.empty()) {
        VRX_ASSERT_NOT_REACHED("CSignalSemaphore::IsOpenable unnamed semaphore cannot be opened");
        return false;
    }
    const SyncHandle found = FindNamedObject(mName);
    if (!std::dynamic_pointer_cast<CSyncSemaphore>(found)) {
        SetLastError(found ? kErrorInvalidHandle : kErrorFileNotFound);
        Trace("CSignalSemaphore::OpenSync could not open %i\n", static_cast<int>(LastError()));
        return false;
    }
    Attach(found, true);
    return true;
}

bool CSignalSemaphore::Release(int32_t count_I) {
    if (!OpenSync()) {
        return false;
    }
    uint32_t error = 0;
    const bool released =
        std::static_pointer_cast<CSyncSemaphore>(CWaitHandle::Handle())->Release(count_I, error);
    SetLastError(error);
    return released;
}

bool CSignalSemaphore::WaitFor(double seconds) {
    return OpenSync() && CWaitHandle::WaitFor(seconds);
}

std::string CSignalSemaphore::MsgWaitFor(double seconds) {
    return OpenSync() ? CWaitHandle::MsgWaitFor(seconds) : std::string();
}

SyncHandle CSignalSemaphore::Handle() {
    return OpenSync() ? CWaitHandle::Handle() : nullptr;
}

} // namespace WinUtils

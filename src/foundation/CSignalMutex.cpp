#include "foundation/CSignalMutex.h"

#include "foundation/ProcessInfo.h"
#include "foundation/Trace.h"

namespace WinUtils {

CSignalMutex::CSignalMutex(std::wstring name_I) : mName(std::move(name_I)) {}

CSignalMutex::~CSignalMutex() {
    if (HasHandle()) {
        Release();
    }
    mName.clear();
}

bool CSignalMutex::Create(bool initialOwner_I) {
    if (HasHandle()) {
        return true;
    }
    Trace("CSignalMutex::Create (0x%x) %S\n", CurrentThreadId(), mName.c_str());
    bool existed = false;
    SyncHandle handle;
    if (mName.empty()) {
        handle = std::make_shared<CSyncMutex>(initialOwner_I);
    } else {
        handle = FindOrNameObject(
            mName, [&] { return std::make_shared<CSyncMutex>(initialOwner_I); }, existed);
    }
    if (!std::dynamic_pointer_cast<CSyncMutex>(handle)) {
        SetLastError(kErrorInvalidHandle);
        VRX_ASSERT_NOT_REACHED("CSignalMutex::Not created");
        Trace("CSignalMutex::Not created %i\n", static_cast<int>(LastError()));
        return false;
    }
    SetLastError(existed ? kErrorAlreadyExists : 0);
    Attach(handle, true);
    mExisted = existed;
    mOwnedByMe = !existed;
    return true;
}

bool CSignalMutex::OpenSync() {
    if (HasHandle()) {
        return true;
    }
    Trace("CSignalMutex::OpenSync (0x%x) %S\n", CurrentThreadId(), mName.c_str());
    if (mName.empty()) {
        VRX_ASSERT_NOT_REACHED("CSignalMutex::IsOpenable unnamed event cannot be opened");
        return false;
    }
    const SyncHandle found = FindNamedObject(mName);
    if (!std::dynamic_pointer_cast<CSyncMutex>(found)) {
        SetLastError(found ? kErrorInvalidHandle : kErrorFileNotFound);
        Trace("CSignalMutex::OpenSync could not open %i\n", static_cast<int>(LastError()));
        return false;
    }
    Attach(found, true);
    mExisted = true;
    return true;
}

bool CSignalMutex::Release() {
    if (!OpenSync()) {
        return false;
    }
    uint32_t error = 0;
    const bool released =
        std::static_pointer_cast<CSyncMutex>(CWaitHandle::Handle())->Release(error);
    SetLastError(error);
    return released;
}

bool CSignalMutex::WaitFor(double seconds) {
    return OpenSync() && CWaitHandle::WaitFor(seconds);
}

std::string CSignalMutex::MsgWaitFor(double seconds) {
    return OpenSync() ? CWaitHandle::MsgWaitFor(seconds) : std::string();
}

SyncHandle CSignalMutex::Handle() {
    return OpenSync() ? CWaitHandle::Handle() : nullptr;
}

} // namespace WinUtils

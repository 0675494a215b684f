#include "foundation/CSignalEvent.h"

#include "foundation/ProcessInfo.h"
#include "foundation/Trace.h"

namespace WinUtils {

CSignalEvent::CSignalEvent(std::wstring name_I) : mName(std::move(name_I)) {}

CSignalEvent::~CSignalEvent() {
    mName.clear();
}

bool CSignalEvent::Create(bool manualReset_I, bool initialState_I) {
    if (HasHandle()) {
        return true;
    }
    Trace("CSignalEvent::Create (0x%x) \"%S\"\n", CurrentThreadId(), mName.c_str());
    const auto make = [&] { return std::make_shared<CSyncEvent>(manualReset_I, initialState_I); };
    SyncHandle handle;
    bool existed = false;
    if (mName.empty()) {
        handle = make();
    } else {
        handle = FindOrNameObject(mName, make, existed);
    }
    if (!std::dynamic_pointer_cast<CSyncEvent>(handle)) {
        SetLastError(kErrorInvalidHandle);
        VRX_ASSERT_NOT_REACHED("CSignalEvent::Not created");
        Trace("CSignalEvent::Not created %i\n", static_cast<int>(LastError()));
        return false;
    }
    SetLastError(existed ? kErrorAlreadyExists : 0);
    Attach(handle, true);
    mCreated = true;
    return true;
}

bool CSignalEvent::OpenSync() {
    if (HasHandle()) {
        return true;
    }
    Trace("CSignalEvent::OpenSync (0x%x) %S\n", CurrentThreadId(), mName.c_str());
    if (mName.empty()) {
        VRX_ASSERT_NOT_REACHED("CSignalEvent::IsOpenable unnamed event cannot be opened");
        return false;
    }
    const SyncHandle found = FindNamedObject(mName);
    if (!std::dynamic_pointer_cast<CSyncEvent>(found)) {
        SetLastError(found ? kErrorInvalidHandle : kErrorFileNotFound);
        Trace("CSignalEvent::OpenSync could not open %i\n", static_cast<int>(LastError()));
        return false;
    }
    Attach(found, true);
    return true;
}

std::shared_ptr<CSyncEvent> CSignalEvent::Event() {
    return OpenSync() ? std::static_pointer_cast<CSyncEvent>(CWaitHandle::Handle()) : nullptr;
}

bool CSignalEvent::Set() {
    const auto event = Event();
    if (event) {
        event->Set();
    }
    return event != nullptr;
}

bool CSignalEvent::Reset() {
    const auto event = Event();
    if (event) {
        event->Reset();
    }
    return event != nullptr;
}

bool CSignalEvent::WaitFor(double seconds) {
    return OpenSync() && CWaitHandle::WaitFor(seconds);
}

std::string CSignalEvent::MsgWaitFor(double seconds) {
    return OpenSync() ? CWaitHandle::MsgWaitFor(seconds) : std::string();
}

SyncHandle CSignalEvent::Handle() {
    return OpenSync() ? CWaitHandle::Handle() : nullptr;
}

} // namespace WinUtils

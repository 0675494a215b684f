#include "foundation/CWaitHandle.h"

#include "foundation/Trace.h"

namespace WinUtils {

namespace {
constexpr uint32_t kErrorIoPending = 997;
}

CWaitHandle::CWaitHandle(SyncHandle handle_I, bool bOwned_I) {
    VRX_ASSERT(handle_I);
    VRX_ASSERT(!bOwned_I || handle_I);
    Attach(std::move(handle_I), bOwned_I);
}

CWaitHandle::~CWaitHandle() {
    CWaitHandle::Close();
}

void CWaitHandle::Attach(SyncHandle handle_I, bool bOwned_I) {
    mHandle = std::move(handle_I);
    mOwned = bOwned_I && mHandle != nullptr;
}

bool CWaitHandle::WaitFor(double seconds) {
    if (!mHandle) {
        Trace("WinUtils::CWaitHandle::WaitFor FAILED; NULL mHandle\n");
        return false;
    }
    const uint32_t result = WaitForObjects({mHandle}, false, WaitMilliseconds(seconds));
    mLastError = result == kWaitFailed ? kErrorInvalidHandle : 0;
    if (mLastError != 0 && mLastError != kErrorIoPending) {
        Trace("WinUtils::CWaitHandle::WaitFor mLastError: %i, res: %i\n",
              static_cast<int>(mLastError), static_cast<int>(result));
    }
    return result == kWaitObject0;
}

std::string CWaitHandle::MsgWaitFor(double seconds) {
    if (!mHandle) {
        return {};
    }
    const uint32_t result = WaitForObjects({mHandle}, false, WaitMilliseconds(seconds));
    return result == kWaitObject0 ? "Event" : "Timeout";
}

SyncHandle CWaitHandle::Handle() {
    return mHandle;
}

void CWaitHandle::Close() {
    mHandle.reset();
    mOwned = false;
}

} // namespace WinUtils

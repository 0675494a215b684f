#include "foundation/CWaitMulti.h"

namespace WinUtils {

CWaitMulti::CWaitMulti() : mUse(CreateVrxSemaphore("CWaitMulti:use")) {}

void CWaitMulti::Add(std::shared_ptr<CWaitHandle> handle_I, const std::string& label_I) {
    CVrxSemaphoreHold hold(mUse);
    mList.emplace_back(std::move(handle_I), label_I);
}

void CWaitMulti::Refresh() {
    if (mBuiltFor == mList.size()) {
        return;
    }
    mHandles.clear();
    mLabels.clear();
    for (const auto& [handle, label] : mList) {
        SyncHandle native = handle ? handle->Handle() : nullptr;
        if (native) {
            mHandles.push_back(std::move(native));
            mLabels.push_back(label);
        }
    }
    mBuiltFor = mList.size();
}

std::string CWaitMulti::WaitFor(double seconds, bool waitAll_I) {
    CVrxSemaphoreHold hold(mUse);
    Refresh();
    if (mHandles.empty()) {
        return {};
    }
    const uint32_t result = WaitForObjects(mHandles, waitAll_I, WaitMilliseconds(seconds));
    if (result < mHandles.size()) {
        return mLabels[result];
    }
    return result == kWaitTimeout ? "Timeout" : "";
}

std::string CWaitMulti::MsgWaitFor(double seconds, bool waitAll_I) {
    return WaitFor(seconds, waitAll_I);
}

} // namespace WinUtils

#pragma once
// A mutex that can be waited for beside other handles, anonymous or named within the process.
// A successful wait takes it; the owner may take it again and releases it as often.

#include "foundation/CWaitHandle.h"

#include <string>

namespace WinUtils {

class CSignalMutex : public CWaitHandle {
public:
    explicit CSignalMutex(std::wstring name_I = std::wstring());
    // Releases one level of ownership first when the handle is there.
    ~CSignalMutex() override;

    // Makes the mutex, or joins the live one of the same name: then mExisted is true and the
    // initial ownership is not granted.
    bool Create(bool initialOwner_I);
    bool Release();

    bool WaitFor(double seconds) override;
    std::string MsgWaitFor(double seconds) override;
    SyncHandle Handle() override;

    bool OwnedByMe() const { return mOwnedByMe; }
    bool Existed() const { return mExisted; }

private:
    bool OpenSync();

    std::wstring mName;
    bool mOwnedByMe = false;
    bool mExisted = false;
};

} // namespace WinUtils

#pragma once
// An event, anonymous or named within the process. Waits, Set and Reset open a named event
// made elsewhere on first use.

#include "foundation/CWaitHandle.h"

#include <string>

namespace WinUtils {

class CSignalEvent : public CWaitHandle {
public:
    explicit CSignalEvent(std::wstring name_I = std::wstring());
    ~CSignalEvent() override;

    // Makes the event, or joins the live event of the same name (LastError 183); a name held
    // by another kind of object fails.
    bool Create(bool manualReset_I, bool initialState_I);
    bool Set();
    bool Reset();

    bool WaitFor(double seconds) override;
    std::string MsgWaitFor(double seconds) override;
    SyncHandle Handle() override;

    bool IsCreated() const { return mCreated; }

private:
    bool OpenSync();
    std::shared_ptr<CSyncEvent> Event();

    std::wstring mName;
    bool mCreated = false;
};

} // namespace WinUtils

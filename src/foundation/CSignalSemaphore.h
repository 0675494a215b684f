#pragma once
// A counting semaphore that can be waited for, anonymous or named within the process. A
// successful wait takes one count.

#include "foundation/CWaitHandle.h"

#include <cstdint>
#include <string>

namespace WinUtils {

class CSignalSemaphore : public CWaitHandle {
public:
    explicit CSignalSemaphore(std::wstring name_I = std::wstring());
    ~CSignalSemaphore() override;

    // Counts outside 0 <= initial <= maximum, maximum > 0 fail; a live name of the same kind
    // is joined (LastError 183).
    bool Create(int32_t initialCount_I, int32_t maximum_I);
    // Adds to the count; false (LastError 298) when that would pass the maximum.
    bool Release(int32_t count_I = 1);

    bool WaitFor(double seconds) override;
    std::string MsgWaitFor(double seconds) override;
    SyncHandle Handle() override;

    bool IsCreated() const { return mCreated; }

private:
    bool OpenSync();

    std::wstring mName;
    bool mCreated = false;
};

} // namespace WinUtils

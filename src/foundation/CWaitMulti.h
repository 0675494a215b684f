#pragma once
// A wait over several handles at once, answered by the label of the handle that fired.

#include "foundation/CVrxSemaphore.h"
#include "foundation/CWaitHandle.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace WinUtils {

class CWaitMulti {
public:
    CWaitMulti();

    void Add(std::shared_ptr<CWaitHandle> handle_I, const std::string& label_I);

    // The label of the first signalled handle (of the first handle with waitAll_I, once all
    // are signalled), "Timeout", or empty for an empty list or a failed wait. Handles that
    // can't be opened take no part.
    std::string WaitFor(double seconds, bool waitAll_I);
    // The same; no message queue stands behind it here, so "Message" never comes, and no
    // alertable wait either, so neither does "Alert".
    std::string MsgWaitFor(double seconds, bool waitAll_I);

private:
    // Rebuilds the flat arrays when the list's length has changed; under mUse.
    void Refresh();

    std::vector<std::pair<std::shared_ptr<CWaitHandle>, std::string>> mList;
    std::vector<SyncHandle> mHandles;
    std::vector<std::string> mLabels;
    size_t mBuiltFor = 0;
    std::shared_ptr<CVrxSemaphore> mUse;
};

} // namespace WinUtils

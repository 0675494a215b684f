#include "sim/CSimFaults.h"

#include <algorithm>

void CSimFaults::Arm(const SSimFault& fault_I) {
    std::lock_guard<std::mutex> lock(mLock);
    if (fault_I.times != 0) {
        mFaults.push_back(fault_I);
    }
}

void CSimFaults::Clear() {
    std::lock_guard<std::mutex> lock(mLock);
    mFaults.clear();
}

std::optional<int> CSimFaults::Take(ESimFault kind_I) {
    std::lock_guard<std::mutex> lock(mLock);
    std::optional<int> struck;
    for (SSimFault& fault : mFaults) {
        if (fault.kind != kind_I) {
            continue;
        }
        if (fault.skip > 0) {
            --fault.skip;
        } else if (!struck) {
            struck = fault.param;
            if (fault.times > 0) {
                --fault.times;
            }
        }
    }
    std::erase_if(mFaults, [](const SSimFault& fault) { return fault.times == 0; });
    return struck;
}

bool CSimFaults::Armed(ESimFault kind_I) const {
    std::lock_guard<std::mutex> lock(mLock);
    return std::any_of(mFaults.begin(), mFaults.end(),
                       [&](const SSimFault& fault) { return fault.kind == kind_I; });
}

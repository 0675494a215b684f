#include "sim/CSimFaults.h"

#include <algorithm>
#include <array>

namespace {

struct SFaultName {
    ESimFault kind;
    std::string_view name;
    bool takesParam;
};

constexpr std::array<SFaultName, 9> kFaultNames = {{
    {ESimFault::eNack, "nack", true},
    {ESimFault::eBadChecksum, "badchecksum", false},
    {ESimFault::eNullMessage, "null", false},
    {ESimFault::eShortReply, "short", true},
    {ESimFault::eNotReady, "notready", false},
    {ESimFault::eOtherCode, "othercode", false},
    {ESimFault::eSilence, "silence", false},
    {ESimFault::eLate, "late", true},
    {ESimFault::eUnplug, "unplug", false},
}};

const SFaultName* FindName(ESimFault kind_I) {
    for (const SFaultName& entry : kFaultNames) {
        if (entry.kind == kind_I) {
            return &entry;
        }
    }
    return nullptr;
}

} // namespace

std::string_view SimFaultName(ESimFault kind_I) {
    const SFaultName* entry = FindName(kind_I);
    return entry != nullptr ? entry->name : std::string_view("unknown");
}

std::optional<ESimFault> SimFaultFromName(std::string_view name_I) {
    for (const SFaultName& entry : kFaultNames) {
        if (entry.name == name_I) {
            return entry.kind;
        }
    }
    return std::nullopt;
}

bool SimFaultTakesParam(ESimFault kind_I) {
    const SFaultName* entry = FindName(kind_I);
    return entry != nullptr && entry->takesParam;
}

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
    ++mOccasions[static_cast<size_t>(kind_I)];
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

int CSimFaults::Occasions(ESimFault kind_I) const {
    std::lock_guard<std::mutex> lock(mLock);
    return mOccasions[static_cast<size_t>(kind_I)];
}

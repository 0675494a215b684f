#pragma once
// Faults armed on one simulated display. Each fault waits for `skip` occasions, then strikes on
// `times` occasions (a negative count: every time from then on). An occasion is what the fault
// acts on: a write transaction for eNack, a status poll or a read for eNotReady, a request for
// all others.

#include <array>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string_view>
#include <vector>

enum class ESimFault : uint8_t {
    eNack,        // the byte at index `param` of a write transaction is not acknowledged (0 is
                  // the address byte); the request is lost
    eBadChecksum, // the reply's check byte is wrong
    eNullMessage, // the null message comes instead of the data
    eShortReply,  // the reply is cut to `param` bytes
    eNotReady,    // the scaler says it is busy: 0x00 on the I2C bus, a not-ready HID status
    eOtherCode,   // a feature reply speaks of another code than the one asked
    eSilence,     // the request gets no reply at all
    eLate,        // the reply is ready `param` milliseconds after the request (time seam)
    eUnplug,      // the display vanishes, and stays away until it is plugged in again
};

// Names of the faults in descriptions: nack, badchecksum, null, short, notready, othercode,
// silence, late, unplug.
std::string_view SimFaultName(ESimFault kind_I);
std::optional<ESimFault> SimFaultFromName(std::string_view name_I);
// nack, short and late need their param; the others take none.
bool SimFaultTakesParam(ESimFault kind_I);

struct SSimFault {
    ESimFault kind = ESimFault::eSilence;
    int param = 0;
    int skip = 0;
    int times = 1;
};

class CSimFaults {
public:
    void Arm(const SSimFault& fault_I);
    void Clear();
    // Counts an occasion of this kind; gives the fault's param when a fault strikes.
    std::optional<int> Take(ESimFault kind_I);
    bool Armed(ESimFault kind_I) const;
    // Occasions of this kind counted so far, armed or not: what a skip counts.
    int Occasions(ESimFault kind_I) const;

private:
    mutable std::mutex mLock;
    std::vector<SSimFault> mFaults;
    std::array<int, static_cast<size_t>(ESimFault::eUnplug) + 1> mOccasions{};
};

#pragma once
// A display delegate on the shared fake connector set up as a scaler of one model family: the
// scaler offers the family's codes with their values and maxima, answers reads from them and
// takes writes into them. Each case changes, refuses or removes a few codes.

#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"
#include "support/CFakeConnector.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

// EDID numbers of one model of each family.
namespace Edid {
constexpr uint16_t Alder = 0x1040;
constexpr uint16_t Aspen = 0x1041;
constexpr uint16_t Birch = 0x1044;
constexpr uint16_t ElmSmall = 0x1054;
constexpr uint16_t ElmLarge = 0x1060;
constexpr uint16_t ElmHuge = 0x1057;
constexpr uint16_t FirSmall = 0x1064;
constexpr uint16_t FirSmallTwo = 0x1071;
constexpr uint16_t Hazel = 0x1070;
constexpr uint16_t CedarSmall = 0x1052;
constexpr uint16_t CedarSmallTwo = 0x1066;
// In no table of the delegate.
constexpr uint16_t Unknown = 0x1234;
} // namespace Edid

struct SFakeCode {
    uint8_t code;
    uint16_t value;
    // Only continuous codes have one; 0 elsewhere, as scalers send it.
    uint16_t maximum = 0;
    // Offered in the capability string, but every read of it is refused.
    bool refused = false;
    // Not offered at all.
    bool absent = false;
};

using Writes = std::vector<std::pair<uint8_t, uint16_t>>;

class CDelegateBench {
public:
    CDelegateBench(uint16_t edid_I, const std::vector<SFakeCode>& changes_I = {},
                   bool builtIn_I = false);

    // Reads every offered code once, as the dialogs do before they write.
    void ReadAll() { Read(false); }
    // Puts the scaler back in its first state and reads every code afresh; the delegate keeps
    // its own state, such as its colour setting.
    void ResetScaler() { Read(true); }
    // The Set VCP Feature requests in the order they reached the wire.
    Writes SentWrites() const;
    size_t Traffic() const { return mFake->Sent().size(); }
    void ClearTraffic() { mFake->ClearSent(); }

    CScopedVirtualClock mClock;
    std::shared_ptr<CFakeConnector> mFake;
    std::shared_ptr<UiDisplayDelegate> mDelegate;
    bool mInitialized = false;

private:
    void Read(bool refresh_I);

    std::vector<SFakeCode> mCodes;
};

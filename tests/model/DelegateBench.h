#pragma once
// A display delegate on the shared fake connector set up as a scaler of one model family: the
// scaler offers the family's codes with their values and maxima, answers reads from them and
// takes writes into them. Each case changes, refuses or removes a few codes.

#include "DisplayTestSupport.h"
#include "model/UiDisplayDelegate.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

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

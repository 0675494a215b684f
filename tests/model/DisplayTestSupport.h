#pragma once
// A display session on the shared fake connector under a virtual clock.

#include "ddc/Frames.h"
#include "foundation/VirtualClock.h"
#include "model/CDisplay.h"
#include "support/CFakeConnector.h"

#include <gtest/gtest.h>

#include <memory>

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

// The capability string of a display that offers a little of everything.
inline const char kTestCaps[] =
    "(prot(monitor)type(LCD)model(PDX-2700 )cmds(01 02 03 0C F3)vcp(04 08 10 12 14(05 08 0B) "
    "60(11 12) 76(01) 86(01 02) E0(00 01) F0(00 01 02) F3(00 01) F4(02 03) 74)mccs_ver(2.2))";

// A VCP Feature Reply as a scaler sends it, check byte included.
inline ByteVector FeatureReply(uint8_t code_I, uint8_t type_I, uint16_t maximum_I, uint16_t value_I,
                               uint8_t result_I = 0) {
    return BuildReplyFrame({0x02, result_I, code_I, type_I, static_cast<uint8_t>(maximum_I >> 8),
                            static_cast<uint8_t>(maximum_I), static_cast<uint8_t>(value_I >> 8),
                            static_cast<uint8_t>(value_I)});
}

class CDisplaySession {
public:
    explicit CDisplaySession(uint16_t edid_I = Edid::Birch, const char* caps_I = kTestCaps)
        : mFake(std::make_shared<CFakeConnector>()), mDisplay(mFake, edid_I) {
        mFake->SetCapabilities(caps_I);
        mInitialized = mDisplay.Initialize("");
        mFake->ClearSent();
    }

    CScopedVirtualClock mClock;
    std::shared_ptr<CFakeConnector> mFake;
    CDisplay mDisplay;
    bool mInitialized = false;
};

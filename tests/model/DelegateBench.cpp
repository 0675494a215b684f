#include "DelegateBench.h"

#include "ddc/VcpCodes.h"

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <string>

namespace {

// Codes as "code=value" or "code=value/maximum" in hexadecimal and decimal, in a plain state:
// 6500K, no calibrator preset, every switch off.
const std::string kTriggersAndGains = "04=0 08=0 EA=0 16=200/255 18=200/255 1A=200/255 ";
const std::string kLevels = kTriggersAndGains + "10=60/100 12=50/100 87=5/10 CC=2 ";
const std::string kSixAxisAndOffset = kLevels + "9B=50/100 9D=50/100 9F=50/100 59=50/100 "
                                                "5B=50/100 5D=50/100 E4=128/255 E5=128/255 "
                                                "E6=128/255 ";
// Gamma in tenths, display preset 5 and the Elm's switches.
const std::string kElm = kSixAxisAndOffset + "14=5 72=22/30 E0=0 E2=1 E8=0 E9=0 EE=0 F0=5 ";

const struct {
    std::vector<uint16_t> edids;
    std::string codes;
} kFamilies[] = {
    {{Edid::Birch}, kSixAxisAndOffset + "14=5 72=1 E0=0 E2=1 E3=1 E8=0 E9=0 F0=7"},
    {{Edid::ElmSmall, Edid::ElmHuge}, kElm},
    // The larger Elm adds its fan.
    {{Edid::ElmLarge}, kElm + "F3=1"},
    {{Edid::FirSmall}, kTriggersAndGains + "12=50/100 13=60/100 14=5 E2=1 EF=2"},
    {{Edid::FirSmallTwo, Edid::Hazel}, kTriggersAndGains + "12=50/100 6B=60/100 14=5 DA=0 EF=2"},
    {{Edid::CedarSmall}, kLevels + "14=5 72=2 86=8 E3=7"},
    {{Edid::CedarSmallTwo}, kLevels + "14=5 72=2 86=8 E0=0 F0=7 F4=2"},
    {{Edid::Aspen, Edid::Alder}, kLevels + "14=5 86=8"},
    {{}, kSixAxisAndOffset + "14=5 72=1 E0=0 E2=1 E3=1 F0=7 F3=1 F4=2"},
};

std::vector<SFakeCode> FamilyCodes(uint16_t edid_I) {
    const auto* family = std::begin(kFamilies);
    while (!family->edids.empty() && std::ranges::count(family->edids, edid_I) == 0) {
        ++family;
    }
    std::vector<SFakeCode> codes;
    std::istringstream words(family->codes);
    std::string word;
    while (words >> word) {
        unsigned code = 0, value = 0, maximum = 0;
        std::sscanf(word.c_str(), "%x=%u/%u", &code, &value, &maximum);
        codes.push_back({static_cast<uint8_t>(code), static_cast<uint16_t>(value),
                         static_cast<uint16_t>(maximum)});
    }
    return codes;
}

} // namespace

CDelegateBench::CDelegateBench(uint16_t edid_I, const std::vector<SFakeCode>& changes_I,
                               bool builtIn_I)
    : mFake(std::make_shared<CFakeConnector>()), mCodes(FamilyCodes(edid_I)) {
    for (const SFakeCode& change : changes_I) {
        std::erase_if(mCodes,
                      [&change](const SFakeCode& code_I) { return code_I.code == change.code; });
        if (!change.absent) {
            mCodes.push_back(change);
        }
    }
    std::ranges::sort(mCodes, {}, &SFakeCode::code);
    std::string vcp;
    for (const SFakeCode& code : mCodes) {
        char hex[4];
        std::snprintf(hex, sizeof(hex), "%02X ", code.code);
        vcp += hex;
        if (!code.refused) {
            mFake->SetVcp(code.code, code.value, code.maximum);
        }
    }
    mFake->SetCapabilities("(prot(monitor)type(LCD)model(TEST)cmds(01 02 03 0C F3)vcp(" + vcp +
                           ")mccs_ver(2.2))");
    mDelegate = std::make_shared<UiDisplayDelegate>(edid_I, mFake, builtIn_I);
    mInitialized = mDelegate->Initialize("");
    mFake->ClearSent();
}

void CDelegateBench::Read(bool refresh_I) {
    for (const SFakeCode& code : mCodes) {
        if (refresh_I && !code.refused) {
            mFake->SetVcp(code.code, code.value, code.maximum);
        }
        mDelegate->GetVCPValue(static_cast<vcpCode>(code.code), refresh_I);
    }
    mFake->ClearSent();
}

Writes CDelegateBench::SentWrites() const {
    Writes writes;
    for (const SSentRequest& sent : mFake->Sent()) {
        if (sent.frame.size() >= 8 && sent.frame[3] == ddcCC_SetVCPFeatureRequest) {
            writes.emplace_back(sent.frame[4],
                                static_cast<uint16_t>((sent.frame[5] << 8) | sent.frame[6]));
        }
    }
    return writes;
}

#include "DelegateBench.h"

#include "ddc/Frames.h"
#include "ddc/VcpCodes.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

// Write-only triggers that every family offers.
const std::vector<SFakeCode> kTriggers{{0x04, 0}, {0x08, 0}, {0xEA, 0}};

const std::vector<SFakeCode> kLevels{{0x10, 60, 100}, {0x12, 50, 100}, {0x87, 5, 10}, {0xCC, 2}};

const std::vector<SFakeCode> kGains{{0x16, 200, 255}, {0x18, 200, 255}, {0x1A, 200, 255}};

const std::vector<SFakeCode> kSixAxisAndOffset{
    {0x9B, 50, 100}, {0x9D, 50, 100},  {0x9F, 50, 100},  {0x59, 50, 100}, {0x5B, 50, 100},
    {0x5D, 50, 100}, {0xE4, 128, 255}, {0xE5, 128, 255}, {0xE6, 128, 255}};

// Gamma in tenths, display preset 5 and the Elm's switches.
const std::vector<SFakeCode> kElmSettings{{0x14, 5}, {0x72, 22, 30}, {0xE0, 0}, {0xE2, 1},
                                          {0xE8, 0}, {0xE9, 0},      {0xEE, 0}, {0xF0, 5}};

std::vector<SFakeCode> Join(std::initializer_list<std::vector<SFakeCode>> parts_I) {
    std::vector<SFakeCode> all;
    for (const std::vector<SFakeCode>& part : parts_I) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

// The codes a scaler of each family offers, in a plain state: 6500K, no calibrator preset,
// every switch off.
std::vector<SFakeCode> FamilyCodes(uint16_t edid_I) {
    switch (edid_I) {
    case Edid::Birch:
        return Join({kTriggers,
                     kLevels,
                     kGains,
                     kSixAxisAndOffset,
                     {{0x14, 5},
                      {0x72, 1},
                      {0xE0, 0},
                      {0xE2, 1},
                      {0xE3, 1},
                      {0xE8, 0},
                      {0xE9, 0},
                      {0xF0, 7}}});
    case Edid::ElmSmall:
    case Edid::ElmHuge:
        return Join({kTriggers, kLevels, kGains, kSixAxisAndOffset, kElmSettings});
    case Edid::ElmLarge:
        // The larger Elm adds its fan.
        return Join({kTriggers, kLevels, kGains, kSixAxisAndOffset, kElmSettings, {{0xF3, 1}}});
    case Edid::FirSmall:
        return Join({kTriggers,
                     kGains,
                     {{0x12, 50, 100}, {0x13, 60, 100}, {0x14, 5}, {0xE2, 1}, {0xEF, 2}}});
    case Edid::FirSmallTwo:
    case Edid::Hazel:
        return Join({kTriggers,
                     kGains,
                     {{0x12, 50, 100}, {0x6B, 60, 100}, {0x14, 5}, {0xDA, 0}, {0xEF, 2}}});
    case Edid::CedarSmall:
        return Join({kTriggers, kLevels, kGains, {{0x14, 5}, {0x72, 2}, {0x86, 8}, {0xE3, 7}}});
    case Edid::CedarSmallTwo:
        return Join({kTriggers,
                     kLevels,
                     kGains,
                     {{0x14, 5}, {0x72, 2}, {0x86, 8}, {0xE0, 0}, {0xF0, 7}, {0xF4, 2}}});
    case Edid::Aspen:
    case Edid::Alder:
        return Join({kTriggers, kLevels, kGains, {{0x14, 5}, {0x86, 8}}});
    default:
        return Join({kTriggers,
                     kLevels,
                     kGains,
                     kSixAxisAndOffset,
                     {{0x14, 5},
                      {0x72, 1},
                      {0xE0, 0},
                      {0xE2, 1},
                      {0xE3, 1},
                      {0xF0, 7},
                      {0xF3, 1},
                      {0xF4, 2}}});
    }
}

bool IsSetVCPFeature(const ByteVector& frame_I) {
    return frame_I.size() >= 8 && frame_I[3] == ddcCC_SetVCPFeatureRequest;
}

} // namespace

ByteVector CDelegateConnector::SendRequest(const ByteVector& toSend_I, double delay,
                                           unsigned expectedSize_I, int retries) {
    if (IsSetVCPFeature(toSend_I) && mFailingWrites.count(toSend_I[4]) != 0) {
        return {};
    }
    return CFakeConnector::SendRequest(toSend_I, delay, expectedSize_I, retries);
}

CDelegateBench::CDelegateBench(uint16_t edid_I, const std::vector<SFakeCode>& changes_I,
                               bool builtIn_I)
    : mFake(std::make_shared<CDelegateConnector>()) {
    std::vector<SFakeCode> codes = FamilyCodes(edid_I);
    for (const SFakeCode& change : changes_I) {
        const auto same = [&change](const SFakeCode& code_I) { return code_I.code == change.code; };
        std::erase_if(codes, same);
        if (!change.absent) {
            codes.push_back(change);
        }
    }
    std::sort(codes.begin(), codes.end(),
              [](const SFakeCode& a_I, const SFakeCode& b_I) { return a_I.code < b_I.code; });
    std::string vcp;
    for (const SFakeCode& code : codes) {
        char hex[4];
        std::snprintf(hex, sizeof(hex), "%02X ", code.code);
        vcp += hex;
        if (!code.refused) {
            mFake->SetVcp(code.code, code.value, code.maximum);
        }
    }
    mCodes = codes;
    mFake->SetCapabilities("(prot(monitor)type(LCD)model(TEST)cmds(01 02 03 0C F3)vcp(" + vcp +
                           ")mccs_ver(2.2))");
    mDelegate = std::make_shared<UiDisplayDelegate>(edid_I, mFake, builtIn_I);
    mInitialized = mDelegate->Initialize("");
    mFake->ClearSent();
}

void CDelegateBench::ReadAll() {
    for (const SFakeCode& code : mCodes) {
        mDelegate->GetVCPValue(static_cast<vcpCode>(code.code), false);
    }
    mFake->ClearSent();
}

void CDelegateBench::ResetScaler() {
    for (const SFakeCode& code : mCodes) {
        if (!code.refused) {
            mFake->SetVcp(code.code, code.value, code.maximum);
        }
        mDelegate->GetVCPValue(static_cast<vcpCode>(code.code), true);
    }
    mFake->ClearSent();
}

Writes CDelegateBench::SentWrites() const {
    Writes writes;
    for (const SSentRequest& sent : mFake->Sent()) {
        if (IsSetVCPFeature(sent.frame)) {
            writes.emplace_back(sent.frame[4],
                                static_cast<uint16_t>((sent.frame[5] << 8) | sent.frame[6]));
        }
    }
    return writes;
}

uint16_t CDelegateBench::Value(uint8_t code_I) const {
    const std::optional<SFakeVcpEntry> entry = mFake->Vcp(code_I);
    return entry ? entry->current : 0;
}

// Building and initialising a display object on a proven channel.

#include "discovery/CDisplayConfigInterface.h"
#include "discovery/CFactsConnector.h"
#include "foundation/ScopeTimer.h"
#include "foundation/StringUtilities.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/ModelTable.h"
#include "model/UiDisplayDelegate.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kInitializeAttempts = 3;
// A channel other than the video cable gets this long after each failed attempt.
constexpr uint32_t kRetryWaitMs = 1000;

// The OSD language value of each language row that the display's menu knows.
constexpr std::array<std::pair<ELanguage, int32_t>, 15> kOsdLanguages{{
    {0, 2},
    {1, 13},
    {2, 1},
    {3, 38},
    {4, 3},
    {5, 4},
    {6, 6},
    {7, 7},
    {8, 5},
    {9, 10},
    {10, 8},
    {12, 20},
    {13, 9},
    {15, 30},
    {19, 2},
}};

} // namespace

std::shared_ptr<UiDisplayDelegate>
CDisplayConfigInterface::CreateDisplay(uint16_t edidNumber_I, const std::wstring& monitorName_I,
                                       const std::wstring& modelNumber_I,
                                       std::shared_ptr<Connector> connector_I) {
    CScopeTimer timer("CWinDisplayConfigInterface::CreateDisplay");
    if (gTraceEnabled) {
        Trace("Matched display %S\n", monitorName_I.c_str());
    }
    VRX_ASSERT(connector_I != nullptr);
    if (connector_I == nullptr) {
        return {};
    }
    const bool builtIn =
        IsInChannelGroup(EChannelGroup::eBuiltIn, edidNumber_I) && mPlatform->IsMakerSystem();
    const bool videoChannel = connector_I->ConnectorType() == eConnectorType_DisplayPort;
    SDisplayFacts identity;
    identity.channel = connector_I->ConnectorType();
    identity.edidNumber = edidNumber_I;
    if (mFactsStore != nullptr) {
        identity.serialNumber = connector_I->SerialNumber(kNoTabletId);
    }
    // Without a serial number two displays of a model would share their facts.
    const bool keepsFacts = mFactsStore != nullptr && !identity.serialNumber.empty();
    const std::optional<SDisplayFacts> facts =
        keepsFacts ? TrustedFacts(identity, *connector_I) : std::nullopt;
    auto display = std::make_shared<UiDisplayDelegate>(
        edidNumber_I, facts ? std::make_shared<CFactsConnector>(connector_I, *facts) : connector_I,
        builtIn);

    bool initialized = facts && display->Initialize("");
    const bool fromFacts = initialized;
    if (facts && !initialized) {
        // Facts the session refuses are read again in full, on the bare channel.
        display = std::make_shared<UiDisplayDelegate>(edidNumber_I, connector_I, builtIn);
    }
    for (int attempt = 0; attempt < kInitializeAttempts && !initialized; ++attempt) {
        initialized = display->Initialize("");
        if (!initialized) {
            if (videoChannel) {
                return {};
            }
            SleepMs(kRetryWaitMs);
        }
    }
    if (!initialized) {
        return {};
    }
    if (keepsFacts && !fromFacts) {
        KeepFacts(*display, *connector_I, identity);
    }
    display->SetModelNumber(ToNarrow(modelNumber_I));
    if (mSetOsdLanguage && (display->IsBirchFamily() || display->IsElmFamily())) {
        SetLanguage(*display);
    }
    return display;
}

std::optional<SDisplayFacts> CDisplayConfigInterface::TrustedFacts(const SDisplayFacts& identity_I,
                                                                   Connector& connector_I) {
    if (mRefreshFacts) {
        return std::nullopt;
    }
    if (mConfirmedFacts && mConfirmedFacts->first == &connector_I &&
        mConfirmedFacts->second.SameDisplay(identity_I)) {
        return mConfirmedFacts->second;
    }
    const std::optional<SDisplayFacts> kept = KeptFacts(identity_I);
    // The one exchange a start spends to trust them: other firmware may announce otherwise.
    if (kept && connector_I.FWVersion() == kept->firmware) {
        return kept;
    }
    if (gTraceEnabled) {
        Trace("CreateDisplay: no kept facts hold for %s\n", DisplayFactsName(identity_I).c_str());
    }
    return std::nullopt;
}

std::optional<SDisplayFacts> CDisplayConfigInterface::KeptFacts(const SDisplayFacts& identity_I) {
    const std::optional<std::string> text = mFactsStore->Load(DisplayFactsName(identity_I));
    std::optional<SDisplayFacts> kept = text ? ParseDisplayFacts(*text) : std::nullopt;
    return kept && kept->SameDisplay(identity_I) ? kept : std::nullopt;
}

void CDisplayConfigInterface::TakeKeptEdid(const SDisplayInfo& info_I, Connector& connector_I) {
    // With two bridges a display of the same model and firmware could pass for the other.
    const auto bridges =
        std::count_if(mConnectorList.begin(), mConnectorList.end(), [](const auto& channel) {
            return channel->ConnectorType() == eConnectorType_FTDI;
        });
    if (mFactsStore == nullptr || mRefreshFacts || bridges != 1 ||
        connector_I.ConnectorType() != eConnectorType_FTDI || !connector_I.KnownEDID().empty()) {
        return;
    }
    SDisplayFacts identity;
    identity.channel = eConnectorType_FTDI;
    identity.serialNumber = ToNarrow(info_I.serialNumber);
    identity.edidNumber = info_I.edidNumber;
    const std::optional<SDisplayFacts> kept = KeptFacts(identity);
    if (kept && !kept->channelEdid.empty() && connector_I.FWVersion() == kept->firmware) {
        connector_I.TakeKnownEDID(kept->channelEdid);
        mConfirmedFacts.emplace(&connector_I, *kept);
    }
}

void CDisplayConfigInterface::KeepFacts(const UiDisplayDelegate& display_I,
                                        const Connector& channel_I,
                                        const SDisplayFacts& identity_I) {
    SDisplayFacts facts = identity_I;
    facts.firmware = display_I.GetFWVersion();
    facts.monitorName = display_I.GetMonitorName();
    facts.capabilities = display_I.GetCapabilitiesString();
    // Only the FTDI bridge reads its serial number from an EDID that costs seconds to read.
    if (identity_I.channel == eConnectorType_FTDI) {
        facts.channelEdid = channel_I.KnownEDID();
    }
    mFactsStore->Save(DisplayFactsName(facts), FormatDisplayFacts(facts));
}

void CDisplayConfigInterface::SetLanguage(UiDisplayDelegate& display_I) const {
    const SVCPResult res = display_I.GetVCPValue(vcpC_OSDLanguage, false);
    VRX_ASSERT(res.valid);
    int32_t value = res.value;
    const ELanguage row = mLanguage.mLanguage.language;
    const auto mapped = std::find_if(kOsdLanguages.begin(), kOsdLanguages.end(),
                                     [row](const auto& entry) { return entry.first == row; });
    if (mapped != kOsdLanguages.end()) {
        value = mapped->second;
    } else {
        VRX_ASSERT_NOT_REACHED("CWinDisplayConfigInterface::SetLanguage - Unknown language\n");
    }
    if (!display_I.SetVCPValue(vcpC_OSDLanguage, value) && gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::SetLanguage error: set language on monitor\n");
    }
}

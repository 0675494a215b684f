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
        KeepFacts(*display, identity);
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
    const std::string name = DisplayFactsName(identity_I);
    const std::optional<std::string> text = mFactsStore->Load(name);
    const std::optional<SDisplayFacts> kept = text ? ParseDisplayFacts(*text) : std::nullopt;
    // The one exchange a start spends to trust them: other firmware may announce otherwise.
    if (kept && kept->SameDisplay(identity_I) && connector_I.FWVersion() == kept->firmware) {
        return kept;
    }
    if (gTraceEnabled) {
        Trace("CreateDisplay: no kept facts hold for %s\n", name.c_str());
    }
    return std::nullopt;
}

void CDisplayConfigInterface::KeepFacts(const UiDisplayDelegate& display_I,
                                        const SDisplayFacts& identity_I) {
    SDisplayFacts facts = identity_I;
    facts.firmware = display_I.GetFWVersion();
    facts.monitorName = display_I.GetMonitorName();
    facts.capabilities = display_I.GetCapabilitiesString();
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

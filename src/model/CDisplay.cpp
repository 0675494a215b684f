#include "model/CDisplay.h"

#include "foundation/ScopeTimer.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/CEdidBuilder.h"
#include "model/VCPOptionCodeWithEnumerationT.h"

#include <cstdio>
#include <sstream>

namespace {

const char kInitialize[] = "CDisplay::Initialize";

// Pause before the second try of a failed write.
constexpr uint32_t kWriteRetryPauseMs = 60;
// Pause before the second try of a failed read while reverting; the Cedar scalers need longer.
constexpr uint32_t kReadRetryPauseMs = 60;
constexpr uint32_t kCedarReadRetryPauseMs = 1000;

// The firmware of these models announces wrong value lists, fixed up after parsing.
const char kCedarColorPresets[] = "04 05 08 0B";
const char kElmLargeDisplayPresets[] = "00 05 06 07 08 09 0A 0B 0C 0D";

// The MCCS version assumed for models whose firmware omits it.
const char kDefaultMCCSVersion[] = "2.2";

std::string Trimmed(const std::string& text_I) {
    const char* blanks = " \t\n\v\f\r";
    const size_t first = text_I.find_first_not_of(blanks);
    if (first == std::string::npos) {
        return std::string();
    }
    return text_I.substr(first, text_I.find_last_not_of(blanks) - first + 1);
}

// The option errors of an exchange in words a user can act on; any other is an answer that
// does not fit.
struct SFailureReason {
    const char* error;
    const char* why;
};
constexpr SFailureReason kFailureReasons[] = {
    {"Send request failed", "the display did not answer"},
    {"Device not open", "the display's control channel is closed"},
    {"Send request no data", "the display answered without data"},
    {"vcp code error", "the display refused the request"},
    {"Table codes not supported", "the feature is a table, which this program does not exchange"},
};
constexpr char kUnfitAnswer[] = "the display's answer did not fit the request";

std::string FailureReason(const std::string& error_I) {
    for (const SFailureReason& reason : kFailureReasons) {
        if (error_I == reason.error) {
            return reason.why;
        }
    }
    return kUnfitAnswer;
}

bool IsMissing(const CapabilitiesMap& map_I, const char* key_I) {
    const auto found = map_I.find(key_I);
    return found == map_I.end() || found->second.empty();
}

} // namespace

CDisplay::CDisplay(std::shared_ptr<Connector> connector_I, uint16_t edidNumber_I)
    : mConnector(std::move(connector_I)), mEDIDNumber(edidNumber_I) {}

CDisplay::~CDisplay() {
    Reset();
}

void CDisplay::InitializeCodeInfo() {
    VRX_ASSERT(mEDIDNumber != 0);
    if (mCodeInfo.empty()) {
        mCodeInfo = BuildVCPCodeInfoTable(IsElmFamily());
    }
}

bool CDisplay::Initialize(const std::string& capabilities_I) {
    CScopeTimer timer(kInitialize);
    const bool tracing = gTraceEnabled;

    mMonitorName.clear();
    mVCPOptionsMap.clear();
    InitializeCodeInfo();

    std::string caps = capabilities_I;
    if (caps.empty()) {
        VRX_ASSERT(mConnector);
        if (mConnector) {
            if (mMonitorName.empty()) {
                CScopeTimer nameTimer("CDisplay::Initialize MonitorName");
                mMonitorName = mConnector->MonitorName();
            }
            {
                CScopeTimer capsTimer("CDisplay::Initialize CapabilitiesString");
                caps = mConnector->CapabilitiesString();
            }
            if (caps.empty()) {
                NoteFailure("reading the capabilities",
                            "the display did not answer with a capability string");
                return false;
            }
            mFWVersion = mConnector->FWVersion();
        }
    }
    Trace("caps: %s\n", caps.c_str());
    mCapabilitiesString = caps;

    auto fail = [this, tracing](const char* format_I) {
        if (tracing) {
            Trace(format_I, kInitialize);
        }
        NoteFailure("reading the capabilities", "the capability string is incomplete");
        return false;
    };

    mCapabilitiesMap = ParseCapabilitiesString(caps);
    if (mCapabilitiesMap.empty()) {
        return fail("%s : ParseCapabilitiesString failed\n");
    }
    mProtocol.clear();
    if (IsMissing(mCapabilitiesMap, "prot")) {
        return fail("%s : prot missing\n");
    }
    mProtocol = mCapabilitiesMap["prot"];
    mType.clear();
    if (IsMissing(mCapabilitiesMap, "type")) {
        return fail("%s : type missing\n");
    }
    mType = mCapabilitiesMap["type"];
    if (IsMissing(mCapabilitiesMap, "model")) {
        return fail("%s : model missing\n");
    }
    if (mMonitorName.empty()) {
        mMonitorName = Trimmed(mCapabilitiesMap["model"]);
    }

    mMCCSVersion = FileVersion();
    if (IsMissing(mCapabilitiesMap, "mccs_ver")) {
        if (!mConnector || !IsElmFamily()) {
            return fail("%s : mccs_ver missing\n");
        }
        mCapabilitiesMap["mccs_ver"] = kDefaultMCCSVersion;
    }
    FileVersion version(mCapabilitiesMap["mccs_ver"]);
    version.Normalize();
    mMCCSVersion = version;
    VRX_ASSERT(mMCCSVersion.IsValid());

    if (IsMissing(mCapabilitiesMap, "vcp")) {
        return fail("%s : vcp missing\n");
    }
    std::string& vcpText = mCapabilitiesMap["vcp"];
    if (mConnector && IsCedarGenTwo()) {
        WidenBatteryModeOptions(vcpText);
    }
    mVCPOptionsMap = CreateVCPCodeMap(vcpText, mCodeInfo, IsElmFamily());
    if (mVCPOptionsMap.empty()) {
        return fail("%s : CreateVCPCodeMap failed\n");
    }
    if (mConnector) {
        RepairOptionsForModel();
    }

    if (IsMissing(mCapabilitiesMap, "cmds")) {
        return fail("%s : cmds missing\n");
    }
    mCommandsVector = CreateCommandsVector(mCapabilitiesMap["cmds"]);
    if (mCommandsVector.empty()) {
        return fail("%s : CreateCommandsVector failed\n");
    }
    return true;
}

void CDisplay::RepairOptionsForModel() {
    if (IsCedarFamily()) {
        mVCPOptionsMap[vcpC_SelectColorPreset] =
            std::make_shared<VCPOptionCodeWithEnumerationT<colorPresetCode>>(
                vcpC_SelectColorPreset, mCodeInfo.at(vcpC_SelectColorPreset), kCedarColorPresets);
    }
    if (IsElmLargeFamily()) {
        // The colour-preset class only changes what Dump prints for these values.
        mVCPOptionsMap[vcpC_DisplayPresets] =
            std::make_shared<VCPOptionCodeWithEnumerationT<colorPresetCode>>(
                vcpC_DisplayPresets, mCodeInfo.at(vcpC_DisplayPresets), kElmLargeDisplayPresets);
    }
    if (IsElmHuge()) {
        mVCPOptionsMap.erase(vcpC_FanSpeed);
    }
}

void CDisplay::Reset() {
    if (gTraceEnabled) {
        Trace("Resetting Display data\n");
    }
    mVCPOptionsMap.clear();
    mCapabilitiesMap.clear();
    if (mConnector) {
        mConnector->Close();
        mConnector.reset();
    }
}

SVCPResult CDisplay::GetVCPValue(vcpCode vcpCode_I, bool refresh_I) {
    const auto found = mVCPOptionsMap.find(vcpCode_I);
    if (found == mVCPOptionsMap.end()) {
        return {};
    }
    const std::shared_ptr<VCPOptionBase> option = found->second;
    VRX_ASSERT(option->GetCode() != vcpC_Undefined);
    if (!option->IsOriginalSet() || refresh_I) {
        ReadVCPValue_(option);
    }
    if (option->HasError()) {
        // Callers learn that the value is not valid; the cause stays in the last failure.
        NoteOptionFailure("reading", *option);
        option->ClearError();
        return {};
    }
    const SVCPRange range = option->GetRange();
    return {true, option->GetValue(), range.minimum, range.maximum};
}

void CDisplay::RetryFailedWrite(const std::shared_ptr<VCPOptionBase>& option_I) {
    if (option_I->HasError()) {
        SleepMs(kWriteRetryPauseMs);
        option_I->ClearError();
        WriteVCPValue_(option_I);
    }
}

bool CDisplay::SetVCPValue(vcpCode vcpCode_I, int32_t value_I) {
    if (gTraceEnabled) {
        Trace("SetVCPValue: vcp: 0x%X, val: 0x%X\n", static_cast<unsigned>(vcpCode_I),
              static_cast<unsigned>(value_I));
    }
    VRX_ASSERT(mVCPOptionsMap.count(vcpCode_I));
    const auto found = mVCPOptionsMap.find(vcpCode_I);
    if (found == mVCPOptionsMap.end()) {
        return false;
    }
    const std::shared_ptr<VCPOptionBase> option = found->second;
    VRX_ASSERT(option->GetCode() != vcpC_Undefined);
    VRX_ASSERT(!option->HasError());

    const int32_t previous = option->GetValue();
    if (option->IsOriginalSet() && !option->IsCurrentValue(value_I) && option->SetValue(value_I)) {
        WriteVCPValue_(option);
        RetryFailedWrite(option);
        if (option->HasError()) {
            // The display may or may not have taken the value: the session keeps claiming the
            // one it last knew, so that the same value asked again goes to the wire.
            NoteOptionFailure("writing", *option);
            const std::string error = option->GetError();
            option->SetValue(previous);
            option->SetError(error);
        } else {
            // Picks up what the display made of the value; a failed read after a good write is
            // no failure.
            ReadVCPValue_(option);
            if (gTraceEnabled && option->HasError()) {
                Trace("SetVCPValue read failed %s\n", option->GetError().c_str());
            }
            option->ClearError();
        }
    }
    if (!option->HasError()) {
        return true;
    }
    if (gTraceEnabled) {
        Trace("SetVCPValue write failed %s\n", option->GetError().c_str());
    }
    option->ClearError();
    return false;
}

bool CDisplay::SetVCPValueVerify(vcpCode vcpCode_I, int32_t value_I, int32_t retries_I) {
    if (gTraceEnabled) {
        Trace("SetVCPValueVerify writing value: 0x%X\n", static_cast<unsigned>(value_I));
    }
    bool verified = false;
    for (int32_t attempt = 0; attempt <= retries_I && !verified; ++attempt) {
        verified = false;
        if (SetVCPValue(vcpCode_I, value_I)) {
            const int32_t readBack = GetVCPValue(vcpCode_I, false).value & 0xFFFF;
            if (gTraceEnabled) {
                Trace("SetVCPValueVerify read value: 0x%X\n", static_cast<unsigned>(readBack));
            }
            verified = readBack == value_I;
        }
    }
    return verified;
}

bool CDisplay::RevertVCPValue(vcpCode vcpCode_I) {
    VRX_ASSERT(mVCPOptionsMap.count(vcpCode_I));
    const auto found = mVCPOptionsMap.find(vcpCode_I);
    if (found == mVCPOptionsMap.end()) {
        return true;
    }
    const std::shared_ptr<VCPOptionBase> option = found->second;
    VRX_ASSERT(option->GetCode() != vcpC_Undefined);
    if (!option->IsOriginalSet() || !option->IsModified()) {
        return true;
    }
    option->Revert();
    WriteVCPValue_(option);
    RetryFailedWrite(option);
    VRX_ASSERT(!option->HasError());
    // A write whose acknowledgement was lost still counts when the read finds the value back.
    const bool written = !option->HasError();
    const std::string writeError = option->GetError();
    option->ClearError();
    ReadVCPValue_(option);
    if (option->HasError()) {
        SleepMs(IsCedarFamily() ? kCedarReadRetryPauseMs : kReadRetryPauseMs);
        option->ClearError();
        ReadVCPValue_(option);
    }
    VRX_ASSERT(!option->HasError());
    if (option->HasError()) {
        NoteOptionFailure("reading back", *option);
        option->ClearError();
        return false;
    }
    if (!written && option->IsModified()) {
        option->SetError(writeError);
        NoteOptionFailure("writing back", *option);
        option->ClearError();
        return false;
    }
    return true;
}

bool CDisplay::SaveSettings() {
    for (const auto& opt : mVCPOptionsMap) {
        VRX_ASSERT(opt.second);
        if (opt.second && opt.second->IsModified()) {
            opt.second->Commit();
        }
    }
    // The commit in memory stands even when the scaler's own save fails.
    if (mConnector && !mConnector->SaveSettingsToScalar()) {
        NoteFailure("saving the settings", "the display did not acknowledge the save");
        return false;
    }
    return true;
}

bool CDisplay::RevertSettings() {
    bool reverted = true;
    for (const auto& opt : mVCPOptionsMap) {
        VRX_ASSERT(opt.second);
        if (!opt.second || !opt.second->IsModified()) {
            continue;
        }
        opt.second->Revert();
        WriteVCPValue_(opt.second);
        VRX_ASSERT(!opt.second->HasError());
        RetryFailedWrite(opt.second);
        if (opt.second->HasError()) {
            NoteOptionFailure("writing back", *opt.second);
            reverted = false;
        }
        opt.second->ClearError();
        ReadVCPValue_(opt.second);
        opt.second->ClearError();
    }
    return reverted;
}

void CDisplay::ResetOptions(bool includePresets_I) {
    for (const auto& opt : mVCPOptionsMap) {
        VRX_ASSERT(opt.second);
        if (opt.second && (includePresets_I || opt.first != vcpC_DisplayPresets)) {
            opt.second->Forget();
        }
    }
}

void CDisplay::ForgetVCPValue(vcpCode vcpCode_I) {
    if (vcpCode_I == vcpC_DisplayPresets) {
        return;
    }
    const auto found = mVCPOptionsMap.find(vcpCode_I);
    if (found != mVCPOptionsMap.end() && found->second) {
        found->second->Forget();
    }
}

bool CDisplay::IsAnyOptionModified() const {
    for (const auto& opt : mVCPOptionsMap) {
        VRX_ASSERT(opt.second);
        if (opt.second && opt.second->IsModified()) {
            return true;
        }
    }
    return false;
}

std::string CDisplay::GetLastErrorText() const {
    return mMonitorName;
}

void CDisplay::NoteFailure(const std::string& what_I, const std::string& why_I) {
    mLastFailure = {what_I, why_I};
    Trace("%s failed: %s\n", what_I.c_str(), why_I.c_str());
}

void CDisplay::NoteOptionFailure(const char* action_I, const VCPOptionBase& option_I) {
    char code[8];
    std::snprintf(code, sizeof code, "0x%02X", static_cast<unsigned>(option_I.GetCode()));
    NoteFailure(std::string(action_I) + " VCP code " + code, FailureReason(option_I.GetError()));
}

std::string CDisplay::DumpState() const {
    std::ostringstream out;
    for (const auto& [key, value] : mCapabilitiesMap) {
        out << "Key " << key << " value " << value << "\n";
    }
    if (gTraceEnabled) {
        out << "VCP Codes Supported\n";
        for (const auto& [code, option] : mVCPOptionsMap) {
            out << "Key " << VCPCodeToString(code) << " (" << std::hex << static_cast<int>(code)
                << std::dec << ")\n";
            out << "Value: " << (option ? option->Dump() : std::string()) << "\n";
        }
    }
    return out.str();
}

bool CDisplay::IsOneOf(std::initializer_list<uint32_t> tabletIds_I) const {
    for (const uint32_t tabletId : tabletIds_I) {
        if (CEdidBuilder::IsEdidOfTablet(tabletId, mEDIDNumber)) {
            return true;
        }
    }
    return false;
}

const SModelRow& CDisplay::Model() const {
    return ModelOfEdid(mEDIDNumber);
}

bool CDisplay::IsIn(ModelGroups groups_I) const {
    return (Model().group & groups_I) != 0;
}

bool CDisplay::IsCedarGenOne() const {
    return IsIn(eModelGroup_CedarOne);
}

bool CDisplay::IsCedarGenTwo() const {
    return IsIn(eModelGroup_CedarTwo);
}

bool CDisplay::IsCedarFamily() const {
    return IsIn(kCedarFamilyGroups);
}

bool CDisplay::IsElmLargeFamily() const {
    return IsIn(eModelGroup_ElmLarge);
}

bool CDisplay::IsElmHuge() const {
    return IsOneOf({TabletId::ElmHuge});
}

bool CDisplay::IsElmFamily() const {
    return IsIn(kElmFamilyGroups);
}

bool CDisplay::IsBirchFamily() const {
    return IsIn(eModelGroup_Birch);
}

bool CDisplay::IsAlderFamily() const {
    return IsIn(eModelGroup_Alder);
}

bool CDisplay::IsFirFamily() const {
    return IsIn(eModelGroup_Fir);
}

bool CDisplay::IsFirTwoFamily() const {
    return IsIn(eModelGroup_FirTwo);
}

bool CDisplay::IsHazelOrFirTwo() const {
    return IsIn(eModelGroup_Hazel | eModelGroup_FirTwo);
}

#include "model/UiDisplayDelegate.h"

#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/CEdidBuilder.h"
#include "model/DelegateTables.h"

using namespace DelegateTables;

namespace {

// Values of 0xF4: the scaler's spelling of the two battery modes.
constexpr int32_t kBatteryMobile = 2;
constexpr int32_t kBatteryDesktop = 3;

} // namespace

UiDisplayDelegate::UiDisplayDelegate(uint16_t edidNumber_I, std::shared_ptr<Connector> connector_I,
                                     bool builtIn_I)
    : CDisplay(std::move(connector_I), edidNumber_I), mBuiltIn(builtIn_I) {
    mRawColorScale = !HasPercentColorScale();
}

bool UiDisplayDelegate::SaveSettings() {
    mSavedColorSetting = mColorSetting;
    return CDisplay::SaveSettings();
}

bool UiDisplayDelegate::RevertSettings() {
    const bool reverted = CDisplay::RevertSettings();
    GetCustomRGBColorMod(false);
    mColorSetting = mSavedColorSetting;
    return reverted;
}

void UiDisplayDelegate::ResetOptions(bool includePresets_I) {
    CDisplay::ResetOptions(includePresets_I);
    mSavedColorSetting = eColorSetting_Space;
    mColorSetting = eColorSetting_Space;
}

bool UiDisplayDelegate::IsAspen() const {
    return IsOneOf({TabletId::Aspen});
}

bool UiDisplayDelegate::IsAspenTwo() const {
    return IsOneOf({TabletId::AspenTwo});
}

bool UiDisplayDelegate::IsHazel() const {
    return IsOneOf({TabletId::Hazel});
}

EModelGroup UiDisplayDelegate::ModelGroup() const {
    return Model().group;
}

bool UiDisplayDelegate::HasPercentColorScale() const {
    return Model().colorScale == EColorScale::ePercent;
}

SUserValue<int32_t> UiDisplayDelegate::Read(vcpCode code_I, bool refresh_I) {
    const SVCPResult result = GetVCPValue(code_I, refresh_I);
    if (!result.valid) {
        return {};
    }
    return {true, static_cast<int32_t>(result.value & 0xFFFF)};
}

bool UiDisplayDelegate::Reads(vcpCode code_I, int32_t value_I) {
    const SUserValue<int32_t> result = Read(code_I);
    return result.valid && result.value == value_I;
}

bool UiDisplayDelegate::IsOn(vcpCode code_I) {
    const SUserValue<int32_t> result = Read(code_I);
    return result.valid && result.value != 0;
}

SUserValue<bool> UiDisplayDelegate::ReadOnOff(vcpCode code_I) {
    const SUserValue<int32_t> result = Read(code_I);
    return {result.valid, result.valid && result.value != 0};
}

bool UiDisplayDelegate::IsOffered(vcpCode code_I) const {
    return GetOptions().count(code_I) != 0;
}

vcpCode UiDisplayDelegate::BrightnessCode() const {
    return Model().brightness;
}

bool UiDisplayDelegate::RefreshesLevels() const {
    return Model().levels == ELevels::eRefreshed;
}

SVCPResult UiDisplayDelegate::GetBrightness() {
    return GetVCPValue(BrightnessCode(), RefreshesLevels());
}

bool UiDisplayDelegate::SetBrightness(int32_t value_I) {
    return SetVCPValue(BrightnessCode(), value_I);
}

SVCPResult UiDisplayDelegate::GetContrast() {
    return GetVCPValue(vcpC_Contrast, RefreshesLevels());
}

bool UiDisplayDelegate::SetContrast(int32_t value_I) {
    return SetVCPValue(vcpC_Contrast, value_I);
}

SVCPResult UiDisplayDelegate::GetSharpness() {
    return GetVCPValue(vcpC_Sharpness, false);
}

bool UiDisplayDelegate::SetSharpness(int32_t value_I) {
    return SetVCPValue(vcpC_Sharpness, value_I);
}

SUserValue<bool> UiDisplayDelegate::GetUniformity() {
    return ReadOnOff(vcpC_UniformityCompensation);
}

bool UiDisplayDelegate::SetUniformity(bool on_I) {
    return SetVCPValue(vcpC_UniformityCompensation, on_I ? 1 : 0);
}

SUserValue<bool> UiDisplayDelegate::GetEnergySmart() {
    return ReadOnOff(vcpC_EnergySmart);
}

bool UiDisplayDelegate::SetEnergySmart(bool on_I) {
    return SetVCPValue(vcpC_EnergySmart, on_I ? 1 : 0);
}

SUserValue<bool> UiDisplayDelegate::GetDynamicContrast() {
    return ReadOnOff(vcpC_DynamicContrast);
}

bool UiDisplayDelegate::SetDynamicContrast(bool on_I) {
    // On the ElmLarge family dynamic contrast and uniformity compensation exclude each other.
    if (on_I && IsElmLargeFamily()) {
        SetVCPValue(vcpC_UniformityCompensation, 0);
    }
    return SetVCPValue(vcpC_DynamicContrast, on_I ? 1 : 0);
}

SUserValue<bool> UiDisplayDelegate::GetAutoPowerDown() {
    return ReadOnOff(vcpC_AutoPowerDown);
}

bool UiDisplayDelegate::SetAutoPowerDown(bool on_I) {
    return SetVCPValue(vcpC_AutoPowerDown, on_I ? 1 : 0);
}

SUserValue<EFanSpeed> UiDisplayDelegate::GetFanSpeed() {
    const SUserValue<int32_t> result = Read(vcpC_FanSpeed);
    if (result.valid && (result.value == eFanSpeed_LowSpeed || result.value == eFanSpeed_Auto)) {
        return {true, static_cast<EFanSpeed>(result.value)};
    }
    return {false, eFanSpeed_Auto};
}

bool UiDisplayDelegate::SetFanSpeed(EFanSpeed fanSpeed_I) {
    VRX_ASSERT(fanSpeed_I >= EFanSpeed::eFanSpeed_LowSpeed &&
               fanSpeed_I <= EFanSpeed::eFanSpeed_Auto);
    if (fanSpeed_I != eFanSpeed_LowSpeed && fanSpeed_I != eFanSpeed_Auto) {
        return false;
    }
    return SetVCPValue(vcpC_FanSpeed, fanSpeed_I);
}

SUserValue<ledBrightnessCode> UiDisplayDelegate::GetPowerLedBrightness() {
    const SUserValue<int32_t> result = Read(vcpC_LedBrightness);
    if (result.valid && result.value >= ledBrightness_Off && result.value <= ledBrightness_High) {
        return {true, static_cast<ledBrightnessCode>(result.value)};
    }
    return {false, ledBrightness_Low};
}

bool UiDisplayDelegate::SetPowerLedBrightness(ledBrightnessCode value_I) {
    if (IsHazel()) {
        return false;
    }
    return SetVCPValue(vcpC_LedBrightness, value_I);
}

SVCPResult UiDisplayDelegate::GetOSDLanguage() {
    return GetVCPValue(vcpC_OSDLanguage, false);
}

bool UiDisplayDelegate::SetOSDLanguage(int32_t value_I) {
    return SetVCPValue(vcpC_OSDLanguage, value_I);
}

bool UiDisplayDelegate::StartConditioning() {
    return SetVCPValue(vcpC_LCDConditioning, 1);
}

void UiDisplayDelegate::ForgetConditioning() {
    ForgetVCPValue(vcpC_LCDConditioning);
}

SUserValue<EBatteryMode> UiDisplayDelegate::GetBatteryMode() {
    const SUserValue<int32_t> result = Read(vcpC_BatteryMode);
    if (!result.valid) {
        return {false, eBatteryMode_Mobile};
    }
    if (gTraceEnabled) {
        Trace("GetBatteryMode: 0x%X\n", result.value);
    }
    if (result.value == kBatteryMobile) {
        return {true, eBatteryMode_Mobile};
    }
    if (result.value == kBatteryDesktop) {
        return {true, eBatteryMode_Desktop};
    }
    // Some firmware reports a value that is no mode (0 among them); such a display is put in
    // Mobile.
    Trace("UiDisplayDelegate::GetBatteryMode: WARNING - detected bogus battery mode value: 0x%X\n",
          result.value);
    if (Read(vcpC_BatteryMode, true).valid && SetVCPValue(vcpC_BatteryMode, kBatteryMobile)) {
        Trace("UiDisplayDelegate::GetBatteryMode: WARNING - setting default EBatteryMode: 0x%X\n",
              eBatteryMode_Mobile);
        return {true, eBatteryMode_Mobile};
    }
    return {false, eBatteryMode_Mobile};
}

bool UiDisplayDelegate::SetBatteryMode(EBatteryMode mode_I) {
    if (!Read(vcpC_BatteryMode).valid) {
        return false;
    }
    switch (mode_I) {
    case eBatteryMode_Mobile:
        return SetVCPValue(vcpC_BatteryMode, kBatteryMobile);
    case eBatteryMode_Desktop:
        return SetVCPValue(vcpC_BatteryMode, kBatteryDesktop);
    }
    return false;
}

bool UiDisplayDelegate::FactoryReset() {
    if (!SetVCPValue(vcpC_RestoreFactoryDefaults, 1)) {
        return false;
    }
    if (Model().factoryResetSettleMs != 0) {
        SleepMs(Model().factoryResetSettleMs);
    }
    ResetOptions(true);
    return true;
}

bool UiDisplayDelegate::SetResetColor() {
    if (!GetVCPValue(vcpC_RestoreFactoryColorDefaults, true).valid) {
        Trace("UiDisplayDelegate::SetResetColor - not supported\n");
        return false;
    }
    const bool result = SetVCPValue(vcpC_RestoreFactoryColorDefaults, 1);
    // The colours have moved whether or not the scaler acknowledged.
    ResetOptions(true);
    if (!result) {
        VRX_ASSERT_NOT_REACHED("FAILED vcpC_RestoreFactoryColorDefaults - should have worked!");
    }
    return result;
}

vcpCode UiDisplayDelegate::RestoreAspectRatioCode() const {
    const vcpCode code = AspectRatioCode(ModelGroup());
    return code != vcpC_Undefined ? code : vcpC_AspectRatio;
}

bool UiDisplayDelegate::Restore(vcpCode code_I, bool fromStored_I, int32_t stored_I) {
    return fromStored_I ? SetVCPValue(code_I, stored_I) : RevertVCPValue(code_I);
}

bool UiDisplayDelegate::RestoreAspectRatio(bool fromStored_I) {
    return Restore(RestoreAspectRatioCode(), fromStored_I, mRestoreAspectRatio);
}

bool UiDisplayDelegate::RestoreBatteryMode(bool fromStored_I) {
    if (!IsOffered(vcpC_BatteryMode)) {
        return true;
    }
    if (!fromStored_I && !Read(vcpC_BatteryMode).valid) {
        return false;
    }
    return Restore(vcpC_BatteryMode, fromStored_I, mRestoreBatteryMode);
}

bool UiDisplayDelegate::RestoreSharpness(bool fromStored_I) {
    return Restore(vcpC_Sharpness, fromStored_I, mRestoreSharpness);
}

bool UiDisplayDelegate::RestoreUniformity(bool fromStored_I) {
    return Restore(vcpC_UniformityCompensation, fromStored_I, mRestoreUniformity);
}

bool UiDisplayDelegate::RestoreDynamicContrast(bool fromStored_I) {
    return Restore(vcpC_DynamicContrast, fromStored_I, mRestoreDynamicContrast);
}

bool UiDisplayDelegate::RestoreEnergySmart(bool fromStored_I) {
    return Restore(vcpC_EnergySmart, fromStored_I, mRestoreEnergySmart);
}

bool UiDisplayDelegate::RestorePowerLedBrightness(bool fromStored_I) {
    if (!IsFirFamily() && !IsFirTwoFamily()) {
        return false;
    }
    return Restore(vcpC_LedBrightness, fromStored_I, mRestoreLedBrightness);
}

bool UiDisplayDelegate::IsTooDark(int32_t brightness_I, int32_t contrast_I) {
    switch (Model().tooDark) {
    case ETooDark::eBothBelow20:
        return brightness_I < 20 && contrast_I < 20;
    case ETooDark::eNever:
        return false;
    case ETooDark::eCustomColorOnly:
        if (mColorSetting != eColorSetting_Custom) {
            return false;
        }
        break;
    case ETooDark::eWeightedSum:
        break;
    }
    return static_cast<int64_t>(brightness_I) + 9 * static_cast<int64_t>(contrast_I) < 200;
}

bool UiDisplayDelegate::IsColorTooDark(const SCustomColor& color_I, bool percent_I, bool other_I) {
    if (percent_I) {
        return color_I.red < 20 && color_I.green < 20 && color_I.blue < 20;
    }
    if (other_I) {
        return color_I.black >= 0.6;
    }
    return false;
}

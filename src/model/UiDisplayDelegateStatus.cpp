// Whether each dialog control is shown and usable on this display, in its present state.

#include "model/DelegateTables.h"
#include "model/UiDisplayDelegate.h"

using namespace DelegateTables;

namespace {

// Firmware versions reach the user in this text style.
constexpr int kFirmwareTextStyle = 2;

SControlState Shown(bool enabled_I) {
    return enabled_I ? SControlState::Usable() : SControlState::Disabled();
}

} // namespace

SControlState UiDisplayDelegate::BrightnessStatus() {
    if (mBuiltIn) {
        // A display built into the maker's computer leaves brightness to the computer.
        return SControlState::Disabled();
    }
    if ((IsHazel() || IsFirTwoFamily()) && Read(vcpC_BacklightLevelWhite).valid) {
        return SControlState::Usable();
    }
    if (!IsFirFamily() && !Read(vcpC_Luminance).valid) {
        return SControlState::Hidden();
    }
    if (IsColorManaged() ||
        (IsElmFamily() && (IsOn(vcpC_DynamicContrast) || IsOn(vcpC_EnergySmart)))) {
        return SControlState::Disabled();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::ContrastStatus() {
    if (IsColorManaged()) {
        return SControlState::Disabled();
    }
    if (!Read(vcpC_Contrast).valid) {
        return SControlState::Hidden();
    }
    if (IsBirchFamily() && IsOn(vcpC_UniformityCompensation)) {
        return SControlState::Disabled();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::ColorSettingStatus() {
    return Shown(!IsColorManaged());
}

SControlState UiDisplayDelegate::ColorTemperatureStatus() {
    if (mColorSetting != eColorSetting_Temperature) {
        return SControlState::Hidden();
    }
    return Shown(!IsColorManaged());
}

SControlState UiDisplayDelegate::ColorSpaceStatus() {
    if (mColorSetting != eColorSetting_Space || IsFirFamily() || IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::CustomColorStatus() {
    if (mColorSetting != eColorSetting_Custom) {
        return SControlState::Hidden();
    }
    return Shown(!IsColorManaged());
}

SControlState UiDisplayDelegate::ResetColorStatus() {
    if (IsFirFamily() || IsFirTwoFamily() || IsHazel() || IsCedarFamily() ||
        !Read(vcpC_RestoreFactoryColorDefaults).valid) {
        return SControlState::Hidden();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::GammaStatus() {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsFirFamily() || IsFirTwoFamily() ||
        IsHazel() || !Read(vcpC_Gamma).valid) {
        return SControlState::Hidden();
    }
    if (IsColorManaged()) {
        return SControlState::Disabled();
    }
    if (IsBirchFamily() && !Reads(vcpC_DisplayPresets, 7)) {
        return SControlState::Disabled();
    }
    if (IsElmLargeFamily()) {
        return Shown(mColorSetting != eColorSetting_Space);
    }
    if (IsElmFamily() && !GetColorSpace().valid) {
        return SControlState::Disabled();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::SaveStatus() {
    return Shown(IsAnyOptionModified() || mColorSetting != mSavedColorSetting);
}

SControlState UiDisplayDelegate::RevertStatus() {
    return SaveStatus();
}

SControlState UiDisplayDelegate::AspectRatioStatus(bool store_I) {
    const vcpCode code = AspectRatioCode(ModelGroup());
    if (code == vcpC_Undefined) {
        return SControlState::Hidden();
    }
    const SUserValue<int32_t> value = Read(code);
    if (!value.valid) {
        return SControlState::Hidden();
    }
    if (IsColorManaged()) {
        return SControlState::Disabled();
    }
    if (store_I) {
        mRestoreAspectRatio = value.value;
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::SharpnessStatus(bool store_I) {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsCedarFamily() || IsFirFamily() ||
        IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    if (IsColorManaged()) {
        return SControlState::Disabled();
    }
    const SUserValue<int32_t> value = Read(vcpC_Sharpness);
    if (!value.valid) {
        return SControlState::Hidden();
    }
    if (store_I) {
        mRestoreSharpness = value.value;
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::UniformityStatus(bool store_I) {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsCedarGenOne() || IsFirFamily() ||
        IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    const SUserValue<int32_t> value = Read(vcpC_UniformityCompensation);
    if (!value.valid) {
        return SControlState::Hidden();
    }
    if (store_I) {
        mRestoreUniformity = value.value;
    }
    if (IsColorManaged() || IsOn(vcpC_EnergySmart) || IsOn(vcpC_DynamicContrast)) {
        return SControlState::Disabled();
    }
    if (IsBirchFamily()) {
        const bool temperatureMode = Reads(vcpC_DisplayPresets, 7);
        if ((temperatureMode && Reads(vcpC_ColorSpace, 4)) ||
            (!temperatureMode && !Reads(vcpC_DisplayPresets, 1))) {
            return SControlState::Disabled();
        }
    }
    if (IsElmFamily() && !IsElmLargeFamily() && Reads(vcpC_DisplayPresets, 0)) {
        return SControlState::Disabled();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::EnergySmartStatus(bool store_I) {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsCedarFamily() || IsFirFamily() ||
        IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    const SUserValue<int32_t> value = Read(vcpC_EnergySmart);
    if (!value.valid) {
        return SControlState::Hidden();
    }
    if (store_I) {
        mRestoreEnergySmart = value.value;
    }
    if (IsColorManaged() || (IsBirchFamily() && IsOn(vcpC_UniformityCompensation)) ||
        IsOn(vcpC_DynamicContrast)) {
        return SControlState::Disabled();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::DynamicContrastStatus(bool store_I) {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsCedarFamily() || IsFirFamily() ||
        IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    const SUserValue<int32_t> value = Read(vcpC_DynamicContrast);
    if (!value.valid) {
        return SControlState::Hidden();
    }
    if (store_I) {
        mRestoreDynamicContrast = value.value;
    }
    if ((IsBirchFamily() && IsOn(vcpC_UniformityCompensation)) || IsOn(vcpC_EnergySmart)) {
        return SControlState::Disabled();
    }
    const SUserValue<int32_t> preset = Read(vcpC_DisplayPresets);
    const auto presetIs = [&preset](int32_t value_I) {
        return preset.valid && preset.value == value_I;
    };
    if (IsBirchFamily() && !presetIs(3) && !presetIs(4)) {
        return SControlState::Disabled();
    }
    if (IsElmLargeFamily() && (presetIs(11) || presetIs(12))) {
        return SControlState::Disabled();
    }
    if (IsElmFamily() && !IsElmLargeFamily() && !presetIs(2) && !presetIs(3) && !presetIs(13)) {
        return SControlState::Disabled();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::PowerLedStatus(bool store_I) {
    if (!IsFirFamily() && !IsFirTwoFamily()) {
        return SControlState::Hidden();
    }
    const SUserValue<int32_t> value = Read(vcpC_LedBrightness);
    if (store_I && value.valid) {
        mRestoreLedBrightness = value.value;
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::FanSpeedStatus() {
    if (!IsElmLargeFamily() || !Read(vcpC_FanSpeed).valid) {
        return SControlState::Hidden();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::AutoPowerDownStatus() {
    if (!IsElmFamily() || !Read(vcpC_AutoPowerDown).valid) {
        return SControlState::Hidden();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::BatteryModeStatus(bool store_I) {
    const SUserValue<int32_t> value = Read(vcpC_BatteryMode);
    if (!value.valid) {
        return SControlState::Hidden();
    }
    if (store_I) {
        mRestoreBatteryMode = value.value;
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::ConditioningStatus() {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsCedarFamily() || IsElmLargeFamily() ||
        IsElmHuge() || IsFirFamily() || IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    return Shown(!IsColorManaged());
}

SControlState UiDisplayDelegate::CustomAttributeStatus() {
    if (IsAspen() || IsAspenTwo() || IsAlderFamily() || IsCedarFamily() || IsFirFamily() ||
        IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    return Shown(!IsColorManaged());
}

SControlState UiDisplayDelegate::CustomColorSlotStatus(EColorMod slot_I) {
    SControlState state = CustomColorStatus();
    if (slot_I != eColorMod_Gain) {
        const SControlState attribute = CustomAttributeStatus();
        state.visible = state.visible && attribute.visible;
        state.enabled = state.enabled && attribute.enabled;
    }
    return state;
}

SControlState UiDisplayDelegate::CmykHexStatus() {
    if (IsFirFamily() || IsFirTwoFamily() || IsHazel()) {
        return SControlState::Hidden();
    }
    ColorMaximum();
    if (!mRawColorScale && !IsElmLargeFamily()) {
        return SControlState::Hidden();
    }
    return SControlState::Usable();
}

SControlState UiDisplayDelegate::FirmwareVersionStatus() {
    if (mFWVersion.IsValid() && !mFWVersion.AsString(kFirmwareTextStyle).empty()) {
        return SControlState::Usable();
    }
    return SControlState::Hidden();
}

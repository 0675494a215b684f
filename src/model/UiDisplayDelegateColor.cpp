// Colour setting, temperature, space, gamma and aspect ratio: one user choice, spelled in each
// family's codes.

#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/DelegateTables.h"
#include "model/UiDisplayDelegate.h"

using namespace DelegateTables;

namespace {

// The 0x14 preset that the default steps select: 6500K on every family.
constexpr int32_t kDefaultPreset = 5;
// Birch's 0xF0 values: colour temperature mode and custom colour mode.
constexpr int32_t kBirchPresetTemperature = 7;
constexpr int32_t kBirchPresetCustom = 9;
constexpr int32_t kBirchPresetStandard = 1;
// The 0x14 user colour, which stands for the custom colour setting on Fir, Aspen and Cedar.
constexpr int32_t kUserColorPreset = 11;
// The Cedar family's native colour space value, under which the custom colour runs.
constexpr int32_t kCedarNative = 7;
// The Elm family's native and custom colour presets of 0xF0.
constexpr int32_t kElmPresetNative = 0;
constexpr int32_t kElmPresetCustom = 13;
// Outside the ElmLarge family, DCI P3 also needs this 0x14 value.
constexpr int32_t kElmPresetDCIP3Temperature = 12;
// Hazel and the FirTwo family answer the scan mode only after they have settled.
constexpr uint32_t kScanModeSettleMs = 500;

struct SCedarGain {
    int red;
    int green;
    int blue;
    EColorSetting setting;
    // What to select as well: a temperature, or the default preset step with this preset.
    int temperature;
    int preset;
};

constexpr int kNone = -1;

// Gains that the Cedar GenTwo scaler loads with its native presets, and what they mean.
// clang-format off
constexpr SCedarGain kCedarGains[] = {
    // red  green  blue   setting                     temperature               preset
    {128,   128,   128,   eColorSetting_Space,        kNone,                    kNone},
    {128,   98,    96,    eColorSetting_Temperature,  eColorTemperature_5000K,  kNone},
    {128,   103,   116,   eColorSetting_Temperature,  kNone,                    5},
    {118,   99,    128,   eColorSetting_Temperature,  kNone,                    8},
};
// clang-format on

} // namespace

bool UiDisplayDelegate::ApplyDefaultPreset(int32_t preset_I) {
    if (IsBirchFamily() || IsElmFamily() || IsFirFamily() || IsFirTwoFamily() || IsHazel() ||
        IsAspen() || IsAspenTwo() || IsAlderFamily()) {
        return SetVCPValue(vcpC_SelectColorPreset, preset_I);
    }
    if (IsCedarFamily()) {
        // The Cedar scaler moves its colour space and gains with the preset, so they are read
        // again; the write's own answer does not count.
        SetVCPValue(vcpC_SelectColorPreset, preset_I);
        GetVCPValue(vcpC_ColorSpace, true);
        if (!IsCedarGenTwo()) {
            GetCustomRGBColorMod(eColorMod_Gain, true);
        }
        return true;
    }
    return false;
}

bool UiDisplayDelegate::IsColorManaged() {
    const std::optional<SColorManagedRule> rule = ColorManagedRule(ModelGroup());
    if (!rule) {
        return false;
    }
    const SUserValue<int32_t> result = Read(rule->code);
    return result.valid && (result.value == rule->first || result.value == rule->second);
}

SUserValue<EColorTemperature> UiDisplayDelegate::GetColorTemperature() {
    constexpr SUserValue<EColorTemperature> kNotValid{false, eColorTemperature_6500K};
    const EModelGroup group = ModelGroup();
    if (!HasColorTemperature(group)) {
        return kNotValid;
    }
    const SUserValue<int32_t> preset = Read(vcpC_SelectColorPreset);
    if (!preset.valid) {
        return kNotValid;
    }
    const std::optional<EColorTemperature> temperature = TemperatureFromPreset(group, preset.value);
    if (!temperature) {
        return kNotValid;
    }
    return {true, *temperature};
}

bool UiDisplayDelegate::SetColorTemperature(EColorTemperature temperature_I) {
    const std::optional<int32_t> preset = PresetFromTemperature(ModelGroup(), temperature_I);
    if (!preset) {
        return false;
    }
    // Every model of the table selects a temperature the way it selects its default preset.
    return ApplyDefaultPreset(*preset);
}

SUserValue<EColorSpace> UiDisplayDelegate::GetColorSpace() {
    constexpr SUserValue<EColorSpace> kNotValid{false, eColorSpace_AdobeRGB};
    if (IsBirchFamily()) {
        for (const EColorSpace calibrated :
             {eColorSpace_ColorManager1, eColorSpace_ColorManager2}) {
            if (Reads(vcpC_DisplayPresets, *BirchPresetFromSpace(calibrated))) {
                return {true, calibrated};
            }
        }
        const SUserValue<int32_t> space = Read(vcpC_ColorSpace);
        if (space.valid && space.value >= eColorSpace_AdobeRGB && space.value <= eColorSpace_DCI) {
            return {true, static_cast<EColorSpace>(space.value)};
        }
        return kNotValid;
    }
    if (IsElmFamily()) {
        const SUserValue<int32_t> preset = Read(vcpC_DisplayPresets);
        if (!preset.valid) {
            return kNotValid;
        }
        if (preset.value == kElmPresetNative) {
            return IsElmLargeFamily() ? SUserValue<EColorSpace>{true, eColorSpace_AdobeRGB}
                                      : kNotValid;
        }
        const std::optional<EColorSpace> space = ElmSpaceFromPreset(preset.value);
        return space ? SUserValue<EColorSpace>{true, *space} : kNotValid;
    }
    if (IsCedarFamily()) {
        const SUserValue<int32_t> value =
            Read(IsCedarGenOne() ? vcpC_ColorSpace : vcpC_DisplayPresets);
        if (!value.valid) {
            return kNotValid;
        }
        const std::optional<EColorSpace> space = CedarSpaceFromValue(value.value);
        return space ? SUserValue<EColorSpace>{true, *space} : kNotValid;
    }
    return kNotValid;
}

bool UiDisplayDelegate::SetColorSpace(EColorSpace space_I) {
    if (IsBirchFamily()) {
        return SetBirchColorSpace(space_I);
    }
    if (IsElmFamily()) {
        return SetElmColorSpace(space_I);
    }
    if (IsCedarFamily()) {
        return SetCedarColorSpace(space_I);
    }
    return false;
}

bool UiDisplayDelegate::SetBirchColorSpace(EColorSpace space_I) {
    // A calibrator preset has to be left before the colour space applies.
    const std::optional<int32_t> calibratorPreset = BirchPresetFromSpace(space_I);
    if (!calibratorPreset && IsColorManaged()) {
        SetVCPValue(vcpC_DisplayPresets, kBirchPresetTemperature);
    }
    if (space_I >= eColorSpace_AdobeRGB && space_I <= eColorSpace_DCI) {
        if (!ApplyDefaultPreset(kDefaultPreset)) {
            return false;
        }
        return SetVCPValue(vcpC_ColorSpace, space_I);
    }
    if (calibratorPreset) {
        return SetVCPValue(vcpC_DisplayPresets, *calibratorPreset);
    }
    return false;
}

bool UiDisplayDelegate::SetElmColorSpace(EColorSpace space_I) {
    bool result = false;
    const std::optional<int32_t> preset = ElmPresetFromSpace(space_I);
    if (preset) {
        const bool large = IsElmLargeFamily();
        if (space_I != eColorSpace_AdobeRGB || large || ApplyDefaultPreset(kDefaultPreset)) {
            result = SetVCPValue(vcpC_DisplayPresets, *preset);
            if (space_I == eColorSpace_DCIP3 && !large) {
                result = SetVCPValue(vcpC_SelectColorPreset, kElmPresetDCIP3Temperature);
            }
        }
    }
    // The display's gamma follows the preset.
    GetVCPValue(vcpC_Gamma, true);
    return result;
}

bool UiDisplayDelegate::SetCedarColorSpace(EColorSpace space_I) {
    const std::optional<int32_t> value = CedarValueFromSpace(space_I);
    if (!value) {
        return false;
    }
    if (space_I == eColorSpace_AdobeRGB || space_I == eColorSpace_sRGB ||
        space_I == eColorSpace_Rec709) {
        ApplyDefaultPreset(kDefaultPreset);
    }
    if (IsCedarGenOne()) {
        SetVCPValue(vcpC_ColorSpace, *value);
        GetCustomRGBColorMod(eColorMod_Gain, true);
        return true;
    }
    SetVCPValue(vcpC_DisplayPresets, *value);
    if (*value == kCedarNative) {
        // Native also carries the custom colour; it starts from neutral gains.
        StoreWorkingColor(SCustomColor::FromRGB(128, 128, 128));
        ApplyWorkingColor();
    }
    return true;
}

SUserValue<EColorSetting> UiDisplayDelegate::GetColorSetting() {
    if (IsBirchFamily()) {
        return GetBirchColorSetting();
    }
    if (IsElmFamily()) {
        return GetElmColorSetting();
    }
    if (IsFirFamily() || IsFirTwoFamily() || IsHazel()) {
        mColorSetting = GetColorTemperature().value == eColorTemperature_User
                            ? eColorSetting_Custom
                            : eColorSetting_Temperature;
        return {true, mColorSetting};
    }
    if (IsCedarFamily()) {
        return GetCedarColorSetting();
    }
    if (IsAspen() || IsAspenTwo() || IsAlderFamily()) {
        return {true, Reads(vcpC_SelectColorPreset, kUserColorPreset) ? eColorSetting_Custom
                                                                      : eColorSetting_Temperature};
    }
    return {false, eColorSetting_Temperature};
}

SUserValue<EColorSetting> UiDisplayDelegate::GetBirchColorSetting() {
    const int32_t preset = Read(vcpC_DisplayPresets).value;
    switch (preset) {
    case kBirchPresetStandard:
        // Standard is no setting of this program: go to colour temperature, then cycle
        // uniformity compensation.
        SetColorSetting(eColorSetting_Temperature);
        SetVCPValue(vcpC_UniformityCompensation, 1);
        SetVCPValue(vcpC_UniformityCompensation, 0);
        break;
    case 5:
    case 6:
        mColorSetting = eColorSetting_Space;
        break;
    case kBirchPresetTemperature:
        break;
    case kBirchPresetCustom:
        mColorSetting = eColorSetting_Custom;
        break;
    default:
        SetColorSetting(eColorSetting_Temperature);
        break;
    }
    return {true, mColorSetting};
}

SUserValue<EColorSetting> UiDisplayDelegate::GetElmColorSetting() {
    const int32_t preset = Read(vcpC_DisplayPresets).value;
    if (IsElmLargeFamily()) {
        if (preset == kElmPresetNative) {
            mColorSetting = eColorSetting_Temperature;
        } else if (preset >= 5 && preset <= 12) {
            mColorSetting = eColorSetting_Space;
        } else if (preset == kElmPresetCustom) {
            mColorSetting = eColorSetting_Custom;
        } else {
            SetColorSetting(eColorSetting_Space);
        }
        return {true, mColorSetting};
    }
    if (preset < 5 || preset > kElmPresetCustom) {
        SetColorSetting(eColorSetting_Space);
    } else if (preset == 5) {
        if (!Reads(vcpC_SelectColorPreset, kDefaultPreset)) {
            mColorSetting = eColorSetting_Temperature;
        }
    } else if (preset == 11 || preset == 12) {
        mColorSetting = eColorSetting_Space;
    } else if (preset == kElmPresetCustom) {
        mColorSetting = eColorSetting_Custom;
    }
    return {true, mColorSetting};
}

SUserValue<EColorSetting> UiDisplayDelegate::GetCedarColorSetting() {
    const bool genTwo = IsCedarGenTwo();
    if (!Reads(genTwo ? vcpC_DisplayPresets : vcpC_ColorSpace, kCedarNative)) {
        return {true, mColorSetting};
    }
    const int32_t preset = Read(vcpC_SelectColorPreset, true).value;
    switch (preset) {
    case 4:
    case 8:
        mColorSetting = eColorSetting_Temperature;
        break;
    case 5:
        if (genTwo) {
            mColorSetting = eColorSetting_Temperature;
        }
        break;
    case kUserColorPreset: {
        if (!genTwo || mColorSetting == eColorSetting_Custom) {
            mColorSetting = eColorSetting_Custom;
            break;
        }
        // GenTwo selects its native presets by gains; known gains name the preset.
        const SCustomColor gain = GetCustomRGBColorMod(true);
        mColorSetting = eColorSetting_Custom;
        for (const SCedarGain& row : kCedarGains) {
            if (gain.red == row.red && gain.green == row.green && gain.blue == row.blue) {
                mColorSetting = row.setting;
                if (row.temperature != kNone) {
                    SetColorTemperature(static_cast<EColorTemperature>(row.temperature));
                } else if (row.preset != kNone) {
                    ApplyDefaultPreset(row.preset);
                }
                break;
            }
        }
        break;
    }
    default:
        Trace("Un-handled color temperature\n");
        break;
    }
    return {true, mColorSetting};
}

bool UiDisplayDelegate::SetColorSetting(EColorSetting setting_I) {
    if (setting_I != eColorSetting_Temperature && setting_I != eColorSetting_Space &&
        setting_I != eColorSetting_Custom) {
        return false;
    }
    if (IsBirchFamily()) {
        mColorSetting = setting_I;
        if (setting_I == eColorSetting_Temperature) {
            SetVCPValue(vcpC_DisplayPresets, kBirchPresetTemperature);
            return SetColorTemperature(GetColorTemperature().value);
        }
        if (setting_I == eColorSetting_Space) {
            SetVCPValue(vcpC_DisplayPresets, kBirchPresetTemperature);
            return SetColorSpace(GetColorSpace().value);
        }
        return SetVCPValue(vcpC_DisplayPresets, kBirchPresetCustom);
    }
    if (IsElmFamily()) {
        return SetElmColorSetting(setting_I);
    }
    if (IsFirFamily() || IsFirTwoFamily() || IsHazel()) {
        if (setting_I == eColorSetting_Space) {
            return false;
        }
        mColorSetting = setting_I;
        if (setting_I == eColorSetting_Custom) {
            return SetVCPValue(vcpC_SelectColorPreset, kUserColorPreset);
        }
        if (GetColorTemperature().value == eColorTemperature_User) {
            return ApplyDefaultPreset(kDefaultPreset);
        }
        return true;
    }
    if (IsAspen() || IsAspenTwo() || IsAlderFamily()) {
        if (setting_I == eColorSetting_Space) {
            return false;
        }
        if (setting_I == eColorSetting_Custom) {
            return SetVCPValue(vcpC_SelectColorPreset, kUserColorPreset);
        }
        if (Reads(vcpC_SelectColorPreset, kUserColorPreset)) {
            return SetVCPValue(vcpC_SelectColorPreset, kDefaultPreset);
        }
        return true;
    }
    if (IsCedarFamily()) {
        return SetCedarColorSetting(setting_I);
    }
    return false;
}

bool UiDisplayDelegate::SetElmColorSetting(EColorSetting setting_I) {
    const EColorSetting before = mColorSetting;
    if (setting_I == eColorSetting_Custom) {
        mColorSetting = eColorSetting_Custom;
        return SetColorSpace(eColorSpace_CustomColor);
    }
    if (IsElmLargeFamily()) {
        if (setting_I == eColorSetting_Temperature) {
            const EColorTemperature temperature = GetColorTemperature().value;
            if (temperature == eColorTemperature_Preset12) {
                mColorSetting = eColorSetting_Temperature;
                return ApplyDefaultPreset(kDefaultPreset);
            }
            const bool result = before == eColorSetting_Custom ? ApplyDefaultPreset(kDefaultPreset)
                                                               : SetColorTemperature(temperature);
            mColorSetting = eColorSetting_Temperature;
            GetVCPValue(vcpC_DisplayPresets, true);
            return result;
        }
        mColorSetting = eColorSetting_Space;
        return SetColorSpace(before == eColorSetting_Space ? GetColorSpace().value
                                                           : eColorSpace_AdobeRGB);
    }
    if (setting_I == eColorSetting_Temperature) {
        if (before != eColorSetting_Temperature) {
            mColorSetting = eColorSetting_Temperature;
            SetColorSpace(eColorSpace_AdobeRGB);
        }
        const EColorTemperature temperature = GetColorTemperature().value;
        if (temperature == eColorTemperature_Preset12) {
            return ApplyDefaultPreset(kDefaultPreset);
        }
        return SetColorTemperature(temperature);
    }
    if (before == eColorSetting_Custom) {
        mColorSetting = eColorSetting_Space;
        if (!ApplyDefaultPreset(kDefaultPreset)) {
            return false;
        }
        return SetColorSpace(eColorSpace_AdobeRGB);
    }
    if (before == eColorSetting_Temperature) {
        mColorSetting = eColorSetting_Space;
        ApplyDefaultPreset(kDefaultPreset);
    }
    return SetColorSpace(GetColorSpace().value);
}

bool UiDisplayDelegate::SetCedarColorSetting(EColorSetting setting_I) {
    const bool genOne = IsCedarGenOne();
    switch (setting_I) {
    case eColorSetting_Temperature: {
        const bool wasCustom = mColorSetting == eColorSetting_Custom;
        mColorSetting = eColorSetting_Temperature;
        if (genOne && !wasCustom) {
            return SetColorSpace(eColorSpace_Native);
        }
        const bool result = SetColorSpace(eColorSpace_Native);
        if (genOne && !result) {
            return false;
        }
        return ApplyDefaultPreset(kDefaultPreset);
    }
    case eColorSetting_Space: {
        mColorSetting = eColorSetting_Space;
        const bool result = SetColorSpace(eColorSpace_Native);
        return genOne ? ApplyDefaultPreset(kDefaultPreset) : result;
    }
    case eColorSetting_Custom:
        mColorSetting = eColorSetting_Custom;
        return SetCedarCustomColor();
    }
    return false;
}

// The Cedar scaler takes custom gains only when they change, and a dark custom colour makes a
// black screen. So the gains go to a neighbouring value first and then to the wanted one; a
// colour too dark to be meant is replaced by neutral grey.
bool UiDisplayDelegate::SetCedarCustomColor() {
    SetColorSpace(eColorSpace_Native);
    SCustomColor color = GetCustomRGBColorMod(false);
    SCustomColor step;
    if (color.red > 30) {
        step = SCustomColor::FromRGB(color.red - 1, color.green, color.blue);
    } else if (color.green > 31) {
        step = SCustomColor::FromRGB(color.red, color.green - 1, color.blue);
    } else if (color.blue < 32) {
        color = SCustomColor::FromRGB(127, 127, 127);
        step = SCustomColor::FromRGB(128, 128, 128);
    } else {
        step = SCustomColor::FromRGB(color.red, color.green, color.blue - 1);
    }
    StoreWorkingColor(step);
    ApplyWorkingColor();
    StoreWorkingColor(color);
    ApplyWorkingColor();
    GetVCPValue(vcpC_SelectColorPreset, true);
    GetVCPValue(IsCedarGenOne() ? vcpC_ColorSpace : vcpC_DisplayPresets, true);
    return true;
}

SUserValue<int32_t> UiDisplayDelegate::GetGamma() {
    constexpr SUserValue<int32_t> kDefault{true, eGamma_2_2};
    if (!IsBirchFamily() && !IsElmFamily() && !IsCedarFamily()) {
        return kDefault;
    }
    const SUserValue<int32_t> value = Read(vcpC_Gamma);
    if (!value.valid) {
        return kDefault;
    }
    if (IsElmFamily()) {
        return value;
    }
    if (IsBirchFamily() && (value.value == gamma_2_2_or_1_9 || value.value == gamma_2_4_or_2_2)) {
        return value;
    }
    if (IsCedarFamily() && value.value == gamma_2_2_or_1_9) {
        return {true, eGamma_1_9};
    }
    if (IsCedarFamily() && value.value == gamma_ColorSpace_or_2_4) {
        return {true, eGamma_2_4};
    }
    return kDefault;
}

bool UiDisplayDelegate::SetGamma(int32_t gamma_I) {
    if (IsBirchFamily()) {
        if (gamma_I != eGamma_2_2 && gamma_I != eGamma_2_4) {
            return false;
        }
        return SetVCPValue(vcpC_Gamma, gamma_I);
    }
    if (IsElmFamily()) {
        return SetVCPValue(vcpC_Gamma, gamma_I);
    }
    if (IsCedarFamily()) {
        if (gamma_I < eGamma_1_9 || gamma_I > eGamma_2_4) {
            return false;
        }
        return SetVCPValue(vcpC_Gamma, gamma_I + 1);
    }
    return false;
}

SUserValue<EAspectRatio> UiDisplayDelegate::GetAspectRatio() {
    const EModelGroup group = ModelGroup();
    const bool scanMode = IsHazel() || IsFirTwoFamily();
    const SUserValue<EAspectRatio> notValid{false, IsFirFamily() || scanMode ? eAspectRatio_Full
                                                                             : eAspectRatio_Aspect};
    const vcpCode code = AspectRatioCode(group);
    if (code == vcpC_Undefined) {
        return notValid;
    }
    if (scanMode) {
        SleepMs(kScanModeSettleMs);
    }
    const SUserValue<int32_t> value = Read(code, scanMode);
    if (!value.valid) {
        return notValid;
    }
    const std::optional<EAspectRatio> ratio = AspectRatioFromValue(group, value.value);
    return ratio ? SUserValue<EAspectRatio>{true, *ratio} : notValid;
}

bool UiDisplayDelegate::SetAspectRatio(EAspectRatio ratio_I) {
    const EModelGroup group = ModelGroup();
    const std::optional<int32_t> value = ValueFromAspectRatio(group, ratio_I);
    if (!value) {
        return false;
    }
    return SetVCPValue(AspectRatioCode(group), *value);
}

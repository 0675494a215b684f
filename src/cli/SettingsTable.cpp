#include "cli/SettingsTable.h"

#include "model/UiDisplayDelegate.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <sstream>

namespace {

constexpr SValueName kColorSettingNames[] = {
    {eColorSetting_Temperature, "temperature"},
    {eColorSetting_Space, "space"},
    {eColorSetting_Custom, "custom"},
};
constexpr SValueName kTemperatureNames[] = {
    {eColorTemperature_5000K, "5000k"},
    {eColorTemperature_5700K, "5700k"},
    {eColorTemperature_6500K, "6500k"},
    {eColorTemperature_7500K, "7500k"},
    {eColorTemperature_9300K, "9300k"},
    {eColorTemperature_10000K, "10000k"},
    {eColorTemperature_5700KSecond, "5700k-second"},
    {eColorTemperature_Preset12, "preset-12"},
    {eColorTemperature_User, "user"},
};
constexpr SValueName kSpaceNames[] = {
    {eColorSpace_Native, "native"},
    {eColorSpace_AdobeRGB, "adobe-rgb"},
    {eColorSpace_sRGB, "srgb"},
    {eColorSpace_Rec709, "rec709"},
    {eColorSpace_DCI, "dci"},
    {eColorSpace_ColorManager1, "color-manager-1"},
    {eColorSpace_ColorManager2, "color-manager-2"},
    {eColorSpace_DCIP3, "dci-p3"},
    {eColorSpace_Rec2020, "rec2020"},
    {eColorSpace_EBU, "ebu"},
    {eColorSpace_CustomColor, "custom"},
};
constexpr SValueName kGammaNames[] = {
    {eGamma_1_9, "1.9"}, {eGamma_2_2, "2.2"}, {eGamma_2_4, "2.4"}};
constexpr SValueName kAspectNames[] = {
    {eAspectRatio_Full, "full"},
    {eAspectRatio_Aspect, "aspect"},
    {eAspectRatio_OneToOne, "1:1"},
};
constexpr SValueName kSwitchNames[] = {{0, "off"}, {1, "on"}};
constexpr SValueName kFanNames[] = {{eFanSpeed_LowSpeed, "low"}, {eFanSpeed_Auto, "auto"}};
constexpr SValueName kLedNames[] = {
    {ledBrightness_Off, "off"},
    {ledBrightness_Low, "low"},
    {ledBrightness_Medium, "medium"},
    {ledBrightness_High, "high"},
};
constexpr SValueName kBatteryNames[] = {{eBatteryMode_Mobile, "mobile"},
                                        {eBatteryMode_Desktop, "desktop"}};

// The gamma choices of the models that keep gamma in tenths run from 0.5 to 4.0; the display
// reports how far up it goes.
constexpr int32_t kGammaTenthsMinimum = 5;
constexpr int32_t kGammaTenthsMaximum = 40;

SSettingValue FromResult(const SVCPResult& result_I) {
    return {result_I.valid, result_I.value, result_I.minimum, result_I.maximum, {}};
}

template <typename T>
SSettingValue FromUser(const SUserValue<T>& result_I) {
    return {result_I.valid, static_cast<int32_t>(result_I.value), 0, 0, {}};
}

SSettingValue GetGamma(UiDisplayDelegate& display_I) {
    SSettingValue value = FromUser(display_I.GetGamma());
    if (display_I.IsElmFamily()) {
        const SVCPResult code = display_I.GetVCPValue(vcpC_Gamma, false);
        value.minimum = kGammaTenthsMinimum;
        value.maximum = code.valid && code.maximum >= kGammaTenthsMinimum
                            ? std::min(code.maximum, kGammaTenthsMaximum)
                            : kGammaTenthsMaximum;
    }
    return value;
}

template <EColorMod slot>
SControlState ColorStatus(UiDisplayDelegate& display_I) {
    return display_I.CustomColorSlotStatus(slot);
}

template <EColorMod slot>
SSettingValue GetColor(UiDisplayDelegate& display_I) {
    display_I.SelectColorMod(slot);
    display_I.ColorMaximum();
    const SCustomColor color = display_I.GetCustomRGBColorMod(slot, false);
    SSettingValue value;
    value.valid = color.valid;
    value.rgb = {display_I.ScaleToUser(color.Red()), display_I.ScaleToUser(color.Green()),
                 display_I.ScaleToUser(color.Blue())};
    return value;
}

template <EColorMod slot>
bool SetColor(UiDisplayDelegate& display_I, const SSettingValue& value_I) {
    display_I.SelectColorMod(slot);
    display_I.ColorMaximum();
    const auto component = [&](size_t index_I) {
        return static_cast<uint8_t>(display_I.ScaleToDisplay(value_I.rgb[index_I]));
    };
    return display_I.SetCustomRGBColorMod(
        slot, SCustomColor::FromRGB(component(0), component(1), component(2)));
}

using D = UiDisplayDelegate;
using V = SSettingValue;

const SSettingRow kSettings[] = {
    {"brightness",
     "backlight level",
     ESettingKind::eLevel,
     {},
     [](D& d) { return d.BrightnessStatus(); },
     [](D& d) { return FromResult(d.GetBrightness()); },
     [](D& d, const V& v) { return d.SetBrightness(v.value); }},
    {"contrast",
     "contrast level",
     ESettingKind::eLevel,
     {},
     [](D& d) { return d.ContrastStatus(); },
     [](D& d) { return FromResult(d.GetContrast()); },
     [](D& d, const V& v) { return d.SetContrast(v.value); }},
    {"color-setting", "which colour control is in use", ESettingKind::eChoice, kColorSettingNames,
     [](D& d) { return d.ColorSettingStatus(); },
     [](D& d) { return FromUser(d.GetColorSetting()); },
     [](D& d, const V& v) { return d.SetColorSetting(static_cast<EColorSetting>(v.value)); }},
    {"temperature", "colour temperature", ESettingKind::eChoice, kTemperatureNames,
     [](D& d) { return d.ColorTemperatureStatus(); },
     [](D& d) { return FromUser(d.GetColorTemperature()); },
     [](D& d, const V& v) {
         return d.SetColorTemperature(static_cast<EColorTemperature>(v.value));
     },
     true},
    {"space", "colour space", ESettingKind::eChoice, kSpaceNames,
     [](D& d) { return d.ColorSpaceStatus(); }, [](D& d) { return FromUser(d.GetColorSpace()); },
     [](D& d, const V& v) { return d.SetColorSpace(static_cast<EColorSpace>(v.value)); }, true},
    {"gamma", "gamma", ESettingKind::eGamma, kGammaNames, [](D& d) { return d.GammaStatus(); },
     [](D& d) { return GetGamma(d); }, [](D& d, const V& v) { return d.SetGamma(v.value); }},
    {"aspect-ratio", "picture scaling", ESettingKind::eChoice, kAspectNames,
     [](D& d) { return d.AspectRatioStatus(false); },
     [](D& d) { return FromUser(d.GetAspectRatio()); },
     [](D& d, const V& v) { return d.SetAspectRatio(static_cast<EAspectRatio>(v.value)); }},
    {"sharpness",
     "sharpness level",
     ESettingKind::eLevel,
     {},
     [](D& d) { return d.SharpnessStatus(false); },
     [](D& d) { return FromResult(d.GetSharpness()); },
     [](D& d, const V& v) { return d.SetSharpness(v.value); }},
    {"uniformity", "uniformity compensation", ESettingKind::eSwitch, kSwitchNames,
     [](D& d) { return d.UniformityStatus(false); },
     [](D& d) { return FromUser(d.GetUniformity()); },
     [](D& d, const V& v) { return d.SetUniformity(v.value != 0); }},
    {"energy-smart", "energy saving", ESettingKind::eSwitch, kSwitchNames,
     [](D& d) { return d.EnergySmartStatus(false); },
     [](D& d) { return FromUser(d.GetEnergySmart()); },
     [](D& d, const V& v) { return d.SetEnergySmart(v.value != 0); }},
    {"dynamic-contrast", "dynamic contrast", ESettingKind::eSwitch, kSwitchNames,
     [](D& d) { return d.DynamicContrastStatus(false); },
     [](D& d) { return FromUser(d.GetDynamicContrast()); },
     [](D& d, const V& v) { return d.SetDynamicContrast(v.value != 0); }},
    {"auto-power-down", "switch off when idle", ESettingKind::eSwitch, kSwitchNames,
     [](D& d) { return d.AutoPowerDownStatus(); },
     [](D& d) { return FromUser(d.GetAutoPowerDown()); },
     [](D& d, const V& v) { return d.SetAutoPowerDown(v.value != 0); }},
    {"fan-speed", "fan speed", ESettingKind::eChoice, kFanNames,
     [](D& d) { return d.FanSpeedStatus(); }, [](D& d) { return FromUser(d.GetFanSpeed()); },
     [](D& d, const V& v) { return d.SetFanSpeed(static_cast<EFanSpeed>(v.value)); }},
    {"power-led", "power LED brightness", ESettingKind::eChoice, kLedNames,
     [](D& d) { return d.PowerLedStatus(false); },
     [](D& d) { return FromUser(d.GetPowerLedBrightness()); },
     [](D& d, const V& v) {
         return d.SetPowerLedBrightness(static_cast<ledBrightnessCode>(v.value));
     }},
    {"battery-mode", "battery mode", ESettingKind::eChoice, kBatteryNames,
     [](D& d) { return d.BatteryModeStatus(false); },
     [](D& d) { return FromUser(d.GetBatteryMode()); },
     [](D& d, const V& v) { return d.SetBatteryMode(static_cast<EBatteryMode>(v.value)); }},
    {"rgb-gain",
     "custom colour, gain",
     ESettingKind::eColor,
     {},
     &ColorStatus<eColorMod_Gain>,
     &GetColor<eColorMod_Gain>,
     &SetColor<eColorMod_Gain>,
     true},
    {"rgb-offset",
     "custom colour, offset",
     ESettingKind::eColor,
     {},
     &ColorStatus<eColorMod_Offset>,
     &GetColor<eColorMod_Offset>,
     &SetColor<eColorMod_Offset>,
     true},
    {"rgb-hue",
     "custom colour, hue",
     ESettingKind::eColor,
     {},
     &ColorStatus<eColorMod_Hue>,
     &GetColor<eColorMod_Hue>,
     &SetColor<eColorMod_Hue>,
     true},
    {"rgb-saturation",
     "custom colour, saturation",
     ESettingKind::eColor,
     {},
     &ColorStatus<eColorMod_Saturation>,
     &GetColor<eColorMod_Saturation>,
     &SetColor<eColorMod_Saturation>,
     true},
};

bool ParseInteger(std::string_view text_I, int32_t& value_O) {
    const char* end = text_I.data() + text_I.size();
    const auto result = std::from_chars(text_I.data(), end, value_O);
    return !text_I.empty() && result.ec == std::errc() && result.ptr == end;
}

std::string Lower(std::string_view text_I) {
    std::string lower(text_I);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

// A gamma as get prints it, "2.2" or "2", in tenths.
bool ParseTenths(std::string_view text_I, int32_t& value_O) {
    int32_t whole = 0;
    if (ParseInteger(text_I, whole)) {
        if (whole < 0 || whole > 100) {
            return false;
        }
        value_O = whole * 10;
        return true;
    }
    const size_t dot = text_I.find('.');
    int32_t fraction = 0;
    if (dot == std::string_view::npos || dot + 2 != text_I.size() ||
        !ParseInteger(text_I.substr(0, dot), whole) ||
        !ParseInteger(text_I.substr(dot + 1), fraction) || whole < 0 || whole > 100 ||
        fraction < 0) {
        return false;
    }
    value_O = whole * 10 + fraction;
    return true;
}

std::string FormatTenths(int32_t value_I) {
    return std::to_string(value_I / 10) + "." + std::to_string(value_I % 10);
}

// A name as printed, or a temperature without its unit ("5000" for "5000k").
bool MatchesName(std::string_view lower_I, std::string_view name_I) {
    return lower_I == name_I || (name_I.size() == lower_I.size() + 1 && name_I.ends_with('k') &&
                                 name_I.starts_with(lower_I) && !lower_I.empty() &&
                                 std::isdigit(static_cast<unsigned char>(lower_I.back())));
}

bool HasRange(const SSettingValue& current_I) {
    return current_I.maximum > current_I.minimum;
}

// "+N" or "-N": a change of the present level, kept within its range.
bool ParseLevelChange(std::string_view text_I, const SSettingValue& current_I, int32_t& value_O) {
    if (text_I.size() < 2 || (text_I[0] != '+' && text_I[0] != '-')) {
        return false;
    }
    int32_t step = 0;
    if (!ParseInteger(text_I.substr(1), step) || step < 0) {
        return false;
    }
    // In 64 bits, so that no step overflows before it is kept within the range.
    const int64_t changed = int64_t{current_I.value} + (text_I[0] == '+' ? step : -int64_t{step});
    value_O = static_cast<int32_t>(
        HasRange(current_I) ? std::clamp<int64_t>(changed, current_I.minimum, current_I.maximum)
                            : std::clamp<int64_t>(changed, INT32_MIN, INT32_MAX));
    return true;
}

} // namespace

std::span<const SSettingRow> SettingsTable() {
    return kSettings;
}

const SSettingRow* FindSetting(std::string_view name_I) {
    const std::string lower = Lower(name_I);
    for (const SSettingRow& row : kSettings) {
        if (lower == row.name) {
            return &row;
        }
    }
    return nullptr;
}

ESettingParse ParseSettingValue(const SSettingRow& row_I, bool gammaInTenths_I,
                                std::string_view text_I, const SSettingValue& current_I,
                                SSettingValue& value_O, std::string& error_O) {
    value_O = current_I;
    value_O.valid = true;
    const std::string lower = Lower(text_I);
    const std::string bad = "'" + std::string(text_I) + "' is not a value of " + row_I.name;
    const auto outOfRange = [&](const std::string& minimum_I, const std::string& maximum_I) {
        error_O = bad + " (" + minimum_I + " to " + maximum_I + ")";
        return ESettingParse::eOutOfRange;
    };
    switch (row_I.kind) {
    case ESettingKind::eLevel:
        if (ParseLevelChange(lower, current_I, value_O.value)) {
            return ESettingParse::eValue;
        }
        if (!ParseInteger(lower, value_O.value)) {
            error_O = bad + " (" + SettingValueNames(row_I, false) + ")";
            return ESettingParse::eNotAValue;
        }
        if (HasRange(current_I) &&
            (value_O.value < current_I.minimum || value_O.value > current_I.maximum)) {
            return outOfRange(std::to_string(current_I.minimum), std::to_string(current_I.maximum));
        }
        return ESettingParse::eValue;
    case ESettingKind::eGamma:
        if (gammaInTenths_I) {
            if (!ParseTenths(lower, value_O.value)) {
                error_O = bad + " (a gamma such as 2.2)";
                return ESettingParse::eNotAValue;
            }
            if (HasRange(current_I) &&
                (value_O.value < current_I.minimum || value_O.value > current_I.maximum)) {
                return outOfRange(FormatTenths(current_I.minimum), FormatTenths(current_I.maximum));
            }
            return ESettingParse::eValue;
        }
        [[fallthrough]];
    case ESettingKind::eChoice:
    case ESettingKind::eSwitch: {
        for (const SValueName& name : row_I.names) {
            if (MatchesName(lower, name.name)) {
                value_O.value = name.value;
                return ESettingParse::eValue;
            }
        }
        error_O = bad + " (" + SettingValueNames(row_I, gammaInTenths_I) + ")";
        return ESettingParse::eNotAValue;
    }
    case ESettingKind::eColor: {
        std::string_view rest = text_I;
        for (size_t index = 0; index < 3; ++index) {
            const size_t comma = rest.find(',');
            const std::string_view part = rest.substr(0, comma);
            if (!ParseInteger(part, value_O.rgb[index]) || value_O.rgb[index] < 0 ||
                value_O.rgb[index] > 255 || (index < 2) == (comma == std::string_view::npos)) {
                error_O = bad + " (RED,GREEN,BLUE, each 0 to 255)";
                return ESettingParse::eNotAValue;
            }
            rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
        }
        return ESettingParse::eValue;
    }
    }
    return ESettingParse::eNotAValue;
}

std::string FormatSettingValue(const SSettingRow& row_I, bool gammaInTenths_I,
                               const SSettingValue& value_I) {
    if (row_I.kind == ESettingKind::eColor) {
        return std::to_string(value_I.rgb[0]) + "," + std::to_string(value_I.rgb[1]) + "," +
               std::to_string(value_I.rgb[2]);
    }
    if (row_I.kind == ESettingKind::eGamma && gammaInTenths_I) {
        return FormatTenths(value_I.value);
    }
    for (const SValueName& name : row_I.names) {
        if (name.value == value_I.value) {
            return name.name;
        }
    }
    return std::to_string(value_I.value);
}

std::string SettingValueNames(const SSettingRow& row_I, bool gammaInTenths_I) {
    switch (row_I.kind) {
    case ESettingKind::eLevel:
        return "a number, or +N or -N";
    case ESettingKind::eColor:
        return "RED,GREEN,BLUE";
    case ESettingKind::eGamma:
        if (gammaInTenths_I) {
            return "a gamma such as 2.2";
        }
        break;
    case ESettingKind::eChoice:
    case ESettingKind::eSwitch:
        break;
    }
    std::string names;
    for (const SValueName& name : row_I.names) {
        names += (names.empty() ? "" : ", ") + std::string(name.name);
    }
    return names;
}

std::string SettingsHelpText() {
    std::ostringstream out;
    out << "\nSettings (not every display offers each one):\n";
    for (const SSettingRow& row : kSettings) {
        std::string head = row.name;
        head.resize(18, ' ');
        out << "  " << head << row.summary << ": " << SettingValueNames(row, false) << "\n";
    }
    return out.str();
}

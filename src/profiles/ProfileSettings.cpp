#include "profiles/ProfileSettings.h"

#include "model/UiDisplayDelegate.h"

namespace {

using D = UiDisplayDelegate;
using V = ProfileValues;

template <typename T>
bool FromUser(const SUserValue<T>& read_I, V& values_O) {
    values_O[0] = static_cast<int32_t>(read_I.value);
    return read_I.valid;
}

bool FromResult(const SVCPResult& read_I, V& values_O) {
    values_O[0] = read_I.value;
    return read_I.valid;
}

template <EColorMod slot>
SControlState ColorStatus(D& display_I) {
    return display_I.CustomColorSlotStatus(slot);
}

// Colours stay in the display's own scale, which is the model's, so nothing is rounded.
template <EColorMod slot>
bool GetColor(D& display_I, V& values_O) {
    const SCustomColor color = display_I.GetCustomRGBColorMod(slot, false);
    values_O = {color.Red(), color.Green(), color.Blue()};
    return color.valid;
}

template <EColorMod slot>
bool SetColor(D& display_I, const V& values_I) {
    display_I.SelectColorMod(slot);
    display_I.ColorMaximum();
    return display_I.SetCustomRGBColorMod(slot,
                                          SCustomColor::FromRGB(static_cast<uint8_t>(values_I[0]),
                                                                static_cast<uint8_t>(values_I[1]),
                                                                static_cast<uint8_t>(values_I[2])));
}

const SProfileSettingRow kRows[] = {
    {"brightness", 1, [](D& d) { return d.BrightnessStatus(); },
     [](D& d, V& v) { return FromResult(d.GetBrightness(), v); },
     [](D& d, const V& v) { return d.SetBrightness(v[0]); }},
    {"contrast", 1, [](D& d) { return d.ContrastStatus(); },
     [](D& d, V& v) { return FromResult(d.GetContrast(), v); },
     [](D& d, const V& v) { return d.SetContrast(v[0]); }},
    {"color-setting", 1, [](D& d) { return d.ColorSettingStatus(); },
     [](D& d, V& v) { return FromUser(d.GetColorSetting(), v); },
     [](D& d, const V& v) { return d.SetColorSetting(static_cast<EColorSetting>(v[0])); }},
    {"temperature", 1, [](D& d) { return d.ColorTemperatureStatus(); },
     [](D& d, V& v) { return FromUser(d.GetColorTemperature(), v); },
     [](D& d, const V& v) { return d.SetColorTemperature(static_cast<EColorTemperature>(v[0])); }},
    {"space", 1, [](D& d) { return d.ColorSpaceStatus(); },
     [](D& d, V& v) { return FromUser(d.GetColorSpace(), v); },
     [](D& d, const V& v) { return d.SetColorSpace(static_cast<EColorSpace>(v[0])); }},
    {"rgb-gain", 3, &ColorStatus<eColorMod_Gain>, &GetColor<eColorMod_Gain>,
     &SetColor<eColorMod_Gain>},
    {"rgb-offset", 3, &ColorStatus<eColorMod_Offset>, &GetColor<eColorMod_Offset>,
     &SetColor<eColorMod_Offset>},
    {"rgb-hue", 3, &ColorStatus<eColorMod_Hue>, &GetColor<eColorMod_Hue>, &SetColor<eColorMod_Hue>},
    {"rgb-saturation", 3, &ColorStatus<eColorMod_Saturation>, &GetColor<eColorMod_Saturation>,
     &SetColor<eColorMod_Saturation>},
    {"gamma", 1, [](D& d) { return d.GammaStatus(); },
     [](D& d, V& v) { return FromUser(d.GetGamma(), v); },
     [](D& d, const V& v) { return d.SetGamma(v[0]); }},
    {"aspect-ratio", 1, [](D& d) { return d.AspectRatioStatus(false); },
     [](D& d, V& v) { return FromUser(d.GetAspectRatio(), v); },
     [](D& d, const V& v) { return d.SetAspectRatio(static_cast<EAspectRatio>(v[0])); }},
    {"sharpness", 1, [](D& d) { return d.SharpnessStatus(false); },
     [](D& d, V& v) { return FromResult(d.GetSharpness(), v); },
     [](D& d, const V& v) { return d.SetSharpness(v[0]); }},
    {"uniformity", 1, [](D& d) { return d.UniformityStatus(false); },
     [](D& d, V& v) { return FromUser(d.GetUniformity(), v); },
     [](D& d, const V& v) { return d.SetUniformity(v[0] != 0); }},
    {"energy-smart", 1, [](D& d) { return d.EnergySmartStatus(false); },
     [](D& d, V& v) { return FromUser(d.GetEnergySmart(), v); },
     [](D& d, const V& v) { return d.SetEnergySmart(v[0] != 0); }},
    {"dynamic-contrast", 1, [](D& d) { return d.DynamicContrastStatus(false); },
     [](D& d, V& v) { return FromUser(d.GetDynamicContrast(), v); },
     [](D& d, const V& v) { return d.SetDynamicContrast(v[0] != 0); }},
    {"auto-power-down", 1, [](D& d) { return d.AutoPowerDownStatus(); },
     [](D& d, V& v) { return FromUser(d.GetAutoPowerDown(), v); },
     [](D& d, const V& v) { return d.SetAutoPowerDown(v[0] != 0); }},
    {"fan-speed", 1, [](D& d) { return d.FanSpeedStatus(); },
     [](D& d, V& v) { return FromUser(d.GetFanSpeed(), v); },
     [](D& d, const V& v) { return d.SetFanSpeed(static_cast<EFanSpeed>(v[0])); }},
    {"power-led", 1, [](D& d) { return d.PowerLedStatus(false); },
     [](D& d, V& v) { return FromUser(d.GetPowerLedBrightness(), v); },
     [](D& d, const V& v) {
         return d.SetPowerLedBrightness(static_cast<ledBrightnessCode>(v[0]));
     }},
    {"battery-mode", 1, [](D& d) { return d.BatteryModeStatus(false); },
     [](D& d, V& v) { return FromUser(d.GetBatteryMode(), v); },
     [](D& d, const V& v) { return d.SetBatteryMode(static_cast<EBatteryMode>(v[0])); }},
};

} // namespace

std::span<const SProfileSettingRow> ProfileSettingsTable() {
    return kRows;
}

const SProfileSettingRow* FindProfileSetting(std::string_view key_I) {
    for (const SProfileSettingRow& row : kRows) {
        if (key_I == row.key) {
            return &row;
        }
    }
    return nullptr;
}

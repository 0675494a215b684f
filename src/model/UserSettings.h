#pragma once
// The values the dialogs speak in. Combo rows carry these numbers; the display delegate turns
// them into each model's VCP codes and values.

#include <cstdint>

enum EColorSetting : int32_t {
    eColorSetting_Temperature = 0,
    eColorSetting_Space = 1,
    eColorSetting_Custom = 2,
};

enum EColorTemperature : int32_t {
    eColorTemperature_5000K = 0,
    eColorTemperature_5700K = 1,
    eColorTemperature_6500K = 2,
    eColorTemperature_7500K = 3,
    eColorTemperature_9300K = 4,
    eColorTemperature_10000K = 5,
    // A second row for 5700K, as one model's menu names it.
    eColorTemperature_5700KSecond = 6,
    eColorTemperature_Preset12 = 7,
    eColorTemperature_User = 8,
};

enum EColorSpace : int32_t {
    eColorSpace_Native = 0,
    eColorSpace_AdobeRGB = 1,
    eColorSpace_sRGB = 2,
    eColorSpace_Rec709 = 3,
    eColorSpace_DCI = 4,
    eColorSpace_Unused = 5,
    eColorSpace_ColorManager1 = 6,
    eColorSpace_ColorManager2 = 7,
    eColorSpace_DCIP3 = 8,
    eColorSpace_Rec2020 = 9,
    eColorSpace_EBU = 10,
    eColorSpace_CustomColor = 11,
};

// On the Elm family the gamma value is ten times the gamma (22 for 2.2) instead.
enum EGamma : int32_t {
    eGamma_1_9 = 0,
    eGamma_2_2 = 1,
    eGamma_2_4 = 2,
};

enum EAspectRatio : int32_t {
    eAspectRatio_Full = 0,
    eAspectRatio_Aspect = 1,
    eAspectRatio_OneToOne = 2,
};

enum EBatteryMode : int32_t {
    eBatteryMode_Mobile = 0,
    eBatteryMode_Desktop = 1,
};

enum EFanSpeed : int32_t {
    eFanSpeed_LowSpeed = 0,
    eFanSpeed_Auto = 1,
};

// A getter's answer: value may be used only when valid is set; a not valid answer still
// carries the value the dialogs fall back to.
template <typename T>
struct SUserValue {
    bool valid = false;
    T value{};

    bool operator==(const SUserValue&) const = default;
};

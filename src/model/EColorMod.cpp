#include "model/EColorMod.h"

#include <array>

namespace {

// clang-format off
constexpr std::array<SColorModCodes, 4> kColorModCodes{{
    // slot                  red                         green                         blue
    {eColorMod_Hue,        vcpC_SixAxisHueRed,         vcpC_SixAxisHueGreen,         vcpC_SixAxisHueBlue,         "Hue"},
    {eColorMod_Saturation, vcpC_SixAxisSaturationRed,  vcpC_SixAxisSaturationGreen,  vcpC_SixAxisSaturationBlue,  "Saturation"},
    {eColorMod_Gain,       vcpC_VideoGainRed,          vcpC_VideoGainGreen,          vcpC_VideoGainBlue,          "Gain"},
    {eColorMod_Offset,     vcpC_ColorOffsetRed,        vcpC_ColorOffsetGreen,        vcpC_ColorOffsetBlue,        "Offset"},
}};
// clang-format on

} // namespace

const SColorModCodes* FindColorModCodes(EColorMod slot_I) {
    for (const SColorModCodes& row : kColorModCodes) {
        if (row.slot == slot_I) {
            return &row;
        }
    }
    return nullptr;
}

const char* ColorModText(EColorMod slot_I) {
    const SColorModCodes* row = FindColorModCodes(slot_I);
    return row != nullptr ? row->text : "Unknown";
}

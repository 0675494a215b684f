#pragma once
// Model knowledge of the display delegate kept as data: how each model group spells a colour
// temperature, an aspect ratio, a colour space and a calibrator preset in VCP values.

#include "ddc/VcpCodes.h"
#include "model/ModelTable.h"
#include "model/UserSettings.h"

#include <cstdint>
#include <optional>

namespace DelegateTables {

// Whether the model group selects colour temperatures through 0x14 at all.
bool HasColorTemperature(EModelGroup group_I);
// Colour temperature for a value of 0x14 on a model group; nothing when the cell is empty.
std::optional<EColorTemperature> TemperatureFromPreset(EModelGroup group_I, int32_t preset_I);
// The 0x14 value that selects a colour temperature; nothing when the model has no such row.
std::optional<int32_t> PresetFromTemperature(EModelGroup group_I, EColorTemperature temperature_I);

// The code that holds the aspect ratio of a model group; vcpC_Undefined when it has none.
vcpCode AspectRatioCode(EModelGroup group_I);
std::optional<EAspectRatio> AspectRatioFromValue(EModelGroup group_I, int32_t value_I);
std::optional<int32_t> ValueFromAspectRatio(EModelGroup group_I, EAspectRatio ratio_I);

// The Birch 0xF0 calibrator preset that stands for a colour space; nothing for other spaces.
std::optional<int32_t> BirchPresetFromSpace(EColorSpace space_I);
// The Elm family's 0xF0 values that stand for a colour space, both ways. 0xF0 = 0, which only
// the ElmLarge family reads as Adobe RGB, is not among them.
std::optional<EColorSpace> ElmSpaceFromPreset(int32_t preset_I);
std::optional<int32_t> ElmPresetFromSpace(EColorSpace space_I);
// The Cedar family's colour space values (0xE3 on the first generation, 0xF0 on the second).
std::optional<EColorSpace> CedarSpaceFromValue(int32_t value_I);
std::optional<int32_t> CedarValueFromSpace(EColorSpace space_I);

// The code and its two values that mean a calibrator preset runs; nothing on other models.
struct SColorManagedRule {
    vcpCode code;
    int32_t first;
    int32_t second;
};
std::optional<SColorManagedRule> ColorManagedRule(EModelGroup group_I);

} // namespace DelegateTables

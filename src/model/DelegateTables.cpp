#include "model/DelegateTables.h"

#include <array>

namespace DelegateTables {

namespace {

constexpr int32_t kNoCell = -1;

// Columns of the colour temperature table, in the order of its cells.
constexpr std::array<ModelGroups, 4> kTemperatureColumns{
    eModelGroup_Birch,
    kElmFamilyGroups,
    eModelGroup_Fir | eModelGroup_FirTwo | eModelGroup_Hazel,
    kCedarFamilyGroups | eModelGroup_Aspen | eModelGroup_Alder,
};

struct STemperatureRow {
    int32_t preset;
    std::array<int32_t, 4> temperature;
};

// clang-format off
constexpr std::array<STemperatureRow, 7> kTemperatureTable{{
    // 0x14   Birch    Elm      Fir      Cedar, Aspen, Alder
    {4,     {0,       0,       0,       0}},
    {5,     {2,       2,       2,       2}},
    {6,     {3,       kNoCell, kNoCell, kNoCell}},
    {8,     {4,       4,       4,       4}},
    {9,     {5,       5,       kNoCell, kNoCell}},
    {11,    {1,       1,       8,       kNoCell}},
    {12,    {kNoCell, 7,       kNoCell, kNoCell}},
}};
// clang-format on

// Birch's menu has a second name for 5700K, written as the first.
constexpr ModelGroups kSecond5700KGroups = eModelGroup_Birch;
constexpr int32_t kSecond5700KPreset = 11;

struct SAspectRow {
    ModelGroups groups;
    vcpCode code;
    // Full, Aspect, 1:1.
    std::array<int32_t, 3> values;
};

// clang-format off
constexpr std::array<SAspectRow, 5> kAspectTable{{
    // models                                          code                   Full Aspect 1:1
    {eModelGroup_Aspen | eModelGroup_Alder,            vcpC_DisplayScaling,   {8,  3,      kNoCell}},
    {eModelGroup_Birch | kElmFamilyGroups,             vcpC_AspectRatio,      {1,  3,      2}},
    {eModelGroup_Fir,                                  vcpC_AspectRatio,      {1,  kNoCell, 2}},
    {kCedarFamilyGroups,                               vcpC_DisplayScaling,   {8,  3,      1}},
    {eModelGroup_Hazel | eModelGroup_FirTwo,           vcpC_ScanMode,         {0,  1,      kNoCell}},
}};
// clang-format on

struct SSpaceRow {
    int32_t value;
    EColorSpace space;
};

// clang-format off
constexpr std::array<SSpaceRow, 9> kElmSpaceTable{{
    // 0xF0  colour space
    {5,     eColorSpace_AdobeRGB},
    {6,     eColorSpace_sRGB},
    {7,     eColorSpace_Rec709},
    {8,     eColorSpace_DCIP3},
    {9,     eColorSpace_Rec2020},
    {10,    eColorSpace_EBU},
    {11,    eColorSpace_ColorManager1},
    {12,    eColorSpace_ColorManager2},
    {13,    eColorSpace_CustomColor},
}};

constexpr std::array<SSpaceRow, 6> kCedarSpaceTable{{
    // 0xE3 or 0xF0  colour space
    {0,     eColorSpace_sRGB},
    {1,     eColorSpace_AdobeRGB},
    {2,     eColorSpace_Rec709},
    {7,     eColorSpace_Native},
    {8,     eColorSpace_ColorManager1},
    {9,     eColorSpace_ColorManager2},
}};

constexpr std::array<SSpaceRow, 2> kBirchSpaceTable{{
    // 0xF0  colour space
    {5,     eColorSpace_ColorManager1},
    {6,     eColorSpace_ColorManager2},
}};
// clang-format on

struct SColorManagedRow {
    ModelGroups groups;
    SColorManagedRule rule;
};

// clang-format off
constexpr std::array<SColorManagedRow, 4> kColorManagedTable{{
    // models                code                      values
    {eModelGroup_CedarOne,   {vcpC_ColorSpace,         8,  9}},
    {eModelGroup_CedarTwo,   {vcpC_DisplayPresets,     8,  9}},
    {eModelGroup_Birch,      {vcpC_DisplayPresets,     kBirchSpaceTable[0].value, kBirchSpaceTable[1].value}},
    {kElmFamilyGroups,       {vcpC_DisplayPresets,     11, 12}},
}};
// clang-format on

std::optional<size_t> TemperatureColumn(EModelGroup group_I) {
    for (size_t column = 0; column < kTemperatureColumns.size(); ++column) {
        if ((kTemperatureColumns[column] & group_I) != 0) {
            return column;
        }
    }
    return std::nullopt;
}

const SAspectRow* FindAspectRow(EModelGroup group_I) {
    for (const SAspectRow& row : kAspectTable) {
        if ((row.groups & group_I) != 0) {
            return &row;
        }
    }
    return nullptr;
}

template <size_t N>
std::optional<EColorSpace> SpaceFromValue(const std::array<SSpaceRow, N>& table_I,
                                          int32_t value_I) {
    for (const SSpaceRow& row : table_I) {
        if (row.value == value_I) {
            return row.space;
        }
    }
    return std::nullopt;
}

template <size_t N>
std::optional<int32_t> ValueFromSpace(const std::array<SSpaceRow, N>& table_I,
                                      EColorSpace space_I) {
    for (const SSpaceRow& row : table_I) {
        if (row.space == space_I) {
            return row.value;
        }
    }
    return std::nullopt;
}

} // namespace

bool HasColorTemperature(EModelGroup group_I) {
    return TemperatureColumn(group_I).has_value();
}

std::optional<EColorTemperature> TemperatureFromPreset(EModelGroup group_I, int32_t preset_I) {
    const std::optional<size_t> column = TemperatureColumn(group_I);
    if (!column) {
        return std::nullopt;
    }
    for (const STemperatureRow& row : kTemperatureTable) {
        if (row.preset == preset_I && row.temperature[*column] != kNoCell) {
            return static_cast<EColorTemperature>(row.temperature[*column]);
        }
    }
    return std::nullopt;
}

std::optional<int32_t> PresetFromTemperature(EModelGroup group_I, EColorTemperature temperature_I) {
    const std::optional<size_t> column = TemperatureColumn(group_I);
    if (!column) {
        return std::nullopt;
    }
    for (const STemperatureRow& row : kTemperatureTable) {
        if (row.temperature[*column] != kNoCell && row.temperature[*column] == temperature_I) {
            return row.preset;
        }
    }
    if ((kSecond5700KGroups & group_I) != 0 && temperature_I == eColorTemperature_5700KSecond) {
        return kSecond5700KPreset;
    }
    return std::nullopt;
}

vcpCode AspectRatioCode(EModelGroup group_I) {
    const SAspectRow* row = FindAspectRow(group_I);
    return row != nullptr ? row->code : vcpC_Undefined;
}

std::optional<EAspectRatio> AspectRatioFromValue(EModelGroup group_I, int32_t value_I) {
    const SAspectRow* row = FindAspectRow(group_I);
    if (row == nullptr) {
        return std::nullopt;
    }
    for (size_t ratio = 0; ratio < row->values.size(); ++ratio) {
        if (row->values[ratio] != kNoCell && row->values[ratio] == value_I) {
            return static_cast<EAspectRatio>(ratio);
        }
    }
    return std::nullopt;
}

std::optional<int32_t> ValueFromAspectRatio(EModelGroup group_I, EAspectRatio ratio_I) {
    const SAspectRow* row = FindAspectRow(group_I);
    if (row == nullptr || ratio_I < 0 || static_cast<size_t>(ratio_I) >= row->values.size() ||
        row->values[static_cast<size_t>(ratio_I)] == kNoCell) {
        return std::nullopt;
    }
    return row->values[static_cast<size_t>(ratio_I)];
}

std::optional<int32_t> BirchPresetFromSpace(EColorSpace space_I) {
    return ValueFromSpace(kBirchSpaceTable, space_I);
}

std::optional<EColorSpace> ElmSpaceFromPreset(int32_t preset_I) {
    return SpaceFromValue(kElmSpaceTable, preset_I);
}

std::optional<int32_t> ElmPresetFromSpace(EColorSpace space_I) {
    return ValueFromSpace(kElmSpaceTable, space_I);
}

std::optional<EColorSpace> CedarSpaceFromValue(int32_t value_I) {
    return SpaceFromValue(kCedarSpaceTable, value_I);
}

std::optional<int32_t> CedarValueFromSpace(EColorSpace space_I) {
    return ValueFromSpace(kCedarSpaceTable, space_I);
}

std::optional<SColorManagedRule> ColorManagedRule(EModelGroup group_I) {
    for (const SColorManagedRow& row : kColorManagedTable) {
        if ((row.groups & group_I) != 0) {
            return row.rule;
        }
    }
    return std::nullopt;
}

} // namespace DelegateTables

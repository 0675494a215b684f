#pragma once
// The string ids the program asks the string table for, as ranges of data. The dialogs name
// each id where they use it; this list is what the shipped tables must hold in every language.

#include <array>
#include <cstdint>
#include <vector>

struct SStringIdRange {
    uint16_t first;
    uint16_t last; // inclusive
};

constexpr std::array<SStringIdRange, 5> kProgramStringIdRanges{{
    {2000, 2038}, // title, main dialog labels and combo rows, not-supported window
    {2054, 2091}, // gamma 4.0 and 0.5 to 3.9, OK, Cancel
    {2100, 2110}, // colour dialog
    {2200, 2223}, // advanced dialog
    {2900, 2915}, // messages and LED brightness rows
}};

// Gamma rows of the Elm family: value v (5 to 39) has id 2050 + v; value 40 has 2054.
constexpr uint16_t kGammaFortyStringId = 2054;
constexpr uint16_t kGammaFirstStringId = 2055;

inline std::vector<uint16_t> ProgramStringIds() {
    std::vector<uint16_t> ids;
    for (const SStringIdRange& range : kProgramStringIdRanges) {
        for (uint32_t id = range.first; id <= range.last; ++id) {
            ids.push_back(static_cast<uint16_t>(id));
        }
    }
    return ids;
}

#pragma once
// The languages the program knows, as plain data: the language provider builds its table from
// these rows and the resource generator names its language files after them.

#include <array>
#include <cstdint>
#include <string_view>

struct SLanguageRow {
    std::string_view name;
    uint16_t languageId;
    bool translated;
};

constexpr uint32_t LAST_ELANGUAGE = 24;

// Rows 3 and 11 repeat a tag and an id, so no search reaches them; the on-screen-display
// language mapping counts rows and needs them.
constexpr std::array<SLanguageRow, LAST_ELANGUAGE> kLanguageRows{{
    {"en", 9, true},  {"zh_CN", 2052, true}, {"zh_TW", 1028, true}, {"en", 9, true},
    {"fr", 12, true}, {"de", 7, true},       {"ja", 17, true},      {"ko", 18, true},
    {"it", 16, true}, {"es", 10, true},      {"pt", 22, true},      {"pt", 22, true},
    {"nl", 19, true}, {"ru", 25, true},      {"sv", 29, false},     {"pl", 21, true},
    {"da", 6, false}, {"fi", 11, false},     {"no", 20, false},     {"tr", 31, true},
    {"cs", 5, false}, {"el", 8, false},      {"hu", 14, false},     {"sk", 27, false},
}};

// LANGID of the first row whose tag equals the file tag exactly, or -1 for an unknown tag.
constexpr int32_t LanguageIdOfTag(std::string_view tag) {
    for (const SLanguageRow& row : kLanguageRows) {
        if (row.name == tag) {
            return row.languageId;
        }
    }
    return -1;
}

#pragma once
// One language the program can be shown in.

#include <cstdint>
#include <string>

// Row index of the language table.
using ELanguage = uint32_t;

struct SLanguageEntry {
    std::string name;    // the tag, e.g. "fr" or "zh_TW"
    ELanguage language;  // the row index; the neutral entry has LAST_ELANGUAGE
    uint16_t languageId; // the LANGID that resources are searched with
    bool translated;     // whether the resources hold this language; only copied
};

#pragma once
// The language every localised look-up uses, chosen once from a tag or from the user's locale.
// A value: the entry point makes one and every holder keeps a copy.

#include "resources/LanguageTable.h"
#include "resources/SLanguageEntry.h"

#include <cstdint>
#include <string>
#include <vector>

class LanguageProvider {
public:
    // The neutral language, not known.
    LanguageProvider();
    explicit LanguageProvider(const std::string& tag_I);

    // "userUI" and "user" take the user's locale, "neutral" the neutral language; any other
    // word is a tag of the table, compared ignoring case. An unknown tag leaves English with
    // mKnown false.
    void SelectLanguage(const std::string& tag_I);
    // The first row with this LANGID or, walking the fallback order, with a LANGID it falls
    // back to; English with mKnown false when the walk leads nowhere.
    void SelectLanguageId(uint16_t languageId_I);

    SLanguageEntry mLanguage;
    std::vector<SLanguageEntry> mLangTable;
    SLanguageEntry mDefaultLanguage;
    bool mKnown;
};

#include "resources/LanguageProvider.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"
#include "resources/LanguageFallback.h"
#include "resources/UserLocale.h"

#include <algorithm>

namespace {

constexpr uint16_t kChinese = 4;
constexpr uint16_t kPrimaryRange = 1024;

std::vector<SLanguageEntry> BuildLanguageTable() {
    std::vector<SLanguageEntry> table;
    table.reserve(kLanguageRows.size());
    for (const SLanguageRow& row : kLanguageRows) {
        table.push_back({std::string(row.name), static_cast<ELanguage>(table.size()),
                         row.languageId, row.translated});
    }
    return table;
}

// Chinese chooses by the sublanguage alone here, unlike the resource fallback.
uint16_t NextChineseChoice(uint16_t id) {
    switch (id / kPrimaryRange) {
    case 0:
        return 0;
    case 1:
    case 2:
        return kChinese;
    case 3:
    case 5:
        return 1028;
    default:
        return 2052;
    }
}

} // namespace

LanguageProvider::LanguageProvider()
    : mLanguage{"neutral", LAST_ELANGUAGE, 0, true},
      mLangTable(BuildLanguageTable()), mDefaultLanguage{"neutral", LAST_ELANGUAGE, 0, true},
      mKnown(false) {
    VRX_ASSERT(mLangTable.size() == LAST_ELANGUAGE);
}

LanguageProvider::LanguageProvider(const std::string& tag_I) : LanguageProvider() {
    SelectLanguage(tag_I);
}

void LanguageProvider::SelectLanguage(const std::string& tag_I) {
    if (tag_I == "userUI") {
        SelectLanguageId(UserDefaultUILanguage());
        return;
    }
    if (tag_I == "user") {
        SelectLanguageId(UserDefaultLanguage());
        return;
    }
    if (tag_I == "neutral") {
        mLanguage = mDefaultLanguage;
        mKnown = true;
        return;
    }
    mLanguage = mLangTable[0];
    mKnown = false;
    const auto row = std::find_if(mLangTable.begin(), mLangTable.end(), [&](const auto& entry) {
        return EqualIgnoreCase(entry.name, tag_I);
    });
    if (row != mLangTable.end()) {
        mLanguage = *row;
        mKnown = true;
    }
}

void LanguageProvider::SelectLanguageId(uint16_t languageId_I) {
    mLanguage = mLangTable[0];
    mKnown = false;
    uint16_t id = languageId_I;
    while (true) {
        if (id == mDefaultLanguage.languageId) {
            mLanguage = mDefaultLanguage;
            mKnown = true;
            return;
        }
        const auto row = std::find_if(mLangTable.begin(), mLangTable.end(),
                                      [&](const auto& entry) { return entry.languageId == id; });
        if (row != mLangTable.end()) {
            mLanguage = *row;
            mKnown = true;
            return;
        }
        uint16_t next = id;
        if (id % kPrimaryRange == kChinese) {
            next = NextChineseChoice(id);
        } else {
            LanguageFallback(next);
        }
        if (next == id) {
            mLanguage = mLangTable[0];
            return;
        }
        id = next;
    }
}

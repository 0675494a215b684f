#include "resources/LanguageProvider.h"
#include "FakeLocaleSource.h"

#include <gtest/gtest.h>

#include <set>

namespace {

struct SChoice {
    ELanguage row;
    bool known;
};

SChoice Choice(const LanguageProvider& provider) {
    return {provider.mLanguage.language, provider.mKnown};
}

bool operator==(const SChoice& a, const SChoice& b) {
    return a.row == b.row && a.known == b.known;
}

std::ostream& operator<<(std::ostream& out, const SChoice& c) {
    return out << "row " << c.row << (c.known ? " known" : " unknown");
}

} // namespace

TEST(LanguageProvider, TableHoldsTheFourteenResourceLanguages) {
    const LanguageProvider provider;
    ASSERT_EQ(provider.mLangTable.size(), LAST_ELANGUAGE);
    std::set<uint16_t> translated;
    for (ELanguage row = 0; row < provider.mLangTable.size(); ++row) {
        EXPECT_EQ(provider.mLangTable[row].language, row);
        if (provider.mLangTable[row].translated) {
            translated.insert(provider.mLangTable[row].languageId);
        }
    }
    EXPECT_EQ(translated,
              (std::set<uint16_t>{7, 9, 10, 12, 16, 17, 18, 19, 21, 22, 25, 31, 1028, 2052}));
    EXPECT_EQ(provider.mLanguage.name, "neutral");
    EXPECT_EQ(provider.mLanguage.language, LAST_ELANGUAGE);
    EXPECT_EQ(provider.mLanguage.languageId, 0);
    EXPECT_FALSE(provider.mKnown);
}

TEST(LanguageProvider, SelectsByTagIgnoringCase) {
    struct SCase {
        const char* tag;
        SChoice choice;
    };
    const std::vector<SCase> cases = {
        {"fr", {4, true}},
        {"FR", {4, true}},
        {"zh_cn", {1, true}},
        {"ZH_TW", {2, true}},
        {"en", {0, true}},
        {"pt", {10, true}},
        {"sv", {14, true}},
        {"sk", {23, true}},
        {"xx", {0, false}},
        {"", {0, false}},
        {"zh", {0, false}},
        {"fr ", {0, false}},
        {"neutral", {LAST_ELANGUAGE, true}},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(Choice(LanguageProvider(c.tag)), c.choice) << "'" << c.tag << "'";
    }
    const LanguageProvider french("fr");
    const LanguageProvider copy = french;
    EXPECT_EQ(copy.mLanguage.name, "fr");
    EXPECT_EQ(copy.mLanguage.languageId, 12);
    EXPECT_TRUE(copy.mKnown);
    EXPECT_EQ(copy.mLangTable.size(), LAST_ELANGUAGE);
}

TEST(LanguageProvider, SelectsByLanguageIdAlongTheFallback) {
    struct SCase {
        uint16_t languageId;
        SChoice choice;
    };
    const std::vector<SCase> cases = {
        {1036, {4, true}},           // French of France
        {1033, {0, true}},           // English of the USA
        {1054, {0, true}},           // Thai: 30, then English
        {3076, {2, true}},           // Hong Kong: Traditional
        {5124, {2, true}},           // Macao: Traditional
        {4100, {1, true}},           // Singapore: Simplified
        {2052, {1, true}},           //
        {4, {LAST_ELANGUAGE, true}}, // bare Chinese: neutral
        {0, {LAST_ELANGUAGE, true}}, //
        {2070, {10, true}},          // Portuguese of Portugal: the first "pt"
        {1053, {14, true}},          // Swedish, untranslated, still a row
        {1029, {20, true}},          // Czech
        {1025, {0, true}},           // Arabic
    };
    for (const SCase& c : cases) {
        LanguageProvider provider;
        provider.SelectLanguageId(c.languageId);
        EXPECT_EQ(Choice(provider), c.choice) << c.languageId;
    }
}

TEST(LanguageProvider, UserWordsReadTheUsersLocale) {
    {
        CFakeLocaleSource source(LocaleVariables{{"LANG", "fr_FR.UTF-8"}});
        EXPECT_EQ(Choice(LanguageProvider("userUI")), (SChoice{4, true}));
        EXPECT_EQ(Choice(LanguageProvider("user")), (SChoice{4, true}));
        // Only the table's tags ignore case; the words are exact.
        EXPECT_EQ(Choice(LanguageProvider("USERUI")), (SChoice{0, false}));
    }
    {
        CFakeLocaleSource source(LocaleVariables{{"LANGUAGE", "zh_HK"}, {"LANG", "de_DE"}});
        EXPECT_EQ(Choice(LanguageProvider("userUI")), (SChoice{2, true}));
    }
    {
        CFakeLocaleSource source(LocaleVariables{}, "th_TH.UTF-8");
        EXPECT_EQ(Choice(LanguageProvider("userUI")), (SChoice{0, true}));
    }
}

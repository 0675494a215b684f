#include "FakeLocaleSource.h"

#include <gtest/gtest.h>

TEST(UserLocale, MapsLocaleNamesToLanguageIds) {
    const std::vector<std::pair<const char*, uint16_t>> cases = {
        {"fr_FR.UTF-8", 1036}, {"fr_XX", 1036},   {"FR_fr", 1036},      {"zh_TW.UTF-8", 1028},
        {"zh", 2052},          {"zh_HK", 3076},   {"zh-Hant", 1028},    {"zh-Hant-HK", 3076},
        {"pt_BR", 1046},       {"pt", 2070},      {"en_GB@euro", 2057}, {"th_TH", 1054},
        {"C", 1033},           {"C.UTF-8", 1033}, {"xx_YY", 1033},      {"", 1033},
    };
    for (const auto& [locale, languageId] : cases) {
        EXPECT_EQ(LanguageIdOfLocale(locale), languageId) << locale;
    }
}

TEST(UserLocale, ReadsTheVariablesInOrderThenTheSystemDefault) {
    struct SCase {
        LocaleVariables variables;
        std::string systemDefault;
        std::string locale;
    };
    const std::vector<SCase> cases = {
        {{{"LANGUAGE", "::de:fr"}, {"LC_ALL", "ja_JP"}}, "", "de"},
        {{{"LANGUAGE", ":"}, {"LC_ALL", "pl_PL"}, {"LC_MESSAGES", "tr_TR"}}, "", "pl_PL"},
        {{{"LC_ALL", ""}, {"LC_MESSAGES", "tr_TR"}, {"LANG", "ko_KR"}}, "", "tr_TR"},
        {{{"LANG", "it_IT.UTF-8"}}, "es_ES", "it_IT.UTF-8"},
        {{}, "es_ES.UTF-8", "es_ES.UTF-8"},
        {{}, "", "C"},
    };
    for (const SCase& c : cases) {
        CFakeLocaleSource source(c.variables, c.systemDefault);
        EXPECT_EQ(UserLocaleName(), c.locale);
    }
}

#include "FakeLocaleSource.h"

#include <gtest/gtest.h>

#include <vector>

TEST(UserLocale, MapsLocaleNamesToLanguageIds) {
    struct SCase {
        const char* locale;
        uint16_t languageId;
    };
    const std::vector<SCase> cases = {
        {"fr_FR.UTF-8", 1036}, {"fr_CA", 3084},
        {"fr_XX", 1036},       {"FR_fr", 1036},
        {"zh_TW.UTF-8", 1028}, {"zh_CN.GB18030", 2052},
        {"zh", 2052},          {"zh_HK", 3076},
        {"zh-Hant", 1028},     {"zh-Hant-HK", 3076},
        {"zh-Hans", 2052},     {"pt_BR", 1046},
        {"pt_PT", 2070},       {"pt", 2070},
        {"en_GB@euro", 2057},  {"en_US", 1033},
        {"de_AT.UTF-8", 3079}, {"ja_JP.eucJP", 1041},
        {"th_TH", 1054},       {"sr_RS@latin", 9242},
        {"nb_NO", 1044},       {"C", 1033},
        {"POSIX", 1033},       {"C.UTF-8", 1033},
        {"xx_YY", 1033},       {"", 1033},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(LanguageIdOfLocale(c.locale), c.languageId) << c.locale;
    }
}

TEST(UserLocale, ReadsTheVariablesInOrderThenTheSystemDefault) {
    struct SCase {
        const char* what;
        std::map<std::string, std::string> variables;
        std::string systemDefault;
        std::string locale;
    };
    const std::vector<SCase> cases = {
        {"LANGUAGE first entry wins",
         {{"LANGUAGE", "de:fr"}, {"LC_ALL", "ja_JP"}, {"LANG", "ko_KR"}},
         "",
         "de"},
        {"empty LANGUAGE entries are skipped", {{"LANGUAGE", "::nl_BE:fr"}}, "", "nl_BE"},
        {"empty LANGUAGE falls to LC_ALL", {{"LANGUAGE", ":"}, {"LC_ALL", "pl_PL"}}, "", "pl_PL"},
        {"LC_ALL before LC_MESSAGES", {{"LC_ALL", "ru_RU"}, {"LC_MESSAGES", "tr_TR"}}, "", "ru_RU"},
        {"empty LC_ALL is unset", {{"LC_ALL", ""}, {"LC_MESSAGES", "tr_TR"}}, "", "tr_TR"},
        {"LANG last", {{"LANG", "it_IT.UTF-8"}}, "es_ES", "it_IT.UTF-8"},
        {"system default", {}, "es_ES.UTF-8", "es_ES.UTF-8"},
        {"nothing at all", {}, "", "C"},
    };
    for (const SCase& c : cases) {
        CFakeLocaleSource source(c.variables, c.systemDefault);
        EXPECT_EQ(UserLocaleName(), c.locale) << c.what;
    }
    CFakeLocaleSource source(LocaleVariables{{"LANG", "zh_TW.UTF-8"}});
    EXPECT_EQ(UserDefaultUILanguage(), 1028);
    EXPECT_EQ(UserDefaultLanguage(), 1028);
}

#include "resources/LanguageProvider.h"
#include "FakeLocaleSource.h"

#include <gtest/gtest.h>

namespace {

using Choice = std::pair<ELanguage, bool>; // row, mKnown
constexpr ELanguage kNeutral = LAST_ELANGUAGE;

Choice ChoiceOf(const LanguageProvider& provider) {
    return {provider.mLanguage.language, provider.mKnown};
}

} // namespace

TEST(LanguageProvider, StartsNeutralAndSelectsByTagIgnoringCase) {
    EXPECT_EQ(ChoiceOf(LanguageProvider()), Choice(kNeutral, false));
    const std::vector<std::pair<const char*, Choice>> cases = {
        {"FR", {4, true}},  {"zh_cn", {1, true}}, {"ZH_TW", {2, true}},
        {"pt", {10, true}}, {"sv", {14, true}},   {"xx", {0, false}},
        {"", {0, false}},   {"zh", {0, false}},   {"neutral", {kNeutral, true}},
    };
    for (const auto& [tag, choice] : cases) {
        EXPECT_EQ(ChoiceOf(LanguageProvider(tag)), choice) << "'" << tag << "'";
    }
}

TEST(LanguageProvider, SelectsByLanguageIdAlongTheFallback) {
    const std::vector<std::pair<uint16_t, Choice>> cases = {
        {1036, {4, true}},  {1033, {0, true}},  {1054, {0, true}},     {3076, {2, true}},
        {5124, {2, true}},  {4100, {1, true}},  {4, {kNeutral, true}}, {0, {kNeutral, true}},
        {2070, {10, true}}, {1053, {14, true}}, {1029, {20, true}},
    };
    for (const auto& [languageId, choice] : cases) {
        LanguageProvider provider;
        provider.SelectLanguageId(languageId);
        EXPECT_EQ(ChoiceOf(provider), choice) << languageId;
    }
}

TEST(LanguageProvider, UserWordsReadTheUsersLocale) {
    struct SCase {
        LocaleVariables variables;
        std::string word;
        Choice choice;
    };
    const std::vector<SCase> cases = {
        {{{"LANG", "fr_FR.UTF-8"}}, "userUI", {4, true}},
        {{{"LANG", "fr_FR.UTF-8"}}, "USERUI", {0, false}}, // the words are exact
        {{{"LANGUAGE", "zh_HK"}, {"LANG", "de_DE"}}, "userUI", {2, true}},
        {{{"LC_MESSAGES", "th_TH"}}, "userUI", {0, true}},
    };
    for (const SCase& c : cases) {
        CFakeLocaleSource source(c.variables);
        EXPECT_EQ(ChoiceOf(LanguageProvider(c.word)), c.choice) << c.word;
    }
}

#include "app/CommandLine.h"

#include "foundation/Trace.h"

#include <gtest/gtest.h>

namespace {

class CommandLineTest : public ::testing::Test {
protected:
    void SetUp() override { gTraceEnabled = false; }
    void TearDown() override { gTraceEnabled = false; }
};

struct SModeCase {
    const wchar_t* line;
    SConnectionMode mode;
};

TEST_F(CommandLineTest, ConnectionModePrefersVideoThenHidThenFtdi) {
    const SModeCase cases[] = {
        {L"", eConnectionMode_All},
        {L"/hidPort", eConnectionMode_HID},
        {L"/FTDIPORT", eConnectionMode_FTDI},
        {L"/ftdiPort /hidPort", eConnectionMode_HID},
        {L"/hidPort /displayPort", eConnectionMode_Video},
        {L"/ftdiPort /displayport /hidport", eConnectionMode_Video},
        {L"hidPort", eConnectionMode_All},
        {L"x/hidPortx", eConnectionMode_HID},
    };
    for (const SModeCase& c : cases) {
        EXPECT_EQ(ParseCommandLine(c.line).options.connectionMode, c.mode) << c.line;
    }
}

TEST_F(CommandLineTest, FlagsAreFoundAnywhereIgnoringCase) {
    const SCommandLine all =
        ParseCommandLine(L"junk /EXITONERROR more /skipserialmatchx /Help /Refresh");
    EXPECT_TRUE(all.options.exitOnError);
    EXPECT_TRUE(all.options.refreshFacts);
    EXPECT_TRUE(all.options.skipSerialMatch);
    EXPECT_TRUE(all.help);

    const SCommandLine none = ParseCommandLine(L"/exit /skip /hel /simulat /refr");
    EXPECT_FALSE(none.options.exitOnError);
    EXPECT_FALSE(none.options.refreshFacts);
    EXPECT_FALSE(none.options.skipSerialMatch);
    EXPECT_FALSE(none.help);
    EXPECT_FALSE(none.simulate);
}

TEST_F(CommandLineTest, DebugTurnsTraceOnAndNeverOff) {
    ParseCommandLine(L"/help");
    EXPECT_FALSE(gTraceEnabled);
    const SCommandLine withHelp = ParseCommandLine(L"/help /DEBUGGER");
    EXPECT_TRUE(gTraceEnabled);
    EXPECT_TRUE(withHelp.help);
    ParseCommandLine(L"");
    EXPECT_TRUE(gTraceEnabled);
}

struct SLanguageCase {
    const wchar_t* line;
    const char* name; // nullptr: the user's language stays
};

TEST_F(CommandLineTest, LanguageNeedsExactlyOneBlankAndAKnownTag) {
    const SDisplayConfigOptions defaults;
    const SLanguageCase cases[] = {
        {L"/language fr", "fr"},     {L"/LANGUAGE DE", "de"}, {L"/language zh_TW /debug", "zh_TW"},
        {L"/language  fr", nullptr}, {L"/language", nullptr}, {L"/language klingon", nullptr},
        {L"/languagefr", nullptr},
    };
    for (const SLanguageCase& c : cases) {
        const SCommandLine parsed = ParseCommandLine(c.line);
        if (c.name == nullptr) {
            EXPECT_EQ(parsed.options.language.mLanguage.name, defaults.language.mLanguage.name)
                << c.line;
            EXPECT_EQ(parsed.options.language.mKnown, defaults.language.mKnown) << c.line;
        } else {
            EXPECT_EQ(parsed.options.language.mLanguage.name, c.name) << c.line;
            EXPECT_TRUE(parsed.options.language.mKnown) << c.line;
        }
    }
}

// The help box leaves out the options a user is not meant to reach.
TEST_F(CommandLineTest, HelpBoxListsSixLinesWithoutTheHiddenOptions) {
    const std::wstring text = HelpText();
    EXPECT_EQ(std::count(text.begin(), text.end(), L'\n'), 5);
    for (const wchar_t* hidden : {L"/language", L"/exitOnError", L"/simulate"}) {
        EXPECT_EQ(text.find(hidden), std::wstring::npos);
    }
}

TEST_F(CommandLineTest, ArgumentsJoinWithSingleBlanks) {
    EXPECT_EQ(JoinArguments({}), L"");
    EXPECT_EQ(JoinArguments({"/language", "fr", "/debug"}), L"/language fr /debug");
    EXPECT_EQ(ParseCommandLine(JoinArguments({"/language", "ja"})).options.language.mLanguage.name,
              "ja");
}

} // namespace

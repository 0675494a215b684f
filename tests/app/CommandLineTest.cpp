#include "app/CommandLine.h"

#include "foundation/Trace.h"

#include <gtest/gtest.h>

namespace {

struct SModeCase {
    const wchar_t* line;
    SConnectionMode mode;
};

TEST(CommandLineTest, ConnectionModePrefersVideoThenHidThenFtdi) {
    const SModeCase cases[] = {
        {L"", eConnectionMode_All},
        {L"/hidPort", eConnectionMode_HID},
        {L"/FTDIPORT", eConnectionMode_FTDI},
        {L"/ftdiPort /hidPort", eConnectionMode_HID},
        {L"/ftdiPort /displayport /hidport", eConnectionMode_Video},
        {L"hidPort", eConnectionMode_All},
        {L"x/hidPortx", eConnectionMode_HID},
    };
    for (const SModeCase& c : cases) {
        EXPECT_EQ(ParseCommandLine(c.line).options.connectionMode, c.mode) << c.line;
    }
}

TEST(CommandLineTest, FlagsAreFoundAnywhereIgnoringCase) {
    const SCommandLine all =
        ParseCommandLine(L"junk /EXITONERROR more /skipserialmatchx /Help /Refresh /TRAY");
    EXPECT_TRUE(all.options.exitOnError);
    EXPECT_TRUE(all.options.refreshFacts);
    EXPECT_TRUE(all.options.skipSerialMatch);
    EXPECT_TRUE(all.help);
    EXPECT_TRUE(all.tray);
    EXPECT_TRUE(ParseCommandLine(L"--tray").tray);

    const SCommandLine none = ParseCommandLine(L"/exit /skip /hel /simulat /refr /tra -tray");
    EXPECT_FALSE(none.options.exitOnError);
    EXPECT_FALSE(none.options.refreshFacts);
    EXPECT_FALSE(none.options.skipSerialMatch);
    EXPECT_FALSE(none.help);
    EXPECT_FALSE(none.simulate);
    EXPECT_FALSE(none.tray);
}

TEST(CommandLineTest, DebugTurnsTraceOnAndNeverOff) {
    gTraceEnabled = false;
    ParseCommandLine(L"/help");
    EXPECT_FALSE(gTraceEnabled);
    const SCommandLine withHelp = ParseCommandLine(L"/help /DEBUGGER");
    EXPECT_TRUE(gTraceEnabled);
    EXPECT_TRUE(withHelp.help);
    ParseCommandLine(L"");
    EXPECT_TRUE(gTraceEnabled);
    gTraceEnabled = false;
}

struct SLanguageCase {
    const wchar_t* line;
    const char* name; // nullptr: the user's language stays
};

TEST(CommandLineTest, LanguageNeedsExactlyOneBlankAndAKnownTag) {
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
    gTraceEnabled = false;
}

// The help box leaves out the options a user is not meant to reach.
TEST(CommandLineTest, HelpBoxListsSixLinesWithoutTheHiddenOptions) {
    const std::wstring text = HelpText();
    EXPECT_EQ(std::count(text.begin(), text.end(), L'\n'), 5);
    for (const wchar_t* hidden : {L"/language", L"/exitOnError", L"/simulate"}) {
        EXPECT_EQ(text.find(hidden), std::wstring::npos);
    }
}

TEST(CommandLineTest, ArgumentsJoinWithSingleBlanks) {
    EXPECT_EQ(ParseCommandLine(JoinArguments({"/language", "ja"})).options.language.mLanguage.name,
              "ja");
}

} // namespace

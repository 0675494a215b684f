#include "cli/CliOptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

SCliParse Parse(std::vector<std::string> args_I) {
    return ParseCliArguments(args_I);
}

} // namespace

TEST(CliOptions, OptionsStandBeforeOrAfterTheCommandInBothForms) {
    const SCliParse parse =
        Parse({"--json", "set", "-d", "2", "brightness", "--save", "--mode=hid", "40", "--language",
               "de", "--skip-serial-match", "--exit-on-error", "-y", "--refresh"});
    ASSERT_EQ(parse.error, "");
    const SCliOptions& options = parse.options;
    EXPECT_EQ(options.command, ECliCommand::eSet);
    EXPECT_EQ(options.operands, (std::vector<std::string>{"brightness", "40"}));
    EXPECT_TRUE(options.json && options.save && options.yes);
    EXPECT_TRUE(options.skipSerialMatch && options.exitOnError && options.refresh);
    EXPECT_EQ(options.display, 2);
    EXPECT_EQ(options.connectionMode, eConnectionMode_HID);
    EXPECT_EQ(options.language, "de");
    EXPECT_FALSE(options.simulate);

    // "--" ends the options, so an operand may look like one.
    const SCliParse dashes = Parse({"setvcp", "--", "10", "-5"});
    EXPECT_EQ(dashes.options.operands, (std::vector<std::string>{"10", "-5"}));
}

TEST(CliOptions, SimulateTakesADescriptionOnlyWhenOneFollows) {
    struct SRow {
        std::vector<std::string> args;
        std::optional<std::string> description;
        ECliCommand command;
    };
    const SRow rows[] = {
        {{"--simulate", "list"}, std::nullopt, ECliCommand::eList},
        {{"--simulate", "Birch@ftdi", "list"}, "Birch@ftdi", ECliCommand::eList},
        {{"--simulate=", "get", "all"}, "", ECliCommand::eGet},
        {{"list", "--simulate"}, std::nullopt, ECliCommand::eList},
        {{"--simulate", "--json", "list"}, std::nullopt, ECliCommand::eList},
    };
    for (const SRow& row : rows) {
        const SCliParse parse = Parse(row.args);
        SCOPED_TRACE(row.args[0] + " " + row.args[1]);
        ASSERT_EQ(parse.error, "");
        EXPECT_TRUE(parse.options.simulate);
        EXPECT_EQ(parse.options.simulateDescription, row.description);
        EXPECT_EQ(parse.options.command, row.command);
    }
}

TEST(CliOptions, BadLinesNameWhatIsWrong) {
    struct SRow {
        std::vector<std::string> args;
        std::string error;
    };
    const SRow rows[] = {
        {{}, "no command given"},
        {{"frobnicate"}, "unknown command 'frobnicate'"},
        {{"list", "--frob"}, "unknown option '--frob'"},
        {{"-x", "list"}, "unknown option '-x'"},
        {{"get"}, "get needs SETTING|all"},
        {{"set", "brightness"}, "set needs SETTING VALUE"},
        {{"list", "extra"}, "list: unexpected 'extra'"},
        {{"list", "--display"}, "option '--display' needs a value"},
        {{"list", "--display", "one"}, "option '--display' needs a display index, not 'one'"},
        {{"list", "--mode", "usb"}, "option '--mode' takes hid, video, ftdi or all, not 'usb'"},
        {{"list", "--json=yes"}, "option '--json' takes no value"},
        {{"parse-caps", "--edid", "10000"},
         "option '--edid' needs an EDID number in hexadecimal, not '10000'"},
    };
    for (const SRow& row : rows) {
        EXPECT_EQ(Parse(row.args).error, row.error);
    }
    // Help and version need no command.
    EXPECT_EQ(Parse({"--help"}).error, "");
    EXPECT_EQ(Parse({"get", "--help"}).options.command, ECliCommand::eGet);
}

TEST(CliOptions, DiscoveryOptionsFollowTheLine) {
    // Without --language the displays' menus keep theirs; an unknown one leaves the user's own.
    const struct {
        const char* language;
        const char* provider;
        bool setsMenus;
    } rows[] = {{"DE", "de", true}, {"", "userUI", false}, {"klingon", "userUI", true}};
    for (const auto& row : rows) {
        SCliOptions options;
        options.language = row.language;
        options.skipSerialMatch = options.exitOnError = options.refresh = *row.language == 0;
        const SDisplayConfigOptions config = MakeDisplayConfigOptions(options);
        EXPECT_EQ(config.language.mLanguage.languageId,
                  LanguageProvider(row.provider).mLanguage.languageId)
            << row.language;
        EXPECT_EQ(config.setOsdLanguage, row.setsMenus) << row.language;
        EXPECT_EQ(config.skipSerialMatch && config.exitOnError && config.refreshFacts,
                  *row.language == 0);
    }
}

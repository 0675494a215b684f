#include "cli/CliOptions.h"

#include "foundation/StringUtilities.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace {

constexpr SCliCommandInfo kCommands[] = {
    {ECliCommand::eList, "list", "", "list the displays found", 0, 0, true, ""},
    {ECliCommand::eGet, "get", "SETTING|all", "read a setting, or every setting the display offers",
     1, 1, true, ""},
    {ECliCommand::eSet, "set", "SETTING VALUE", "change a setting; VALUE is a name or a number", 2,
     2, true,
     "      --save             save the display's settings afterwards\n"
     "Without --save the change lasts until the display is switched off.\n"},
    {ECliCommand::eSave, "save", "", "save the present settings in the display", 0, 0, true, ""},
    {ECliCommand::eFactoryReset, "factory-reset", "", "restore the factory settings", 0, 0, true,
     "  -y, --yes              do not ask\n"},
    {ECliCommand::eResetColor, "reset-color", "", "restore the factory colour settings", 0, 0, true,
     ""},
    {ECliCommand::eConditionLcd, "condition-lcd", "", "start the LCD conditioning cycle", 0, 0,
     true, "  -y, --yes              do not ask\n"},
    {ECliCommand::eGetVcp, "getvcp", "CODE", "read a VCP feature (CODE in hexadecimal)", 1, 1, true,
     ""},
    {ECliCommand::eSetVcp, "setvcp", "CODE VALUE", "write a VCP feature (CODE in hexadecimal)", 2,
     2, true, "      --save             save the display's settings afterwards\n"},
    {ECliCommand::eCapabilities, "capabilities", "",
     "print the display's capability string and what it offers", 0, 0, true, ""},
    {ECliCommand::eParseCaps, "parse-caps", "[STRING]",
     "parse a capability string (argument or standard input) with no display", 0, 1, false,
     "      --edid NUMBER      read it as the model of this EDID number (hex) would\n"},
    {ECliCommand::eEdid, "edid", "FILE", "print what discovery reads from an EDID file", 1, 1,
     false, ""},
};

struct SModeName {
    const char* name;
    SConnectionMode mode;
};
constexpr SModeName kModes[] = {{"hid", eConnectionMode_HID},
                                {"video", eConnectionMode_Video},
                                {"ftdi", eConnectionMode_FTDI},
                                {"all", eConnectionMode_All}};

bool ParseNumber(std::string_view text_I, int base_I, long& value_O) {
    if (base_I == 16 && (text_I.starts_with("0x") || text_I.starts_with("0X"))) {
        text_I.remove_prefix(2);
    }
    const char* end = text_I.data() + text_I.size();
    const auto result = std::from_chars(text_I.data(), end, value_O, base_I);
    return !text_I.empty() && result.ec == std::errc() && result.ptr == end;
}

// Options that take a value: the value follows as "--name=value" or as the next argument.
enum class EOption {
    eHelp,
    eVersion,
    eJson,
    eDebug,
    eTiming,
    eYes,
    eSave,
    eDisplay,
    eSimulate,
    eEdid,
    eLanguage,
    eSkipSerialMatch,
    eExitOnError,
    eMode,
    eRefresh,
};

struct SOptionName {
    const char* name;
    char shortName;
    EOption option;
    bool takesValue;
};

constexpr SOptionName kOptions[] = {
    {"help", 'h', EOption::eHelp, false},
    {"version", 0, EOption::eVersion, false},
    {"json", 0, EOption::eJson, false},
    {"debug", 0, EOption::eDebug, false},
    {"timing", 0, EOption::eTiming, false},
    {"yes", 'y', EOption::eYes, false},
    {"save", 0, EOption::eSave, false},
    {"display", 'd', EOption::eDisplay, true},
    {"simulate", 0, EOption::eSimulate, false}, // its value is optional, see below
    {"edid", 0, EOption::eEdid, true},
    {"language", 0, EOption::eLanguage, true},
    {"skip-serial-match", 0, EOption::eSkipSerialMatch, false},
    {"exit-on-error", 0, EOption::eExitOnError, false},
    {"mode", 0, EOption::eMode, true},
    {"refresh", 0, EOption::eRefresh, false},
};

class CParser {
public:
    explicit CParser(std::span<const std::string> args_I) : mArgs(args_I) {}

    SCliParse Run() {
        bool optionsEnded = false;
        for (mIndex = 0; mIndex < mArgs.size() && mResult.error.empty(); ++mIndex) {
            const std::string& arg = mArgs[mIndex];
            if (!optionsEnded && arg == "--") {
                optionsEnded = true;
            } else if (!optionsEnded && arg.starts_with("--")) {
                LongOption(arg.substr(2));
            } else if (!optionsEnded && arg.size() > 1 && arg[0] == '-' && !IsNegativeNumber(arg)) {
                ShortOptions(arg.substr(1));
            } else {
                Operand(arg);
            }
        }
        Check();
        return mResult;
    }

private:
    static bool IsNegativeNumber(const std::string& arg_I) {
        long ignored = 0;
        return ParseNumber(arg_I, 10, ignored);
    }

    void Fail(std::string text_I) {
        if (mResult.error.empty()) {
            mResult.error = std::move(text_I);
        }
    }

    void Operand(const std::string& arg_I) {
        SCliOptions& options = mResult.options;
        if (options.command != ECliCommand::eNone) {
            options.operands.push_back(arg_I);
            return;
        }
        const SCliCommandInfo* command = FindCliCommand(arg_I);
        if (!command) {
            Fail("unknown command '" + arg_I + "'");
            return;
        }
        options.command = command->command;
    }

    void LongOption(const std::string& text_I) {
        const size_t equals = text_I.find('=');
        const std::string name = text_I.substr(0, equals);
        const auto match = std::find_if(std::begin(kOptions), std::end(kOptions),
                                        [&](const SOptionName& o) { return name == o.name; });
        if (match == std::end(kOptions)) {
            Fail("unknown option '--" + name + "'");
            return;
        }
        std::optional<std::string> value;
        if (equals != std::string::npos) {
            value = text_I.substr(equals + 1);
        }
        Apply(*match, "--" + name, value);
    }

    void ShortOptions(const std::string& letters_I) {
        for (size_t at = 0; at < letters_I.size(); ++at) {
            const auto match =
                std::find_if(std::begin(kOptions), std::end(kOptions),
                             [&](const SOptionName& o) { return o.shortName == letters_I[at]; });
            if (match == std::end(kOptions)) {
                Fail(std::string("unknown option '-") + letters_I[at] + "'");
                return;
            }
            std::optional<std::string> value;
            if (match->takesValue && at + 1 < letters_I.size()) {
                value = letters_I.substr(at + 1);
                at = letters_I.size();
            }
            Apply(*match, std::string("-") + match->shortName, value);
        }
    }

    std::optional<std::string> NextValue(const std::string& shown_I) {
        if (mIndex + 1 >= mArgs.size()) {
            Fail("option '" + shown_I + "' needs a value");
            return std::nullopt;
        }
        return mArgs[++mIndex];
    }

    void Apply(const SOptionName& option_I, const std::string& shown_I,
               std::optional<std::string> value_I) {
        if (option_I.option == EOption::eSimulate) {
            // An optional value: "--simulate=TEXT", or a next argument that is neither an
            // option nor a command.
            if (!value_I && mIndex + 1 < mArgs.size() && !mArgs[mIndex + 1].starts_with("-") &&
                !FindCliCommand(mArgs[mIndex + 1])) {
                value_I = mArgs[++mIndex];
            }
            mResult.options.simulate = true;
            mResult.options.simulateDescription = value_I;
            return;
        }
        if (option_I.takesValue && !value_I) {
            value_I = NextValue(shown_I);
            if (!value_I) {
                return;
            }
        } else if (!option_I.takesValue && value_I) {
            Fail("option '" + shown_I + "' takes no value");
            return;
        }
        SCliOptions& options = mResult.options;
        switch (option_I.option) {
        case EOption::eHelp:
            options.help = true;
            break;
        case EOption::eVersion:
            options.version = true;
            break;
        case EOption::eJson:
            options.json = true;
            break;
        case EOption::eDebug:
            options.debug = true;
            break;
        case EOption::eTiming:
            options.timing = true;
            break;
        case EOption::eYes:
            options.yes = true;
            break;
        case EOption::eSave:
            options.save = true;
            break;
        case EOption::eSkipSerialMatch:
            options.skipSerialMatch = true;
            break;
        case EOption::eExitOnError:
            options.exitOnError = true;
            break;
        case EOption::eRefresh:
            options.refresh = true;
            break;
        case EOption::eLanguage:
            options.language = *value_I;
            break;
        case EOption::eDisplay: {
            long number = 0;
            if (!ParseNumber(*value_I, 10, number) || number < 0 || number > 255) {
                Fail("option '" + shown_I + "' needs a display index, not '" + *value_I + "'");
            }
            options.display = static_cast<int>(number);
            break;
        }
        case EOption::eEdid: {
            long number = 0;
            if (!ParseNumber(*value_I, 16, number) || number <= 0 || number > 0xFFFF) {
                Fail("option '" + shown_I + "' needs an EDID number in hexadecimal, not '" +
                     *value_I + "'");
            }
            options.edidNumber = static_cast<uint16_t>(number);
            break;
        }
        case EOption::eMode: {
            const auto mode = std::find_if(std::begin(kModes), std::end(kModes),
                                           [&](const SModeName& m) { return *value_I == m.name; });
            if (mode == std::end(kModes)) {
                Fail("option '" + shown_I + "' takes hid, video, ftdi or all, not '" + *value_I +
                     "'");
                return;
            }
            options.connectionMode = mode->mode;
            break;
        }
        case EOption::eSimulate:
            break;
        }
    }

    void Check() {
        SCliOptions& options = mResult.options;
        if (!mResult.error.empty() || options.help || options.version) {
            return;
        }
        if (options.command == ECliCommand::eNone) {
            Fail("no command given");
            return;
        }
        const SCliCommandInfo* command = FindCliCommand(options.command);
        if (options.operands.size() < command->minOperands) {
            Fail(std::string(command->name) + " needs " + command->operands);
        } else if (options.operands.size() > command->maxOperands) {
            Fail(std::string(command->name) + ": unexpected '" +
                 options.operands[command->maxOperands] + "'");
        }
    }

    std::span<const std::string> mArgs;
    size_t mIndex = 0;
    SCliParse mResult;
};

} // namespace

const SCliCommandInfo* FindCliCommand(ECliCommand command_I) {
    for (const SCliCommandInfo& info : kCommands) {
        if (info.command == command_I) {
            return &info;
        }
    }
    return nullptr;
}

std::span<const SCliCommandInfo> CliCommands() {
    return kCommands;
}

const SCliCommandInfo* FindCliCommand(std::string_view name_I) {
    for (const SCliCommandInfo& info : kCommands) {
        if (name_I == info.name) {
            return &info;
        }
    }
    return nullptr;
}

SCliParse ParseCliArguments(std::span<const std::string> args_I) {
    return CParser(args_I).Run();
}

SDisplayConfigOptions MakeDisplayConfigOptions(const SCliOptions& options_I) {
    SDisplayConfigOptions config;
    if (!options_I.language.empty()) {
        // An unknown language leaves the user's own, silently, as on the desktop.
        LanguageProvider chosen(ToLower(options_I.language));
        if (chosen.mKnown) {
            config.language = chosen;
        }
    }
    // The command line changes a display's menu language only when told to.
    config.setOsdLanguage = !options_I.language.empty();
    config.refreshFacts = options_I.refresh;
    config.skipSerialMatch = options_I.skipSerialMatch;
    config.exitOnError = options_I.exitOnError;
    config.connectionMode = options_I.connectionMode;
    return config;
}

std::string CliUsageText() {
    std::ostringstream out;
    out << "Usage: paneltunectl [OPTION]... COMMAND [OPERAND]...\n"
           "Read and change the settings of the family's pen displays.\n\n"
           "Commands:\n";
    for (const SCliCommandInfo& info : kCommands) {
        std::string head = std::string(info.name) + " " + info.operands;
        head.resize(std::max<size_t>(head.size() + 1, 28), ' ');
        out << "  " << head << info.summary << "\n";
    }
    out << "\nOptions:\n"
           "  -d, --display N          use display N of the list (default 0)\n"
           "      --json               print machine-readable output\n"
           "      --simulate[=DESC]    use simulated displays (a default mix without DESC)\n"
           "      --mode MODE          channels to use: hid, video, ftdi or all (default)\n"
           "      --skip-serial-match  pair monitors and channels without serial numbers\n"
           "      --exit-on-error      stop discovery at the first display that fails\n"
           "      --language TAG       language of the names read from the resources, and of\n"
           "                           the menus of the displays that follow the program's\n"
           "      --refresh            read every display in full instead of trusting the\n"
           "                           facts kept in ~/.cache/paneltune\n"
           "      --debug              print trace lines on standard error\n"
           "  -h, --help               show this help, or a command's with COMMAND --help\n"
           "      --version            show the version\n\n"
           "Exit status: 0 done, 1 usage error, 2 no display or not offered,\n"
           "3 communication failure.\n";
    return out.str();
}

std::string CliCommandHelpText(const SCliCommandInfo& command_I) {
    std::ostringstream out;
    out << "Usage: paneltunectl [OPTION]... " << command_I.name;
    if (*command_I.operands != '\0') {
        out << " " << command_I.operands;
    }
    out << "\n" << command_I.summary << "\n";
    if (*command_I.details != '\0') {
        out << "\n" << command_I.details;
    }
    out << "\nThe options of 'paneltunectl --help' apply as well.\n";
    return out.str();
}

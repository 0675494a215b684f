#pragma once
// The command line of paneltunectl: GNU-style long options before or after one sub-command and
// its operands. Parsing never fails by throwing; a bad line yields the text to show the user.

#include "discovery/SDisplayConfigOptions.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum ECliExit : int {
    eCliExit_Done = 0,
    eCliExit_Usage = 1,
    eCliExit_NotOffered = 2, // no display, or the display does not offer what was asked
    eCliExit_Communication = 3,
};

enum class ECliCommand {
    eNone,
    eList,
    eGet,
    eSet,
    eSave,
    eFactoryReset,
    eResetColor,
    eConditionLcd,
    eGetVcp,
    eSetVcp,
    eCapabilities,
    eParseCaps,
    eEdid,
};

struct SCliCommandInfo {
    ECliCommand command;
    const char* name;
    const char* operands; // synopsis of the operands
    const char* summary;
    size_t minOperands;
    size_t maxOperands;
    bool needsPlatform;  // false for the commands that read only their operands
    const char* details; // the command's own options and notes, for its --help
};

// Every sub-command, in the order of the help text.
std::span<const SCliCommandInfo> CliCommands();
const SCliCommandInfo* FindCliCommand(std::string_view name_I);
// Null for eNone.
const SCliCommandInfo* FindCliCommand(ECliCommand command_I);

struct SCliOptions {
    ECliCommand command = ECliCommand::eNone;
    std::vector<std::string> operands;
    bool help = false;
    bool version = false;
    bool json = false;
    bool debug = false;
    bool timing = false;
    bool yes = false;
    bool save = false;
    int display = 0;
    // The simulated platform instead of the real one; without a description the default mix,
    // and an empty description gives no displays at all.
    bool simulate = false;
    std::optional<std::string> simulateDescription;
    // parse-caps: the EDID number whose model decides the quirks.
    uint16_t edidNumber = 0;
    std::string language;
    bool skipSerialMatch = false;
    bool exitOnError = false;
    // Reads every display in full and renews the kept facts.
    bool refresh = false;
    SConnectionMode connectionMode = eConnectionMode_All;
};

struct SCliParse {
    SCliOptions options;
    std::string error; // empty when the line is good
};

SCliParse ParseCliArguments(std::span<const std::string> args_I);

// The discovery options of a run, as the desktop program builds them.
SDisplayConfigOptions MakeDisplayConfigOptions(const SCliOptions& options_I);

std::string CliUsageText();
std::string CliCommandHelpText(const SCliCommandInfo& command_I);

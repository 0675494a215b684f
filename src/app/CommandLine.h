#pragma once
// The program's options, found by searching the whole command line with regular expressions:
// order is free, case is ignored, text around a match is ignored and unknown words pass.

#include "discovery/SDisplayConfigOptions.h"

#include <regex>
#include <string>
#include <vector>

struct SCommandLine {
    SDisplayConfigOptions options;
    bool help = false;
    // Start in the desktop's tray, without the window (/tray or --tray).
    bool tray = false;
    // Run on simulated displays instead of the system's; an empty description takes the
    // default mix.
    bool simulate = false;
    std::string simulation;
};

// One search of the command line; a fresh case-insensitive ECMAScript expression each call.
// The match refers into commandLine_I, which must outlive it.
std::wsmatch SearchCommandLine(const std::wstring& commandLine_I, const std::wstring& pattern_I);

// Runs the searches in their fixed order. A match of /debug turns gTraceEnabled on here.
SCommandLine ParseCommandLine(const std::wstring& commandLine_I);

// The raw command line of a POSIX start: the arguments after the program's name, joined by one
// blank each.
std::wstring JoinArguments(const std::vector<std::string>& arguments_I);

// The option box: English literals, never looked up in the string table.
extern const wchar_t* const kHelpTitle;
std::wstring HelpText();

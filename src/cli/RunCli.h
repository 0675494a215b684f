#pragma once
// The whole of paneltunectl behind main, so that it runs in-process as well: parses the
// arguments (without the program's name), runs the command and gives the exit status.
// Results go to out_IO, one-line errors to err_IO; trace lines go to err_IO with --debug and
// nowhere without.

#include "cli/CliOptions.h"
#include "discovery/IDisplayPlatform.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

// Makes the platform of a run; null, with the reason in error_O, when none can be made.
using CliPlatformFactory = std::function<std::shared_ptr<IDisplayPlatform>(
    const SCliOptions& options_I, std::string& error_O)>;

// Without a factory the platform is the one of cli/CliPlatform.h. terminal_I says whether a
// person answers in_IO, so that questions may be asked.
int RunCli(const std::vector<std::string>& args_I, std::istream& in_IO, std::ostream& out_IO,
           std::ostream& err_IO, const CliPlatformFactory& factory_I = {}, bool terminal_I = false);

// A debug output that drops every line: the program's own for its standard error, from before
// the first static object to the last.
void DropCliTrace(const char* text_I, size_t length_I);

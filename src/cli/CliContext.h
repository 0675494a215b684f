#pragma once
// What every command of paneltunectl writes to: standard output for results, standard error
// for its one-line errors, standard input for questions.

#include "cli/CliOptions.h"

#include <iosfwd>
#include <string>

struct SCliContext {
    const SCliOptions& options;
    std::istream& in;
    std::ostream& out;
    std::ostream& err;

    // Writes "paneltunectl: text" as one line on standard error and gives the exit status.
    int Fail(ECliExit exit_I, const std::string& text_I) const;
    // Asks a yes-or-no question on standard error, which keeps standard output for results;
    // only "y" or "yes" agree.
    bool Confirm(const std::string& question_I) const;
};

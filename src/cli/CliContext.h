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
    // Whether a person answers standard input: questions are asked only then.
    bool terminal = false;

    // Writes "paneltunectl: text" as one line on standard error and gives the exit status.
    int Fail(ECliExit exit_I, const std::string& text_I) const;
    // What cannot be taken back goes ahead with --yes, or when the person at the terminal
    // agrees. Without a terminal it is refused at once (a usage error) rather than waiting on
    // input no one types; declining gives eCliExit_Declined. eCliExit_Done means go ahead.
    int ConfirmUnlessYes(const std::string& question_I, const std::string& what_I) const;
};

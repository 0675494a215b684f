#include "cli/CliContext.h"

#include "foundation/StringUtilities.h"

#include <istream>
#include <ostream>

int SCliContext::Fail(ECliExit exit_I, const std::string& text_I) const {
    err << "paneltunectl: " << text_I << "\n";
    err.flush();
    return exit_I;
}

int SCliContext::ConfirmUnlessYes(const std::string& question_I, const std::string& what_I) const {
    if (options.yes) {
        return eCliExit_Done;
    }
    if (!terminal) {
        return Fail(eCliExit_Usage, what_I + " needs --yes when standard input is not a terminal");
    }
    // The question goes to standard error, which keeps standard output for results.
    err << question_I << " [y/N] ";
    err.flush();
    std::string answer;
    std::getline(in, answer);
    while (!answer.empty() && (answer.back() == '\r' || answer.back() == ' ')) {
        answer.pop_back();
    }
    answer = ToLower(answer);
    if (answer == "y" || answer == "yes") {
        return eCliExit_Done;
    }
    return Fail(eCliExit_Declined, what_I + " not confirmed");
}

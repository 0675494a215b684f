#include "cli/CliContext.h"

#include "foundation/StringUtilities.h"

#include <istream>
#include <ostream>

int SCliContext::Fail(ECliExit exit_I, const std::string& text_I) const {
    err << "paneltunectl: " << text_I << "\n";
    err.flush();
    return exit_I;
}

bool SCliContext::Confirm(const std::string& question_I) const {
    err << question_I << " [y/N] ";
    err.flush();
    std::string answer;
    std::getline(in, answer);
    while (!answer.empty() && (answer.back() == '\r' || answer.back() == ' ')) {
        answer.pop_back();
    }
    answer = ToLower(answer);
    return answer == "y" || answer == "yes";
}

#include "cli/RunCli.h"
#include "foundation/TraceSink.h"

#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

// Static objects of the lower layers trace as they are built and destroyed; this one is built
// before them and never undone, so the user's standard error holds only the program's errors.
struct SQuietStart {
    SQuietStart() { SetDebugOutputSink(&DropCliTrace); }
};
__attribute__((init_priority(101))) SQuietStart gQuietStart;

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    const bool terminal = isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
    return RunCli(args, std::cin, std::cout, std::cerr, {}, terminal);
}

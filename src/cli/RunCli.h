#pragma once
// The whole of paneltunectl behind main, so that it runs in-process as well: parses the
// arguments (without the program's name), runs the command and gives the exit status.
// Results go to out_IO, one-line errors to err_IO; trace lines go to err_IO with --debug and
// nowhere without.

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

int RunCli(const std::vector<std::string>& args_I, std::istream& in_IO, std::ostream& out_IO,
           std::ostream& err_IO);

// A debug output that drops every line: the program's own for its standard error, from before
// the first static object to the last.
void DropCliTrace(const char* text_I, size_t length_I);

#pragma once
// Where every trace line goes first: the stand-in for the system's debug output.

#include <cstddef>

// Writes the text to standard error in one system call, so lines of threads do not mix.
void WriteDebugOutput(const char* text, size_t length);

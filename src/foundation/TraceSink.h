#pragma once
// Where every trace line goes first: the stand-in for the system's debug output.

#include <cstddef>

// Writes the text to standard error in one system call, so lines of threads do not mix.
void WriteDebugOutput(const char* text, size_t length);

// Receives a copy of every trace line after the debug output has it. Tests use it to follow
// the lines of several threads as they come; null removes the observer.
using TraceObserver = void (*)(const char* text, size_t length);
void SetTraceObserver(TraceObserver observer);

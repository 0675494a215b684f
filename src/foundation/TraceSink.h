#pragma once
// Where every trace line goes first: the stand-in for the system's debug output.

#include <cstddef>

// Writes the text to standard error in one system call, so lines of threads do not mix.
void WriteDebugOutput(const char* text, size_t length);

// Receives a copy of every trace line after the debug output has it. Tests use it to follow
// the lines of several threads as they come; null removes the observer.
using TraceObserver = void (*)(const char* text, size_t length);
void SetTraceObserver(TraceObserver observer);

// Takes the place of the debug output for the whole process, for a program whose standard error
// belongs to its user; the observer and the trace file still see every line. Null restores
// standard error. Returns the sink it replaces.
using DebugOutputSink = void (*)(const char* text, size_t length);
DebugOutputSink SetDebugOutputSink(DebugOutputSink sink);

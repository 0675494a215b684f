#pragma once
// The one diagnostic channel of the program: printf-style trace lines and assertions that
// never stop the program.

#include <atomic>

// Switch of the verbose lines; /debug sets it. Read by every thread that traces, so atomic.
extern std::atomic<bool> gTraceEnabled;
// Nothing in the product sets it; a developer build does by hand.
extern bool gAssertsEnabled;

// Formats and writes one line to standard error in a single write, then to the trace file when
// one is open (foundation/TraceFile.h). "%S" prints a wide string. Returns the number of
// characters written, or -1 when formatting fails. Safe from any thread and during static
// initialisation.
int Trace(const char* format, ...) __attribute__((format(printf, 1, 2)));

// The same for a line of the debug category: timer lines, byte dumps and lock lifetimes. It is
// written only while gTraceEnabled, so that a program's standard error stays quiet without
// /debug; warnings and errors go through Trace. Returns 0 when the line is left out.
int TraceDebug(const char* format, ...) __attribute__((format(printf, 1, 2)));

// A failed check prints one line when asserts are enabled; execution always goes on, so the
// code after a check must stand for the failing case. Costs one flag test when disabled.
#define VRX_ASSERT(condition)                                                                      \
    do {                                                                                           \
        if (gAssertsEnabled && !(condition)) {                                                     \
            Trace("Assert:(%s) in %s at %i\n", #condition, __FILE__, __LINE__);                    \
        }                                                                                          \
    } while (0)

// For a branch that must not be reached: the quoted sentence is the assertion's text.
#define VRX_ASSERT_NOT_REACHED(sentence)                                                           \
    do {                                                                                           \
        if (gAssertsEnabled) {                                                                     \
            Trace("Assert:(%s) in %s at %i\n", #sentence, __FILE__, __LINE__);                     \
        }                                                                                          \
    } while (0)

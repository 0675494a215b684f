#pragma once
// What the trace needs to know about the running process: ids, local time, names.

#include <cstdint>
#include <string>

// Local wall-clock time broken into fields, as the trace file prefix and names use it.
struct SLocalTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

uint32_t CurrentProcessId();
// The system's id of the calling thread (what a debugger shows), not std::thread::id.
uint32_t CurrentThreadId();
SLocalTime LocalTimeNow();
// File name of the running executable, without its folder.
std::wstring RunningModuleName();
// Name and release of the operating system, for the trace file's banner.
std::string OperatingSystemName();
// The folder of trace files: Vorex/Logs under the user's state folder ($XDG_STATE_HOME, else
// ~/.local/state). Empty when neither is known.
std::wstring TraceFileFolder();

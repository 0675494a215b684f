#include "foundation/TraceFile.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>

std::wstring gTraceFilePath;

namespace {
// Written and read only under gTraceLock; closed by its static destructor at exit.
std::ofstream gTraceStream;

// A copy of the trace lock, silenced first: a lock that traced its contention here would call
// Trace from inside Trace.
std::shared_ptr<CVrxSemaphore> TraceLockForUse() {
    std::shared_ptr<CVrxSemaphore> lock = gTraceLock;
    if (lock) {
        lock->StopTracing();
    }
    return lock;
}
} // namespace

std::shared_ptr<CVrxSemaphore> gTraceLock = CreateVrxSemaphore("PanelTunedebug");

std::wstring BuildTraceFileName(const std::wstring& baseName, bool addTimeStamp,
                                const std::wstring& suffix, bool addProcessId,
                                const SLocalTime& time, uint32_t processId) {
    std::wostringstream name;
    name << baseName << std::setfill(L'0');
    if (addTimeStamp) {
        name << L"-" << std::setw(2) << time.month << L"-" << std::setw(2) << time.day << L"-"
             << time.year << L"-at-" << std::setw(2) << time.hour << std::setw(2) << time.minute;
    }
    if (!suffix.empty()) {
        name << L"-" << suffix;
    }
    if (addProcessId) {
        name << L"-pid-" << processId;
    }
    name << L".txt";
    return name.str();
}

std::wstring BuildTraceFileName(const std::wstring& baseName, bool addTimeStamp,
                                const std::wstring& suffix, bool addProcessId) {
    return BuildTraceFileName(baseName, addTimeStamp, suffix, addProcessId, LocalTimeNow(),
                              CurrentProcessId());
}

std::string FormatTracePrefix(const SLocalTime& time, uint32_t processId, uint32_t threadId) {
    char prefix[64];
    std::snprintf(prefix, sizeof prefix, "%04d%02d%02d,%02d:%02d:%02d.%03d -- %05u/%05u -- ",
                  time.year, time.month, time.day, time.hour, time.minute, time.second,
                  time.millisecond, processId, threadId);
    return prefix;
}

void OpenTraceFile() {
    {
        CVrxSemaphoreHold hold(TraceLockForUse());
        if (gTraceStream.is_open()) {
            gTraceStream.flush();
            gTraceStream.close();
        }
        if (gTraceFilePath.empty()) {
            return;
        }
        const std::filesystem::path path(ToNarrow(gTraceFilePath));
        std::error_code ignored;
        if (path.has_parent_path()) {
            std::filesystem::create_directories(path.parent_path(), ignored);
        }
        gTraceStream.clear();
        gTraceStream.open(path, std::ios::out | std::ios::app);
        if (!gTraceStream.is_open()) {
            return;
        }
    }
    const SLocalTime now = LocalTimeNow();
    Trace("Sending trace to file %S\n", gTraceFilePath.c_str());
    Trace("%S %s %i/%i/%i %i:%i\n", RunningModuleName().c_str(), PANELTUNE_VERSION_TEXT, now.month,
          now.day, now.year, now.hour, now.minute);
    Trace("Windows OS: %s\n", OperatingSystemName().c_str());
}

bool IsTraceFileOpen() {
    CVrxSemaphoreHold hold(TraceLockForUse());
    return gTraceStream.is_open();
}

void WriteTraceFile(const char* text, size_t length) {
    if (gTraceFilePath.empty()) {
        return;
    }
    CVrxSemaphoreHold hold(TraceLockForUse());
    if (!gTraceStream.is_open()) {
        return;
    }
    const std::string prefix =
        FormatTracePrefix(LocalTimeNow(), CurrentProcessId(), CurrentThreadId());
    gTraceStream.write(prefix.data(), static_cast<std::streamsize>(prefix.size()));
    gTraceStream.write(text, static_cast<std::streamsize>(length));
    gTraceStream.flush();
}

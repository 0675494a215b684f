#pragma once
// The optional file sink of the trace. Set gTraceFilePath and call OpenTraceFile to copy every
// trace line, with a time and thread prefix, into a file; an empty path leaves the sink unused.

#include "foundation/CVrxSemaphore.h"
#include "foundation/ProcessInfo.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// Non-empty means that the file sink is in use.
extern std::wstring gTraceFilePath;
// Orders the writes of the file sink; named "PanelTunedebug".
extern std::shared_ptr<CVrxSemaphore> gTraceLock;

// baseName, then "-MM-DD-YYYY-at-HHMM" when addTimeStamp, "-" suffix when there is one,
// "-pid-<id>" when addProcessId, then ".txt".
std::wstring BuildTraceFileName(const std::wstring& baseName, bool addTimeStamp,
                                const std::wstring& suffix, bool addProcessId);
std::wstring BuildTraceFileName(const std::wstring& baseName, bool addTimeStamp,
                                const std::wstring& suffix, bool addProcessId,
                                const SLocalTime& time, uint32_t processId);

// "20260115,09:30:05.042 -- 01234/05678 -- ".
std::string FormatTracePrefix(const SLocalTime& time, uint32_t processId, uint32_t threadId);

// Closes the sink and, when gTraceFilePath is set, creates its folders, opens it for append and
// traces a banner. A file that can't be opened leaves the sink closed.
void OpenTraceFile();
bool IsTraceFileOpen();

// Copies one formatted trace line into the open file; Trace calls it.
void WriteTraceFile(const char* text, size_t length);

#pragma once
// Collects trace lines from every thread while it lives, for tests that must see a line
// before they go on.

#include "foundation/Trace.h"
#include "foundation/TraceSink.h"

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

// Shows the debug lines while it lives.
class CDebugLinesOn {
public:
    CDebugLinesOn() : mWas(gTraceEnabled.exchange(true)) {}
    ~CDebugLinesOn() { gTraceEnabled = mWas; }
    CDebugLinesOn(const CDebugLinesOn&) = delete;
    CDebugLinesOn& operator=(const CDebugLinesOn&) = delete;

private:
    bool mWas;
};

class CTraceCapture {
public:
    CTraceCapture() {
        {
            std::lock_guard<std::mutex> hold(sLock);
            sText.clear();
        }
        SetTraceObserver(&Append);
    }
    ~CTraceCapture() { SetTraceObserver(nullptr); }
    CTraceCapture(const CTraceCapture&) = delete;
    CTraceCapture& operator=(const CTraceCapture&) = delete;

    std::string Lines() const {
        std::lock_guard<std::mutex> hold(sLock);
        return sText;
    }
    bool Contains(const std::string& part) const { return Lines().find(part) != std::string::npos; }
    // Yields until a line holds the part; the line is due from a thread that is running.
    void WaitFor(const std::string& part) const {
        while (!Contains(part)) {
            std::this_thread::yield();
        }
    }

private:
    static void Append(const char* text, size_t length) {
        std::lock_guard<std::mutex> hold(sLock);
        sText.append(text, length);
    }
    static inline std::mutex sLock;
    static inline std::string sText;
};

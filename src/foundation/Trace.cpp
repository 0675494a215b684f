#include "foundation/Trace.h"

#include "foundation/TraceFile.h"
#include "foundation/TraceSink.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <new>

std::atomic<bool> gTraceEnabled{false};
bool gAssertsEnabled = false;

namespace {
std::atomic<TraceObserver> gTraceObserver{nullptr};
std::atomic<DebugOutputSink> gDebugOutputSink{nullptr};

int TraceList(const char* format, va_list args) {
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (length < 0) {
        return -1;
    }
    std::unique_ptr<char[]> buffer(new (std::nothrow) char[static_cast<size_t>(length) + 1]());
    if (!buffer) {
        return -1;
    }
    std::vsnprintf(buffer.get(), static_cast<size_t>(length) + 1, format, args);
    if (const DebugOutputSink sink = gDebugOutputSink.load()) {
        sink(buffer.get(), static_cast<size_t>(length));
    } else {
        WriteDebugOutput(buffer.get(), static_cast<size_t>(length));
    }
    if (const TraceObserver observer = gTraceObserver.load()) {
        observer(buffer.get(), static_cast<size_t>(length));
    }
    WriteTraceFile(buffer.get(), static_cast<size_t>(length));
    return length;
}

} // namespace

DebugOutputSink SetDebugOutputSink(DebugOutputSink sink) {
    return gDebugOutputSink.exchange(sink);
}

void SetTraceObserver(TraceObserver observer) {
    gTraceObserver.store(observer);
}

int Trace(const char* format, ...) {
    va_list args;
    va_start(args, format);
    const int length = TraceList(format, args);
    va_end(args);
    return length;
}

int TraceDebug(const char* format, ...) {
    if (!gTraceEnabled.load(std::memory_order_relaxed)) {
        return 0;
    }
    va_list args;
    va_start(args, format);
    const int length = TraceList(format, args);
    va_end(args);
    return length;
}

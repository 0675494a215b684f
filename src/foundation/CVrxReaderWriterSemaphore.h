#pragma once
// The in-process reader/writer lock: many readers or one writer. Read requests count per
// thread, and a thread that holds the write side may also read without blocking itself.

#include <atomic>
#include <memory>
#include <string>

class CVrxReaderWriterSemaphore {
public:
    virtual ~CVrxReaderWriterSemaphore() = default;
    virtual int ReadRequest() = 0;
    virtual int ReadRelease() = 0;
    virtual int WriteRequest() = 0;
    virtual int WriteRelease() = 0;

    void StopTracing() { mTrace.store(false, std::memory_order_relaxed); }
    bool IsTracing() const { return mTrace.load(std::memory_order_relaxed); }

private:
    std::atomic<bool> mTrace{true};
};

// Traces "ReaderWriterSemaphore <name> <address> create <thread>".
std::shared_ptr<CVrxReaderWriterSemaphore>
CreateVrxReaderWriterSemaphore(const std::string& name_I);

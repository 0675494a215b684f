#include "TraceCapture.h"
#include "foundation/CVrxReaderWriterSemaphore.h"
#include "foundation/CVrxSemaphore.h"
#include "foundation/ProcessInfo.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <thread>

namespace {

std::string Address(const void* object) {
    char text[32];
    std::snprintf(text, sizeof text, "%p", object);
    return text;
}

} // namespace

TEST(VrxSemaphore, RecursiveAndSilentWithoutContention) {
    const CDebugLinesOn debug;
    CTraceCapture capture;
    auto lock = CreateVrxSemaphore("unit");
    const std::string me = std::to_string(CurrentThreadId());
    const std::string at = Address(lock.get());
    EXPECT_EQ(capture.Lines(), "Semaphore unit " + at + " create " + me + "\n");

    EXPECT_EQ(lock->Request(), 0);
    EXPECT_EQ(lock->Request(), 0);
    EXPECT_EQ(lock->Release(), 0);
    EXPECT_EQ(lock->Release(), 0);
    // Released fully: another thread takes it without waiting.
    std::thread other([&] {
        lock->Request();
        lock->Release();
    });
    other.join();
    EXPECT_EQ(capture.Lines(), "Semaphore unit " + at + " create " + me + "\n");

    lock.reset();
    EXPECT_TRUE(capture.Contains("Semaphore " + at + " destroy " + me + "\n"));
}

TEST(VrxSemaphore, ContentionTracesTheOwnerAndTheTaking) {
    auto lock = CreateVrxSemaphore("contended");
    CTraceCapture capture;
    const std::string at = Address(lock.get());
    const std::string me = std::to_string(CurrentThreadId());

    lock->Request();
    lock->Request();
    std::atomic<uint32_t> otherId{0};
    std::thread other([&] {
        otherId = CurrentThreadId();
        lock->Request();
        lock->Release();
    });
    capture.WaitFor(" owned (");
    lock->Release();
    EXPECT_FALSE(capture.Contains(" taken\n"));
    lock->Release();
    other.join();

    const std::string them = std::to_string(otherId.load());
    EXPECT_EQ(capture.Lines(), "Semaphore " + at + " request " + them + " owned (" + me + ")\n" +
                                   "Semaphore " + at + " request " + them + " taken\n");
}

TEST(VrxReaderWriterSemaphore, WriterReadsWithoutBlockingAndKeepsItsReadSide) {
    auto lock = CreateVrxReaderWriterSemaphore("rw");
    CTraceCapture capture;
    const std::string at = Address(lock.get());

    lock->WriteRequest();
    lock->ReadRequest();
    lock->ReadRequest();
    lock->WriteRelease();
    EXPECT_EQ(capture.Lines(), "");

    // The read side survives the write release: a writer elsewhere waits for both reads.
    std::atomic<bool> wrote{false};
    std::thread writer([&] {
        lock->WriteRequest();
        wrote = true;
        lock->WriteRelease();
    });
    capture.WaitFor(" writerequest ");
    lock->ReadRelease();
    EXPECT_FALSE(wrote);
    lock->ReadRelease();
    writer.join();
    EXPECT_TRUE(wrote);
    // Readers share.
    lock->ReadRequest();
    std::thread reader([&] {
        lock->ReadRequest();
        lock->ReadRelease();
    });
    reader.join();
    lock->ReadRelease();
}

TEST(VrxReaderWriterSemaphore, ReleaseFromAnotherThreadIsTracedAndDone) {
    auto lock = CreateVrxReaderWriterSemaphore("handover");
    CTraceCapture capture;
    lock->WriteRequest();
    const std::string owner = std::to_string(CurrentThreadId());
    std::atomic<uint32_t> otherId{0};
    std::thread other([&] {
        otherId = CurrentThreadId();
        lock->WriteRelease();
    });
    other.join();
    EXPECT_EQ(capture.Lines(), "ReaderWriterSemaphore " + Address(lock.get()) +
                                   " release from non-aquired thread " +
                                   std::to_string(otherId.load()) + " (" + owner + ")\n");
    // Released: the write side is free again.
    std::thread taker([&] {
        lock->WriteRequest();
        lock->WriteRelease();
    });
    taker.join();
}

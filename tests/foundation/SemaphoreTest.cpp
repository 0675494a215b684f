#include "TraceCapture.h"
#include "foundation/CVrxReaderWriterSemaphore.h"
#include "foundation/CVrxSemaphore.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

TEST(VrxSemaphore, RecursiveOwnerHoldsItUntilTheLastRelease) {
    auto lock = CreateVrxSemaphore("contended");
    CTraceCapture capture;
    EXPECT_EQ(lock->Request(), 0);
    EXPECT_EQ(lock->Request(), 0);
    std::atomic<bool> taken{false};
    std::thread other([&] {
        lock->Request();
        taken = true;
        lock->Release();
    });
    capture.WaitFor(" owned (");
    EXPECT_EQ(lock->Release(), 0);
    EXPECT_FALSE(taken);
    EXPECT_FALSE(capture.Contains(" taken\n"));
    EXPECT_EQ(lock->Release(), 0);
    other.join();
    EXPECT_TRUE(taken);
}

TEST(VrxReaderWriterSemaphore, WriterReadsWithoutBlockingAndKeepsItsReadSide) {
    auto lock = CreateVrxReaderWriterSemaphore("rw");
    CTraceCapture capture;
    lock->WriteRequest();
    lock->ReadRequest();
    lock->ReadRequest();
    lock->WriteRelease();
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
    std::thread other([&] { lock->WriteRelease(); });
    other.join();
    EXPECT_TRUE(capture.Contains(" release from non-aquired thread "));
    std::thread taker([&] {
        lock->WriteRequest();
        lock->WriteRelease();
    });
    taker.join();
}

#include "foundation/CSignalEvent.h"
#include "foundation/CSignalMutex.h"
#include "foundation/CSignalSemaphore.h"
#include "foundation/CSignalThread.h"
#include "foundation/CWaitMulti.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <thread>

using namespace WinUtils;

namespace {

constexpr double kForever = std::numeric_limits<double>::infinity();

uint32_t WaitForGo(void* context) {
    static_cast<CSignalEvent*>(context)->WaitFor(kForever);
    return 0;
}

} // namespace

TEST(WaitHandle, SecondsBecomeTruncatedMilliseconds) {
    const struct {
        double seconds;
        uint32_t milliseconds;
    } cases[] = {
        {0.0, 0},          {0.0015, 1},           {1.9999, 1999}, {5.05, 5050},          {-1.0, 0},
        {std::nan(""), 0}, {kForever, kInfinite}, {-kForever, 0}, {1e12, kInfinite - 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(WaitMilliseconds(c.seconds), c.milliseconds) << c.seconds;
    }
}

TEST(WaitHandle, ThreadSignalsWhenItsRoutineEnds) {
    CSignalEvent go;
    go.Create(true, false);
    CSignalThread thread;
    ASSERT_TRUE(thread.Create(&WaitForGo, "WaitForGo", &go));
    EXPECT_EQ(thread.MsgWaitFor(0), "Timeout");
    go.Set();
    EXPECT_TRUE(thread.WaitFor(30.0));
    EXPECT_EQ(thread.MsgWaitFor(0), "Event");
}

TEST(WaitHandle, EventsResetByHandOrByTheWait) {
    const struct {
        bool manual;
        bool initial;
        bool firstWait;
        bool secondWait;
    } cases[] = {
        {true, true, true, true},
        {true, false, false, false},
        {false, true, true, false},
        {false, false, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.manual) + std::to_string(c.initial));
        CSignalEvent event;
        ASSERT_TRUE(event.Create(c.manual, c.initial));
        EXPECT_EQ(event.WaitFor(0), c.firstWait);
        EXPECT_EQ(event.WaitFor(0), c.secondWait);
        event.Set();
        EXPECT_EQ(event.MsgWaitFor(0), "Event");
        EXPECT_EQ(event.WaitFor(0), c.manual);
        event.Reset();
        EXPECT_FALSE(event.WaitFor(0));
    }
}

TEST(WaitHandle, MutexIsRecursiveForItsOwnerOnly) {
    CSignalMutex mutex(L"PanelTune.mutex");
    ASSERT_TRUE(mutex.Create(true));
    EXPECT_TRUE(mutex.WaitFor(0));
    auto rival = [](double seconds) {
        bool took = false;
        std::thread([&] {
            CSignalMutex theirs(L"PanelTune.mutex");
            took = theirs.WaitFor(seconds);
            theirs.Release();
        }).join();
        return took;
    };
    EXPECT_FALSE(rival(0));
    EXPECT_TRUE(mutex.Release());
    EXPECT_FALSE(rival(0)) << "held once more";
    EXPECT_TRUE(mutex.Release());
    EXPECT_FALSE(mutex.Release());
    EXPECT_EQ(mutex.LastError(), kErrorNotOwner);
    EXPECT_TRUE(rival(30.0));
}

TEST(WaitHandle, SemaphoreCountsWaitsAndReleases) {
    CSignalSemaphore semaphore;
    ASSERT_TRUE(semaphore.Create(1, 2));
    EXPECT_TRUE(semaphore.WaitFor(0));
    EXPECT_FALSE(semaphore.WaitFor(0));
    EXPECT_TRUE(semaphore.Release(2));
    EXPECT_FALSE(semaphore.Release(1));
    EXPECT_EQ(semaphore.LastError(), kErrorTooManyPosts);
    EXPECT_TRUE(semaphore.WaitFor(0));
    EXPECT_TRUE(semaphore.WaitFor(0));
    EXPECT_FALSE(semaphore.WaitFor(0));
    CSignalSemaphore bad;
    EXPECT_FALSE(bad.Create(3, 2));
}

TEST(WaitHandle, MultiWaitAnswersWithTheLabel) {
    auto first = std::make_shared<CSignalEvent>();
    auto second = std::make_shared<CSignalEvent>();
    first->Create(true, false);
    second->Create(true, false);
    CWaitMulti multi;
    multi.Add(first, "first");
    multi.Add(second, "second");

    EXPECT_EQ(multi.WaitFor(0, false), "Timeout");
    second->Set();
    EXPECT_EQ(multi.WaitFor(0, false), "second");
    EXPECT_EQ(multi.WaitFor(0, true), "Timeout");
    first->Set();
    EXPECT_EQ(multi.MsgWaitFor(0, true), "first");
}

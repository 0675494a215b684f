#include "app/CDisplayWorker.h"

#include "DialogHarness.h"

#include <QThread>

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

namespace {

struct SPost {
    int key;
    int value;
};

struct SCoalescingCase {
    const char* name;
    // Posted while the first job (key 0, value 0) holds the wire.
    std::vector<SPost> posts;
    std::vector<int> ran;
};

// A slow display: the first job waits on a gate until every other job is posted, as a write on
// a slow channel does while a slider drag goes on.
TEST(CDisplayWorkerTest, WhileAJobIsOnTheWireOnlyTheLatestOfAKeyWaits) {
    TestApplication();
    const SCoalescingCase cases[] = {
        {"a drag keeps only its last value", {{0, 1}, {0, 2}, {0, 3}}, {0, 3}},
        {"other keys keep their order", {{1, 10}, {0, 1}, {1, 11}}, {0, 10, 1, 11}},
        {"a value behind another key is not moved ahead", {{0, 1}, {1, 10}, {0, 2}}, {0, 1, 10, 2}},
        {"jobs without a key never merge",
         {{CDisplayWorker::kNoCoalescing, 5}, {CDisplayWorker::kNoCoalescing, 6}},
         {0, 5, 6}},
    };
    for (const SCoalescingCase& c : cases) {
        CDisplayWorker worker;
        std::vector<int> ran;
        std::vector<int> done;
        std::promise<void> gate;
        std::shared_future<void> open = gate.get_future().share();
        std::promise<void> started;
        const QThread* guiThread = QThread::currentThread();
        bool doneOnGuiThread = true;
        auto post = [&](int key, int value, bool wait) {
            worker.Post(
                [&ran, &started, value, wait, open] {
                    if (wait) {
                        started.set_value();
                        open.wait();
                    }
                    ran.push_back(value);
                },
                [&, value] {
                    done.push_back(value);
                    doneOnGuiThread = doneOnGuiThread && QThread::currentThread() == guiThread;
                },
                key);
        };
        post(0, 0, true);
        started.get_future().wait();
        for (const SPost& p : c.posts) {
            post(p.key, p.value, false);
        }
        EXPECT_FALSE(worker.Idle()) << c.name;
        gate.set_value();
        worker.WaitIdle();
        EXPECT_TRUE(worker.Idle()) << c.name;
        EXPECT_EQ(ran, c.ran) << c.name;
        EXPECT_EQ(done, c.ran) << c.name;
        EXPECT_TRUE(doneOnGuiThread) << c.name;
    }
}

} // namespace

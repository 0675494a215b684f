#include "foundation/ThreadName.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <string>
#include <thread>

TEST(ThreadName, LongNamesAreCutToWhatTheSystemKeeps) {
    struct SCase {
        std::string name;
        std::string kept;
    };
    const SCase cases[] = {
        {"DisplayConfig", "DisplayConfig"},
        {"CMainDialog::DisplayConfigThread", "CMainDialog::Di"},
    };
    for (const SCase& c : cases) {
        std::string kept;
        bool named = false;
        std::thread worker([&] {
            named = SetCurrentThreadName(c.name);
            char buffer[32] = {};
            pthread_getname_np(pthread_self(), buffer, sizeof buffer);
            kept = buffer;
        });
        worker.join();
        EXPECT_TRUE(named);
        EXPECT_EQ(kept, c.kept);
    }
}

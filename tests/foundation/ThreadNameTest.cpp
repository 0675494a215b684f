#include "foundation/ThreadName.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <string>
#include <thread>

TEST(ThreadName, LongNamesAreCutToWhatTheSystemKeeps) {
    for (const std::string name : {"CMainDialog::Di", "CMainDialog::DisplayConfigThread"}) {
        std::string kept;
        bool named = false;
        std::thread([&] {
            named = SetCurrentThreadName(name);
            char buffer[32] = {};
            pthread_getname_np(pthread_self(), buffer, sizeof buffer);
            kept = buffer;
        }).join();
        EXPECT_TRUE(named) << name;
        EXPECT_EQ(kept, "CMainDialog::Di");
    }
}

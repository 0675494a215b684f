#pragma once
// Runs paneltunectl in-process under a virtual clock and keeps the simulated platform of the
// run, so that a test can look at the displays afterwards or prepare them before discovery.

#include "cli/CliPlatform.h"
#include "cli/RunCli.h"
#include "foundation/VirtualClock.h"
#include "platform/sim/CSimulatedPlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

struct SCliRun {
    int exit = -1;
    std::string out;
    std::string err;
};

class CliTest : public ::testing::Test {
protected:
    // Each test keeps the displays' facts in a cache folder of its own.
    CliTest() {
        char folder[] = "/tmp/paneltune-cli-XXXXXX";
        mCacheHome = mkdtemp(folder) ? folder : "";
        setenv("XDG_CACHE_HOME", mCacheHome.c_str(), 1);
    }
    ~CliTest() override {
        unsetenv("XDG_CACHE_HOME");
        std::error_code ignored;
        std::filesystem::remove_all(mCacheHome, ignored);
    }

    SCliRun Run(const std::vector<std::string>& args_I, const std::string& input_I = "") {
        std::istringstream in(input_I);
        std::ostringstream out;
        std::ostringstream err;
        SCliRun run;
        run.exit =
            RunCli(args_I, in, out, err, [&](const SCliOptions& options_I, std::string& error_O) {
                auto platform = MakeCliPlatform(options_I, error_O);
                mPlatform = std::dynamic_pointer_cast<CSimulatedPlatform>(platform);
                if (mPlatform && mPrepare) {
                    mPrepare(*mPlatform);
                }
                return platform;
            });
        run.out = out.str();
        run.err = err.str();
        return run;
    }

    CSimDisplay& Sim(size_t index_I = 0) { return mPlatform->Display(index_I); }

    std::string mCacheHome;
    CScopedVirtualClock mClock;
    std::shared_ptr<CSimulatedPlatform> mPlatform;
    // Runs on the displays before discovery.
    std::function<void(CSimulatedPlatform&)> mPrepare;
};

// One line that names the program: how every failure is reported.
inline bool IsOneErrorLine(const std::string& err_I) {
    return err_I.starts_with("paneltunectl: ") && err_I.find('\n') == err_I.size() - 1;
}

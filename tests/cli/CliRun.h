#pragma once
// Runs paneltunectl in-process under a virtual clock and keeps the simulated platform of the
// run, so that a test can look at the displays afterwards or prepare them before discovery.

#include "cli/CliPlatform.h"
#include "cli/RunCli.h"
#include "foundation/VirtualClock.h"
#include "platform/sim/CSimulatedPlatform.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
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
    // Each test keeps the displays' facts and the profiles in folders of its own.
    CliTest() {
        char folder[] = "/tmp/paneltune-cli-XXXXXX";
        mHome = mkdtemp(folder) ? folder : "";
        mCacheHome = mHome + "/cache";
        setenv("XDG_CACHE_HOME", mCacheHome.c_str(), 1);
        setenv("XDG_CONFIG_HOME", (mHome + "/config").c_str(), 1);
    }
    ~CliTest() override {
        unsetenv("XDG_CACHE_HOME");
        unsetenv("XDG_CONFIG_HOME");
        std::error_code ignored;
        std::filesystem::remove_all(mHome, ignored);
    }

    SCliRun Run(const std::vector<std::string>& args_I, const std::string& input_I = "") {
        std::istringstream in(input_I);
        std::ostringstream out;
        std::ostringstream err;
        SCliRun run;
        run.exit = RunCli(
            args_I, in, out, err,
            [&](const SCliOptions& options_I, std::string& error_O) {
                if (mKeepDisplays && mPlatform) {
                    return std::shared_ptr<IDisplayPlatform>(mPlatform);
                }
                auto platform = MakeCliPlatform(options_I, error_O);
                mPlatform = std::dynamic_pointer_cast<CSimulatedPlatform>(platform);
                if (mPlatform && mPrepare) {
                    mPrepare(*mPlatform);
                }
                return platform;
            },
            mTerminal);
        run.out = out.str();
        run.err = err.str();
        return run;
    }

    CSimDisplay& Sim(size_t index_I = 0) { return mPlatform->Display(index_I); }

    std::string mHome;
    std::string mCacheHome;
    CScopedVirtualClock mClock;
    std::shared_ptr<CSimulatedPlatform> mPlatform;
    // Every run after the first finds the same simulated displays, as a real desktop would.
    bool mKeepDisplays = false;
    // Runs on the displays before discovery.
    std::function<void(CSimulatedPlatform&)> mPrepare;
    // Whether a person answers standard input.
    bool mTerminal = false;
};

// One line that names the program: how every failure is reported.
inline bool IsOneErrorLine(const std::string& err_I) {
    return err_I.starts_with("paneltunectl: ") && err_I.find('\n') == err_I.size() - 1;
}

using Json = nlohmann::json;

// What paneltunectl printed with --json, or null (and a failure) when it is no JSON.
inline Json ParseOut(const std::string& out_I) {
    Json json = Json::parse(out_I, nullptr, false);
    EXPECT_FALSE(json.is_discarded()) << out_I;
    return json.is_discarded() ? Json() : json;
}

// One setting of `get --json`, or null.
inline Json Setting(const std::string& out_I, const std::string& name_I) {
    const Json get = ParseOut(out_I);
    for (const Json& setting : get.value("settings", Json::array())) {
        if (setting["name"] == name_I) {
            return setting;
        }
    }
    return Json();
}

inline std::string ReadText(const std::filesystem::path& path_I) {
    std::ifstream file(path_I, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::string WriteText(const std::filesystem::path& path_I, const std::string& text_I) {
    std::ofstream(path_I, std::ios::binary | std::ios::trunc) << text_I;
    return path_I.string();
}

#include "foundation/TraceFile.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

namespace {

class CEnvironment {
public:
    CEnvironment(const char* name, const char* value) : mName(name) {
        if (const char* old = std::getenv(name)) {
            mOld = old;
            mHad = true;
        }
        if (value != nullptr) {
            ::setenv(name, value, 1);
        } else {
            ::unsetenv(name);
        }
    }
    ~CEnvironment() {
        if (mHad) {
            ::setenv(mName.c_str(), mOld.c_str(), 1);
        } else {
            ::unsetenv(mName.c_str());
        }
    }

private:
    std::string mName;
    std::string mOld;
    bool mHad = false;
};

} // namespace

TEST(TraceFile, PrefixAndFileNames) {
    const SLocalTime time{2026, 1, 15, 9, 30, 5, 42};
    EXPECT_EQ(FormatTracePrefix(time, 1234, 5678), "20260115,09:30:05.042 -- 01234/05678 -- ");
    EXPECT_EQ(FormatTracePrefix(time, 1234567, 5), "20260115,09:30:05.042 -- 1234567/00005 -- ");

    struct SCase {
        bool stamp;
        std::wstring suffix;
        bool pid;
        std::wstring name;
    };
    const SCase cases[] = {
        {false, L"", false, L"PanelTune.txt"},
        {true, L"", false, L"PanelTune-01-15-2026-at-0930.txt"},
        {false, L"gui", true, L"PanelTune-gui-pid-77.txt"},
        {true, L"x", true, L"PanelTune-01-15-2026-at-0930-x-pid-77.txt"},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(BuildTraceFileName(L"PanelTune", c.stamp, c.suffix, c.pid, time, 77), c.name);
    }
}

TEST(TraceFile, FolderFollowsTheStateDirectory) {
    const struct {
        const char* state;
        const char* home;
        std::wstring folder;
    } cases[] = {
        {"/tmp/state", "/home/pen", L"/tmp/state/Vorex/Logs"},
        {nullptr, "/home/pen", L"/home/pen/.local/state/Vorex/Logs"},
        {"", "/home/pen", L"/home/pen/.local/state/Vorex/Logs"},
        {"", nullptr, L""},
    };
    for (const auto& c : cases) {
        CEnvironment state("XDG_STATE_HOME", c.state);
        CEnvironment home("HOME", c.home);
        EXPECT_EQ(TraceFileFolder(), c.folder);
    }
}

TEST(TraceFile, SinkCopiesLinesWithThePrefixWhileOpen) {
    // Unique per process: other test runs may share the temporary folder.
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) /
                                         ("paneltune-trace-" + std::to_string(CurrentProcessId())) /
                                         "Vorex" / "Logs";
    std::filesystem::remove_all(folder);
    const std::filesystem::path file = folder / "trace.txt";

    Trace("before the sink\n");
    gTraceFilePath = file.wstring();
    OpenTraceFile();
    ASSERT_TRUE(IsTraceFileOpen());
    Trace("value %d\n", 5);
    gTraceFilePath.clear();
    OpenTraceFile();
    EXPECT_FALSE(IsTraceFileOpen());
    Trace("after the sink\n");

    std::ifstream in(file);
    std::stringstream content;
    content << in.rdbuf();
    const std::string prefix = R"(\d{8},\d\d:\d\d:\d\d\.\d{3} -- \d{5,}/\d{5,} -- )";
    const std::regex expected(prefix + "Sending trace to file " + file.string() + "\n" + prefix +
                              "foundation_tests \\S+ \\d+/\\d+/\\d+ \\d+:\\d+\n" + prefix +
                              "Windows OS: \\S+.*\n" + prefix + "value 5\n");
    EXPECT_TRUE(std::regex_match(content.str(), expected)) << content.str();

    // A file where a folder should be: the sink stays closed and tracing goes on.
    gTraceFilePath = (file / "trace.txt").wstring();
    OpenTraceFile();
    EXPECT_FALSE(IsTraceFileOpen());
    EXPECT_EQ(Trace("still traced\n"), 13);
    gTraceFilePath.clear();
    std::filesystem::remove_all(folder.parent_path().parent_path());
}

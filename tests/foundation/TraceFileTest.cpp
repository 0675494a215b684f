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
    EXPECT_TRUE(std::regex_match(BuildTraceFileName(L"T", true, L"", true),
                                 std::wregex(LR"(T-\d\d-\d\d-\d{4}-at-\d{4}-pid-\d+\.txt)")));
}

TEST(TraceFile, FolderFollowsTheStateDirectory) {
    {
        CEnvironment state("XDG_STATE_HOME", "/tmp/state");
        EXPECT_EQ(TraceFileFolder(), L"/tmp/state/Vorex/Logs");
    }
    {
        CEnvironment state("XDG_STATE_HOME", nullptr);
        CEnvironment home("HOME", "/home/pen");
        EXPECT_EQ(TraceFileFolder(), L"/home/pen/.local/state/Vorex/Logs");
    }
    CEnvironment state("XDG_STATE_HOME", "");
    CEnvironment home("HOME", nullptr);
    EXPECT_EQ(TraceFileFolder(), L"");
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
    std::filesystem::remove_all(folder.parent_path().parent_path());
}

TEST(TraceFile, UnopenableFileLeavesTheSinkClosed) {
    const std::filesystem::path blocker =
        std::filesystem::path(testing::TempDir()) /
        ("paneltune-blocker-" + std::to_string(CurrentProcessId()));
    std::ofstream(blocker) << "a file where a folder should be";
    gTraceFilePath = (blocker / "trace.txt").wstring();
    OpenTraceFile();
    EXPECT_FALSE(IsTraceFileOpen());
    EXPECT_EQ(Trace("still traced\n"), 13);
    gTraceFilePath.clear();
    std::filesystem::remove(blocker);
}

#include "foundation/TraceFile.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <regex>
#include <sstream>
#include <string>

namespace {

std::optional<std::string> Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

void SetVariable(const char* name, const std::optional<std::string>& value) {
    value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
}

} // namespace

TEST(TraceFile, PrefixAndFileNames) {
    const SLocalTime time{2026, 1, 15, 9, 30, 5, 42};
    EXPECT_EQ(FormatTracePrefix(time, 1234, 5678), "20260115,09:30:05.042 -- 01234/05678 -- ");
    EXPECT_EQ(FormatTracePrefix(time, 1234567, 5), "20260115,09:30:05.042 -- 1234567/00005 -- ");
    const struct {
        bool stamp;
        std::wstring suffix;
        bool pid;
        std::wstring name;
    } cases[] = {
        {false, L"", false, L"PanelTune.txt"},
        {false, L"gui", true, L"PanelTune-gui-pid-77.txt"},
        {true, L"x", true, L"PanelTune-01-15-2026-at-0930-x-pid-77.txt"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BuildTraceFileName(L"PanelTune", c.stamp, c.suffix, c.pid, time, 77), c.name);
    }
}

TEST(TraceFile, FolderFollowsTheStateDirectory) {
    const auto state = Variable("XDG_STATE_HOME");
    const auto home = Variable("HOME");
    const struct {
        std::optional<std::string> state;
        std::optional<std::string> home;
        std::wstring folder;
    } cases[] = {
        {"/tmp/state", "/home/pen", L"/tmp/state/Vorex/Logs"},
        {std::nullopt, "/home/pen", L"/home/pen/.local/state/Vorex/Logs"},
        {"", "/home/pen", L"/home/pen/.local/state/Vorex/Logs"},
        {"", std::nullopt, L""},
    };
    for (const auto& c : cases) {
        SetVariable("XDG_STATE_HOME", c.state);
        SetVariable("HOME", c.home);
        EXPECT_EQ(TraceFileFolder(), c.folder);
    }
    SetVariable("XDG_STATE_HOME", state);
    SetVariable("HOME", home);
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

    std::stringstream content;
    content << std::ifstream(file).rdbuf();
    const std::string prefix = R"(\d{8},\d\d:\d\d:\d\d\.\d{3} -- \d{5,}/\d{5,} -- )";
    EXPECT_TRUE(
        std::regex_match(content.str(), std::regex("(" + prefix + ".*\n)*" + prefix + "value 5\n")))
        << content.str();

    // A file where a folder should be: the sink stays closed and tracing goes on.
    gTraceFilePath = (file / "trace.txt").wstring();
    OpenTraceFile();
    EXPECT_FALSE(IsTraceFileOpen());
    EXPECT_EQ(Trace("still traced\n"), 13);
    gTraceFilePath.clear();
    std::filesystem::remove_all(folder.parent_path().parent_path());
}

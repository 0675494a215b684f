#include "foundation/ProcessInfo.h"

#include "foundation/StringUtilities.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sys/time.h>
#include <sys/utsname.h>
#include <unistd.h>

uint32_t CurrentProcessId() {
    return static_cast<uint32_t>(::getpid());
}

uint32_t CurrentThreadId() {
    return static_cast<uint32_t>(::gettid());
}

SLocalTime LocalTimeNow() {
    timeval now{};
    ::gettimeofday(&now, nullptr);
    tm fields{};
    ::localtime_r(&now.tv_sec, &fields);
    SLocalTime local;
    local.year = fields.tm_year + 1900;
    local.month = fields.tm_mon + 1;
    local.day = fields.tm_mday;
    local.hour = fields.tm_hour;
    local.minute = fields.tm_min;
    local.second = fields.tm_sec;
    local.millisecond = static_cast<int>(now.tv_usec / 1000);
    return local;
}

std::wstring RunningModuleName() {
    std::error_code error;
    const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::wstring() : ToWide(exe.filename().string());
}

std::string OperatingSystemName() {
    utsname names{};
    if (::uname(&names) != 0) {
        return {};
    }
    return std::string(names.sysname) + " " + names.release;
}

std::wstring TraceFileFolder() {
    std::filesystem::path state;
    const char* xdgState = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    if (xdgState != nullptr && *xdgState != '\0') {
        state = xdgState;
    } else if (home != nullptr && *home != '\0') {
        state = std::filesystem::path(home) / ".local" / "state";
    } else {
        return {};
    }
    return ToWide((state / "Vorex" / "Logs").string());
}

#pragma once
// The services around the system that discovery and the dialogs reach: the machine-maker test,
// thread naming, the running program's path and the installation folder.

#include <string>

namespace LinuxUtils {

// Where the firmware's system maker is published.
inline constexpr const char* kSysVendorPath = "/sys/class/dmi/id/sys_vendor";
// The maker's own computers carry this name, compared ignoring case.
inline constexpr const char* kMakerName = "Vorex Co.,Ltd";

// Whether the maker text in that file names the maker; a missing file is false.
bool IsMakerSystem(const std::string& sysVendorPath_I = kSysVendorPath);

// The running program's full path; empty when the system can't tell.
std::wstring ModulePath();

// The folder of the program's shared data: <prefix>/share/paneltune, where the program lives in
// <prefix>/bin. A build tree, where no such folder stands beside the program, uses the
// program's own folder.
std::wstring InstallFolder(const std::wstring& modulePath_I = ModulePath());

// Names the calling thread for the life of the object and traces its start and end.
class CNameThread {
public:
    explicit CNameThread(std::wstring label_I);
    ~CNameThread();
    CNameThread(const CNameThread&) = delete;
    CNameThread& operator=(const CNameThread&) = delete;

private:
    std::wstring mLabel;
};

} // namespace LinuxUtils

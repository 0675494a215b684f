#include "platform/linux/LinuxSystemServices.h"

#include "foundation/ProcessInfo.h"
#include "foundation/StringUtilities.h"
#include "foundation/ThreadName.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

namespace LinuxUtils {

namespace {

std::string Lower(std::string text_I) {
    std::transform(text_I.begin(), text_I.end(), text_I.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text_I;
}

} // namespace

bool IsMakerSystem(const std::string& sysVendorPath_I) {
    std::ifstream file(sysVendorPath_I);
    std::string vendor;
    if (!std::getline(file, vendor)) {
        return false;
    }
    while (!vendor.empty() && std::isspace(static_cast<unsigned char>(vendor.back()))) {
        vendor.pop_back();
    }
    return Lower(vendor) == Lower(kMakerName);
}

std::wstring ModulePath() {
    std::error_code error;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        Trace("GetModuleFileName failed %i\n", error.value());
        return {};
    }
    return path.wstring();
}

std::wstring InstallFolder(const std::wstring& modulePath_I) {
    const std::filesystem::path module(modulePath_I);
    const auto shared = module.parent_path().parent_path() / "share" / "paneltune";
    std::error_code error;
    if (std::filesystem::is_directory(shared, error)) {
        return shared.wstring();
    }
    return module.parent_path().wstring();
}

CNameThread::CNameThread(std::wstring label_I) : mLabel(std::move(label_I)) {
    SetCurrentThreadName(ToNarrow(mLabel));
    Trace("Thread %S created (%05u)\n", mLabel.c_str(), CurrentThreadId());
}

CNameThread::~CNameThread() {
    Trace("Thread %S ended\n", mLabel.c_str());
}

} // namespace LinuxUtils

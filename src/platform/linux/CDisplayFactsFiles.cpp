#include "platform/linux/CDisplayFactsFiles.h"

#include "foundation/Trace.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>
#include <unistd.h>

namespace {

// A facts file is a few kilobytes; anything far larger is not one.
constexpr std::uintmax_t kLargestFile = 64 * 1024;

} // namespace

CDisplayFactsFiles::CDisplayFactsFiles(std::filesystem::path folder_I)
    : mFolder(std::move(folder_I)) {}

std::filesystem::path CDisplayFactsFiles::UserFolder() {
    const char* cache = std::getenv("XDG_CACHE_HOME");
    if (cache != nullptr && cache[0] == '/') {
        return std::filesystem::path(cache) / "paneltune";
    }
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/') {
        return std::filesystem::path(home) / ".cache" / "paneltune";
    }
    return {};
}

std::optional<std::string> CDisplayFactsFiles::Load(const std::string& name_I) {
    if (mFolder.empty()) {
        return std::nullopt;
    }
    const std::filesystem::path path = mFolder / name_I;
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > kLargestFile) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) {
        return std::nullopt;
    }
    return text;
}

void CDisplayFactsFiles::Save(const std::string& name_I, const std::string& text_I) {
    if (mFolder.empty()) {
        return;
    }
    std::error_code error;
    std::filesystem::create_directories(mFolder, error);
    const std::filesystem::path path = mFolder / name_I;
    std::filesystem::path partial = path;
    partial += ".new-" + std::to_string(getpid());
    {
        std::ofstream file(partial, std::ios::binary | std::ios::trunc);
        file << text_I;
        file.flush();
        if (!file) {
            Trace("CDisplayFactsFiles: cannot write %s\n", partial.c_str());
            std::filesystem::remove(partial, error);
            return;
        }
    }
    std::filesystem::rename(partial, path, error);
    if (error) {
        Trace("CDisplayFactsFiles: cannot replace %s\n", path.c_str());
        std::filesystem::remove(partial, error);
    }
}

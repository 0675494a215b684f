#include "profiles/CProfileStore.h"

#include "profiles/ProfileText.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr const char kExtension[] = ".profile";

std::string Quoted(const std::string& name_I) {
    return "'" + name_I + "'";
}

} // namespace

CProfileStore::CProfileStore(fs::path directory_I) : mDirectory(std::move(directory_I)) {}

fs::path CProfileStore::Directory(const char* xdgConfigHome_I, const char* home_I) {
    fs::path base;
    if (xdgConfigHome_I && fs::path(xdgConfigHome_I).is_absolute()) {
        base = xdgConfigHome_I;
    } else if (home_I && fs::path(home_I).is_absolute()) {
        base = fs::path(home_I) / ".config";
    } else {
        return {};
    }
    return base / "paneltune" / "profiles";
}

fs::path CProfileStore::DefaultDirectory() {
    return Directory(std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME"));
}

fs::path CProfileStore::PathOf(const std::string& name_I) const {
    return mDirectory / (name_I + kExtension);
}

std::vector<std::string> CProfileStore::Names() const {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(mDirectory, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path& path = entry->path();
        if (path.extension() == kExtension && IsValidProfileName(path.stem().string()) &&
            entry->is_regular_file(error)) {
            names.push_back(path.stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool CProfileStore::Exists(const std::string& name_I) const {
    std::error_code error;
    return IsValidProfileName(name_I) && fs::is_regular_file(PathOf(name_I), error);
}

bool CProfileStore::Load(const std::string& name_I, SProfile& profile_O,
                         std::string& error_O) const {
    if (!IsValidProfileName(name_I)) {
        error_O = Quoted(name_I) + " is not a profile name";
        return false;
    }
    if (!Exists(name_I)) {
        error_O = "there is no profile " + Quoted(name_I) + " in " + mDirectory.string();
        return false;
    }
    std::ifstream file(PathOf(name_I), std::ios::binary);
    std::string text(kMaxProfileTextSize + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (file.bad()) {
        error_O = "profile " + Quoted(name_I) + " cannot be read";
        return false;
    }
    text.resize(static_cast<size_t>(file.gcount()));
    SProfile profile;
    profile.name = name_I;
    std::string why;
    if (!ParseProfile(text, profile, why)) {
        error_O = "profile " + Quoted(name_I) + " is damaged (" + PathOf(name_I).string() + ", " +
                  why + ")";
        return false;
    }
    profile_O = std::move(profile);
    return true;
}

bool CProfileStore::Save(const SProfile& profile_I, std::string& error_O) const {
    if (!IsValidProfileName(profile_I.name)) {
        error_O = Quoted(profile_I.name) +
                  " is not a profile name (letters, digits, blanks, '.', '_' and '-')";
        return false;
    }
    std::error_code error;
    fs::create_directories(mDirectory, error);
    const fs::path path = PathOf(profile_I.name);
    fs::path temporary = path;
    temporary += ".new";
    {
        std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
        file << FormatProfile(profile_I);
        file.flush();
        if (!file) {
            error_O = "cannot write " + temporary.string();
            fs::remove(temporary, error);
            return false;
        }
    }
    fs::rename(temporary, path, error);
    if (error) {
        error_O = "cannot write " + path.string() + ": " + error.message();
        fs::remove(temporary, error);
        return false;
    }
    return true;
}

bool CProfileStore::Remove(const std::string& name_I, std::string& error_O) const {
    if (!Exists(name_I)) {
        error_O = "there is no profile " + Quoted(name_I) + " in " + mDirectory.string();
        return false;
    }
    std::error_code error;
    if (!fs::remove(PathOf(name_I), error)) {
        error_O = "cannot delete " + PathOf(name_I).string() + ": " + error.message();
        return false;
    }
    return true;
}

#pragma once
// The profiles of the user: one text file per profile, NAME.profile, in one folder, by default
// $XDG_CONFIG_HOME/paneltune/profiles (~/.config/paneltune/profiles without it). Every failure
// comes back as false with a sentence for the user; nothing throws.

#include "profiles/SProfile.h"

#include <filesystem>
#include <string>
#include <vector>

class CProfileStore {
public:
    explicit CProfileStore(std::filesystem::path directory_I);

    // The folder as the XDG base directory rules give it: an absolute xdgConfigHome_I, else
    // home_I/.config; empty when neither is usable.
    static std::filesystem::path Directory(const char* xdgConfigHome_I, const char* home_I);
    // Directory() of this process's environment.
    static std::filesystem::path DefaultDirectory();

    const std::filesystem::path& Folder() const { return mDirectory; }
    // The names of the profiles, sorted; none when the folder does not exist yet.
    std::vector<std::string> Names() const;
    bool Exists(const std::string& name_I) const;
    bool Load(const std::string& name_I, SProfile& profile_O, std::string& error_O) const;
    // Replaces a profile of the same name whole or not at all.
    bool Save(const SProfile& profile_I, std::string& error_O) const;
    bool Remove(const std::string& name_I, std::string& error_O) const;

private:
    std::filesystem::path PathOf(const std::string& name_I) const;

    std::filesystem::path mDirectory;
};

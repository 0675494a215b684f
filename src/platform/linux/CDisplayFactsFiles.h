#pragma once
// The displays' lasting facts as one small file each in the user's cache folder:
// $XDG_CACHE_HOME/paneltune, else ~/.cache/paneltune. A file is replaced whole, so that a run
// cut short leaves the old text or the new one, never a mix.

#include "discovery/DisplayFacts.h"

#include <filesystem>
#include <optional>
#include <string>

class CDisplayFactsFiles final : public IDisplayFactsStore {
public:
    // An empty folder keeps nothing.
    explicit CDisplayFactsFiles(std::filesystem::path folder_I);

    // The folder of the user's cache as the environment gives it; empty when neither an absolute
    // XDG_CACHE_HOME nor HOME is set.
    static std::filesystem::path UserFolder();

    std::optional<std::string> Load(const std::string& name_I) override;
    void Save(const std::string& name_I, const std::string& text_I) override;

private:
    std::filesystem::path mFolder;
};

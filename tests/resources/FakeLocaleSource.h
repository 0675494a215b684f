#pragma once
// A locale source with chosen variables, installed for the life of the object.

#include "resources/UserLocale.h"

#include <map>
#include <string>

using LocaleVariables = std::map<std::string, std::string>;

class CFakeLocaleSource final : public ILocaleSource {
public:
    explicit CFakeLocaleSource(LocaleVariables variables, std::string systemDefault = {})
        : mVariables(std::move(variables)), mSystemDefault(std::move(systemDefault)) {
        InstallLocaleSource(this);
    }
    ~CFakeLocaleSource() override { InstallLocaleSource(nullptr); }
    CFakeLocaleSource(const CFakeLocaleSource&) = delete;
    CFakeLocaleSource& operator=(const CFakeLocaleSource&) = delete;

    std::optional<std::string> Variable(const std::string& name) const override {
        const auto found = mVariables.find(name);
        return found == mVariables.end() ? std::nullopt : std::optional<std::string>(found->second);
    }
    std::string SystemDefaultLocale() const override { return mSystemDefault; }

private:
    LocaleVariables mVariables;
    std::string mSystemDefault;
};

#pragma once
// The user's language as a LANGID, read from the POSIX locale variables. The reading goes
// through a small source so that tests choose the locale without touching the environment.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class ILocaleSource {
public:
    virtual ~ILocaleSource() = default;
    // The value of an environment variable, or nothing when it is not set.
    virtual std::optional<std::string> Variable(const std::string& name) const = 0;
    // The locale the system gives users who set none, or empty.
    virtual std::string SystemDefaultLocale() const = 0;
};

// Replaces the source for the whole process; nullptr restores the process environment. The
// caller keeps ownership and uninstalls before the source dies.
void InstallLocaleSource(const ILocaleSource* source_I);

// The locale that names the user's language: the first entry of LANGUAGE, else LC_ALL,
// LC_MESSAGES, LANG, else the system default, else "C".
std::string UserLocaleName();

// LANGID of a locale name such as "fr_FR.UTF-8" or "zh-TW": the region's own id where the
// table has one, else the language's default; 1033 (English, USA) for "C", "POSIX" and
// languages the table lacks.
uint16_t LanguageIdOfLocale(std::string_view locale_I);

// The language of the user's interface.
uint16_t UserDefaultUILanguage();
// The language of the user's locale; one and the same setting here.
uint16_t UserDefaultLanguage();

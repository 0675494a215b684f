#include "resources/UserLocale.h"

#include "foundation/StringUtilities.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <fstream>

namespace {

constexpr uint16_t kEnglishUsa = 1033;

// LANGIDs by language and region; the row with an empty region is the language's default.
struct SLocaleRow {
    std::string_view language;
    std::string_view region;
    uint16_t languageId;
};

constexpr std::array kLocaleRows = std::to_array<SLocaleRow>({
    {"en", "", 1033},   {"en", "GB", 2057}, {"en", "AU", 3081}, {"en", "CA", 4105},
    {"en", "NZ", 5129}, {"en", "IE", 6153}, {"zh", "", 2052},   {"zh", "TW", 1028},
    {"zh", "CN", 2052}, {"zh", "HK", 3076}, {"zh", "SG", 4100}, {"zh", "MO", 5124},
    {"fr", "", 1036},   {"fr", "BE", 2060}, {"fr", "CA", 3084}, {"fr", "CH", 4108},
    {"fr", "LU", 5132}, {"de", "", 1031},   {"de", "CH", 2055}, {"de", "AT", 3079},
    {"de", "LU", 4103}, {"de", "LI", 5127}, {"ja", "", 1041},   {"ko", "", 1042},
    {"it", "", 1040},   {"it", "CH", 2064}, {"es", "", 3082},   {"es", "MX", 2058},
    {"pt", "", 2070},   {"pt", "BR", 1046}, {"nl", "", 1043},   {"nl", "BE", 2067},
    {"ru", "", 1049},   {"sv", "", 1053},   {"sv", "FI", 2077}, {"pl", "", 1045},
    {"da", "", 1030},   {"fi", "", 1035},   {"nb", "", 1044},   {"no", "", 1044},
    {"nn", "", 2068},   {"tr", "", 1055},   {"cs", "", 1029},   {"el", "", 1032},
    {"hu", "", 1038},   {"sk", "", 1051},   {"ar", "", 1025},   {"bg", "", 1026},
    {"ca", "", 1027},   {"he", "", 1037},   {"is", "", 1039},   {"ro", "", 1048},
    {"hr", "", 1050},   {"sq", "", 1052},   {"th", "", 1054},   {"id", "", 1057},
    {"uk", "", 1058},   {"be", "", 1059},   {"sl", "", 1060},   {"et", "", 1061},
    {"lv", "", 1062},   {"lt", "", 1063},   {"fa", "", 1065},   {"vi", "", 1066},
    {"eu", "", 1069},   {"ms", "", 1086},   {"kk", "", 1087},   {"sr", "", 9242},
});

class CProcessLocaleSource final : public ILocaleSource {
public:
    std::optional<std::string> Variable(const std::string& name) const override {
        const char* value = std::getenv(name.c_str());
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }

    // Debian keeps the default in /etc/default/locale, systemd systems in /etc/locale.conf.
    std::string SystemDefaultLocale() const override {
        for (const char* path : {"/etc/default/locale", "/etc/locale.conf"}) {
            std::ifstream file(path);
            std::string line;
            while (std::getline(file, line)) {
                if (line.rfind("LANG=", 0) == 0) {
                    std::string value = line.substr(5);
                    std::erase(value, '"');
                    return value;
                }
            }
        }
        return {};
    }
};

const CProcessLocaleSource gProcessLocaleSource;
std::atomic<const ILocaleSource*> gLocaleSource{&gProcessLocaleSource};

std::string FirstListEntry(const std::string& list) {
    size_t start = 0;
    while (start <= list.size()) {
        const size_t end = std::min(list.find(':', start), list.size());
        if (end > start) {
            return list.substr(start, end - start);
        }
        start = end + 1;
    }
    return {};
}

} // namespace

void InstallLocaleSource(const ILocaleSource* source_I) {
    gLocaleSource = source_I == nullptr ? &gProcessLocaleSource : source_I;
}

std::string UserLocaleName() {
    const ILocaleSource& source = *gLocaleSource.load();
    if (const auto list = source.Variable("LANGUAGE")) {
        std::string first = FirstListEntry(*list);
        if (!first.empty()) {
            return first;
        }
    }
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const auto value = source.Variable(name); value && !value->empty()) {
            return *value;
        }
    }
    std::string systemDefault = source.SystemDefaultLocale();
    return systemDefault.empty() ? "C" : systemDefault;
}

uint16_t LanguageIdOfLocale(std::string_view locale_I) {
    // language[_region][.codeset][@modifier], or a tag with "-" and perhaps a script.
    const std::string_view name = locale_I.substr(0, locale_I.find_first_of(".@"));
    const size_t split = name.find_first_of("_-");
    const std::string language = ToLower(std::string(name.substr(0, split)));
    std::string region = split == std::string_view::npos
                             ? std::string()
                             : ToUpper(std::string(name.substr(split + 1)));
    if (region.size() > 4 && (region[4] == '_' || region[4] == '-')) {
        region = region.substr(5);
    } else if (language == "zh" && region == "HANT") {
        region = "TW";
    } else if (region.size() == 4) {
        region.clear();
    }
    const SLocaleRow* fallback = nullptr;
    for (const SLocaleRow& row : kLocaleRows) {
        if (row.language != language) {
            continue;
        }
        if (row.region == region) {
            return row.languageId;
        }
        if (row.region.empty()) {
            fallback = &row;
        }
    }
    return fallback == nullptr ? kEnglishUsa : fallback->languageId;
}

uint16_t UserDefaultUILanguage() {
    return LanguageIdOfLocale(UserLocaleName());
}

uint16_t UserDefaultLanguage() {
    return LanguageIdOfLocale(UserLocaleName());
}

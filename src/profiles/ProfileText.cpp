#include "profiles/ProfileText.h"

#include "profiles/ProfileSettings.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace {

// VCP values are 16 bits wide.
constexpr int32_t kMaxValue = 0xFFFF;
constexpr size_t kMaxNameLength = 64;
constexpr size_t kMaxComponents = 3;

std::string_view Trim(std::string_view text_I) {
    const size_t first = text_I.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text_I.substr(first, text_I.find_last_not_of(" \t\r") - first + 1);
}

bool IsKeyCharacter(char c_I) {
    return (c_I >= 'a' && c_I <= 'z') || (c_I >= '0' && c_I <= '9') || c_I == '-';
}

bool ParseValues(std::string_view text_I, std::vector<int32_t>& values_O) {
    values_O.clear();
    while (values_O.size() < kMaxComponents) {
        const size_t comma = text_I.find(',');
        const std::string_view part = Trim(text_I.substr(0, comma));
        int32_t value = 0;
        const auto result = std::from_chars(part.data(), part.data() + part.size(), value);
        if (part.empty() || result.ec != std::errc() || result.ptr != part.data() + part.size() ||
            value < 0 || value > kMaxValue) {
            return false;
        }
        values_O.push_back(value);
        if (comma == std::string_view::npos) {
            return true;
        }
        text_I.remove_prefix(comma + 1);
    }
    return false;
}

} // namespace

std::string FormatProfile(const SProfile& profile_I) {
    std::ostringstream out;
    out << "# PanelTune display profile\n";
    out << "model = " << profile_I.owner.model << "\n";
    out << "serial = " << profile_I.owner.serial << "\n";
    for (const SProfileSetting& setting : profile_I.settings) {
        out << setting.key << " =";
        for (size_t index = 0; index < setting.values.size(); ++index) {
            out << (index == 0 ? " " : ", ") << setting.values[index];
        }
        out << "\n";
    }
    return out.str();
}

bool ParseProfile(std::string_view text_I, SProfile& profile_O, std::string& error_O) {
    SProfile profile;
    profile.name = profile_O.name;
    bool haveModel = false;
    bool haveSerial = false;
    if (text_I.size() > kMaxProfileTextSize) {
        error_O = "the file is larger than a profile can be";
        return false;
    }
    size_t lineNumber = 0;
    while (!text_I.empty()) {
        ++lineNumber;
        const size_t end = text_I.find('\n');
        const std::string_view line = Trim(text_I.substr(0, end));
        text_I.remove_prefix(end == std::string_view::npos ? text_I.size() : end + 1);
        if (line.empty() || line.front() == '#') {
            continue;
        }
        const std::string where = "line " + std::to_string(lineNumber) + ": ";
        const size_t equals = line.find('=');
        const std::string_view key = Trim(line.substr(0, equals));
        if (equals == std::string_view::npos || key.empty() ||
            !std::all_of(key.begin(), key.end(), IsKeyCharacter)) {
            error_O = where + "not a 'key = value' line";
            return false;
        }
        const std::string_view value = Trim(line.substr(equals + 1));
        if (key == "model" || key == "serial") {
            bool& have = key == "model" ? haveModel : haveSerial;
            if (have || value.empty()) {
                error_O = where + std::string(key) + (have ? " is given twice" : " is empty");
                return false;
            }
            have = true;
            (key == "model" ? profile.owner.model : profile.owner.serial) = value;
            continue;
        }
        SProfileSetting setting{std::string(key), {}};
        const SProfileSettingRow* row = FindProfileSetting(key);
        if (!ParseValues(value, setting.values) ||
            (row && setting.values.size() != row->components)) {
            error_O = where + "'" + std::string(value) + "' is not a value of " + setting.key;
            return false;
        }
        if (std::any_of(profile.settings.begin(), profile.settings.end(),
                        [&](const SProfileSetting& s) { return s.key == key; })) {
            error_O = where + setting.key + " is given twice";
            return false;
        }
        profile.settings.push_back(std::move(setting));
    }
    if (!haveModel || !haveSerial) {
        error_O = haveModel ? "the serial number is missing" : "the model is missing";
        return false;
    }
    profile_O = std::move(profile);
    return true;
}

bool IsValidProfileName(std::string_view name_I) {
    const auto allowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == ' ' || c == '.' || c == '_' || c == '-';
    };
    return !name_I.empty() && name_I.size() <= kMaxNameLength && name_I.front() != '.' &&
           name_I.front() != ' ' && name_I.back() != ' ' &&
           std::all_of(name_I.begin(), name_I.end(), allowed);
}

#include "discovery/DisplayFacts.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace {

constexpr std::string_view kVersionLine = "paneltune display facts 2";

// The keys in their fixed order; a text with another order or a missing key is refused.
constexpr std::array<std::string_view, 7> kKeys = {
    "channel", "serial", "edid", "firmware", "name", "capabilities", "channel-edid"};

// Device text may hold any byte: everything outside printable ASCII, and '%', is written %XX.
std::string Escaped(const std::string& text_I) {
    std::string out;
    for (const unsigned char byte : text_I) {
        if (byte < 0x20 || byte > 0x7E || byte == '%') {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%%%02X", byte);
            out += hex;
        } else {
            out += static_cast<char>(byte);
        }
    }
    return out;
}

bool Unescaped(std::string_view text_I, std::string& out_O) {
    out_O.clear();
    for (size_t at = 0; at < text_I.size(); ++at) {
        if (text_I[at] != '%') {
            out_O += text_I[at];
            continue;
        }
        unsigned value = 0;
        const char* first = text_I.data() + at + 1;
        const char* last = first + 2;
        if (at + 2 >= text_I.size() || std::from_chars(first, last, value, 16).ptr != last) {
            return false;
        }
        out_O += static_cast<char>(value);
        at += 2;
    }
    return true;
}

template <typename T>
bool Number(std::string_view text_I, T& value_O, int base_I = 10) {
    const char* end = text_I.data() + text_I.size();
    const auto result = std::from_chars(text_I.data(), end, value_O, base_I);
    return !text_I.empty() && result.ec == std::errc() && result.ptr == end;
}

std::string FirmwareText(const FileVersion& version_I) {
    return std::to_string(version_I.mMajor) + "." + std::to_string(version_I.mMinor) + "." +
           std::to_string(version_I.mVariation) + "." + std::to_string(version_I.mRelease) + "." +
           std::to_string(version_I.mBuild);
}

bool ParseFirmware(std::string_view text_I, FileVersion& version_O) {
    std::array<uint8_t*, 5> parts = {&version_O.mMajor, &version_O.mMinor, &version_O.mVariation,
                                     &version_O.mRelease, &version_O.mBuild};
    for (size_t index = 0; index < parts.size(); ++index) {
        const size_t dot = index + 1 < parts.size() ? text_I.find('.') : text_I.size();
        if (dot == std::string_view::npos || !Number(text_I.substr(0, dot), *parts[index])) {
            return false;
        }
        text_I.remove_prefix(std::min(dot + 1, text_I.size()));
    }
    return true;
}

std::string HexText(const std::vector<uint8_t>& bytes_I) {
    std::string out;
    for (const uint8_t byte : bytes_I) {
        char hex[4];
        std::snprintf(hex, sizeof hex, "%02X", byte);
        out += hex;
    }
    return out;
}

bool ParseHex(std::string_view text_I, std::vector<uint8_t>& bytes_O) {
    bytes_O.clear();
    if (text_I.size() % 2 != 0) {
        return false;
    }
    for (size_t at = 0; at < text_I.size(); at += 2) {
        uint8_t byte = 0;
        if (!Number(text_I.substr(at, 2), byte, 16)) {
            return false;
        }
        bytes_O.push_back(byte);
    }
    return true;
}

} // namespace

std::string FormatDisplayFacts(const SDisplayFacts& facts_I) {
    char edid[8];
    std::snprintf(edid, sizeof edid, "%04X", facts_I.edidNumber);
    const std::array<std::string, kKeys.size()> values = {std::to_string(facts_I.channel),
                                                          Escaped(facts_I.serialNumber),
                                                          edid,
                                                          FirmwareText(facts_I.firmware),
                                                          Escaped(facts_I.monitorName),
                                                          Escaped(facts_I.capabilities),
                                                          HexText(facts_I.channelEdid)};
    std::string text(kVersionLine);
    text += '\n';
    for (size_t index = 0; index < kKeys.size(); ++index) {
        text += std::string(kKeys[index]) + " " + values[index] + "\n";
    }
    return text;
}

std::optional<SDisplayFacts> ParseDisplayFacts(std::string_view text_I) {
    std::array<std::string_view, kKeys.size() + 1> lines;
    for (std::string_view& line : lines) {
        const size_t end = text_I.find('\n');
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        line = text_I.substr(0, end);
        text_I.remove_prefix(end + 1);
    }
    if (!text_I.empty() || lines[0] != kVersionLine) {
        return std::nullopt;
    }
    std::array<std::string_view, kKeys.size()> values;
    for (size_t index = 0; index < kKeys.size(); ++index) {
        const std::string_view line = lines[index + 1];
        if (!line.starts_with(kKeys[index]) || line.size() <= kKeys[index].size() ||
            line[kKeys[index].size()] != ' ') {
            return std::nullopt;
        }
        values[index] = line.substr(kKeys[index].size() + 1);
    }
    SDisplayFacts facts;
    if (!Number(values[0], facts.channel) || !Unescaped(values[1], facts.serialNumber) ||
        values[2].size() != 4 || !Number(values[2], facts.edidNumber, 16) ||
        !ParseFirmware(values[3], facts.firmware) || !Unescaped(values[4], facts.monitorName) ||
        !Unescaped(values[5], facts.capabilities) || facts.capabilities.empty() ||
        !ParseHex(values[6], facts.channelEdid)) {
        return std::nullopt;
    }
    return facts;
}

std::string DisplayFactsName(const SDisplayFacts& identity_I) {
    char prefix[32];
    std::snprintf(prefix, sizeof prefix, "%d-%04X-", identity_I.channel, identity_I.edidNumber);
    std::string name = prefix;
    for (const char letter : identity_I.serialNumber) {
        const bool plain = (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
                           (letter >= 'a' && letter <= 'z') || letter == '-';
        name += plain ? letter : '_';
    }
    return name;
}

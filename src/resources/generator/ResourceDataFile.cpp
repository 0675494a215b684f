#include "resources/generator/ResourceDataFile.h"

#include <charconv>
#include <optional>
#include <set>

namespace {

constexpr uint32_t kLargestStringId = 0xFFFF;
constexpr uint32_t kLargestGroupKey = 0xFFFE; // 0xFFFF ends a group

std::optional<uint32_t> ParseNumber(std::string_view text, int base, uint32_t largest) {
    uint32_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (text.empty() || error != std::errc() || stop != end || value > largest) {
        return std::nullopt;
    }
    return value;
}

std::optional<uint32_t> ParseKey(std::string_view text, EDataFileKind kind) {
    if (kind == EDataFileKind::Strings) {
        return ParseNumber(text, 10, kLargestStringId);
    }
    if (text.size() < 3 || text.size() > 6 || text[0] != '0' ||
        (text[1] != 'x' && text[1] != 'X')) {
        return std::nullopt;
    }
    return ParseNumber(text.substr(2), 16, kLargestGroupKey);
}

std::optional<std::string> Unescape(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain.push_back(text[i]);
            continue;
        }
        if (++i == text.size()) {
            return std::nullopt;
        }
        switch (text[i]) {
        case 'n':
            plain.push_back('\n');
            break;
        case 't':
            plain.push_back('\t');
            break;
        case '\\':
            plain.push_back('\\');
            break;
        default:
            return std::nullopt;
        }
    }
    return plain;
}

} // namespace

bool IsValidUtf8(std::string_view text_I) {
    size_t i = 0;
    while (i < text_I.size()) {
        const auto lead = static_cast<unsigned char>(text_I[i]);
        size_t length = 0;
        uint32_t codePoint = 0;
        uint32_t minimum = 0;
        if (lead < 0x80) {
            ++i;
            continue;
        } else if ((lead & 0xE0) == 0xC0) {
            length = 2, codePoint = lead & 0x1FU, minimum = 0x80;
        } else if ((lead & 0xF0) == 0xE0) {
            length = 3, codePoint = lead & 0x0FU, minimum = 0x800;
        } else if ((lead & 0xF8) == 0xF0) {
            length = 4, codePoint = lead & 0x07U, minimum = 0x10000;
        } else {
            return false;
        }
        if (i + length > text_I.size()) {
            return false;
        }
        for (size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(text_I[i + k]);
            if ((next & 0xC0) != 0x80) {
                return false;
            }
            codePoint = (codePoint << 6) | (next & 0x3FU);
        }
        if (codePoint < minimum || codePoint > 0x10FFFF ||
            (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
            return false;
        }
        i += length;
    }
    return true;
}

SDataFile ParseDataFile(std::string_view content_I, EDataFileKind kind_I) {
    SDataFile file;
    auto fail = [&file](int line, std::string_view message) {
        file.rows.clear();
        file.error = "line " + std::to_string(line) + ": " + std::string(message);
        return file;
    };
    if (content_I.starts_with("\xEF\xBB\xBF")) {
        content_I.remove_prefix(3);
    }
    std::set<uint32_t> seen;
    int lineNumber = 0;
    while (!content_I.empty()) {
        ++lineNumber;
        const size_t end = std::min(content_I.find('\n'), content_I.size());
        std::string_view line = content_I.substr(0, end);
        content_I.remove_prefix(std::min(end + 1, content_I.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        const size_t tab = line.find('\t');
        if (tab == std::string_view::npos) {
            return fail(lineNumber, "no tab between key and text");
        }
        const std::optional<uint32_t> key = ParseKey(line.substr(0, tab), kind_I);
        if (!key) {
            return fail(lineNumber, "bad key '" + std::string(line.substr(0, tab)) + "'");
        }
        // Groups may repeat a key (the first row wins); a string id stands once.
        if (kind_I == EDataFileKind::Strings && !seen.insert(*key).second) {
            return fail(lineNumber, "id " + std::to_string(*key) + " stands twice");
        }
        const std::string_view raw = line.substr(tab + 1);
        if (!IsValidUtf8(raw)) {
            return fail(lineNumber, "text is not UTF-8");
        }
        std::optional<std::string> text = Unescape(raw);
        if (!text) {
            return fail(lineNumber, "unknown escape; use \\n, \\t or \\\\");
        }
        file.rows.push_back({*key, std::move(*text), lineNumber});
    }
    return file;
}

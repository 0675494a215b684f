#include "model/HexList.h"

#include <charconv>
#include <limits>

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

bool IsHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

bool ReadHexNumber(std::string_view text_I, int64_t& value_O, size_t* consumed_O) {
    size_t pos = 0;
    while (pos < text_I.size() && IsBlank(text_I[pos])) {
        ++pos;
    }
    bool negative = false;
    if (pos < text_I.size() && (text_I[pos] == '-' || text_I[pos] == '+')) {
        negative = text_I[pos] == '-';
        ++pos;
    }
    if (pos + 2 < text_I.size() && text_I[pos] == '0' &&
        (text_I[pos + 1] == 'x' || text_I[pos + 1] == 'X') && IsHexDigit(text_I[pos + 2])) {
        pos += 2;
    }
    uint64_t magnitude = 0;
    const char* first = text_I.data() + pos;
    const char* last = text_I.data() + text_I.size();
    const auto [end, error] = std::from_chars(first, last, magnitude, 16);
    if (error != std::errc() || end == first) {
        return false;
    }
    if (magnitude > static_cast<uint64_t>(std::numeric_limits<int64_t>::max())) {
        return false;
    }
    value_O = negative ? -static_cast<int64_t>(magnitude) : static_cast<int64_t>(magnitude);
    if (consumed_O != nullptr) {
        *consumed_O = static_cast<size_t>(end - text_I.data());
    }
    return true;
}

std::vector<int32_t> ReadHexList(std::string_view text_I) {
    std::vector<int32_t> values;
    int64_t value = 0;
    size_t consumed = 0;
    while (ReadHexNumber(text_I, value, &consumed)) {
        if (value < std::numeric_limits<int32_t>::min() ||
            value > std::numeric_limits<int32_t>::max()) {
            break;
        }
        values.push_back(static_cast<int32_t>(value));
        text_I.remove_prefix(consumed);
    }
    return values;
}

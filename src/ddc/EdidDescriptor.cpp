#include "ddc/EdidDescriptor.h"

#include <algorithm>

namespace {

bool EndsText(uint8_t byte_I, EEdidTextEnd end_I) {
    if (end_I == EEdidTextEnd::eZero) {
        return byte_I == 0;
    }
    return byte_I < 0x20 || byte_I > 0x7E;
}

bool IsWhiteSpace(char character_I) {
    return character_I == ' ' || (character_I >= '\t' && character_I <= '\r');
}

} // namespace

std::optional<std::string> FindEdidText(const ByteVector& buffer_I,
                                        std::span<const uint8_t> header_I, EEdidTextEnd end_I) {
    const auto found =
        std::search(buffer_I.begin(), buffer_I.end(), header_I.begin(), header_I.end());
    if (found == buffer_I.end()) {
        return std::nullopt;
    }
    std::string text;
    for (auto at = found + static_cast<long>(header_I.size());
         at != buffer_I.end() && !EndsText(*at, end_I); ++at) {
        text.push_back(static_cast<char>(*at));
    }
    while (!text.empty() && IsWhiteSpace(text.back())) {
        text.pop_back();
    }
    return text;
}

std::string FindEdidDescriptor(const ByteVector& buffer_I, const EdidDescriptorTag& tag_I) {
    return FindEdidText(buffer_I, tag_I, EEdidTextEnd::eUnprintable).value_or(std::string());
}

#include "discovery/EdidDescriptor.h"

#include <algorithm>

namespace {

bool IsPrintable(uint8_t byte_I) {
    return byte_I >= 0x20 && byte_I <= 0x7E;
}

bool IsWhiteSpace(char character_I) {
    return character_I == ' ' || (character_I >= '\t' && character_I <= '\r');
}

} // namespace

std::string FindEdidDescriptor(const ByteVector& buffer_I, const EdidDescriptorTag& tag_I) {
    const auto found = std::search(buffer_I.begin(), buffer_I.end(), tag_I.begin(), tag_I.end());
    if (found == buffer_I.end()) {
        return {};
    }
    std::string text;
    for (auto at = found + static_cast<long>(tag_I.size());
         at != buffer_I.end() && *at != 0 && IsPrintable(*at); ++at) {
        text.push_back(static_cast<char>(*at));
    }
    while (!text.empty() && IsWhiteSpace(text.back())) {
        text.pop_back();
    }
    return text;
}

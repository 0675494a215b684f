#include "resources/CodedString.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

namespace {

constexpr uint8_t kNoValue = 128;
constexpr uint8_t kPadding = 64;
constexpr char32_t kReplacement = 0xFFFD;

std::array<uint8_t, 256> BuildValueTable() {
    std::array<uint8_t, 256> table{};
    table.fill(kNoValue);
    for (uint8_t i = 0; i < 26; ++i) {
        table['A' + i] = i;
        table['a' + i] = static_cast<uint8_t>(26 + i);
    }
    for (uint8_t i = 0; i < 10; ++i) {
        table['0' + i] = static_cast<uint8_t>(52 + i);
    }
    table['+'] = 62;
    table['/'] = 63;
    table['='] = kPadding;
    return table;
}

void AppendCodePoint(std::wstring& text, char32_t codePoint) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (codePoint >= 0x10000) {
            const char32_t v = codePoint - 0x10000;
            text.push_back(static_cast<wchar_t>(0xD800 + (v >> 10)));
            text.push_back(static_cast<wchar_t>(0xDC00 + (v & 0x3FF)));
            return;
        }
    }
    text.push_back(static_cast<wchar_t>(codePoint));
}

} // namespace

const std::array<uint8_t, 256>& valueTable() {
    static const std::array<uint8_t, 256> table = BuildValueTable();
    return table;
}

uint8_t DecodeValue(uint32_t coded_I) {
    const std::array<uint8_t, 256>& valueTable = ::valueTable();
    VRX_ASSERT(coded_I < valueTable.size());
    if (coded_I >= valueTable.size()) {
        return kNoValue;
    }
    VRX_ASSERT((valueTable[coded_I] & 0x80) == 0);
    return valueTable[coded_I];
}

std::vector<uint8_t> DecodeBase64Block(const std::vector<uint8_t>& codedbuffer_I) {
    VRX_ASSERT((((codedbuffer_I.size() + 3) / 4) * 4) == codedbuffer_I.size());
    std::vector<uint8_t> decoded;
    decoded.reserve(codedbuffer_I.size() / 4 * 3);
    for (size_t i = 0; i + 4 <= codedbuffer_I.size(); i += 4) {
        const uint8_t s1 = DecodeValue(codedbuffer_I[i]);
        const uint8_t s2 = DecodeValue(codedbuffer_I[i + 1]);
        const uint8_t s3 = DecodeValue(codedbuffer_I[i + 2]);
        const uint8_t s4 = DecodeValue(codedbuffer_I[i + 3]);
        VRX_ASSERT(s1 < 64);
        VRX_ASSERT(s2 < 64);
        uint32_t bits = (static_cast<uint32_t>(s1 & 0x3F) << 18) |
                        (static_cast<uint32_t>(s2 & 0x3F) << 12) |
                        (static_cast<uint32_t>(s3 & 0x3F) << 6) | (s4 & 0x3FU);
        decoded.push_back(static_cast<uint8_t>(bits >> 16));
        bits &= 0xFFFF;
        if (s3 < 64) {
            decoded.push_back(static_cast<uint8_t>(bits >> 8));
            bits &= 0xFF;
            if (s4 < 64) {
                decoded.push_back(static_cast<uint8_t>(bits));
                bits = 0;
            }
        }
        // Bits that no emitted byte carries are zero in a well-formed block.
        VRX_ASSERT(bits == 0);
    }
    return decoded;
}

std::wstring DecodeCodedString(const std::wstring& codedString_I) {
    if (codedString_I.empty() || codedString_I[0] != kCodedStringMarker) {
        return codedString_I;
    }
    std::vector<uint8_t> buffer;
    buffer.reserve(codedString_I.size() + 3);
    for (size_t i = 1; i < codedString_I.size(); ++i) {
        VRX_ASSERT(static_cast<uint32_t>(codedString_I[i]) < 256);
        buffer.push_back(static_cast<uint8_t>(codedString_I[i] & 0xFF));
    }
    while (buffer.size() % 4 != 0) {
        buffer.push_back('=');
    }
    const std::vector<uint8_t> bytes = DecodeBase64Block(buffer);
    return ToWide(std::string(bytes.begin(), bytes.end()));
}

std::wstring Utf16ToWide(const std::u16string& utf16_I) {
    std::wstring text;
    text.reserve(utf16_I.size());
    for (size_t i = 0; i < utf16_I.size(); ++i) {
        const char16_t unit = utf16_I[i];
        if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < utf16_I.size() &&
            utf16_I[i + 1] >= 0xDC00 && utf16_I[i + 1] <= 0xDFFF) {
            const char32_t high = unit - 0xD800U;
            const char32_t low = utf16_I[i + 1] - 0xDC00U;
            AppendCodePoint(text, 0x10000 + (high << 10) + low);
            ++i;
        } else if (unit >= 0xD800 && unit <= 0xDFFF) {
            AppendCodePoint(text, kReplacement);
        } else {
            AppendCodePoint(text, unit);
        }
    }
    return text;
}

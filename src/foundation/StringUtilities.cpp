#include "foundation/StringUtilities.h"

#include "foundation/Trace.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <cwctype>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kMaxCodePoint = 0x10FFFF;

bool IsSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

// Decodes one UTF-8 sequence at text[i]; moves i past it. A bad sequence consumes one byte.
char32_t DecodeUtf8(const std::string& text, size_t& i) {
    const auto lead = static_cast<unsigned char>(text[i++]);
    if (lead < 0x80) {
        return lead;
    }
    size_t follow = 0;
    char32_t code = 0;
    char32_t minimum = 0;
    if ((lead & 0xE0) == 0xC0) {
        follow = 1;
        code = lead & 0x1F;
        minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        follow = 2;
        code = lead & 0x0F;
        minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        follow = 3;
        code = lead & 0x07;
        minimum = 0x10000;
    } else {
        return kReplacement;
    }
    if (i + follow > text.size()) {
        return kReplacement;
    }
    for (size_t k = 0; k < follow; ++k) {
        const auto next = static_cast<unsigned char>(text[i + k]);
        if ((next & 0xC0) != 0x80) {
            return kReplacement;
        }
        code = (code << 6) | (next & 0x3F);
    }
    i += follow;
    if (code < minimum || code > kMaxCodePoint || IsSurrogate(code)) {
        return kReplacement;
    }
    return code;
}

void EncodeUtf8(char32_t code, std::string& out) {
    if (code > kMaxCodePoint || IsSurrogate(code)) {
        code = kReplacement;
    }
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

template <typename String>
int FindIgnoreCaseT(const String& text, const String& part) {
    auto at = text.find(part);
    if (at == String::npos) {
        at = ToLower(text).find(ToLower(part));
    }
    return at == String::npos ? -1 : static_cast<int>(at);
}

} // namespace

int64_t HexStringToInteger(const std::string& text, int64_t defaultValue) {
    const char* failure = nullptr;
    const char* begin = text.c_str();
    char* end = nullptr;
    errno = 0;
    const long long value = std::strtoll(begin, &end, 16);
    if (end == begin) {
        failure = "invalid stoll argument";
    } else if (errno == ERANGE) {
        failure = "stoll argument out of range";
    }
    if (failure != nullptr) {
        Trace("HexStringToInteger: %s a string to %s\n", failure, text.c_str());
        return defaultValue;
    }
    return value;
}

int64_t HexStringToInteger(const std::wstring& text, int64_t defaultValue) {
    return HexStringToInteger(ToNarrow(text), defaultValue);
}

bool EqualIgnoreCase(const std::string& a, const std::string& b) {
    return a == b || ToLower(a) == ToLower(b);
}

bool EqualIgnoreCase(const std::wstring& a, const std::wstring& b) {
    return a == b || ToLower(a) == ToLower(b);
}

int FindIgnoreCase(const std::string& text, const std::string& part) {
    return FindIgnoreCaseT(text, part);
}

int FindIgnoreCase(const std::wstring& text, const std::wstring& part) {
    return FindIgnoreCaseT(text, part);
}

std::string ToLower(const std::string& text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    return out;
}

std::wstring ToLower(const std::wstring& text) {
    std::wstring out(text);
    std::transform(out.begin(), out.end(), out.begin(), [](wchar_t c) {
        return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    });
    return out;
}

std::string ToUpper(const std::string& text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), [](char c) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    });
    return out;
}

std::wstring ToUpper(const std::wstring& text) {
    std::wstring out(text);
    std::transform(out.begin(), out.end(), out.begin(), [](wchar_t c) {
        return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    });
    return out;
}

std::wstring ToWide(const std::string& text) {
    std::wstring out;
    out.reserve(text.size());
    size_t i = 0;
    while (i < text.size()) {
        const char32_t code = DecodeUtf8(text, i);
        if constexpr (sizeof(wchar_t) == 2) {
            if (code >= 0x10000) {
                const char32_t rest = code - 0x10000;
                out += static_cast<wchar_t>(0xD800 + (rest >> 10));
                out += static_cast<wchar_t>(0xDC00 + (rest & 0x3FF));
                continue;
            }
        }
        out += static_cast<wchar_t>(code);
    }
    return out;
}

std::string ToNarrow(const std::wstring& text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<char32_t>(text[i]);
        if constexpr (sizeof(wchar_t) == 2) {
            if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size()) {
                const auto low = static_cast<char32_t>(text[i + 1]);
                if (low >= 0xDC00 && low <= 0xDFFF) {
                    code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                    ++i;
                }
            }
        }
        EncodeUtf8(code, out);
    }
    return out;
}

std::string FromCString(const char* text) {
    if (text == nullptr) {
        VRX_ASSERT_NOT_REACHED("Empty string");
        return {};
    }
    const size_t size = std::strlen(text);
    VRX_ASSERT(size <= 4096);
    return std::string(text, size);
}

#include "cli/CJsonWriter.h"

#include <cstdio>

namespace {

// The length of the well-formed UTF-8 sequence at the start of text_I, or 0 when there is none:
// no overlong forms, no surrogates, nothing above U+10FFFF.
size_t Utf8SequenceLength(std::string_view text_I) {
    const auto byte = [&](size_t at_I) { return static_cast<unsigned char>(text_I[at_I]); };
    const unsigned char lead = byte(0);
    size_t length = 0;
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;
        high = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
        high = lead == 0xF4 ? 0x8F : 0xBF;
    } else {
        return 0;
    }
    if (text_I.size() < length || byte(1) < low || byte(1) > high) {
        return 0;
    }
    for (size_t at = 2; at < length; ++at) {
        if (byte(at) < 0x80 || byte(at) > 0xBF) {
            return 0;
        }
    }
    return length;
}

} // namespace

void CJsonWriter::BeforeValue() {
    if (mAfterKey) {
        mAfterKey = false;
        return;
    }
    if (!mHasMember.empty()) {
        if (mHasMember.back()) {
            mText += ',';
        }
        mHasMember.back() = true;
    }
}

CJsonWriter& CJsonWriter::BeginObject() {
    BeforeValue();
    mText += '{';
    mHasMember.push_back(false);
    return *this;
}

CJsonWriter& CJsonWriter::EndObject() {
    mText += '}';
    mHasMember.pop_back();
    return *this;
}

CJsonWriter& CJsonWriter::BeginArray() {
    BeforeValue();
    mText += '[';
    mHasMember.push_back(false);
    return *this;
}

CJsonWriter& CJsonWriter::EndArray() {
    mText += ']';
    mHasMember.pop_back();
    return *this;
}

CJsonWriter& CJsonWriter::Key(std::string_view key_I) {
    String(key_I);
    mText += ':';
    mAfterKey = true;
    return *this;
}

CJsonWriter& CJsonWriter::String(std::string_view value_I) {
    BeforeValue();
    mText += '"';
    for (size_t at = 0; at < value_I.size(); ++at) {
        const char c = value_I[at];
        if (static_cast<unsigned char>(c) >= 0x80) {
            // Text from a display or a user need not be UTF-8: a byte that starts no valid
            // sequence becomes U+FFFD, so that the output stays valid JSON.
            const size_t length = Utf8SequenceLength(value_I.substr(at));
            if (length == 0) {
                mText += "\\ufffd";
            } else {
                mText.append(value_I.substr(at, length));
                at += length - 1;
            }
            continue;
        }
        switch (c) {
        case '"':
            mText += "\\\"";
            break;
        case '\\':
            mText += "\\\\";
            break;
        case '\n':
            mText += "\\n";
            break;
        case '\r':
            mText += "\\r";
            break;
        case '\t':
            mText += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned char>(c));
                mText += escaped;
            } else {
                mText += c;
            }
        }
    }
    mText += '"';
    return *this;
}

CJsonWriter& CJsonWriter::Number(int64_t value_I) {
    BeforeValue();
    mText += std::to_string(value_I);
    return *this;
}

CJsonWriter& CJsonWriter::Bool(bool value_I) {
    BeforeValue();
    mText += value_I ? "true" : "false";
    return *this;
}

CJsonWriter& CJsonWriter::Null() {
    BeforeValue();
    mText += "null";
    return *this;
}

std::string CJsonWriter::Text() const {
    return mHasMember.empty() && !mText.empty() ? mText + "\n" : mText;
}

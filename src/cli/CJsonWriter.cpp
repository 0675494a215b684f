#include "cli/CJsonWriter.h"

#include <cstdio>

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
    for (const char c : value_I) {
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

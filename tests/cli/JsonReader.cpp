#include "JsonReader.h"

#include <cctype>
#include <cstdlib>

namespace {

const SJson kNull;

class CReader {
public:
    explicit CReader(std::string_view text_I) : mText(text_I) {}

    std::optional<SJson> Document() {
        SJson value;
        if (!Value(value)) {
            return std::nullopt;
        }
        Blanks();
        return mAt == mText.size() ? std::optional<SJson>(value) : std::nullopt;
    }

private:
    void Blanks() {
        while (mAt < mText.size() && std::isspace(static_cast<unsigned char>(mText[mAt]))) {
            ++mAt;
        }
    }

    bool Take(char c_I) {
        Blanks();
        if (mAt < mText.size() && mText[mAt] == c_I) {
            ++mAt;
            return true;
        }
        return false;
    }

    bool Word(std::string_view word_I) {
        if (mText.substr(mAt, word_I.size()) != word_I) {
            return false;
        }
        mAt += word_I.size();
        return true;
    }

    bool String(std::string& text_O) {
        if (!Take('"')) {
            return false;
        }
        while (mAt < mText.size() && mText[mAt] != '"') {
            char c = mText[mAt++];
            if (static_cast<unsigned char>(c) < 0x20) {
                return false;
            }
            if (c == '\\') {
                if (mAt >= mText.size()) {
                    return false;
                }
                const char escaped = mText[mAt++];
                switch (escaped) {
                case 'n':
                    c = '\n';
                    break;
                case 't':
                    c = '\t';
                    break;
                case 'r':
                    c = '\r';
                    break;
                case '"':
                case '\\':
                case '/':
                    c = escaped;
                    break;
                case 'u': {
                    if (mAt + 4 > mText.size()) {
                        return false;
                    }
                    const long code =
                        std::strtol(std::string(mText.substr(mAt, 4)).c_str(), nullptr, 16);
                    mAt += 4;
                    if (code > 0x7F) {
                        return false; // the program escapes control characters only
                    }
                    c = static_cast<char>(code);
                    break;
                }
                default:
                    return false;
                }
            }
            text_O += c;
        }
        return mAt++ < mText.size();
    }

    bool Value(SJson& value_O) {
        Blanks();
        if (mAt >= mText.size()) {
            return false;
        }
        const char c = mText[mAt];
        if (c == '{') {
            ++mAt;
            value_O.type = SJson::eObject;
            if (Take('}')) {
                return true;
            }
            do {
                std::string key;
                SJson member;
                if (!String(key) || !Take(':') || !Value(member)) {
                    return false;
                }
                value_O.members[key] = member;
            } while (Take(','));
            return Take('}');
        }
        if (c == '[') {
            ++mAt;
            value_O.type = SJson::eArray;
            if (Take(']')) {
                return true;
            }
            do {
                SJson item;
                if (!Value(item)) {
                    return false;
                }
                value_O.items.push_back(item);
            } while (Take(','));
            return Take(']');
        }
        if (c == '"') {
            value_O.type = SJson::eString;
            return String(value_O.text);
        }
        if (Word("true") || Word("false")) {
            value_O.type = SJson::eBool;
            value_O.boolean = mText[mAt - 1] == 'e' && mText[mAt - 2] == 'u';
            return true;
        }
        if (Word("null")) {
            return true;
        }
        const std::string rest(mText.substr(mAt));
        char* end = nullptr;
        value_O.number = std::strtod(rest.c_str(), &end);
        if (end == rest.c_str()) {
            return false;
        }
        value_O.type = SJson::eNumber;
        mAt += static_cast<size_t>(end - rest.c_str());
        return true;
    }

    std::string_view mText;
    size_t mAt = 0;
};

} // namespace

const SJson& SJson::operator[](const std::string& key_I) const {
    const auto found = members.find(key_I);
    return found == members.end() ? kNull : found->second;
}

const SJson& SJson::operator[](size_t index_I) const {
    return index_I < items.size() ? items[index_I] : kNull;
}

std::optional<SJson> ParseJson(std::string_view text_I) {
    return CReader(text_I).Document();
}

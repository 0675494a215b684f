#pragma once
// Reads back the JSON that paneltunectl prints, so that tests look at values and not at text.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SJson {
    enum EType { eNull, eBool, eNumber, eString, eArray, eObject };
    EType type = eNull;
    bool boolean = false;
    double number = 0;
    std::string text;
    std::vector<SJson> items;
    std::map<std::string, SJson> members;

    // A member or item that is missing reads as null.
    const SJson& operator[](const std::string& key_I) const;
    const SJson& operator[](size_t index_I) const;
    bool Has(const std::string& key_I) const { return members.count(key_I) != 0; }
    int Int() const { return static_cast<int>(number); }
};

// Null when the text is not exactly one JSON value (blanks and a line end around it allowed).
std::optional<SJson> ParseJson(std::string_view text_I);

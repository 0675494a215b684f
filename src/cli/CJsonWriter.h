#pragma once
// A small writer of JSON text for --json: objects, arrays, strings, numbers and booleans, with
// the commas placed by the writer. Strings are UTF-8 and escaped as JSON needs.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CJsonWriter {
public:
    CJsonWriter& BeginObject();
    CJsonWriter& EndObject();
    CJsonWriter& BeginArray();
    CJsonWriter& EndArray();
    // The name of the next member of an object.
    CJsonWriter& Key(std::string_view key_I);
    CJsonWriter& String(std::string_view value_I);
    CJsonWriter& Number(int64_t value_I);
    CJsonWriter& Bool(bool value_I);
    CJsonWriter& Null();

    // The text written so far, with a line end once the outermost value is closed.
    std::string Text() const;

private:
    void BeforeValue();

    std::string mText;
    // One entry per open object or array: whether it holds a member yet.
    std::vector<bool> mHasMember;
    bool mAfterKey = false;
};

#include "foundation/StringUtilities.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

TEST(StringUtilities, HexStringToIntegerReadsWhatTheStandardConversionReads) {
    const struct {
        std::string text;
        int64_t expected;
    } cases[] = {
        {"ff", 0xFF}, {"0x1A", 0x1A}, {"  7f", 0x7F},
        {"-10", -16}, {"12zz", 0x12}, {"7fffffffffffffff", INT64_MAX},
        {"zz", -5},   {"", -5},       {"10000000000000000", -5},
    };
    testing::internal::CaptureStderr();
    for (const auto& c : cases) {
        EXPECT_EQ(HexStringToInteger(c.text, -5), c.expected) << c.text;
        EXPECT_EQ(HexStringToInteger(ToWide(c.text), -5), c.expected) << c.text;
    }
    EXPECT_NE(
        testing::internal::GetCapturedStderr().find(
            "HexStringToInteger: stoll argument out of range a string to 10000000000000000\n"),
        std::string::npos);
}

TEST(StringUtilities, CaseInsensitiveCompareAndFind) {
    EXPECT_TRUE(EqualIgnoreCase(std::string("Display"), std::string("dISPLAY")));
    EXPECT_FALSE(EqualIgnoreCase(std::string("Display"), std::string("Displays")));
    EXPECT_EQ(FindIgnoreCase(std::string("abcABC"), std::string("ABC")), 3);
    EXPECT_EQ(FindIgnoreCase(std::string("abc"), std::string("x")), -1);
    EXPECT_EQ(ToLower(std::string("MiXeD 12")), "mixed 12");
    EXPECT_EQ(ToUpper(std::wstring(L"abc")), L"ABC");
}

TEST(StringUtilities, Utf8ConversionsRoundTripAndReplaceWhatIsBroken) {
    const struct {
        std::string bytes;
        std::wstring wide; // empty where the text only has to come back unchanged
    } cases[] = {
        {"", L""},
        {"Gr\xC3\xBC\xC3\x9F!", L"Gr\u00FC\u00DF!"},
        {"\xE6\x97\xA5\xE6\x9C\xAC", L""},
        {"\xF0\x9F\x96\x8A pen", L""},
        {"\xEE\x80\x80", L"\uE000"},
        {"a\xFFz", L"a\uFFFDz"},
        {"\xC3", L"\uFFFD"},
        {"\xC0\xAF", L"\uFFFD"},
        // Surrogates, first and last, are no characters in UTF-8.
        {"\xED\xA0\x80z", L"\uFFFDz"},
        {"\xED\xBF\xBFz", L"\uFFFDz"},
    };
    for (const auto& c : cases) {
        const std::wstring wide = ToWide(c.bytes);
        if (!c.wide.empty()) {
            EXPECT_EQ(wide, c.wide) << c.bytes;
        }
        if (wide.find(L'\uFFFD') == std::wstring::npos) {
            EXPECT_EQ(ToNarrow(wide), c.bytes);
        }
    }
    EXPECT_EQ(ToNarrow(std::wstring(1, static_cast<wchar_t>(0xDFFF))), "\xEF\xBF\xBD");
    EXPECT_EQ(FromCString(nullptr), "");
}

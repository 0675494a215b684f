#include "foundation/StringUtilities.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

TEST(StringUtilities, HexStringToIntegerReadsWhatTheStandardConversionReads) {
    struct SCase {
        std::string text;
        int64_t expected;
    };
    const SCase cases[] = {
        {"ff", 0xFF},
        {"FF", 0xFF},
        {"0x1A", 0x1A},
        {"  7f", 0x7F},
        {"-10", -16},
        {"12zz", 0x12},
        {"7fffffffffffffff", INT64_MAX},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(HexStringToInteger(c.text, -5), c.expected);
        EXPECT_EQ(HexStringToInteger(ToWide(c.text), -5), c.expected);
    }
}

TEST(StringUtilities, HexStringToIntegerFailuresTraceAndGiveTheDefault) {
    struct SCase {
        std::string text;
        std::string line;
    };
    const SCase cases[] = {
        {"", "HexStringToInteger: invalid stoll argument a string to \n"},
        {"zz", "HexStringToInteger: invalid stoll argument a string to zz\n"},
        {"10000000000000000",
         "HexStringToInteger: stoll argument out of range a string to 10000000000000000\n"},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.text);
        testing::internal::CaptureStderr();
        EXPECT_EQ(HexStringToInteger(c.text), 0);
        EXPECT_EQ(HexStringToInteger(ToWide(c.text), 9), 9);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.line + c.line);
    }
}

TEST(StringUtilities, CaseInsensitiveCompareAndFind) {
    EXPECT_TRUE(EqualIgnoreCase(std::string("Display"), std::string("dISPLAY")));
    EXPECT_FALSE(EqualIgnoreCase(std::string("Display"), std::string("Displays")));
    EXPECT_TRUE(EqualIgnoreCase(std::wstring(L"VRX"), std::wstring(L"vrx")));
    EXPECT_FALSE(EqualIgnoreCase(std::wstring(L"a"), std::wstring(L"b")));

    EXPECT_EQ(FindIgnoreCase(std::string("model(VRX1041)"), std::string("vrx")), 6);
    EXPECT_EQ(FindIgnoreCase(std::string("abcABC"), std::string("ABC")), 3);
    EXPECT_EQ(FindIgnoreCase(std::string("abc"), std::string("x")), -1);
    EXPECT_EQ(FindIgnoreCase(std::wstring(L"MONITOR\\VRX"), std::wstring(L"monitor")), 0);
    EXPECT_EQ(FindIgnoreCase(std::wstring(L"abc"), std::wstring(L"abcd")), -1);

    EXPECT_EQ(ToLower(std::string("MiXeD 12")), "mixed 12");
    EXPECT_EQ(ToUpper(std::string("MiXeD 12")), "MIXED 12");
    EXPECT_EQ(ToLower(std::wstring(L"ABC")), L"abc");
    EXPECT_EQ(ToUpper(std::wstring(L"abc")), L"ABC");
}

TEST(StringUtilities, Utf8ConversionsRoundTripAndNeverFail) {
    const std::string samples[] = {"", "plain",
                                   "Gr\xC3\xBC\xC3\x9F"
                                   "e",
                                   "\xE6\x97\xA5\xE6\x9C\xAC", "\xF0\x9F\x96\x8A pen"};
    for (const std::string& text : samples) {
        EXPECT_EQ(ToNarrow(ToWide(text)), text);
    }
    EXPECT_EQ(ToWide("Gr\xC3\xBC\xC3\x9F"
                     "e"),
              L"Gr\u00FC\u00DFe");

    struct SBad {
        std::string bytes;
        std::wstring expected;
    };
    const SBad bad[] = {
        {"a\xFF"
         "b",
         L"a\uFFFDb"},
        {"\xC3", L"\uFFFD"},
        {"\xC0\xAF", L"\uFFFD"},
        {"\xED\xA0\x80z", L"\uFFFDz"},
    };
    for (const SBad& b : bad) {
        EXPECT_EQ(ToWide(b.bytes), b.expected);
    }
    EXPECT_EQ(ToNarrow(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
}

TEST(StringUtilities, FromCString) {
    EXPECT_EQ(FromCString(nullptr), "");
    EXPECT_EQ(FromCString("abc"), "abc");
}

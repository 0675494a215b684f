#include "resources/CodedString.h"

#include <gtest/gtest.h>

namespace {

const std::wstring kMarker(1, kCodedStringMarker);

} // namespace

TEST(CodedString, DecodesAsTheProgramExpects) {
    const std::vector<std::pair<std::wstring, std::wstring>> cases = {
        {L"", L""},
        {kMarker, L""},
        {kMarker + L"QQ", L"A"}, // padding supplied
        {kMarker + L"SGVsbG8", L"Hello"},
        {L"Hello", L"Hello"}, // plain text passes through
        {L"a" + kMarker + L"QQ", L"a" + kMarker + L"QQ"},
        {kMarker + L"5pi+56S6", L"\u663E\u793A"},
        {kMarker + L"8J+YgA==", L"\U0001F600"},
        {kMarker + L"+/+/", L"\uFFFD\uFFFD\uFFFD"}, // bytes that are not UTF-8
        // An invalid character counts as 0; in third or fourth place it also ends its block.
        {kMarker + L"*UJD", L"\x01"
                            L"BC"},
        {kMarker + L"QUJ*QUJD", L"ABABC"},
        {kMarker + L"\u0151Q", L"A"}, // only the low byte counts
    };
    for (const auto& [coded, text] : cases) {
        EXPECT_EQ(DecodeCodedString(coded), text) << testing::PrintToString(coded);
    }
}

TEST(CodedString, ValueTableHoldsTheAlphabetPaddingAndNothingElse) {
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<int> expected(256, 128);
    for (size_t i = 0; i < alphabet.size(); ++i) {
        expected[static_cast<unsigned char>(alphabet[i])] = static_cast<int>(i);
    }
    expected['='] = 64;
    for (int c = 0; c < 256; ++c) {
        EXPECT_EQ(DecodeValue(static_cast<uint32_t>(c)), expected[c]) << "character " << c;
    }
    EXPECT_EQ(DecodeValue(0x298), 128);
}

TEST(CodedString, ResourceTextKeepsSurrogatePairsAndReplacesLoneOnes) {
    EXPECT_EQ(Utf16ToWide(u"a\xD83D\xDE00"
                          u"b\xDE00"),
              L"a\U0001F600b\uFFFD");
    EXPECT_EQ(Utf16ToWide(u"\xD83D"), L"\uFFFD");
}

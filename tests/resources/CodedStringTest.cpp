#include "resources/CodedString.h"

#include <gtest/gtest.h>

namespace {

const std::wstring kMarker(1, kCodedStringMarker);

} // namespace

TEST(CodedString, DecodesAsTheProgramExpects) {
    const std::vector<std::pair<std::wstring, std::wstring>> cases = {
        {L"", L""},
        {kMarker + L"QQ", L"A"}, // padding supplied
        {L"Hello", L"Hello"},    // plain text passes through
        {L"a" + kMarker + L"QQ", L"a" + kMarker + L"QQ"},
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

TEST(CodedString, ResourceTextKeepsSurrogatePairsAndReplacesLoneOnes) {
    EXPECT_EQ(Utf16ToWide(u"a\xD83D\xDE00"
                          u"b\xDE00"),
              L"a\U0001F600b\uFFFD");
    EXPECT_EQ(Utf16ToWide(u"\xD83D"), L"\uFFFD");
}

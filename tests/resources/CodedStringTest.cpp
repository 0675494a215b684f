#include "resources/CodedString.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const std::wstring kMarker(1, kCodedStringMarker);

struct SDecodeCase {
    const char* what;
    std::wstring coded;
    std::wstring text;
};

} // namespace

TEST(CodedString, DecodesAsTheProgramExpects) {
    const std::vector<SDecodeCase> cases = {
        {"empty input", L"", L""},
        {"marker alone", kMarker, L""},
        {"padding left out", kMarker + L"QQ", L"A"},
        {"padded", kMarker + L"SGVsbG8=", L"Hello"},
        {"one padding character left out", kMarker + L"SGVsbG8", L"Hello"},
        {"plain text", L"Hello", L"Hello"},
        {"plain text with a marker inside", L"a" + kMarker + L"QQ", L"a" + kMarker + L"QQ"},
        {"two-byte UTF-8", kMarker + L"w6k=", L"\u00E9"},
        {"three-byte UTF-8", kMarker + L"5pi+56S6", L"\u663E\u793A"},
        {"four-byte UTF-8", kMarker + L"8J+YgA==", L"\U0001F600"},
        {"bytes that are not UTF-8", kMarker + L"+/+/", L"\uFFFD\uFFFD\uFFFD"},
        // An invalid character counts as 0 where it stands...
        {"invalid first character", kMarker + L"*UJD",
         L"\x01"
         L"BC"},
        // ...and in the third or fourth place also ends that block's output.
        {"invalid third character", kMarker + L"QU*DQUJD", L"AABC"},
        {"invalid fourth character", kMarker + L"QUJ*QUJD", L"ABABC"},
        {"wide character keeps its low byte", kMarker + L"\u0151Q", L"A"},
    };
    for (const SDecodeCase& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(DecodeCodedString(c.coded), c.text);
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
        EXPECT_EQ(valueTable()[c], expected[c]) << "character " << c;
        EXPECT_EQ(DecodeValue(static_cast<uint32_t>(c)), expected[c]);
    }
    EXPECT_EQ(DecodeValue(0x298), 128);
}

TEST(CodedString, BlockDecoderIgnoresAPartialBlockAndTracesBadInputOnlyWhenAsked) {
    const std::vector<uint8_t> partial = {'Q', 'U', 'J', 'D', 'Q', 'Q'};
    EXPECT_EQ(DecodeBase64Block(partial), (std::vector<uint8_t>{'A', 'B', 'C'}));

    testing::internal::CaptureStderr();
    DecodeCodedString(kMarker + L"Q*==");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    gAssertsEnabled = true;
    testing::internal::CaptureStderr();
    const std::wstring decoded = DecodeCodedString(kMarker + L"Q*==QR==");
    const std::string traced = testing::internal::GetCapturedStderr();
    gAssertsEnabled = false;

    EXPECT_EQ(decoded, L"@A");
    EXPECT_NE(traced.find("Assert:((valueTable[coded_I] & 0x80) == 0)"), std::string::npos);
    EXPECT_NE(traced.find("Assert:(s2 < 64)"), std::string::npos);
    EXPECT_NE(traced.find("Assert:(bits == 0)"), std::string::npos);
}

TEST(CodedString, TextConversionsReplaceWhatIsNotUnicode) {
    struct SUtf8Case {
        std::vector<uint8_t> bytes;
        std::wstring text;
    };
    const std::vector<SUtf8Case> cases = {
        {{'a', 0xC3, 0xA9}, L"a\u00E9"},
        {{0xC0, 0x80}, L"\uFFFD"},             // overlong zero
        {{0x80, 'a'}, L"\uFFFDa"},             // stray continuation byte
        {{0xE2, 0x82}, L"\uFFFD"},             // cut short at the end
        {{0xE2, 0x82, 'a'}, L"\uFFFDa"},       // cut short before a character
        {{0xED, 0xA0, 0x80}, L"\uFFFD"},       // surrogate
        {{0xF4, 0x90, 0x80, 0x80}, L"\uFFFD"}, // beyond U+10FFFF
        {{0xFF}, L"\uFFFD"},
    };
    for (const SUtf8Case& c : cases) {
        EXPECT_EQ(Utf8ToWide(c.bytes), c.text);
    }
    EXPECT_EQ(Utf16ToWide(u"a\xD83D\xDE00"
                          u"b"),
              L"a\U0001F600b");
    EXPECT_EQ(Utf16ToWide(u"\xDE00\xD83D"), L"\uFFFD\uFFFD");
}

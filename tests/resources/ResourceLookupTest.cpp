#include "resources/ResourceLookup.h"
#include "resources/CodedString.h"
#include "resources/generator/ResourceEncoder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr uint16_t kEnglish = 9;
constexpr uint16_t kFrench = 12;
constexpr uint16_t kFrenchFrance = 1036;

void AddStrings(CResourceModule& module, uint16_t languageId, const std::vector<SDataRow>& rows) {
    for (auto& [blockId, words] : BuildStringBlocks(rows)) {
        module.AddStringBlock(blockId, languageId, words);
    }
}

std::string ModuleText(const CResourceModule& module) {
    char text[32];
    std::snprintf(text, sizeof(text), "%p", static_cast<const void*>(&module));
    return text;
}

struct SCaptured {
    std::wstring text;
    std::string trace;
};

template <typename TLookup>
SCaptured Capture(TLookup lookup) {
    testing::internal::CaptureStderr();
    std::wstring text = lookup();
    return {text, testing::internal::GetCapturedStderr()};
}

} // namespace

TEST(ResourceLookup, TableStringsFallBackAlongTheLanguageChain) {
    CResourceModule module;
    AddStrings(module, kEnglish, {{2001, "Display:", 1}, {2017, "Adobe RGB", 2}});
    AddStrings(module, kFrench, {{2001, "Écran :", 1}});
    AddStrings(module, 1028, {{2001, "顯示器：", 1}});
    AddStrings(module, 2052, {{2001, "显示器：", 1}});

    struct SCase {
        uint32_t id;
        uint16_t language;
        std::wstring text;
    };
    const std::vector<SCase> cases = {
        {2001, kFrenchFrance, L"Écran :"}, // found at 12
        {2001, 3076, L"顯示器："},         // Hong Kong walks to Traditional
        {2001, 4100, L"显示器："},         // Singapore walks to Simplified
        {2001, 1054, L"Display:"},         // Thai ends at English
        {2001, 0, L""},                    // neutral has nothing behind it
        {2002, kFrench, L""},              // a block without the string is a miss...
        {2017, kFrench, L"Adobe RGB"},     // ...but a missing block falls back
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(GetTableString(c.id, c.language, true, module), c.text)
            << c.id << " in " << c.language;
    }
    EXPECT_EQ(GetTableString(2001, kFrenchFrance, false, module), L"");
}

TEST(ResourceLookup, TableMissesTraceTheLanguageAskedFor) {
    CResourceModule module;
    AddStrings(module, kEnglish, {{2001, "Display:", 1}});

    const SCaptured noBlock = Capture([&] { return GetTableString(2901, 1036, true, module); });
    EXPECT_EQ(noBlock.text, L"");
    EXPECT_EQ(noBlock.trace,
              "Couldn't get table string 2901 (lang 040c, mod " + ModuleText(module) + ")\n");

    const SCaptured emptySlot = Capture([&] { return GetTableString(2002, 9, false, module); });
    EXPECT_EQ(emptySlot.text, L"");
    EXPECT_EQ(emptySlot.trace,
              "Couldn't get table string 2002 (lang 0009, mod " + ModuleText(module) + ")\n");

    const SCaptured hit = Capture([&] { return GetTableString(2001, 1036, true, module); });
    EXPECT_EQ(hit.text, L"Display:");
    EXPECT_EQ(hit.trace, "");
}

TEST(ResourceLookup, HandMadeBlocksAreReadByTheirLengths) {
    const std::wstring coded = DecodeCodedString(L"\u0298SGk=");
    ASSERT_EQ(coded, L"Hi");
    CResourceModule module;
    // Entries 0..3 of block 1: a terminator alone, plain text, a coded string, nothing.
    module.AddStringBlock(1, kEnglish,
                          {1, 0, 4, 'a', 'b', 'c', 0, 6, 0x298, 'S', 'G', 'k', '=', 0, 0});
    // A block whose lengths run past its end.
    module.AddStringBlock(2, kEnglish, {1, 0, 40, 'x'});

    EXPECT_EQ(Capture([&] { return GetTableString(0, kEnglish, false, module); }).trace, "");
    EXPECT_EQ(GetTableString(0, kEnglish, false, module), L"");
    EXPECT_EQ(GetTableString(1, kEnglish, false, module), L"abc");
    EXPECT_EQ(GetTableString(2, kEnglish, false, module), L"Hi");
    EXPECT_EQ(GetTableString(3, kEnglish, false, module), L"");
    EXPECT_EQ(GetTableString(15, kEnglish, false, module), L"");
    EXPECT_EQ(GetTableString(17, kEnglish, false, module), L"");
    EXPECT_EQ(GetTableString(20, kEnglish, false, module), L"");
}

TEST(ResourceLookup, GroupsTakeTheFirstRowAndDoNotRetryAnotherLanguage) {
    CResourceModule module;
    module.AddGroup(
        "2000", kEnglish,
        BuildGroup(
            {{0x0304, "Panel 13", 1}, {0x032B, "Panel 27 Touch", 2}, {0x0304, "Second row", 3}}));
    module.AddGroup("2000", kFrench, BuildGroup({{0x032B, "Écran 27 tactile", 1}}));
    module.AddGroup("2101", kEnglish, BuildGroup({{0x0304, "PDX-1300", 1}}));
    module.AddGroup("empty", kEnglish, {0xFF, 0xFF, 0x04, 0x03, 'x', 0, 0, 0, 0xFF, 0xFF});

    struct SCase {
        const char* group;
        uint16_t key;
        uint16_t language;
        std::wstring text;
    };
    const std::vector<SCase> cases = {
        {"2000", 0x0304, kEnglish, L"Panel 13"}, // the first of two rows
        {"2000", 0x032B, kFrenchFrance, L"Écran 27 tactile"},
        {"2000", 0x0304, kFrenchFrance, L""},         // French group lacks it: no English
        {"2101", 0x0304, kFrenchFrance, L"PDX-1300"}, // no French group: English
        {"2000", 0x9999, kEnglish, L""},
        {"empty", 0x0304, kEnglish, L""}, // 0xFFFF first: empty group
        {"2102", 0x0304, kEnglish, L""},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(GetGroupString(c.group, c.key, c.language, true, module), c.text)
            << c.group << "/" << c.key << " in " << c.language;
    }

    const SCaptured miss = Capture([&] { return GetGroupString("2000", 772, 1036, true, module); });
    EXPECT_EQ(miss.trace, "Couldn't get group string '2000' / 772 (lang 040c, mod " +
                              ModuleText(module) + ")\n");
}

TEST(ResourceLookup, GroupEntriesAreRawAndBrokenGroupsMissQuietly) {
    CResourceModule module;
    // Plain text value, then a value cut off before its terminator.
    module.AddGroup("plain", kEnglish, {0x01, 0x00, 'O', 0, 'k', 0, 0, 0, 0x02, 0x00, 'c', 0});
    module.AddGroup("odd", kEnglish, {0x01, 0x00, 'a', 0, 0, 0, 0x02});
    module.AddGroup("coded", kEnglish, BuildGroup({{7, "Panel", 1}}));

    EXPECT_EQ(FindGroupEntry(module, "plain", kEnglish, false, 1), std::u16string(u"Ok"));
    EXPECT_EQ(GetGroupString("plain", 1, kEnglish, false, module), L"Ok");
    EXPECT_FALSE(FindGroupEntry(module, "plain", kEnglish, false, 2).has_value());
    EXPECT_FALSE(FindGroupEntry(module, "plain", kEnglish, false, 3).has_value());
    EXPECT_FALSE(FindGroupEntry(module, "odd", kEnglish, false, 2).has_value());
    EXPECT_EQ(FindGroupEntry(module, "coded", kEnglish, false, 7),
              std::u16string(u"\u0298UGFuZWw="));
    EXPECT_FALSE(FindGroupEntry(module, "coded", kFrench, false, 7).has_value());
}

#include "resources/ResourceLookup.h"
#include "resources/generator/ResourceEncoder.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

constexpr uint16_t kEnglish = 9;
constexpr uint16_t kFrench = 12;

void AddStrings(CResourceModule& module, uint16_t languageId, const std::vector<SDataRow>& rows) {
    for (auto& [blockId, words] : BuildStringBlocks(rows)) {
        module.AddStringBlock(blockId, languageId, words);
    }
}

std::string MissLine(const std::string& head, uint16_t language, const CResourceModule& module) {
    char text[96];
    std::snprintf(text, sizeof(text), " (lang %04x, mod %p)\n", language,
                  static_cast<const void*>(&module));
    return head + text;
}

template <typename TLookup>
std::string TraceOf(TLookup lookup) {
    testing::internal::CaptureStderr();
    lookup();
    return testing::internal::GetCapturedStderr();
}

} // namespace

TEST(ResourceLookup, TableStringsFallBackAlongTheLanguageChain) {
    CResourceModule module;
    AddStrings(module, kEnglish, {{2001, "Display:", 1}, {2017, "Adobe RGB", 2}});
    AddStrings(module, kFrench, {{2001, "Écran :", 1}});
    AddStrings(module, 1028, {{2001, "顯示器：", 1}});
    AddStrings(module, 2052, {{2001, "显示器：", 1}});

    const std::vector<std::tuple<uint32_t, uint16_t, std::wstring>> cases = {
        {2001, 1036, L"Écran :"},      // found at 12
        {2001, 3076, L"顯示器："},     // Hong Kong walks to Traditional
        {2001, 1054, L"Display:"},     // Thai ends at English
        {2001, 0, L""},                // nothing behind neutral
        {2002, kFrench, L""},          // a block without the string is a miss...
        {2017, kFrench, L"Adobe RGB"}, // ...but a missing block falls back
    };
    for (const auto& [id, language, text] : cases) {
        EXPECT_EQ(GetTableString(id, language, true, module), text) << id << " in " << language;
    }
    EXPECT_EQ(GetTableString(2001, 1036, false, module), L"");

    EXPECT_EQ(TraceOf([&] { GetTableString(2901, 1036, true, module); }),
              MissLine("Couldn't get table string 2901", 0x040c, module));
    EXPECT_EQ(TraceOf([&] { GetTableString(2002, 9, false, module); }),
              MissLine("Couldn't get table string 2002", 9, module));
    EXPECT_EQ(TraceOf([&] { GetTableString(2001, 1036, true, module); }), "");
}

TEST(ResourceLookup, HandMadeBlocksAreReadByTheirLengths) {
    CResourceModule module;
    // Entries 0..3: a terminator alone, plain text, a coded string, nothing.
    module.AddStringBlock(1, kEnglish,
                          {1, 0, 4, 'a', 'b', 'c', 0, 6, 0x298, 'S', 'G', 'k', '=', 0, 0});
    module.AddStringBlock(2, kEnglish, {1, 0, 40, 'x'}); // lengths run past the end

    EXPECT_EQ(TraceOf([&] { EXPECT_EQ(GetTableString(0, kEnglish, false, module), L""); }), "");
    const std::vector<std::pair<uint32_t, std::wstring>> cases = {
        {1, L"abc"}, {2, L"Hi"}, {3, L""}, {15, L""}, {17, L""}, {20, L""}};
    for (const auto& [id, text] : cases) {
        EXPECT_EQ(GetTableString(id, kEnglish, false, module), text) << id;
    }
}

TEST(ResourceLookup, GroupsTakeTheFirstRowAndDoNotRetryAnotherLanguage) {
    CResourceModule module;
    module.AddGroup(
        "2000", kEnglish,
        BuildGroup(
            {{0x0304, "Panel 13", 1}, {0x032B, "Panel 27 Touch", 2}, {0x0304, "Second row", 3}}));
    module.AddGroup("2000", kFrench, BuildGroup({{0x032B, "Écran 27 tactile", 1}}));
    module.AddGroup("2101", kEnglish, BuildGroup({{0x0304, "PDX-1300", 1}}));
    module.AddGroup("empty", kEnglish, {0xFF, 0xFF, 0, 0, 0x04, 0x03, 'x', 0, 0, 0, 0xFF, 0xFF});
    // Plain text, then a value cut off before its terminator.
    module.AddGroup("raw", kEnglish, {0x01, 0x00, 'O', 0, 'k', 0, 0, 0, 0x02, 0x00, 'c', 0});

    const std::vector<std::tuple<const char*, uint16_t, uint16_t, std::wstring>> cases = {
        {"2000", 0x0304, kEnglish, L"Panel 13"},
        {"2000", 0x032B, 1036, L"Écran 27 tactile"},
        {"2000", 0x0304, 1036, L""},         // the French group lacks it: no English
        {"2101", 0x0304, 1036, L"PDX-1300"}, // no French group: English
        {"2000", 0x9999, kEnglish, L""},
        {"empty", 0x0304, kEnglish, L""}, // 0xFFFF first: every look-up misses
        {"raw", 0x0001, kEnglish, L"Ok"},
        {"raw", 0x0002, kEnglish, L""},
        {"raw", 0x0003, kEnglish, L""},
    };
    for (const auto& [group, key, language, text] : cases) {
        EXPECT_EQ(GetGroupString(group, key, language, true, module), text)
            << group << "/" << key << " in " << language;
    }
    EXPECT_EQ(FindGroupEntry(module, "2101", kEnglish, false, 0x0304),
              std::u16string(u"\u0298UERYLTEzMDA="));
    EXPECT_FALSE(FindGroupEntry(module, "2101", kFrench, false, 0x0304).has_value());
    EXPECT_EQ(TraceOf([&] { GetGroupString("2000", 772, 1036, true, module); }),
              MissLine("Couldn't get group string '2000' / 772", 0x040c, module));
}

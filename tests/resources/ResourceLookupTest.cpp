#include "resources/ResourceLookup.h"
#include "resources/generator/ResourceEncoder.h"

#include <gtest/gtest.h>

namespace {

constexpr uint16_t kEnglish = 9;
constexpr uint16_t kFrench = 12;

void AddStrings(CResourceModule& module, uint16_t languageId, const std::vector<SDataRow>& rows) {
    for (auto& [blockId, words] : BuildStringBlocks(rows)) {
        module.AddStringBlock(blockId, languageId, words);
    }
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
}

TEST(ResourceLookup, GroupsTakeTheFirstRowAndDoNotRetryAnotherLanguage) {
    CResourceModule module;
    module.AddGroup(
        "2000", kEnglish,
        BuildGroup(
            {{0x0304, "Panel 13", 1}, {0x032B, "Panel 27 Touch", 2}, {0x0304, "Second row", 3}}));
    module.AddGroup("2000", kFrench, BuildGroup({{0x032B, "Écran 27 tactile", 1}}));
    module.AddGroup("2101", kEnglish, BuildGroup({{0x0304, "PDX-1300", 1}}));

    const std::vector<std::tuple<const char*, uint16_t, uint16_t, std::wstring>> cases = {
        {"2000", 0x0304, kEnglish, L"Panel 13"},
        {"2000", 0x032B, 1036, L"Écran 27 tactile"},
        {"2000", 0x0304, 1036, L""},         // the French group lacks it: no English
        {"2101", 0x0304, 1036, L"PDX-1300"}, // no French group: English
        {"2000", 0x9999, kEnglish, L""},
    };
    for (const auto& [group, key, language, text] : cases) {
        EXPECT_EQ(GetGroupString(group, key, language, true, module), text)
            << group << "/" << key << " in " << language;
    }
    EXPECT_EQ(FindGroupEntry(module, "2101", kEnglish, false, 0x0304),
              std::u16string(u"\u0298UERYLTEzMDA="));
    EXPECT_FALSE(FindGroupEntry(module, "2101", kFrench, false, 0x0304).has_value());
}

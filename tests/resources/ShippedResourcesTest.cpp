// The resources compiled into the program against the data files they come from.

#include "foundation/StringUtilities.h"
#include "resources/LanguageTable.h"
#include "resources/ResourceLookup.h"
#include "resources/StringIds.h"
#include "resources/generator/ResourceDataFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

constexpr uint16_t kEnglish = 9;

// Product ids of the tablets the program supports as displays.
constexpr uint16_t kSupportedTablets[] = {
    0x0304, 0x0307, 0x0325, 0x0333, 0x032B, 0x032A, 0x034F, 0x0350, 0x0351, 0x0352, 0x037C,
    0x0390, 0x0396, 0x0398, 0x0399, 0x03A6, 0x03AE, 0x03B0, 0x034D, 0x034E, 0x0391,
};

} // namespace

TEST(ShippedResources, EveryRowDecodesFromItsCodedFormToItsSourceText) {
    const CResourceModule& module = ProgramResources();
    struct SDataSource {
        std::string path;
        std::string group; // empty for strings
        uint16_t languageId;
        std::vector<SDataRow> rows;
    };
    std::vector<SDataSource> sources;
    for (const auto& entry : fs::recursive_directory_iterator(PANELTUNE_RESOURCE_DATA_DIR)) {
        const fs::path& path = entry.path();
        if (entry.is_regular_file() && path.extension() == ".txt") {
            const bool isGroup = path.parent_path().parent_path().filename() == "groups";
            std::ostringstream content;
            content << std::ifstream(path, std::ios::binary).rdbuf();
            const SDataFile file = ParseDataFile(content.str(), isGroup ? EDataFileKind::Group
                                                                        : EDataFileKind::Strings);
            EXPECT_EQ(file.error, "") << path;
            sources.push_back({path.string(), isGroup ? path.parent_path().filename().string() : "",
                               static_cast<uint16_t>(LanguageIdOfTag(path.stem().string())),
                               file.rows});
        }
    }
    ASSERT_GE(sources.size(), 3U);
    std::set<std::pair<std::string, uint32_t>> english;
    for (const SDataSource& source : sources) {
        for (const SDataRow& row : source.rows) {
            if (source.languageId == kEnglish) {
                english.insert({source.group, row.key});
            }
        }
    }
    for (const SDataSource& source : sources) {
        std::set<uint32_t> seenKeys;
        for (const SDataRow& row : source.rows) {
            const std::string where = source.path + ":" + std::to_string(row.line);
            EXPECT_NE(row.text, "") << where;
            // A translation holds no key that English lacks: that would be a typing error.
            EXPECT_TRUE(english.count({source.group, row.key})) << where;
            if (source.group.empty()) {
                EXPECT_EQ(GetTableString(row.key, source.languageId, false, module),
                          ToWide(row.text))
                    << where;
            } else if (seenKeys.insert(row.key).second) { // a repeated key is never read
                EXPECT_EQ(GetGroupString(source.group, static_cast<uint16_t>(row.key),
                                         source.languageId, false, module),
                          ToWide(row.text))
                    << where;
            }
        }
    }
}

TEST(ShippedResources, EveryTranslatedLanguageHoldsEveryStringAndTheOthersShowEnglish) {
    const CResourceModule& module = ProgramResources();
    const std::vector<uint16_t> languages = module.Languages();
    const std::wstring title = GetTableString(2000, kEnglish, false, module);
    for (const SLanguageRow& row : kLanguageRows) {
        EXPECT_EQ(std::count(languages.begin(), languages.end(), row.languageId), row.translated)
            << row.name;
        for (const uint16_t id : ProgramStringIds()) {
            EXPECT_NE(GetTableString(id, row.languageId, !row.translated, module), L"")
                << id << " in " << row.name;
        }
        if (!row.translated) {
            EXPECT_EQ(GetTableString(2000, row.languageId, true, module), title) << row.name;
        }
    }
    EXPECT_EQ(GetTableString(2000, 0, true, module), title); // the neutral language
}

TEST(ShippedResources, ModelGroupsAnswerForEveryTabletInEveryLanguage) {
    const CResourceModule& module = ProgramResources();
    std::vector<uint16_t> languages = {1036}; // a region that falls back
    for (const SLanguageRow& row : kLanguageRows) {
        languages.push_back(row.languageId);
    }
    for (const char* group : {"2000", "2101"}) {
        for (const uint16_t languageId : languages) {
            for (const uint16_t key : kSupportedTablets) {
                EXPECT_NE(GetGroupString(group, key, languageId, true, module), L"")
                    << group << "/" << key << " in " << languageId;
            }
        }
    }
}

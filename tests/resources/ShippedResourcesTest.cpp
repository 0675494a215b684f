// The resources compiled into the program against the data files they come from.

#include "resources/CResourceModule.h"
#include "resources/LanguageTable.h"
#include "resources/ResourceLookup.h"
#include "resources/StringIds.h"
#include "resources/generator/ResourceDataFile.h"

#include <gtest/gtest.h>

#include <algorithm>
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

struct SDataSource {
    fs::path path;
    std::string group; // empty for strings
    uint16_t languageId;
    std::vector<SDataRow> rows;
};

std::vector<SDataSource> ReadDataFolder() {
    std::vector<SDataSource> sources;
    for (const auto& entry : fs::recursive_directory_iterator(PANELTUNE_RESOURCE_DATA_DIR)) {
        if (!entry.is_regular_file() || entry.path().extension() != ".txt") {
            continue;
        }
        const fs::path& path = entry.path();
        const bool isGroup = path.parent_path().parent_path().filename() == "groups";
        std::ifstream stream(path, std::ios::binary);
        std::ostringstream content;
        content << stream.rdbuf();
        const SDataFile file =
            ParseDataFile(content.str(), isGroup ? EDataFileKind::Group : EDataFileKind::Strings);
        EXPECT_EQ(file.error, "") << path;
        const int32_t languageId = LanguageIdOfTag(path.stem().string());
        EXPECT_GE(languageId, 0) << path;
        sources.push_back({path, isGroup ? path.parent_path().filename().string() : "",
                           static_cast<uint16_t>(languageId), file.rows});
    }
    return sources;
}

const std::vector<SDataSource>& DataSources() {
    static const std::vector<SDataSource> sources = ReadDataFolder();
    return sources;
}

std::string WideToUtf8(const std::wstring& text) {
    std::string utf8;
    for (const wchar_t c : text) {
        const auto v = static_cast<uint32_t>(c);
        if (v < 0x80) {
            utf8 += static_cast<char>(v);
        } else if (v < 0x800) {
            utf8 += static_cast<char>(0xC0 | (v >> 6));
            utf8 += static_cast<char>(0x80 | (v & 0x3F));
        } else if (v < 0x10000) {
            utf8 += static_cast<char>(0xE0 | (v >> 12));
            utf8 += static_cast<char>(0x80 | ((v >> 6) & 0x3F));
            utf8 += static_cast<char>(0x80 | (v & 0x3F));
        } else {
            utf8 += static_cast<char>(0xF0 | (v >> 18));
            utf8 += static_cast<char>(0x80 | ((v >> 12) & 0x3F));
            utf8 += static_cast<char>(0x80 | ((v >> 6) & 0x3F));
            utf8 += static_cast<char>(0x80 | (v & 0x3F));
        }
    }
    return utf8;
}

std::set<uint16_t> TranslatedLanguages() {
    std::set<uint16_t> ids;
    for (const SLanguageRow& row : kLanguageRows) {
        if (row.translated) {
            ids.insert(row.languageId);
        }
    }
    return ids;
}

const SDataSource* EnglishGroup(const std::string& name) {
    for (const SDataSource& source : DataSources()) {
        if (source.group == name && source.languageId == kEnglish) {
            return &source;
        }
    }
    return nullptr;
}

} // namespace

TEST(ShippedResources, EveryRowDecodesToItsSourceText) {
    const CResourceModule& module = ProgramResources();
    ASSERT_FALSE(DataSources().empty());
    for (const SDataSource& source : DataSources()) {
        std::set<uint32_t> seenKeys;
        for (const SDataRow& row : source.rows) {
            EXPECT_FALSE(row.text.empty()) << source.path << ":" << row.line;
            std::wstring decoded;
            if (source.group.empty()) {
                decoded = GetTableString(row.key, source.languageId, false, module);
            } else if (seenKeys.insert(row.key).second) {
                decoded = GetGroupString(source.group, static_cast<uint16_t>(row.key),
                                         source.languageId, false, module);
            } else {
                continue; // a repeated key is never read
            }
            EXPECT_EQ(WideToUtf8(decoded), row.text) << source.path << ":" << row.line;
        }
    }
}

TEST(ShippedResources, EveryStoredValueIsCoded) {
    const CResourceModule& module = ProgramResources();
    size_t strings = 0;
    for (const uint16_t languageId : module.Languages()) {
        for (const uint16_t blockId : module.StringBlockIds(languageId)) {
            const std::vector<uint16_t>& words = *module.FindStringBlock(blockId, languageId);
            size_t position = 0;
            for (int entry = 0; entry < 16; ++entry) {
                ASSERT_LT(position, words.size());
                if (words[position] != 0) {
                    EXPECT_EQ(words[position + 1], 0x0298) << blockId << " in " << languageId;
                    ++strings;
                }
                position += 1 + words[position];
            }
            EXPECT_EQ(position, words.size());
        }
    }
    EXPECT_GE(strings, ProgramStringIds().size());
    for (const SDataSource& source : DataSources()) {
        for (const SDataRow& row : source.rows) {
            if (!source.group.empty()) {
                const auto raw = FindGroupEntry(module, source.group, source.languageId, false,
                                                static_cast<uint16_t>(row.key));
                ASSERT_TRUE(raw.has_value()) << source.path << ":" << row.line;
                EXPECT_EQ(raw->front(), u'\u0298') << source.path << ":" << row.line;
            }
        }
    }
}

TEST(ShippedResources, EveryTranslatedLanguageHoldsEveryString) {
    const CResourceModule& module = ProgramResources();
    const std::vector<uint16_t> languages = module.Languages();
    std::set<uint32_t> englishIds;
    for (const uint16_t id : ProgramStringIds()) {
        EXPECT_NE(GetTableString(id, kEnglish, false, module), L"") << id << " in English";
    }
    for (const SDataSource& source : DataSources()) {
        if (source.group.empty() && source.languageId == kEnglish) {
            for (const SDataRow& row : source.rows) {
                englishIds.insert(row.key);
            }
        }
    }
    for (const uint16_t languageId : TranslatedLanguages()) {
        EXPECT_TRUE(std::count(languages.begin(), languages.end(), languageId))
            << "no resources in " << languageId;
        for (const uint16_t id : ProgramStringIds()) {
            EXPECT_NE(GetTableString(id, languageId, false, module), L"")
                << id << " in " << languageId;
        }
    }
    // A translation holds no id that English lacks: that would be a typing error.
    for (const SDataSource& source : DataSources()) {
        for (const SDataRow& row : source.rows) {
            if (source.group.empty()) {
                EXPECT_TRUE(englishIds.count(row.key)) << source.path << ":" << row.line;
            }
        }
    }
}

TEST(ShippedResources, UntranslatedLanguagesShowEnglish) {
    const CResourceModule& module = ProgramResources();
    const std::vector<uint16_t> languages = module.Languages();
    const std::wstring title = GetTableString(2000, kEnglish, false, module);
    ASSERT_NE(title, L"");
    for (const SLanguageRow& row : kLanguageRows) {
        if (row.translated) {
            continue;
        }
        EXPECT_FALSE(std::count(languages.begin(), languages.end(), row.languageId)) << row.name;
        EXPECT_EQ(GetTableString(2000, row.languageId, true, module), title) << row.name;
        EXPECT_EQ(GetGroupString("2101", 0x0304, row.languageId, true, module),
                  GetGroupString("2101", 0x0304, kEnglish, false, module));
    }
    // The neutral language, chosen by word, is served too.
    EXPECT_EQ(GetTableString(2000, 0, true, module), title);
}

TEST(ShippedResources, ModelGroupsAnswerForEveryTabletInEveryLanguage) {
    const CResourceModule& module = ProgramResources();
    std::vector<uint16_t> languages = module.Languages();
    for (const SLanguageRow& row : kLanguageRows) {
        languages.push_back(row.languageId);
    }
    languages.push_back(1036); // a region that falls back
    for (const std::string group : {"2000", "2101"}) {
        const SDataSource* english = EnglishGroup(group);
        ASSERT_NE(english, nullptr) << group;
        std::set<uint16_t> keys(std::begin(kSupportedTablets), std::end(kSupportedTablets));
        for (const SDataRow& row : english->rows) {
            keys.insert(static_cast<uint16_t>(row.key));
        }
        for (const uint16_t languageId : languages) {
            for (const uint16_t key : keys) {
                EXPECT_NE(GetGroupString(group, key, languageId, true, module), L"")
                    << group << "/0x" << std::hex << key << " in " << std::dec << languageId;
            }
        }
    }
}

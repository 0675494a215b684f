#include "resources/generator/ResourceDataFile.h"
#include "resources/generator/ResourceEncoder.h"

#include <gtest/gtest.h>

#include <vector>

TEST(ResourceDataFile, ReadsRowsAndResolvesEscapes) {
    const SDataFile file = ParseDataFile("\xEF\xBB\xBF# comment\n"
                                         "\n"
                                         "2001\tDisplay:\r\n"
                                         "2907\tLine one\\nLine two\\\\n\\tend\n"
                                         "2002\t\n"
                                         "2003\tKontrast\xC3\xA9",
                                         EDataFileKind::Strings);
    ASSERT_EQ(file.error, "");
    ASSERT_EQ(file.rows.size(), 4U);
    EXPECT_EQ(file.rows[0].key, 2001U);
    EXPECT_EQ(file.rows[0].text, "Display:");
    EXPECT_EQ(file.rows[0].line, 3);
    EXPECT_EQ(file.rows[1].text, "Line one\nLine two\\n\tend");
    EXPECT_EQ(file.rows[2].text, "");
    EXPECT_EQ(file.rows[3].text, "Kontrast\xC3\xA9");

    const SDataFile group = ParseDataFile(
        "0x0304\tPanel 13\n0X032b\tPanel 27 Touch\n0x0304\tAgain\n", EDataFileKind::Group);
    ASSERT_EQ(group.error, "");
    ASSERT_EQ(group.rows.size(), 3U);
    EXPECT_EQ(group.rows[1].key, 0x032BU);
    EXPECT_EQ(group.rows[2].key, 0x0304U);
}

TEST(ResourceDataFile, RejectsBadLinesWithTheirNumber) {
    struct SCase {
        const char* content;
        EDataFileKind kind;
        const char* error;
    };
    const std::vector<SCase> cases = {
        {"2001 Display:\n", EDataFileKind::Strings, "line 1: no tab between key and text"},
        {"#\nx2001\tA\n", EDataFileKind::Strings, "line 2: bad key 'x2001'"},
        {"65536\tA\n", EDataFileKind::Strings, "line 1: bad key '65536'"},
        {"-1\tA\n", EDataFileKind::Strings, "line 1: bad key '-1'"},
        {"0x10\tA\n", EDataFileKind::Strings, "line 1: bad key '0x10'"},
        {"2001\tA\n2001\tB\n", EDataFileKind::Strings, "line 2: id 2001 stands twice"},
        {"2001\ta\\qb\n", EDataFileKind::Strings, "line 1: unknown escape; use \\n, \\t or \\\\"},
        {"2001\tab\\\n", EDataFileKind::Strings, "line 1: unknown escape; use \\n, \\t or \\\\"},
        {"2001\t\xC3\n", EDataFileKind::Strings, "line 1: text is not UTF-8"},
        {"2001\t\xED\xA0\x80\n", EDataFileKind::Strings, "line 1: text is not UTF-8"},
        {"0xFFFF\tEnd\n", EDataFileKind::Group, "line 1: bad key '0xFFFF'"},
        {"304\tPanel\n", EDataFileKind::Group, "line 1: bad key '304'"},
        {"0x\tPanel\n", EDataFileKind::Group, "line 1: bad key '0x'"},
        {"0x10000\tPanel\n", EDataFileKind::Group, "line 1: bad key '0x10000'"},
    };
    for (const SCase& c : cases) {
        const SDataFile file = ParseDataFile(c.content, c.kind);
        EXPECT_EQ(file.error, c.error) << c.content;
        EXPECT_TRUE(file.rows.empty()) << c.content;
    }
}

TEST(ResourceEncoder, BuildsCodedStringsBlocksAndGroups) {
    EXPECT_EQ(EncodeCodedString(""), u"\u0298");
    EXPECT_EQ(EncodeCodedString("A"), u"\u0298QQ==");
    EXPECT_EQ(EncodeCodedString("AB"), u"\u0298QUI=");
    EXPECT_EQ(EncodeCodedString("ABC"), u"\u0298QUJD");
    EXPECT_EQ(EncodeCodedString("\xE6\x98\xBE\xE7\xA4\xBA"), u"\u02985pi+56S6");

    const auto blocks = BuildStringBlocks({{2001, "B", 1}, {2017, "", 2}});
    ASSERT_EQ(blocks.size(), 2U);
    std::vector<uint16_t> expected126(16, 0);
    expected126.erase(expected126.begin() + 1);
    const std::vector<uint16_t> entry = {6, 0x298, 'Q', 'g', '=', '=', 0};
    expected126.insert(expected126.begin() + 1, entry.begin(), entry.end());
    EXPECT_EQ(blocks.at(126), expected126);
    std::vector<uint16_t> expected127(16, 0);
    expected127[1] = 2;
    expected127.insert(expected127.begin() + 2, {0x298, 0});
    EXPECT_EQ(blocks.at(127), expected127);

    EXPECT_EQ(BuildGroup({}), (std::vector<uint8_t>{0xFF, 0xFF}));
    EXPECT_EQ(BuildGroup({{0x032B, "A", 1}}),
              (std::vector<uint8_t>{0x2B, 0x03, 0x98, 0x02, 'Q', 0, 'Q', 0, '=', 0, '=', 0, 0, 0,
                                    0xFF, 0xFF}));
}

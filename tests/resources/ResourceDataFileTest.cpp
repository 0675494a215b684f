#include "resources/generator/ResourceDataFile.h"

#include <gtest/gtest.h>

TEST(ResourceDataFile, ReadsRowsAndResolvesEscapes) {
    const SDataFile file = ParseDataFile("\xEF\xBB\xBF# comment\n\n2001\tDisplay:\r\n"
                                         "2907\tOne\\nTwo\\\\n\\tend\n2003\tKontrast\xC3\xA9",
                                         EDataFileKind::Strings);
    ASSERT_EQ(file.error, "");
    ASSERT_EQ(file.rows.size(), 3U);
    EXPECT_EQ(file.rows[0].key, 2001U);
    EXPECT_EQ(file.rows[0].text, "Display:");
    EXPECT_EQ(file.rows[0].line, 3);
    EXPECT_EQ(file.rows[1].text, "One\nTwo\\n\tend");
    EXPECT_EQ(file.rows[2].text, "Kontrast\xC3\xA9");

    const SDataFile group =
        ParseDataFile("0x0304\tA\n0X032b\tB\n0x0304\tC\n", EDataFileKind::Group);
    ASSERT_EQ(group.rows.size(), 3U);
    EXPECT_EQ(group.rows[1].key, 0x032BU);
}

TEST(ResourceDataFile, RejectsBadLinesWithTheirNumber) {
    const auto strings = EDataFileKind::Strings;
    const auto group = EDataFileKind::Group;
    const std::vector<std::tuple<const char*, EDataFileKind, const char*>> cases = {
        {"2001 Display:\n", strings, "line 1: no tab between key and text"},
        {"65536\tA\n", strings, "line 1: bad key '65536'"},
        {"2001\tA\n2001\tB\n", strings, "line 2: id 2001 stands twice"},
        {"2001\ta\\qb\n", strings, "line 1: unknown escape; use \\n, \\t or \\\\"},
        {"2001\t\xED\xA0\x80\n", strings, "line 1: text is not UTF-8"},
        {"0xFFFF\tEnd\n", group, "line 1: bad key '0xFFFF'"},
    };
    for (const auto& [content, kind, error] : cases) {
        const SDataFile file = ParseDataFile(content, kind);
        EXPECT_EQ(file.error, error) << content;
        EXPECT_TRUE(file.rows.empty()) << content;
    }
}

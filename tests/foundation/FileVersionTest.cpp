#include "foundation/FileVersion.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using Fields = std::tuple<int, int, int, int, int>;

Fields FieldsOf(const FileVersion& v) {
    return {v.mMajor, v.mMinor, v.mVariation, v.mRelease, v.mBuild};
}

} // namespace

TEST(FileVersion, ParsesText) {
    const struct {
        std::string text;
        bool web;
        Fields fields;
    } cases[] = {
        {"1.23", false, {1, 2, 3, 0, 0}},        {"2.1", false, {2, 0, 1, 0, 0}},
        {"2.3.4", false, {2, 3, 4, 5, 0}},       {"2.3.4", true, {2, 3, 4, 3, 0}},
        {"2.3.4b5", false, {2, 3, 4, 2, 5}},     {"2.3.4A5", false, {2, 3, 4, 1, 5}},
        {"2.3.4w7", false, {2, 3, 4, 3, 7}},     {"2.3.4D9", false, {2, 3, 4, 4, 9}},
        {"2.3.4-6", false, {2, 3, 4, 5, 6}},     {"2.3.4?8", false, {2, 3, 4, 0, 8}},
        {"54.32.10", false, {54, 32, 10, 5, 0}}, {"1.300", false, {1, 30, 0, 0, 0}},
        {"300.1.1", false, {44, 1, 1, 5, 0}},    {"noversion", false, {0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FieldsOf(FileVersion(c.text, c.web)), c.fields) << c.text;
    }
}

TEST(FileVersion, WritesTextAndNumbersInEachStyle) {
    const struct {
        FileVersion version;
        int style;
        std::string text;
    } texts[] = {
        {FileVersion(2, 3, 4, 2, 5), 0, "2.3.4b5"}, {FileVersion(2, 3, 4, 0, 1), 0, "2.3.4?1"},
        {FileVersion(2, 3, 4, 5, 6), 1, "2.3.4.6"}, {FileVersion(2, 3, 4, 5, 0), 2, "2.3.4"},
        {FileVersion(1, 2, 3, 0, 0), 3, "1.23"},    {FileVersion(1, 5, 0, 0, 0), 4, "1.05"},
        {FileVersion(1, 12, 0, 0, 0), 4, "1.12"},   {FileVersion(1, 2, 3, 0, 0), 6, ""},
    };
    for (const auto& c : texts) {
        EXPECT_EQ(c.version.AsString(c.style), c.text) << c.text;
    }
    const struct {
        uint32_t number;
        int style;
        Fields fields;
    } numbers[] = {
        {0x010203, 2, {1, 2, 3, 5, 0}},
        {0x01000B, 3, {1, 1, 1, 0, 0}},
        {0x0105, 4, {1, 5, 0, 0, 0}},
        {0x0A0B0C, 5, {10, 11, 12, 0, 0}},
    };
    for (const auto& c : numbers) {
        const FileVersion version(c.number, c.style);
        EXPECT_EQ(FieldsOf(version), c.fields) << c.style;
        EXPECT_EQ(version.AsNumber(c.style), c.number) << c.style;
    }
    EXPECT_EQ(FieldsOf(FileVersion(0x010203, 1)), Fields{});
}

TEST(FileVersion, NormalizeAndValidity) {
    for (const auto& [before, after] : {std::pair{FileVersion("2.1"), Fields(2, 1, 0, 0, 0)},
                                        {FileVersion(2, 30, 1, 0, 0), Fields(2, 45, 0, 0, 0)},
                                        {FileVersion(2, 0, 12, 0, 0), Fields(2, 0, 12, 0, 0)}}) {
        FileVersion normalized = before;
        normalized.Normalize();
        EXPECT_EQ(FieldsOf(normalized), after);
    }
    EXPECT_FALSE(FileVersion(0, 0, 0, 5, 0).IsValid());
    EXPECT_TRUE(FileVersion(0, 0, 0, 0, 1).IsValid());
    EXPECT_LT(FileVersion("1.2.3"), FileVersion("1.10.0"));
}

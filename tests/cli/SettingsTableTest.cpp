#include "cli/SettingsTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(SettingsTable, EveryNameReadsBackToItselfAndNumbersMeanTheSame) {
    std::set<std::string> seen;
    for (const SSettingRow& row : SettingsTable()) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(seen.insert(row.name).second);
        EXPECT_EQ(FindSetting(row.name), &row);
        ASSERT_TRUE(row.status && row.get && row.set);
        std::set<int32_t> values;
        for (const SValueName& name : row.names) {
            EXPECT_TRUE(values.insert(name.value).second);
            SSettingValue value;
            std::string error;
            ASSERT_TRUE(ParseSettingValue(row, false, name.name, {}, value, error)) << error;
            EXPECT_EQ(value.value, name.value);
            EXPECT_EQ(FormatSettingValue(row, false, value), name.name);
            ASSERT_TRUE(
                ParseSettingValue(row, false, std::to_string(name.value), {}, value, error));
            EXPECT_EQ(value.value, name.value);
        }
    }
    EXPECT_EQ(FindSetting("Brightness"), FindSetting("brightness"));
    EXPECT_EQ(FindSetting("all"), nullptr);
}

TEST(SettingsTable, ValuesOutsideARowAreRefusedWithTheChoices) {
    struct SRow {
        const char* setting;
        const char* text;
        const char* error;
    };
    const SRow rows[] = {
        {"brightness", "101", "'101' is not a value of brightness (0 to 100)"},
        {"brightness", "-1", "'-1' is not a value of brightness (0 to 100)"},
        {"brightness", "bright", "'bright' is not a value of brightness (a number)"},
        {"aspect-ratio", "3", "'3' is not a value of aspect-ratio (full, aspect, 1:1)"},
        {"uniformity", "yes", "'yes' is not a value of uniformity (off, on)"},
        {"space", "5",
         "'5' is not a value of space (native, adobe-rgb, srgb, rec709, dci, "
         "color-manager-1, color-manager-2, dci-p3, rec2020, ebu, custom)"},
        {"rgb-gain", "1,2", "'1,2' is not a value of rgb-gain (RED,GREEN,BLUE, each 0 to 255)"},
        {"rgb-gain", "1,2,3,4",
         "'1,2,3,4' is not a value of rgb-gain (RED,GREEN,BLUE, each 0 to 255)"},
        {"rgb-gain", "1,256,3",
         "'1,256,3' is not a value of rgb-gain (RED,GREEN,BLUE, each 0 to 255)"},
    };
    SSettingValue level;
    level.minimum = 0;
    level.maximum = 100;
    for (const SRow& row : rows) {
        SSettingValue value;
        std::string error;
        EXPECT_FALSE(
            ParseSettingValue(*FindSetting(row.setting), false, row.text, level, value, error));
        EXPECT_EQ(error, row.error);
    }
    SSettingValue value;
    std::string error;
    ASSERT_TRUE(ParseSettingValue(*FindSetting("brightness"), false, "100", level, value, error));
    EXPECT_EQ(value.value, 100);
    ASSERT_TRUE(
        ParseSettingValue(*FindSetting("rgb-offset"), false, "0,128,255", {}, value, error));
    EXPECT_EQ(value.rgb, (std::array<int32_t, 3>{0, 128, 255}));
    EXPECT_EQ(FormatSettingValue(*FindSetting("rgb-offset"), false, value), "0,128,255");
}

TEST(SettingsTable, GammaIsInTenthsWhereTheModelKeepsItSo) {
    const SSettingRow& gamma = *FindSetting("gamma");
    SSettingValue value;
    std::string error;
    ASSERT_TRUE(ParseSettingValue(gamma, true, "2.4", {}, value, error));
    EXPECT_EQ(value.value, 24);
    EXPECT_EQ(FormatSettingValue(gamma, true, value), "2.4");
    ASSERT_TRUE(ParseSettingValue(gamma, true, "19", {}, value, error));
    EXPECT_EQ(value.value, 19);
    EXPECT_FALSE(ParseSettingValue(gamma, true, "2.45", {}, value, error));
    EXPECT_FALSE(ParseSettingValue(gamma, true, "2", {}, value, error));

    ASSERT_TRUE(ParseSettingValue(gamma, false, "2.4", {}, value, error));
    EXPECT_EQ(value.value, 2);
    EXPECT_FALSE(ParseSettingValue(gamma, false, "24", {}, value, error));
}

#include "cli/SettingsTable.h"
#include "model/UserSettings.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(SettingsTable, EveryNameReadsBackToItself) {
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
            ASSERT_EQ(ParseSettingValue(row, false, name.name, {}, value, error),
                      ESettingParse::eValue)
                << error;
            EXPECT_EQ(value.value, name.value);
            EXPECT_EQ(FormatSettingValue(row, false, value), name.name);
        }
    }
    EXPECT_EQ(FindSetting("Brightness"), FindSetting("brightness"));
    EXPECT_EQ(FindSetting("all"), nullptr);
}

TEST(SettingsTable, TextsAreReadAsGetPrintsThemAndRefusedWithWhatWouldDo) {
    using P = ESettingParse;
    struct SRow {
        const char* setting;
        bool tenths; // gamma kept in tenths
        const char* text;
        P parse;
        int32_t value;     // when read
        const char* shown; // FormatSettingValue of it, or the error
    };
    const SRow rows[] = {
        {"brightness", false, "90", P::eValue, 90, "90"},
        {"brightness", false, "-70", P::eValue, 10, "10"},
        {"brightness", false, "+2147483647", P::eValue, 90, "90"},
        {"brightness", false, "9", P::eOutOfRange, 0,
         "'9' is not a value of brightness (10 to 90)"},
        {"brightness", false, "+-1", P::eNotAValue, 0,
         "'+-1' is not a value of brightness (a number, or +N or -N)"},
        {"brightness", false, "bright", P::eNotAValue, 0,
         "'bright' is not a value of brightness (a number, or +N or -N)"},
        {"uniformity", false, "yes", P::eNotAValue, 0,
         "'yes' is not a value of uniformity (off, on)"},
        {"gamma", true, "2.45", P::eNotAValue, 0,
         "'2.45' is not a value of gamma (a gamma such as 2.2)"},
        {"gamma", false, "2.4", P::eValue, eGamma_2_4, "2.4"},
        {"gamma", false, "24", P::eNotAValue, 0, nullptr},
        {"rgb-offset", false, "0,128,255", P::eValue, 0, "0,128,255"},
        {"rgb-gain", false, "1,2", P::eNotAValue, 0,
         "'1,2' is not a value of rgb-gain (RED,GREEN,BLUE, each 0 to 255)"},
        {"rgb-gain", false, "1,2,3,4", P::eNotAValue, 0, nullptr},
        {"rgb-gain", false, "1,256,3", P::eNotAValue, 0, nullptr},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(std::string(row.setting) + " " + row.text);
        const SSettingRow& setting = *FindSetting(row.setting);
        // A level at 60 in 10 to 90.
        const SSettingValue current{true, 60, 10, 90, {}};
        SSettingValue value;
        std::string error;
        ASSERT_EQ(ParseSettingValue(setting, row.tenths, row.text, current, value, error),
                  row.parse);
        if (row.parse == P::eValue) {
            if (setting.kind != ESettingKind::eColor) {
                EXPECT_EQ(value.value, row.value);
            }
            EXPECT_EQ(FormatSettingValue(setting, row.tenths, value), row.shown);
        } else if (row.shown) {
            EXPECT_EQ(error, row.shown);
        } else {
            EXPECT_FALSE(error.empty());
        }
    }
}

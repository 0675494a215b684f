#include "model/DelegateTables.h"
#include "model/EColorMod.h"
#include "model/SCustomColor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

TEST(SCustomColorTest, FromRGBDerivesCMYKFromTheLargestComponent) {
    struct SCase {
        uint8_t r, g, b;
        double c, m, y, k;
    };
    const SCase cases[] = {
        {0, 0, 0, 0.0, 0.0, 0.0, 1.0},
        {255, 255, 255, 0.0, 0.0, 0.0, 0.0},
        {255, 0, 0, 0.0, 1.0, 1.0, 0.0},
        {100, 50, 25, 0.0, 0.5, 0.75, 1.0 - 100.0 / 255.0},
        {10, 20, 40, 0.75, 0.5, 0.0, 1.0 - 40.0 / 255.0},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.r) + "," + std::to_string(c.g) + "," + std::to_string(c.b));
        const SCustomColor color = SCustomColor::FromRGB(c.r, c.g, c.b);
        EXPECT_TRUE(color.valid);
        EXPECT_EQ(color.Red(), c.r);
        EXPECT_EQ(color.Green(), c.g);
        EXPECT_EQ(color.Blue(), c.b);
        EXPECT_DOUBLE_EQ(color.cyan, c.c);
        EXPECT_DOUBLE_EQ(color.magenta, c.m);
        EXPECT_DOUBLE_EQ(color.yellow, c.y);
        EXPECT_DOUBLE_EQ(color.black, c.k);
    }
}

TEST(SCustomColorTest, FromCMYKRoundsAndKeepsComponentsInRange) {
    struct SCase {
        double c, m, y, k;
        int r, g, b;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const SCase cases[] = {
        {0.0, 0.0, 0.0, 0.0, 255, 255, 255},
        {0.0, 0.0, 0.0, 1.0, 0, 0, 0},
        // 0.5 x 255 = 127.5 rounds up; 0.25 of 127.5 = 31.875 rounds to 32.
        {0.5, 0.0, 0.75, 0.5, 64, 128, 32},
        {0.0, 0.5, 1.0, 0.0, 255, 128, 0},
        // A user's entry outside 0 to 1 must not wrap a component.
        {-1.0, 2.0, nan, -0.5, 255, 0, 255},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.c) + "," + std::to_string(c.m) + "," + std::to_string(c.y) +
                     "," + std::to_string(c.k));
        const SCustomColor color = SCustomColor::FromCMYK(c.c, c.m, c.y, c.k);
        EXPECT_TRUE(color.valid);
        EXPECT_EQ(color.Red(), c.r);
        EXPECT_EQ(color.Green(), c.g);
        EXPECT_EQ(color.Blue(), c.b);
    }
    const SCustomColor stored = SCustomColor::FromCMYK(0.1, 0.2, 0.3, 0.4);
    EXPECT_DOUBLE_EQ(stored.cyan, 0.1);
    EXPECT_DOUBLE_EQ(stored.black, 0.4);
}

TEST(SCustomColorTest, DefaultRecordIsAnInvalidBlack) {
    const SCustomColor color;
    EXPECT_FALSE(color.valid);
    EXPECT_EQ(color.Red() + color.Green() + color.Blue(), 0);
    EXPECT_DOUBLE_EQ(color.black, 1.0);
}

TEST(EColorModTest, SlotsHaveTheirCodeTriplesAndTexts) {
    struct SCase {
        int slot;
        int red, green, blue;
        std::string text;
    };
    const SCase cases[] = {
        {0, 0x9B, 0x9D, 0x9F, "Hue"},
        {1, 0x59, 0x5B, 0x5D, "Saturation"},
        {2, 0x16, 0x18, 0x1A, "Gain"},
        {3, 0xE4, 0xE5, 0xE6, "Offset"},
    };
    for (const SCase& c : cases) {
        const SColorModCodes* codes = FindColorModCodes(static_cast<EColorMod>(c.slot));
        ASSERT_NE(codes, nullptr) << c.text;
        EXPECT_EQ(codes->red, c.red) << c.text;
        EXPECT_EQ(codes->green, c.green) << c.text;
        EXPECT_EQ(codes->blue, c.blue) << c.text;
        EXPECT_EQ(ColorModText(static_cast<EColorMod>(c.slot)), c.text);
    }
    for (int slot : {-1, 4, 100}) {
        EXPECT_EQ(FindColorModCodes(static_cast<EColorMod>(slot)), nullptr) << slot;
        EXPECT_STREQ(ColorModText(static_cast<EColorMod>(slot)), "Unknown") << slot;
    }
}

TEST(DelegateTablesTest, ColorTemperatureCellsReadBothWays) {
    struct SCase {
        EModelGroup group;
        int preset;
        int temperature; // -1: no cell
    };
    const SCase cases[] = {
        {eModelGroup_Birch, 4, 0},      {eModelGroup_Birch, 6, 3},     {eModelGroup_Birch, 9, 5},
        {eModelGroup_Birch, 11, 1},     {eModelGroup_Birch, 12, -1},   {eModelGroup_Elm, 12, 7},
        {eModelGroup_ElmLarge, 11, 1},  {eModelGroup_ElmLarge, 6, -1}, {eModelGroup_Fir, 11, 8},
        {eModelGroup_Hazel, 9, -1},     {eModelGroup_FirTwo, 8, 4},    {eModelGroup_CedarOne, 5, 2},
        {eModelGroup_CedarTwo, 11, -1}, {eModelGroup_Aspen, 8, 4},     {eModelGroup_Alder, 9, -1},
        {eModelGroup_None, 5, -1},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE("group " + std::to_string(c.group) + " preset " + std::to_string(c.preset));
        const auto temperature = TemperatureFromPreset(c.group, c.preset);
        ASSERT_EQ(temperature.has_value(), c.temperature >= 0);
        if (temperature) {
            EXPECT_EQ(*temperature, c.temperature);
            EXPECT_EQ(PresetFromTemperature(c.group, *temperature), c.preset);
        }
    }
    EXPECT_EQ(PresetFromTemperature(eModelGroup_Birch, eColorTemperature_5700KSecond), 11);
    EXPECT_FALSE(PresetFromTemperature(eModelGroup_Elm, eColorTemperature_5700KSecond));
    EXPECT_FALSE(PresetFromTemperature(eModelGroup_Elm, eColorTemperature_7500K));
    EXPECT_FALSE(HasColorTemperature(eModelGroup_None));
}

TEST(DelegateTablesTest, AspectRatioRowsByModelGroup) {
    struct SCase {
        EModelGroup group;
        int code;
        int full, aspect, oneToOne; // -1: no cell
    };
    const SCase cases[] = {
        {eModelGroup_Aspen, 0x86, 8, 3, -1},   {eModelGroup_Alder, 0x86, 8, 3, -1},
        {eModelGroup_Birch, 0xE2, 1, 3, 2},    {eModelGroup_Elm, 0xE2, 1, 3, 2},
        {eModelGroup_ElmLarge, 0xE2, 1, 3, 2}, {eModelGroup_Fir, 0xE2, 1, -1, 2},
        {eModelGroup_CedarOne, 0x86, 8, 3, 1}, {eModelGroup_CedarTwo, 0x86, 8, 3, 1},
        {eModelGroup_Hazel, 0xDA, 0, 1, -1},   {eModelGroup_FirTwo, 0xDA, 0, 1, -1},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE("group " + std::to_string(c.group));
        EXPECT_EQ(AspectRatioCode(c.group), c.code);
        const int values[] = {c.full, c.aspect, c.oneToOne};
        for (int ratio = 0; ratio < 3; ++ratio) {
            const auto value = ValueFromAspectRatio(c.group, static_cast<EAspectRatio>(ratio));
            ASSERT_EQ(value.has_value(), values[ratio] >= 0) << ratio;
            if (value) {
                EXPECT_EQ(*value, values[ratio]);
                EXPECT_EQ(AspectRatioFromValue(c.group, *value), ratio);
            }
        }
    }
    EXPECT_EQ(AspectRatioCode(eModelGroup_None), vcpC_Undefined);
    EXPECT_FALSE(ValueFromAspectRatio(eModelGroup_Birch, static_cast<EAspectRatio>(3)));
    EXPECT_FALSE(ValueFromAspectRatio(eModelGroup_Birch, static_cast<EAspectRatio>(-1)));
    EXPECT_FALSE(AspectRatioFromValue(eModelGroup_Fir, 3));
}

TEST(DelegateTablesTest, ColorSpaceValuesOfElmAndCedar) {
    const std::pair<int, int> elm[] = {{5, 1},   {6, 2},  {7, 3},  {8, 8},  {9, 9},
                                       {10, 10}, {11, 6}, {12, 7}, {13, 11}};
    for (const auto& [preset, space] : elm) {
        EXPECT_EQ(ElmSpaceFromPreset(preset), space) << preset;
        EXPECT_EQ(ElmPresetFromSpace(static_cast<EColorSpace>(space)), preset) << space;
    }
    EXPECT_FALSE(ElmSpaceFromPreset(0));
    EXPECT_FALSE(ElmSpaceFromPreset(4));
    EXPECT_FALSE(ElmPresetFromSpace(eColorSpace_Native));
    EXPECT_FALSE(ElmPresetFromSpace(eColorSpace_DCI));

    const std::pair<int, int> cedar[] = {{0, 2}, {1, 1}, {2, 3}, {7, 0}, {8, 6}, {9, 7}};
    for (const auto& [value, space] : cedar) {
        EXPECT_EQ(CedarSpaceFromValue(value), space) << value;
        EXPECT_EQ(CedarValueFromSpace(static_cast<EColorSpace>(space)), value) << space;
    }
    EXPECT_FALSE(CedarSpaceFromValue(3));
    EXPECT_FALSE(CedarValueFromSpace(eColorSpace_DCI));
}

TEST(DelegateTablesTest, ColorManagedRules) {
    struct SCase {
        EModelGroup group;
        int code, first, second;
    };
    const SCase cases[] = {
        {eModelGroup_CedarOne, 0xE3, 8, 9},   {eModelGroup_CedarTwo, 0xF0, 8, 9},
        {eModelGroup_Birch, 0xF0, 5, 6},      {eModelGroup_Elm, 0xF0, 11, 12},
        {eModelGroup_ElmLarge, 0xF0, 11, 12},
    };
    for (const SCase& c : cases) {
        const auto rule = ColorManagedRule(c.group);
        ASSERT_TRUE(rule.has_value()) << c.group;
        EXPECT_EQ(rule->code, c.code) << c.group;
        EXPECT_EQ(rule->first, c.first) << c.group;
        EXPECT_EQ(rule->second, c.second) << c.group;
    }
    for (EModelGroup group : {eModelGroup_Fir, eModelGroup_Hazel, eModelGroup_Aspen,
                              eModelGroup_Alder, eModelGroup_None}) {
        EXPECT_FALSE(ColorManagedRule(group)) << group;
    }
}

} // namespace

#include "app/ColorNotation.h"
#include "app/SharpnessStep.h"

#include <gtest/gtest.h>

namespace {

TEST(ColorNotationTest, ComponentsChangeThroughTheirOwnNotation) {
    const SCustomColor start = SCustomColor::FromRGB(200, 100, 50);
    // A change of red keeps green and blue and recomputes the inks.
    const SCustomColor red = ApplyComponent(start, eColorSlider_Red, 100);
    EXPECT_EQ(red.red, 100);
    EXPECT_EQ(red.green, 100);
    EXPECT_EQ(red.blue, 50);
    EXPECT_EQ(ComponentValue(red, eColorSlider_Yellow), 500);
    EXPECT_EQ(ApplyComponent(start, eColorSlider_Red, 300).red, 255);
    // Black at 600 thousandths scales every component to 40 percent.
    const SCustomColor grey =
        ApplyComponent(SCustomColor::FromRGB(255, 255, 255), eColorSlider_Black, 600);
    EXPECT_EQ(grey.red, 102);
    EXPECT_EQ(grey.blue, 102);
    EXPECT_DOUBLE_EQ(grey.black, 0.6);
    // And back: 102 of 255 shows as K 0.600, not 0.599.
    EXPECT_EQ(
        CmykEditText(ComponentValue(SCustomColor::FromRGB(102, 102, 102), eColorSlider_Black)),
        L"0.600");
    // Black has the full key and no inks.
    const SCustomColor black =
        ApplyComponent(SCustomColor::FromRGB(0, 9, 0), eColorSlider_Green, 0);
    for (EColorSlider ink : {eColorSlider_Cyan, eColorSlider_Magenta, eColorSlider_Yellow}) {
        EXPECT_EQ(ComponentValue(black, ink), 0);
    }
    EXPECT_EQ(CmykEditText(ComponentValue(black, eColorSlider_Black)), L"1.000");
}

TEST(ColorNotationTest, HexTextsPadAsEachPathDoes) {
    EXPECT_EQ(HexText(10, 0, 255), L"0A00FF");
    // The snap-back pads red alone.
    EXPECT_EQ(HexSnapBackText(SCustomColor::FromRGB(10, 5, 0)), L"0A50");
    EXPECT_EQ(HexSnapBackText(SCustomColor::FromRGB(200, 16, 171)), L"C810AB");
}

TEST(ColorNotationTest, HexParserTakesWhatTheStandardConversionTakes) {
    struct SCase {
        const wchar_t* text;
        bool good;
        int red, green, blue;
    };
    const SCase cases[] = {
        {L"000000", true, 0, 0, 0},
        {L"0A1b2C", true, 10, 27, 44},
        {L"12345", false, 0, 0, 0},
        {L"1234567", false, 0, 0, 0},
        {L"", false, 0, 0, 0},
        {L"GG0000", false, 0, 0, 0},
        {L"00-F00", false, 0, 0, 0},
        // Lenient like the standard routine: a blank before a digit, junk after one.
        {L" F1G00", true, 15, 1, 0},
        {L"+F0000", true, 15, 0, 0},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text " << std::string(c.text, c.text + wcslen(c.text)));
        const std::optional<SHexColor> parsed = ParseHexColor(c.text);
        ASSERT_EQ(parsed.has_value(), c.good);
        if (c.good) {
            EXPECT_EQ(parsed->red, c.red);
            EXPECT_EQ(parsed->green, c.green);
            EXPECT_EQ(parsed->blue, c.blue);
        }
    }
}

TEST(ColorNotationTest, EditsReadLikeTheRuntime) {
    EXPECT_EQ(ReadEditInteger(L"255", 0), 255);
    EXPECT_EQ(ReadEditInteger(L" 12ab", 0), 12);
    EXPECT_EQ(ReadEditInteger(L"abc", 0), 0);
    EXPECT_EQ(ReadEditInteger(L"99999999999", 0), 2147483647);
    EXPECT_DOUBLE_EQ(ReadEditReal(L"0.6x", -1), 0.6);
    EXPECT_DOUBLE_EQ(ReadEditReal(L"", -1), -1);
    EXPECT_DOUBLE_EQ(ReadEditReal(L"nan", -1), -1);
}

TEST(SharpnessStepTest, KeysStepAndClamp) {
    struct SCase {
        ESharpnessKey key;
        int position, minimum, maximum;
        std::optional<int> expected;
    };
    const SCase cases[] = {
        {eSharpnessKey_Up, 2, 0, 4, 3},
        {eSharpnessKey_Up, 4, 0, 4, 4},
        {eSharpnessKey_Down, 0, 0, 4, 0},
        {eSharpnessKey_PageUp, 1, 0, 100, 11},
        {eSharpnessKey_PageUp, 95, 0, 100, 100},
        {eSharpnessKey_PageDown, 3, 0, 4, 0},
        // Home and End step by the whole maximum, from wherever the slider stands.
        {eSharpnessKey_Home, 9, 2, 10, 2},
        {eSharpnessKey_End, 2, 2, 10, 10},
        {eSharpnessKey_End, 0, 0, 0, std::nullopt},
        {eSharpnessKey_Up, 0, 0, 0, 0},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "key " << c.key << " at " << c.position);
        EXPECT_EQ(StepSharpness(c.key, c.position, c.minimum, c.maximum), c.expected);
    }
}

} // namespace

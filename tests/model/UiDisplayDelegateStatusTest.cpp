// Which controls each family shows and lets the user change, colour-managed or not.

#include "DelegateBench.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using Delegate = UiDisplayDelegate;

// H hidden, D disabled, U usable.
char Letter(const SControlState& state_I) {
    if (!state_I.visible) {
        return state_I.enabled ? '?' : 'H';
    }
    return state_I.enabled ? 'U' : 'D';
}

// The status operations in the order of the expected strings below.
const std::vector<std::pair<const char*, std::function<SControlState(Delegate&)>>> kStatuses{
    {"brightness", [](Delegate& d) { return d.BrightnessStatus(); }},
    {"contrast", [](Delegate& d) { return d.ContrastStatus(); }},
    {"colour setting", [](Delegate& d) { return d.ColorSettingStatus(); }},
    {"temperature", [](Delegate& d) { return d.ColorTemperatureStatus(); }},
    {"space", [](Delegate& d) { return d.ColorSpaceStatus(); }},
    {"custom colour", [](Delegate& d) { return d.CustomColorStatus(); }},
    {"reset colour", [](Delegate& d) { return d.ResetColorStatus(); }},
    {"gamma", [](Delegate& d) { return d.GammaStatus(); }},
    {"aspect ratio", [](Delegate& d) { return d.AspectRatioStatus(false); }},
    {"sharpness", [](Delegate& d) { return d.SharpnessStatus(false); }},
    {"uniformity", [](Delegate& d) { return d.UniformityStatus(false); }},
    {"energy smart", [](Delegate& d) { return d.EnergySmartStatus(false); }},
    {"dynamic contrast", [](Delegate& d) { return d.DynamicContrastStatus(false); }},
    {"power LED", [](Delegate& d) { return d.PowerLedStatus(false); }},
    {"fan speed", [](Delegate& d) { return d.FanSpeedStatus(); }},
    {"auto power down", [](Delegate& d) { return d.AutoPowerDownStatus(); }},
    {"battery mode", [](Delegate& d) { return d.BatteryModeStatus(false); }},
    {"conditioning", [](Delegate& d) { return d.ConditioningStatus(); }},
    {"custom attribute", [](Delegate& d) { return d.CustomAttributeStatus(); }},
    {"CMYK and hex", [](Delegate& d) { return d.CmykHexStatus(); }},
    {"firmware", [](Delegate& d) { return d.FirmwareVersionStatus(); }},
};

struct SStatusCase {
    const char* name;
    uint16_t edid;
    std::vector<SFakeCode> changes;
    bool builtIn;
    const char* expected;
};

TEST(UiDisplayDelegateStatusTest, EveryControlOfEveryFamily) {
    const SStatusCase cases[] = {
        // clang-format off
        //                                                                  brightness .. firmware
        {"Birch",                     Edid::Birch,         {},              false, "UUUHUHUUUUUUDHHHHUUUH"},
        {"Birch calibrated",          Edid::Birch,         {{0xF0, 5}},     false, "DDDHUHUDDDDDDHHHHDDUH"},
        {"Birch in movie preset",     Edid::Birch,         {{0xF0, 3}},     false, "UUUHUHUDUUDUUHHHHUUUH"},
        {"ElmSmall",                  Edid::ElmSmall,      {},              false, "UUUHUHUUUUUUDHHUHUUUH"},
        {"ElmSmall calibrated",       Edid::ElmSmall,      {{0xF0, 12}},    false, "DDDHUHUDDDDDDHHUHDDUH"},
        {"ElmLarge",                  Edid::ElmLarge,      {},              false, "UUUHUHUDUUUUUHUUHHUUH"},
        {"FirSmall",                  Edid::FirSmall,      {},              false, "UUUHHHHHUHHHHUHHHHHHH"},
        {"Hazel",                     Edid::Hazel,         {},              false, "UUUHHHHHUHHHHHHHHHHHH"},
        {"Hazel without 0x6B",        Edid::Hazel,         {{0x6B, 0, 0, false, true}}, false, "HUUHHHHHUHHHHHHHHHHHH"},
        {"CedarSmall",                Edid::CedarSmall,    {},              false, "UUUHUHHUUHHHHHHHHHHUH"},
        {"CedarSmallTwo",             Edid::CedarSmallTwo, {},              false, "UUUHUHHUUHUHHHHHUHHUH"},
        {"CedarSmallTwo built in",    Edid::CedarSmallTwo, {},              true,  "DUUHUHHUUHUHHHHHUHHUH"},
        {"Aspen",                     Edid::Aspen,         {},              false, "UUUHUHUHUHHHHHHHHHHHH"},
        {"Alder without 0x08",        Edid::Alder,         {{0x08, 0, 0, false, true}}, false, "UUUHUHHHUHHHHHHHHHHHH"},
        {"a model of no family",      Edid::Unknown,       {},              false, "UUUHUHUUHUUHHHHHUUUUH"},
        // clang-format on
    };
    for (const SStatusCase& c : cases) {
        CDelegateBench bench(c.edid, c.changes, c.builtIn);
        ASSERT_TRUE(bench.mInitialized) << c.name;
        std::string actual;
        for (const auto& status : kStatuses) {
            actual += Letter(status.second(*bench.mDelegate));
        }
        EXPECT_EQ(actual, c.expected) << c.name;
        EXPECT_TRUE(bench.SentWrites().empty()) << c.name;
    }
}

TEST(UiDisplayDelegateStatusTest, TooDarkByModel) {
    struct SCase {
        uint16_t edid;
        EColorSetting setting;
        int brightness, contrast;
        bool tooDark;
    };
    const SCase cases[] = {
        // Brightness plus nine times the contrast: 199 is too dark, 200 is not.
        {Edid::Birch, eColorSetting_Space, 28, 19, true},
        {Edid::Birch, eColorSetting_Space, 29, 19, false},
        {Edid::Aspen, eColorSetting_Space, 19, 19, true},
        {Edid::Aspen, eColorSetting_Space, 19, 20, false},
        {Edid::ElmSmall, eColorSetting_Space, 0, 0, false},
        {Edid::ElmSmall, eColorSetting_Custom, 20, 19, true},
    };
    for (const SCase& c : cases) {
        CDelegateBench bench(c.edid);
        bench.ReadAll();
        if (c.setting != eColorSetting_Space) {
            bench.mDelegate->SetColorSetting(c.setting);
        }
        EXPECT_EQ(bench.mDelegate->IsTooDark(c.brightness, c.contrast), c.tooDark)
            << c.edid << " " << c.brightness << "/" << c.contrast;
    }
}

} // namespace

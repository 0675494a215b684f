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
        {"Birch with uniformity",     Edid::Birch,         {{0xE0, 1}},     false, "UDUHUHUUUUUDDHHHHUUUH"},
        {"Birch in movie preset",     Edid::Birch,         {{0xF0, 3}},     false, "UUUHUHUDUUDUUHHHHUUUH"},
        {"Birch at DCI",              Edid::Birch,         {{0xE3, 4}},     false, "UUUHUHUUUUDUDHHHHUUUH"},
        {"ElmSmall",                  Edid::ElmSmall,      {},              false, "UUUHUHUUUUUUDHHUHUUUH"},
        {"ElmSmall dynamic contrast", Edid::ElmSmall,      {{0xE8, 1}},     false, "DUUHUHUUUUDDDHHUHUUUH"},
        {"ElmSmall energy smart",     Edid::ElmSmall,      {{0xE9, 1}},     false, "DUUHUHUUUUDUDHHUHUUUH"},
        {"ElmSmall native",           Edid::ElmSmall,      {{0xF0, 0}},     false, "UUUHUHUDUUDUDHHUHUUUH"},
        {"ElmSmall in movie preset",  Edid::ElmSmall,      {{0xF0, 3}},     false, "UUUHUHUDUUUUUHHUHUUUH"},
        {"ElmSmall calibrated",       Edid::ElmSmall,      {{0xF0, 12}},    false, "DDDHUHUDDDDDDHHUHDDUH"},
        {"ElmHuge",                   Edid::ElmHuge,       {},              false, "UUUHUHUUUUUUDHHUHHUUH"},
        {"ElmLarge",                  Edid::ElmLarge,      {},              false, "UUUHUHUDUUUUUHUUHHUUH"},
        {"ElmLarge calibrated",       Edid::ElmLarge,      {{0xF0, 11}},    false, "DDDHUHUDDDDDDHUUHHDUH"},
        {"FirSmall",                  Edid::FirSmall,      {},              false, "UUUHHHHHUHHHHUHHHHHHH"},
        {"FirSmallTwo",               Edid::FirSmallTwo,   {},              false, "UUUHHHHHUHHHHUHHHHHHH"},
        {"Hazel",                     Edid::Hazel,         {},              false, "UUUHHHHHUHHHHHHHHHHHH"},
        {"Hazel without 0x6B",        Edid::Hazel,         {{0x6B, 0, 0, false, true}}, false, "HUUHHHHHUHHHHHHHHHHHH"},
        {"CedarSmall",                Edid::CedarSmall,    {},              false, "UUUHUHHUUHHHHHHHHHHUH"},
        {"CedarSmall calibrated",     Edid::CedarSmall,    {{0xE3, 9}},     false, "DDDHUHHDDHHHHHHHHHHUH"},
        {"CedarSmallTwo",             Edid::CedarSmallTwo, {},              false, "UUUHUHHUUHUHHHHHUHHUH"},
        {"CedarSmallTwo built in",    Edid::CedarSmallTwo, {},              true,  "DUUHUHHUUHUHHHHHUHHUH"},
        {"CedarSmallTwo calibrated",  Edid::CedarSmallTwo, {{0xF0, 8}},     false, "DDDHUHHDDHDHHHHHUHHUH"},
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

TEST(UiDisplayDelegateStatusTest, ColorControlsFollowTheColorSetting) {
    struct SCase {
        uint16_t edid;
        EColorSetting setting;
        const char* expected; // temperature, space, custom colour, gamma
    };
    const SCase cases[] = {
        {Edid::Birch, eColorSetting_Temperature, "UHHU"},
        {Edid::Birch, eColorSetting_Space, "HUHU"},
        {Edid::Birch, eColorSetting_Custom, "HHUD"},
        {Edid::ElmLarge, eColorSetting_Temperature, "UHHU"},
        {Edid::ElmLarge, eColorSetting_Space, "HUHD"},
        {Edid::ElmLarge, eColorSetting_Custom, "HHUU"},
        {Edid::FirSmall, eColorSetting_Custom, "HHUH"},
    };
    for (const SCase& c : cases) {
        CDelegateBench bench(c.edid);
        Delegate& d = *bench.mDelegate;
        bench.ReadAll();
        d.SetColorSetting(c.setting);
        ASSERT_EQ(d.ColorSetting(), c.setting) << c.edid;
        const std::string actual{Letter(d.ColorTemperatureStatus()), Letter(d.ColorSpaceStatus()),
                                 Letter(d.CustomColorStatus()), Letter(d.GammaStatus())};
        EXPECT_EQ(actual, c.expected) << c.edid << " setting " << c.setting;
    }
}

TEST(UiDisplayDelegateStatusTest, SaveAndRevertFollowChangesAndTheColorSetting) {
    CDelegateBench bench(Edid::ElmLarge);
    Delegate& d = *bench.mDelegate;
    bench.ReadAll();
    EXPECT_EQ(d.SaveStatus(), SControlState::Disabled());
    EXPECT_TRUE(d.SetBrightness(30));
    EXPECT_EQ(d.SaveStatus(), SControlState::Usable());
    EXPECT_EQ(d.RevertStatus(), SControlState::Usable());
    EXPECT_TRUE(d.SaveSettings());
    EXPECT_EQ(d.RevertStatus(), SControlState::Disabled());

    EXPECT_EQ(bench.mFake->SaveCount(), 1);
}

TEST(UiDisplayDelegateStatusTest, AColorSettingAloneIsAChangeToSave) {
    // On Fir, leaving custom colour for temperature changes nothing on the wire.
    CDelegateBench bench(Edid::FirSmall);
    Delegate& d = *bench.mDelegate;
    bench.ReadAll();
    EXPECT_TRUE(d.SetColorSetting(eColorSetting_Temperature));
    EXPECT_TRUE(bench.SentWrites().empty());
    EXPECT_FALSE(d.IsAnyOptionModified());
    EXPECT_EQ(d.SaveStatus(), SControlState::Usable());
    EXPECT_EQ(d.RevertStatus(), SControlState::Usable());
    EXPECT_TRUE(d.SaveSettings());
    EXPECT_EQ(d.SavedColorSetting(), eColorSetting_Temperature);
    EXPECT_EQ(d.SaveStatus(), SControlState::Disabled());
}

TEST(UiDisplayDelegateStatusTest, StatusesStoreTheValuesThatCancelRestores) {
    CDelegateBench bench(Edid::Birch, {{0xE2, 3}, {0x87, 4, 10}, {0xE0, 0}, {0xE9, 0}});
    Delegate& d = *bench.mDelegate;
    bench.ReadAll();
    EXPECT_EQ(d.AspectRatioStatus(true), SControlState::Usable());
    EXPECT_EQ(d.SharpnessStatus(true), SControlState::Usable());
    EXPECT_EQ(d.UniformityStatus(true), SControlState::Usable());
    EXPECT_EQ(d.EnergySmartStatus(true), SControlState::Usable());
    EXPECT_EQ(d.DynamicContrastStatus(true), SControlState::Disabled());

    EXPECT_TRUE(d.SetAspectRatio(eAspectRatio_OneToOne));
    EXPECT_TRUE(d.SetSharpness(9));
    EXPECT_TRUE(d.SetEnergySmart(true));
    // A status without store keeps the earlier snapshot.
    EXPECT_EQ(d.AspectRatioStatus(false), SControlState::Usable());
    EXPECT_EQ(d.SharpnessStatus(false), SControlState::Usable());
    bench.ClearTraffic();

    EXPECT_TRUE(d.RestoreAspectRatio(true));
    EXPECT_TRUE(d.RestoreSharpness(true));
    EXPECT_TRUE(d.RestoreEnergySmart(true));
    EXPECT_TRUE(d.RestoreUniformity(true));
    EXPECT_EQ(bench.SentWrites(), (Writes{{0xE2, 3}, {0x87, 4}, {0xE9, 0}}));
}

TEST(UiDisplayDelegateStatusTest, RestoreWithoutStoreGoesBackToTheSavedValue) {
    CDelegateBench bench(Edid::CedarSmallTwo, {{0x86, 3}, {0xF4, 3}});
    Delegate& d = *bench.mDelegate;
    bench.ReadAll();
    EXPECT_TRUE(d.SetAspectRatio(eAspectRatio_Full));
    EXPECT_TRUE(d.SetBatteryMode(eBatteryMode_Mobile));
    bench.ClearTraffic();
    EXPECT_TRUE(d.RestoreAspectRatio(false));
    EXPECT_TRUE(d.RestoreBatteryMode(false));
    EXPECT_EQ(bench.SentWrites(), (Writes{{0x86, 3}, {0xF4, 3}}));
    EXPECT_FALSE(d.IsAnyOptionModified());
}

TEST(UiDisplayDelegateStatusTest, RestoreOperationsOfModelsWithoutTheControl) {
    CDelegateBench birch(Edid::Birch);
    birch.ReadAll();
    // No 0xF4 on Birch: nothing to restore, which is no failure.
    EXPECT_TRUE(birch.mDelegate->RestoreBatteryMode(false));
    EXPECT_TRUE(birch.mDelegate->RestoreBatteryMode(true));
    EXPECT_FALSE(birch.mDelegate->RestorePowerLedBrightness(true));
    EXPECT_EQ(birch.Traffic(), 0u);

    CDelegateBench refused(Edid::CedarSmallTwo, {{0xF4, 2, 0, true}});
    EXPECT_FALSE(refused.mDelegate->RestoreBatteryMode(false));
    EXPECT_TRUE(refused.SentWrites().empty());

    CDelegateBench fir(Edid::FirSmall, {{0xEF, 1}});
    Delegate& d = *fir.mDelegate;
    EXPECT_EQ(d.PowerLedStatus(true), SControlState::Usable());
    EXPECT_TRUE(d.SetPowerLedBrightness(ledBrightness_High));
    EXPECT_TRUE(d.RestorePowerLedBrightness(true));
    EXPECT_EQ(fir.SentWrites(), (Writes{{0xEF, 3}, {0xEF, 1}}));
}

TEST(UiDisplayDelegateStatusTest, FirmwareVersionShowsOnlyAVersion) {
    CDelegateBench none(Edid::Birch);
    EXPECT_EQ(none.mDelegate->FirmwareVersionStatus(), SControlState::Hidden());

    auto fake = std::make_shared<CDelegateConnector>();
    fake->SetCapabilities("(prot(monitor)type(LCD)model(TEST)cmds(01)vcp(10)mccs_ver(2.2))");
    fake->SetFirmware(FileVersion(1, 2, 3, FileVersion::EFinalVersion, 0));
    UiDisplayDelegate display(Edid::Birch, fake, false);
    ASSERT_TRUE(display.Initialize(""));
    EXPECT_EQ(display.FirmwareVersionStatus(), SControlState::Usable());
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
        {Edid::Unknown, eColorSetting_Space, 20, 19, true},
        {Edid::Aspen, eColorSetting_Space, 19, 19, true},
        {Edid::Aspen, eColorSetting_Space, 19, 20, false},
        {Edid::Alder, eColorSetting_Space, 0, 25, false},
        {Edid::ElmSmall, eColorSetting_Space, 0, 0, false},
        {Edid::ElmSmall, eColorSetting_Custom, 20, 19, true},
        {Edid::ElmLarge, eColorSetting_Custom, 30, 19, false},
        {Edid::CedarSmall, eColorSetting_Space, 0, 0, false},
        {Edid::FirSmall, eColorSetting_Space, 0, 0, false},
        {Edid::Hazel, eColorSetting_Space, 0, 0, false},
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

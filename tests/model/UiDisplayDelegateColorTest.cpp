// The colour setting, the reads that write, the custom colour records and the resets.

#include "DelegateBench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using Delegate = UiDisplayDelegate;

TEST(UiDisplayDelegateColorTest, BogusBatteryModeIsSetToMobileWhileReading) {
    CDelegateBench bench(Edid::CedarSmallTwo, {{0xF4, 0}});
    EXPECT_EQ(bench.mDelegate->GetBatteryMode(),
              (SUserValue<EBatteryMode>{true, eBatteryMode_Mobile}));
    EXPECT_EQ(bench.SentWrites(), (Writes{{0xF4, 2}}));
    EXPECT_EQ(bench.Value(0xF4), 2);

    CDelegateBench failing(Edid::CedarSmallTwo, {{0xF4, 7}});
    failing.mFake->FailWritesOf(0xF4);
    EXPECT_EQ(failing.mDelegate->GetBatteryMode(),
              (SUserValue<EBatteryMode>{false, eBatteryMode_Mobile}));
    EXPECT_EQ(failing.Value(0xF4), 7);
}

TEST(UiDisplayDelegateColorTest, BirchInStandardPresetIsMovedToColorTemperatureWhileReading) {
    CDelegateBench bench(Edid::Birch, {{0xF0, 1}, {0x14, 6}});
    Delegate& d = *bench.mDelegate;
    bench.ReadAll();
    EXPECT_EQ(d.GetColorSetting(), (SUserValue<EColorSetting>{true, eColorSetting_Temperature}));
    EXPECT_EQ(d.ColorSetting(), eColorSetting_Temperature);
    // The temperature is written again as it stands, so only the preset and the uniformity
    // cycle reach the wire.
    EXPECT_EQ(bench.SentWrites(), (Writes{{0xF0, 7}, {0xE0, 1}, {0xE0, 0}}));
}

struct SSettingCase {
    const char* name;
    uint16_t edid;
    std::vector<SFakeCode> changes;
    EColorSetting before;
    SUserValue<EColorSetting> read;
    EColorSetting after;
    Writes writes;
};

TEST(UiDisplayDelegateColorTest, GetColorSettingFollowsTheDisplay) {
    const SUserValue<EColorSetting> temperature{true, eColorSetting_Temperature};
    const SUserValue<EColorSetting> space{true, eColorSetting_Space};
    const SUserValue<EColorSetting> custom{true, eColorSetting_Custom};
    const EColorSetting kT = eColorSetting_Temperature;
    const EColorSetting kS = eColorSetting_Space;
    const EColorSetting kC = eColorSetting_Custom;
    const SSettingCase cases[] = {
        // clang-format off
        {"Birch calibrated", Edid::Birch, {{0xF0, 6}}, kT, space, kS, {}},
        {"Birch custom", Edid::Birch, {{0xF0, 9}}, kS, custom, kC, {}},
        {"Birch temperature mode keeps", Edid::Birch, {{0xF0, 7}}, kC, custom, kC, {}},
        {"Birch movie preset", Edid::Birch, {{0xF0, 3}}, kS, temperature, kT, {{0xF0, 7}}},
        {"ElmLarge native", Edid::ElmLarge, {{0xF0, 0}}, kS, temperature, kT, {}},
        {"ElmLarge DCI P3", Edid::ElmLarge, {{0xF0, 8}}, kT, space, kS, {}},
        {"ElmLarge custom", Edid::ElmLarge, {{0xF0, 13}}, kS, custom, kC, {}},
        {"ElmSmall Adobe RGB at 9300K", Edid::ElmSmall, {{0xF0, 5}, {0x14, 8}}, kS, temperature, kT,
         {}},
        {"ElmSmall Adobe RGB at 6500K keeps", Edid::ElmSmall, {{0xF0, 5}, {0x14, 5}}, kS, space, kS,
         {}},
        {"ElmSmall sRGB keeps", Edid::ElmSmall, {{0xF0, 6}}, kT, temperature, kT, {}},
        {"ElmSmall calibrated", Edid::ElmSmall, {{0xF0, 11}}, kT, space, kS, {}},
        {"ElmSmall custom", Edid::ElmSmall, {{0xF0, 13}}, kS, custom, kC, {}},
        {"ElmSmall movie preset", Edid::ElmSmall, {{0xF0, 3}}, kT, space, kS, {{0xF0, 5}}},
        {"Fir user colour", Edid::FirSmall, {{0x14, 11}}, kS, custom, kC, {}},
        {"Fir 6500K", Edid::FirSmall, {{0x14, 5}}, kS, temperature, kT, {}},
        {"Aspen user colour leaves the program's setting", Edid::Aspen, {{0x14, 11}}, kS, custom,
         kS, {}},
        {"Aspen 6500K", Edid::Aspen, {{0x14, 5}}, kS, temperature, kS, {}},
        {"Cedar Adobe RGB keeps", Edid::CedarSmall, {{0xE3, 1}}, kS, space, kS, {}},
        {"Cedar native at 5000K", Edid::CedarSmall, {{0xE3, 7}, {0x14, 4}}, kS, temperature, kT,
         {}},
        {"Cedar native at 6500K keeps", Edid::CedarSmall, {{0xE3, 7}, {0x14, 5}}, kS, space, kS,
         {}},
        {"Cedar native at user colour", Edid::CedarSmall, {{0xE3, 7}, {0x14, 11}}, kS, custom, kC,
         {}},
        {"CedarTwo native at 6500K", Edid::CedarSmallTwo, {{0xF0, 7}, {0x14, 5}}, kS, temperature,
         kT, {}},
        {"CedarTwo neutral gains", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 128, 255}, {0x18, 128, 255}, {0x1A, 128, 255}}, kT, space,
         kS, {}},
        {"CedarTwo 5000K gains", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 128, 255}, {0x18, 98, 255}, {0x1A, 96, 255}}, kS,
         temperature, kT, {{0x14, 4}}},
        {"CedarTwo 6500K gains", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 128, 255}, {0x18, 103, 255}, {0x1A, 116, 255}}, kS,
         temperature, kT, {{0x14, 5}}},
        {"CedarTwo 9300K gains", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 118, 255}, {0x18, 99, 255}, {0x1A, 128, 255}}, kS,
         temperature, kT, {{0x14, 8}}},
        {"CedarTwo other gains", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 10, 255}, {0x18, 20, 255}, {0x1A, 30, 255}}, kS, custom, kC,
         {}},
        {"CedarTwo already custom", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 128, 255}, {0x18, 128, 255}, {0x1A, 128, 255}}, kC, custom,
         kC, {}},
        // clang-format on
    };
    for (const SSettingCase& c : cases) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        Delegate& d = *bench.mDelegate;
        bench.ReadAll();
        if (c.before != d.ColorSetting()) {
            d.SetColorSetting(c.before);
            bench.ResetScaler();
        }
        ASSERT_EQ(d.ColorSetting(), c.before);
        EXPECT_EQ(d.GetColorSetting(), c.read);
        EXPECT_EQ(d.ColorSetting(), c.after);
        EXPECT_EQ(bench.SentWrites(), c.writes);
    }
}

struct SSetCase {
    const char* name;
    uint16_t edid;
    std::vector<SFakeCode> changes;
    int setting;
    bool result;
    Writes writes;
};

TEST(UiDisplayDelegateColorTest, SetColorSettingByModel) {
    const SSetCase cases[] = {
        // clang-format off
        {"Birch temperature", Edid::Birch, {{0xF0, 9}}, 0, true, {{0xF0, 7}}},
        {"Birch space goes back to the default preset", Edid::Birch,
         {{0xF0, 9}, {0xE3, 3}, {0x14, 8}}, 1, true, {{0xF0, 7}, {0x14, 5}}},
        {"Birch custom", Edid::Birch, {}, 2, true, {{0xF0, 9}}},
        {"Birch has no fourth setting", Edid::Birch, {}, 3, false, {}},
        {"ElmSmall custom", Edid::ElmSmall, {}, 2, true, {{0xF0, 13}}},
        {"ElmSmall temperature leaves the space first", Edid::ElmSmall, {{0xF0, 6}, {0x14, 8}}, 0,
         true, {{0x14, 5}, {0xF0, 5}}},
        {"ElmLarge temperature at preset 12", Edid::ElmLarge, {{0x14, 12}}, 0, true, {{0x14, 5}}},
        {"ElmLarge temperature", Edid::ElmLarge, {{0x14, 8}}, 0, true, {}},
        {"Fir custom", Edid::FirSmall, {}, 2, true, {{0x14, 11}}},
        {"Fir temperature from user colour", Edid::FirSmall, {{0x14, 11}}, 0, true, {{0x14, 5}}},
        {"Fir has no colour space", Edid::FirSmall, {}, 1, false, {}},
        {"Aspen custom", Edid::Aspen, {}, 2, true, {{0x14, 11}}},
        {"Aspen temperature from user colour", Edid::Aspen, {{0x14, 11}}, 0, true, {{0x14, 5}}},
        {"Aspen temperature", Edid::Aspen, {{0x14, 8}}, 0, true, {}},
        {"Cedar space", Edid::CedarSmall, {{0xE3, 1}, {0x14, 8}}, 1, true, {{0xE3, 7}, {0x14, 5}}},
        {"Cedar temperature from space", Edid::CedarSmall, {{0xE3, 1}, {0x14, 8}}, 0, true,
         {{0xE3, 7}}},
        {"CedarTwo space", Edid::CedarSmallTwo, {{0xF0, 1}}, 1, true,
         {{0xF0, 7}, {0x16, 128}, {0x18, 128}, {0x1A, 128}}},
        {"CedarTwo temperature", Edid::CedarSmallTwo, {{0xF0, 1}, {0x14, 8}}, 0, true,
         {{0xF0, 7}, {0x16, 128}, {0x18, 128}, {0x1A, 128}, {0x14, 5}}},
        {"a model of no family", Edid::Unknown, {}, 0, false, {}},
        // clang-format on
    };
    for (const SSetCase& c : cases) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        Delegate& d = *bench.mDelegate;
        bench.ReadAll();
        EXPECT_EQ(d.SetColorSetting(static_cast<EColorSetting>(c.setting)), c.result);
        EXPECT_EQ(bench.SentWrites(), c.writes);
        if (c.result && c.edid != Edid::Aspen) {
            EXPECT_EQ(d.ColorSetting(), c.setting);
        }
        if (!c.result) {
            EXPECT_EQ(d.ColorSetting(), eColorSetting_Space);
        }
    }
}

TEST(UiDisplayDelegateColorTest, LeavingCustomColorGoesBackToTheDefaultPreset) {
    struct SCase {
        const char* name;
        uint16_t edid;
        std::vector<SFakeCode> changes;
        EColorSetting next;
        Writes writes;
    };
    const SCase cases[] = {
        // clang-format off
        {"ElmSmall to space", Edid::ElmSmall, {{0x14, 8}}, eColorSetting_Space, {{0x14, 5}, {0xF0, 5}}},
        {"ElmSmall to temperature", Edid::ElmSmall, {{0x14, 8}}, eColorSetting_Temperature, {{0x14, 5}, {0xF0, 5}}},
        {"ElmLarge to temperature", Edid::ElmLarge, {{0x14, 8}}, eColorSetting_Temperature, {{0x14, 5}}},
        {"ElmLarge to space", Edid::ElmLarge, {{0x14, 8}}, eColorSetting_Space, {{0xF0, 5}}},
        {"Cedar to temperature", Edid::CedarSmall, {{0x14, 8}, {0xE3, 1}}, eColorSetting_Temperature, {{0x14, 5}}},
        // clang-format on
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        Delegate& d = *bench.mDelegate;
        bench.ReadAll();
        EXPECT_TRUE(d.SetColorSetting(eColorSetting_Custom));
        bench.ClearTraffic();
        EXPECT_TRUE(d.SetColorSetting(c.next));
        EXPECT_EQ(d.ColorSetting(), c.next);
        EXPECT_EQ(bench.SentWrites(), c.writes);
    }

    CDelegateBench failing(Edid::ElmSmall, {{0x14, 8}});
    failing.ReadAll();
    EXPECT_TRUE(failing.mDelegate->SetColorSetting(eColorSetting_Custom));
    failing.mFake->FailWritesOf(0x14);
    EXPECT_FALSE(failing.mDelegate->SetColorSetting(eColorSetting_Space));
    EXPECT_EQ(failing.Value(0xF0), 13);
}

TEST(UiDisplayDelegateColorTest, CedarCustomColorPassesANeighbourSoTheScalerSeesAChange) {
    struct SCase {
        uint16_t red, green, blue;
        Writes writes;
    };
    const SCase cases[] = {
        // Too dark to be meant: neutral grey, reached from above.
        {10,
         10,
         10,
         {{0x16, 128}, {0x18, 128}, {0x1A, 128}, {0x16, 127}, {0x18, 127}, {0x1A, 127}}},
        {100, 50, 50, {{0x16, 99}, {0x16, 100}}},
        {20, 40, 10, {{0x18, 39}, {0x18, 40}}},
        {20, 20, 100, {{0x1A, 99}, {0x1A, 100}}},
        {31, 10, 10, {{0x16, 30}, {0x16, 31}}},
        {30, 32, 10, {{0x18, 31}, {0x18, 32}}},
        {30, 31, 32, {{0x1A, 31}, {0x1A, 32}}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.red) + "," + std::to_string(c.green) + "," +
                     std::to_string(c.blue));
        CDelegateBench bench(Edid::CedarSmall,
                             {{0x16, c.red, 255}, {0x18, c.green, 255}, {0x1A, c.blue, 255}});
        Delegate& d = *bench.mDelegate;
        bench.ReadAll();
        EXPECT_TRUE(d.SetColorSetting(eColorSetting_Custom));
        EXPECT_EQ(d.ColorSetting(), eColorSetting_Custom);
        EXPECT_EQ(bench.SentWrites(), c.writes);
    }

    // The second generation's native space starts from neutral gains, so its custom colour
    // does too.
    CDelegateBench two(Edid::CedarSmallTwo, {{0x16, 10, 255}, {0x18, 10, 255}, {0x1A, 10, 255}});
    two.ReadAll();
    EXPECT_TRUE(two.mDelegate->SetColorSetting(eColorSetting_Custom));
    EXPECT_EQ(two.SentWrites(),
              (Writes{{0x16, 128}, {0x18, 128}, {0x1A, 128}, {0x16, 127}, {0x16, 128}}));
}

TEST(UiDisplayDelegateColorTest, ColorRecordsOfTheColorDialog) {
    CDelegateBench bench(Edid::Birch, {{0x16, 200, 255}, {0x18, 210, 255}, {0x1A, 220, 255}});
    Delegate& d = *bench.mDelegate;
    const SCustomColor loaded = SCustomColor::FromRGB(200, 210, 220);
    d.LoadColorMods(eColorMod_Gain);
    d.SelectColorMod(eColorMod_Gain);
    EXPECT_EQ(d.GetWorkingColor(), loaded);
    EXPECT_EQ(d.GetAppliedColor(), loaded);
    bench.ClearTraffic();

    const SCustomColor edited = SCustomColor::FromRGB(150, 160, 170);
    d.StoreWorkingColor(edited);
    EXPECT_EQ(bench.Traffic(), 0u);
    EXPECT_EQ(d.GetAppliedColor(), loaded);
    EXPECT_TRUE(d.ApplyWorkingColor());
    EXPECT_EQ(d.GetAppliedColor(), edited);
    EXPECT_EQ(bench.SentWrites(), (Writes{{0x16, 150}, {0x18, 160}, {0x1A, 170}}));
    bench.ClearTraffic();

    d.StoreWorkingColor(SCustomColor::FromRGB(1, 2, 3));
    EXPECT_TRUE(d.RevertToApplied());
    EXPECT_EQ(d.GetWorkingColor(), edited);
    EXPECT_TRUE(bench.SentWrites().empty());

    EXPECT_TRUE(d.RestoreOriginal(eColorMod_Gain));
    EXPECT_EQ(d.GetWorkingColor(), loaded);
    EXPECT_EQ(bench.SentWrites(), (Writes{{0x16, 200}, {0x18, 210}, {0x1A, 220}}));
    bench.ClearTraffic();

    // A slot never loaded has nothing to restore or apply.
    EXPECT_FALSE(d.RestoreOriginal(eColorMod_Offset));
    d.SelectColorMod(eColorMod_Hue);
    EXPECT_EQ(d.GetSelectedColorMod(), eColorMod_Hue);
    EXPECT_FALSE(d.GetWorkingColor().valid);
    EXPECT_FALSE(d.ApplyWorkingColor());
    EXPECT_FALSE(d.RevertToApplied());
    EXPECT_EQ(bench.Traffic(), 0u);

    // Reading the selected slot makes it the working colour.
    EXPECT_EQ(d.GetCustomRGBColorMod(true), SCustomColor::FromRGB(50, 50, 50));
    EXPECT_EQ(d.GetWorkingColor(), SCustomColor::FromRGB(50, 50, 50));
}

TEST(UiDisplayDelegateColorTest, ColorSlotsThatCannotBeRead) {
    CDelegateBench bench(Edid::CedarSmall, {{0x18, 0, 255, true}});
    Delegate& d = *bench.mDelegate;
    EXPECT_FALSE(d.GetCustomRGBColorMod(eColorMod_Hue, false).valid);
    EXPECT_EQ(bench.Traffic(), 0u);
    EXPECT_FALSE(d.GetCustomRGBColorMod(eColorMod_Gain, false).valid);
    bench.ClearTraffic();
    EXPECT_FALSE(d.GetCustomRGBColorMod(static_cast<EColorMod>(4), false).valid);
    EXPECT_FALSE(d.SetCustomRGBColorMod(static_cast<EColorMod>(4), SCustomColor::FromRGB(1, 1, 1)));
    EXPECT_EQ(bench.Traffic(), 0u);
}

TEST(UiDisplayDelegateColorTest, ComponentScaleBySlotAndModel) {
    struct SCase {
        uint16_t edid;
        EColorMod slot;
        int maximum;
    };
    const SCase cases[] = {
        {Edid::Birch, eColorMod_Hue, 255},     {Edid::Birch, eColorMod_Gain, 255},
        {Edid::ElmSmall, eColorMod_Hue, 100},  {Edid::ElmSmall, eColorMod_Saturation, 100},
        {Edid::ElmSmall, eColorMod_Gain, 255}, {Edid::ElmSmall, eColorMod_Offset, 255},
        {Edid::ElmLarge, eColorMod_Gain, 100}, {Edid::Aspen, eColorMod_Gain, 100},
        {Edid::Alder, eColorMod_Gain, 100},    {Edid::CedarSmall, eColorMod_Gain, 255},
    };
    for (const SCase& c : cases) {
        CDelegateBench bench(c.edid);
        Delegate& d = *bench.mDelegate;
        d.SelectColorMod(c.slot);
        EXPECT_EQ(d.ColorMaximum(), c.maximum) << c.edid << " slot " << c.slot;
        EXPECT_EQ(d.RawColorScale(), c.maximum == 255) << c.edid << " slot " << c.slot;
        EXPECT_EQ(d.ScaleToDisplay(255), c.maximum) << c.edid;
        EXPECT_EQ(d.ScaleToDisplay(254), c.maximum == 255 ? 254 : 99) << c.edid;
        EXPECT_EQ(d.ScaleToUser(c.maximum), 255) << c.edid;
        EXPECT_EQ(d.ScaleToUser(50), c.maximum == 255 ? 50 : 127) << c.edid;
    }
}

TEST(UiDisplayDelegateColorTest, TextsInTheUsersScale) {
    CDelegateBench percent(Edid::ElmLarge, {{0x16, 50, 100}, {0x18, 50, 100}, {0x1A, 100, 100}});
    Delegate& d = *percent.mDelegate;
    EXPECT_FALSE(d.RawColorScale());
    d.LoadColorMods(eColorMod_Gain);
    EXPECT_EQ(d.GetRGBText(), L" 127, 127, 255");
    const std::pair<std::wstring, std::wstring> formats[] = {
        {L"0.5", L"0.5"},   {L"1", L"1"},     {L"40", L"102"},
        {L"100.9", L"255"}, {L"abc", L"abc"}, {L"", L""},
    };
    for (const auto& [text, shown] : formats) {
        EXPECT_EQ(d.FormatForUser(text), shown);
    }

    CDelegateBench raw(Edid::Birch);
    raw.mDelegate->LoadColorMods(eColorMod_Gain);
    EXPECT_EQ(raw.mDelegate->GetRGBText(), L" 200, 200, 200");
    EXPECT_EQ(raw.mDelegate->FormatForUser(L"40"), L"40");
}

TEST(UiDisplayDelegateColorTest, CmykAndHexNeedTheRawScaleExceptOnElmLarge) {
    CDelegateBench elm(Edid::ElmSmall);
    elm.mDelegate->SelectColorMod(eColorMod_Hue);
    EXPECT_EQ(elm.mDelegate->CmykHexStatus(), SControlState::Hidden());
    EXPECT_FALSE(elm.mDelegate->RawColorScale());
    elm.mDelegate->SelectColorMod(eColorMod_Gain);
    EXPECT_EQ(elm.mDelegate->CmykHexStatus(), SControlState::Usable());
    EXPECT_TRUE(elm.mDelegate->RawColorScale());

    CDelegateBench large(Edid::ElmLarge);
    EXPECT_EQ(large.mDelegate->CmykHexStatus(), SControlState::Usable());
    EXPECT_FALSE(large.mDelegate->RawColorScale());
}

TEST(UiDisplayDelegateColorTest, TooDarkColors) {
    const SCustomColor dim = SCustomColor::FromRGB(19, 19, 19);
    const SCustomColor redOnly = SCustomColor::FromRGB(20, 0, 0);
    const SCustomColor grey = SCustomColor::FromRGB(102, 102, 102); // black 0.6
    const SCustomColor lighter = SCustomColor::FromRGB(103, 0, 0);
    EXPECT_TRUE(UiDisplayDelegate::IsColorTooDark(dim, true, false));
    EXPECT_FALSE(UiDisplayDelegate::IsColorTooDark(redOnly, true, true));
    EXPECT_TRUE(UiDisplayDelegate::IsColorTooDark(grey, false, true));
    EXPECT_FALSE(UiDisplayDelegate::IsColorTooDark(lighter, false, true));
    EXPECT_FALSE(UiDisplayDelegate::IsColorTooDark(dim, false, false));
}

TEST(UiDisplayDelegateColorTest, FactoryResetWaitsOnTheSlowScalersAndForgetsEverything) {
    struct SCase {
        uint16_t edid;
        bool waits;
        bool refreshesLevels;
    };
    const SCase cases[] = {{Edid::ElmSmall, true, true},
                           {Edid::Birch, true, false},
                           {Edid::CedarSmall, true, true},
                           {Edid::Aspen, false, false},
                           {Edid::FirSmall, false, false}};
    for (const SCase& c : cases) {
        CDelegateBench bench(c.edid);
        Delegate& d = *bench.mDelegate;
        bench.ReadAll();
        bench.ClearTraffic();
        EXPECT_EQ(d.GetBrightness().value, 60) << c.edid;
        EXPECT_EQ(d.GetContrast().maximum, 100) << c.edid;
        EXPECT_EQ(bench.Traffic(), c.refreshesLevels ? 2u : 0u) << c.edid;
        d.SetColorSetting(eColorSetting_Custom);
        bench.ClearTraffic();
        bench.mClock->ClearSleeps();
        EXPECT_TRUE(d.FactoryReset()) << c.edid;
        EXPECT_EQ(bench.SentWrites(), (Writes{{0x04, 1}})) << c.edid;
        const std::vector<uint32_t> sleeps = bench.mClock->Sleeps();
        EXPECT_EQ(std::count(sleeps.begin(), sleeps.end(), 10000u), c.waits ? 1 : 0) << c.edid;
        EXPECT_EQ(d.ColorSetting(), eColorSetting_Space) << c.edid;
        bench.ClearTraffic();
        d.GetContrast();
        EXPECT_EQ(bench.Traffic(), 1u) << c.edid;
    }

    CDelegateBench failing(Edid::Birch);
    failing.ReadAll();
    failing.mDelegate->SetColorSetting(eColorSetting_Custom);
    failing.mFake->FailWritesOf(0x04);
    EXPECT_FALSE(failing.mDelegate->FactoryReset());
    EXPECT_EQ(failing.mDelegate->ColorSetting(), eColorSetting_Custom);
}

TEST(UiDisplayDelegateColorTest, ResetColorOnlyWhereOffered) {
    CDelegateBench bench(Edid::Birch);
    bench.ReadAll();
    bench.mDelegate->SetColorSetting(eColorSetting_Custom);
    bench.ClearTraffic();
    EXPECT_TRUE(bench.mDelegate->SetResetColor());
    EXPECT_EQ(bench.SentWrites(), (Writes{{0x08, 1}}));
    EXPECT_EQ(bench.mDelegate->ColorSetting(), eColorSetting_Space);

    CDelegateBench absent(Edid::Birch, {{0x08, 0, 0, false, true}});
    absent.ReadAll();
    absent.mDelegate->SetColorSetting(eColorSetting_Custom);
    absent.ClearTraffic();
    EXPECT_FALSE(absent.mDelegate->SetResetColor());
    EXPECT_EQ(absent.mDelegate->ColorSetting(), eColorSetting_Custom);
    EXPECT_EQ(absent.Traffic(), 0u);

    // A failed write still leaves the colours unknown, so they are read afresh.
    CDelegateBench failing(Edid::Birch);
    failing.ReadAll();
    failing.mDelegate->SetColorSetting(eColorSetting_Custom);
    failing.mFake->FailWritesOf(0x08);
    EXPECT_FALSE(failing.mDelegate->SetResetColor());
    EXPECT_EQ(failing.mDelegate->ColorSetting(), eColorSetting_Space);
}

TEST(UiDisplayDelegateColorTest, SaveRevertAndResetCarryTheColorSetting) {
    CDelegateBench bench(Edid::Birch);
    Delegate& d = *bench.mDelegate;
    bench.ReadAll();
    d.LoadColorMods(eColorMod_Gain);
    EXPECT_TRUE(d.SetColorSetting(eColorSetting_Custom));
    EXPECT_TRUE(d.SaveSettings());
    EXPECT_EQ(d.SavedColorSetting(), eColorSetting_Custom);
    EXPECT_EQ(bench.mFake->SaveCount(), 1);

    EXPECT_TRUE(d.SetColorSetting(eColorSetting_Temperature));
    d.StoreWorkingColor(SCustomColor::FromRGB(1, 2, 3));
    bench.ClearTraffic();
    d.RevertSettings();
    EXPECT_EQ(d.ColorSetting(), eColorSetting_Custom);
    EXPECT_EQ(bench.SentWrites(), (Writes{{0xF0, 9}}));
    // The working colour is what the display holds again.
    EXPECT_EQ(d.GetWorkingColor(), SCustomColor::FromRGB(200, 200, 200));

    d.ResetOptions(false);
    EXPECT_EQ(d.ColorSetting(), eColorSetting_Space);
    EXPECT_EQ(d.SavedColorSetting(), eColorSetting_Space);
}

} // namespace

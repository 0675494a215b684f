// The colour setting as the display shows it, the reads that write, custom colours, colour
// scales and the factory reset.

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
    // A repair that does not arrive leaves the value unknown.
    CDelegateBench failing(Edid::CedarSmallTwo, {{0xF4, 7}});
    failing.mFake->QueueReplies({FeatureReply(0xF4, 0, 0, 7), {}, {}});
    EXPECT_FALSE(failing.mDelegate->GetBatteryMode().valid);
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
        {"Birch movie preset", Edid::Birch, {{0xF0, 3}}, kS, temperature, kT, {{0xF0, 7}}},
        {"Birch standard preset also cycles uniformity", Edid::Birch, {{0xF0, 1}, {0x14, 6}}, kS,
         temperature, kT, {{0xF0, 7}, {0xE0, 1}, {0xE0, 0}}},
        {"ElmSmall Adobe RGB at 9300K", Edid::ElmSmall, {{0xF0, 5}, {0x14, 8}}, kS, temperature, kT, {}},
        {"Fir user colour", Edid::FirSmall, {{0x14, 11}}, kS, custom, kC, {}},
        {"Cedar native at user colour", Edid::CedarSmall, {{0xE3, 7}, {0x14, 11}}, kS, custom, kC, {}},
        {"CedarTwo 5000K gains", Edid::CedarSmallTwo,
         {{0xF0, 7}, {0x14, 11}, {0x16, 128, 255}, {0x18, 98, 255}, {0x1A, 96, 255}}, kS, temperature, kT, {{0x14, 4}}},
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

TEST(UiDisplayDelegateColorTest, CedarCustomColorPassesANeighbourSoTheScalerSeesAChange) {
    struct SCase {
        uint16_t edid, red, green, blue;
        Writes writes;
    };
    const SCase cases[] = {
        // clang-format off
        // Too dark to be meant: neutral grey, reached from above.
        {Edid::CedarSmall, 10, 10, 10, {{0x16, 128}, {0x18, 128}, {0x1A, 128}, {0x16, 127}, {0x18, 127}, {0x1A, 127}}},
        {Edid::CedarSmall, 100, 50, 50, {{0x16, 99}, {0x16, 100}}},
        {Edid::CedarSmall, 20, 20, 100, {{0x1A, 99}, {0x1A, 100}}},
        {Edid::CedarSmall, 30, 31, 32, {{0x1A, 31}, {0x1A, 32}}},
        // The second generation's native space starts from neutral gains, so its custom colour
        // does too.
        {Edid::CedarSmallTwo, 10, 10, 10, {{0x16, 128}, {0x18, 128}, {0x1A, 128}, {0x16, 127}, {0x16, 128}}},
        // clang-format on
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.red << "," << c.green << "," << c.blue);
        CDelegateBench bench(c.edid,
                             {{0x16, c.red, 255}, {0x18, c.green, 255}, {0x1A, c.blue, 255}});
        bench.ReadAll();
        EXPECT_TRUE(bench.mDelegate->SetColorSetting(eColorSetting_Custom));
        EXPECT_EQ(bench.SentWrites(), c.writes);
    }
}

TEST(UiDisplayDelegateColorTest, ComponentScaleBySlotAndModel) {
    struct SCase {
        uint16_t edid;
        EColorMod slot;
        int maximum;
    };
    const SCase cases[] = {
        {Edid::Birch, eColorMod_Hue, 255},     {Edid::ElmSmall, eColorMod_Saturation, 100},
        {Edid::ElmSmall, eColorMod_Gain, 255}, {Edid::ElmLarge, eColorMod_Gain, 100},
        {Edid::Alder, eColorMod_Gain, 100},    {Edid::CedarSmall, eColorMod_Gain, 255},
    };
    for (const SCase& c : cases) {
        CDelegateBench bench(c.edid);
        Delegate& d = *bench.mDelegate;
        d.SelectColorMod(c.slot);
        EXPECT_EQ(d.ColorMaximum(), c.maximum) << c.edid << " slot " << c.slot;
        EXPECT_EQ(d.RawColorScale(), c.maximum == 255) << c.edid << " slot " << c.slot;
        EXPECT_EQ(d.ScaleToDisplay(254), c.maximum == 255 ? 254 : 99) << c.edid;
        EXPECT_EQ(d.ScaleToUser(50), c.maximum == 255 ? 50 : 127) << c.edid;
    }
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
        d.GetBrightness();
        d.GetContrast();
        EXPECT_EQ(bench.Traffic(), c.refreshesLevels ? 2u : 0u) << c.edid;
        d.SetColorSetting(eColorSetting_Custom);
        bench.ClearTraffic();
        bench.mClock->ClearSleeps();
        EXPECT_TRUE(d.FactoryReset()) << c.edid;
        EXPECT_EQ(bench.SentWrites(), (Writes{{0x04, 1}})) << c.edid;
        const std::vector<uint32_t> sleeps = bench.mClock->Sleeps();
        EXPECT_EQ(std::count(sleeps.begin(), sleeps.end(), 10000u), c.waits ? 1 : 0) << c.edid;
        EXPECT_EQ(d.ColorSetting(), eColorSetting_Space) << c.edid;
    }
}

} // namespace

// What each setter puts on the wire and what each getter makes of the display's values, by
// model family: the cells of the delegate's tables.

#include "DelegateBench.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

using Delegate = UiDisplayDelegate;

// A case's action on the delegate under test, named d.
#define ACT(expression) [](Delegate& d) { return expression; }

struct SWriteCase {
    const char* name;
    uint16_t edid;
    std::vector<SFakeCode> changes;
    std::function<bool(Delegate&)> act;
    bool result;
    Writes writes;
};

void RunWriteCases(const std::vector<SWriteCase>& cases_I) {
    for (const SWriteCase& c : cases_I) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        ASSERT_TRUE(bench.mInitialized);
        bench.ReadAll();
        EXPECT_EQ(c.act(*bench.mDelegate), c.result);
        EXPECT_EQ(bench.SentWrites(), c.writes);
    }
}

TEST(UiDisplayDelegateWritesTest, EachSetterPicksItsCodeAndValueByModel) {
    RunWriteCases({
        // clang-format off
        {"brightness Birch", Edid::Birch, {}, ACT(d.SetBrightness(40)), true, {{0x10, 40}}},
        {"brightness Fir", Edid::FirSmall, {}, ACT(d.SetBrightness(40)), true, {{0x13, 40}}},
        {"sharpness", Edid::Birch, {}, ACT(d.SetSharpness(7)), true, {{0x87, 7}}},
        {"energy smart", Edid::ElmSmall, {}, ACT(d.SetEnergySmart(true)), true, {{0xE9, 1}}},
        {"ElmLarge dynamic contrast", Edid::ElmLarge, {{0xE0, 1}}, ACT(d.SetDynamicContrast(true)),
         true, {{0xE0, 0}, {0xE8, 1}}},
        {"fan speed", Edid::ElmLarge, {}, ACT(d.SetFanSpeed(eFanSpeed_LowSpeed)), true, {{0xF3, 0}}},
        {"LED", Edid::FirSmall, {}, ACT(d.SetPowerLedBrightness(ledBrightness_High)), true, {{0xEF, 3}}},
        {"battery Desktop", Edid::CedarSmallTwo, {}, ACT(d.SetBatteryMode(eBatteryMode_Desktop)),
         true, {{0xF4, 3}}},
        {"battery Mobile", Edid::CedarSmallTwo, {{0xF4, 3}},
         ACT(d.SetBatteryMode(eBatteryMode_Mobile)), true, {{0xF4, 2}}},
        {"Birch 7500K", Edid::Birch, {}, ACT(d.SetColorTemperature(eColorTemperature_7500K)), true,
         {{0x14, 6}}},
        {"ElmSmall preset 12", Edid::ElmSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_Preset12)), true, {{0x14, 12}}},
        {"Fir user", Edid::FirSmall, {}, ACT(d.SetColorTemperature(eColorTemperature_User)), true,
         {{0x14, 11}}},
        {"Cedar 5000K", Edid::CedarSmall, {}, ACT(d.SetColorTemperature(eColorTemperature_5000K)),
         true, {{0x14, 4}}},
        {"Cedar gamma 1.9", Edid::CedarSmall, {}, ACT(d.SetGamma(0)), true, {{0x72, 1}}},
        {"Birch gamma 2.4", Edid::Birch, {}, ACT(d.SetGamma(2)), true, {{0x72, 2}}},
        {"Birch gamma 1.9", Edid::Birch, {}, ACT(d.SetGamma(0)), false, {}},
        {"Elm gamma is ten times", Edid::ElmSmall, {}, ACT(d.SetGamma(24)), true, {{0x72, 24}}},
        {"Hazel 1:1", Edid::Hazel, {}, ACT(d.SetAspectRatio(eAspectRatio_OneToOne)), false, {}},
        {"Hazel Aspect", Edid::Hazel, {}, ACT(d.SetAspectRatio(eAspectRatio_Aspect)), true, {{0xDA, 1}}},
        {"Birch 1:1", Edid::Birch, {}, ACT(d.SetAspectRatio(eAspectRatio_OneToOne)), true, {{0xE2, 2}}},
        {"Cedar 1:1", Edid::CedarSmall, {}, ACT(d.SetAspectRatio(eAspectRatio_OneToOne)), true, {{0x86, 1}}},
        {"Aspen Aspect", Edid::Aspen, {}, ACT(d.SetAspectRatio(eAspectRatio_Aspect)), true, {{0x86, 3}}},
        // clang-format on
    });
}

TEST(UiDisplayDelegateWritesTest, ColorSpaceByModel) {
    RunWriteCases({
        // clang-format off
        {"DCI P3 on ElmSmall also selects preset 12", Edid::ElmSmall, {},
         ACT(d.SetColorSpace(eColorSpace_DCIP3)), true, {{0xF0, 8}, {0x14, 12}}},
        {"Adobe RGB on ElmSmall starts from the default preset", Edid::ElmSmall,
         {{0x14, 8}, {0xF0, 6}}, ACT(d.SetColorSpace(eColorSpace_AdobeRGB)), true,
         {{0x14, 5}, {0xF0, 5}}},
        {"native on Elm has no value", Edid::ElmSmall, {}, ACT(d.SetColorSpace(eColorSpace_Native)),
         false, {}},
        {"sRGB on a calibrated Birch leaves the calibrator preset first", Edid::Birch,
         {{0x14, 8}, {0xF0, 5}}, ACT(d.SetColorSpace(eColorSpace_sRGB)), true,
         {{0xF0, 7}, {0x14, 5}, {0xE3, 2}}},
        {"Adobe RGB on Cedar", Edid::CedarSmall, {{0x14, 8}},
         ACT(d.SetColorSpace(eColorSpace_AdobeRGB)), true, {{0x14, 5}, {0xE3, 1}}},
        {"colour manager 1 on Cedar", Edid::CedarSmall, {{0x14, 8}},
         ACT(d.SetColorSpace(eColorSpace_ColorManager1)), true, {{0xE3, 8}}},
        {"native on CedarTwo resets the gains", Edid::CedarSmallTwo, {{0xF0, 1}},
         ACT(d.SetColorSpace(eColorSpace_Native)), true,
         {{0xF0, 7}, {0x16, 128}, {0x18, 128}, {0x1A, 128}}},
        {"Fir has no colour space", Edid::FirSmall, {}, ACT(d.SetColorSpace(eColorSpace_AdobeRGB)),
         false, {}},
        // clang-format on
    });
}

// Sets the colour setting and checks that the delegate took it.
std::function<bool(Delegate&)> Setting(EColorSetting setting_I, bool fromCustom_I = false) {
    return [=](Delegate& d) {
        return (!fromCustom_I || d.SetColorSetting(eColorSetting_Custom)) &&
               d.SetColorSetting(setting_I) && d.ColorSetting() == setting_I;
    };
}

TEST(UiDisplayDelegateWritesTest, ColorSettingByModel) {
    const EColorSetting kT = eColorSetting_Temperature;
    const EColorSetting kS = eColorSetting_Space;
    const EColorSetting kC = eColorSetting_Custom;
    RunWriteCases({
        // clang-format off
        {"Birch temperature", Edid::Birch, {{0xF0, 9}}, Setting(kT), true, {{0xF0, 7}}},
        {"Birch space goes back to the default preset", Edid::Birch,
         {{0xF0, 9}, {0xE3, 3}, {0x14, 8}}, Setting(kS), true, {{0xF0, 7}, {0x14, 5}}},
        {"ElmSmall custom", Edid::ElmSmall, {}, Setting(kC), true, {{0xF0, 13}}},
        {"ElmSmall temperature leaves the space first", Edid::ElmSmall, {{0xF0, 6}, {0x14, 8}},
         Setting(kT), true, {{0x14, 5}, {0xF0, 5}}},
        {"ElmLarge temperature at preset 12", Edid::ElmLarge, {{0x14, 12}}, Setting(kT), true, {{0x14, 5}}},
        {"Fir custom", Edid::FirSmall, {}, Setting(kC), true, {{0x14, 11}}},
        // The Aspen keeps the program's setting.
        {"Aspen temperature from user colour", Edid::Aspen, {{0x14, 11}},
         ACT(d.SetColorSetting(eColorSetting_Temperature)), true, {{0x14, 5}}},
        {"Cedar space", Edid::CedarSmall, {{0xE3, 1}, {0x14, 8}}, Setting(kS), true, {{0xE3, 7}, {0x14, 5}}},
        {"CedarTwo temperature", Edid::CedarSmallTwo, {{0xF0, 1}, {0x14, 8}}, Setting(kT), true,
         {{0xF0, 7}, {0x16, 128}, {0x18, 128}, {0x1A, 128}, {0x14, 5}}},
        {"a model of no family", Edid::Unknown, {}, Setting(kT), false, {}},
        // Leaving custom colour goes back to the default preset.
        {"ElmSmall custom to space", Edid::ElmSmall, {{0x14, 8}}, Setting(kS, true), true,
         {{0xF0, 13}, {0x14, 5}, {0xF0, 5}}},
        {"ElmLarge custom to temperature", Edid::ElmLarge, {{0x14, 8}}, Setting(kT, true), true,
         {{0xF0, 13}, {0x14, 5}}},
        // clang-format on
    });
}

TEST(UiDisplayDelegateWritesTest, AFailedWriteStopsTheSequence) {
    const std::pair<uint16_t, std::function<bool(Delegate&)>> cases[] = {
        {Edid::Birch, ACT(d.SetColorSpace(eColorSpace_sRGB))},
        {Edid::ElmSmall, ACT(d.SetColorSpace(eColorSpace_AdobeRGB))},
    };
    for (const auto& [edid, act] : cases) {
        CDelegateBench bench(edid, {{0x14, 8}});
        bench.ReadAll();
        // The first write, of the default preset, and its second try are lost.
        bench.mFake->QueueReplies({{}, {}});
        EXPECT_FALSE(act(*bench.mDelegate)) << edid;
        EXPECT_EQ(bench.SentWrites(), (Writes{{0x14, 5}, {0x14, 5}})) << edid;
    }
}

struct SReadCase {
    const char* name;
    uint16_t edid;
    std::vector<SFakeCode> changes;
    std::function<std::pair<bool, int>(Delegate&)> read;
    bool valid;
    int value;
};

template <typename T>
std::pair<bool, int> Pair(const SUserValue<T>& value_I) {
    return {value_I.valid, static_cast<int>(value_I.value)};
}

std::pair<bool, int> Pair(const SVCPResult& value_I) {
    return {value_I.valid, value_I.value};
}

void RunReadCases(const std::vector<SReadCase>& cases_I) {
    for (const SReadCase& c : cases_I) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        ASSERT_TRUE(bench.mInitialized);
        EXPECT_EQ(c.read(*bench.mDelegate), std::make_pair(c.valid, c.value));
        EXPECT_TRUE(bench.SentWrites().empty());
    }
}

TEST(UiDisplayDelegateReadsTest, EachGetterReadsItsCodeByModel) {
    const auto temperature = ACT(Pair(d.GetColorTemperature()));
    const auto space = ACT(Pair(d.GetColorSpace()));
    const auto gamma = ACT(Pair(d.GetGamma()));
    const auto aspect = ACT(Pair(d.GetAspectRatio()));
    RunReadCases({
        // clang-format off
        {"Birch 7500K", Edid::Birch, {{0x14, 6}}, temperature, true, 3},
        {"Elm preset 12", Edid::ElmSmall, {{0x14, 12}}, temperature, true, 7},
        {"Fir user colour", Edid::FirSmall, {{0x14, 11}}, temperature, true, 8},
        {"refused 0x14", Edid::Birch, {{0x14, 5, 0, true}}, temperature, false, 2},
        {"Birch calibrator 2", Edid::Birch, {{0xF0, 6}}, space, true, 7},
        {"Birch sRGB of 0xE3 is no choice", Edid::Birch, {{0xE3, 0}}, space, false, 1},
        {"ElmLarge native reads Adobe RGB", Edid::ElmLarge, {{0xF0, 0}}, space, true, 1},
        {"Elm custom colour", Edid::ElmSmall, {{0xF0, 13}}, space, true, 11},
        {"Cedar native", Edid::CedarSmall, {{0xE3, 7}}, space, true, 0},
        {"CedarTwo 3 has no cell", Edid::CedarSmallTwo, {{0xF0, 3}}, space, false, 1},
        {"Birch gamma 2.4", Edid::Birch, {{0x72, 2}}, gamma, true, 2},
        {"Birch 1:1", Edid::Birch, {{0xE2, 2}}, aspect, true, 2},
        {"Cedar 1:1", Edid::CedarSmall, {{0x86, 1}}, aspect, true, 2},
        {"fan speed 7", Edid::ElmLarge, {{0xF3, 7}}, ACT(Pair(d.GetFanSpeed())), false, 1},
        {"battery Desktop", Edid::CedarSmallTwo, {{0xF4, 3}}, ACT(Pair(d.GetBatteryMode())), true, 1},
        {"Hazel brightness", Edid::Hazel, {{0x6B, 44, 100}}, ACT(Pair(d.GetBrightness())), true, 44},
        // clang-format on
    });
}

TEST(UiDisplayDelegateReadsTest, ScanModeIsReadAfterTheDisplaySettles) {
    CDelegateBench bench(Edid::FirSmallTwo, {{0xDA, 1}});
    bench.ReadAll();
    EXPECT_EQ(Pair(bench.mDelegate->GetAspectRatio()), std::make_pair(true, 1));
    EXPECT_EQ(bench.Traffic(), 1u);
    EXPECT_EQ(bench.mClock->Sleeps().at(0), 500u);
}

} // namespace

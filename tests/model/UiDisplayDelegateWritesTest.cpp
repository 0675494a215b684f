// What each setter puts on the wire and what each getter makes of the display's values, by
// model family.

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

std::string Describe(const Writes& writes_I) {
    std::string text;
    for (const auto& [code, value] : writes_I) {
        text += "(" + std::to_string(code) + "=" + std::to_string(value) + ")";
    }
    return text;
}

void RunWriteCases(const std::vector<SWriteCase>& cases_I) {
    for (const SWriteCase& c : cases_I) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        ASSERT_TRUE(bench.mInitialized);
        bench.ReadAll();
        EXPECT_EQ(c.act(*bench.mDelegate), c.result);
        EXPECT_EQ(bench.SentWrites(), c.writes) << Describe(bench.SentWrites());
    }
}

TEST(UiDisplayDelegateWritesTest, LevelsAndSwitchesPickTheirCodeByModel) {
    RunWriteCases({
        // clang-format off
        {"brightness Birch", Edid::Birch, {}, ACT(d.SetBrightness(40)), true, {{0x10, 40}}},
        {"brightness Fir", Edid::FirSmall, {}, ACT(d.SetBrightness(40)), true, {{0x13, 40}}},
        {"brightness FirTwo", Edid::FirSmallTwo, {}, ACT(d.SetBrightness(40)), true, {{0x6B, 40}}},
        {"brightness Hazel", Edid::Hazel, {}, ACT(d.SetBrightness(40)), true, {{0x6B, 40}}},
        {"contrast", Edid::ElmSmall, {}, ACT(d.SetContrast(70)), true, {{0x12, 70}}},
        {"sharpness", Edid::Birch, {}, ACT(d.SetSharpness(7)), true, {{0x87, 7}}},
        {"uniformity", Edid::Birch, {}, ACT(d.SetUniformity(true)), true, {{0xE0, 1}}},
        {"energy smart", Edid::ElmSmall, {}, ACT(d.SetEnergySmart(true)), true, {{0xE9, 1}}},
        {"auto power down", Edid::ElmLarge, {}, ACT(d.SetAutoPowerDown(true)), true, {{0xEE, 1}}},
        {"dynamic contrast on ElmLarge leaves uniformity first", Edid::ElmLarge, {{0xE0, 1}},
         ACT(d.SetDynamicContrast(true)), true, {{0xE0, 0}, {0xE8, 1}}},
        {"dynamic contrast on ElmSmall", Edid::ElmSmall, {{0xE0, 1}},
         ACT(d.SetDynamicContrast(true)), true, {{0xE8, 1}}},
        {"dynamic contrast off on ElmLarge", Edid::ElmLarge, {{0xE0, 1}, {0xE8, 1}},
         ACT(d.SetDynamicContrast(false)), true, {{0xE8, 0}}},
        {"fan speed", Edid::ElmLarge, {}, ACT(d.SetFanSpeed(eFanSpeed_LowSpeed)), true,
         {{0xF3, 0}}},
        {"fan speed out of range", Edid::ElmLarge, {},
         ACT(d.SetFanSpeed(static_cast<EFanSpeed>(7))), false, {}},
        {"LED", Edid::FirSmall, {}, ACT(d.SetPowerLedBrightness(ledBrightness_High)), true,
         {{0xEF, 3}}},
        {"LED on Hazel", Edid::Hazel, {}, ACT(d.SetPowerLedBrightness(ledBrightness_High)), false,
         {}},
        {"OSD language", Edid::Birch, {}, ACT(d.SetOSDLanguage(13)), true, {{0xCC, 13}}},
        {"conditioning", Edid::Birch, {}, ACT(d.StartConditioning()), true, {{0xEA, 1}}},
        {"battery Desktop", Edid::CedarSmallTwo, {}, ACT(d.SetBatteryMode(eBatteryMode_Desktop)),
         true, {{0xF4, 3}}},
        {"battery Mobile", Edid::CedarSmallTwo, {{0xF4, 3}},
         ACT(d.SetBatteryMode(eBatteryMode_Mobile)), true, {{0xF4, 2}}},
        {"battery mode unknown", Edid::CedarSmallTwo, {},
         ACT(d.SetBatteryMode(static_cast<EBatteryMode>(5))), false, {}},
        {"battery mode not offered", Edid::Birch, {}, ACT(d.SetBatteryMode(eBatteryMode_Desktop)),
         false, {}},
        {"battery mode refused", Edid::CedarSmallTwo, {{0xF4, 2, 0, true}},
         ACT(d.SetBatteryMode(eBatteryMode_Desktop)), false, {}},
        // clang-format on
    });
}

TEST(UiDisplayDelegateWritesTest, ColorTemperatureGammaAndAspectRatioByModel) {
    RunWriteCases({
        // clang-format off
        {"7500K on ElmSmall has no cell", Edid::ElmSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_7500K)), false, {}},
        {"7500K on Birch", Edid::Birch, {}, ACT(d.SetColorTemperature(eColorTemperature_7500K)),
         true, {{0x14, 6}}},
        {"second 5700K on Birch", Edid::Birch, {},
         ACT(d.SetColorTemperature(eColorTemperature_5700KSecond)), true, {{0x14, 11}}},
        {"preset 12 on ElmSmall", Edid::ElmSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_Preset12)), true, {{0x14, 12}}},
        {"user colour on Fir", Edid::FirSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_User)), true, {{0x14, 11}}},
        {"5700K on Fir has no cell", Edid::FirSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_5700K)), false, {}},
        {"9300K on Aspen", Edid::Aspen, {}, ACT(d.SetColorTemperature(eColorTemperature_9300K)),
         true, {{0x14, 8}}},
        {"5000K on Cedar", Edid::CedarSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_5000K)), true, {{0x14, 4}}},
        {"Cedar answers true whatever the write did", Edid::CedarSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_9300K) && d.SetColorTemperature(eColorTemperature_6500K)),
         true, {{0x14, 8}, {0x14, 5}}},
        {"10000K on Cedar has no cell", Edid::CedarSmall, {},
         ACT(d.SetColorTemperature(eColorTemperature_10000K)), false, {}},
        {"gamma Cedar 1.9", Edid::CedarSmall, {}, ACT(d.SetGamma(0)), true, {{0x72, 1}}},
        {"gamma Cedar 2.4", Edid::CedarSmall, {}, ACT(d.SetGamma(2)), true, {{0x72, 3}}},
        {"gamma Birch 2.4", Edid::Birch, {}, ACT(d.SetGamma(2)), true, {{0x72, 2}}},
        {"gamma Birch 1.9 has no value", Edid::Birch, {}, ACT(d.SetGamma(0)), false, {}},
        {"gamma Elm is ten times", Edid::ElmSmall, {}, ACT(d.SetGamma(24)), true, {{0x72, 24}}},
        {"gamma Aspen", Edid::Aspen, {}, ACT(d.SetGamma(1)), false, {}},
        {"1:1 on Hazel has no cell", Edid::Hazel, {}, ACT(d.SetAspectRatio(eAspectRatio_OneToOne)),
         false, {}},
        {"Aspect on Hazel", Edid::Hazel, {}, ACT(d.SetAspectRatio(eAspectRatio_Aspect)), true,
         {{0xDA, 1}}},
        {"1:1 on Birch", Edid::Birch, {}, ACT(d.SetAspectRatio(eAspectRatio_OneToOne)), true,
         {{0xE2, 2}}},
        {"Aspect on Fir has no cell", Edid::FirSmall, {},
         ACT(d.SetAspectRatio(eAspectRatio_Aspect)), false, {}},
        {"1:1 on Cedar", Edid::CedarSmall, {}, ACT(d.SetAspectRatio(eAspectRatio_OneToOne)), true,
         {{0x86, 1}}},
        {"Aspect on Aspen", Edid::Aspen, {}, ACT(d.SetAspectRatio(eAspectRatio_Aspect)), true,
         {{0x86, 3}}},
        // clang-format on
    });
}

TEST(UiDisplayDelegateWritesTest, ColorSpaceByModel) {
    RunWriteCases({
        // clang-format off
        {"DCI P3 on ElmSmall also selects preset 12", Edid::ElmSmall, {},
         ACT(d.SetColorSpace(eColorSpace_DCIP3)), true, {{0xF0, 8}, {0x14, 12}}},
        {"DCI P3 on ElmLarge", Edid::ElmLarge, {}, ACT(d.SetColorSpace(eColorSpace_DCIP3)), true,
         {{0xF0, 8}}},
        {"Adobe RGB on ElmSmall starts from the default preset", Edid::ElmSmall,
         {{0x14, 8}, {0xF0, 6}}, ACT(d.SetColorSpace(eColorSpace_AdobeRGB)), true,
         {{0x14, 5}, {0xF0, 5}}},
        {"Adobe RGB on ElmLarge", Edid::ElmLarge, {{0x14, 8}, {0xF0, 6}},
         ACT(d.SetColorSpace(eColorSpace_AdobeRGB)), true, {{0xF0, 5}}},
        {"custom colour on Elm", Edid::ElmSmall, {}, ACT(d.SetColorSpace(eColorSpace_CustomColor)),
         true, {{0xF0, 13}}},
        {"colour manager 2 on Elm", Edid::ElmSmall, {},
         ACT(d.SetColorSpace(eColorSpace_ColorManager2)), true, {{0xF0, 12}}},
        {"native on Elm has no value", Edid::ElmSmall, {}, ACT(d.SetColorSpace(eColorSpace_Native)),
         false, {}},
        {"sRGB on Birch", Edid::Birch, {{0x14, 8}}, ACT(d.SetColorSpace(eColorSpace_sRGB)), true,
         {{0x14, 5}, {0xE3, 2}}},
        {"sRGB on a calibrated Birch leaves the calibrator preset first", Edid::Birch,
         {{0x14, 8}, {0xF0, 5}}, ACT(d.SetColorSpace(eColorSpace_sRGB)), true,
         {{0xF0, 7}, {0x14, 5}, {0xE3, 2}}},
        {"colour manager 1 on Birch", Edid::Birch, {},
         ACT(d.SetColorSpace(eColorSpace_ColorManager1)), true, {{0xF0, 5}}},
        {"colour manager 2 on a calibrated Birch", Edid::Birch, {{0xF0, 5}},
         ACT(d.SetColorSpace(eColorSpace_ColorManager2)), true, {{0xF0, 6}}},
        {"Adobe RGB on Cedar", Edid::CedarSmall, {{0x14, 8}},
         ACT(d.SetColorSpace(eColorSpace_AdobeRGB)), true, {{0x14, 5}, {0xE3, 1}}},
        {"colour manager 1 on Cedar", Edid::CedarSmall, {{0x14, 8}},
         ACT(d.SetColorSpace(eColorSpace_ColorManager1)), true, {{0xE3, 8}}},
        {"native on CedarTwo resets the gains", Edid::CedarSmallTwo, {{0xF0, 1}},
         ACT(d.SetColorSpace(eColorSpace_Native)), true,
         {{0xF0, 7}, {0x16, 128}, {0x18, 128}, {0x1A, 128}}},
        {"DCI on Cedar has no value", Edid::CedarSmall, {}, ACT(d.SetColorSpace(eColorSpace_DCI)),
         false, {}},
        {"Fir has no colour space", Edid::FirSmall, {}, ACT(d.SetColorSpace(eColorSpace_AdobeRGB)),
         false, {}},
        // clang-format on
    });
}

TEST(UiDisplayDelegateWritesTest, AFailedWriteStopsTheSequence) {
    struct SCase {
        const char* name;
        uint16_t edid;
        std::vector<SFakeCode> changes;
        uint8_t failing;
        std::function<bool(Delegate&)> act;
        uint8_t untouched;
    };
    const SCase cases[] = {
        {"Birch space after a failed preset",
         Edid::Birch,
         {{0x14, 8}},
         0x14,
         ACT(d.SetColorSpace(eColorSpace_sRGB)),
         0xE3},
        {"Elm space after a failed preset",
         Edid::ElmSmall,
         {{0x14, 8}, {0xF0, 6}},
         0x14,
         ACT(d.SetColorSpace(eColorSpace_AdobeRGB)),
         0xF0},
        {"blue after a failed green",
         Edid::Birch,
         {},
         0x18,
         ACT(d.SetCustomRGBColorMod(eColorMod_Gain, SCustomColor::FromRGB(1, 2, 3))),
         0x1A},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.name);
        CDelegateBench bench(c.edid, c.changes);
        bench.ReadAll();
        const uint16_t before = bench.Value(c.untouched);
        bench.mFake->FailWritesOf(c.failing);
        EXPECT_FALSE(c.act(*bench.mDelegate));
        EXPECT_EQ(bench.Value(c.untouched), before);
        for (const auto& write : bench.SentWrites()) {
            EXPECT_NE(write.first, c.untouched);
        }
    }
}

TEST(UiDisplayDelegateWritesTest, ConditioningIsWrittenAgainOnlyAfterItIsForgotten) {
    CDelegateBench bench(Edid::Birch);
    Delegate& d = *bench.mDelegate;
    EXPECT_TRUE(d.StartConditioning());
    EXPECT_TRUE(d.StartConditioning());
    EXPECT_EQ(bench.SentWrites(), (Writes{{0xEA, 1}}));
    d.ForgetConditioning();
    EXPECT_FALSE(d.IsAnyOptionModified());
    EXPECT_TRUE(d.StartConditioning());
    EXPECT_EQ(bench.SentWrites(), (Writes{{0xEA, 1}, {0xEA, 1}}));
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

TEST(UiDisplayDelegateReadsTest, ColorTemperatureSpaceAndGammaByModel) {
    const auto temperature = ACT(Pair(d.GetColorTemperature()));
    const auto space = ACT(Pair(d.GetColorSpace()));
    const auto gamma = ACT(Pair(d.GetGamma()));
    RunReadCases({
        // clang-format off
        {"Birch 7500K", Edid::Birch, {{0x14, 6}}, temperature, true, 3},
        {"Birch 12 has no cell", Edid::Birch, {{0x14, 12}}, temperature, false, 2},
        {"Elm preset 12", Edid::ElmSmall, {{0x14, 12}}, temperature, true, 7},
        {"Fir user colour", Edid::FirSmall, {{0x14, 11}}, temperature, true, 8},
        {"Cedar 10000K has no cell", Edid::CedarSmall, {{0x14, 9}}, temperature, false, 2},
        {"Aspen 9300K", Edid::Aspen, {{0x14, 8}}, temperature, true, 4},
        {"refused 0x14", Edid::Birch, {{0x14, 5, 0, true}}, temperature, false, 2},
        {"Birch calibrator 1", Edid::Birch, {{0xF0, 5}}, space, true, 6},
        {"Birch calibrator 2", Edid::Birch, {{0xF0, 6}}, space, true, 7},
        {"Birch Rec 709", Edid::Birch, {{0xE3, 3}}, space, true, 3},
        {"Birch sRGB of 0xE3 is no choice", Edid::Birch, {{0xE3, 0}}, space, false, 1},
        {"ElmSmall native", Edid::ElmSmall, {{0xF0, 0}}, space, false, 1},
        {"ElmLarge native reads Adobe RGB", Edid::ElmLarge, {{0xF0, 0}}, space, true, 1},
        {"Elm calibrator 1", Edid::ElmSmall, {{0xF0, 11}}, space, true, 6},
        {"Elm custom colour", Edid::ElmSmall, {{0xF0, 13}}, space, true, 11},
        {"Elm EBU", Edid::ElmLarge, {{0xF0, 10}}, space, true, 10},
        {"Cedar sRGB", Edid::CedarSmall, {{0xE3, 0}}, space, true, 2},
        {"Cedar native", Edid::CedarSmall, {{0xE3, 7}}, space, true, 0},
        {"CedarTwo calibrator 1", Edid::CedarSmallTwo, {{0xF0, 8}}, space, true, 6},
        {"CedarTwo 3 has no cell", Edid::CedarSmallTwo, {{0xF0, 3}}, space, false, 1},
        {"Fir", Edid::FirSmall, {}, space, false, 1},
        {"Birch gamma 2.4", Edid::Birch, {{0x72, 2}}, gamma, true, 2},
        {"Birch gamma 0", Edid::Birch, {{0x72, 0}}, gamma, true, 1},
        {"Elm gamma", Edid::ElmSmall, {{0x72, 22, 30}}, gamma, true, 22},
        {"Cedar gamma 1.9", Edid::CedarSmall, {{0x72, 1}}, gamma, true, 0},
        {"Cedar gamma 2.4", Edid::CedarSmall, {{0x72, 3}}, gamma, true, 2},
        {"Cedar gamma 2.2", Edid::CedarSmall, {{0x72, 2}}, gamma, true, 1},
        {"Aspen gamma", Edid::Aspen, {}, gamma, true, 1},
        // clang-format on
    });
}

TEST(UiDisplayDelegateReadsTest, AdvancedValuesByModel) {
    const auto aspect = ACT(Pair(d.GetAspectRatio()));
    RunReadCases({
        // clang-format off
        {"Birch 1:1", Edid::Birch, {{0xE2, 2}}, aspect, true, 2},
        {"Birch unknown scaling", Edid::Birch, {{0xE2, 5}}, aspect, false, 1},
        {"Fir unknown scaling", Edid::FirSmall, {{0xE2, 3}}, aspect, false, 0},
        {"Hazel Aspect", Edid::Hazel, {{0xDA, 1}}, aspect, true, 1},
        {"Cedar 1:1", Edid::CedarSmall, {{0x86, 1}}, aspect, true, 2},
        {"Aspen Aspect", Edid::Aspen, {{0x86, 3}}, aspect, true, 1},
        {"fan speed 7", Edid::ElmLarge, {{0xF3, 7}}, ACT(Pair(d.GetFanSpeed())), false, 1},
        {"fan speed low", Edid::ElmLarge, {{0xF3, 0}}, ACT(Pair(d.GetFanSpeed())), true, 0},
        {"LED high", Edid::FirSmall, {{0xEF, 3}}, ACT(Pair(d.GetPowerLedBrightness())), true, 3},
        {"LED 9", Edid::FirSmall, {{0xEF, 9}}, ACT(Pair(d.GetPowerLedBrightness())), false, 1},
        {"uniformity table 2 is on", Edid::Birch, {{0xE0, 2}}, ACT(Pair(d.GetUniformity())), true,
         1},
        {"refused uniformity", Edid::Birch, {{0xE0, 0, 0, true}}, ACT(Pair(d.GetUniformity())),
         false, 0},
        {"dynamic contrast", Edid::ElmSmall, {{0xE8, 1}}, ACT(Pair(d.GetDynamicContrast())), true,
         1},
        {"energy smart", Edid::ElmSmall, {}, ACT(Pair(d.GetEnergySmart())), true, 0},
        {"auto power down", Edid::ElmSmall, {{0xEE, 1}}, ACT(Pair(d.GetAutoPowerDown())), true, 1},
        {"battery Desktop", Edid::CedarSmallTwo, {{0xF4, 3}}, ACT(Pair(d.GetBatteryMode())), true,
         1},
        {"battery refused", Edid::CedarSmallTwo, {{0xF4, 2, 0, true}},
         ACT(Pair(d.GetBatteryMode())), false, 0},
        {"Fir brightness is 0x13", Edid::FirSmall, {{0x13, 33, 100}}, ACT(Pair(d.GetBrightness())),
         true, 33},
        {"Hazel brightness is 0x6B", Edid::Hazel, {{0x6B, 44, 100}}, ACT(Pair(d.GetBrightness())),
         true, 44},
        {"OSD language", Edid::Birch, {{0xCC, 13}}, ACT(Pair(d.GetOSDLanguage())), true, 13},
        // clang-format on
    });
}

TEST(UiDisplayDelegateReadsTest, ScanModeIsReadAfterTheDisplaySettles) {
    CDelegateBench bench(Edid::FirSmallTwo, {{0xDA, 1}});
    bench.ReadAll();
    EXPECT_EQ(bench.mDelegate->GetAspectRatio(),
              (SUserValue<EAspectRatio>{true, eAspectRatio_Aspect}));
    EXPECT_EQ(bench.Traffic(), 1u);
    const std::vector<uint32_t> sleeps = bench.mClock->Sleeps();
    ASSERT_FALSE(sleeps.empty());
    EXPECT_EQ(sleeps.front(), 500u);
}

TEST(UiDisplayDelegateReadsTest, AModelOutsideTheTablesAnswersWithoutTraffic) {
    CDelegateBench bench(Edid::Unknown);
    Delegate& d = *bench.mDelegate;
    EXPECT_EQ(d.GetColorTemperature(),
              (SUserValue<EColorTemperature>{false, eColorTemperature_6500K}));
    EXPECT_EQ(d.GetColorSpace(), (SUserValue<EColorSpace>{false, eColorSpace_AdobeRGB}));
    EXPECT_EQ(d.GetColorSetting(), (SUserValue<EColorSetting>{false, eColorSetting_Temperature}));
    EXPECT_EQ(d.GetAspectRatio(), (SUserValue<EAspectRatio>{false, eAspectRatio_Aspect}));
    EXPECT_EQ(d.GetGamma(), (SUserValue<int32_t>{true, eGamma_2_2}));
    EXPECT_FALSE(d.IsColorManaged());
    EXPECT_FALSE(d.SetColorTemperature(eColorTemperature_6500K));
    EXPECT_FALSE(d.SetColorSpace(eColorSpace_AdobeRGB));
    EXPECT_FALSE(d.SetColorSetting(eColorSetting_Temperature));
    EXPECT_FALSE(d.SetColorSetting(eColorSetting_Custom));
    EXPECT_FALSE(d.SetGamma(1));
    EXPECT_FALSE(d.SetAspectRatio(eAspectRatio_Full));
    EXPECT_FALSE(d.ApplyDefaultPreset(5));
    EXPECT_EQ(bench.Traffic(), 0u);
}

} // namespace

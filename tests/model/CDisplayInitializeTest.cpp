#include "DisplayTestSupport.h"
#include "model/VCPOptionCodeWithEnumerationT.h"
#include "model/VCPOptionSingleCode.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace {

const char kExample[] = "(prot(monitor)type(LCD)model(ABC123)cmds(01 02 03 07 0C E3 F3)vcp(02 04 "
                        "05 08 10 12 14(05 08 0B) 16 18 1A 52 60(11 12) AC AE B2 B6 C0 C6 C8 C9 "
                        "D6(01 04) DF)mccs_ver(2.2))";

std::vector<int> Codes(const CDisplay& display_I) {
    std::vector<int> codes;
    for (const auto& [code, option] : display_I.GetOptions()) {
        codes.push_back(code);
    }
    return codes;
}

std::vector<int32_t> ValuesOf(const CDisplay& display_I, vcpCode code_I) {
    const auto* option =
        dynamic_cast<const VCPOptionEnumerationBase*>(display_I.GetOptions().at(code_I).get());
    return option != nullptr ? option->Values() : std::vector<int32_t>{99};
}

} // namespace

TEST(CDisplayInitialize, BuildsTheModelFromTheConnectorsCapabilityString) {
    CScopedVirtualClock clock;
    auto fake = std::make_shared<CFakeConnector>();
    fake->SetCapabilities(kExample);
    fake->SetFirmware(FileVersion(1, 2, 3, FileVersion::EFinalVersion, 0));
    CDisplay display(fake, kBirch);

    ASSERT_TRUE(display.Initialize(""));
    EXPECT_TRUE(fake->Sent().empty()) << "no VCP value is read";
    EXPECT_EQ(display.GetCapabilitiesString(), kExample);
    EXPECT_EQ(display.GetProtocol(), "monitor");
    EXPECT_EQ(display.GetType(), "LCD");
    EXPECT_EQ(display.GetMonitorName(), "ABC123") << "the EDID has no name, so the model gives it";
    EXPECT_EQ(display.GetLastErrorText(), "ABC123");
    EXPECT_EQ(display.GetMCCSVersion(), FileVersion(2, 2, 0, 0, 0));
    EXPECT_EQ(display.GetFWVersion(), FileVersion(1, 2, 3, FileVersion::EFinalVersion, 0));
    EXPECT_EQ(Codes(display),
              (std::vector<int>{0x02, 0x04, 0x05, 0x08, 0x10, 0x12, 0x14, 0x16, 0x18, 0x1A, 0x52,
                                0x60, 0xAC, 0xAE, 0xB2, 0xB6, 0xC6, 0xC8, 0xC9, 0xD6, 0xDF}));
    EXPECT_EQ(ValuesOf(display, vcpC_SelectColorPreset), (std::vector<int32_t>{5, 8, 11}));
    EXPECT_EQ(display.GetCommands(), (std::vector<int32_t>{1, 2, 3, 7, 0x0C, 0xE3, 0xF3}));

    // A second run starts afresh and asks the connector again.
    fake->SetCapabilities(kTestCaps);
    ASSERT_TRUE(display.Initialize(""));
    EXPECT_EQ(display.GetMonitorName(), "PDX-2700");
    EXPECT_EQ(display.GetOptions().count(vcpC_NewControlValue), 0u);
}

TEST(CDisplayInitialize, FailsWhenARequiredKeyIsMissingOrEmpty) {
    struct SCase {
        uint16_t edid;
        const char* caps;
        bool result;
    };
    const SCase cases[] = {
        {kBirch, "", false},
        {kBirch, "no parentheses at all", false},
        {kBirch, "(type(LCD)model(A)cmds(01)vcp(10)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor) type(LCD)model(A)cmds(01)vcp(10)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor)type(LCD)model()cmds(01)vcp(10)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10))", false},
        {kElmSmall, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10))", true},
        {kBirch, "(prot(monitor)type(LCD)model(A)cmds(01)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(C0 74)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor)type(LCD)model(A)vcp(10)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor)type(LCD)model(A)cmds(zz)vcp(10)mccs_ver(2.2))", false},
        {kBirch, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10)mccs_ver(2.2))", true},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.caps);
        CScopedVirtualClock clock;
        auto fake = std::make_shared<CFakeConnector>();
        fake->SetCapabilities(c.caps);
        CDisplay display(fake, c.edid);
        EXPECT_EQ(display.Initialize(""), c.result);
    }
}

TEST(CDisplayInitialize, TakesAGivenTextWithoutTouchingTheConnector) {
    CScopedVirtualClock clock;
    const char caps[] = "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10 14(01))mccs_ver(2.1))";
    auto fake = std::make_shared<CFakeConnector>();
    fake->SetCapabilities("(prot(other))");
    CDisplay display(fake, kBirch);
    ASSERT_TRUE(display.Initialize(caps));
    EXPECT_EQ(display.GetCapabilitiesString(), caps);
    EXPECT_EQ(display.GetMCCSVersion(), FileVersion(2, 1, 0, 0, 0));

    // Without a connector the model repairs and the version fallback are skipped.
    CDisplay cedar(nullptr, kCedarSmall);
    ASSERT_TRUE(cedar.Initialize(caps));
    EXPECT_EQ(ValuesOf(cedar, vcpC_SelectColorPreset), (std::vector<int32_t>{1}));
    CDisplay elm(nullptr, kElmSmall);
    EXPECT_FALSE(elm.Initialize("(prot(monitor)type(LCD)model(A)cmds(01)vcp(10))"));
}

TEST(CDisplayInitialize, RepairsTheOptionsThatSomeModelsAnnounceWrongly) {
    struct SCase {
        uint16_t edid;
        const char* caps;
        vcpCode code;
        bool present;
        std::vector<int32_t> values;
        const std::type_info* type;
    };
    const char withPresets[] = "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10 14(01 02) 72(00 01) "
                               "F0(01) F3(00 01) F4(02 03))"
                               "mccs_ver(2.2))";
    const char withoutPresets[] = "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10)mccs_ver(2.2))";
    const SCase cases[] = {
        {kCedarSmall,
         withPresets,
         vcpC_SelectColorPreset,
         true,
         {4, 5, 8, 11},
         &typeid(VCPOptionCodeWithEnumerationT<colorPresetCode>)},
        {kCedarSmall,
         withoutPresets,
         vcpC_SelectColorPreset,
         true,
         {4, 5, 8, 11},
         &typeid(VCPOptionCodeWithEnumerationT<colorPresetCode>)},
        {kCedarSmall, withPresets, vcpC_BatteryMode, true, {2, 3}, nullptr},
        {kCedarSmallTwo, withPresets, vcpC_BatteryMode, true, {0, 2, 3}, nullptr},
        {kCedarSmallTwo, withPresets, vcpC_SelectColorPreset, true, {4, 5, 8, 11}, nullptr},
        {kElmLarge,
         withPresets,
         vcpC_DisplayPresets,
         true,
         {0, 5, 6, 7, 8, 9, 10, 11, 12, 13},
         &typeid(VCPOptionCodeWithEnumerationT<colorPresetCode>)},
        {kElmLarge,
         withoutPresets,
         vcpC_DisplayPresets,
         true,
         {0, 5, 6, 7, 8, 9, 10, 11, 12, 13},
         nullptr},
        {kElmLarge, withPresets, vcpC_SelectColorPreset, true, {1, 2}, nullptr},
        {kElmHuge, withPresets, vcpC_FanSpeed, false, {}, nullptr},
        {kElmHuge,
         withPresets,
         vcpC_DisplayPresets,
         true,
         {1},
         &typeid(VCPOptionCodeWithEnumerationT<displayPresetCode>)},
        {kBirch, withPresets, vcpC_FanSpeed, true, {0, 1}, nullptr},
        {kBirch, withoutPresets, vcpC_SelectColorPreset, false, {}, nullptr},
        {kBirch,
         withPresets,
         vcpC_Gamma,
         true,
         {0, 1},
         &typeid(VCPOptionCodeWithEnumerationT<gammaCode>)},
        {kElmSmall, withPresets, vcpC_Gamma, true, {}, &typeid(VCPOptionSingleCode)},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << c.edid << " code " << c.code);
        CDisplaySession session(c.edid, c.caps);
        ASSERT_TRUE(session.mInitialized);
        const CDisplay& display = session.mDisplay;
        ASSERT_EQ(display.GetOptions().count(c.code), c.present ? 1u : 0u);
        if (c.present && !c.values.empty()) {
            EXPECT_EQ(ValuesOf(display, c.code), c.values);
        }
        if (c.type != nullptr) {
            EXPECT_EQ(typeid(*display.GetOptions().at(c.code)), *c.type);
        }
    }
    // The text as received is kept; only the parsed value was repaired.
    CDisplaySession cedarTwo(kCedarSmallTwo, withPresets);
    EXPECT_EQ(cedarTwo.mDisplay.GetCapabilitiesString(), withPresets);
}

TEST(CDisplayInitialize, ReadsTheCapabilityStringOfEachFamily) {
    const char head[] = "(prot(monitor)type(LCD)model(PDX)cmds(01 02 03 0C E3 F3)vcp(04 08 10 12 ";
    const struct {
        uint16_t edid;
        const char* rest;
        size_t options;
        vcpCode code;
        std::vector<int32_t> values;
    } cases[] = {
        {0x1040, "14(05 08 0B) 16 18 1A 86(03 08))mccs_ver(2.2))", 9, vcpC_DisplayScaling, {3, 8}},
        {0x1041, "6B 14(05 08 0B) 86(03 08))mccs_ver(2.1))", 7, vcpC_SelectColorPreset, {5, 8, 11}},
        {0x1044,
         "14(04 05 06 08 09 0B) 16 18 1A 72(01 02) 87 C9 CC(02 03) E0(00 01) E2(01 02 03) "
         "E3(01 02 03 04) E8(00 01) E9(00 01) EA(01) F0(01 03 04 05 06 07 09))mccs_ver(2.2))",
         19,
         vcpC_Gamma,
         {1, 2}},
        {0x1054,
         "16 18 1A 59 5B 5D 72 87 9B 9D 9F C9 E0(00 01) E2(01 02 03) E8(00 01) E9(00 01) "
         "EA(01) EE(00 01) F0(02 03 05 06 07 08 09 0A 0B 0C 0D)))",
         23,
         vcpC_DisplayPresets,
         {2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13}},
        {0x1057, "72 E0(00 01) F0(00 05 06) F3(00 01)))", 7, vcpC_DisplayPresets, {0, 5, 6}},
        {0x1064,
         "14(05 08 0B) 72(00 01 02 03) C9 E3(00 01 07) EF(00 01 02 03) F0(00 01 02))"
         "mccs_ver(2.2))",
         10,
         vcpC_LedBrightness,
         {0, 1, 2, 3}},
        {0x1052, "14(05 06) F4(02 03))mccs_ver(2.2))", 6, vcpC_BatteryMode, {2, 3}},
        {0x1067, "14(05 06) F4(02 03) F3(00 01))mccs_ver(2.2))", 7, vcpC_BatteryMode, {0, 2, 3}},
        {0x1070,
         "6B 14(05 08 0B) E0(00 01 02 03) F0(00 01))mccs_ver(2.2))",
         8,
         vcpC_UniformityCompensation,
         {0, 1, 2, 3}},
    };
    for (const auto& c : cases) {
        CDisplaySession session(c.edid, (std::string(head) + c.rest).c_str());
        ASSERT_TRUE(session.mInitialized) << std::hex << c.edid;
        EXPECT_EQ(session.mDisplay.GetOptions().size(), c.options) << std::hex << c.edid;
        EXPECT_EQ(ValuesOf(session.mDisplay, c.code), c.values) << std::hex << c.edid;
    }
}

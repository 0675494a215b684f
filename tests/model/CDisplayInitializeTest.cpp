#include "DisplayTestSupport.h"
#include "model/VCPOptionCodeWithEnumerationT.h"
#include "model/VCPOptionSingleCode.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace {

std::vector<int32_t> ValuesOf(const CDisplay& display_I, vcpCode code_I) {
    const auto* option =
        dynamic_cast<const VCPOptionEnumerationBase*>(display_I.GetOptions().at(code_I).get());
    return option != nullptr ? option->Values() : std::vector<int32_t>{99};
}

} // namespace

TEST(CDisplayInitialize, BuildsTheModelWithoutReadingAValue) {
    CDisplaySession session;
    ASSERT_TRUE(session.mInitialized);
    EXPECT_TRUE(session.mFake->Sent().empty());
    EXPECT_EQ(session.mDisplay.GetMonitorName(), "PDX-2700");
    EXPECT_EQ(ValuesOf(session.mDisplay, vcpC_SelectColorPreset), (std::vector<int32_t>{5, 8, 11}));
    // A given text is taken without asking the connector.
    const char caps[] = "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10 14(01))mccs_ver(2.1))";
    ASSERT_TRUE(session.mDisplay.Initialize(caps));
    EXPECT_EQ(session.mDisplay.GetOptions().size(), 2u);
}

TEST(CDisplayInitialize, FailsWhenARequiredKeyIsMissingOrEmpty) {
    struct SCase {
        uint16_t edid;
        const char* caps;
        bool result;
    };
    const SCase cases[] = {
        {Edid::Birch, "", false},
        {Edid::Birch, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10))", false},
        // The Elm's firmware omits the version; 2.2 stands in.
        {Edid::ElmSmall, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10))", true},
        {Edid::Birch, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(C0 74)mccs_ver(2.2))", false},
        {Edid::Birch, "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10)mccs_ver(2.2))", true},
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

TEST(CDisplayInitialize, RepairsTheOptionsThatSomeModelsAnnounceWrongly) {
    struct SCase {
        uint16_t edid;
        const char* caps;
        vcpCode code;
        bool present;
        std::vector<int32_t> values;
        const std::type_info* type;
    };
    const char with[] = "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10 14(01 02) 72(00 01) F0(01) "
                        "F3(00 01) F4(02 03))mccs_ver(2.2))";
    const char without[] = "(prot(monitor)type(LCD)model(A)cmds(01)vcp(10)mccs_ver(2.2))";
    const auto* colorPresets = &typeid(VCPOptionCodeWithEnumerationT<colorPresetCode>);
    const SCase cases[] = {
        // clang-format off
        {Edid::CedarSmall, with, vcpC_SelectColorPreset, true, {4, 5, 8, 11}, colorPresets},
        {Edid::CedarSmall, without, vcpC_SelectColorPreset, true, {4, 5, 8, 11}, colorPresets},
        {Edid::CedarSmall, with, vcpC_BatteryMode, true, {2, 3}, nullptr},
        {Edid::CedarSmallTwo, with, vcpC_BatteryMode, true, {0, 2, 3}, nullptr},
        {Edid::ElmLarge, with, vcpC_DisplayPresets, true, {0, 5, 6, 7, 8, 9, 10, 11, 12, 13}, colorPresets},
        {Edid::ElmHuge, with, vcpC_FanSpeed, false, {}, nullptr},
        {Edid::ElmHuge, with, vcpC_DisplayPresets, true, {1}, &typeid(VCPOptionCodeWithEnumerationT<displayPresetCode>)},
        {Edid::Birch, with, vcpC_FanSpeed, true, {0, 1}, nullptr},
        {Edid::Birch, without, vcpC_SelectColorPreset, false, {}, nullptr},
        {Edid::Birch, with, vcpC_Gamma, true, {0, 1}, &typeid(VCPOptionCodeWithEnumerationT<gammaCode>)},
        {Edid::ElmSmall, with, vcpC_Gamma, true, {}, &typeid(VCPOptionSingleCode)},
        // clang-format on
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
}

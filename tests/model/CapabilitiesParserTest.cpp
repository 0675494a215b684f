#include "model/CapabilitiesParser.h"
#include "model/VCPOptionCodeWithEnumerationT.h"
#include "model/VCPOptionSingleCode.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace {

std::vector<int> Codes(const VCPOptionsMap& options_I) {
    std::vector<int> codes;
    for (const auto& [code, option] : options_I) {
        codes.push_back(code);
    }
    return codes;
}

const std::vector<int32_t>& ValuesOf(const VCPOptionsMap& options_I, int code_I) {
    static const std::vector<int32_t> none;
    const auto* enumerated = dynamic_cast<const VCPOptionEnumerationBase*>(
        options_I.at(static_cast<vcpCode>(code_I)).get());
    return enumerated != nullptr ? enumerated->Values() : none;
}

} // namespace

TEST(ParseCapabilitiesString, KeepsKeysAsTheyStandAndValuesWithTheirInnerGroups) {
    struct SCase {
        const char* text;
        CapabilitiesMap expected;
    };
    const SCase cases[] = {
        {"(a(1)a(2))", {{"a", "2"}}},
        {"x(a(1))", {{"a", "x1"}}},
        {"(a(1)", {{"a", "1"}}},
        {"(prot(monitor) type(LCD))", {{"prot", "monitor"}, {" type", "LCD"}}},
        {"(vcp(14(05(06) 08)))", {{"vcp", "14(05(06) 08)"}}},
        {"(model()type(LCD))", {{"modeltype", "LCD"}}},
        {")(a(1))", {{"1", "a"}}},
    };
    for (const SCase& c : cases) {
        EXPECT_EQ(ParseCapabilitiesString(c.text), c.expected) << c.text;
    }
}

TEST(CreateVCPCodeMap, MakesOneOptionPerKnownCodeWithItsList) {
    const VCPCodeInfoMap info = BuildVCPCodeInfoTable(false);
    struct SCase {
        const char* text;
        std::vector<int> codes;
        int listCode;
        std::vector<int32_t> list;
    };
    const SCase cases[] = {
        {"10 12", {0x10, 0x12}, 0, {}},
        {"14(05 08)", {0x14}, 0x14, {5, 8}},
        {"14(05(06) 08)", {0x14}, 0x14, {5, 8}},
        {"C0 10", {0x10}, 0, {}},
        {"74", {}, 0, {}},
        {"74(01)", {0x74}, 0x74, {1}},
        {"60(11 12) 60(0F)", {0x60}, 0x60, {0x0F}},
        {"10010 10", {0x10}, 0, {}},
        {"zz 10 ", {0x10}, 0, {}},
        {"F4(02 03) 10", {0x10, 0xF4}, 0xF4, {2, 3}},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.text);
        const VCPOptionsMap options = CreateVCPCodeMap(c.text, info, false);
        EXPECT_EQ(Codes(options), c.codes);
        if (c.listCode != 0) {
            EXPECT_EQ(ValuesOf(options, c.listCode), c.list);
        }
    }
}

TEST(CreateVCPCodeMap, ChoosesTheClassByCodeAndKind) {
    const VCPCodeInfoMap info = BuildVCPCodeInfoTable(false);
    const VCPOptionsMap options = CreateVCPCodeMap(
        "10 14(05) 72(00 01) 86(01) E2(02) E0(00) E3(00) EF(01) F0(01) 60", info, false);
    struct SCase {
        int code;
        const std::type_info& type;
    };
    const SCase cases[] = {
        {0x10, typeid(VCPOptionSingleCode)},
        {0x14, typeid(VCPOptionCodeWithEnumerationT<colorPresetCode>)},
        {0x72, typeid(VCPOptionCodeWithEnumerationT<gammaCode>)},
        {0x86, typeid(VCPOptionCodeWithEnumerationT<displayScalingCode>)},
        {0xE2, typeid(VCPOptionCodeWithEnumerationT<displayScalingCode>)},
        {0xE0, typeid(VCPOptionCodeWithEnumerationT<uniformityCompCode>)},
        {0xE3, typeid(VCPOptionCodeWithEnumerationT<colorSpaceCode>)},
        {0xEF, typeid(VCPOptionCodeWithEnumerationT<ledBrightnessCode>)},
        {0xF0, typeid(VCPOptionCodeWithEnumerationT<displayPresetCode>)},
        {0x60, typeid(VCPOptionCodeWithEnumerationT<int>)},
    };
    ASSERT_EQ(options.size(), std::size(cases));
    for (const SCase& c : cases) {
        const VCPOptionBase& option = *options.at(static_cast<vcpCode>(c.code));
        EXPECT_EQ(typeid(option), c.type) << c.code;
    }

    const VCPOptionsMap levels = CreateVCPCodeMap("72(00 01)", BuildVCPCodeInfoTable(true), true);
    EXPECT_EQ(typeid(*levels.at(vcpC_Gamma)), typeid(VCPOptionSingleCode));
}

TEST(CreateCommandsVector, ReadsUpToTheFirstBadToken) {
    EXPECT_EQ(CreateCommandsVector("01 02 03 07 0C E3 F3"),
              (std::vector<int32_t>{1, 2, 3, 7, 0x0C, 0xE3, 0xF3}));
    EXPECT_EQ(CreateCommandsVector("01 xx 03"), (std::vector<int32_t>{1}));
}

TEST(WidenBatteryModeOptions, RepairsOnlyTheExactText) {
    struct SCase {
        const char* text;
        const char* repaired;
    };
    const SCase cases[] = {
        {"10 F4(02 03) F0(01)", "10 F4(00 02 03) F0(01)"},
        {"F4(00 02 03)", nullptr},
        {"F4(02)", nullptr},
        {"F4(02 03 04)", nullptr},
        {"10 12", nullptr},
    };
    for (const SCase& c : cases) {
        std::string text = c.text;
        EXPECT_EQ(WidenBatteryModeOptions(text), c.repaired != nullptr) << c.text;
        EXPECT_EQ(text, c.repaired != nullptr ? c.repaired : c.text);
    }
}

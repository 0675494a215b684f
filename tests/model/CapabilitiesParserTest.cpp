#include "model/CapabilitiesParser.h"
#include "model/VCPOptionCodeWithEnumerationT.h"

#include <gtest/gtest.h>

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

TEST(CreateCommandsVector, ReadsUpToTheFirstBadToken) {
    EXPECT_EQ(CreateCommandsVector("01 02 03 07 0C E3 F3"),
              (std::vector<int32_t>{1, 2, 3, 7, 0x0C, 0xE3, 0xF3}));
    EXPECT_EQ(CreateCommandsVector("01 xx 03"), (std::vector<int32_t>{1}));
}

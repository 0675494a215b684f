#include "SimHost.h"

#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>

namespace {

CSimDisplay MakeDisplay(std::string_view model_I) {
    const SSimModel* model = FindSimModel(model_I);
    EXPECT_NE(model, nullptr) << model_I;
    return CSimDisplay(*model, "SN00000000001", DefaultSimChannels(*model));
}

int Value(CSimDisplay& display_I, uint8_t code_I) {
    return ParseVcpReply(display_I.Transact(GetVcp(code_I)), code_I).value;
}

// The vcp list of a capability string as a host walks it: each code with its offered values.
std::map<uint8_t, std::string> OfferedCodes(const std::string& caps_I) {
    std::map<uint8_t, std::string> offered;
    const std::string list = caps_I.substr(caps_I.find("vcp(") + 4);
    for (size_t at = 0; at + 1 < list.size() && list[at] != ')';) {
        const uint8_t code =
            static_cast<uint8_t>(std::strtol(list.substr(at, 2).c_str(), nullptr, 16));
        at += 2;
        std::string values;
        if (list[at] == '(') {
            const size_t close = list.find(')', at);
            values = list.substr(at + 1, close - at - 1);
            at = close + 1;
        }
        at += list[at] == ' ' ? 1 : 0;
        offered[code] = values;
    }
    return offered;
}

} // namespace

TEST(SimScaler, AnswersTheWrittenOutExchangesByteForByte) {
    CSimDisplay alder = MakeDisplay("Alder"); // luminance 50 of 100 as shipped
    const struct {
        Bytes request;
        Bytes reply;
    } exchanges[] = {
        {{0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC},
         {0x6E, 0x88, 0x02, 0x00, 0x10, 0x00, 0x00, 0x64, 0x00, 0x32, 0xF2}},
        {{0x6E, 0x51, 0x84, 0x03, 0x10, 0x00, 0x32, 0x9A}, kNullMessage},
        {{0x6E, 0x51, 0x81, 0x0C, 0xB2}, kNullMessage},
        {{0xEE, 0x05, 0x11, 0x00, 0x00, 0xEA}, kNullMessage},
        // The reset as the TI bridge delivers it, always to 0x37.
        {{0x6E, 0x05, 0x11, 0x00, 0x00, 0xEA}, kNullMessage},
        {{0x6E, 0x51, 0x80, 0xBF}, kNullMessage},
    };
    for (const auto& exchange : exchanges) {
        EXPECT_EQ(alder.Transact(exchange.request), exchange.reply);
    }
    EXPECT_EQ(alder.Scaler().Counters().saves, 1);
    EXPECT_EQ(alder.Scaler().Counters().scalerResets, 2);
    EXPECT_TRUE(alder.Scaler().HostErrors().empty());
}

TEST(SimScaler, RefusesWhatItDoesNotOfferAndClampsWhatItDoes) {
    CSimDisplay birch = MakeDisplay("Birch");
    // Unknown, write-only and absent codes come back with a non-zero result.
    for (const uint8_t code : {0x60, 0x04, 0xEA, 0xF4}) {
        EXPECT_EQ(ParseVcpReply(birch.Transact(GetVcp(code)), code).result, 1) << int(code);
    }
    birch.Transact(SetVcp(0x10, 500));
    EXPECT_EQ(Value(birch, 0x10), 100);
    birch.Transact(SetVcp(0x14, 7)); // not in 04 05 06 08 09 0B
    EXPECT_EQ(Value(birch, 0x14), 5);
    birch.Transact(SetVcp(0xC9, 1)); // read-only
    EXPECT_EQ(birch.Scaler().Counters().refusedWrites, 2);
    birch.Transact(SetVcp(0xCC, 13)); // OSD language
    EXPECT_EQ(Value(birch, 0xCC), 13);
    // Firmware 2.1.4: major in the maximum, minor and build in the value.
    EXPECT_EQ(ParseVcpReply(birch.Transact(GetVcp(0xC9)), 0xC9).maximum, 2);
    EXPECT_EQ(Value(birch, 0xC9), 0x0104);
}

TEST(SimScaler, NotesMalformedRequestsAndAnswersThemWithTheNullMessage) {
    CSimDisplay elm = MakeDisplay("ElmSmall");
    Bytes badChecksum = GetVcp(0x10);
    badChecksum.back() ^= 0x01;
    Bytes wrongSource = GetVcp(0x10);
    wrongSource[1] = 0x50;
    wrongSource.back() ^= 0x01;
    Bytes longerThanSaid = GetVcp(0x10);
    longerThanSaid.insert(longerThanSaid.end() - 1, 0x00);
    const Bytes cases[] = {badChecksum, wrongSource, longerThanSaid, Request({0x01, 0x10, 0x00}),
                           Request({0x77})};
    for (const Bytes& request : cases) {
        EXPECT_EQ(elm.Transact(request), kNullMessage);
    }
    EXPECT_EQ(elm.Scaler().HostErrors().size(), std::size(cases));
}

TEST(SimScaler, SavesToItsOwnMemoryAndRestoresFactoryValues) {
    CSimDisplay elm = MakeDisplay("ElmMedium");
    CSimScaler& scaler = elm.Scaler();
    elm.Transact(SetVcp(0x10, 20));
    elm.Transact(SetVcp(0x12, 30));
    scaler.PowerCycle();
    EXPECT_EQ(scaler.Current(0x10), 60) << "unsaved values are lost at power off";

    elm.Transact(SetVcp(0x10, 20));
    elm.Transact(SetVcp(0x16, 99));
    elm.Transact(Request({0x0C}));
    EXPECT_EQ(scaler.Saved(0x10), 20);
    scaler.PowerCycle();
    EXPECT_EQ(scaler.Current(0x10), 20);

    // Colour defaults: gains and presets only; the saved copy stays.
    elm.Transact(SetVcp(0x08, 1));
    EXPECT_EQ(scaler.Current(0x16), 255);
    EXPECT_EQ(scaler.Current(0x10), 20);
    EXPECT_EQ(scaler.Saved(0x16), 99);
    // A zero value starts no momentary command.
    elm.Transact(SetVcp(0x04, 0));
    EXPECT_EQ(scaler.Counters().factoryResets, 0);
    elm.Transact(SetVcp(0x04, 1));
    EXPECT_EQ(scaler.Current(0x10), 60);
    EXPECT_EQ(scaler.Saved(0x10), 60) << "a factory reset rewrites the saved copy";
    EXPECT_EQ(scaler.Counters().colorResets, 1);
    elm.Transact(SetVcp(0xEA, 1));
    elm.Transact(SetVcp(0xEA, 1));
    EXPECT_EQ(scaler.Counters().conditionings, 2);
}

TEST(SimScaler, PresetsMoveGammaAndGainsAsTheFirmwareDoes) {
    const struct {
        std::string_view model;
        uint8_t code;
        uint16_t value;
        std::vector<std::pair<uint8_t, int>> after;
    } cases[] = {
        {"ElmSmall", 0xF0, 8, {{0x72, 26}}},
        {"ElmLarge", 0xF0, 11, {{0x72, 22}, {0x16, 94}, {0x18, 93}, {0x1A, 98}}},
        {"CedarSmall", 0x14, 4, {{0x16, 128}, {0x18, 98}, {0x1A, 96}}},
        {"CedarLargeTwo", 0x14, 8, {{0x16, 118}, {0x18, 99}, {0x1A, 128}}},
        {"CedarSmall", 0xE3, 9, {{0x16, 124}, {0x18, 106}, {0x1A, 118}}},
        {"Birch", 0xF0, 5, {{0x16, 250}, {0x18, 244}, {0x1A, 238}}},
        // A gain written by the host turns the display to its custom-colour preset.
        {"CedarSmall", 0x18, 77, {{0x18, 77}, {0x14, 11}}},
        {"ElmSmall", 0x1A, 10, {{0xF0, 13}}},
        {"Hazel", 0x16, 10, {{0x14, 11}}},
    };
    for (const auto& c : cases) {
        CSimDisplay display = MakeDisplay(c.model);
        display.Transact(SetVcp(c.code, c.value));
        for (const auto& [code, value] : c.after) {
            EXPECT_EQ(Value(display, code), value) << c.model << " code " << int(code);
        }
    }
}

TEST(SimScaler, GivesItsCapabilitiesInFragmentsOnEveryForm) {
    for (const SSimModel& model : SimModels()) {
        CSimDisplay display(model, "SN00000000001", DefaultSimChannels(model));
        const std::string& caps = display.Scaler().CapabilityString();
        EXPECT_EQ(AsText(ReadFragments(display, {0xF3})), caps) << model.name;
        const Bytes privateForm = ReadFragments(display, {0xE2, 0xF3});
        if (display.Scaler().Family().Has(eAnswersPrivateCaps)) {
            EXPECT_EQ(AsText(privateForm), caps) << model.name;
        } else {
            EXPECT_EQ(display.Transact(Request({0xE2, 0xF3, 0x00, 0x00})), kNullMessage);
        }
        // One balanced group that names the display and offers the codes.
        int depth = 0;
        for (size_t i = 0; i < caps.size(); ++i) {
            depth += caps[i] == '(' ? 1 : caps[i] == ')' ? -1 : 0;
            ASSERT_TRUE(depth > 0 || i + 1 == caps.size()) << caps;
        }
        EXPECT_EQ(depth, 0);
        EXPECT_NE(caps.find("model(" + std::string(model.displayName) + ")"), std::string::npos);
        EXPECT_NE(caps.find("vcp(04"), std::string::npos) << caps;
    }
    // The first fragment as the wire carries it: E3, the offset, 32 bytes of text.
    CSimDisplay alder = MakeDisplay("Alder");
    const Bytes first = alder.Transact(Request({0xF3, 0x00, 0x00}));
    ASSERT_EQ(first.size(), 38u);
    EXPECT_EQ(Bytes(first.begin(), first.begin() + 5), (Bytes{0x6E, 0xA3, 0xE3, 0x00, 0x00}));
    EXPECT_EQ(first[5], '(');
}

TEST(SimScaler, ElmFirmwareLeavesOutTheMccsVersionAndCedarTwoReportsAZeroBatteryMode) {
    CSimDisplay elm = MakeDisplay("ElmHuge");
    EXPECT_EQ(elm.Scaler().CapabilityString().find("mccs_ver"), std::string::npos);
    EXPECT_NE(elm.Scaler().CapabilityString().find(" F3(00 01)"), std::string::npos);
    CSimDisplay cedar = MakeDisplay("CedarSmallTwo");
    EXPECT_NE(cedar.Scaler().CapabilityString().find("F4(02 03)"), std::string::npos);
    EXPECT_EQ(Value(cedar, 0xF4), 0);
    cedar.Transact(SetVcp(0xF4, 0)); // not offered, so refused
    cedar.Transact(SetVcp(0xF4, 2));
    EXPECT_EQ(Value(cedar, 0xF4), 2);
}

TEST(SimScaler, HandsOutEdidOnEachPrivateForm) {
    // Factory-mode chunks: 6E 92, sixteen EDID bytes, two more, check byte.
    CSimDisplay cedar = MakeDisplay("CedarSmall");
    EXPECT_EQ(cedar.Transact(Request({0xC0, 0x66, 0x00})), kNullMessage)
        << "no chunks outside factory mode";
    EXPECT_EQ(cedar.Transact(Request({0xC0, 0xE1, 0x00, 0x01})), kNullMessage);
    EXPECT_TRUE(cedar.Scaler().FactoryMode());
    Bytes chunks;
    for (uint8_t i = 0; i < 16; ++i) {
        const Bytes reply = cedar.Transact(Request({0xC0, 0x66, i}));
        ASSERT_EQ(reply.size(), 21u);
        EXPECT_EQ(reply[1], 0x92);
        EXPECT_EQ(XorAll(reply, 0x50), 0);
        chunks.insert(chunks.end(), reply.begin() + 2, reply.begin() + 18);
    }
    cedar.Transact(Request({0xC0, 0xE1, 0x00, 0x00}));
    EXPECT_FALSE(cedar.Scaler().FactoryMode());
    ASSERT_EQ(chunks.size(), 256u);
    EXPECT_EQ(Bytes(chunks.begin(), chunks.begin() + 128), cedar.Edid());

    // Indexed reads of 0xF2: 19 bytes, 16 of EDID behind 6E 90.
    CSimDisplay elm = MakeDisplay("ElmLarge");
    Bytes indexed;
    for (uint8_t i = 0; i < 8; ++i) {
        const Bytes reply = elm.Transact(Request({0x01, 0xF2, 0x00, i}));
        ASSERT_EQ(reply.size(), 19u);
        EXPECT_EQ(reply[1], 0x90);
        indexed.insert(indexed.end(), reply.begin() + 2, reply.end() - 1);
    }
    EXPECT_EQ(indexed, elm.Edid());

    // Table-read fragments, and the serial channel's raw A0 00.
    CSimDisplay hazel = MakeDisplay("Hazel");
    EXPECT_EQ(ReadFragments(hazel, {0xE2, 0xC3}), hazel.Edid());
    // Hosts try the indexed form on any model: without it the code is refused, not mistaken.
    EXPECT_EQ(ParseVcpReply(hazel.Transact(Request({0x01, 0xF2, 0x00, 0x00})), 0xF2).result, 1);
    EXPECT_TRUE(hazel.Scaler().HostErrors().empty());
    CSimDisplay aspen = MakeDisplay("Aspen");
    EXPECT_EQ(aspen.Transact({0xA0, 0x00}), aspen.Edid());
    EXPECT_TRUE(hazel.Transact({0xA0, 0x00}).empty());
}

TEST(SimScaler, GivesTheInformationRecordWhereTheFirmwareHasOne) {
    CSimDisplay fir = MakeDisplay("FirSmallTwo");
    const Bytes reply = fir.Transact(GetVcp(0xF2));
    ASSERT_EQ(reply.size(), 56u);
    EXPECT_EQ(Bytes(reply.begin(), reply.begin() + 3), (Bytes{0x6E, 0xB5, 0x02}));
    EXPECT_EQ(XorAll(reply, 0x50), 0);
    EXPECT_EQ(std::string(reply.begin() + 17, reply.begin() + 30), "QRN-1620     ");
    EXPECT_EQ(std::string(reply.begin() + 30, reply.begin() + 43), "SN00000000001");

    CSimDisplay cedar = MakeDisplay("CedarLarge");
    const Bytes refused = cedar.Transact(GetVcp(0xF2));
    ASSERT_EQ(refused.size(), 11u);
    EXPECT_EQ(Bytes(refused.begin(), refused.begin() + 6),
              (Bytes{0x6E, 0x88, 0x02, 0x01, 0xF2, 0x00}));
}

TEST(SimScaler, AnswersTheTiBridgeCommands) {
    CSimDisplay cedar = MakeDisplay("CedarSmall"); // firmware 1.8.3
    const Bytes size = cedar.Transact(Request({0xC0, 0x6F, 0x00}));
    ASSERT_EQ(size.size(), 6u);
    EXPECT_EQ(size[1], 0x83);
    EXPECT_EQ(XorAll(size, 0x50), 0);
    Bytes text;
    for (uint8_t i = 1; i <= 7; ++i) {
        const Bytes chunk = cedar.Transact(Request({0xC0, 0x6F, i}));
        ASSERT_EQ(chunk.size(), 33u);
        EXPECT_EQ(chunk[1], 0x9E);
        text.insert(text.end(), chunk.begin() + 2, chunk.end() - 1);
    }
    const std::string& caps = cedar.Scaler().CapabilityString();
    ASSERT_LE(caps.size(), 210u) << "the bridge carries 210 bytes at most";
    EXPECT_EQ(AsText(text).substr(0, caps.size()), caps);

    const Bytes version = cedar.Transact(Request({0xC0, 0xEF}));
    ASSERT_EQ(version.size(), 9u);
    EXPECT_EQ(version[1], 0x86);
    const std::string digits(version.begin() + 2, version.end() - 1);
    const std::string shown = {digits[5], digits[4], '.',       digits[3],
                               digits[2], '.',       digits[1], digits[0]};
    EXPECT_EQ(shown, "01.08.03");
    // Families without the bridge have nothing to say to it.
    CSimDisplay birch = MakeDisplay("Birch");
    EXPECT_EQ(birch.Transact(Request({0xC0, 0xEF})), kNullMessage);
}

TEST(SimScaler, EveryOfferedCodeAnswersWithAValueItOffers) {
    for (const SSimModel& model : SimModels()) {
        CSimDisplay display(model, "SN00000000001", DefaultSimChannels(model));
        const auto offered = OfferedCodes(display.Scaler().CapabilityString());
        ASSERT_FALSE(offered.empty()) << model.name;
        for (const auto& [code, values] : offered) {
            const SVcpAnswer answer = ParseVcpReply(display.Transact(GetVcp(code)), code);
            const SSimFeature& feature = *FindSimFeature(display.Scaler().Family(), code);
            if (feature.access == ESimAccess::eWriteOnly) {
                EXPECT_EQ(answer.result, 1) << model.name << " code " << int(code);
                continue;
            }
            ASSERT_EQ(answer.result, 0) << model.name << " code " << int(code);
            if (code == 0xC9 || (code == 0xF4 && model.family == ESimFamily::eCedarTwo)) {
                continue; // the firmware level, and the zero battery mode Cedar Two reports
            }
            char hex[3];
            std::snprintf(hex, sizeof(hex), "%02X", answer.value);
            EXPECT_TRUE(values.empty() ? answer.value <= answer.maximum
                                       : values.find(hex) != std::string::npos)
                << model.name << " code " << int(code) << " value " << answer.value;
        }
        // What a preset moves is a code the firmware has.
        for (const SSimEffect& effect : display.Scaler().Family().effects) {
            EXPECT_NE(display.Scaler().Current(effect.targetCode), std::nullopt)
                << model.name << " effect on " << int(effect.targetCode);
        }
    }
}

TEST(SimScaler, OffersEveryColourTripleTheHostUsesInTheScaleItUses) {
    constexpr std::array<uint8_t, 3> kHue = {0x9B, 0x9D, 0x9F};
    constexpr std::array<uint8_t, 3> kSaturation = {0x59, 0x5B, 0x5D};
    constexpr std::array<uint8_t, 3> kGain = {0x16, 0x18, 0x1A};
    constexpr std::array<uint8_t, 3> kOffset = {0xE4, 0xE5, 0xE6};
    struct SSlot {
        std::array<uint8_t, 3> codes;
        int maximum; // 100 where the host works in percent, else 255
    };
    // Families with the attribute choice restore all four triples on Cancel; the others only
    // ever touch the gains.
    const struct {
        ESimFamily family;
        std::vector<SSlot> slots;
    } expected[] = {
        {ESimFamily::eAlder, {{kGain, 100}}},
        {ESimFamily::eBirch, {{kHue, 255}, {kSaturation, 255}, {kGain, 255}, {kOffset, 255}}},
        {ESimFamily::eElm, {{kHue, 100}, {kSaturation, 100}, {kGain, 255}, {kOffset, 255}}},
        {ESimFamily::eElmLarge, {{kHue, 100}, {kSaturation, 100}, {kGain, 100}, {kOffset, 100}}},
        {ESimFamily::eElmHuge, {{kHue, 100}, {kSaturation, 100}, {kGain, 255}, {kOffset, 255}}},
        {ESimFamily::eFir, {{kGain, 255}}},
        {ESimFamily::eFirTwo, {{kGain, 255}}},
        {ESimFamily::eHazel, {{kGain, 255}}},
        {ESimFamily::eCedarOne, {{kGain, 255}}},
        {ESimFamily::eCedarTwo, {{kGain, 255}}},
    };
    for (const SSimModel& model : SimModels()) {
        const auto row = std::find_if(std::begin(expected), std::end(expected),
                                      [&](const auto& r) { return r.family == model.family; });
        ASSERT_NE(row, std::end(expected)) << model.name << " has no expected colour slots";
        CSimDisplay display(model, "SN00000000001", DefaultSimChannels(model));
        const auto offered = OfferedCodes(display.Scaler().CapabilityString());
        for (const SSlot& slot : row->slots) {
            for (const uint8_t code : slot.codes) {
                SCOPED_TRACE(std::string(model.name) + " code " + std::to_string(code));
                const auto found = offered.find(code);
                ASSERT_NE(found, offered.end());
                EXPECT_TRUE(found->second.empty()) << "a continuous range";
                const SVcpAnswer answer = ParseVcpReply(display.Transact(GetVcp(code)), code);
                ASSERT_EQ(answer.result, 0);
                EXPECT_EQ(answer.maximum, slot.maximum);
                EXPECT_LE(answer.value, answer.maximum);
                // What Cancel writes back is taken: the top of the range and the bottom.
                for (const int value : {slot.maximum, 0}) {
                    display.Transact(SetVcp(code, static_cast<uint16_t>(value)));
                    EXPECT_EQ(Value(display, code), value);
                }
            }
        }
    }
}

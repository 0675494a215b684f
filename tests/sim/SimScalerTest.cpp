#include "SimHost.h"

#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

namespace {

CSimDisplay MakeDisplay(std::string_view model_I) {
    const SSimModel* model = FindSimModel(model_I);
    EXPECT_NE(model, nullptr) << model_I;
    return CSimDisplay(*model, "SN00000000001", DefaultSimChannels(*model));
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
    // Firmware 2.1.4: the major in the maximum, minor and build in the value.
    CSimDisplay birch = MakeDisplay("Birch");
    EXPECT_EQ(birch.Transact(GetVcp(0xC9)),
              (Bytes{0x6E, 0x88, 0x02, 0x00, 0xC9, 0x00, 0x00, 0x02, 0x01, 0x04, 0x7A}));
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

TEST(SimScaler, GivesItsCapabilitiesInFragmentsOnEveryForm) {
    for (const SSimModel& model : SimModels()) {
        CSimDisplay display(model, "SN00000000001", DefaultSimChannels(model));
        const std::string& caps = display.Scaler().CapabilityString();
        EXPECT_EQ(AsText(ReadFragments(display, {0xF3})), caps) << model.name;
        const bool answers = display.Scaler().Family().Has(eAnswersPrivateCaps);
        EXPECT_EQ(AsText(ReadFragments(display, {0xE2, 0xF3})), answers ? caps : "") << model.name;
    }
    // The first fragment as the wire carries it: E3, the offset, 32 bytes of text.
    CSimDisplay alder = MakeDisplay("Alder");
    const Bytes first = alder.Transact(Request({0xF3, 0x00, 0x00}));
    ASSERT_EQ(first.size(), 38u);
    EXPECT_EQ(Bytes(first.begin(), first.begin() + 5), (Bytes{0x6E, 0xA3, 0xE3, 0x00, 0x00}));
    EXPECT_EQ(first[5], '(');
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
}

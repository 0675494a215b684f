#include "sim/SimDescription.h"

#include <gtest/gtest.h>

TEST(SimDescription, ReadsDisplaysChannelsAndOptionsAndWritesThemBack) {
    const SSimDescription set = ParseSimDescription(
        " ElmLarge@video , hazel@HID:serial=ABC,Birch@ftdi+video:edid=0x1049,Hazel,Hazel@none");
    ASSERT_TRUE(set.Ok()) << set.error;
    ASSERT_EQ(set.displays.size(), 5u);
    EXPECT_EQ(set.displays[3].channels, DefaultSimChannels(*FindSimModel("Hazel")));
    EXPECT_EQ(set.displays[4].channels, 0);
    EXPECT_EQ(FormatSimDescription(set.displays),
              "ElmLarge@video:serial=VRX1060000001:edid=1060,"
              "Hazel@hid:serial=ABC0000000000:edid=1070,"
              "Birch@video+ftdi:serial=VRX1049000003:edid=1049,"
              "Hazel@video+ftdi+hid:serial=VRX1070000004:edid=1070,"
              "Hazel@none:serial=VRX1070000005:edid=1070");
    const auto displays = MakeSimDisplays(set.displays);
    ASSERT_EQ(displays.size(), 5u);
    EXPECT_EQ(displays[1]->SerialNumber(), "ABC0000000000");
    EXPECT_EQ(displays[2]->Edid()[10], 0x49);
    EXPECT_TRUE(ParseSimDescription("  ").Ok());
}

TEST(SimDescription, ArmsTheFaultsItNames) {
    const SSimDescription set =
        ParseSimDescription("Alder:fault=short4*2:fault=NotReady@1*forever");
    ASSERT_TRUE(set.Ok()) << set.error;
    auto displays = MakeSimDisplays(set.displays);
    CSimDisplay& alder = *displays[0];
    const std::vector<uint8_t> get = {0x6E, 0x51, 0x82, 0x01, 0x10, 0xAC};
    EXPECT_EQ(alder.Transact(get).size(), 4u);
    EXPECT_EQ(alder.Transact(get).size(), 4u);
    EXPECT_EQ(alder.Transact(get).size(), 11u);
    EXPECT_FALSE(alder.PollNotReady());
    EXPECT_TRUE(alder.PollNotReady());
    EXPECT_TRUE(alder.PollNotReady());
}

TEST(SimDescription, BadDescriptionsSayWhatIsWrongAndGiveNoDisplays) {
    const struct {
        std::string_view text;
        std::string_view message;
    } cases[] = {
        {"Elm", "display 1 (\"Elm\"): unknown model \"Elm\" (known: Alder, "},
        {"Birch,Hazel@usb", "display 2 (\"Hazel@usb\"): unknown channel \"usb\""},
        {"Birch:serial=", "must have 1 to 13 characters"},
        {"Birch:serial=ABCDEFGHIJKLMN", "must have 1 to 13 characters"},
        {"Birch:fault=null*0", "needs a count of 1 or more, or forever, behind *"},
        {"Birch:edid=1060", "EDID number \"1060\" is not one of Birch's (1044, 1049)"},
        {"Hazel:serial=VRX1070000002,Hazel", "display 2: serial number VRX1070000002"},
    };
    for (const auto& c : cases) {
        const SSimDescription set = ParseSimDescription(c.text);
        EXPECT_NE(set.error.find(c.message), std::string::npos) << c.text << " gave " << set.error;
        EXPECT_TRUE(set.displays.empty()) << c.text;
    }
}

#include "discovery/DisplayFacts.h"

#include <gtest/gtest.h>

namespace {

SDisplayFacts Facts() {
    SDisplayFacts facts;
    facts.channel = 1;
    facts.serialNumber = "VRX1044 00/1";
    facts.edidNumber = 0x1044;
    facts.firmware = FileVersion(3, 2, 1, FileVersion::EFinalVersion, 0);
    facts.monitorName = "PDX-2700E";
    // Device text may carry any byte, the escape's own included.
    facts.capabilities = std::string("(prot(monitor)model(100%\n\xFF)\0)", 29);
    facts.channelEdid = {0x00, 0xFF, 0x5A};
    return facts;
}

std::string Text() {
    return FormatDisplayFacts(Facts());
}

std::string Replaced(std::string text_I, const std::string& from_I, const std::string& to_I) {
    const size_t at = text_I.find(from_I);
    EXPECT_NE(at, std::string::npos) << from_I;
    return at == std::string::npos ? text_I : text_I.replace(at, from_I.size(), to_I);
}

TEST(DisplayFacts, ReadBackAsWrittenAndRefusedWholeWhenTheTextIsNotExactlyTheirs) {
    ASSERT_EQ(ParseDisplayFacts(Text()), Facts());
    EXPECT_EQ(Text().find('\xFF'), std::string::npos);

    const std::string rows[] = {
        "",
        Text().substr(0, Text().size() - 1),
        Text() + "extra\n",
        Replaced(Text(), "facts 2", "facts 1"),
        Replaced(Text(), "channel 1", "channel x"),
        Replaced(Text(), "edid 1044", "edid 10444"),
        Replaced(Text(), "firmware 3.2.1.5.0", "firmware 3.2.1.5.256"),
        Replaced(Text(), "100%25", "100%G5"),
        Replaced(Text(), "name PDX", "nombre PDX"),
        Replaced(Text(), "00FF5A", "00FF5"),
        Replaced(Text(), "\nname", "\nserial x\nname"),
        "paneltune display facts 2\nchannel 1\nserial S\nedid 1044\nfirmware 0.0.0.0.0\nname "
        "N\ncapabilities \nchannel-edid \n",
    };
    for (const std::string& row : rows) {
        EXPECT_FALSE(ParseDisplayFacts(row).has_value()) << row;
    }
}

TEST(DisplayFacts, NamesHoldOnlyPlainCharactersAndTellIdentitiesApart) {
    SDisplayFacts other = Facts();
    other.channel = 3;
    EXPECT_EQ(DisplayFactsName(Facts()), "1-1044-VRX1044_00_1");
    EXPECT_NE(DisplayFactsName(other), DisplayFactsName(Facts()));
}

} // namespace

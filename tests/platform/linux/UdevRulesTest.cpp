#include "platform/linux/UsbChannelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

std::string ShippedRules() {
    std::ifstream file(PANELTUNE_UDEV_RULES);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(UdevRulesTest, TheShippedFileIsTheChannelTableWrittenOut) {
    EXPECT_EQ(ShippedRules(), UdevRulesText())
        << "regenerate data/udev/70-paneltune.rules from UdevRulesText()";
}

TEST(UdevRulesTest, EveryRuleGrantsTheSeatANarrowMatchAndNoMode) {
    std::istringstream rules(UdevRulesText());
    int grants = 0;
    for (std::string line; std::getline(rules, line);) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        ++grants;
        EXPECT_THAT(line, HasSubstr("TAG+=\"uaccess\""));
        EXPECT_THAT(line, Not(HasSubstr("MODE")));
        EXPECT_THAT(line, Not(HasSubstr("GROUP")));
        // Each grant names its subsystem and a vendor or the display adapters' class.
        EXPECT_THAT(line, HasSubstr("SUBSYSTEM==\""));
        EXPECT_TRUE(line.find("ATTRS{idVendor}") != std::string::npos ||
                    line.find("ATTRS{class}==\"0x03") != std::string::npos)
            << line;
    }
    EXPECT_EQ(grants, static_cast<int>(UsbChannels().size()) + 1);
}

TEST(UdevRulesTest, TheTableTellsTheRoleOfEachUsbId) {
    const struct {
        uint16_t vendor;
        uint16_t product;
        const SUsbChannel* expected;
    } cases[] = {
        {0x10C4, 0xEA60, &UsbChannels()[0]}, {0x10C4, 0xEA70, nullptr},
        {0x0403, 0x6014, &UsbChannels()[1]}, {0x0403, 0x6001, nullptr},
        {0x0F5E, 0x03A6, &UsbChannels()[2]}, {0x0F5E, 0x0001, &UsbChannels()[2]},
        {0x067B, 0x2303, nullptr},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(FindUsbChannel(row.vendor, row.product), row.expected)
            << std::hex << row.vendor << ":" << row.product;
    }
    EXPECT_EQ(UsbChannels()[0].role, EUsbChannelRole::eSerialBridge);
    EXPECT_EQ(UsbChannels()[1].role, EUsbChannelRole::eFtdiBridge);
}

} // namespace

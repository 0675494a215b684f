#include "platform/linux/CUdevHotplugMonitor.h"
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

TEST(UdevRulesTest, HotplugFollowsMonitorsAndTheTablesUsbDevicesOnly) {
    using Id = std::optional<std::pair<uint16_t, uint16_t>>;
    const struct {
        const char* subsystem;
        Id usbId;
        bool relevant;
    } rows[] = {
        {"drm", std::nullopt, true},
        {"tty", Id({0x0403, 0x6014}), true},
        {"hidraw", Id({0x0F5E, 0x1234}), true},
        {"hidraw", Id({0x046D, 0xC52B}), false}, // a mouse
        {"usb", Id({0x10C4, 0xEA61}), false},
        // A node udev no longer knows the device of may have been one of the family's.
        {"hidraw", std::nullopt, true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsHotplugRelevant(row.subsystem, row.usbId), row.relevant) << row.subsystem;
    }
}

} // namespace

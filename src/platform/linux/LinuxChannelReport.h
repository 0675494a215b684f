#pragma once
// What the Linux platform looks at on each channel, as a report for the user: the i2c-dev
// module and its nodes, the DRM connectors with their monitors and DDC buses, the udev rules,
// the vendor's hidraw interfaces, the serial bridge's ttys, the FTDI bridges and the bridge
// libraries.

#include "discovery/SPlatformReport.h"

#include <string>
#include <vector>

struct SLinuxReportSetup {
    // Where udev reads rules from.
    std::vector<std::string> udevRuleFolders;
    // The name of the FTDI library in use; empty when none was found.
    std::string ftdiLibrary;
    // The name of the TI library in use; empty when none was found.
    std::string tiLibrary;
};

SPlatformReport DescribeLinuxChannels(const SLinuxReportSetup& setup_I);

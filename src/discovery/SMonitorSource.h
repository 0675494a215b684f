#pragma once
// One monitor as the operating system lists it, before discovery reads its EDID and decides
// whether it is one of the family's.

#include "ddc/Frames.h"

#include <string>

struct SMonitorSource {
    // The monitor device's hardware id, "MONITOR\" followed by the EDID's maker id and product
    // code in hexadecimal (MONITOR\VRX1041). Empty when it could not be read.
    std::string hardwareId;
    // The platform's key of the device, unique among the monitors (the DRM connector's name on
    // Linux, card0-DP-1). Empty when it could not be read: the record is then incomplete.
    std::string deviceKey;
    // The raw EDID; empty when it could not be read, which drops the monitor.
    ByteVector edid;
};

#pragma once
// The capability string and what the session makes of it, as text or JSON: the keys, the VCP
// codes with their option sets, and the commands. Shared by the capabilities of a display and
// the parser run offline.

#include "model/CapabilitiesParser.h"

#include <string>
#include <vector>

struct SCapabilitiesReport {
    std::string raw;
    CapabilitiesMap keys;
    VCPOptionsMap options;
    std::vector<int32_t> commands;
    // Repairs made to the text on the way, in words.
    std::vector<std::string> repairs;
};

// The keys a session needs; a string without them is refused.
std::vector<std::string> MissingCapabilityKeys(const CapabilitiesMap& keys_I);

std::string FormatCapabilitiesText(const SCapabilitiesReport& report_I);
std::string FormatCapabilitiesJson(const SCapabilitiesReport& report_I);

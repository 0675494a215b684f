#pragma once
// The commands that need no display: a capability string parsed as a session would parse it,
// and what discovery reads from an EDID.

#include "cli/CliContext.h"
#include "ddc/Frames.h"

#include <cstdint>
#include <string>

// What discovery reads from one EDID.
struct SEdidFacts {
    bool headerValid = false;
    std::string makerId; // three letters, empty when the EDID is too short
    uint16_t edidNumber = 0;
    std::string shortName; // maker id and product code, as in a hardware id (VRX1041)
    std::string monitorName;
    std::string serialNumber;
    uint32_t tabletId = 0xFFFFFFFFu;
    std::string productName; // empty when the family does not support the monitor
    std::string modelNumber;
};

SEdidFacts ReadEdidFacts(const ByteVector& edid_I, uint16_t languageId_I);

int RunParseCaps(const SCliContext& context_I);
int RunEdid(const SCliContext& context_I);

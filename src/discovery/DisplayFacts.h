#pragma once
// What a display says the same way on every start: its capability string, name and firmware
// version, and the EDID where only the channel gives it. Kept between runs, they spare a start
// the long capability read; one firmware read tells whether they still hold. The text form is small
// and readable, with a version line, and a text that is not exactly that form is refused as a
// whole.

#include "foundation/FileVersion.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SDisplayFacts {
    // Identity: the connector type, the serial number and the EDID number.
    int channel = -1;
    std::string serialNumber;
    uint16_t edidNumber = 0;
    // What the identity's display said on its last full read.
    FileVersion firmware;
    std::string monitorName;
    std::string capabilities;
    // The EDID as the channel read it, kept for a bridge whose serial number comes from it;
    // empty for the channels that learn the serial number otherwise.
    std::vector<uint8_t> channelEdid;

    bool SameDisplay(const SDisplayFacts& other_I) const {
        return channel == other_I.channel && serialNumber == other_I.serialNumber &&
               edidNumber == other_I.edidNumber;
    }
    bool operator==(const SDisplayFacts&) const = default;
};

std::string FormatDisplayFacts(const SDisplayFacts& facts_I);
std::optional<SDisplayFacts> ParseDisplayFacts(std::string_view text_I);
// A file name for the identity: letters, digits, '-' and '_' only.
std::string DisplayFactsName(const SDisplayFacts& identity_I);

// Where the facts live between runs. A store that cannot keep them only costs speed.
class IDisplayFactsStore {
public:
    virtual ~IDisplayFactsStore() = default;
    // The text kept under the name, or nothing.
    virtual std::optional<std::string> Load(const std::string& name_I) = 0;
    // Failures are silent: the next start reads the display in full again.
    virtual void Save(const std::string& name_I, const std::string& text_I) = 0;
};

#pragma once
// A named set of user-level settings of one display, as a profile file keeps it. Values are
// those of the display delegate for the display's model, so a profile fits only its model.

#include <cstdint>
#include <string>
#include <vector>

// Which display a profile was saved from.
struct SProfileOwner {
    std::string model;  // the model number, such as PDX-2700E
    std::string serial; // the serial number the display reports

    bool operator==(const SProfileOwner&) const = default;
};

struct SProfileSetting {
    std::string key;             // a setting's name, as paneltunectl spells it
    std::vector<int32_t> values; // one value, or red, green and blue of a colour

    bool operator==(const SProfileSetting&) const = default;
};

struct SProfile {
    std::string name;
    SProfileOwner owner;
    // In the order they are applied.
    std::vector<SProfileSetting> settings;

    bool operator==(const SProfile&) const = default;
};

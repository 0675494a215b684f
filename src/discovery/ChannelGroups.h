#pragma once
// Which models a channel reaches, as the matching rules name them. Each group lists its models
// in the order the rules test them.

#include <cstdint>
#include <span>

enum class EChannelGroup {
    eSerial,  // the USB serial port
    eFtdi,    // the FTDI bridge
    eTi,      // the TI bridge
    eHid,     // the vendor HID channel
    eBuiltIn, // built into the maker's own computer when it is one
};

// The tablet ids of the group's models.
std::span<const uint32_t> ChannelGroupModels(EChannelGroup group_I);
// Whether the EDID number belongs to one of the group's models.
bool IsInChannelGroup(EChannelGroup group_I, uint16_t edid_I);

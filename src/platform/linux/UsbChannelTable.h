#pragma once
// The USB devices through which the family's scalers are reached on this platform, and the
// udev rules that give the user at the seat access to them and to the displays' DDC buses.
// The rules file under data/udev is this table written out.

#include <cstdint>
#include <span>
#include <string>

enum class EUsbChannelRole : uint8_t {
    // A USB serial bridge whose tty carries DDC/CI frames.
    eSerialBridge,
    // An FTDI I2C bridge, reached through the FTDI library on its USB device node; its own
    // tty is not a channel.
    eFtdiBridge,
    // The tablet's HID interfaces (any product of the vendor), among them the scaler's.
    eVendorHid,
};

struct SUsbChannel {
    uint16_t vendorId = 0;
    // 0: every product of the vendor.
    uint16_t productId = 0;
    EUsbChannelRole role = EUsbChannelRole::eSerialBridge;
    const char* what = "";
};

std::span<const SUsbChannel> UsbChannels();

// The name of the rules file, as installed under a folder udev reads.
inline constexpr const char* kUdevRulesFileName = "70-paneltune.rules";

// The role of a USB device's id, or nothing when it is not one of the table.
const SUsbChannel* FindUsbChannel(uint16_t vendorId_I, uint16_t productId_I);

// The text of 70-paneltune.rules.
std::string UdevRulesText();

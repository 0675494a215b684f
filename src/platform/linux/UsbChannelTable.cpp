#include "platform/linux/UsbChannelTable.h"

#include <array>
#include <cstdio>

namespace {

constexpr std::array<SUsbChannel, 3> kUsbChannels{{
    {0x10C4, 0xEA60, EUsbChannelRole::eSerialBridge, "CP210x serial bridge of the scaler"},
    {0x0403, 0x6014, EUsbChannelRole::eFtdiBridge, "FTDI I2C bridge of the scaler"},
    {0x0F5E, 0x0000, EUsbChannelRole::eVendorHid, "the tablet's HID interfaces"},
}};

std::string Hex4(uint16_t value_I) {
    char text[8];
    std::snprintf(text, sizeof text, "%04x", value_I);
    return text;
}

std::string RuleFor(const SUsbChannel& channel_I) {
    std::string match;
    switch (channel_I.role) {
    case EUsbChannelRole::eSerialBridge:
        match = "SUBSYSTEM==\"tty\", ";
        break;
    case EUsbChannelRole::eFtdiBridge:
        match = "SUBSYSTEM==\"usb\", ENV{DEVTYPE}==\"usb_device\", ";
        break;
    case EUsbChannelRole::eVendorHid:
        match = "SUBSYSTEM==\"hidraw\", ";
        break;
    }
    match += "ATTRS{idVendor}==\"" + Hex4(channel_I.vendorId) + "\", ";
    if (channel_I.productId != 0) {
        match += "ATTRS{idProduct}==\"" + Hex4(channel_I.productId) + "\", ";
    }
    return "# " + std::string(channel_I.what) + "\n" + match + "TAG+=\"uaccess\"\n";
}

} // namespace

std::span<const SUsbChannel> UsbChannels() {
    return kUsbChannels;
}

const SUsbChannel* FindUsbChannel(uint16_t vendorId_I, uint16_t productId_I) {
    for (const SUsbChannel& channel : kUsbChannels) {
        if (channel.vendorId == vendorId_I &&
            (channel.productId == 0 || channel.productId == productId_I)) {
            return &channel;
        }
    }
    return nullptr;
}

std::string UdevRulesText() {
    std::string text =
        "# PanelTune: access for the user at the seat to the pen displays' control channels.\n"
        "# Generated from the platform's channel table; keep the two in step.\n"
        "\n"
        "# DDC buses of display adapters (PCI class 0x03), where the video cable's DDC/CI runs\n"
        "SUBSYSTEM==\"i2c-dev\", KERNEL==\"i2c-[0-9]*\", ATTRS{class}==\"0x03[0-9]*\", "
        "TAG+=\"uaccess\"\n";
    for (const SUsbChannel& channel : kUsbChannels) {
        text += "\n" + RuleFor(channel);
    }
    return text;
}

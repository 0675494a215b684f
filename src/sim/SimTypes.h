#pragma once
// Vocabulary shared by the simulated displays: the channels a display can answer on and the
// scaler families whose firmware behaves alike.

#include <cstdint>
#include <optional>
#include <string_view>

enum class ESimChannel : uint8_t {
    eVideo,  // DDC/CI over the video cable (i2c-dev)
    eFtdi,   // FTDI USB-to-I2C bridge (MPSSE)
    eTi,     // TI USB-to-I2C bridge
    eHid,    // vendor HID interface, 512-byte feature reports
    eSerial, // USB serial port, 9600 baud
};
inline constexpr int kSimChannelCount = 5;

// Bit set of ESimChannel values.
using SimChannelSet = uint8_t;
inline constexpr SimChannelSet SimChannelBit(ESimChannel channel_I) {
    return static_cast<SimChannelSet>(1u << static_cast<unsigned>(channel_I));
}

// The name used in descriptions and traces: "video", "ftdi", "ti", "hid", "serial".
std::string_view SimChannelName(ESimChannel channel_I);
std::optional<ESimChannel> SimChannelFromName(std::string_view name_I);

// One firmware per family; models of a family differ only in identity.
enum class ESimFamily : uint8_t {
    eAlder,    // Alder, AlderTouch, Aspen, AspenTwo: serial scaler, colour in percent
    eBirch,    // Birch, BirchTouch
    eElm,      // ElmSmall, ElmMedium
    eElmLarge, // ElmLarge, ElmLargeTouch: percent colour, fan
    eElmHuge,  // ElmHuge: offers a fan code that does nothing
    eFir,      // FirSmall, FirSmallLite, FirLarge
    eFirTwo,   // FirSmallTwo, FirSmallLiteTwo
    eHazel,    // Hazel
    eCedarOne, // CedarSmall, CedarLarge behind the TI bridge
    eCedarTwo, // CedarSmallTwo, CedarLargeTwo
};

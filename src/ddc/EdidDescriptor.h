#pragma once
// Text of an EDID display descriptor, found by searching the raw bytes for its tag.

#include "ddc/Frames.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

using EdidDescriptorTag = std::array<uint8_t, 3>;

// The last of a descriptor's three leading zeros, its type and the zero behind it.
constexpr EdidDescriptorTag kEdidSerialNumberTag{0x00, 0xFF, 0x00};
constexpr EdidDescriptorTag kEdidMonitorNameTag{0x00, 0xFC, 0x00};

// What ends a descriptor's text besides the buffer's end.
enum class EEdidTextEnd {
    eUnprintable, // a zero or any byte outside 0x20 to 0x7E
    eZero,        // a zero byte only
};

// The characters behind the first occurrence of the header anywhere in the buffer, up to the
// text's end, without trailing white space; nothing when the header does not occur. The search
// is over all bytes, not the four descriptor slots, so a header inside a timing block ends it
// there.
std::optional<std::string> FindEdidText(const ByteVector& buffer_I,
                                        std::span<const uint8_t> header_I, EEdidTextEnd end_I);

// The printable text behind the tag, empty when the tag does not occur.
std::string FindEdidDescriptor(const ByteVector& buffer_I, const EdidDescriptorTag& tag_I);

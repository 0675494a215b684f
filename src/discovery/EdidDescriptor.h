#pragma once
// Text of an EDID display descriptor, found by searching the raw bytes for its tag.

#include "ddc/Frames.h"

#include <array>
#include <cstdint>
#include <string>

using EdidDescriptorTag = std::array<uint8_t, 3>;

// The last of a descriptor's three leading zeros, its type and the zero behind it.
constexpr EdidDescriptorTag kEdidSerialNumberTag{0x00, 0xFF, 0x00};
constexpr EdidDescriptorTag kEdidMonitorNameTag{0x00, 0xFC, 0x00};

// The printable characters behind the first occurrence of the tag anywhere in the buffer, up to
// the first zero or unprintable byte or the buffer's end, without trailing white space. Empty
// when the tag does not occur. The search is over all bytes, not the four descriptor slots, so
// a tag inside a timing block ends it there.
std::string FindEdidDescriptor(const ByteVector& buffer_I, const EdidDescriptorTag& tag_I);

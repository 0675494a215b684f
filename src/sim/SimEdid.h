#pragma once
// The 128-byte EDID base block of a simulated display.

#include "sim/SimModelTable.h"

#include <cstdint>
#include <string_view>
#include <vector>

inline constexpr size_t kSimEdidSize = 128;

// Maker id VRX, the product code edidNumber_I, a 1920x1080 preferred timing, the display-name
// descriptor (FC) with the model's display name, the serial-number descriptor (FF) with
// serial_I (at most 13 characters), and a valid checksum.
std::vector<uint8_t> BuildSimEdid(const SSimModel& model_I, uint16_t edidNumber_I,
                                  std::string_view serial_I);

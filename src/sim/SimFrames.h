#pragma once
// Frames as the scaler puts them on the bus: its address 0x6E, a length byte with bit 7 set, the
// payload and a check byte that makes the XOR of the whole frame with the host's address 0x50
// zero.

#include <cstdint>
#include <span>
#include <vector>

inline constexpr uint8_t kSimDisplayAddress = 0x6E; // 0x37 shifted left, write
inline constexpr uint8_t kSimHostAddress = 0x51;
inline constexpr uint8_t kSimReplySeed = 0x50;

// The seed XORed with every byte.
uint8_t SimChecksum(std::span<const uint8_t> bytes_I, uint8_t seed_I);

// 6E, 0x80 | payload size, payload, check byte.
std::vector<uint8_t> SimReplyFrame(std::span<const uint8_t> payload_I);

// 6E 80 BE: the scaler has nothing to say.
std::vector<uint8_t> SimNullMessage();

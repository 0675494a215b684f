#pragma once
// DDC/CI frames as byte vectors in bus order. A request is 6E 51 (80|n) payload check, a reply
// 6E (80|n) payload check; the display's address byte comes first in both.

#include <cstdint>
#include <vector>

using ByteVector = std::vector<uint8_t>;

// The display's DDC/CI address (0x37 shifted left by one) and the host's.
constexpr uint8_t kDisplayAddress = 0x6E;
constexpr uint8_t kHostAddress = 0x51;
// Bit 7 of the length byte; its low seven bits count the payload bytes.
constexpr uint8_t kLengthFlag = 0x80;
// Checksum seeds: a request's check covers its own destination byte; a reply's starts from
// the host's address as the display sees it.
constexpr uint8_t kRequestSeed = 0x00;
constexpr uint8_t kReplySeed = 0x50;

// The seed XORed with every byte. Over a whole reply with its check byte and seed 0x50 it is 0.
uint8_t Checksum(const ByteVector& bytes_I, uint8_t seed_I);

// 6E 51 (80|n) payload check, check with seed 0. The payload holds at most 127 bytes.
ByteVector BuildRequestFrame(const ByteVector& payload_I);
// 6E (80|n) payload check, check with seed 0x50: what a scaler sends back.
ByteVector BuildReplyFrame(const ByteVector& payload_I);

// Get VCP Feature: 6E 51 82 01 code check.
ByteVector BuildGetVCPFeature(uint8_t code_I);
// Set VCP Feature: 6E 51 84 03 code value-high value-low check. Only bits 15 to 0 of the
// value go out.
ByteVector BuildSetVCPFeature(uint8_t code_I, uint32_t value_I);
// Save Current Settings: 6E 51 81 0C B2.
ByteVector BuildSaveCurrentSettings();
// Scaler reset: EE 05 11 00 00 EA, not in the 6E 51 form; its last byte is a stored constant.
ByteVector BuildScalarReset();
// Capabilities request of the standard: 6E 51 83 F3 offset-high offset-low check.
ByteVector BuildCapabilitiesRequest(uint16_t offset_I);
// Capabilities request through a table read: 6E 51 84 E2 F3 offset-high offset-low check.
ByteVector BuildPrivateCapabilitiesRequest(uint16_t offset_I);
// The display's empty answer: 6E 80 BE.
ByteVector BuildNullMessage();

// A reply that a channel without DDC/CI frames fabricates for operation op_I: for 1 (read)
// 6E 88 02 00 code 00 max-high max-low current-high current-low check; for 3 and 12 the null
// message; any other operation is a mistake of the caller and gives the lone byte 50.
ByteVector BuildSimulatedResponse(int op_I, uint8_t code_I, uint16_t current_I, uint16_t maximum_I);

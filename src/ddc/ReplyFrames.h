#pragma once
// Replies read as what they say instead of by byte positions. Every parser takes a reply whose
// check byte the caller has already taken off, and gives nothing for a reply it cannot read.

#include "ddc/Frames.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>

// Whether the bytes begin with prefix_I.
bool StartsWith(const ByteVector& bytes_I, std::initializer_list<uint8_t> prefix_I);

// Get VCP Feature reply: 6E 88 02 result code type max-high max-low present-high present-low.
struct SFeatureReply {
    uint8_t type = 0; // 0 set parameter, 1 momentary
    uint16_t maximum = 0;
    uint16_t present = 0;

    // The four value bytes as one number, maximum first: how a non-continuous code and the
    // firmware level read.
    uint32_t Combined() const { return static_cast<uint32_t>(maximum) << 16 | present; }
};
constexpr size_t kFeatureReplySize = 10;

// The reply as an answer to a Get VCP Feature of code_I. On the first test it fails, nothing,
// with the test's text in fault_O: "address is incorrect", "length is incorrect", "reply code
// is incorrect", "vcp code error", "it is NOT a response to our query", "Bad code type"; a byte
// the reply does not reach fails its test like a wrong one.
std::optional<SFeatureReply> ParseFeatureReply(const ByteVector& reply_I, uint8_t code_I,
                                               const char*& fault_O);
// Why a reply shorter than a feature reply is none: "Send request failed" (not even two bytes),
// "Send request no data" (the null message) or "Send request unknown response".
const char* ShortReplyFault(const ByteVector& reply_I);

// A fragment of a table read or capability reply: 6E (80|n) opcode offset-high offset-low
// data..., at least five bytes.
struct SFragment {
    uint8_t payloadLength = 0; // the length byte's low seven bits
    uint16_t offset = 0;       // the offset the display echoes

    // The payload is the opcode and the asked offset alone: the display has no more to give.
    bool EndsAt(uint16_t offset_I) const { return payloadLength == 3 && offset == offset_I; }
};
constexpr size_t kFragmentHeader = 5;
std::optional<SFragment> ParseFragment(const ByteVector& reply_I);

// The display information record of 0xF2 holds two texts of 13 characters at fixed places of
// its reply frame.
enum class EInformationText : size_t { eName = 17, eSerial = 30 };
constexpr size_t kInformationTextSize = 13;
// The text, or nothing when the frame does not reach its end.
std::optional<std::string> InformationText(std::span<const uint8_t> frame_I,
                                           EInformationText text_I);

// A status report of the vendor HID channel: report id, sub id, kind, two bytes, the status
// byte, a byte, then the display's reply frame.
struct SHidStatus {
    std::optional<uint8_t> status;  // nothing in a report too short to hold it
    std::span<const uint8_t> frame; // may be empty

    // Values of a Get VCP Feature reply in the frame, when the frame reaches them.
    std::optional<SFeatureReply> FeatureValues() const;
};
SHidStatus ParseHidStatus(const ByteVector& report_I);

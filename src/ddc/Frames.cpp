#include "ddc/Frames.h"

#include "ddc/VcpCodes.h"
#include "foundation/Trace.h"

namespace {

// The reset frame is not in the 6E 51 form and its last byte is a stored constant, not a check.
constexpr uint8_t kResetFrame[] = {0xEE, 0x05, 0x11, 0x00, 0x00, 0xEA};
constexpr size_t kMaxPayload = 0x7F;

ByteVector BuildFrame(std::initializer_list<uint8_t> head_I, const ByteVector& payload_I,
                      uint8_t seed_I) {
    VRX_ASSERT(payload_I.size() <= kMaxPayload);
    ByteVector frame;
    frame.reserve(head_I.size() + 1 + payload_I.size() + 1);
    frame.insert(frame.end(), head_I);
    frame.push_back(static_cast<uint8_t>(kLengthFlag | (payload_I.size() & kMaxPayload)));
    frame.insert(frame.end(), payload_I.begin(), payload_I.end());
    frame.push_back(Checksum(frame, seed_I));
    return frame;
}

uint8_t HighByte(uint32_t value_I) {
    return static_cast<uint8_t>((value_I >> 8) & 0xFF);
}
uint8_t LowByte(uint32_t value_I) {
    return static_cast<uint8_t>(value_I & 0xFF);
}

} // namespace

uint8_t Checksum(const ByteVector& bytes_I, uint8_t seed_I) {
    uint8_t check = seed_I;
    for (uint8_t byte : bytes_I) {
        check ^= byte;
    }
    return check;
}

ByteVector BuildRequestFrame(const ByteVector& payload_I) {
    return BuildFrame({kDisplayAddress, kHostAddress}, payload_I, kRequestSeed);
}

ByteVector BuildReplyFrame(const ByteVector& payload_I) {
    return BuildFrame({kDisplayAddress}, payload_I, kReplySeed);
}

ByteVector BuildGetVCPFeature(uint8_t code_I) {
    return BuildRequestFrame({ddcCC_GetVCPFeatureRequest, code_I});
}

ByteVector BuildSetVCPFeature(uint8_t code_I, uint32_t value_I) {
    return BuildRequestFrame(
        {ddcCC_SetVCPFeatureRequest, code_I, HighByte(value_I), LowByte(value_I)});
}

ByteVector BuildSaveCurrentSettings() {
    return BuildRequestFrame({ddcCC_SaveCurrentSettingsRequest});
}

ByteVector BuildScalarReset() {
    return ByteVector(std::begin(kResetFrame), std::end(kResetFrame));
}

ByteVector BuildCapabilitiesRequest(uint16_t offset_I) {
    return BuildRequestFrame({ddcCC_CapabilitiesRequest, HighByte(offset_I), LowByte(offset_I)});
}

ByteVector BuildPrivateCapabilitiesRequest(uint16_t offset_I) {
    return BuildRequestFrame(
        {ddcCC_TableReadRequest, ddcCC_CapabilitiesRequest, HighByte(offset_I), LowByte(offset_I)});
}

ByteVector BuildNullMessage() {
    return BuildReplyFrame({});
}

ByteVector BuildSimulatedResponse(int op_I, uint8_t code_I, uint16_t current_I,
                                  uint16_t maximum_I) {
    switch (op_I) {
    case ddcCC_GetVCPFeatureRequest:
        return BuildReplyFrame({ddcCC_VCPReplyCode, 0x00, code_I, 0x00, HighByte(maximum_I),
                                LowByte(maximum_I), HighByte(current_I), LowByte(current_I)});
    case ddcCC_SetVCPFeatureRequest:
    case ddcCC_SaveCurrentSettingsRequest:
        return BuildNullMessage();
    default:
        VRX_ASSERT_NOT_REACHED("Oops - unsupported simulated response");
        return ByteVector{Checksum({}, kReplySeed)};
    }
}

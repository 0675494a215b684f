#include "sim/SimFrames.h"

uint8_t SimChecksum(std::span<const uint8_t> bytes_I, uint8_t seed_I) {
    uint8_t sum = seed_I;
    for (const uint8_t byte : bytes_I) {
        sum ^= byte;
    }
    return sum;
}

std::vector<uint8_t> SimReplyFrame(std::span<const uint8_t> payload_I) {
    std::vector<uint8_t> frame;
    frame.reserve(payload_I.size() + 3);
    frame.push_back(kSimDisplayAddress);
    frame.push_back(static_cast<uint8_t>(0x80 | (payload_I.size() & 0x7F)));
    frame.insert(frame.end(), payload_I.begin(), payload_I.end());
    frame.push_back(SimChecksum(frame, kSimReplySeed));
    return frame;
}

std::vector<uint8_t> SimNullMessage() {
    return SimReplyFrame({});
}

#pragma once
// What a host does on the wire, written out independently of the simulation, so that the tests
// check the simulated scaler against the protocol rather than against itself.

#include "sim/ISimFrameTarget.h"
#include "sim/ISimI2CTarget.h"

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

inline uint8_t XorAll(const Bytes& bytes_I, uint8_t seed_I) {
    for (const uint8_t byte : bytes_I) {
        seed_I ^= byte;
    }
    return seed_I;
}

// 6E 51 (0x80 | n) payload checksum.
inline Bytes Request(const Bytes& payload_I) {
    Bytes frame = {0x6E, 0x51, static_cast<uint8_t>(0x80 | payload_I.size())};
    frame.insert(frame.end(), payload_I.begin(), payload_I.end());
    frame.push_back(XorAll(frame, 0x00));
    return frame;
}

inline Bytes GetVcp(uint8_t code_I) {
    return Request({0x01, code_I});
}
inline Bytes SetVcp(uint8_t code_I, uint16_t value_I) {
    return Request(
        {0x03, code_I, static_cast<uint8_t>(value_I >> 8), static_cast<uint8_t>(value_I & 0xFF)});
}

inline const Bytes kNullMessage = {0x6E, 0x80, 0xBE};

// The fragment loop of a host: request offset after offset until a fragment brings no data.
// prefix_I is F3 for the standard read, E2 F3 or E2 C3 for the table-read forms.
inline Bytes ReadFragments(ISimFrameTarget& target_I, const Bytes& prefix_I) {
    Bytes data;
    for (int guard = 0; guard < 64; ++guard) {
        Bytes payload = prefix_I;
        payload.push_back(static_cast<uint8_t>(data.size() >> 8));
        payload.push_back(static_cast<uint8_t>(data.size() & 0xFF));
        const Bytes reply = target_I.Transact(Request(payload));
        if (reply.size() < 6 || XorAll(reply, 0x50) != 0 ||
            (reply[1] & 0x7F) + 3u != reply.size() || reply[3] != payload[payload.size() - 2] ||
            reply[4] != payload.back()) {
            return {};
        }
        if ((reply[1] & 0x7F) == 3) {
            return data;
        }
        data.insert(data.end(), reply.begin() + 5, reply.end() - 1);
    }
    return {};
}

inline std::string AsText(const Bytes& bytes_I) {
    return std::string(bytes_I.begin(), bytes_I.end());
}

// One I2C write transaction of a whole frame; false at the first byte the slave refuses.
inline bool I2CWriteFrame(ISimI2CTarget& target_I, const Bytes& frame_I) {
    bool acked = target_I.Address(frame_I[0]);
    for (size_t i = 1; acked && i < frame_I.size(); ++i) {
        acked = target_I.Write(frame_I[i]);
    }
    target_I.Stop();
    return acked;
}

// One I2C read transaction of count_I bytes at 0x6F; the last byte is not acknowledged.
inline Bytes I2CRead(ISimI2CTarget& target_I, size_t count_I) {
    Bytes bytes;
    if (!target_I.Address(0x6F)) {
        return bytes;
    }
    for (size_t i = 0; i < count_I; ++i) {
        bytes.push_back(target_I.Read(i + 1 < count_I));
    }
    target_I.Stop();
    return bytes;
}

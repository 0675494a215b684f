#pragma once
// The MPSSE byte sequences that the host's FTDI connector writes for each I2C step, byte for
// byte, so that tests drive the chip exactly as the host does.

#include <cstdint>
#include <vector>

namespace MpsseHost {

inline void Repeat(std::vector<uint8_t>& out_O, int times_I, uint8_t value_I, uint8_t dir_I) {
    for (int i = 0; i < times_I; ++i) {
        out_O.insert(out_O.end(), {0x80, value_I, dir_I});
    }
}

// SDA falls while SCL is high, then SCL falls.
inline std::vector<uint8_t> Start() {
    std::vector<uint8_t> out;
    Repeat(out, 4, 0x03, 0x03);
    Repeat(out, 4, 0x01, 0x03);
    Repeat(out, 4, 0x00, 0x03);
    return out;
}

// SCL rises, then SDA rises while SCL is high.
inline std::vector<uint8_t> Stop() {
    std::vector<uint8_t> out;
    Repeat(out, 4, 0x01, 0x03);
    Repeat(out, 4, 0x03, 0x03);
    Repeat(out, 1, 0x02, 0x03);
    return out;
}

// One byte out, SDA released, one bit in, send immediate, SDA driven again.
inline std::vector<uint8_t> SendByte(uint8_t value_I) {
    return {0x11, 0x00, 0x00, value_I, 0x80, 0x00, 0x01, 0x22, 0x00, 0x87, 0x80, 0x00, 0x03};
}

// One byte in, then the ACK (0x00) or NACK (0x80) bit out; no send immediate.
inline std::vector<uint8_t> ReadByte(bool ack_I) {
    return {0x80, 0x00, 0x01, 0x24, 0x00, 0x00,
            0x80, 0x00, 0x03, 0x13, 0x00, static_cast<uint8_t>(ack_I ? 0x00 : 0x80)};
}

inline std::vector<uint8_t> Join(std::initializer_list<std::vector<uint8_t>> parts_I) {
    std::vector<uint8_t> out;
    for (const auto& part : parts_I) {
        out.insert(out.end(), part.begin(), part.end());
    }
    return out;
}

} // namespace MpsseHost

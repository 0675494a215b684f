#pragma once

#include <cstdint>
#include <vector>

// The scaler at frame level, for channels that carry whole frames (HID, serial).
class ISimFrameTarget {
public:
    virtual ~ISimFrameTarget() = default;
    // A host frame in bus order starting with the destination address byte
    // (0x6E, 0x51, length | 0x80, data..., checksum).
    // Returns the bytes the device would give to the next read, starting with its source address
    // byte (0x6E), or empty for silence.
    virtual std::vector<uint8_t> Transact(const std::vector<uint8_t>& frame) = 0;
};

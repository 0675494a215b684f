#pragma once

#include <cstdint>

// The device side of an I2C bus at byte level. A bus engine (i2c-dev fake, TI bridge fake, MPSSE
// decoder) calls these in the order the bytes pass on the wire.
class ISimI2CTarget {
public:
    virtual ~ISimI2CTarget() = default;
    // After START or repeated START: the 7-bit address shifted left by one, or'ed with R/W (1 =
    // read). true = ACK.
    virtual bool Address(uint8_t addressByte) = 0;
    // A byte written by the host; true = ACK.
    virtual bool Write(uint8_t byte) = 0;
    // A byte the device sends; hostAcks false is the host's NACK that ends the read.
    virtual uint8_t Read(bool hostAcks) = 0;
    virtual void Stop() = 0;
};

#pragma once
// A tap on a simulated I2C bus that writes down the request frames that cross it.

#include "ddc/Frames.h"
#include "sim/ISimI2CTarget.h"

#include <cstdint>
#include <vector>

// Passes every bus event on, and keeps each write transaction as a frame from its address byte
// on, the bytes the target refused included.
class CI2CWireTap final : public ISimI2CTarget {
public:
    explicit CI2CWireTap(ISimI2CTarget& inner_I) : mInner(inner_I) {}

    bool Address(uint8_t addressByte_I) override;
    bool Write(uint8_t byte_I) override;
    uint8_t Read(bool hostAcks_I) override;
    void Stop() override;

    std::vector<ByteVector> writes;

private:
    ISimI2CTarget& mInner;
    bool mWriting = false;
};

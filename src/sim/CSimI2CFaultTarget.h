#pragma once
// Bus-level faults in front of an I2C target: the device refuses (NACKs) a chosen byte of a
// transfer, once, a number of times or always. Refused bytes never reach the target behind, so
// they combine with whatever faults that target injects itself.

#include "sim/ISimI2CTarget.h"

#include <cstdint>

class CSimI2CFaultTarget final : public ISimI2CTarget {
public:
    static constexpr unsigned kAlways = ~0u;

    explicit CSimI2CFaultTarget(ISimI2CTarget& inner_I);

    // Position 0 is the address byte after a START or repeated START, 1 the first data byte
    // written behind it, and so on. times_I counts the transfers that meet the fault.
    void NackByte(unsigned position_I, unsigned times_I = 1);
    void Clear() { mTimesLeft = 0; }
    unsigned NacksGiven() const { return mNacksGiven; }

    bool Address(uint8_t addressByte_I) override;
    bool Write(uint8_t byte_I) override;
    uint8_t Read(bool hostAcks_I) override;
    void Stop() override;

private:
    bool Refuses();

    ISimI2CTarget& mInner;
    unsigned mPosition = 0;
    unsigned mNackPosition = 0;
    unsigned mTimesLeft = 0;
    unsigned mNacksGiven = 0;
};

#pragma once
// The MPSSE command processor of an FTDI chip, wired for I2C: low-byte pin 0 is SCL, pin 1 drives
// SDA and pin 2 reads it back. Commands may arrive split over any number of writes; answers go
// to an output queue that the chip's USB side drains.

#include "sim/CSimI2CBitSlave.h"
#include "sim/ISimI2CTarget.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class CSimMpsseEngine {
public:
    explicit CSimMpsseEngine(ISimI2CTarget& target_I);

    // The state after the MPSSE is enabled: all pins inputs, clock divided by five, no
    // loopback, no drive-zero mask, no partial command.
    void Reset();

    void Feed(const uint8_t* data_I, size_t size_I);

    // Bytes produced since the last take. flushed is how many of them a send-immediate has
    // pushed towards the host; the rest wait for the latency timer.
    std::vector<uint8_t> TakeOutput(size_t& flushed);

    bool Scl() const { return mSlave.Scl(); }
    bool Sda() const { return mSlave.Sda(); }
    bool Loopback() const { return mLoopback; }
    uint8_t LowValue() const { return mLowValue; }
    uint8_t LowDirection() const { return mLowDirection; }
    uint8_t HighValue() const { return mHighValue; }
    uint8_t HighDirection() const { return mHighDirection; }
    uint16_t ClockDivisor() const { return mDivisor; }
    // SCL frequency that the divisor and the master clock give.
    uint32_t SclHz() const;
    bool ThreePhaseClocking() const { return mThreePhase; }
    bool AdaptiveClocking() const { return mAdaptive; }
    uint8_t DriveZeroLowMask() const { return mDriveZeroLow; }
    // Count of bad opcodes met since the last Reset.
    unsigned BadCommands() const { return mBadCommands; }

private:
    // How many bytes the command at data_I needs; 0 while more must come first.
    static size_t CommandSize(const uint8_t* data_I, size_t available_I);
    void Execute(const uint8_t* command_I);
    void ExecuteShift(const uint8_t* command_I);
    void ExecuteClockOnly(unsigned bits_I);
    void ClockBit(bool writes_I, bool bit_I, bool negativeWrite_I, bool negativeRead_I, bool tms_I,
                  bool& sampled_O);
    void ApplyPins();
    bool PinLevel(int pin_I) const;
    bool DataIn() const;

    CSimI2CBitSlave mSlave;
    std::vector<uint8_t> mPending;
    std::vector<uint8_t> mOutput;
    size_t mFlushed = 0;
    uint8_t mLowValue = 0;
    uint8_t mLowDirection = 0;
    uint8_t mHighValue = 0;
    uint8_t mHighDirection = 0;
    uint8_t mDriveZeroLow = 0;
    uint8_t mDriveZeroHigh = 0;
    uint16_t mDivisor = 0;
    bool mDivideBy5 = true;
    bool mThreePhase = false;
    bool mAdaptive = false;
    bool mLoopback = false;
    unsigned mBadCommands = 0;
};

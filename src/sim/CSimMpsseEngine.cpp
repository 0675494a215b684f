#include "sim/CSimMpsseEngine.h"

#include <array>
#include <utility>

namespace {

// Opcode bits of the data-shifting commands.
constexpr uint8_t kNegativeWriteEdge = 0x01;
constexpr uint8_t kBitMode = 0x02;
constexpr uint8_t kNegativeReadEdge = 0x04;
constexpr uint8_t kLsbFirst = 0x08;
constexpr uint8_t kWritesData = 0x10;
constexpr uint8_t kReadsData = 0x20;
constexpr uint8_t kWritesTms = 0x40;

constexpr uint8_t kBadCommandAnswer = 0xFA;
constexpr uint32_t kMasterClockHz = 60000000;

constexpr int kPinScl = 0;
constexpr int kPinDataOut = 1;
constexpr int kPinDataIn = 2;
constexpr int kPinTms = 3;

struct SFixedCommand {
    uint8_t opcode;
    uint8_t size;
};

// The commands other than data shifts that this chip knows, with their size in bytes.
constexpr std::array<SFixedCommand, 17> kFixedCommands{{
    {0x80, 3}, // set low byte: value, direction
    {0x81, 1}, // read low byte
    {0x82, 3}, // set high byte: value, direction
    {0x83, 1}, // read high byte
    {0x84, 1}, // loopback on
    {0x85, 1}, // loopback off
    {0x86, 3}, // clock divisor: low, high
    {0x87, 1}, // send immediate
    {0x8A, 1}, // divide by 5 off
    {0x8B, 1}, // divide by 5 on
    {0x8C, 1}, // three-phase clocking on
    {0x8D, 1}, // three-phase clocking off
    {0x8E, 2}, // clock bits, no data: count
    {0x8F, 3}, // clock bytes, no data: count low, high
    {0x96, 1}, // adaptive clocking on
    {0x97, 1}, // adaptive clocking off
    {0x9E, 3}, // drive-zero mode: low mask, high mask
}};

constexpr std::array<uint8_t, 6> kTmsCommands{0x4A, 0x4B, 0x6A, 0x6B, 0x6E, 0x6F};

bool IsDataShift(uint8_t opcode_I) {
    if ((opcode_I & 0x80) != 0) {
        return false;
    }
    if ((opcode_I & kWritesTms) != 0) {
        for (uint8_t tms : kTmsCommands) {
            if (tms == opcode_I) {
                return true;
            }
        }
        return false;
    }
    return (opcode_I & (kWritesData | kReadsData)) != 0;
}

bool Bit(uint8_t value_I, int bit_I) {
    return ((value_I >> bit_I) & 1) != 0;
}

uint8_t WithBit(uint8_t value_I, int bit_I, bool on_I) {
    const auto mask = static_cast<uint8_t>(1u << bit_I);
    return static_cast<uint8_t>(on_I ? (value_I | mask) : (value_I & ~mask));
}

} // namespace

CSimMpsseEngine::CSimMpsseEngine(ISimI2CTarget& target_I) : mSlave(target_I) {
    Reset();
}

void CSimMpsseEngine::Reset() {
    mPending.clear();
    mOutput.clear();
    mFlushed = 0;
    mLowValue = 0;
    mLowDirection = 0;
    mHighValue = 0;
    mHighDirection = 0;
    mDriveZeroLow = 0;
    mDriveZeroHigh = 0;
    mDivisor = 0;
    mDivideBy5 = true;
    mThreePhase = false;
    mAdaptive = false;
    mLoopback = false;
    mBadCommands = 0;
    ApplyPins();
}

uint32_t CSimMpsseEngine::SclHz() const {
    const uint32_t master = mDivideBy5 ? kMasterClockHz / 5 : kMasterClockHz;
    return master / ((1u + mDivisor) * 2u);
}

std::vector<uint8_t> CSimMpsseEngine::TakeOutput(size_t& flushed) {
    flushed = mFlushed;
    mFlushed = 0;
    return std::exchange(mOutput, {});
}

void CSimMpsseEngine::Feed(const uint8_t* data_I, size_t size_I) {
    mPending.insert(mPending.end(), data_I, data_I + size_I);
    size_t start = 0;
    while (start < mPending.size()) {
        const size_t needed = CommandSize(mPending.data() + start, mPending.size() - start);
        if (needed == 0) {
            break;
        }
        Execute(mPending.data() + start);
        start += needed;
    }
    mPending.erase(mPending.begin(), mPending.begin() + static_cast<long>(start));
}

size_t CSimMpsseEngine::CommandSize(const uint8_t* data_I, size_t available_I) {
    const uint8_t opcode = data_I[0];
    if (IsDataShift(opcode)) {
        if ((opcode & kWritesTms) != 0 || (opcode & kBitMode) != 0) {
            const bool carriesData = (opcode & (kWritesTms | kWritesData)) != 0;
            return available_I >= 2 ? (carriesData ? 3u : 2u) : 0u;
        }
        if (available_I < 3) {
            return 0;
        }
        const size_t length = static_cast<size_t>(data_I[1] | (data_I[2] << 8)) + 1;
        const size_t size = 3 + ((opcode & kWritesData) != 0 ? length : 0);
        return available_I >= size ? size : 0;
    }
    for (const SFixedCommand& command : kFixedCommands) {
        if (command.opcode == opcode) {
            return available_I >= command.size ? command.size : 0;
        }
    }
    return 1;
}

void CSimMpsseEngine::Execute(const uint8_t* command_I) {
    if (IsDataShift(command_I[0])) {
        ExecuteShift(command_I);
        return;
    }
    switch (command_I[0]) {
    case 0x80:
        mLowValue = command_I[1];
        mLowDirection = command_I[2];
        ApplyPins();
        return;
    case 0x81: {
        uint8_t pins = 0;
        for (int pin = 0; pin < 8; ++pin) {
            pins = WithBit(pins, pin, PinLevel(pin));
        }
        pins = WithBit(pins, kPinScl, mSlave.Scl());
        pins = WithBit(pins, kPinDataOut, mSlave.Sda());
        pins = WithBit(pins, kPinDataIn, mSlave.Sda());
        mOutput.push_back(pins);
        return;
    }
    case 0x82:
        mHighValue = command_I[1];
        mHighDirection = command_I[2];
        return;
    case 0x83:
        mOutput.push_back(static_cast<uint8_t>((mHighValue & mHighDirection) | ~mHighDirection));
        return;
    case 0x84:
        mLoopback = true;
        return;
    case 0x85:
        mLoopback = false;
        return;
    case 0x86:
        mDivisor = static_cast<uint16_t>(command_I[1] | (command_I[2] << 8));
        return;
    case 0x87:
        mFlushed = mOutput.size();
        return;
    case 0x8A:
        mDivideBy5 = false;
        return;
    case 0x8B:
        mDivideBy5 = true;
        return;
    case 0x8C:
        mThreePhase = true;
        return;
    case 0x8D:
        mThreePhase = false;
        return;
    case 0x8E:
        ExecuteClockOnly(command_I[1] + 1u);
        return;
    case 0x8F:
        ExecuteClockOnly((static_cast<unsigned>(command_I[1] | (command_I[2] << 8)) + 1u) * 8u);
        return;
    case 0x96:
        mAdaptive = true;
        return;
    case 0x97:
        mAdaptive = false;
        return;
    case 0x9E:
        mDriveZeroLow = command_I[1];
        mDriveZeroHigh = command_I[2];
        ApplyPins();
        return;
    default:
        break;
    }
    // The chip's answer to an opcode it doesn't know, which hosts use to find the command
    // stream's boundaries.
    ++mBadCommands;
    mOutput.push_back(kBadCommandAnswer);
    mOutput.push_back(command_I[0]);
}

void CSimMpsseEngine::ExecuteShift(const uint8_t* command_I) {
    const uint8_t opcode = command_I[0];
    const bool tms = (opcode & kWritesTms) != 0;
    const bool writes = tms || (opcode & kWritesData) != 0;
    const bool reads = (opcode & kReadsData) != 0;
    const bool negativeWrite = (opcode & kNegativeWriteEdge) != 0;
    const bool negativeRead = (opcode & kNegativeReadEdge) != 0;
    const bool lsbFirst = (opcode & kLsbFirst) != 0;

    const bool bitMode = tms || (opcode & kBitMode) != 0;
    const size_t byteCount =
        bitMode ? 1u : static_cast<size_t>(command_I[1] | (command_I[2] << 8)) + 1u;
    const unsigned bitsInLast = bitMode ? (command_I[1] & 0x07u) + 1u : 8u;
    const uint8_t* data = command_I + (bitMode ? 2 : 3);

    for (size_t index = 0; index < byteCount; ++index) {
        const uint8_t out = writes ? data[bitMode ? 0 : index] : 0;
        const unsigned bits = index + 1 == byteCount ? bitsInLast : 8u;
        uint8_t in = 0;
        for (unsigned bit = 0; bit < bits; ++bit) {
            bool value = false;
            if (tms) {
                // The TMS commands shift their bits out LSB first; bit 7 is held on TDI.
                value = Bit(out, static_cast<int>(bit));
                mLowValue = WithBit(mLowValue, kPinDataOut, Bit(out, 7));
            } else {
                value = lsbFirst ? Bit(out, static_cast<int>(bit))
                                 : Bit(out, static_cast<int>(7 - bit));
            }
            bool sampled = false;
            ClockBit(writes, value, negativeWrite, negativeRead, tms, sampled);
            in = lsbFirst || tms ? static_cast<uint8_t>((in >> 1) | (sampled ? 0x80 : 0))
                                 : static_cast<uint8_t>((in << 1) | (sampled ? 1 : 0));
        }
        if (reads) {
            mOutput.push_back(in);
        }
    }
}

void CSimMpsseEngine::ExecuteClockOnly(unsigned bits_I) {
    for (unsigned bit = 0; bit < bits_I; ++bit) {
        bool sampled = false;
        ClockBit(false, false, false, false, false, sampled);
    }
}

void CSimMpsseEngine::ClockBit(bool writes_I, bool bit_I, bool negativeWrite_I, bool negativeRead_I,
                               bool tms_I, bool& sampled_O) {
    const int dataPin = tms_I ? kPinTms : kPinDataOut;
    auto setData = [&] {
        if (writes_I) {
            mLowValue = WithBit(mLowValue, dataPin, bit_I);
            ApplyPins();
        }
    };
    auto setClock = [&](bool high_I) {
        mLowValue = WithBit(mLowValue, kPinScl, high_I);
        ApplyPins();
    };
    const bool idleHigh = Bit(mLowValue, kPinScl);
    if (!idleHigh) {
        // A clock that rests low: the rising edge comes first.
        if (negativeWrite_I) {
            setData();
        }
        setClock(true);
        if (!negativeWrite_I) {
            setData();
        }
        sampled_O = DataIn();
        setClock(false);
    } else {
        if (negativeRead_I) {
            sampled_O = DataIn();
        }
        setClock(false);
        if (negativeWrite_I) {
            setData();
        }
        setClock(true);
        if (!negativeWrite_I) {
            setData();
        }
        if (!negativeRead_I) {
            sampled_O = DataIn();
        }
    }
}

bool CSimMpsseEngine::PinLevel(int pin_I) const {
    if (!Bit(mLowDirection, pin_I)) {
        return true; // an input: the pull-up holds the line high
    }
    const bool value = Bit(mLowValue, pin_I);
    if (value && Bit(mDriveZeroLow, pin_I)) {
        return true; // drive-zero mode lets go of a one
    }
    return value;
}

bool CSimMpsseEngine::DataIn() const {
    if (mLoopback) {
        return Bit(mLowValue, kPinDataOut);
    }
    return mSlave.Sda();
}

void CSimMpsseEngine::ApplyPins() {
    // Pin 1 drives SDA and pin 2 is wired to it, so either one pulls the line down.
    mSlave.SetMasterLines(PinLevel(kPinScl), PinLevel(kPinDataOut) && PinLevel(kPinDataIn));
}

// The MPSSE side of the FTDI connector: the I2C primitives and the open sequence.

#include "channels/CI2CConnectorFTDI.h"

#include "foundation/HexDump.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <algorithm>
#include <functional>

namespace {

// MPSSE opcodes, in FTDI's published meaning.
constexpr uint8_t kClockBytesOut = 0x11; // falling edge, MSB first
constexpr uint8_t kClockBitsOut = 0x13;  // falling edge, MSB first
constexpr uint8_t kClockBitsIn = 0x22;   // rising edge, MSB first
constexpr uint8_t kClockBytesIn = 0x24;  // falling edge, MSB first
constexpr uint8_t kSetLowPins = 0x80;
constexpr uint8_t kSetHighPins = 0x82;
constexpr uint8_t kLoopbackOn = 0x84;
constexpr uint8_t kLoopbackOff = 0x85;
constexpr uint8_t kClockDivisor = 0x86;
constexpr uint8_t kSendImmediate = 0x87;
constexpr uint8_t kMasterClock60MHz = 0x8A;
constexpr uint8_t kThreePhaseOff = 0x8D;
constexpr uint8_t kAdaptiveOff = 0x97;
constexpr uint8_t kDriveZero = 0x9E;
constexpr uint8_t kBadOpcode = 0xAA;
constexpr uint8_t kBadOpcodeAnswer = 0xFA;

// Low pins: bit 0 SCL, bit 1 SDA. Direction 03 drives both, 01 leaves SDA to the slave.
constexpr uint8_t kBothOut = 0x03;
constexpr uint8_t kSdaIn = 0x01;
constexpr uint8_t kAck = 0x00;
constexpr uint8_t kNack = 0x80;

constexpr int kStepRepeats = 4;
constexpr uint32_t kByteWaitMs = 20;
constexpr uint32_t kResetRetryMs = 50;
constexpr int kResetRetries = 20;
constexpr uint32_t kModeSettleMs = 50;
constexpr uint32_t kDivisorSettleMs = 20;

constexpr uint32_t kUsbTransferSize = 0x10000;
constexpr uint32_t kTimeoutMs = 5000;
constexpr uint8_t kLatencyMs = 8;

// One step of the open sequence: the call and what its failure traces.
struct SSetting {
    const char* failure;
    std::function<FtStatus()> call;
};

void AddPins(ByteVector& buffer_O, int times_I, uint8_t value_I) {
    for (int i = 0; i < times_I; ++i) {
        buffer_O.insert(buffer_O.end(), {kSetLowPins, value_I, kBothOut});
    }
}

} // namespace

FtStatus CI2CConnectorFTDI::I2CWrite(const ByteVector& buffer_I) {
    if (gTraceEnabled) {
        DumpBuffer(buffer_I, "I2CWrite buffer");
    }
    uint32_t written = 0;
    const FtStatus status = mApi->FT_Write(mFTHandle, buffer_I.data(),
                                           static_cast<uint32_t>(buffer_I.size()), &written);
    if (status != Ft::kOk) {
        Trace("FT_Write failed (%i)\n", static_cast<int>(status));
        return status;
    }
    if (written != buffer_I.size()) {
        Trace("I2CWrite had %lu sent %i\n", static_cast<unsigned long>(buffer_I.size()),
              static_cast<int>(written));
        return Ft::kIoError;
    }
    return Ft::kOk;
}

FtStatus CI2CConnectorFTDI::I2CStart() {
    // SDA falls while SCL is high, then SCL falls; repeats stretch each step.
    ByteVector buffer;
    AddPins(buffer, kStepRepeats, 0x03);
    AddPins(buffer, kStepRepeats, 0x01);
    AddPins(buffer, kStepRepeats, 0x00);
    I2CWrite(buffer);
    return Ft::kOk;
}

FtStatus CI2CConnectorFTDI::I2CStop() {
    ByteVector buffer;
    AddPins(buffer, kStepRepeats, 0x01);
    AddPins(buffer, kStepRepeats, 0x03);
    AddPins(buffer, 1, 0x02);
    return I2CWrite(buffer);
}

FtStatus CI2CConnectorFTDI::I2CSendByte(uint8_t value_I, bool wait_I) {
    // One byte out, SDA released, the ACK bit in, flushed at once, SDA driven again.
    const ByteVector buffer = {kClockBytesOut, 0x00,   0x00,         value_I, kSetLowPins,
                               0x00,           kSdaIn, kClockBitsIn, 0x00,    kSendImmediate,
                               kSetLowPins,    0x00,   kBothOut};
    const FtStatus status = I2CWrite(buffer);
    if (status != Ft::kOk) {
        Trace("I2CSendByte write failed (%i)\n", static_cast<int>(status));
        return status;
    }
    if (wait_I) {
        SleepMs(kByteWaitMs);
    }
    uint8_t ack = 0;
    const FtStatus readStatus = I2CRead1(ack);
    if (readStatus != Ft::kOk) {
        return readStatus;
    }
    if ((ack & 0x01) != 0) {
        Trace("I2CSendByte ACK failed (%i)\n", ack);
        return Ft::kIoError;
    }
    return Ft::kOk;
}

FtStatus CI2CConnectorFTDI::I2CReadByte(bool ack_I, uint8_t& byte_O) {
    // No send-immediate: the byte comes with the chip's latency timer.
    const ByteVector buffer = {kSetLowPins, 0x00,          kSdaIn,      kClockBytesIn,
                               0x00,        0x00,          kSetLowPins, 0x00,
                               kBothOut,    kClockBitsOut, 0x00,        ack_I ? kAck : kNack};
    const FtStatus status = I2CWrite(buffer);
    if (status != Ft::kOk) {
        return status;
    }
    return I2CRead1(byte_O);
}

FtStatus CI2CConnectorFTDI::I2CRead1(uint8_t& byte_O) {
    uint32_t read = 0;
    const FtStatus status = mApi->FT_Read(mFTHandle, &byte_O, 1, &read);
    if (status != Ft::kOk) {
        Trace("I2CRead1 failed\n");
        return status;
    }
    if (read == 1) {
        TraceDebug("I2CRead1 read %i\n", byte_O);
        return Ft::kOk;
    }
    Trace("I2CRead1 timeout\n");
    return Ft::kIoError;
}

FtStatus CI2CConnectorFTDI::I2CRead(uint32_t count_I, ByteVector& bytes_O) {
    bytes_O.assign(count_I, 0x00);
    uint32_t read = 0;
    const FtStatus status = mApi->FT_Read(mFTHandle, bytes_O.data(), count_I, &read);
    if (status != Ft::kOk) {
        Trace("I2CRead failed\n");
        bytes_O.clear();
        return status;
    }
    bytes_O.resize(std::min(read, count_I));
    if (read == count_I) {
        TraceDebug("I2CRead read %i\n", static_cast<int>(read));
        DumpBuffer(bytes_O, "");
        return Ft::kOk;
    }
    Trace("I2CRead count mis-match\n");
    return Ft::kIoError;
}

FtStatus CI2CConnectorFTDI::I2CReadAll() {
    uint32_t waiting = 0;
    const FtStatus queueStatus = mApi->FT_GetQueueStatus(mFTHandle, &waiting);
    if (queueStatus != Ft::kOk) {
        Trace("FT_GetQueueStatus failed (%i)\n", static_cast<int>(queueStatus));
        waiting = 0;
    }
    if (waiting == 0) {
        TraceDebug("I2CReadAll No data\n");
        return Ft::kOk;
    }
    ByteVector bytes(waiting, 0x00);
    uint32_t read = 0;
    const FtStatus status = mApi->FT_Read(mFTHandle, bytes.data(), waiting, &read);
    if (status != Ft::kOk) {
        Trace("I2CReadAll failed\n");
        return status;
    }
    bytes.resize(std::min(read, waiting));
    if (read == waiting) {
        TraceDebug("I2CReadAll read %i\n", static_cast<int>(read));
        DumpBuffer(bytes, "");
        return Ft::kOk;
    }
    Trace("I2CReadAll count mis-match\n");
    return Ft::kIoError;
}

FtStatus CI2CConnectorFTDI::SendBadCommand(bool check_I) {
    const FtStatus status = I2CWrite({kBadOpcode});
    if (status != Ft::kOk) {
        return status;
    }
    ByteVector answer;
    const FtStatus readStatus = I2CRead(2, answer);
    if (readStatus != Ft::kOk || !check_I) {
        return readStatus;
    }
    // Lenient on purpose: one byte in its right place is enough.
    if (answer[0] != kBadOpcodeAnswer && answer[1] != kBadOpcode) {
        return Ft::kIoError;
    }
    return Ft::kOk;
}

uint32_t CI2CConnectorFTDI::NumberOfDevices(IFtdiApi& api_I) {
    uint32_t count = 0;
    if (api_I.FT_ListDevices(&count, nullptr, Ft::kListNumberOnly) != Ft::kOk) {
        return 0;
    }
    return count;
}

void CI2CConnectorFTDI::CloseHandle() {
    if (mFTHandle == nullptr) {
        return;
    }
    const FtStatus status = mApi->FT_Close(mFTHandle);
    if (status != Ft::kOk) {
        Trace("FT_Close failed (%i)\n", static_cast<int>(status));
    }
    mFTHandle = nullptr;
}

FtStatus CI2CConnectorFTDI::OpenFTDIHandle(long index_I) {
    const uint32_t devices = NumberOfDevices(*mApi);
    if (index_I < 0 || static_cast<uint32_t>(index_I) >= devices) {
        Trace("CI2CConnectorFTDI::OpenFTDIHandle trying to access a device index great than the "
              "number of devices\n");
        return Ft::kInvalidParameter;
    }
    uint32_t location = Ft::kLocationNone;
    const FtStatus listStatus =
        mApi->FT_ListDevices(reinterpret_cast<void*>(static_cast<uintptr_t>(index_I)), &location,
                             Ft::kListByIndex | Ft::kOpenByLocation);
    if (listStatus != Ft::kOk) {
        Trace("FT_ListDevices failed for device %ldi (%i)\n", index_I,
              static_cast<int>(listStatus));
    }
    if (listStatus != Ft::kOk || location == Ft::kLocationNone) {
        Trace("CI2CConnectorFTDI::OpenFTDIHandle could not translate device index to location "
              "id\n");
        return Ft::kDeviceNotFound;
    }
    const FtStatus openStatus = mApi->FT_OpenEx(
        reinterpret_cast<void*>(static_cast<uintptr_t>(location)), Ft::kOpenByLocation, &mFTHandle);
    if (openStatus != Ft::kOk) {
        mFTHandle = nullptr;
        Trace("FT_OpenEx failed (%i)\n", static_cast<int>(openStatus));
        Trace("CI2CConnectorFTDI::OpenFTDIHandle found locationID but can not open it.  "
              "AppleUSBFTDI???\n");
        return openStatus;
    }

    // From here on every failure gives the handle back.
    auto fail = [this](FtStatus status_I) {
        CloseHandle();
        return status_I;
    };
    FtStatus status = mApi->FT_ResetDevice(mFTHandle);
    for (int retry = 0; status != Ft::kOk && retry < kResetRetries; ++retry) {
        SleepMs(kResetRetryMs);
        status = mApi->FT_ResetDevice(mFTHandle);
    }
    if (status != Ft::kOk) {
        Trace("FT_ResetDevice failed (%i)\n", static_cast<int>(status));
        return fail(status);
    }
    I2CReadAll();

    // In this order; the first failure ends the sequence. The first text is the one the
    // sequence has always traced.
    const SSetting settings[] = {
        {"FT_ResetDevice failed (%i)\n",
         [this] {
             return mApi->FT_SetUSBParameters(mFTHandle, kUsbTransferSize, kUsbTransferSize);
         }},
        {"FT_SetChars failed (%i)\n", [this] { return mApi->FT_SetChars(mFTHandle, 0, 0, 0, 0); }},
        {"FT_SetTimeouts failed (%i)\n",
         [this] { return mApi->FT_SetTimeouts(mFTHandle, kTimeoutMs, kTimeoutMs); }},
        {"FT_SetLatencyTimer failed (%i)\n",
         [this] { return mApi->FT_SetLatencyTimer(mFTHandle, kLatencyMs); }},
        {"FT_SetBitMode RESET_MPSSE_INTERFACE failed (%i)\n",
         [this] { return mApi->FT_SetBitMode(mFTHandle, 0, Ft::kBitModeReset); }},
        {"FT_SetBitMode ENABLE_MPSSE_INTERFACE failed (%i)\n",
         [this] { return mApi->FT_SetBitMode(mFTHandle, 0, Ft::kBitModeMpsse); }},
    };
    for (const SSetting& setting : settings) {
        status = setting.call();
        if (status != Ft::kOk) {
            Trace(setting.failure, static_cast<int>(status));
            return fail(status);
        }
    }
    SleepMs(kModeSettleMs);
    I2CReadAll();

    auto expectEmptyQueue = [this] {
        uint32_t waiting = 0;
        mApi->FT_GetQueueStatus(mFTHandle, &waiting);
        if (waiting != 0) {
            VRX_ASSERT_NOT_REACHED("Bytes in the buffer");
        }
    };
    if ((status = I2CWrite({kLoopbackOn})) != Ft::kOk) {
        return fail(status);
    }
    expectEmptyQueue();
    if ((status = SendBadCommand(true)) != Ft::kOk) {
        Trace("Not bad command\n");
        return fail(status);
    }
    if ((status = I2CWrite({kLoopbackOff})) != Ft::kOk) {
        return fail(status);
    }
    expectEmptyQueue();
    if ((status = I2CWrite({kMasterClock60MHz, kAdaptiveOff, kThreePhaseOff})) != Ft::kOk) {
        return fail(status);
    }
    // SDA only drives low; both lines high.
    if ((status = I2CWrite({kDriveZero, 0x02, 0x00, kSetLowPins, 0x03, kBothOut})) != Ft::kOk) {
        return fail(status);
    }
    // 60 MHz / ((1 + 0x012B) * 2) = 100 kHz. A failure here is not fatal.
    if (I2CWrite({kClockDivisor, 0x2B, 0x01}) == Ft::kOk) {
        SleepMs(kDivisorSettleMs);
    }
    if ((status = I2CWrite({kSetHighPins, 0x14, 0xFF})) != Ft::kOk) {
        return fail(status);
    }
    I2CReadAll();
    return Ft::kOk;
}

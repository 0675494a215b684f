#pragma once
// One FTDI USB bridge chip with its MPSSE wired as an I2C master: its identity, its settings,
// and the two USB queues. Data that the MPSSE produces waits in the chip until a send-immediate,
// the latency timer or a full USB packet sends it on; a read that finds too little waits the
// read time-out, all through the time seam.

#include "sim/CSimMpsseEngine.h"
#include "sim/ISimI2CTarget.h"
#include "sim/SimFtdiTypes.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <utility>

struct SSimFtdiIdentity {
    std::string serialNumber;
    std::string description;
    uint32_t locationId = 0;
};

class CSimFtdiChip {
public:
    CSimFtdiChip(ISimI2CTarget& target_I, SSimFtdiIdentity identity_I);

    const SSimFtdiIdentity& Identity() const { return mIdentity; }
    bool IsOpen() const { return mOpen; }
    bool Open();
    void Close();

    SimFtStatus ResetDevice();
    SimFtStatus SetUsbParameters(uint32_t inSize_I, uint32_t outSize_I);
    SimFtStatus SetChars(uint8_t event_I, uint8_t eventEnable_I, uint8_t error_I,
                         uint8_t errorEnable_I);
    SimFtStatus Purge(uint32_t mask_I);
    SimFtStatus SetTimeouts(uint32_t readMs_I, uint32_t writeMs_I);
    SimFtStatus SetLatencyTimer(uint8_t milliseconds_I);
    SimFtStatus SetBitMode(uint8_t mask_I, uint8_t mode_I);
    SimFtStatus GetQueueStatus(uint32_t& count_O);
    SimFtStatus Read(uint8_t* buffer_O, uint32_t count_I, uint32_t& read_O);
    SimFtStatus Write(const uint8_t* data_I, uint32_t count_I, uint32_t& written_O);

    // Fault hooks: a chip that has gone from the bus answers every call with an I/O error; a
    // reset can be made to fail a number of times before it works.
    void SetPresent(bool present_I) { mPresent = present_I; }
    // Ties the chip to the display it sits in: a vanished display takes its bridge with it.
    void SetPresenceProbe(std::function<bool()> present_I) {
        mPresenceProbe = std::move(present_I);
    }
    bool IsPresent() const { return mPresent && (!mPresenceProbe || mPresenceProbe()); }
    void FailNextResets(unsigned count_I) { mResetFailures = count_I; }

    const CSimMpsseEngine& Engine() const { return mEngine; }
    uint8_t BitMode() const { return mBitMode; }
    uint8_t LatencyMs() const { return mLatencyMs; }
    uint32_t ReadTimeoutMs() const { return mReadTimeoutMs; }
    uint32_t WriteTimeoutMs() const { return mWriteTimeoutMs; }
    uint32_t InTransferSize() const { return mInTransferSize; }
    uint32_t OutTransferSize() const { return mOutTransferSize; }
    bool EventCharEnabled() const { return mEventCharEnabled; }
    bool ErrorCharEnabled() const { return mErrorCharEnabled; }

private:
    void CollectEngineOutput();
    void SendPendingIfDue(bool wait_I);

    SSimFtdiIdentity mIdentity;
    CSimMpsseEngine mEngine;
    bool mOpen = false;
    bool mPresent = true;
    unsigned mResetFailures = 0;
    uint8_t mBitMode = SimFt::kBitModeReset;
    uint8_t mLatencyMs = 16;
    uint32_t mReadTimeoutMs = 0;
    uint32_t mWriteTimeoutMs = 0;
    uint32_t mInTransferSize = 4096;
    uint32_t mOutTransferSize = 4096;
    bool mEventCharEnabled = false;
    bool mErrorCharEnabled = false;
    // Bytes on their way to the host, and bytes still held in the chip.
    std::deque<uint8_t> mToHost;
    std::deque<uint8_t> mHeld;
    int64_t mHeldSinceNs = 0;
    std::function<bool()> mPresenceProbe;
};

#pragma once
// One simulated display: a model, its serial number, the channels it answers on, its scaler, its
// faults and its I2C slave. The frame-level entry applies the armed faults around the scaler;
// every channel front end goes through it.

#include "sim/CSimFaults.h"
#include "sim/CSimI2CSlave.h"
#include "sim/CSimScaler.h"
#include "sim/ISimFrameTarget.h"
#include "sim/SimModelTable.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

class CSimDisplay final : public ISimFrameTarget {
public:
    // edidNumber_I 0 takes the model's first EDID number.
    CSimDisplay(const SSimModel& model_I, std::string serial_I, SimChannelSet channels_I,
                uint16_t edidNumber_I = 0);
    CSimDisplay(const CSimDisplay&) = delete;
    CSimDisplay& operator=(const CSimDisplay&) = delete;

    const SSimModel& Model() const { return mModel; }
    const std::string& SerialNumber() const { return mScaler.SerialNumber(); }
    uint16_t EdidNumber() const { return mEdidNumber; }
    // USB vendor id in the high half, product id in the low half.
    uint32_t TabletId() const;
    SimChannelSet Channels() const { return mChannels; }
    // Which channels the display answers on; front ends and platforms ask AnswersOn.
    void SetChannels(SimChannelSet channels_I) { mChannels = channels_I; }
    bool AnswersOn(ESimChannel channel_I) const;
    const std::vector<uint8_t>& Edid() const { return mScaler.Edid(); }

    CSimScaler& Scaler() { return mScaler; }
    CSimFaults& Faults() { return mFaults; }
    // The byte-level entry for the buses that reach the scaler over I2C.
    ISimI2CTarget& I2C() { return mSlave; }

    std::vector<uint8_t> Transact(const std::vector<uint8_t>& frame_I) override;

    // For channels that poll a status: true while the scaler is busy with the last request.
    bool PollNotReady();
    // For the I2C slave: the byte index of a write transaction to refuse, if any.
    std::optional<int> TakeNack();

    // The gaps that DDC/CI asks of a host on the video cable: a reply read sooner than
    // replyGapMs_I after its request is not ready yet, and a request sooner than requestGapMs_I
    // after a write (Set VCP Feature, Save Current Settings) is noted as the host's error. 0
    // switches a rule off (the default).
    void SetTimingRules(uint32_t replyGapMs_I, uint32_t requestGapMs_I);

    bool IsPlugged() const;
    void Unplug();
    // Plugged in again: the display has been off, so its values come back from non-volatile
    // memory.
    void Replug();

private:
    std::vector<uint8_t> ApplyReplyFaults(std::vector<uint8_t> reply_I);

    const SSimModel& mModel;
    uint16_t mEdidNumber;
    SimChannelSet mChannels;
    CSimScaler mScaler;
    CSimFaults mFaults;
    CSimI2CSlave mSlave;
    mutable std::mutex mLock;
    bool mPlugged = true;
    int64_t mReadyAtNs = 0;
    uint32_t mReplyGapMs = 0;
    uint32_t mRequestGapMs = 0;
    int64_t mLastRequestNs = 0;
    int64_t mLastWriteNs = 0;
    bool mHadWrite = false;
};

#include "sim/CSimFtdiChip.h"

#include "foundation/TimeSeam.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int64_t kNsPerMs = 1000000;
// USB transfer sizes the chip accepts: whole 64-byte packets up to 64 KiB.
constexpr uint32_t kPacketSize = 64;
constexpr uint32_t kMaxTransferSize = 0x10000;
constexpr uint8_t kDefaultLatencyMs = 16;

bool IsValidTransferSize(uint32_t size_I) {
    return size_I >= kPacketSize && size_I <= kMaxTransferSize && size_I % kPacketSize == 0;
}

} // namespace

CSimFtdiChip::CSimFtdiChip(ISimI2CTarget& target_I, SSimFtdiIdentity identity_I)
    : mIdentity(std::move(identity_I)), mEngine(target_I) {}

bool CSimFtdiChip::Open() {
    if (mOpen || !IsPresent()) {
        return false;
    }
    mOpen = true;
    return true;
}

void CSimFtdiChip::Close() {
    mOpen = false;
    mBitMode = SimFt::kBitModeReset;
    mLatencyMs = kDefaultLatencyMs;
    mToHost.clear();
    mHeld.clear();
    mEngine.Reset();
}

SimFtStatus CSimFtdiChip::ResetDevice() {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    if (mResetFailures > 0) {
        --mResetFailures;
        return SimFt::kIoError;
    }
    mToHost.clear();
    mHeld.clear();
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::SetUsbParameters(uint32_t inSize_I, uint32_t outSize_I) {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    if (!IsValidTransferSize(inSize_I) || (outSize_I != 0 && !IsValidTransferSize(outSize_I))) {
        return SimFt::kInvalidParameter;
    }
    mInTransferSize = inSize_I;
    mOutTransferSize = outSize_I;
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::SetChars(uint8_t event_I, uint8_t eventEnable_I, uint8_t error_I,
                                   uint8_t errorEnable_I) {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    (void)event_I;
    (void)error_I;
    mEventCharEnabled = eventEnable_I != 0;
    mErrorCharEnabled = errorEnable_I != 0;
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::Purge(uint32_t mask_I) {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    if ((mask_I & ~(SimFt::kPurgeRx | SimFt::kPurgeTx)) != 0) {
        return SimFt::kInvalidParameter;
    }
    if ((mask_I & SimFt::kPurgeRx) != 0) {
        CollectEngineOutput();
        mToHost.clear();
        mHeld.clear();
    }
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::SetTimeouts(uint32_t readMs_I, uint32_t writeMs_I) {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    mReadTimeoutMs = readMs_I;
    mWriteTimeoutMs = writeMs_I;
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::SetLatencyTimer(uint8_t milliseconds_I) {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    mLatencyMs = milliseconds_I;
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::SetBitMode(uint8_t mask_I, uint8_t mode_I) {
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    (void)mask_I;
    if (mode_I != SimFt::kBitModeReset && mode_I != SimFt::kBitModeMpsse) {
        return SimFt::kNotSupported;
    }
    mBitMode = mode_I;
    // Either way the MPSSE starts afresh with its pins as inputs.
    mEngine.Reset();
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::GetQueueStatus(uint32_t& count_O) {
    count_O = 0;
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    CollectEngineOutput();
    SendPendingIfDue(false);
    count_O = static_cast<uint32_t>(mToHost.size());
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::Read(uint8_t* buffer_O, uint32_t count_I, uint32_t& read_O) {
    read_O = 0;
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    CollectEngineOutput();
    if (mToHost.size() < count_I) {
        SendPendingIfDue(true);
    }
    if (mToHost.size() < count_I) {
        // Nothing more will come: the read ends at its time-out with what it has.
        SleepMs(mReadTimeoutMs);
    }
    const auto count = static_cast<uint32_t>(std::min<size_t>(count_I, mToHost.size()));
    std::copy_n(mToHost.begin(), count, buffer_O);
    mToHost.erase(mToHost.begin(), mToHost.begin() + count);
    read_O = count;
    return SimFt::kOk;
}

SimFtStatus CSimFtdiChip::Write(const uint8_t* data_I, uint32_t count_I, uint32_t& written_O) {
    written_O = 0;
    if (!IsPresent()) {
        return SimFt::kIoError;
    }
    // Outside MPSSE mode the bytes leave through the UART, where no one listens.
    if (mBitMode == SimFt::kBitModeMpsse) {
        mEngine.Feed(data_I, count_I);
        CollectEngineOutput();
    }
    written_O = count_I;
    return SimFt::kOk;
}

void CSimFtdiChip::CollectEngineOutput() {
    size_t flushed = 0;
    std::vector<uint8_t> output = mEngine.TakeOutput(flushed);
    if (output.empty()) {
        return;
    }
    if (flushed > 0) {
        // A send-immediate pushes all that came before it, held bytes included.
        mToHost.insert(mToHost.end(), mHeld.begin(), mHeld.end());
        mHeld.clear();
        mToHost.insert(mToHost.end(), output.begin(), output.begin() + static_cast<long>(flushed));
    }
    if (flushed < output.size()) {
        if (mHeld.empty()) {
            mHeldSinceNs = MonotonicNs();
        }
        mHeld.insert(mHeld.end(), output.begin() + static_cast<long>(flushed), output.end());
    }
    if (mHeld.size() >= mInTransferSize) {
        mToHost.insert(mToHost.end(), mHeld.begin(), mHeld.end());
        mHeld.clear();
    }
}

void CSimFtdiChip::SendPendingIfDue(bool wait_I) {
    if (mHeld.empty()) {
        return;
    }
    const int64_t dueNs = mHeldSinceNs + static_cast<int64_t>(mLatencyMs) * kNsPerMs;
    const int64_t nowNs = MonotonicNs();
    if (nowNs < dueNs) {
        if (!wait_I) {
            return;
        }
        SleepMs(static_cast<uint32_t>((dueNs - nowNs + kNsPerMs - 1) / kNsPerMs));
    }
    mToHost.insert(mToHost.end(), mHeld.begin(), mHeld.end());
    mHeld.clear();
}

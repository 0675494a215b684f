#include "sim/CSimDisplay.h"

#include "sim/SimFrames.h"

#include "foundation/TimeSeam.h"

#include <algorithm>
#include <string>

namespace {

constexpr int64_t kNsPerMs = 1000000;
constexpr size_t kNullMessageSize = 3;
constexpr uint8_t kFeatureReply = 0x02;
constexpr size_t kFeatureCodeAt = 4;
constexpr size_t kOpcodeAt = 3;
constexpr uint8_t kSetFeature = 0x03;
constexpr uint8_t kSaveSettings = 0x0C;

void Reseal(std::vector<uint8_t>& frame_I) {
    frame_I.back() =
        SimChecksum(std::span<const uint8_t>(frame_I.data(), frame_I.size() - 1), kSimReplySeed);
}

} // namespace

CSimDisplay::CSimDisplay(const SSimModel& model_I, std::string serial_I, SimChannelSet channels_I,
                         uint16_t edidNumber_I)
    : mModel(model_I), mEdidNumber(edidNumber_I != 0 ? edidNumber_I : model_I.edidNumbers[0]),
      mChannels(channels_I), mScaler(model_I, mEdidNumber, std::move(serial_I)), mSlave(*this) {}

uint32_t CSimDisplay::TabletId() const {
    return static_cast<uint32_t>(kSimVendorId) << 16 | mModel.productId;
}

bool CSimDisplay::AnswersOn(ESimChannel channel_I) const {
    return (mChannels & SimChannelBit(channel_I)) != 0;
}

std::vector<uint8_t> CSimDisplay::Transact(const std::vector<uint8_t>& frame_I) {
    std::lock_guard<std::mutex> lock(mLock);
    if (!mPlugged) {
        return {};
    }
    if (mFaults.Take(ESimFault::eUnplug)) {
        mPlugged = false;
        return {};
    }
    const int64_t now = MonotonicNs();
    if (mRequestGapMs != 0 && mHadWrite && now - mLastWriteNs < mRequestGapMs * kNsPerMs) {
        mScaler.ReportHostError("request " + std::to_string((now - mLastWriteNs) / kNsPerMs) +
                                " ms after a write, wants " + std::to_string(mRequestGapMs));
    }
    mLastRequestNs = now;
    const bool isWrite = frame_I.size() > kOpcodeAt &&
                         (frame_I[kOpcodeAt] == kSetFeature || frame_I[kOpcodeAt] == kSaveSettings);
    if (isWrite) {
        mHadWrite = true;
        mLastWriteNs = now;
    }
    std::vector<uint8_t> reply = mScaler.Handle(frame_I);
    const std::optional<int> late = mFaults.Take(ESimFault::eLate);
    mReadyAtNs = late ? now + *late * kNsPerMs : 0;
    if (mReplyGapMs != 0) {
        mReadyAtNs = std::max(mReadyAtNs, now + mReplyGapMs * kNsPerMs);
    }
    if (mFaults.Take(ESimFault::eSilence)) {
        return {};
    }
    return ApplyReplyFaults(std::move(reply));
}

std::vector<uint8_t> CSimDisplay::ApplyReplyFaults(std::vector<uint8_t> reply_I) {
    const bool isFeatureReply = reply_I.size() > kFeatureCodeAt + 1 && reply_I[2] == kFeatureReply;
    if (isFeatureReply && mFaults.Take(ESimFault::eOtherCode)) {
        reply_I[kFeatureCodeAt] = static_cast<uint8_t>(reply_I[kFeatureCodeAt] + 1);
        Reseal(reply_I);
    }
    if (reply_I.size() > kNullMessageSize && mFaults.Take(ESimFault::eNullMessage)) {
        reply_I = SimNullMessage();
    }
    if (const std::optional<int> keep = mFaults.Take(ESimFault::eShortReply)) {
        if (*keep >= 0 && static_cast<size_t>(*keep) < reply_I.size()) {
            reply_I.resize(static_cast<size_t>(*keep));
        }
    }
    if (!reply_I.empty() && mFaults.Take(ESimFault::eBadChecksum)) {
        reply_I.back() = static_cast<uint8_t>(~reply_I.back());
    }
    return reply_I;
}

bool CSimDisplay::PollNotReady() {
    std::lock_guard<std::mutex> lock(mLock);
    if (mReadyAtNs != 0 && MonotonicNs() < mReadyAtNs) {
        if (mReplyGapMs != 0) {
            mScaler.ReportHostError("reply read " +
                                    std::to_string((MonotonicNs() - mLastRequestNs) / kNsPerMs) +
                                    " ms after its request, wants " + std::to_string(mReplyGapMs));
        }
        return true;
    }
    return mFaults.Take(ESimFault::eNotReady).has_value();
}

std::optional<int> CSimDisplay::TakeNack() {
    return mFaults.Take(ESimFault::eNack);
}

void CSimDisplay::SetTimingRules(uint32_t replyGapMs_I, uint32_t requestGapMs_I) {
    std::lock_guard<std::mutex> lock(mLock);
    mReplyGapMs = replyGapMs_I;
    mRequestGapMs = requestGapMs_I;
}

bool CSimDisplay::IsPlugged() const {
    std::lock_guard<std::mutex> lock(mLock);
    return mPlugged;
}

void CSimDisplay::Unplug() {
    std::lock_guard<std::mutex> lock(mLock);
    mPlugged = false;
}

void CSimDisplay::Replug() {
    std::lock_guard<std::mutex> lock(mLock);
    mPlugged = true;
    mReadyAtNs = 0;
    mScaler.PowerCycle();
}

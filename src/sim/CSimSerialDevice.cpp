#include "sim/CSimSerialDevice.h"

#include "foundation/TimeSeam.h"

#include <algorithm>

namespace {

// Ten bits a byte (start, eight data, stop) at 9600 baud.
constexpr int64_t kByteNs = 10LL * 1000000000LL / 9600;
// A pause this long inside a command makes the scaler drop what it has of it.
constexpr int64_t kCommandGapNs = 20LL * 1000000;

constexpr uint8_t kDisplayAddress = 0x6E;
constexpr uint8_t kPrivateEdid = 0xA0;
constexpr uint8_t kScalerReset = 0xEE;
constexpr size_t kPrivateEdidSize = 2; // A0 00
constexpr size_t kScalerResetSize = 6; // EE 05 11 00 00 EA
constexpr size_t kFrameOverhead = 4;   // address, source, length, check byte
constexpr size_t kReplyOverhead = 3;   // address, length, check byte
constexpr size_t kNullMessageSize = 3;

} // namespace

CSimSerialDevice::CSimSerialDevice(ISimFrameTarget& target_I) : mTarget(target_I) {}

bool CSimSerialDevice::Write(const uint8_t* data_I, size_t size_I) {
    if (!IsPlugged()) {
        return false;
    }
    if (!(mHostSettings == SSimSerialSettings{})) {
        mHostErrors.push_back("bytes sent with a line setting other than 9600 8N1");
        return true;
    }
    const int64_t startNs = MonotonicNs();
    if (!mReceived.empty() && startNs - mLastByteNs > kCommandGapNs) {
        mHostErrors.push_back("incomplete command of " + std::to_string(mReceived.size()) +
                              " bytes dropped");
        mReceived.clear();
    }
    mLastByteNs = startNs + static_cast<int64_t>(size_I) * kByteNs;
    mReceived.insert(mReceived.end(), data_I, data_I + size_I);
    TakeCommands(mLastByteNs);
    return true;
}

size_t CSimSerialDevice::CommandSize() const {
    switch (mReceived[0]) {
    case kDisplayAddress:
        return mReceived.size() < 3 ? SIZE_MAX : kFrameOverhead + (mReceived[2] & 0x7F);
    case kPrivateEdid:
        return kPrivateEdidSize;
    case kScalerReset:
        return kScalerResetSize;
    default:
        return 0;
    }
}

void CSimSerialDevice::TakeCommands(int64_t lastByteNs_I) {
    while (!mReceived.empty()) {
        const size_t size = CommandSize();
        if (size == 0) {
            mHostErrors.push_back("stray byte " + std::to_string(mReceived[0]));
            mReceived.erase(mReceived.begin());
            continue;
        }
        if (size > mReceived.size()) {
            return;
        }
        const std::vector<uint8_t> frame(mReceived.begin(),
                                         mReceived.begin() + static_cast<long>(size));
        mReceived.erase(mReceived.begin(), mReceived.begin() + static_cast<long>(size));
        ++mFramesHandled;
        std::vector<uint8_t> reply = mTarget.Transact(frame);
        if (mSilent) {
            reply.clear();
        }
        // This wire carries no check byte: a reply frame goes out without it, and the host
        // counts on 32 text bytes behind a fragment's five-byte header. The null message is a
        // fixed answer and goes out whole.
        const bool isFrame = reply.size() > kNullMessageSize && reply[0] == kDisplayAddress &&
                             reply.size() == (reply[1] & 0x7Fu) + kReplyOverhead;
        if (isFrame) {
            reply.pop_back();
        }
        // A new request ends whatever was still being sent.
        mReply = std::move(reply);
        mReplyRead = 0;
        mReplyStartNs = lastByteNs_I;
    }
}

size_t CSimSerialDevice::Available() const {
    const int64_t elapsed = MonotonicNs() - mReplyStartNs;
    const auto sent =
        elapsed <= 0 ? size_t{0} : std::min(mReply.size(), static_cast<size_t>(elapsed / kByteNs));
    return sent > mReplyRead ? sent - mReplyRead : 0;
}

int CSimSerialDevice::Read(uint8_t* buffer_O, size_t max_I) {
    if (!IsPlugged()) {
        return -1;
    }
    const size_t count = std::min(max_I, Available());
    std::copy_n(mReply.begin() + static_cast<long>(mReplyRead), count, buffer_O);
    mReplyRead += count;
    return static_cast<int>(count);
}

void CSimSerialDevice::Purge() {
    mReply.clear();
    mReplyRead = 0;
}

#include "channels/CI2CBusConnectorDP.h"

#include "ddc/VcpCodes.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"

#include <algorithm>

namespace {

constexpr uint8_t kReplyAddress7 = kDisplayAddress >> 1;
// The longest reply of a DDC/CI request: a capability fragment of 32 bytes behind its header,
// with its check byte.
constexpr unsigned kLongestFragment = 38;
constexpr size_t kOpcodeAt = 3;
constexpr int64_t kNsPerMs = 1000000;

bool IsWriteCommand(const ByteVector& frame_I) {
    return frame_I.size() > kOpcodeAt && (frame_I[kOpcodeAt] == ddcCC_SetVCPFeatureRequest ||
                                          frame_I[kOpcodeAt] == ddcCC_SaveCurrentSettingsRequest);
}

} // namespace

CI2CBusConnectorDP::~CI2CBusConnectorDP() {
    CI2CBusConnectorDP::Close();
}

bool CI2CBusConnectorDP::OpenBus(std::unique_ptr<II2CBus> bus_I) {
    mBus = std::move(bus_I);
    mHandle = reinterpret_cast<uintptr_t>(mBus.get());
    mLastWasWrite = false;
    return IsOpen();
}

bool CI2CBusConnectorDP::Close() {
    mBus.reset();
    mHandle = 0;
    return CI2CConnectorDP::Close();
}

void CI2CBusConnectorDP::WaitForWriteGap() {
    if (!mLastWasWrite) {
        return;
    }
    const int64_t readyNs = mLastRequestNs + kWriteGapMs * kNsPerMs;
    const int64_t nowNs = MonotonicNs();
    if (nowNs < readyNs) {
        SleepMs(static_cast<uint32_t>((readyNs - nowNs + kNsPerMs - 1) / kNsPerMs));
    }
}

ByteVector CI2CBusConnectorDP::SendRequest(const ByteVector& toSend_I, double delay,
                                           unsigned expectedSize_I, int /*retries*/) {
    if (!IsOpen() || toSend_I.size() < 2) {
        return {};
    }
    WaitForWriteGap();
    const ByteVector data(toSend_I.begin() + 1, toSend_I.end());
    const bool written = mBus->Write(static_cast<uint8_t>(toSend_I[0] >> 1), data);
    mLastRequestNs = MonotonicNs();
    mLastWasWrite = IsWriteCommand(toSend_I);
    if (!written) {
        Trace("CI2CBusConnectorDP::SendRequest: write refused\n");
        return {};
    }
    SleepMs(std::max(static_cast<uint32_t>(delay * 1000.0), kReplyGapMs));

    ByteVector reply(std::max(expectedSize_I, kLongestFragment), 0x00);
    if (!mBus->Read(kReplyAddress7, reply)) {
        Trace("CI2CBusConnectorDP::SendRequest: read refused\n");
        return {};
    }
    // Anything but the display's address in front is no frame: a busy or absent scaler.
    if (reply.size() < 2 || reply[0] != kDisplayAddress) {
        return {};
    }
    reply.resize(std::min(reply.size(), static_cast<size_t>((reply[1] & 0x7F) + 3)));
    return reply;
}

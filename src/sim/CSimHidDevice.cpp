#include "sim/CSimHidDevice.h"

#include <algorithm>
#include <utility>

namespace {

// Report layout, by byte.
constexpr size_t kSubId = 1;
constexpr size_t kKind = 2;
constexpr size_t kStatus = 4;
constexpr size_t kFrame = 5;      // request frame, from its destination byte on
constexpr size_t kReplyFrame = 6; // reply frame, from its source byte on

constexpr uint8_t kSubIdValue = 0x04;
constexpr uint8_t kKindStatus = 0x00;
constexpr uint8_t kKindWrite = 0x02;
constexpr uint8_t kKindRead = 0x03;

constexpr uint8_t kDisplayAddress = 0x6E;
constexpr uint8_t kHostAddress = 0x51;

// DDC/CI operations that the firmware expects as a read or as a write.
constexpr uint8_t kOpGetFeature = 0x01;
constexpr uint8_t kOpSetFeature = 0x03;
constexpr uint8_t kOpSave = 0x0C;
constexpr uint8_t kOpCapabilities = 0xF3;

} // namespace

CSimHidDevice::CSimHidDevice(ISimFrameTarget& target_I, SSimHidIdentity identity_I)
    : mTarget(target_I), mIdentity(std::move(identity_I)) {}

bool CSimHidDevice::Open() {
    if (!Present() || mHeldExclusively) {
        return false;
    }
    ++mOpenCount;
    return true;
}

void CSimHidDevice::Close() {
    if (mOpenCount > 0) {
        --mOpenCount;
    }
}

void CSimHidDevice::SetNotReadyPolls(unsigned polls_I, uint8_t code_I) {
    mNotReadyPolls = polls_I;
    mNotReadyCode = code_I;
    mNotReadyLeft = polls_I;
}

bool CSimHidDevice::Refuse(std::string text_I) {
    mHostErrors.push_back(std::move(text_I));
    return false;
}

bool CSimHidDevice::SetFeature(const std::vector<uint8_t>& report_I) {
    if (!Present()) {
        return false;
    }
    if (report_I.size() != kReportSize) {
        return Refuse("feature report of " + std::to_string(report_I.size()) + " bytes");
    }
    if (report_I[0] != kReportId || report_I[kSubId] != kSubIdValue) {
        return Refuse("unknown feature report " + std::to_string(report_I[0]) + "/" +
                      std::to_string(report_I[kSubId]));
    }
    const uint8_t kind = report_I[kKind];
    if (kind == kKindStatus) {
        return true;
    }
    if (kind != kKindRead && kind != kKindWrite) {
        return Refuse("unknown request kind " + std::to_string(kind));
    }
    HandleRequest(kind, report_I);
    return true;
}

void CSimHidDevice::HandleRequest(uint8_t kind_I, const std::vector<uint8_t>& report_I) {
    ++mRequests;
    mLastKind = kind_I;
    mHasRequest = true;
    mNotReadyLeft = mNotReadyPolls;
    mReply.clear();
    if (report_I[kFrame] != kDisplayAddress || report_I[kFrame + 1] != kHostAddress) {
        mHostErrors.push_back("request without the 6E 51 frame head");
        return;
    }
    const size_t frameSize =
        std::min<size_t>(4 + (report_I[kFrame + 2] & 0x7F), kReportSize - kFrame);
    const std::vector<uint8_t> frame(report_I.begin() + kFrame,
                                     report_I.begin() + static_cast<long>(kFrame + frameSize));
    if (frame.size() > 3) {
        const uint8_t op = frame[3];
        const bool isRead = op == kOpGetFeature || op == kOpCapabilities;
        const bool isWrite = op == kOpSetFeature || op == kOpSave;
        if ((isRead && kind_I != kKindRead) || (isWrite && kind_I != kKindWrite)) {
            mHostErrors.push_back("operation " + std::to_string(op) + " sent as request kind " +
                                  std::to_string(kind_I));
        }
    }
    mReply = mTarget.Transact(frame);
    if (mReply.size() > kReportSize - kReplyFrame) {
        mReply.resize(kReportSize - kReplyFrame);
    }
}

bool CSimHidDevice::GetFeature(std::vector<uint8_t>& report_IO) {
    if (!Present()) {
        return false;
    }
    if (report_IO.size() != kReportSize) {
        return Refuse("feature report buffer of " + std::to_string(report_IO.size()) + " bytes");
    }
    if (report_IO[0] != kReportId) {
        return Refuse("unknown feature report " + std::to_string(report_IO[0]));
    }
    ++mStatusPolls;
    std::fill(report_IO.begin(), report_IO.end(), 0);
    report_IO[0] = kReportId;
    report_IO[kSubId] = kSubIdValue;
    report_IO[kKind] = mLastKind;
    if (mHasRequest && mNotReadyLeft > 0) {
        if (mNotReadyLeft != kForever) {
            --mNotReadyLeft;
        }
        report_IO[kStatus] = mNotReadyCode;
        return true;
    }
    if (mHasRequest && mBusyProbe && mBusyProbe()) {
        report_IO[kStatus] = mNotReadyCode;
        return true;
    }
    report_IO[kStatus] = mHasRequest && mReply.empty() ? kStatusNoReply : kStatusDone;
    std::copy(mReply.begin(), mReply.end(), report_IO.begin() + kReplyFrame);
    return true;
}

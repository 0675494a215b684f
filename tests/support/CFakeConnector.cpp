#include "support/CFakeConnector.h"

#include "ddc/VcpCodes.h"

void CFakeConnector::QueueReply(ByteVector reply_I) {
    mScript.push_back(std::move(reply_I));
}

void CFakeConnector::QueueReplies(const std::vector<ByteVector>& replies_I) {
    mScript.insert(mScript.end(), replies_I.begin(), replies_I.end());
}

void CFakeConnector::SetVcp(uint8_t code_I, uint16_t current_I, uint16_t maximum_I) {
    mVcp[code_I] = SFakeVcpEntry{current_I, maximum_I};
}

std::optional<SFakeVcpEntry> CFakeConnector::Vcp(uint8_t code_I) const {
    const auto found = mVcp.find(code_I);
    if (found == mVcp.end()) {
        return std::nullopt;
    }
    return found->second;
}

bool CFakeConnector::Open(const std::string&) {
    mOpen = true;
    return true;
}

bool CFakeConnector::Open(long) {
    mOpen = true;
    return true;
}

bool CFakeConnector::Close() {
    ++mCloseCount;
    mOpen = false;
    return Connector::Close();
}

ByteVector CFakeConnector::SendRequest(const ByteVector& toSend_I, double delay,
                                       unsigned expectedSize_I, int retries) {
    mSent.push_back(SSentRequest{toSend_I, delay, expectedSize_I, retries});
    if (!mOpen) {
        return {};
    }
    if (!mScript.empty()) {
        mLastScripted = std::move(mScript.front());
        mScript.pop_front();
        return *mLastScripted;
    }
    if (mRepeatLast && mLastScripted) {
        return *mLastScripted;
    }
    return AnswerFromTable(toSend_I);
}

ByteVector CFakeConnector::AnswerFromTable(const ByteVector& request_I) {
    if (request_I.size() < 5 || request_I[0] != kDisplayAddress || request_I[1] != kHostAddress) {
        return {};
    }
    const uint8_t command = request_I[3];
    const uint8_t code = request_I[4];
    if (command == ddcCC_GetVCPFeatureRequest) {
        const auto found = mVcp.find(code);
        if (found == mVcp.end()) {
            return BuildReplyFrame({ddcCC_VCPReplyCode, 0x01, code, 0x00, 0x00, 0x00, 0x00, 0x00});
        }
        return BuildSimulatedResponse(ddcCC_GetVCPFeatureRequest, code, found->second.current,
                                      found->second.maximum);
    }
    if (command == ddcCC_SetVCPFeatureRequest && request_I.size() >= 8) {
        const auto found = mVcp.find(code);
        if (found != mVcp.end()) {
            found->second.current = static_cast<uint16_t>((request_I[5] << 8) | request_I[6]);
        }
        return BuildNullMessage();
    }
    if (command == ddcCC_SaveCurrentSettingsRequest) {
        ++mSaveCount;
        return BuildNullMessage();
    }
    return {};
}

ByteVector CFakeConnector::ReadEDID(uint32_t sid_I) {
    mEdidReads.push_back(sid_I);
    return mEdidSource;
}

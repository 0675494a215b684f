#pragma once
// A scriptable connector for tests. It records every request with its delay, expected size and
// retries, and answers from a queue of scripted replies first and, once the queue is empty,
// from a small VCP table the way a scaler would.

#include "ddc/Connector.h"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct SSentRequest {
    ByteVector frame;
    double delay = 0.0;
    unsigned expectedSize = 0;
    int retries = 0;
};

struct SFakeVcpEntry {
    uint16_t current = 0;
    uint16_t maximum = 0;
};

class CFakeConnector : public Connector {
public:
    // Scripted replies, given one per request in order; an empty vector is a lost reply.
    void QueueReply(ByteVector reply_I);
    void QueueReplies(const std::vector<ByteVector>& replies_I);
    size_t PendingReplies() const { return mScript.size(); }

    // A feature of the table: Get VCP Feature reads it, Set VCP Feature changes its value.
    // Codes outside the table are refused with result code 1.
    void SetVcp(uint8_t code_I, uint16_t current_I, uint16_t maximum_I);
    std::optional<SFakeVcpEntry> Vcp(uint8_t code_I) const;
    // Save Current Settings requests answered from the table.
    int SaveCount() const { return mSaveCount; }

    const std::vector<SSentRequest>& Sent() const { return mSent; }
    void ClearSent() { mSent.clear(); }

    // What ReadEDID returns, and the identifiers it was asked with.
    void SetEDID(ByteVector edid_I) { mEdidSource = std::move(edid_I); }
    const std::vector<uint32_t>& EDIDReads() const { return mEdidReads; }
    const ByteVector& CachedEDID() const { return mEDID; }

    void SetCapabilities(std::string capabilities_I) { mCapabilities = std::move(capabilities_I); }
    void SetFirmware(FileVersion version_I) { mFirmware = version_I; }
    void SetConnectorType(int type_I) { mType = type_I; }
    // A closed fake still records requests but answers none of them.
    void SetOpen(bool open_I) { mOpen = open_I; }
    int CloseCount() const { return mCloseCount; }

    using Connector::ReadCapabilitiesPrivate;
    using Connector::ReadCapabilitiesStandard;

    bool IsUsable() override { return true; }
    int ConnectorType() override { return mType; }
    bool Open(const std::string& port_I) override;
    bool Open(long device_I) override;
    bool Close() override;
    bool IsOpen() override { return mOpen; }
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;
    std::string CapabilitiesString() override { return mCapabilities; }
    FileVersion FWVersion() override { return mFirmware; }
    ByteVector ReadEDID(uint32_t sid_I) override;

private:
    ByteVector AnswerFromTable(const ByteVector& request_I);

    std::deque<ByteVector> mScript;
    std::map<uint8_t, SFakeVcpEntry> mVcp;
    std::vector<SSentRequest> mSent;
    ByteVector mEdidSource;
    std::vector<uint32_t> mEdidReads;
    std::string mCapabilities;
    FileVersion mFirmware;
    int mType = eConnectorType_FTDI;
    bool mOpen = true;
    int mSaveCount = 0;
    int mCloseCount = 0;
};

#pragma once
// The frame layer of the video channel over a raw I2C bus: a request goes out from its second
// byte on to the address its first byte names, the reply is read from the display's address and
// cut to the size its length byte gives. The host keeps DDC/CI's timing on this bus.

#include "channels/CI2CConnectorDP.h"
#include "channels/II2CBus.h"

#include <cstdint>
#include <memory>

class CI2CBusConnectorDP : public CI2CConnectorDP {
public:
    // At least this long between a request and reading its reply.
    static constexpr uint32_t kReplyGapMs = 40;
    // At least this long after a write command before the next request.
    static constexpr uint32_t kWriteGapMs = 50;

    ~CI2CBusConnectorDP() override;

    // Takes the bus; the connector is open while it holds one.
    bool OpenBus(std::unique_ptr<II2CBus> bus_I);
    // Gives the bus up, and the EDID and version with it.
    bool Close() override;

    // delay is waited, at least the reply gap, before the reply is read; expectedSize_I bytes
    // are read, at least one whole capability fragment; retries is ignored.
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;

private:
    void WaitForWriteGap();

    std::unique_ptr<II2CBus> mBus;
    bool mLastWasWrite = false;
    int64_t mLastRequestNs = 0;
};

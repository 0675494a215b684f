#pragma once
// A channel whose display's lasting facts are known: it answers the capability string, the
// name and the firmware version from them and passes everything else to the real channel. A
// session started on it reads exactly what a full start reads, without the exchanges.

#include "ddc/Connector.h"
#include "discovery/DisplayFacts.h"

#include <memory>

class CFactsConnector final : public Connector {
public:
    CFactsConnector(std::shared_ptr<Connector> channel_I, SDisplayFacts facts_I);

    bool IsUsable() override { return mChannel->IsUsable(); }
    int ConnectorType() override { return mChannel->ConnectorType(); }
    bool Open(const std::string& port_I) override { return mChannel->Open(port_I); }
    bool Open(long device_I) override { return mChannel->Open(device_I); }
    bool Close() override { return mChannel->Close(); }
    bool IsOpen() override { return mChannel->IsOpen(); }
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override {
        return mChannel->SendRequest(toSend_I, delay, expectedSize_I, retries);
    }
    std::string CapabilitiesString() override { return mFacts.capabilities; }
    std::string MonitorName() override { return mFacts.monitorName; }
    std::string SerialNumber(uint32_t sid_I) override { return mChannel->SerialNumber(sid_I); }
    FileVersion FWVersion() override { return mFacts.firmware; }
    ByteVector ReadEDID(uint32_t sid_I) override { return mChannel->ReadEDID(sid_I); }

private:
    std::shared_ptr<Connector> mChannel;
    SDisplayFacts mFacts;
};

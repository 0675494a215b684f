#pragma once
// The video channel of one monitor record: the DDC/CI frame layer over the bus the platform
// opens for the record's monitor. Name, serial number and EDID come from the record, without
// traffic; the text of the last capability failure stays for discovery's report.

#include "channels/CI2CBusConnectorDP.h"
#include "discovery/SDisplayInfo.h"

#include <functional>
#include <memory>
#include <string>

// Opens the DDC bus of a record's monitor (its monitorHandle); null when it can't.
using MonitorBusOpener = std::function<std::unique_ptr<II2CBus>(const SDisplayInfo&)>;

class CMonitorConnectorDP : public CI2CBusConnectorDP {
public:
    explicit CMonitorConnectorDP(MonitorBusOpener openBus_I);

    // Takes a copy of a complete record and opens its monitor's bus; false for an incomplete
    // record or a bus that can't be opened.
    virtual bool OpenDisplayInfo(const SDisplayInfo& info_I);
    // Gives the bus up and forgets all of the record but its EDID.
    bool Close() override;
    bool IsOpen() override;

    // Keeps the reason when no capability string comes.
    std::string CapabilitiesString() override;
    std::string MonitorName() override;
    std::string SerialNumber(uint32_t sid_I) override;
    ByteVector ReadEDID(uint32_t sid_I) override;

    const std::string& LastCapsError() const { return mLastCapsError; }

protected:
    std::string mLastCapsError;

private:
    MonitorBusOpener mOpenBus;
    SDisplayInfo mDisplayInfo;
};

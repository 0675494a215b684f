#pragma once
// The frame layer of the video channel: DDC/CI frames for capabilities, firmware version, EDID
// and factory mode. A child supplies SendRequest over whatever carries the frames, and sets the
// handle that says the channel is open.

#include "ddc/Connector.h"

#include <cstdint>

class CI2CConnectorDP : public Connector {
public:
    bool IsUsable() override { return true; }
    int ConnectorType() override { return eConnectorType_DisplayPort; }
    bool Open(const std::string& port_I) override;
    bool Open(long device_I) override;
    bool Close() override;
    bool IsOpen() override { return mHandle != 0; }
    // The private table read first, then the standard loop.
    std::string CapabilitiesString() override;
    FileVersion FWVersion() override;
    // Sixteen chunks read in factory mode; sid_I is not needed on this channel.
    ByteVector ReadEDID(uint32_t sid_I) override;

    // Factory mode brackets the EDID chunk reads.
    void SetFactoryMode(bool on_I);

protected:
    // Nonzero while the child holds its channel.
    uintptr_t mHandle = 0;
};

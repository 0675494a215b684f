#pragma once
// The scaler behind a USB serial port: DDC/CI frames as plain bytes at 9600 baud. The wire
// carries no check byte back, so the connector appends one to each reply; the capability text
// comes in 32-byte fragments that end when the parentheses balance, and the EDID through the
// channel's own command A0 00.

#include "channels/ISerialPort.h"
#include "ddc/Connector.h"

#include <memory>

class CUSBConnector : public Connector {
public:
    // port_I is the transport; the connector opens and closes it.
    explicit CUSBConnector(std::unique_ptr<ISerialPort> port_I);
    ~CUSBConnector() override;

    bool IsUsable() override { return true; }
    int ConnectorType() override { return eConnectorType_Serial; }
    // Opens the port of that name at 9600 8N1 with reads that end after 10 ms of silence.
    bool Open(const std::string& port_I) override;
    bool Open(long device_I) override;
    // Closes the port; the EDID stays.
    bool Close() override;
    bool IsOpen() override { return mPortOpen; }
    // Reads until the line is quiet and appends the reply's check byte; retries is ignored.
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;
    std::string CapabilitiesString() override;
    // No firmware query on this channel: the zero version, with no traffic.
    FileVersion FWVersion() override { return {}; }
    ByteVector ReadEDID(uint32_t sid_I) override;

private:
    void ClosePort();

    std::unique_ptr<ISerialPort> mPort;
    bool mPortOpen = false;
    SSerialSettings mSettings;
    SSerialTimeouts mTimeouts;
};

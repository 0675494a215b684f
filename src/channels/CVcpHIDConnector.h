#pragma once
// The scaler's vendor HID channel: a DDC/CI request travels inside feature report 0xE5, a status
// report is polled until the firmware is done, and the values are picked out of it into a reply
// frame built as if the scaler had sent it. A child supplies the device operations. Capability
// string, name, serial number and firmware version are read once and kept.

#include "ddc/Connector.h"
#include "ddc/ReplyFrames.h"

#include <cstdint>
#include <string>

class CVcpHIDConnector : public Connector {
public:
    // Feature reports are this long on the wire, report id included.
    static constexpr size_t kReportSize = 512;

    bool IsUsable() override { return true; }
    int ConnectorType() override { return eConnectorType_HID; }
    // The device path.
    bool Open(const std::string& port_I) override;
    bool Open(long device_I) override;
    // Drops the cached reads.
    bool Close() override;
    bool IsOpen() override;
    // Get, Set VCP Feature and Save Current Settings only; delay, expectedSize_I and retries
    // are ignored.
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;
    std::string CapabilitiesString() override;
    // The 13 name bytes of the DisplayInformation record, untrimmed.
    std::string MonitorName() override;
    // The 13 serial number bytes of the DisplayInformation record; sid_I is not needed.
    std::string SerialNumber(uint32_t sid_I) override;
    FileVersion FWVersion() override;
    // Not available on this channel.
    ByteVector ReadEDID(uint32_t sid_I) override;

    // The device operations of a child. Both feature calls take the report id in byte 0 and
    // pad the buffer to a whole report.
    virtual bool OpenHIDDevice(const std::string& path_I);
    virtual bool CloseHIDDevice();
    virtual bool SetFeature(ByteVector& buffer_IO);
    virtual bool GetFeature(ByteVector& buffer_IO);

    // A DDC/CI request frame of kind 1 (read a), 3 (write a with b c) or 0xF3 (capabilities at
    // offset b c); empty for any other kind.
    static ByteVector BuildCommand(int kind_I, uint8_t a_I, uint8_t b_I, uint8_t c_I);

    // One transaction of kind 3 (read) or 2 (write): the request, then up to four status polls.
    // The last status report, ready or not; empty when the request could not be sent.
    ByteVector SubmitRequest(const ByteVector& cmdbuf_I, int kind_I);
    // One status poll; on a failure the short request buffer itself.
    ByteVector GetStatus();

private:
    // The 13 bytes at at_I of the DisplayInformation record's status report.
    std::string ReadInformationText(EInformationText text_I, const char* failure_I);

    std::string mCapabilities;
    std::string mMonitorName;
    std::string mSerialNumber;
    FileVersion mFirmwareVersion;
};

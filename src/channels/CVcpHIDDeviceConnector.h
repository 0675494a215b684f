#pragma once
// The HID channel over one HID device: the device operations that the channel's logic needs,
// with their checks, whole 512-byte reports and traces. A closed connector still answers from
// what it has read.

#include "channels/CVcpHIDConnector.h"
#include "channels/IHidDevice.h"

#include <memory>

class CVcpHIDDeviceConnector : public CVcpHIDConnector {
public:
    explicit CVcpHIDDeviceConnector(std::unique_ptr<IHidDevice> device_I);
    ~CVcpHIDDeviceConnector() override;

    // Closes the device and keeps the cached reads.
    bool Close() override;
    bool IsOpen() override { return mDeviceOpen; }

    bool OpenHIDDevice(const std::string& path_I) override;
    bool CloseHIDDevice() override;
    bool SetFeature(ByteVector& buffer_IO) override;
    bool GetFeature(ByteVector& buffer_IO) override;

private:
    std::unique_ptr<IHidDevice> mDevice;
    bool mDeviceOpen = false;
};

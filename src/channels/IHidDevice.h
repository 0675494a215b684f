#pragma once
// One HID device as the HID channel needs it: opened by path, with feature reports sent and
// fetched whole, report id in byte 0. hidapi on Linux and test devices implement it.

#include "ddc/Frames.h"

#include <cstdint>
#include <string>

class IHidDevice {
public:
    virtual ~IHidDevice() = default;
    // false with LastError set, for instance while another process holds the device.
    virtual bool Open(const std::string& path_I) = 0;
    virtual void Close() = 0;
    virtual bool SetFeature(const ByteVector& report_I) = 0;
    // The report id goes in byte 0; the report comes back in the buffer.
    virtual bool GetFeature(ByteVector& report_IO) = 0;
    virtual uint32_t LastError() = 0;
};

#pragma once
// A HID device through hidapi's hidraw backend: opened by its hidraw path, feature reports
// sent and fetched whole with the report id in byte 0.

#include "channels/IHidDevice.h"

#include <string>
#include <vector>

struct hid_device_;

// The usage page of the scaler's vendor-defined HID interface.
constexpr uint16_t kScalerHidUsagePage = 0xFFD1;

// The paths of all HID interfaces on that usage page, in hidapi's order.
std::vector<std::string> FindScalerHidPaths();

class CLinuxHidDevice final : public IHidDevice {
public:
    CLinuxHidDevice() = default;
    ~CLinuxHidDevice() override;
    CLinuxHidDevice(const CLinuxHidDevice&) = delete;
    CLinuxHidDevice& operator=(const CLinuxHidDevice&) = delete;

    bool Open(const std::string& path_I) override;
    void Close() override;
    bool SetFeature(const ByteVector& report_I) override;
    bool GetFeature(ByteVector& report_IO) override;
    // The errno of the last failing call.
    uint32_t LastError() override { return mError; }

private:
    bool Fail();

    hid_device_* mDevice = nullptr;
    uint32_t mError = 0;
};

#pragma once
// One supported monitor as discovery found it: what its EDID says, which model it is, and the
// display object once a channel to its scaler is proven. Records are values; only the display
// object is shared.

#include "ddc/Frames.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

class UiDisplayDelegate;

struct SDisplayInfo {
    // A fresh record's EDID buffer, whatever the real block size.
    static constexpr size_t kEdidBufferSize = 512;

    // The monitor device's identity in upper case: its hardware id, a backslash and the
    // platform's key of the device (MONITOR\VRX1041\CARD0-DP-1). Empty when the key could not
    // be read.
    std::wstring deviceID;
    // The EDID's monitor-name and serial-number descriptors.
    std::wstring monitorName;
    std::wstring serialNumber;
    // The product's model number from the resources.
    std::wstring modelNumber;
    // The product code behind \VRX in deviceID.
    uint16_t edidNumber = 0;
    // Null until a channel is proven.
    std::shared_ptr<UiDisplayDelegate> display;
    // The platform's handle of the desktop monitor (the DDC bus node on Linux); empty until the
    // platform has found the monitor.
    std::string monitorHandle;
    ByteVector edid = ByteVector(kEdidBufferSize, 0x00);

    const std::wstring& DeviceID() const { return deviceID; }

    // All that the video channel needs: identity, names, model, product code and handle.
    bool IsComplete() const {
        return !deviceID.empty() && !monitorName.empty() && !serialNumber.empty() &&
               !modelNumber.empty() && edidNumber != 0 && !monitorHandle.empty();
    }
};

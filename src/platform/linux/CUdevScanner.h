#pragma once
// What udev knows of the family's channels: the display connectors that have a monitor with
// an EDID, each with the i2c-dev node of its DDC bus, and the ttys whose USB parent is known.

#include "ddc/Frames.h"

#include <cstdint>
#include <string>
#include <vector>

struct SUdevMonitor {
    // The connector's kernel name, such as card0-DP-1.
    std::string connectorName;
    ByteVector edid;
    // /dev/i2c-N of the connector's DDC bus; empty when the kernel offers none.
    std::string i2cNode;
    // "connected", "disconnected" or "unknown", as the kernel says.
    std::string status;
};

struct SUdevHidraw {
    std::string devNode;
    uint16_t vendorId = 0;
    uint16_t productId = 0;
    ByteVector reportDescriptor;
};

struct SUdevUsbDevice {
    std::string name; // the kernel's, such as 1-2
    uint16_t vendorId = 0;
    uint16_t productId = 0;
};

struct SUdevSerialPort {
    std::string devNode;
    uint16_t vendorId = 0;
    uint16_t productId = 0;
};

class CUdevScanner {
public:
    // Connected drm connectors with a non-empty EDID, in udev's order.
    static std::vector<SUdevMonitor> ConnectedMonitors();
    // Every drm connector, whatever its status and EDID.
    static std::vector<SUdevMonitor> Connectors();
    // The device nodes of i2c-dev, /dev/i2c-N.
    static std::vector<std::string> I2CDevNodes();
    // hidraw nodes with the USB ids and report descriptor of their HID device.
    static std::vector<SUdevHidraw> Hidraws();
    static std::vector<SUdevUsbDevice> UsbDevices();
    // ttys with a device node and a USB device above them, in udev's order.
    static std::vector<SUdevSerialPort> UsbSerialPorts();
};

#pragma once
// The platform of a Linux desktop: monitors are udev's connected DRM connectors with their
// EDID and DDC bus (i2c-dev), the HID channel is hidapi's hidraw backend, serial ports are
// udev's ttys of the family's USB serial bridge, and the bridge libraries are bound by name.

#include "discovery/IDisplayPlatform.h"

#include <string>

struct SLinuxPlatformFiles {
    std::string sysVendor = "/sys/class/dmi/id/sys_vendor";
    std::wstring ftdiLibrary = L"libftd2xx.so";
    std::wstring ftdiOpenLibrary = L"libftdi1.so.2";
    std::wstring tiLibrary = L"libTUSB3x10_I2C_API.so";
};

class CLinuxPlatform final : public IDisplayPlatform {
public:
    explicit CLinuxPlatform(SLinuxPlatformFiles files_I = {});

    std::vector<SMonitorSource> ListMonitors() override;
    bool RefreshMonitor(SDisplayInfo& info_IO) override;
    // Null when the node can't be opened; LastBusError then says why, for the user.
    std::unique_ptr<II2CBus> OpenMonitorBus(const SDisplayInfo& info_I) override;

    std::vector<std::string> ListHidChannels() override;
    std::unique_ptr<IHidDevice> MakeHidDevice() override;

    std::vector<std::string> ListSerialPorts() override;
    std::unique_ptr<ISerialPort> MakeSerialPort() override;

    // FTDI's own library when it is installed, else libftdi1 given the same meaning.
    std::shared_ptr<IFtdiApi> FtdiApi() override;
    std::shared_ptr<ITIBridgeApi> TiApi() override;

    bool IsMakerSystem() override;

    // The text of the last failed OpenMonitorBus, empty after a success.
    const std::string& LastBusError() const { return mLastBusError; }

    // MONITOR\ with the EDID's maker id and product code (MONITOR\VRX1041); empty for an EDID
    // too short to hold them.
    static std::string HardwareIdOfEdid(const ByteVector& edid_I);

private:
    SLinuxPlatformFiles mFiles;
    std::string mLastBusError;
};

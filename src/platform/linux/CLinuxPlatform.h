#pragma once
// The platform of a Linux desktop: monitors are udev's connected DRM connectors with their
// EDID and DDC bus (i2c-dev), the HID channel is hidapi's hidraw backend, serial ports are
// udev's ttys of the family's USB serial bridge, and the bridge libraries are bound by name.

#include "channels/CFTDIExAPI32.h"
#include "channels/CTIExAPI32.h"
#include "discovery/IDisplayPlatform.h"
#include "platform/linux/CLibFtdi1Api.h"
#include "platform/linux/CUdevHotplugMonitor.h"
#include "platform/linux/LinuxSystemServices.h"

#include <string>
#include <vector>

// Where the platform looks for the system maker and the bridge libraries.
struct SLinuxPlatformFiles {
    std::string sysVendor = LinuxUtils::kSysVendorPath;
    std::wstring ftdiLibrary = CFTDIExAPI32::kLibraryName;
    std::wstring ftdiOpenLibrary = CLibFtdi1Api::kLibraryName;
    std::wstring tiLibrary = CTIExAPI32::kLibraryName;
    // Where udev reads rules from, for the report of detect.
    std::vector<std::string> udevRuleFolders = {"/etc/udev/rules.d", "/run/udev/rules.d",
                                                "/usr/lib/udev/rules.d", "/lib/udev/rules.d"};
};

class CLinuxPlatform final : public IDisplayPlatform {
public:
    explicit CLinuxPlatform(SLinuxPlatformFiles files_I = {});

    std::vector<SMonitorSource> ListMonitors() override;
    bool RefreshMonitor(SDisplayInfo& info_IO) override;
    std::shared_ptr<CMonitorConnectorDP> MakeVideoConnector() override;

    std::vector<std::string> ListHidChannels() override;
    std::shared_ptr<Connector> MakeHidConnector() override;

    std::vector<std::string> ListSerialPorts() override;
    std::shared_ptr<Connector> MakeSerialConnector() override;

    uint32_t FtdiDeviceCount() override;
    std::shared_ptr<Connector> MakeFtdiConnector() override;
    int TiDeviceCount() override;
    std::shared_ptr<Connector> MakeTiConnector() override;

    bool IsMakerSystem() override;
    bool WatchHotplug(HotplugCallback changed_I) override;
    SPlatformReport Describe() override;

    // FTDI's own library when it is installed, else libftdi1 given the same meaning; null when
    // neither is. Looked for once.
    std::shared_ptr<IFtdiApi> FtdiApi();
    // TI's library, or null when it is not installed. Looked for once.
    std::shared_ptr<ITIBridgeApi> TiApi();

    // MONITOR\ with the EDID's maker id and product code (MONITOR\VRX1041); empty for an EDID
    // too short to hold them.
    static std::string HardwareIdOfEdid(const ByteVector& edid_I);

private:
    SLinuxPlatformFiles mFiles;
    bool mFtdiLookedFor = false;
    std::shared_ptr<IFtdiApi> mFtdiApi;
    bool mTiLookedFor = false;
    std::shared_ptr<ITIBridgeApi> mTiApi;
    CUdevHotplugMonitor mHotplug;
};

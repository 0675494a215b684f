#include "platform/linux/CLinuxPlatform.h"

#include "channels/CFTDIExAPI32.h"
#include "channels/CI2CConnectorFTDI.h"
#include "channels/CI2CConnectorTI.h"
#include "channels/CTIExAPI32.h"
#include "channels/CUSBConnector.h"
#include "channels/CVcpHIDDeviceConnector.h"
#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"
#include "platform/linux/CLibFtdi1Api.h"
#include "platform/linux/CLinuxHidDevice.h"
#include "platform/linux/CLinuxI2CConnectorDP.h"
#include "platform/linux/CLinuxSerialPort.h"
#include "platform/linux/CUdevScanner.h"
#include "platform/linux/LinuxChannelReport.h"
#include "platform/linux/LinuxSystemServices.h"
#include "platform/linux/UsbChannelTable.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

// Where the EDID keeps its maker id (three packed letters) and its product code (little
// endian).
constexpr size_t kMakerIdAt = 8;
constexpr size_t kProductCodeAt = 10;

std::string Upper(std::string text_I) {
    std::transform(text_I.begin(), text_I.end(), text_I.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text_I;
}

// The identity a record carries for a connector's monitor.
std::string DeviceIdOf(const SUdevMonitor& monitor_I) {
    return Upper(CLinuxPlatform::HardwareIdOfEdid(monitor_I.edid) + "\\" + monitor_I.connectorName);
}

// Whether the device node opens for reading and writing now.
bool CanOpen(const std::string& path_I) {
    const int fd = ::open(path_I.c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        Trace("FindVcpHIDDevices: OpenDevice error: [%i] on device: %s\n", errno, path_I.c_str());
        return false;
    }
    ::close(fd);
    return true;
}

} // namespace

CLinuxPlatform::CLinuxPlatform(SLinuxPlatformFiles files_I) : mFiles(std::move(files_I)) {}

std::string CLinuxPlatform::HardwareIdOfEdid(const ByteVector& edid_I) {
    if (edid_I.size() < kProductCodeAt + 2) {
        return {};
    }
    const unsigned maker = (edid_I[kMakerIdAt] << 8) | edid_I[kMakerIdAt + 1];
    const unsigned product = edid_I[kProductCodeAt] | (edid_I[kProductCodeAt + 1] << 8);
    char text[24];
    std::snprintf(text, sizeof text, "MONITOR\\%c%c%c%04X", '@' + ((maker >> 10) & 0x1F),
                  '@' + ((maker >> 5) & 0x1F), '@' + (maker & 0x1F), product);
    return text;
}

std::vector<SMonitorSource> CLinuxPlatform::ListMonitors() {
    std::vector<SMonitorSource> sources;
    for (SUdevMonitor& monitor : CUdevScanner::ConnectedMonitors()) {
        sources.push_back(
            {HardwareIdOfEdid(monitor.edid), monitor.connectorName, std::move(monitor.edid)});
    }
    return sources;
}

bool CLinuxPlatform::RefreshMonitor(SDisplayInfo& info_IO) {
    const std::string wanted = Upper(ToNarrow(info_IO.deviceID));
    for (const SUdevMonitor& monitor : CUdevScanner::ConnectedMonitors()) {
        if (!monitor.i2cNode.empty() && DeviceIdOf(monitor) == wanted) {
            info_IO.monitorHandle = monitor.i2cNode;
            return true;
        }
    }
    return false;
}

std::shared_ptr<CMonitorConnectorDP> CLinuxPlatform::MakeVideoConnector() {
    return std::make_shared<CLinuxI2CConnectorDP>();
}

std::vector<std::string> CLinuxPlatform::ListHidChannels() {
    std::vector<std::string> paths = FindScalerHidPaths();
    std::erase_if(paths, [](const std::string& path_I) { return !CanOpen(path_I); });
    return paths;
}

std::shared_ptr<Connector> CLinuxPlatform::MakeHidConnector() {
    return std::make_shared<CVcpHIDDeviceConnector>(std::make_unique<CLinuxHidDevice>());
}

std::vector<std::string> CLinuxPlatform::ListSerialPorts() {
    std::vector<std::string> names;
    for (const SUdevSerialPort& port : CUdevScanner::UsbSerialPorts()) {
        const SUsbChannel* channel = FindUsbChannel(port.vendorId, port.productId);
        if (channel != nullptr && channel->role == EUsbChannelRole::eSerialBridge) {
            names.push_back(port.devNode);
        } else if (gTraceEnabled && channel != nullptr &&
                   channel->role == EUsbChannelRole::eFtdiBridge) {
            Trace("GetNextDeviceID found FTDI\\COMPORT&VID_0403&PID_6014 (case-insensitive)\n");
        } else if (gTraceEnabled) {
            Trace("GetNextDeviceID couldn't find USB\\VID_10C4&PID_EA60 (case-insensitive)\n");
        }
    }
    return names;
}

std::shared_ptr<Connector> CLinuxPlatform::MakeSerialConnector() {
    return std::make_shared<CUSBConnector>(std::make_unique<CLinuxSerialPort>());
}

std::shared_ptr<IFtdiApi> CLinuxPlatform::FtdiApi() {
    if (!mFtdiLookedFor) {
        mFtdiLookedFor = true;
        auto vendor = std::make_shared<CFTDIExAPI32>(mFiles.ftdiLibrary);
        auto open = std::make_shared<CLibFtdi1Api>(mFiles.ftdiOpenLibrary);
        mFtdiApi = vendor->Load() ? std::shared_ptr<IFtdiApi>(vendor)
                   : open->Load() ? std::shared_ptr<IFtdiApi>(open)
                                  : nullptr;
    }
    return mFtdiApi;
}

std::shared_ptr<ITIBridgeApi> CLinuxPlatform::TiApi() {
    if (!mTiLookedFor) {
        mTiLookedFor = true;
        auto ti = std::make_shared<CTIExAPI32>(mFiles.tiLibrary);
        mTiApi = ti->Load() ? ti : nullptr;
    }
    return mTiApi;
}

uint32_t CLinuxPlatform::FtdiDeviceCount() {
    const std::shared_ptr<IFtdiApi> api = FtdiApi();
    return api ? CI2CConnectorFTDI::NumberOfDevices(*api) : 0;
}

std::shared_ptr<Connector> CLinuxPlatform::MakeFtdiConnector() {
    // Without a library the connector's calls fail as an unbound library's do.
    const std::shared_ptr<IFtdiApi> api = FtdiApi();
    return std::make_shared<CI2CConnectorFTDI>(
        api ? api : std::make_shared<CFTDIExAPI32>(mFiles.ftdiLibrary));
}

int CLinuxPlatform::TiDeviceCount() {
    const std::shared_ptr<ITIBridgeApi> api = TiApi();
    return api ? CI2CConnectorTI::NumberOfDevices(*api) : 0;
}

std::shared_ptr<Connector> CLinuxPlatform::MakeTiConnector() {
    const std::shared_ptr<ITIBridgeApi> api = TiApi();
    return std::make_shared<CI2CConnectorTI>(api ? api
                                                 : std::make_shared<CTIExAPI32>(mFiles.tiLibrary));
}

bool CLinuxPlatform::IsMakerSystem() {
    return LinuxUtils::IsMakerSystem(mFiles.sysVendor);
}

bool CLinuxPlatform::WatchHotplug(HotplugCallback changed_I) {
    if (!changed_I) {
        mHotplug.Stop();
        return true;
    }
    return mHotplug.Start(std::move(changed_I));
}

SPlatformReport CLinuxPlatform::Describe() {
    SLinuxReportSetup setup;
    setup.udevRuleFolders = mFiles.udevRuleFolders;
    if (const std::shared_ptr<IFtdiApi> ftdi = FtdiApi()) {
        setup.ftdiLibrary =
            ToNarrow(dynamic_cast<CLibFtdi1Api*>(ftdi.get()) != nullptr ? mFiles.ftdiOpenLibrary
                                                                        : mFiles.ftdiLibrary);
    }
    if (TiApi()) {
        setup.tiLibrary = ToNarrow(mFiles.tiLibrary);
    }
    return DescribeLinuxChannels(setup);
}

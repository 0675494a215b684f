#include "platform/linux/CLinuxPlatform.h"

#include "channels/CFTDIExAPI32.h"
#include "channels/CTIExAPI32.h"
#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"
#include "platform/linux/CLibFtdi1Api.h"
#include "platform/linux/CLinuxHidDevice.h"
#include "platform/linux/CLinuxI2CBus.h"
#include "platform/linux/CLinuxSerialPort.h"
#include "platform/linux/CUdevScanner.h"
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

std::unique_ptr<II2CBus> CLinuxPlatform::OpenMonitorBus(const SDisplayInfo& info_I) {
    if (info_I.monitorHandle.empty()) {
        mLastBusError = "The monitor has no DDC bus that the system offers.";
        return nullptr;
    }
    auto bus = std::make_unique<CLinuxI2CBus>(info_I.monitorHandle);
    if (!bus->Open()) {
        mLastBusError = CLinuxI2CBus::DescribeOpenFailure(info_I.monitorHandle, bus->LastErrno());
        Trace("ERROR: %s\n", mLastBusError.c_str());
        return nullptr;
    }
    mLastBusError.clear();
    return bus;
}

std::vector<std::string> CLinuxPlatform::ListHidChannels() {
    std::vector<std::string> paths = FindScalerHidPaths();
    std::erase_if(paths, [](const std::string& path_I) { return !CanOpen(path_I); });
    return paths;
}

std::unique_ptr<IHidDevice> CLinuxPlatform::MakeHidDevice() {
    return std::make_unique<CLinuxHidDevice>();
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
            Trace("GetNextDeviceID couldn't find USB\\\\VID_10C4&PID_EA60 (case-insensitive)\n");
        }
    }
    return names;
}

std::unique_ptr<ISerialPort> CLinuxPlatform::MakeSerialPort() {
    return std::make_unique<CLinuxSerialPort>();
}

std::shared_ptr<IFtdiApi> CLinuxPlatform::FtdiApi() {
    auto vendor = std::make_shared<CFTDIExAPI32>(mFiles.ftdiLibrary);
    if (vendor->Load()) {
        return vendor;
    }
    auto open = std::make_shared<CLibFtdi1Api>(mFiles.ftdiOpenLibrary);
    return open->Load() ? open : nullptr;
}

std::shared_ptr<ITIBridgeApi> CLinuxPlatform::TiApi() {
    auto ti = std::make_shared<CTIExAPI32>(mFiles.tiLibrary);
    return ti->Load() ? ti : nullptr;
}

bool CLinuxPlatform::IsMakerSystem() {
    return LinuxUtils::IsMakerSystem(mFiles.sysVendor);
}

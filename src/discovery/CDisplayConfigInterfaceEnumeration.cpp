// The lists that matching pairs up: the family's monitors, and the channels that may reach a
// scaler, opened.

#include "ddc/EdidDescriptor.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/ScopeTimer.h"
#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"
#include "model/CEdidBuilder.h"
#include "resources/ResourceLookup.h"

#include <algorithm>

namespace {

// What stands before the EDID's maker id and product code in a monitor's identity.
constexpr char kMakerMark[] = "\\VRX";
constexpr wchar_t kMakerMarkWide[] = L"\\VRX";
// VRX and four hexadecimal digits.
constexpr size_t kShortNameLength = 7;
constexpr size_t kProductCodeDigits = 4;

} // namespace

void CDisplayConfigInterface::FindDisplays() {
    CScopeTimer timer("CWinDisplayConfigInterface::FindDisplays");
    const size_t before = mDisplayInfos.size();
    GetNextMonitorID(mPlatform->ListMonitors());
    if (gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::FindDisplays: found %d displays\n",
              static_cast<int>(mDisplayInfos.size() - before));
    }
}

std::wstring CDisplayConfigInterface::ModelGroupString(const char* group_I,
                                                       uint32_t tabletId_I) const {
    if (tabletId_I == CEdidBuilder::kNoTablet) {
        return {};
    }
    return GetGroupString(group_I, static_cast<uint16_t>(tabletId_I & 0xFFFF),
                          mLanguage.mLanguage.languageId, true, ProgramResources());
}

void CDisplayConfigInterface::GetNextMonitorID(const std::vector<SMonitorSource>& monitors_I) {
    CScopeTimer timer("CWinDisplayConfigInterface::GetNextMonitorID");
    for (size_t index = 0; index < monitors_I.size(); ++index) {
        const SMonitorSource& monitor = monitors_I[index];
        if (gTraceEnabled) {
            Trace("GetNextMonitorID looking at index: %d\n", static_cast<int>(index));
            Trace("GetNextMonitorID deviceName: %s\n", monitor.hardwareId.c_str());
        }
        const size_t mark = monitor.hardwareId.find(kMakerMark);
        if (mark == std::string::npos) {
            if (gTraceEnabled) {
                Trace("GetNextMonitorID couldn't find \\VRX\n");
            }
            continue;
        }
        const std::string shortName = monitor.hardwareId.substr(mark + 1, kShortNameLength);
        // Only a name in the product table makes a monitor one of the family's.
        if (ModelGroupString("2000", LookupByEDID(shortName)).empty()) {
            if (gTraceEnabled) {
                Trace("GetNextMonitorID couldn't supportedName for shortName: %s\n",
                      shortName.c_str());
            }
            continue;
        }
        GetSerialNumAndName(monitor, ModelGroupString("2101", LookupByEDID(shortName)));
    }
}

void CDisplayConfigInterface::GetSerialNumAndName(const SMonitorSource& monitor_I,
                                                  const std::wstring& modelNumber_I) {
    CScopeTimer timer("CWinDisplayConfigInterface::GetSerialNumAndName");
    if (monitor_I.edid.empty()) {
        return;
    }
    ByteVector buffer(SDisplayInfo::kEdidBufferSize, 0x00);
    std::copy_n(monitor_I.edid.begin(), std::min(monitor_I.edid.size(), buffer.size()),
                buffer.begin());

    const std::string serialNumber = FindEdidDescriptor(buffer, kEdidSerialNumberTag);
    if (serialNumber.empty()) {
        if (gTraceEnabled) {
            Trace("CWinDisplayConfigInterface::GetSerialNumAndName find serialNumber error\n");
        }
        return;
    }
    if (gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::GetSerialNumAndName serialNumber %s\n",
              serialNumber.c_str());
    }
    const std::string monitorName = FindEdidDescriptor(buffer, kEdidMonitorNameTag);
    if (monitorName.empty()) {
        if (gTraceEnabled) {
            Trace("CWinDisplayConfigInterface::GetSerialNumAndName find monitor name error\n");
        }
        return;
    }
    if (gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::GetSerialNumAndName monitor name %s\n",
              monitorName.c_str());
    }

    SDisplayInfo info;
    // Without the device's key the record stays incomplete, and the video channel refuses it.
    if (!monitor_I.deviceKey.empty()) {
        info.deviceID = ToWide(ToUpper(monitor_I.hardwareId + "\\" + monitor_I.deviceKey));
        const size_t mark = info.deviceID.find(kMakerMarkWide);
        if (mark != std::wstring::npos) {
            const std::wstring digits =
                info.deviceID.substr(mark + std::size(kMakerMarkWide) - 1, kProductCodeDigits);
            info.edidNumber = static_cast<uint16_t>(HexStringToInteger(digits) & 0xFFFF);
        }
    }
    info.monitorName = ToWide(monitorName);
    info.serialNumber = ToWide(serialNumber);
    info.modelNumber = modelNumber_I;
    info.edid = std::move(buffer);
    mDisplayInfos.push_back(std::move(info));
}

int CDisplayConfigInterface::FindVcpHIDDevices() {
    int found = 0;
    for (const std::string& path : mPlatform->ListHidChannels()) {
        std::shared_ptr<Connector> connector = mPlatform->MakeHidConnector();
        if (connector == nullptr) {
            continue;
        }
        ++found;
        // Kept even when it does not open: its empty serial number never matches.
        connector->Open(path);
        mConnectorList.push_back(connector);
    }
    return found;
}

void CDisplayConfigInterface::FindSerialPorts() {
    CScopeTimer timer("CWinDisplayConfigInterface::FindSerialPorts");
    const bool verbose = gTraceEnabled;
    if (verbose) {
        Trace("CWinDisplayConfigInterface::FindSerialPorts\n");
        Trace("CWinDisplayConfigInterface::FindSerialPorts - looking for COMPORT devices...\n");
    }
    const std::vector<std::string> ports = mPlatform->ListSerialPorts();
    for (size_t index = 0; index <= ports.size(); ++index) {
        if (verbose) {
            Trace("CWinDisplayConfigInterface::FindSerialPorts - looking for device %i ...\n",
                  static_cast<int>(index));
        }
        if (index == ports.size()) {
            if (verbose) {
                Trace("CWinDisplayConfigInterface::FindSerialPorts: no device found\n");
            }
            break;
        }
        if (verbose) {
            Trace("CWinDisplayConfigInterface::FindSerialPorts: deviceid: %s\n",
                  ports[index].c_str());
        }
        GetPortNum(ports[index]);
    }

    if (verbose) {
        Trace("CWinDisplayConfigInterface::FindSerialPorts - looking for I2C-FTDI devices...\n");
    }
    const uint32_t ftdiCount = mPlatform->FtdiDeviceCount();
    if (verbose) {
        Trace("CWinDisplayConfigInterface::FindSerialPorts: %i FTDI devices found...\n",
              static_cast<int>(ftdiCount));
    }
    for (uint32_t index = 0; index < ftdiCount; ++index) {
        std::shared_ptr<Connector> connector = mPlatform->MakeFtdiConnector();
        if (connector == nullptr) {
            continue;
        }
        connector->IsUsable();
        if (connector->Open(static_cast<long>(index))) {
            if (verbose) {
                Trace("CWinDisplayConfigInterface::FindSerialPorts: opened connection (FTDI) for "
                      "deviceIdx: %i\n",
                      static_cast<int>(index));
            }
            mConnectorList.push_back(connector);
        } else if (verbose) {
            Trace("CWinDisplayConfigInterface::FindSerialPorts: connection failed for deviceIdx: "
                  "%i, not adding (FTDI)\n",
                  static_cast<int>(index));
        }
    }

    if (verbose) {
        Trace("CWinDisplayConfigInterface::FindSerialPorts - looking for  I2C-TI devices...\n");
    }
    const int tiCount = mPlatform->TiDeviceCount();
    if (verbose) {
        Trace("CWinDisplayConfigInterface::FindSerialPorts: %i TI devices found...\n", tiCount);
    }
    for (int index = 0; index < tiCount; ++index) {
        std::shared_ptr<Connector> connector = mPlatform->MakeTiConnector();
        if (connector == nullptr) {
            continue;
        }
        connector->IsUsable();
        if (connector->Open(static_cast<long>(index))) {
            if (verbose) {
                Trace("CWinDisplayConfigInterface::FindSerialPorts: opened connection (TI) for "
                      "deviceIdx: %i\n",
                      index);
            }
            mConnectorList.push_back(connector);
        } else if (verbose) {
            Trace("CWinDisplayConfigInterface::FindSerialPorts: connection failed for deviceIdx: "
                  "%i, not adding (TI)\n",
                  index);
        }
    }
    if (verbose) {
        Trace("CWinDisplayConfigInterface::FindSerialPorts: ports found: %d\n",
              static_cast<int>(mConnectorList.size()));
    }
}

void CDisplayConfigInterface::GetPortNum(const std::string& portName_I) {
    CScopeTimer timer("CWinDisplayConfigInterface::GetPortNum");
    if (gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::GetPortNum: adding comport: %s\n", portName_I.c_str());
    }
    std::shared_ptr<Connector> connector = mPlatform->MakeSerialConnector();
    if (connector == nullptr) {
        return;
    }
    connector->IsUsable();
    if (connector->Open(portName_I)) {
        if (gTraceEnabled) {
            Trace("CWinDisplayConfigInterface::GetPortNum: adding connection\n");
        }
        mConnectorList.push_back(connector);
    } else if (gTraceEnabled) {
        Trace("CWinDisplayConfigInterface::GetPortNum: connection failed, not adding\n");
    }
}

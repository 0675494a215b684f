#include "platform/sim/CSimulatedPlatform.h"

#include "channels/CI2CConnectorFTDI.h"
#include "channels/CI2CConnectorTI.h"
#include "channels/CUSBConnector.h"
#include "channels/CVcpHIDDeviceConnector.h"
#include "foundation/StringUtilities.h"
#include "platform/sim/SimTransports.h"
#include "sim/SimDescription.h"

#include <cstdio>

namespace {

constexpr uint32_t kFtdiLocationBase = 0x1000;

// The video cable of one display: its DDC bus is there while the display is plugged in, and the
// scaler acknowledges on it only when it answers DDC/CI there.
class CSimVideoCable final : public ISimI2CTarget {
public:
    explicit CSimVideoCable(CSimDisplay& display_I) : mDisplay(display_I) {}
    bool Address(uint8_t addressByte_I) override {
        return Live() && mDisplay.I2C().Address(addressByte_I);
    }
    bool Write(uint8_t byte_I) override { return Live() && mDisplay.I2C().Write(byte_I); }
    uint8_t Read(bool hostAcks_I) override {
        return Live() ? mDisplay.I2C().Read(hostAcks_I) : uint8_t{0xFF};
    }
    void Stop() override { mDisplay.I2C().Stop(); }

private:
    bool Live() const { return mDisplay.IsPlugged() && mDisplay.AnswersOn(ESimChannel::eVideo); }

    CSimDisplay& mDisplay;
};

std::string HardwareId(const CSimDisplay& display_I) {
    char text[32];
    std::snprintf(text, sizeof(text), "MONITOR\\VRX%04X", display_I.EdidNumber());
    return text;
}

} // namespace

struct CSimulatedPlatform::SWorld {
    std::vector<std::unique_ptr<CSimDisplay>> displays;
    std::vector<std::unique_ptr<CSimDisplayChannels>> channels;
    std::vector<std::unique_ptr<CSimVideoCable>> cables;
    CSimFtdiLibrary ftdi;
    CSimTiBridge ti;
};

std::shared_ptr<CSimulatedPlatform>
CSimulatedPlatform::FromDescription(std::string_view description_I, std::string& error_O) {
    const SSimDescription description = ParseSimDescription(description_I);
    if (!description.Ok()) {
        error_O = description.error;
        return nullptr;
    }
    error_O.clear();
    return std::make_shared<CSimulatedPlatform>(MakeSimDisplays(description.displays));
}

CSimulatedPlatform::CSimulatedPlatform(std::vector<std::unique_ptr<CSimDisplay>> displays_I)
    : mWorld(std::make_shared<SWorld>()) {
    mWorld->displays = std::move(displays_I);
    for (size_t index = 0; index < mWorld->displays.size(); ++index) {
        CSimDisplay& display = *mWorld->displays[index];
        SSimChannelAddresses addresses;
        addresses.hidPath = HidPath(index);
        addresses.ftdiSerialNumber = "SIMFT" + std::to_string(index + 1);
        addresses.ftdiDescription = "Simulated USB I2C bridge";
        addresses.ftdiLocationId = kFtdiLocationBase + static_cast<uint32_t>(index);
        auto channels = std::make_unique<CSimDisplayChannels>(display, addresses);
        channels->Attach(mWorld->ftdi, mWorld->ti);
        mWorld->channels.push_back(std::move(channels));
        mWorld->cables.push_back(std::make_unique<CSimVideoCable>(display));
    }
}

CSimulatedPlatform::~CSimulatedPlatform() = default;

size_t CSimulatedPlatform::DisplayCount() const {
    return mWorld->displays.size();
}

CSimDisplay& CSimulatedPlatform::Display(size_t index_I) {
    return *mWorld->displays.at(index_I);
}

CSimDisplayChannels& CSimulatedPlatform::Channels(size_t index_I) {
    return *mWorld->channels.at(index_I);
}

std::string CSimulatedPlatform::MonitorKey(size_t index_I) {
    return "sim-" + std::to_string(index_I + 1);
}

std::string CSimulatedPlatform::MonitorHandle(size_t index_I) {
    return "sim:i2c-" + std::to_string(index_I + 1);
}

std::string CSimulatedPlatform::HidPath(size_t index_I) {
    return "sim:hidraw" + std::to_string(index_I + 1);
}

std::string CSimulatedPlatform::SerialPortName(size_t index_I) {
    return "sim:ttyUSB" + std::to_string(index_I + 1);
}

bool CSimulatedPlatform::WatchHotplug(HotplugCallback changed_I) {
    mHotplug = std::move(changed_I);
    return true;
}

void CSimulatedPlatform::Unplug(size_t index_I) {
    mWorld->displays[index_I]->Unplug();
    if (mHotplug) {
        mHotplug();
    }
}

void CSimulatedPlatform::Replug(size_t index_I) {
    mWorld->displays[index_I]->Replug();
    if (mHotplug) {
        mHotplug();
    }
}

bool CSimulatedPlatform::Reachable(size_t index_I, ESimChannel channel_I) const {
    const CSimDisplay& display = *mWorld->displays[index_I];
    return display.IsPlugged() && display.AnswersOn(channel_I);
}

std::vector<SMonitorSource> CSimulatedPlatform::ListMonitors() {
    std::vector<SMonitorSource> monitors;
    for (size_t index = 0; index < mWorld->displays.size(); ++index) {
        const CSimDisplay& display = *mWorld->displays[index];
        if (display.IsPlugged()) {
            monitors.push_back({HardwareId(display), MonitorKey(index), display.Edid()});
        }
    }
    return monitors;
}

bool CSimulatedPlatform::RefreshMonitor(SDisplayInfo& info_IO) {
    for (size_t index = 0; index < mWorld->displays.size(); ++index) {
        const CSimDisplay& display = *mWorld->displays[index];
        const std::wstring identity = ToWide(HardwareId(display) + "\\" + MonitorKey(index));
        if (display.IsPlugged() && EqualIgnoreCase(identity, info_IO.deviceID)) {
            info_IO.monitorHandle = MonitorHandle(index);
            return true;
        }
    }
    return false;
}

std::shared_ptr<CMonitorConnectorDP> CSimulatedPlatform::MakeVideoConnector() {
    return std::make_shared<CMonitorConnectorDP>(
        [world = mWorld](const SDisplayInfo& info_I) -> std::unique_ptr<II2CBus> {
            for (size_t index = 0; index < world->displays.size(); ++index) {
                if (info_I.monitorHandle == MonitorHandle(index)) {
                    return std::make_unique<CSimI2CBus>(*world->cables[index], world);
                }
            }
            return nullptr;
        });
}

std::vector<std::string> CSimulatedPlatform::ListHidChannels() {
    std::vector<std::string> paths;
    for (size_t index = 0; index < mWorld->displays.size(); ++index) {
        if (Reachable(index, ESimChannel::eHid)) {
            paths.push_back(HidPath(index));
        }
    }
    return paths;
}

std::shared_ptr<Connector> CSimulatedPlatform::MakeHidConnector() {
    std::vector<CSimHidDevice*> devices;
    for (const auto& channels : mWorld->channels) {
        devices.push_back(&channels->Hid());
    }
    return std::make_shared<CVcpHIDDeviceConnector>(
        std::make_unique<CSimHidPort>(std::move(devices), mWorld));
}

std::vector<std::string> CSimulatedPlatform::ListSerialPorts() {
    std::vector<std::string> names;
    for (size_t index = 0; index < mWorld->displays.size(); ++index) {
        if (Reachable(index, ESimChannel::eSerial)) {
            names.push_back(SerialPortName(index));
        }
    }
    return names;
}

std::shared_ptr<Connector> CSimulatedPlatform::MakeSerialConnector() {
    std::vector<CSimSerialPort::SNamedDevice> devices;
    for (size_t index = 0; index < mWorld->channels.size(); ++index) {
        devices.emplace_back(SerialPortName(index), &mWorld->channels[index]->Serial());
    }
    return std::make_shared<CUSBConnector>(
        std::make_unique<CSimSerialPort>(std::move(devices), mWorld));
}

uint32_t CSimulatedPlatform::FtdiDeviceCount() {
    CSimFtdiApi api(mWorld->ftdi);
    return CI2CConnectorFTDI::NumberOfDevices(api);
}

std::shared_ptr<Connector> CSimulatedPlatform::MakeFtdiConnector() {
    return std::make_shared<CI2CConnectorFTDI>(std::make_shared<CSimFtdiApi>(mWorld->ftdi, mWorld));
}

int CSimulatedPlatform::TiDeviceCount() {
    CSimTiApi api(mWorld->ti);
    return CI2CConnectorTI::NumberOfDevices(api);
}

std::shared_ptr<Connector> CSimulatedPlatform::MakeTiConnector() {
    return std::make_shared<CI2CConnectorTI>(std::make_shared<CSimTiApi>(mWorld->ti, mWorld));
}

SPlatformReport CSimulatedPlatform::Describe() {
    SPlatformReport report{"simulated", true, {}};
    constexpr ESimChannel kChannels[] = {ESimChannel::eVideo, ESimChannel::eHid,
                                         ESimChannel::eSerial, ESimChannel::eFtdi,
                                         ESimChannel::eTi};
    for (const ESimChannel channel : kChannels) {
        for (size_t index = 0; index < mWorld->displays.size(); ++index) {
            const CSimDisplay& display = *mWorld->displays[index];
            if (display.AnswersOn(channel)) {
                report.findings.push_back({std::string(SimChannelName(channel)),
                                           "simulated display " + std::to_string(index),
                                           "a simulated " + std::string(display.Model().name) +
                                               ", serial number " + display.SerialNumber(),
                                           false});
            }
        }
    }
    return report;
}

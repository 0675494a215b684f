#include "FakeDisplayPlatform.h"

#include "foundation/StringUtilities.h"

#include <cstdio>

const char kTestCapabilities[] =
    "(prot(monitor)type(LCD)model(TEST)cmds(01 02 03 0C E3 F3)vcp(10 12 CC)mccs_ver(2.2))";

namespace {

// Each text ends with a line feed and blanks when shorter than the descriptor's 13 bytes.
void PutDescriptor(ByteVector& edid_IO, size_t at_I, uint8_t type_I, std::string text_I) {
    edid_IO[at_I + 3] = type_I;
    text_I = (text_I + "\n").substr(0, 13);
    text_I.resize(13, ' ');
    std::copy(text_I.begin(), text_I.end(), edid_IO.begin() + static_cast<long>(at_I + 5));
}

std::vector<std::string> Names(const char* prefix_I, size_t count_I) {
    std::vector<std::string> names;
    for (size_t index = 0; index < count_I; ++index) {
        names.push_back(prefix_I + std::to_string(index));
    }
    return names;
}

} // namespace

ByteVector TestEdid(const std::string& serial_I, const std::string& name_I) {
    ByteVector edid = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
    edid.resize(128, 0x00);
    size_t at = 0x48;
    if (!serial_I.empty()) {
        PutDescriptor(edid, at, 0xFF, serial_I);
        at += 18;
    }
    if (!name_I.empty()) {
        PutDescriptor(edid, at, 0xFC, name_I);
    }
    return edid;
}

CTestChannel::CTestChannel(int type_I, std::string serial_I, std::string name_I, bool works_I)
    : mSerial(std::move(serial_I)), mName(std::move(name_I)) {
    SetConnectorType(type_I);
    SetOpen(false);
    SetCapabilities(works_I ? kTestCapabilities : "");
    SetVcp(0x10, 50, 100);
    SetVcp(0x12, 60, 100);
    SetVcp(0xCC, 2, 40);
}

bool CTestChannel::Open(const std::string& port_I) {
    openedWith.push_back(port_I);
    SetOpen(mOpens);
    return mOpens;
}

CFakeVideoConnector::CFakeVideoConnector(std::set<std::wstring> working_I, std::string error_I)
    : CMonitorConnectorDP({}), mWorking(std::move(working_I)), mError(std::move(error_I)) {
    mScaler.SetVcp(0x10, 70, 100);
    mScaler.SetVcp(0x12, 60, 100);
    mScaler.SetVcp(0xCC, 2, 40);
}

bool CFakeVideoConnector::OpenDisplayInfo(const SDisplayInfo& info_I) {
    mOpened = true;
    mWorks = info_I.IsComplete() && mWorking.count(info_I.serialNumber) != 0;
    return true;
}

std::string CFakeVideoConnector::CapabilitiesString() {
    if (!mWorks) {
        mLastCapsError = mError;
        return {};
    }
    return kTestCapabilities;
}

ByteVector CFakeVideoConnector::SendRequest(const ByteVector& toSend_I, double delay,
                                            unsigned expectedSize_I, int retries) {
    return mScaler.SendRequest(toSend_I, delay, expectedSize_I, retries);
}

void CFakeDisplayPlatform::AddMonitor(uint16_t edid_I, const std::string& serial_I,
                                      const std::string& name_I) {
    char hardwareId[32];
    std::snprintf(hardwareId, sizeof(hardwareId), "MONITOR\\VRX%04X", edid_I);
    const std::string key = "card0-DP-" + std::to_string(monitors.size() + 1);
    monitors.push_back({hardwareId, key, TestEdid(serial_I, name_I)});
    handles[ToWide(ToUpper(std::string(hardwareId) + "\\" + key))] = "/dev/i2c-" + key;
}

std::shared_ptr<CTestChannel> CFakeDisplayPlatform::Add(int type_I, const std::string& serial_I,
                                                        const std::string& name_I, bool works_I) {
    auto channel = std::make_shared<CTestChannel>(type_I, serial_I, name_I, works_I);
    mChannels[type_I].push_back(channel);
    return channel;
}

bool CFakeDisplayPlatform::RefreshMonitor(SDisplayInfo& info_IO) {
    const auto found = handles.find(info_IO.deviceID);
    if (found != handles.end()) {
        info_IO.monitorHandle = found->second;
    }
    return found != handles.end();
}

std::shared_ptr<CMonitorConnectorDP> CFakeDisplayPlatform::MakeVideoConnector() {
    ++videoConnectors;
    return std::make_shared<CFakeVideoConnector>(videoSerials, videoError);
}

std::vector<std::string> CFakeDisplayPlatform::ListHidChannels() {
    ++hidScans;
    return Names("/dev/hidraw", mChannels[eConnectorType_HID].size());
}

std::vector<std::string> CFakeDisplayPlatform::ListSerialPorts() {
    ++serialScans;
    return Names("/dev/ttyUSB", mChannels[eConnectorType_Serial].size());
}

uint32_t CFakeDisplayPlatform::FtdiDeviceCount() {
    ++ftdiScans;
    return static_cast<uint32_t>(mChannels[eConnectorType_FTDI].size());
}

std::shared_ptr<Connector> CFakeDisplayPlatform::Take(int type_I) {
    auto& queue = mChannels[type_I];
    if (queue.empty()) {
        return nullptr;
    }
    std::shared_ptr<Connector> connector = queue.front();
    queue.pop_front();
    return connector;
}

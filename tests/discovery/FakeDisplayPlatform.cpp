#include "FakeDisplayPlatform.h"

#include "foundation/StringUtilities.h"

#include <algorithm>
#include <cstdio>

const char kTestCapabilities[] =
    "(prot(monitor)type(LCD)model(TEST)cmds(01 02 03 0C E3 F3)vcp(10 12 CC)mccs_ver(2.2))";

namespace {

constexpr size_t kFirstDescriptorAt = 0x48;
constexpr size_t kDescriptorSize = 18;
constexpr size_t kDescriptorTextSize = 13;

void PutDescriptor(ByteVector& edid_IO, size_t at_I, uint8_t type_I, const std::string& text_I) {
    edid_IO[at_I + 3] = type_I;
    std::string text = text_I.substr(0, kDescriptorTextSize);
    if (text.size() < kDescriptorTextSize) {
        text.push_back('\n');
    }
    text.resize(kDescriptorTextSize, ' ');
    std::copy(text.begin(), text.end(), edid_IO.begin() + static_cast<long>(at_I + 5));
}

} // namespace

ByteVector TestEdid(const std::string& serial_I, const std::string& name_I) {
    ByteVector edid(128, 0x00);
    const uint8_t header[] = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
    std::copy(std::begin(header), std::end(header), edid.begin());
    size_t at = kFirstDescriptorAt;
    if (!serial_I.empty()) {
        PutDescriptor(edid, at, 0xFF, serial_I);
        at += kDescriptorSize;
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

bool CTestChannel::Open(long device_I) {
    openedWith.push_back(std::to_string(device_I));
    SetOpen(mOpens);
    return mOpens;
}

CFakeVideoConnector::CFakeVideoConnector(const std::set<std::wstring>& working_I,
                                         std::string error_I)
    : CMonitorConnectorDP({}), mWorking(working_I), mError(std::move(error_I)) {
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

std::shared_ptr<CTestChannel> CFakeDisplayPlatform::AddHid(const std::string& serial_I,
                                                           bool works_I) {
    mHid.push_back(std::make_shared<CTestChannel>(eConnectorType_HID, serial_I, "", works_I));
    return mHid.back();
}

std::shared_ptr<CTestChannel> CFakeDisplayPlatform::AddSerial(const std::string& serial_I,
                                                              const std::string& name_I,
                                                              bool works_I) {
    mSerial.push_back(
        std::make_shared<CTestChannel>(eConnectorType_Serial, serial_I, name_I, works_I));
    return mSerial.back();
}

std::shared_ptr<CTestChannel> CFakeDisplayPlatform::AddFtdi(const std::string& serial_I,
                                                            const std::string& name_I,
                                                            bool works_I) {
    mFtdi.push_back(std::make_shared<CTestChannel>(eConnectorType_FTDI, serial_I, name_I, works_I));
    return mFtdi.back();
}

std::shared_ptr<CTestChannel> CFakeDisplayPlatform::AddTi(const std::string& serial_I,
                                                          const std::string& name_I, bool works_I) {
    mTi.push_back(std::make_shared<CTestChannel>(eConnectorType_TI, serial_I, name_I, works_I));
    return mTi.back();
}

bool CFakeDisplayPlatform::RefreshMonitor(SDisplayInfo& info_IO) {
    const auto found = handles.find(info_IO.deviceID);
    if (found == handles.end()) {
        return false;
    }
    info_IO.monitorHandle = found->second;
    return true;
}

std::shared_ptr<CMonitorConnectorDP> CFakeDisplayPlatform::MakeVideoConnector() {
    videoConnectors.push_back(std::make_shared<CFakeVideoConnector>(videoSerials, videoError));
    return videoConnectors.back();
}

std::vector<std::string> CFakeDisplayPlatform::ListHidChannels() {
    ++hidScans;
    std::vector<std::string> paths;
    for (size_t index = 0; index < mHid.size(); ++index) {
        paths.push_back("/dev/hidraw" + std::to_string(index));
    }
    return paths;
}

std::vector<std::string> CFakeDisplayPlatform::ListSerialPorts() {
    ++serialScans;
    std::vector<std::string> names;
    for (size_t index = 0; index < mSerial.size(); ++index) {
        names.push_back("/dev/ttyUSB" + std::to_string(index));
    }
    return names;
}

uint32_t CFakeDisplayPlatform::FtdiDeviceCount() {
    ++ftdiScans;
    return static_cast<uint32_t>(mFtdi.size());
}

std::shared_ptr<Connector>
CFakeDisplayPlatform::Take(std::deque<std::shared_ptr<CTestChannel>>& queue_I) {
    if (queue_I.empty()) {
        return nullptr;
    }
    std::shared_ptr<Connector> connector = queue_I.front();
    queue_I.pop_front();
    return connector;
}

#pragma once
// A platform of hand-made monitors and scripted channels for the matching tests. Each channel
// is a fake connector that reports a chosen serial number and monitor name and initialises a
// display or not; the video channel works for the serial numbers the test names.

#include "discovery/IDisplayPlatform.h"
#include "support/CFakeConnector.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

// A capability string that any model's session accepts.
extern const char kTestCapabilities[];

// A 128-byte EDID with the serial-number and display-name descriptors; an empty text leaves
// its descriptor out.
ByteVector TestEdid(const std::string& serial_I, const std::string& name_I);

class CTestChannel : public CFakeConnector {
public:
    // works_I false gives no capability string, so that a display on it fails to initialise.
    CTestChannel(int type_I, std::string serial_I, std::string name_I = "", bool works_I = true);

    std::string SerialNumber(uint32_t) override { return mSerial; }
    std::string MonitorName() override { return mName; }
    bool Open(const std::string& port_I) override;
    bool Open(long device_I) override { return Open(std::to_string(device_I)); }
    void SetOpens(bool opens_I) { mOpens = opens_I; }

    std::vector<std::string> openedWith;

private:
    std::string mSerial;
    std::string mName;
    bool mOpens = true;
};

class CFakeVideoConnector : public CMonitorConnectorDP {
public:
    CFakeVideoConnector(std::set<std::wstring> working_I, std::string error_I);

    bool OpenDisplayInfo(const SDisplayInfo& info_I) override;
    bool IsOpen() override { return mOpened; }
    std::string CapabilitiesString() override;
    ByteVector SendRequest(const ByteVector& toSend_I, double delay, unsigned expectedSize_I,
                           int retries) override;

private:
    std::set<std::wstring> mWorking;
    std::string mError;
    bool mWorks = false;
    bool mOpened = false;
    CFakeConnector mScaler;
};

class CFakeDisplayPlatform : public IDisplayPlatform {
public:
    // Adds a monitor of the desktop whose handle RefreshMonitor finds.
    void AddMonitor(uint16_t edid_I, const std::string& serial_I, const std::string& name_I);
    // A channel of the connector type: HID, serial, FTDI or TI.
    std::shared_ptr<CTestChannel> Add(int type_I, const std::string& serial_I,
                                      const std::string& name_I = "", bool works_I = true);

    std::vector<SMonitorSource> ListMonitors() override { return monitors; }
    bool RefreshMonitor(SDisplayInfo& info_IO) override;
    std::shared_ptr<CMonitorConnectorDP> MakeVideoConnector() override;
    std::vector<std::string> ListHidChannels() override;
    std::shared_ptr<Connector> MakeHidConnector() override { return Take(eConnectorType_HID); }
    std::vector<std::string> ListSerialPorts() override;
    std::shared_ptr<Connector> MakeSerialConnector() override {
        return Take(eConnectorType_Serial);
    }
    uint32_t FtdiDeviceCount() override;
    std::shared_ptr<Connector> MakeFtdiConnector() override { return Take(eConnectorType_FTDI); }
    int TiDeviceCount() override { return static_cast<int>(mChannels[eConnectorType_TI].size()); }
    std::shared_ptr<Connector> MakeTiConnector() override { return Take(eConnectorType_TI); }
    bool IsMakerSystem() override { return makerSystem; }
    SPlatformReport Describe() override { return {}; }

    std::vector<SMonitorSource> monitors;
    // The serial numbers whose monitors answer on the video cable, and the reason of a failure.
    std::set<std::wstring> videoSerials;
    std::string videoError = "no reply on the DDC bus";
    bool makerSystem = false;

    int hidScans = 0;
    int serialScans = 0;
    int ftdiScans = 0;
    int videoConnectors = 0;
    std::map<std::wstring, std::string> handles;

private:
    std::shared_ptr<Connector> Take(int type_I);

    std::map<int, std::deque<std::shared_ptr<CTestChannel>>> mChannels;
};

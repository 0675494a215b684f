#pragma once
// Everything discovery needs of the operating system: the monitors of the desktop, the
// channels that may reach a scaler, and the transports to open them with. Discovery itself
// builds the records and the connectors over these transports, so a platform only lists and
// opens devices. The listings are in the system's own order, which discovery keeps.

#include "channels/IFtdiApi.h"
#include "channels/IHidDevice.h"
#include "channels/II2CBus.h"
#include "channels/ISerialPort.h"
#include "channels/ITIBridgeApi.h"
#include "discovery/SDisplayInfo.h"
#include "discovery/SMonitorSource.h"

#include <memory>
#include <string>
#include <vector>

class IDisplayPlatform {
public:
    virtual ~IDisplayPlatform() = default;

    // Monitors: every monitor the system shows, the family's or not.
    virtual std::vector<SMonitorSource> ListMonitors() = 0;
    // Finds the desktop monitor whose identity is info_IO.deviceID (compared ignoring case) and
    // stores its handle in info_IO.monitorHandle. false, with the record left as it is, when
    // no monitor of the desktop has that identity now.
    virtual bool RefreshMonitor(SDisplayInfo& info_IO) = 0;
    // The DDC bus behind a record's monitorHandle, or null when it can't be opened.
    virtual std::unique_ptr<II2CBus> OpenMonitorBus(const SDisplayInfo& info_I) = 0;

    // HID: the paths of the HID interfaces whose top-level collection is on the scaler's
    // vendor page 0xFFD1, as a probe open found them; and a closed device to open one with.
    virtual std::vector<std::string> ListHidChannels() = 0;
    virtual std::unique_ptr<IHidDevice> MakeHidDevice() = 0;

    // Serial ports: the names of the ports of the family's USB serial bridge (10C4:EA60), in
    // the form the port's Open takes; and a closed port to open one with.
    virtual std::vector<std::string> ListSerialPorts() = 0;
    virtual std::unique_ptr<ISerialPort> MakeSerialPort() = 0;

    // The bridge libraries; null when the platform has none, which leaves that channel empty.
    virtual std::shared_ptr<IFtdiApi> FtdiApi() = 0;
    virtual std::shared_ptr<ITIBridgeApi> TiApi() = 0;

    // Whether this computer is one of the maker's own, whose Cedar displays are built in.
    virtual bool IsMakerSystem() = 0;
};

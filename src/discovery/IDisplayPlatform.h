#pragma once
// Everything discovery needs of the operating system: the monitors of the desktop, the
// channels that may reach a scaler, and closed connectors to open them with. Discovery builds
// the records itself and opens the connectors, so a platform only lists devices and pairs each
// connector with its transport. The listings are in the system's own order, which discovery
// keeps.

#include "ddc/Connector.h"
#include "discovery/CMonitorConnectorDP.h"
#include "discovery/SDisplayInfo.h"
#include "discovery/SMonitorSource.h"
#include "discovery/SPlatformReport.h"

#include <cstdint>
#include <functional>
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
    // A closed video connector; its OpenDisplayInfo opens the DDC bus of a record's monitor.
    virtual std::shared_ptr<CMonitorConnectorDP> MakeVideoConnector() = 0;

    // HID: the paths of the HID interfaces whose top-level collection is on the scaler's
    // vendor page 0xFFD1, as a probe open found them; and a closed connector that opens a path.
    virtual std::vector<std::string> ListHidChannels() = 0;
    virtual std::shared_ptr<Connector> MakeHidConnector() = 0;

    // Serial ports: the names of the ports of the family's USB serial bridge (10C4:EA60), in
    // the form the connector's Open takes; and a closed connector that opens a name.
    virtual std::vector<std::string> ListSerialPorts() = 0;
    virtual std::shared_ptr<Connector> MakeSerialConnector() = 0;

    // The USB-to-I2C bridges: how many the bridge library sees (0 without the library), and a
    // closed connector that opens a bridge by index.
    virtual uint32_t FtdiDeviceCount() = 0;
    virtual std::shared_ptr<Connector> MakeFtdiConnector() = 0;
    virtual int TiDeviceCount() = 0;
    virtual std::shared_ptr<Connector> MakeTiConnector() = 0;

    // Whether this computer is one of the maker's own, whose Cedar displays are built in.
    virtual bool IsMakerSystem() = 0;

    // Hotplug: from now on changed_I runs, on any thread, each time a monitor or a channel of
    // the family may have arrived or left; one plug often gives a burst of calls, which the
    // caller lets settle before it discovers again. An empty function stops the calls. false
    // when the platform cannot watch.
    using HotplugCallback = std::function<void()>;
    virtual bool WatchHotplug(HotplugCallback changed_I) {
        (void)changed_I;
        return false;
    }

    // What the platform looks at on every channel and what it finds there now.
    virtual SPlatformReport Describe() = 0;
};

#pragma once
// A platform whose monitors and channels are simulated displays: each display plugged in is a
// monitor of the desktop, and it offers the channels it answers on (video cable, HID, serial
// port, FTDI and TI bridges). Tests, /simulate and the command line run discovery on it with no
// hardware.

#include "discovery/IDisplayPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/CSimDisplayChannels.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CSimulatedPlatform final : public IDisplayPlatform {
public:
    // What /simulate runs on when no description is given: a display on the video cable and one
    // on the HID channel.
    static constexpr std::string_view kDefaultDescription = "ElmLarge@video,Hazel@hid";

    // The displays of a description (sim/SimDescription.h); null with error_O set when the
    // description is bad.
    static std::shared_ptr<CSimulatedPlatform> FromDescription(std::string_view description_I,
                                                               std::string& error_O);

    explicit CSimulatedPlatform(std::vector<std::unique_ptr<CSimDisplay>> displays_I);
    ~CSimulatedPlatform() override;
    CSimulatedPlatform(const CSimulatedPlatform&) = delete;
    CSimulatedPlatform& operator=(const CSimulatedPlatform&) = delete;

    size_t DisplayCount() const;
    CSimDisplay& Display(size_t index_I);
    CSimDisplayChannels& Channels(size_t index_I);
    // Whether this computer counts as one of the maker's; false unless set.
    void SetMakerSystem(bool makerSystem_I) { mMakerSystem = makerSystem_I; }

    // The names under which the display at index_I shows up.
    static std::string MonitorKey(size_t index_I);
    static std::string MonitorHandle(size_t index_I);
    static std::string HidPath(size_t index_I);
    static std::string SerialPortName(size_t index_I);

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
    bool IsMakerSystem() override { return mMakerSystem; }
    // Each simulated display on each channel it answers on.
    SPlatformReport Describe() override;
    bool WatchHotplug(HotplugCallback changed_I) override;

    // A display leaves, or comes back (with the values it had saved), as a cable does; each
    // tells the hotplug watcher, on the calling thread.
    void Unplug(size_t index_I);
    void Replug(size_t index_I);

private:
    struct SWorld;

    // Plugged in, and answering on the channel.
    bool Reachable(size_t index_I, ESimChannel channel_I) const;

    // The displays and their front ends; transports share it, so that a connector that
    // outlives the platform still reaches them.
    std::shared_ptr<SWorld> mWorld;
    bool mMakerSystem = false;
    HotplugCallback mHotplug;
};

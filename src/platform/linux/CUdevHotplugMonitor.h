#pragma once
// Watches udev for the family's monitors and channels arriving or leaving: DRM connectors, and
// the USB devices of the channel table with their hidraw and tty nodes. Events are read on a
// thread of its own, which Stop ends at once through a pipe.

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <thread>

// Whether an event of the subsystem may change what discovery finds; usbId_I is the USB
// vendor and product of the device or of its USB parent, when udev still knows them.
bool IsHotplugRelevant(std::string_view subsystem_I,
                       std::optional<std::pair<uint16_t, uint16_t>> usbId_I);

class CUdevHotplugMonitor {
public:
    CUdevHotplugMonitor() = default;
    ~CUdevHotplugMonitor();
    CUdevHotplugMonitor(const CUdevHotplugMonitor&) = delete;
    CUdevHotplugMonitor& operator=(const CUdevHotplugMonitor&) = delete;

    // Calls changed_I on the monitor's thread for each relevant event until Stop; false when
    // udev cannot be watched.
    bool Start(std::function<void()> changed_I);
    void Stop();

private:
    void Run(void* monitor_I);

    std::function<void()> mChanged;
    std::thread mThread;
    int mStopPipe[2] = {-1, -1};
};

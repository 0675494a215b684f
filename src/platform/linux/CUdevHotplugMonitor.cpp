#include "platform/linux/CUdevHotplugMonitor.h"

#include "foundation/Trace.h"
#include "platform/linux/UsbChannelTable.h"

#include <libudev.h>
#include <poll.h>
#include <unistd.h>

#include <charconv>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr const char* kSubsystems[] = {"drm", "usb", "hidraw", "tty"};

bool ParseHex(std::string_view text_I, uint16_t& value_O) {
    const auto result = std::from_chars(text_I.data(), text_I.data() + text_I.size(), value_O, 16);
    return !text_I.empty() && result.ec == std::errc();
}

// PRODUCT of a USB device event: "vendor/product/release" in hexadecimal without zeros.
std::optional<std::pair<uint16_t, uint16_t>> UsbIdOfProduct(const char* product_I) {
    if (product_I == nullptr) {
        return std::nullopt;
    }
    const std::string_view text(product_I);
    const size_t slash = text.find('/');
    uint16_t vendor = 0;
    uint16_t product = 0;
    if (slash == std::string_view::npos || !ParseHex(text.substr(0, slash), vendor) ||
        !ParseHex(text.substr(slash + 1, text.find('/', slash + 1) - slash - 1), product)) {
        return std::nullopt;
    }
    return std::make_pair(vendor, product);
}

std::optional<std::pair<uint16_t, uint16_t>> UsbIdOf(udev_device* device_I) {
    if (auto id = UsbIdOfProduct(udev_device_get_property_value(device_I, "PRODUCT"))) {
        return id;
    }
    udev_device* usb = udev_device_get_parent_with_subsystem_devtype(device_I, "usb", "usb_device");
    if (usb != nullptr) {
        return UsbIdOfProduct(udev_device_get_property_value(usb, "PRODUCT"));
    }
    uint16_t vendor = 0;
    uint16_t product = 0;
    const char* vendorText = udev_device_get_property_value(device_I, "ID_VENDOR_ID");
    const char* productText = udev_device_get_property_value(device_I, "ID_MODEL_ID");
    if (vendorText && productText && ParseHex(vendorText, vendor) &&
        ParseHex(productText, product)) {
        return std::make_pair(vendor, product);
    }
    return std::nullopt;
}

} // namespace

bool IsHotplugRelevant(std::string_view subsystem_I,
                       std::optional<std::pair<uint16_t, uint16_t>> usbId_I) {
    if (subsystem_I == "drm") {
        return true;
    }
    if (subsystem_I != "usb" && subsystem_I != "hidraw" && subsystem_I != "tty") {
        return false;
    }
    // A node whose USB device udev no longer knows may have been one of the family's.
    return !usbId_I || FindUsbChannel(usbId_I->first, usbId_I->second) != nullptr;
}

CUdevHotplugMonitor::~CUdevHotplugMonitor() {
    Stop();
}

bool CUdevHotplugMonitor::Start(std::function<void()> changed_I) {
    Stop();
    udev* context = udev_new();
    udev_monitor* monitor = context ? udev_monitor_new_from_netlink(context, "udev") : nullptr;
    bool ok = monitor != nullptr;
    for (const char* subsystem : kSubsystems) {
        ok =
            ok && udev_monitor_filter_add_match_subsystem_devtype(monitor, subsystem, nullptr) >= 0;
    }
    ok = ok && udev_monitor_enable_receiving(monitor) >= 0 && pipe(mStopPipe) == 0;
    udev_unref(context);
    if (!ok) {
        Trace("CUdevHotplugMonitor: udev cannot be watched\n");
        udev_monitor_unref(monitor);
        return false;
    }
    mChanged = std::move(changed_I);
    mThread = std::thread([this, monitor] { Run(monitor); });
    return true;
}

void CUdevHotplugMonitor::Stop() {
    if (mThread.joinable()) {
        const char stop = 0;
        if (write(mStopPipe[1], &stop, 1) != 1) {
            Trace("CUdevHotplugMonitor: stop signal failed: %s\n", std::strerror(errno));
        }
        mThread.join();
    }
    for (int& end : mStopPipe) {
        if (end >= 0) {
            close(end);
            end = -1;
        }
    }
    mChanged = nullptr;
}

// Waits for events or the stop signal; there is no device on the other side that could keep
// it waiting once Stop writes to the pipe.
void CUdevHotplugMonitor::Run(void* monitor_I) {
    std::unique_ptr<udev_monitor, decltype(&udev_monitor_unref)> monitor(
        static_cast<udev_monitor*>(monitor_I), &udev_monitor_unref);
    pollfd fds[2] = {{udev_monitor_get_fd(monitor.get()), POLLIN, 0}, {mStopPipe[0], POLLIN, 0}};
    while (poll(fds, 2, -1) >= 0 || errno == EINTR) {
        if (fds[1].revents != 0) {
            return;
        }
        if ((fds[0].revents & POLLIN) == 0) {
            continue;
        }
        std::unique_ptr<udev_device, decltype(&udev_device_unref)> device(
            udev_monitor_receive_device(monitor.get()), &udev_device_unref);
        const char* subsystem = device ? udev_device_get_subsystem(device.get()) : nullptr;
        if (subsystem && IsHotplugRelevant(subsystem, UsbIdOf(device.get()))) {
            mChanged();
        }
    }
}

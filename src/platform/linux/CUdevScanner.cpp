#include "platform/linux/CUdevScanner.h"

#include "foundation/Trace.h"

#include <libudev.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>

namespace {

using UdevPtr = std::unique_ptr<udev, decltype(&udev_unref)>;
using EnumeratePtr = std::unique_ptr<udev_enumerate, decltype(&udev_enumerate_unref)>;
using DevicePtr = std::unique_ptr<udev_device, decltype(&udev_device_unref)>;

// The EDID block of a connector is at most this long (base block and three extensions).
constexpr std::streamsize kMaxEdidSize = 512;

// Calls visit_I with each device of the subsystem.
void ForEachDevice(const char* subsystem_I, const std::function<void(udev_device&)>& visit_I) {
    UdevPtr context(udev_new(), &udev_unref);
    if (!context) {
        Trace("CUdevScanner: udev is not available\n");
        return;
    }
    EnumeratePtr enumerate(udev_enumerate_new(context.get()), &udev_enumerate_unref);
    if (!enumerate || udev_enumerate_add_match_subsystem(enumerate.get(), subsystem_I) < 0 ||
        udev_enumerate_scan_devices(enumerate.get()) < 0) {
        return;
    }
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumerate.get())) {
        DevicePtr device(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)),
            &udev_device_unref);
        if (device) {
            visit_I(*device);
        }
    }
}

ByteVector ReadEdid(const std::filesystem::path& syspath_I) {
    std::ifstream file(syspath_I / "edid", std::ios::binary);
    ByteVector edid;
    if (file) {
        edid.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    if (edid.size() > static_cast<size_t>(kMaxEdidSize)) {
        edid.resize(kMaxEdidSize);
    }
    return edid;
}

bool IsBusName(const std::string& name_I) {
    return name_I.size() > 4 && name_I.compare(0, 4, "i2c-") == 0 &&
           name_I.find_first_not_of("0123456789", 4) == std::string::npos;
}

// The DDC bus: the connector's ddc link, else an i2c-N folder below it.
std::string FindI2CNode(const std::filesystem::path& syspath_I) {
    std::error_code error;
    const auto link = std::filesystem::read_symlink(syspath_I / "ddc", error);
    if (!error && IsBusName(link.filename().string())) {
        return "/dev/" + link.filename().string();
    }
    for (const auto& entry : std::filesystem::directory_iterator(syspath_I, error)) {
        const std::string name = entry.path().filename().string();
        if (IsBusName(name)) {
            return "/dev/" + name;
        }
    }
    return {};
}

uint16_t HexAttribute(udev_device& device_I, const char* name_I) {
    const char* text = udev_device_get_sysattr_value(&device_I, name_I);
    return text == nullptr ? 0 : static_cast<uint16_t>(std::strtoul(text, nullptr, 16));
}

} // namespace

std::vector<SUdevMonitor> CUdevScanner::Connectors() {
    std::vector<SUdevMonitor> connectors;
    ForEachDevice("drm", [&connectors](udev_device& device_I) {
        const char* status = udev_device_get_sysattr_value(&device_I, "status");
        if (status == nullptr) {
            return; // a card, not a connector
        }
        const std::filesystem::path syspath = udev_device_get_syspath(&device_I);
        connectors.push_back(
            {udev_device_get_sysname(&device_I), ReadEdid(syspath), FindI2CNode(syspath), status});
    });
    return connectors;
}

std::vector<SUdevMonitor> CUdevScanner::ConnectedMonitors() {
    std::vector<SUdevMonitor> monitors = Connectors();
    std::erase_if(monitors, [](const SUdevMonitor& monitor_I) {
        return monitor_I.status != "connected" || monitor_I.edid.empty();
    });
    return monitors;
}

std::vector<std::string> CUdevScanner::I2CDevNodes() {
    std::vector<std::string> nodes;
    ForEachDevice("i2c-dev", [&nodes](udev_device& device_I) {
        if (const char* node = udev_device_get_devnode(&device_I)) {
            nodes.emplace_back(node);
        }
    });
    return nodes;
}

std::vector<SUdevHidraw> CUdevScanner::Hidraws() {
    std::vector<SUdevHidraw> hidraws;
    ForEachDevice("hidraw", [&hidraws](udev_device& device_I) {
        const char* node = udev_device_get_devnode(&device_I);
        udev_device* hid = udev_device_get_parent_with_subsystem_devtype(&device_I, "hid", nullptr);
        const char* id = hid ? udev_device_get_property_value(hid, "HID_ID") : nullptr;
        unsigned bus = 0;
        unsigned vendor = 0;
        unsigned product = 0;
        if (node == nullptr || id == nullptr ||
            std::sscanf(id, "%x:%x:%x", &bus, &vendor, &product) != 3) {
            return;
        }
        std::ifstream file(std::filesystem::path(udev_device_get_syspath(hid)) /
                               "report_descriptor",
                           std::ios::binary);
        ByteVector descriptor;
        if (file) {
            descriptor.assign(std::istreambuf_iterator<char>(file),
                              std::istreambuf_iterator<char>());
        }
        hidraws.push_back({node, static_cast<uint16_t>(vendor), static_cast<uint16_t>(product),
                           std::move(descriptor)});
    });
    return hidraws;
}

std::vector<SUdevUsbDevice> CUdevScanner::UsbDevices() {
    std::vector<SUdevUsbDevice> devices;
    ForEachDevice("usb", [&devices](udev_device& device_I) {
        const char* type = udev_device_get_devtype(&device_I);
        if (type != nullptr && std::string(type) == "usb_device") {
            devices.push_back({udev_device_get_sysname(&device_I),
                               HexAttribute(device_I, "idVendor"),
                               HexAttribute(device_I, "idProduct")});
        }
    });
    return devices;
}

std::vector<SUdevSerialPort> CUdevScanner::UsbSerialPorts() {
    std::vector<SUdevSerialPort> ports;
    ForEachDevice("tty", [&ports](udev_device& device_I) {
        const char* node = udev_device_get_devnode(&device_I);
        udev_device* usb =
            udev_device_get_parent_with_subsystem_devtype(&device_I, "usb", "usb_device");
        if (node == nullptr || usb == nullptr) {
            return;
        }
        ports.push_back({node, HexAttribute(*usb, "idVendor"), HexAttribute(*usb, "idProduct")});
    });
    return ports;
}

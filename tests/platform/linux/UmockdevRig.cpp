#include "UmockdevRig.h"

#include <umockdev.h>

#include <linux/hidraw.h>
#include <linux/i2c-dev.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace {

using SNode = CUmockdevRig::SNode;

std::string Hex4(uint16_t value_I) {
    char text[8];
    std::snprintf(text, sizeof text, "%04x", value_I);
    return text;
}

// A collection on the usage page with one 511-byte feature report E5.
std::vector<uint8_t> ReportDescriptor(uint16_t usagePage_I) {
    std::vector<uint8_t> descriptor = {0x06, 0x00, 0x00, 0x09, 0x01, 0xA1, 0x01, 0x85,
                                       0xE5, 0x15, 0x00, 0x26, 0xFF, 0x00, 0x75, 0x08,
                                       0x96, 0xFF, 0x01, 0x09, 0x01, 0xB1, 0x02, 0xC0};
    descriptor[1] = static_cast<uint8_t>(usagePage_I & 0xFF);
    descriptor[2] = static_cast<uint8_t>(usagePage_I >> 8);
    return descriptor;
}

// Resolves the pointer argument of an ioctl to size_I bytes of the caller's memory.
UMockdevIoctlData* Resolve(UMockdevIoctlClient* client_I, size_t size_I) {
    return umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(client_I), 0, size_I, nullptr);
}

gboolean HandleIoctl(UMockdevIoctlBase*, UMockdevIoctlClient* client_I, gpointer data_I) {
    auto& node = *static_cast<SNode*>(data_I);
    const unsigned long request = umockdev_ioctl_client_get_request(client_I);
    UMockdevIoctlData* arg = umockdev_ioctl_client_get_arg(client_I);
    if (node.i2c != nullptr && request == I2C_SLAVE) {
        std::memcpy(&node.address, arg->data, sizeof node.address);
        umockdev_ioctl_client_complete(client_I, 0, 0);
        return TRUE;
    }
    if (node.hid != nullptr && request == HIDIOCGRDESCSIZE) {
        UMockdevIoctlData* size = Resolve(client_I, sizeof(int));
        const int descriptorSize = static_cast<int>(ReportDescriptor(0).size());
        std::memcpy(size->data, &descriptorSize, sizeof descriptorSize);
        umockdev_ioctl_client_complete(client_I, 0, 0);
        return TRUE;
    }
    const unsigned long plain =
        request & ~(static_cast<unsigned long>(_IOC_SIZEMASK) << _IOC_SIZESHIFT);
    const size_t length = _IOC_SIZE(request);
    if (node.hid != nullptr && (plain == HIDIOCSFEATURE(0) || plain == HIDIOCGFEATURE(0))) {
        UMockdevIoctlData* buffer = Resolve(client_I, length);
        std::vector<uint8_t> report(buffer->data, buffer->data + length);
        bool done = false;
        if (plain == HIDIOCSFEATURE(0)) {
            done = node.hid->SetFeature(report);
        } else {
            done = node.hid->GetFeature(report);
            if (done) {
                report.resize(length, 0x00);
                std::memcpy(buffer->data, report.data(), length);
            }
        }
        umockdev_ioctl_client_complete(client_I, done ? static_cast<glong>(length) : -1,
                                       done ? 0 : EPIPE);
        return TRUE;
    }
    umockdev_ioctl_client_complete(client_I, -1, ENOTTY);
    return TRUE;
}

// Termios calls on a pty-backed tty run on the real pty.
gboolean PassIoctl(UMockdevIoctlBase*, UMockdevIoctlClient* client_I, gpointer) {
    int error = 0;
    const int result = umockdev_ioctl_client_execute(client_I, &error, nullptr);
    umockdev_ioctl_client_complete(client_I, result, error);
    return TRUE;
}

// One I2C transaction with the node's slave: a write of the caller's bytes or a read into them.
gboolean HandleTransfer(UMockdevIoctlClient* client_I, SNode& node_I, bool read_I) {
    UMockdevIoctlData* arg = umockdev_ioctl_client_get_arg(client_I);
    if (node_I.i2c == nullptr) {
        umockdev_ioctl_client_complete(client_I, -1, EINVAL);
        return TRUE;
    }
    bool acked = node_I.i2c->Address(static_cast<uint8_t>(node_I.address << 1 | (read_I ? 1 : 0)));
    for (int i = 0; acked && i < arg->data_len; ++i) {
        if (read_I) {
            arg->data[i] = node_I.i2c->Read(i + 1 < arg->data_len);
        } else {
            acked = node_I.i2c->Write(arg->data[i]);
        }
    }
    node_I.i2c->Stop();
    umockdev_ioctl_client_complete(client_I, acked ? arg->data_len : -1, acked ? 0 : ENXIO);
    return TRUE;
}

gboolean HandleWrite(UMockdevIoctlBase*, UMockdevIoctlClient* client_I, gpointer data_I) {
    return HandleTransfer(client_I, *static_cast<SNode*>(data_I), false);
}

gboolean HandleRead(UMockdevIoctlBase*, UMockdevIoctlClient* client_I, gpointer data_I) {
    return HandleTransfer(client_I, *static_cast<SNode*>(data_I), true);
}

} // namespace

CUmockdevRig::CUmockdevRig() : mTestbed(umockdev_testbed_new()) {}

CUmockdevRig::~CUmockdevRig() {
    for (UMockdevIoctlBase* handler : mHandlers) {
        g_object_unref(handler);
    }
    g_object_unref(mTestbed);
}

bool CUmockdevRig::InMockEnvironment() {
    return umockdev_in_mock_environment() != FALSE;
}

std::string CUmockdevRig::AddI2CAdapter(int bus_I) {
    const std::string name = "i2c-" + std::to_string(bus_I);
    gchar* path = umockdev_testbed_add_device(mTestbed, "i2c", name.c_str(), nullptr, "name",
                                              "DDC adapter", nullptr, nullptr);
    std::string syspath = path;
    g_free(path);
    mAdapters[bus_I] = syspath;
    return syspath;
}

std::string CUmockdevRig::AddConnector(const std::string& name_I,
                                       const std::vector<uint8_t>& edid_I, const char* status_I,
                                       int busLink_I, int busChild_I) {
    gchar* path = umockdev_testbed_add_device(mTestbed, "drm", name_I.c_str(), nullptr, "status",
                                              status_I, nullptr, nullptr);
    std::string syspath = path;
    g_free(path);
    umockdev_testbed_set_attribute_binary(mTestbed, syspath.c_str(), "edid",
                                          const_cast<guint8*>(edid_I.data()),
                                          static_cast<gssize>(edid_I.size()));
    if (busLink_I >= 0) {
        const std::string adapter = AddI2CAdapter(busLink_I);
        umockdev_testbed_set_attribute_link(mTestbed, syspath.c_str(), "ddc", adapter.c_str());
    }
    if (busChild_I >= 0) {
        const std::string name = "i2c-" + std::to_string(busChild_I);
        gchar* child = umockdev_testbed_add_device(mTestbed, "i2c", name.c_str(), syspath.c_str(),
                                                   nullptr, nullptr);
        mAdapters[busChild_I] = child;
        g_free(child);
    }
    return syspath;
}

void CUmockdevRig::Attach(const std::string& node_I, SNode& node_IO) {
    // The testbed makes no node for a class device without content; the preload needs one to
    // open before it hands the calls to the handler.
    gchar* root = umockdev_testbed_get_root_dir(mTestbed);
    const std::string file = std::string(root) + node_I;
    g_free(root);
    g_file_set_contents(file.c_str(), "", 0, nullptr);
    UMockdevIoctlBase* handler = umockdev_ioctl_base_new();
    g_signal_connect(handler, "handle-ioctl", G_CALLBACK(HandleIoctl), &node_IO);
    g_signal_connect(handler, "handle-read", G_CALLBACK(HandleRead), &node_IO);
    g_signal_connect(handler, "handle-write", G_CALLBACK(HandleWrite), &node_IO);
    GError* error = nullptr;
    if (!umockdev_testbed_attach_ioctl(mTestbed, node_I.c_str(), handler, &error)) {
        const std::string text = error != nullptr ? error->message : node_I;
        g_clear_error(&error);
        g_object_unref(handler);
        throw std::runtime_error("umockdev can't emulate " + text);
    }
    mHandlers.push_back(handler);
}

gchar* CUmockdevRig::AddUsbDevice(uint16_t vendorId_I, uint16_t productId_I) {
    const std::string name = "1-" + std::to_string(++mUsbCount);
    return umockdev_testbed_add_device(
        mTestbed, "usb", name.c_str(), nullptr, "idVendor", Hex4(vendorId_I).c_str(), "idProduct",
        Hex4(productId_I).c_str(), nullptr, "DEVTYPE", "usb_device", nullptr);
}

std::string CUmockdevRig::AddI2CDevice(int bus_I) {
    // The i2c-dev class device of the adapter carries the node.
    const std::string name = "i2c-" + std::to_string(bus_I);
    const std::string node = "/dev/" + name;
    const auto adapter = mAdapters.find(bus_I);
    gchar* dev = umockdev_testbed_add_device(
        mTestbed, "i2c-dev", name.c_str(),
        adapter == mAdapters.end() ? nullptr : adapter->second.c_str(), "dev",
        ("89:" + std::to_string(bus_I)).c_str(), nullptr, "DEVNAME", node.c_str(), nullptr);
    g_free(dev);
    return node;
}

void CUmockdevRig::AttachI2C(int bus_I, ISimI2CTarget& target_I) {
    const std::string node = AddI2CDevice(bus_I);
    SNode& emulated = mNodes.emplace_back();
    emulated.i2c = &target_I;
    Attach(node, emulated);
}

int CUmockdevRig::AddUsbSerial(const std::string& tty_I, uint16_t vendorId_I,
                               uint16_t productId_I) {
    gchar* usb = AddUsbDevice(vendorId_I, productId_I);
    // A node line without content makes the testbed back the tty with a pty.
    const std::string node = "/dev/" + tty_I;
    const std::string record = std::string("P: ") + (usb + 4) + "/" + tty_I + "\nN: " + tty_I +
                               "\nE: DEVNAME=" + node +
                               "\nE: SUBSYSTEM=tty\nA: dev=188:" + std::to_string(mUsbCount) + "\n";
    g_free(usb);
    GError* error = nullptr;
    if (!umockdev_testbed_add_from_string(mTestbed, record.c_str(), &error)) {
        const std::string text = error != nullptr ? error->message : record;
        g_clear_error(&error);
        throw std::runtime_error("umockdev can't add " + text);
    }
    UMockdevIoctlBase* handler = umockdev_ioctl_base_new();
    g_signal_connect(handler, "handle-ioctl", G_CALLBACK(PassIoctl), nullptr);
    umockdev_testbed_attach_ioctl(mTestbed, node.c_str(), handler, nullptr);
    mHandlers.push_back(handler);
    return umockdev_testbed_get_dev_fd(mTestbed, node.c_str());
}

void CUmockdevRig::AddHidraw(const std::string& hidraw_I, uint16_t vendorId_I, uint16_t productId_I,
                             uint16_t usagePage_I, CSimHidDevice& device_I) {
    gchar* usb = AddUsbDevice(vendorId_I, productId_I);
    const std::string hidName =
        "0003:" + Hex4(vendorId_I) + ":" + Hex4(productId_I) + "." + std::to_string(mUsbCount);
    char hidId[32];
    std::snprintf(hidId, sizeof hidId, "0003:%08X:%08X", vendorId_I, productId_I);
    gchar* hid = umockdev_testbed_add_device(mTestbed, "hid", hidName.c_str(), usb, nullptr,
                                             "HID_ID", hidId, "HID_NAME", "Vorex scaler",
                                             "HID_UNIQ", "", "HID_PHYS", "usb-1/input0", nullptr);
    const std::vector<uint8_t> descriptor = ReportDescriptor(usagePage_I);
    umockdev_testbed_set_attribute_binary(mTestbed, hid, "report_descriptor",
                                          const_cast<guint8*>(descriptor.data()),
                                          static_cast<gssize>(descriptor.size()));
    const std::string node = "/dev/" + hidraw_I;
    const std::string dev = "247:" + std::to_string(mUsbCount);
    gchar* raw =
        umockdev_testbed_add_device(mTestbed, "hidraw", hidraw_I.c_str(), hid, "dev", dev.c_str(),
                                    nullptr, "DEVNAME", node.c_str(), nullptr);
    umockdev_testbed_set_attribute_link(mTestbed, raw, "device", "..");
    g_free(raw);
    g_free(hid);
    g_free(usb);
    SNode& emulated = mNodes.emplace_back();
    emulated.hid = &device_I;
    Attach(node, emulated);
}

#include "platform/linux/LinuxChannelReport.h"

#include "discovery/CDisplayConfigInterface.h"
#include "model/CEdidBuilder.h"
#include "platform/linux/CLinuxHidDevice.h"
#include "platform/linux/CLinuxPlatform.h"
#include "platform/linux/CUdevScanner.h"
#include "platform/linux/UsbChannelTable.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace {

std::string VendorId(uint16_t vendorId_I) {
    char text[8];
    std::snprintf(text, sizeof text, "%04X", vendorId_I);
    return text;
}

std::string UsbId(uint16_t vendorId_I, uint16_t productId_I) {
    char text[16];
    std::snprintf(text, sizeof text, "%04X:%04X", vendorId_I, productId_I);
    return text;
}

// Empty when the user may read and write the node, else why not and what helps.
std::string AccessProblem(const std::string& node_I) {
    if (::access(node_I.c_str(), R_OK | W_OK) == 0) {
        return {};
    }
    const int error = errno;
    if (error == EACCES || error == EPERM) {
        return std::string("you may not open it (") + std::strerror(error) +
               "): install the udev "
               "rules " +
               kUdevRulesFileName + " and plug the device in again or log in again";
    }
    if (error == ENOENT) {
        return "its device node is missing";
    }
    return std::string("it does not open: ") + std::strerror(error);
}

// The first Usage Page item of a HID report descriptor; 0 when there is none.
uint16_t FirstUsagePage(const ByteVector& descriptor_I) {
    for (size_t at = 0; at < descriptor_I.size();) {
        const uint8_t prefix = descriptor_I[at];
        const size_t size = (prefix & 3) == 3 ? 4 : (prefix & 3);
        if ((prefix & 0xFC) == 0x04 && size > 0 && at + size < descriptor_I.size()) {
            return static_cast<uint16_t>(descriptor_I[at + 1] |
                                         (size > 1 ? descriptor_I[at + 2] << 8 : 0));
        }
        at += 1 + size;
    }
    return 0;
}

const SUsbChannel& ChannelOfRole(EUsbChannelRole role_I) {
    return *std::find_if(UsbChannels().begin(), UsbChannels().end(),
                         [&](const SUsbChannel& channel_I) { return channel_I.role == role_I; });
}

class CReport {
public:
    explicit CReport(const SLinuxReportSetup& setup_I) : mSetup(setup_I) {}

    SPlatformReport Make() {
        CEdidBuilder::Instance();
        Video();
        Rules();
        Hid();
        Serial();
        Ftdi();
        Add("ti", "TI library",
            mSetup.tiLibrary.empty() ? "not installed: the TI bridge channel is off"
                                     : "found: " + mSetup.tiLibrary,
            false);
        return std::move(mReport);
    }

private:
    void Add(const char* channel_I, std::string subject_I, std::string text_I, bool problem_I) {
        mReport.findings.push_back({channel_I, std::move(subject_I), std::move(text_I), problem_I});
    }

    void Video() {
        const std::vector<std::string> nodes = CUdevScanner::I2CDevNodes();
        if (nodes.empty()) {
            Add("video", "i2c-dev",
                "no /dev/i2c-* node: the i2c-dev kernel module is not loaded, so no display "
                "is reached over its video cable; load it with 'sudo modprobe i2c-dev'",
                true);
        } else {
            std::string list;
            size_t open = 0;
            for (const std::string& node : nodes) {
                list += (list.empty() ? "" : ", ") + node;
                open += AccessProblem(node).empty() ? 1 : 0;
            }
            Add("video", "i2c-dev",
                "loaded, nodes " + list + "; you may open " + std::to_string(open) + " of " +
                    std::to_string(nodes.size()),
                false);
        }
        for (const SUdevMonitor& connector : CUdevScanner::Connectors()) {
            Connector(connector);
        }
    }

    void Connector(const SUdevMonitor& connector_I) {
        std::string text = connector_I.status;
        const std::string id = CLinuxPlatform::HardwareIdOfEdid(connector_I.edid);
        const std::string shortName = id.substr(id.find('\\') + 1);
        const bool family = !id.empty() && CDisplayConfigInterface::LookupByEDID(shortName) !=
                                               CEdidBuilder::kNoTablet;
        if (id.empty()) {
            text += ", no EDID";
        } else {
            text += ", EDID " + shortName + (family ? " (a display of the family)" : "");
        }
        std::string problem;
        if (connector_I.i2cNode.empty()) {
            problem = "the graphics driver offers no DDC bus for this connector";
            text += ", " + problem;
        } else {
            text += ", DDC bus " + connector_I.i2cNode;
            problem = AccessProblem(connector_I.i2cNode);
            if (!problem.empty()) {
                text += ": " + problem;
            }
        }
        Add("video", connector_I.connectorName, text,
            family && connector_I.status == "connected" && !problem.empty());
    }

    void Rules() {
        std::string found;
        for (const std::string& folder : mSetup.udevRuleFolders) {
            const std::filesystem::path path = std::filesystem::path(folder) / kUdevRulesFileName;
            std::error_code error;
            if (found.empty() && std::filesystem::exists(path, error)) {
                found = path.string();
            }
        }
        Add("all", "udev rules",
            found.empty() ? std::string("not installed: without ") + kUdevRulesFileName +
                                " in /etc/udev/rules.d or /usr/lib/udev/rules.d only root "
                                "may open the channels"
                          : "installed as " + found,
            found.empty());
    }

    void Hid() {
        const SUsbChannel& vendor = ChannelOfRole(EUsbChannelRole::eVendorHid);
        bool any = false;
        for (const SUdevHidraw& hidraw : CUdevScanner::Hidraws()) {
            if (hidraw.vendorId != vendor.vendorId) {
                continue;
            }
            any = true;
            const uint16_t page = FirstUsagePage(hidraw.reportDescriptor);
            const bool scaler = page == kScalerHidUsagePage;
            char pageText[8];
            std::snprintf(pageText, sizeof pageText, "0x%04X", page);
            std::string text = UsbId(hidraw.vendorId, hidraw.productId) + ", usage page " +
                               pageText + (scaler ? " (the scaler's)" : " (not the scaler's)");
            const std::string problem = AccessProblem(hidraw.devNode);
            if (!problem.empty()) {
                text += ": " + problem;
            }
            Add("hid", hidraw.devNode, text, scaler && !problem.empty());
        }
        if (!any) {
            Add("hid", "hidraw",
                "no HID interface of the family's vendor (" + VendorId(vendor.vendorId) + ")",
                false);
        }
    }

    void Serial() {
        const SUsbChannel& bridge = ChannelOfRole(EUsbChannelRole::eSerialBridge);
        bool any = false;
        for (const SUdevSerialPort& port : CUdevScanner::UsbSerialPorts()) {
            if (FindUsbChannel(port.vendorId, port.productId) != &bridge) {
                continue;
            }
            any = true;
            const std::string problem = AccessProblem(port.devNode);
            Add("serial", port.devNode,
                UsbId(port.vendorId, port.productId) + " CP210x serial bridge" +
                    (problem.empty() ? "" : ": " + problem),
                !problem.empty());
        }
        if (!any) {
            Add("serial", "tty",
                "no CP210x serial bridge (" + UsbId(bridge.vendorId, bridge.productId) + ")",
                false);
        }
    }

    void Ftdi() {
        const SUsbChannel& bridge = ChannelOfRole(EUsbChannelRole::eFtdiBridge);
        size_t count = 0;
        for (const SUdevUsbDevice& device : CUdevScanner::UsbDevices()) {
            if (FindUsbChannel(device.vendorId, device.productId) == &bridge) {
                ++count;
                Add("ftdi", "USB " + device.name,
                    UsbId(device.vendorId, device.productId) + " FTDI I2C bridge", false);
            }
        }
        if (count == 0) {
            Add("ftdi", "USB",
                "no FTDI I2C bridge (" + UsbId(bridge.vendorId, bridge.productId) + ")", false);
        }
        Add("ftdi", "FTDI library",
            mSetup.ftdiLibrary.empty()
                ? "not installed: the FTDI bridge channel needs libftdi1 (package libftdi1-2)"
                : "found: " + mSetup.ftdiLibrary,
            mSetup.ftdiLibrary.empty() && count > 0);
    }

    const SLinuxReportSetup& mSetup;
    SPlatformReport mReport{"Linux", false, {}};
};

} // namespace

SPlatformReport DescribeLinuxChannels(const SLinuxReportSetup& setup_I) {
    return CReport(setup_I).Make();
}

#include "UmockdevRig.h"

#include "foundation/VirtualClock.h"
#include "platform/linux/CLinuxHidDevice.h"
#include "platform/linux/CLinuxPlatform.h"
#include "platform/linux/UsbChannelTable.h"
#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

namespace fs = std::filesystem;

namespace {

TEST(LinuxDetectTest, EachChannelSaysWhatItFoundAndWhatStandsInTheWay) {
    if (const CUmockdevRig probe; !CUmockdevRig::InMockEnvironment()) {
        GTEST_SKIP() << "needs umockdev-wrapper";
    }
    CScopedVirtualClock clock;
    CSimDisplay birch{*FindSimModel("Birch"), "BRC0000000042", SimChannelBit(ESimChannel::eVideo)};
    CSimDisplay hazel{*FindSimModel("Hazel"), "HZL0000000007", SimChannelBit(ESimChannel::eHid)};
    CSimHidDevice hidInterface{hazel, {"/dev/hidraw2", 0x0F5E, 0x03A6}};
    const fs::path rules = fs::path(::testing::TempDir()) / "paneltune-rules";
    fs::create_directories(rules);
    struct SRow {
        const char* what;
        std::function<void(CUmockdevRig&)> setup;
        bool rulesInstalled;
        const char* subject; // of the finding looked at
        const char* text;    // in its text
        bool problem;
        bool likelyReason; // the first problem, named when nothing is found
    };
    const std::vector<uint8_t> family = birch.Edid();
    const SRow rows[] = {
        {"no i2c-dev",
         [&](CUmockdevRig& rig_I) { rig_I.AddConnector("card0-DP-1", family, "connected", 5); },
         true, "i2c-dev", "sudo modprobe i2c-dev", true, true},
        {"a bus that does not open",
         [&](CUmockdevRig& rig_I) {
             rig_I.AddConnector("card0-DP-1", family, "connected", 5);
             rig_I.AddI2CDevice(5);
         },
         true, "card0-DP-1", "DDC bus /dev/i2c-5: its device node is missing", true, true},
        {"a connector without a DDC bus",
         [&](CUmockdevRig& rig_I) {
             rig_I.AddConnector("card0-HDMI-A-1", family, "connected", -1);
             rig_I.AddConnector("card0-DP-2", family, "disconnected", 6);
             rig_I.AttachI2C(6, birch.I2C());
         },
         true, "card0-HDMI-A-1", "(a display of the family), the graphics driver offers no DDC bus",
         true, true},
        {"a family HID interface",
         [&](CUmockdevRig& rig_I) {
             rig_I.AddHidraw("hidraw2", 0x0F5E, 0x03A6, kScalerHidUsagePage, hidInterface);
         },
         true, "/dev/hidraw2", "0F5E:03A6, usage page 0xFFD1 (the scaler's)", false, false},
        {"an FTDI bridge without a library",
         [&](CUmockdevRig& rig_I) { rig_I.AddUsbSerial("ttyUSB0", 0x0403, 0x6014); }, true,
         "FTDI library", "needs libftdi1", true, false},
        {"no udev rules", [&](CUmockdevRig&) {}, false, "udev rules", "not installed", true, false},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.what);
        CUmockdevRig rig;
        row.setup(rig);
        fs::remove(rules / kUdevRulesFileName);
        if (row.rulesInstalled) {
            std::ofstream(rules / kUdevRulesFileName) << UdevRulesText();
        }
        SLinuxPlatformFiles files;
        files.ftdiLibrary = L"libpaneltune-absent-ftd2xx.so";
        files.ftdiOpenLibrary = L"libpaneltune-absent-ftdi1.so";
        files.tiLibrary = L"libpaneltune-absent-ti.so";
        files.udevRuleFolders = {rules.string()};
        const SPlatformReport report = CLinuxPlatform(files).Describe();

        EXPECT_FALSE(report.simulated);
        const SPlatformFinding* found = nullptr;
        for (const SPlatformFinding& finding : report.findings) {
            found = found == nullptr && finding.subject == row.subject ? &finding : found;
        }
        ASSERT_NE(found, nullptr);
        EXPECT_NE(found->text.find(row.text), std::string::npos) << found->text;
        EXPECT_EQ(found->problem, row.problem) << found->text;
        EXPECT_EQ(MostLikelyReason(report).starts_with(std::string(row.subject) + ": "),
                  row.likelyReason)
            << MostLikelyReason(report);
    }
    fs::remove_all(rules);
}

} // namespace

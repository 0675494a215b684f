#include "UmockdevRig.h"

#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "foundation/VirtualClock.h"
#include "platform/linux/CLinuxHidDevice.h"
#include "platform/linux/CLinuxPlatform.h"
#include "sim/CSimDisplay.h"
#include "sim/SimModelTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::UnorderedElementsAre;

namespace {

SDisplayConfigOptions Options(SConnectionMode mode_I) {
    SDisplayConfigOptions options;
    options.language = LanguageProvider("en");
    options.connectionMode = mode_I;
    return options;
}

class LinuxDiscoveryTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!CUmockdevRig::InMockEnvironment()) {
            GTEST_SKIP() << "needs umockdev-wrapper";
        }
        // No bridge library on this machine, whatever is installed.
        mFiles.ftdiLibrary = L"libpaneltune-absent-ftd2xx.so";
        mFiles.ftdiOpenLibrary = L"libpaneltune-absent-ftdi1.so";
        mFiles.tiLibrary = L"libpaneltune-absent-ti.so";
    }

    CScopedVirtualClock mClock;
    CSimDisplay mVideo{*FindSimModel("Birch"), "BRC0000000042", SimChannelBit(ESimChannel::eVideo)};
    CSimDisplay mHid{*FindSimModel("Hazel"), "HZL0000000007", SimChannelBit(ESimChannel::eHid)};
    CSimHidDevice mHidInterface{mHid, {"/dev/hidraw2", 0x0F5E, 0x03A6}};
    CUmockdevRig mRig;
    SLinuxPlatformFiles mFiles;
};

TEST_F(LinuxDiscoveryTest, FindsADisplayOnTheVideoCableAndOneOnItsHidInterface) {
    mRig.AddConnector("card0-DP-1", mVideo.Edid(), "connected", 5);
    mRig.AttachI2C(5, mVideo.I2C());
    mRig.AddConnector("card0-HDMI-A-1", mHid.Edid(), "connected", 6);
    mRig.AddHidraw("hidraw2", 0x0F5E, 0x03A6, kScalerHidUsagePage, mHidInterface);

    CDisplayConfigInterface config(Options(eConnectionMode_All),
                                   std::make_shared<CLinuxPlatform>(mFiles));
    std::vector<std::string> serials;
    for (const SDisplayInfo& info : config.DisplayInfos()) {
        serials.push_back(ToNarrow(info.serialNumber) + " " + info.monitorHandle);
    }
    EXPECT_THAT(serials,
                UnorderedElementsAre("BRC0000000042 /dev/i2c-5", "HZL0000000007 /dev/i2c-6"));
    EXPECT_EQ(config.DisplayNames().size(), 2u);
}

} // namespace

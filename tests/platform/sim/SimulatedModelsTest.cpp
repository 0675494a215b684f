#include "ddc/VcpCodes.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"
#include "platform/sim/CSimulatedPlatform.h"
#include "resources/CResourceModule.h"
#include "resources/ResourceLookup.h"
#include "sim/SimModelTable.h"

#include <gtest/gtest.h>

namespace {

SDisplayConfigOptions Options(SConnectionMode mode_I = eConnectionMode_All) {
    SDisplayConfigOptions options;
    options.language = LanguageProvider("en");
    options.connectionMode = mode_I;
    return options;
}

std::shared_ptr<CSimulatedPlatform> Platform(std::string_view description_I) {
    std::string error;
    auto platform = CSimulatedPlatform::FromDescription(description_I, error);
    EXPECT_NE(platform, nullptr) << error;
    return platform;
}

class SimulatedDiscoveryTest : public ::testing::Test {
protected:
    CScopedVirtualClock clock;
};

TEST_F(SimulatedDiscoveryTest, PairsTwoDisplaysOfOneModelBySerialNumber) {
    auto platform = Platform("Birch@ftdi:serial=BIRCHA,Birch@ftdi+video:serial=BIRCHB");
    ASSERT_NE(platform, nullptr);
    CDisplayConfigInterface config(Options(), platform);

    ASSERT_EQ(config.DisplayInfos().size(), 2u);
    for (const SDisplayInfo& info : config.DisplayInfos()) {
        ASSERT_NE(info.display, nullptr);
        EXPECT_EQ(ToWide(info.display->GetConnector()->SerialNumber(kNoTabletId)),
                  info.serialNumber);
    }
    EXPECT_EQ(config.DisplayInfos()[1].display->GetConnector()->ConnectorType(),
              eConnectorType_DisplayPort);
}

TEST_F(SimulatedDiscoveryTest, DropsDisplaysNoChannelReaches) {
    auto platform = Platform("Birch@none,Hazel@hid,FirLarge@ftdi");
    ASSERT_NE(platform, nullptr);
    platform->Display(1).Unplug();
    CDisplayConfigInterface config(Options(), platform);

    ASSERT_EQ(config.DisplayInfos().size(), 1u);
    EXPECT_EQ(config.DisplayInfos()[0].edidNumber, 0x1065);

    // Plugged in again, the HID display is found by a new discovery.
    platform->Display(1).Replug();
    config.Rediscover();
    EXPECT_EQ(config.DisplayInfos().size(), 2u);
}

TEST_F(SimulatedDiscoveryTest, ReportsTheVideoFailureWhenAskedToStop) {
    auto platform = Platform("ElmLarge@ftdi,Hazel@hid");
    ASSERT_NE(platform, nullptr);
    SDisplayConfigOptions options = Options(eConnectionMode_Video);
    options.exitOnError = true;
    CDisplayConfigInterface config(options, platform);

    ASSERT_EQ(config.DisplayInfos().size(), 2u);
    EXPECT_EQ(config.DisplayInfos()[0].display, nullptr);
    const std::string& error = config.LastError();
    EXPECT_EQ(error.rfind("Display: VRX1060  [", 0), 0u) << error;
    EXPECT_NE(error.find("]\n    Could not connect through Display Port API\n    "),
              std::string::npos)
        << error;
    EXPECT_NE(error.find(CSimulatedPlatform::MonitorHandle(0)), std::string::npos) << error;
}

// The simulator is written without the resources, yet a simulated display must show the same
// model number in its EDID as the resources give its product, and be a product they know.
TEST(SimulatedModels, CarryTheModelNumbersAndProductsOfTheResourceGroups) {
    const uint16_t english = LanguageProvider("en").mLanguage.languageId;
    for (const SSimModel& model : SimModels()) {
        SCOPED_TRACE(model.name);
        EXPECT_EQ(
            ToNarrow(GetGroupString("2101", model.productId, english, false, ProgramResources())),
            model.displayName);
        EXPECT_FALSE(
            GetGroupString("2000", model.productId, english, false, ProgramResources()).empty());
    }
}

} // namespace

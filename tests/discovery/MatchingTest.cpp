#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"
#include "platform/sim/CSimulatedPlatform.h"

#include <gtest/gtest.h>

namespace {

constexpr int kHid = eConnectorType_HID;
constexpr int kSerial = eConnectorType_Serial;
constexpr int kFtdi = eConnectorType_FTDI;
constexpr int kTi = eConnectorType_TI;
constexpr int kVideo = eConnectorType_DisplayPort;

class MatchingTest : public ::testing::Test {
protected:
    // Discovery over the simulated displays of a description.
    std::unique_ptr<CDisplayConfigInterface> Discover(const char* description_I,
                                                      SConnectionMode mode_I,
                                                      bool skipSerialMatch_I = false,
                                                      bool exitOnError_I = false) {
        std::string error;
        platform = CSimulatedPlatform::FromDescription(description_I, error);
        EXPECT_EQ(error, "") << description_I;
        SDisplayConfigOptions options;
        options.language = LanguageProvider("en");
        options.connectionMode = mode_I;
        options.skipSerialMatch = skipSerialMatch_I;
        options.exitOnError = exitOnError_I;
        return std::make_unique<CDisplayConfigInterface>(options, platform);
    }
    // The connector type of each display found, and of each channel discovery opened: a
    // channel list shows which scans ran, and a scan that ran twice.
    static std::vector<int> DisplayTypes(const CDisplayConfigInterface& config_I) {
        std::vector<int> types;
        for (const SDisplayInfo& info : config_I.DisplayInfos()) {
            types.push_back(info.display->GetConnector()->ConnectorType());
        }
        return types;
    }
    static std::vector<int> ChannelTypes(const CDisplayConfigInterface& config_I) {
        std::vector<int> types;
        for (const auto& connector : config_I.ConnectorList()) {
            types.push_back(connector->ConnectorType());
        }
        return types;
    }

    CScopedVirtualClock clock;
    std::shared_ptr<CSimulatedPlatform> platform;
};

// One Hazel display; which channels reach it, and which one the mode lets discovery use.
TEST_F(MatchingTest, TriesTheChannelsOfTheMode) {
    struct SRow {
        SConnectionMode mode;
        const char* description;
        std::vector<int> displays;
        std::vector<int> channels;
    };
    const SRow rows[] = {
        // All: HID first, the video cable when no HID channel was picked, the legacy channels
        // when the video cable failed.
        {eConnectionMode_All, "Hazel@hid+video+ftdi", {kHid}, {kHid}},
        {eConnectionMode_All, "Hazel@video+ftdi", {kVideo}, {}},
        {eConnectionMode_All, "Hazel@ftdi", {kFtdi}, {kFtdi}},
        {eConnectionMode_All, "Hazel@none", {}, {}},
        // A HID pick whose display fails (silent once its serial number is read) is erased
        // without another channel tried.
        {eConnectionMode_All, "Hazel@hid+video+ftdi:fault=silence@1*forever", {}, {kHid}},
        {eConnectionMode_HID, "Hazel@video+ftdi", {}, {}},
        // The video cable only, and no legacy scan after it fails.
        {eConnectionMode_Video, "Hazel@hid+video+ftdi", {kVideo}, {kHid}},
        {eConnectionMode_Video, "Hazel@hid+ftdi", {}, {kHid}},
        // The legacy walk only, over every listed channel: a HID channel counts too.
        {eConnectionMode_FTDI, "Hazel@hid+video+ftdi", {kHid}, {kHid, kFtdi}},
        {eConnectionMode_FTDI, "Hazel@video+ftdi", {kFtdi}, {kFtdi}},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(testing::Message() << "mode " << row.mode << " " << row.description);
        auto config = Discover(row.description, row.mode);
        EXPECT_EQ(DisplayTypes(*config), row.displays);
        EXPECT_EQ(ChannelTypes(*config), row.channels);
        EXPECT_TRUE(config->LastError().empty());
    }
}

// One legacy scan serves every record: serial ports first, then the bridges. Serial numbers
// match with their case, and a channel that gives none matches nothing.
TEST_F(MatchingTest, LegacyChannelsMatchByTheirExactSerialNumber) {
    auto config = Discover("Aspen@serial:fault=silence*forever,Aspen@serial:serial=sn2,"
                           "Birch@ftdi:serial=SN2,CedarSmall@ti",
                           eConnectionMode_All);

    EXPECT_EQ(DisplayTypes(*config), (std::vector<int>{kSerial, kFtdi, kTi}));
    EXPECT_EQ(ChannelTypes(*config), (std::vector<int>{kSerial, kSerial, kFtdi, kTi}));
}

// Without serial numbers a legacy channel stands for a record when its type is the one of the
// record's group and it reports the same monitor name. The second display has no channel.
TEST_F(MatchingTest, SkipSerialMatchMatchesByGroupAndName) {
    const std::pair<const char*, size_t> rows[] = {
        {"Aspen@serial,Aspen@none", 2},
        {"AspenTwo@serial,Aspen@none", 1},
        {"Hazel@hid,Hazel@none", 1},
        {"Birch@ftdi,Birch@none", 2},
        // Hazel is in the FTDI group as well as the HID group.
        {"Hazel@ftdi,Hazel@none", 2},
        {"CedarSmall@ti,CedarSmall@none", 2},
        {"CedarSmall@ftdi,CedarSmall@none", 1},
        // A model of no group matches nothing but its serial number.
        {"FirLarge@ftdi,FirLarge@none", 1},
    };
    for (const auto& [description, found] : rows) {
        EXPECT_EQ(Discover(description, eConnectionMode_FTDI, true)->DisplayInfos().size(), found)
            << description;
    }
}

TEST_F(MatchingTest, ExitOnErrorStopsAtTheFirstVideoFailureWithAReason) {
    auto config =
        Discover("Birch@video,Aspen@serial,Birch@video", eConnectionMode_All, false, true);

    // The failing record and the ones behind it stay as they are; no legacy scan ran.
    ASSERT_EQ(config->DisplayInfos().size(), 3u);
    EXPECT_NE(config->DisplayInfos()[0].display, nullptr);
    EXPECT_EQ(config->DisplayInfos()[1].display, nullptr);
    EXPECT_TRUE(config->ConnectorList().empty());
    const std::string reason = "Display: VRX1041  [" +
                               ToNarrow(config->DisplayInfos()[1].modelNumber) +
                               "]\n    Could not connect through Display Port API\n    ";
    EXPECT_EQ(config->LastError().substr(0, reason.size()), reason);
    EXPECT_GT(config->LastError().size(), reason.size());

    // A new discovery that gets through clears the text.
    platform->Unplug(1);
    config->Rediscover();
    EXPECT_TRUE(config->LastError().empty());
    EXPECT_EQ(config->DisplayInfos().size(), 2u);
}

TEST_F(MatchingTest, ErasingRecordsKeepsTheWalkInStep) {
    // Failing records first, between and last: each erase slides the next record under the walk.
    auto config =
        Discover("Birch@none,Birch@none,Birch@video,Birch@video,Birch@none", eConnectionMode_Video);

    ASSERT_EQ(config->DisplayInfos().size(), 2u);
    EXPECT_EQ(config->DisplayInfos()[0].serialNumber, L"VRX1044000003");
    EXPECT_EQ(config->DisplayInfos()[1].serialNumber, L"VRX1044000004");
}

} // namespace

#include "FakeDisplayPlatform.h"

#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"

#include <gtest/gtest.h>

namespace {

constexpr uint16_t kHazel = 0x1070;
constexpr uint16_t kBirch = 0x1044;
constexpr uint16_t kAspen = 0x1041;
constexpr uint16_t kCedarSmall = 0x1052;
constexpr uint16_t kFirLarge = 0x1065;
constexpr int kHid = eConnectorType_HID;
constexpr int kSerial = eConnectorType_Serial;
constexpr int kFtdi = eConnectorType_FTDI;
constexpr int kTi = eConnectorType_TI;

SDisplayConfigOptions Options(SConnectionMode mode_I, bool skipSerialMatch_I = false,
                              bool exitOnError_I = false) {
    SDisplayConfigOptions options;
    options.language = LanguageProvider("en");
    options.connectionMode = mode_I;
    options.skipSerialMatch = skipSerialMatch_I;
    options.exitOnError = exitOnError_I;
    return options;
}

class MatchingTest : public ::testing::Test {
protected:
    std::unique_ptr<CDisplayConfigInterface> Discover(const SDisplayConfigOptions& options_I) {
        return std::make_unique<CDisplayConfigInterface>(options_I, platform);
    }
    std::shared_ptr<Connector> ConnectorOf(const CDisplayConfigInterface& config_I, size_t at_I) {
        return config_I.DisplayInfos().at(at_I).display->GetConnector();
    }

    CScopedVirtualClock clock;
    std::shared_ptr<CFakeDisplayPlatform> platform = std::make_shared<CFakeDisplayPlatform>();
};

// One Hazel monitor; which channels could reach it, and which one the mode lets discovery use.
TEST_F(MatchingTest, TriesTheChannelsOfTheMode) {
    struct SRow {
        SConnectionMode mode;
        bool hid;
        bool video;
        bool ftdi;
        int expectedType; // -1: the record is erased
        bool videoTried;
        bool legacyScanned;
    };
    const SRow rows[] = {
        // All: HID first, the video cable when no HID channel was picked, the legacy channels
        // when the video cable failed.
        {eConnectionMode_All, true, true, true, kHid, false, false},
        {eConnectionMode_All, false, true, true, eConnectorType_DisplayPort, true, false},
        {eConnectionMode_All, false, false, true, kFtdi, true, true},
        {eConnectionMode_All, false, false, false, -1, true, true},
        {eConnectionMode_HID, false, true, true, -1, false, false},
        // The video cable only, and no legacy scan after it fails.
        {eConnectionMode_Video, true, true, true, eConnectorType_DisplayPort, true, false},
        {eConnectionMode_Video, true, false, true, -1, true, false},
        // The legacy walk only, over every listed channel: a HID channel counts too.
        {eConnectionMode_FTDI, true, true, true, kHid, false, true},
        {eConnectionMode_FTDI, false, true, true, kFtdi, false, true},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(testing::Message() << "mode " << row.mode << " hid " << row.hid << " video "
                                        << row.video << " ftdi " << row.ftdi);
        platform = std::make_shared<CFakeDisplayPlatform>();
        platform->AddMonitor(kHazel, "SN1", "PDX-2400H");
        if (row.hid) {
            platform->Add(kHid, "SN1");
        }
        if (row.video) {
            platform->videoSerials.insert(L"SN1");
        }
        if (row.ftdi) {
            platform->Add(kFtdi, "SN1");
        }
        auto config = Discover(Options(row.mode));
        EXPECT_EQ(platform->hidScans, 1);
        EXPECT_EQ(platform->videoConnectors > 0, row.videoTried);
        EXPECT_EQ(platform->ftdiScans == 1 && platform->serialScans == 1, row.legacyScanned);
        ASSERT_EQ(config->DisplayInfos().size(), row.expectedType < 0 ? 0u : 1u);
        if (row.expectedType >= 0) {
            EXPECT_EQ(ConnectorOf(*config, 0)->ConnectorType(), row.expectedType);
        }
        EXPECT_TRUE(config->LastError().empty());
    }
}

TEST_F(MatchingTest, HidPickWhoseDisplayFailsIsErasedWithoutAnotherChannel) {
    platform->AddMonitor(kHazel, "SN1", "PDX-2400H");
    platform->Add(kHid, "SN1", "", false);
    platform->videoSerials.insert(L"SN1");
    platform->Add(kFtdi, "SN1");

    auto config = Discover(Options(eConnectionMode_All));

    EXPECT_TRUE(config->DisplayInfos().empty());
    EXPECT_EQ(platform->videoConnectors, 0);
    EXPECT_EQ(platform->ftdiScans, 0);
}

TEST_F(MatchingTest, OneLegacyScanServesEveryRecordOverTheChannelsThatOpen) {
    platform->AddMonitor(kBirch, "SN1", "PDX-2700");
    platform->AddMonitor(kAspen, "SN2", "PDX-2100");
    platform->Add(kSerial, "SN1")->SetOpens(false);
    auto ftdi = platform->Add(kFtdi, "SN1");
    auto serial = platform->Add(kSerial, "SN2");
    auto ti = platform->Add(kTi, "SN3");

    auto config = Discover(Options(eConnectionMode_All));

    ASSERT_EQ(config->DisplayInfos().size(), 2u);
    EXPECT_EQ(ConnectorOf(*config, 0), ftdi);
    EXPECT_EQ(ConnectorOf(*config, 1), serial);
    EXPECT_EQ(platform->serialScans, 1);
    EXPECT_EQ(platform->ftdiScans, 1);
    // Serial ports first, then the bridges; each opened with its name or index.
    EXPECT_EQ(config->ConnectorList(), (std::vector<std::shared_ptr<Connector>>{serial, ftdi, ti}));
    EXPECT_EQ(serial->openedWith, std::vector<std::string>{"/dev/ttyUSB1"});
    EXPECT_EQ(ftdi->openedWith, std::vector<std::string>{"0"});
}

TEST_F(MatchingTest, FtdiModeFindsASerialPortDisplayByItsExactSerialNumber) {
    platform->AddMonitor(kAspen, "SN2", "PDX-2100");
    // Serial numbers match with their case, and a channel without one matches nothing.
    platform->Add(kSerial, "");
    platform->Add(kSerial, "sn2");
    auto serial = platform->Add(kSerial, "SN2");

    auto config = Discover(Options(eConnectionMode_FTDI));

    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    EXPECT_EQ(ConnectorOf(*config, 0), serial);
}

// Without serial numbers a legacy channel stands for a record when its type is the one of the
// record's group and it reports the same monitor name.
TEST_F(MatchingTest, SkipSerialMatchMatchesByGroupAndName) {
    struct SRow {
        uint16_t edid;
        int channelType;
        bool sameName;
        bool matches;
    };
    const SRow rows[] = {
        {kAspen, kSerial, true, true},
        {kAspen, kSerial, false, false},
        {kAspen, kFtdi, true, false},
        {kBirch, kFtdi, true, true},
        // Hazel is in the FTDI group as well as the HID group.
        {kHazel, kFtdi, true, true},
        {kCedarSmall, kTi, true, true},
        {kCedarSmall, kFtdi, true, false},
        // A model of no group matches nothing but its serial number.
        {kFirLarge, kFtdi, true, false},
    };
    for (const SRow& row : rows) {
        platform = std::make_shared<CFakeDisplayPlatform>();
        platform->AddMonitor(row.edid, "SN1", "PANEL");
        platform->AddMonitor(row.edid, "SN2", "PANEL");
        platform->Add(row.channelType, "WRONG", row.sameName ? "PANEL" : "OTHER");

        auto config = Discover(Options(eConnectionMode_FTDI, true));

        // Two displays of one model share the channel.
        EXPECT_EQ(config->DisplayInfos().size(), row.matches ? 2u : 0u)
            << std::hex << row.edid << " type " << row.channelType << " " << row.sameName;
    }
}

TEST_F(MatchingTest, ExitOnErrorStopsAtTheFirstVideoFailureWithAReason) {
    platform->AddMonitor(kBirch, "SN0", "PDX-2700");
    platform->AddMonitor(kAspen, "SN1", "PDX-2100");
    platform->AddMonitor(kBirch, "SN2", "PDX-2700");
    platform->videoSerials.insert(L"SN0");
    platform->videoError = "GetCapabilitiesStringLength, errcode: 31";

    auto config = Discover(Options(eConnectionMode_All, false, true));

    // The failing record and the ones behind it stay as they are; no legacy scan ran.
    ASSERT_EQ(config->DisplayInfos().size(), 3u);
    EXPECT_NE(config->DisplayInfos()[0].display, nullptr);
    EXPECT_EQ(config->DisplayInfos()[1].display, nullptr);
    EXPECT_EQ(platform->ftdiScans, 0);
    const std::string modelNumber = ToNarrow(config->DisplayInfos()[1].modelNumber);
    EXPECT_EQ(config->LastError(), "Display: VRX1041  [" + modelNumber +
                                       "]\n    Could not connect through Display Port API\n"
                                       "    GetCapabilitiesStringLength, errcode: 31");

    // A new discovery that gets through clears the text.
    platform->videoSerials = {L"SN0", L"SN1", L"SN2"};
    config->Rediscover();
    EXPECT_TRUE(config->LastError().empty());
    EXPECT_EQ(config->DisplayInfos().size(), 3u);
}

TEST_F(MatchingTest, ErasingRecordsKeepsTheWalkInStep) {
    // Failing records first, between and last: each erase slides the next record under the walk.
    for (const char* serial : {"SN0", "SN1", "SN2", "SN3", "SN4"}) {
        platform->AddMonitor(kBirch, serial, "PDX-2700");
    }
    platform->videoSerials = {L"SN2", L"SN3"};

    auto config = Discover(Options(eConnectionMode_Video));

    ASSERT_EQ(config->DisplayInfos().size(), 2u);
    EXPECT_EQ(config->DisplayInfos()[0].serialNumber, L"SN2");
    EXPECT_EQ(config->DisplayInfos()[1].serialNumber, L"SN3");
    EXPECT_EQ(platform->videoConnectors, 5);
}

} // namespace

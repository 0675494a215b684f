#include "FakeDisplayPlatform.h"

#include "discovery/CDisplayConfigInterface.h"
#include "foundation/StringUtilities.h"
#include "foundation/TraceCapture.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

constexpr uint16_t kHazel = 0x1070;
constexpr uint16_t kBirch = 0x1044;
constexpr uint16_t kAspen = 0x1041;
constexpr uint16_t kCedarSmall = 0x1052;
constexpr uint16_t kFirLarge = 0x1065;

SDisplayConfigOptions Options(SConnectionMode mode_I, bool skipSerialMatch_I = false,
                              bool exitOnError_I = false) {
    SDisplayConfigOptions options;
    options.language = LanguageProvider("en");
    options.connectionMode = mode_I;
    options.skipSerialMatch = skipSerialMatch_I;
    options.exitOnError = exitOnError_I;
    return options;
}

int CountOf(const std::string& text_I, const std::string& part_I) {
    int count = 0;
    for (size_t at = text_I.find(part_I); at != std::string::npos;
         at = text_I.find(part_I, at + 1)) {
        ++count;
    }
    return count;
}

class MatchingTest : public ::testing::Test {
protected:
    std::unique_ptr<CDisplayConfigInterface> Discover(const SDisplayConfigOptions& options_I) {
        return std::make_unique<CDisplayConfigInterface>(options_I, platform);
    }

    CScopedVirtualClock clock;
    std::shared_ptr<CFakeDisplayPlatform> platform = std::make_shared<CFakeDisplayPlatform>();
};

// One Hazel monitor; which channels could reach it, and which one the mode lets discovery use.
struct SDecisionRow {
    SConnectionMode mode;
    bool hid;
    bool video;
    bool ftdi;
    int expectedType; // -1: the record is erased
    bool videoTried;
    bool legacyScanned;
};

void PrintTo(const SDecisionRow& row_I, std::ostream* out_I) {
    *out_I << "mode " << row_I.mode << (row_I.hid ? " hid" : "") << (row_I.video ? " video" : "")
           << (row_I.ftdi ? " ftdi" : "");
}

class DecisionTableTest : public MatchingTest,
                          public ::testing::WithParamInterface<SDecisionRow> {};

TEST_P(DecisionTableTest, TriesTheChannelsOfTheMode) {
    const SDecisionRow row = GetParam();
    platform->AddMonitor(kHazel, "SN1", "PDX-2400H");
    if (row.hid) {
        platform->AddHid("SN1");
    }
    if (row.video) {
        platform->videoSerials.insert(L"SN1");
    }
    if (row.ftdi) {
        platform->AddFtdi("SN1");
    }

    auto config = Discover(Options(row.mode));

    EXPECT_EQ(platform->hidScans, 1);
    EXPECT_EQ(!platform->videoConnectors.empty(), row.videoTried);
    EXPECT_EQ(platform->ftdiScans == 1, row.legacyScanned);
    EXPECT_EQ(platform->serialScans == 1, row.legacyScanned);
    if (row.expectedType < 0) {
        EXPECT_TRUE(config->DisplayInfos().empty());
        EXPECT_TRUE(config->DisplayNames().empty());
    } else {
        ASSERT_EQ(config->DisplayInfos().size(), 1u);
        const auto& display = config->DisplayInfos()[0].display;
        ASSERT_NE(display, nullptr);
        EXPECT_EQ(display->GetConnector()->ConnectorType(), row.expectedType);
    }
    EXPECT_TRUE(config->LastError().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DecisionTableTest,
    ::testing::Values(
        // All: HID first, the video cable when no HID channel was picked, the legacy channels
        // when the video cable failed.
        SDecisionRow{eConnectionMode_All, true, true, true, eConnectorType_HID, false, false},
        SDecisionRow{eConnectionMode_All, false, true, true, eConnectorType_DisplayPort, true,
                     false},
        SDecisionRow{eConnectionMode_All, false, false, true, eConnectorType_FTDI, true, true},
        SDecisionRow{eConnectionMode_All, false, false, false, -1, true, true},
        // HID only.
        SDecisionRow{eConnectionMode_HID, true, true, true, eConnectorType_HID, false, false},
        SDecisionRow{eConnectionMode_HID, false, true, true, -1, false, false},
        // The video cable only, and no legacy scan after it fails.
        SDecisionRow{eConnectionMode_Video, true, true, true, eConnectorType_DisplayPort, true,
                     false},
        SDecisionRow{eConnectionMode_Video, true, false, true, -1, true, false},
        // The legacy walk only, over every listed channel: a HID channel counts too.
        SDecisionRow{eConnectionMode_FTDI, true, true, true, eConnectorType_HID, false, true},
        SDecisionRow{eConnectionMode_FTDI, false, true, true, eConnectorType_FTDI, false, true},
        SDecisionRow{eConnectionMode_FTDI, false, true, false, -1, false, true}));

TEST_F(MatchingTest, HidPickWhoseDisplayFailsIsErasedWithoutAnotherChannel) {
    platform->AddMonitor(kHazel, "SN1", "PDX-2400H");
    platform->AddHid("SN1", false);
    platform->videoSerials.insert(L"SN1");
    platform->AddFtdi("SN1");

    auto config = Discover(Options(eConnectionMode_All));

    EXPECT_TRUE(config->DisplayInfos().empty());
    EXPECT_TRUE(platform->videoConnectors.empty());
    EXPECT_EQ(platform->ftdiScans, 0);
    // Three attempts on a channel other than the video cable, each followed by its wait.
    EXPECT_EQ(clock->Sleeps(), (std::vector<uint32_t>{1000, 1000, 1000}));
}

TEST_F(MatchingTest, UnopenedHidChannelStaysListedAndMatchesNothing) {
    platform->AddMonitor(kHazel, "SN1", "PDX-2400H");
    platform->AddHid("").get()->SetOpens(false);

    auto config = Discover(Options(eConnectionMode_HID));

    ASSERT_EQ(config->ConnectorList().size(), 1u);
    EXPECT_FALSE(config->ConnectorList()[0]->IsOpen());
    EXPECT_TRUE(config->DisplayInfos().empty());
}

TEST_F(MatchingTest, OneLegacyScanServesEveryRecord) {
    platform->AddMonitor(kBirch, "SN1", "PDX-2700");
    platform->AddMonitor(kAspen, "SN2", "PDX-2100");
    auto ftdi = platform->AddFtdi("SN1");
    auto serial = platform->AddSerial("SN2");
    CTraceCapture trace;

    auto config = Discover(Options(eConnectionMode_All));

    ASSERT_EQ(config->DisplayInfos().size(), 2u);
    EXPECT_EQ(config->DisplayInfos()[0].display->GetConnector(), ftdi);
    EXPECT_EQ(config->DisplayInfos()[1].display->GetConnector(), serial);
    EXPECT_EQ(platform->serialScans, 1);
    EXPECT_EQ(platform->ftdiScans, 1);
    EXPECT_EQ(CountOf(trace.Lines(), "CWinDisplayConfigInterface::Init - mConnectorList has 2 "
                                     "items\n"),
              1);
    // Serial ports first, then the bridges; each opened with its name or index.
    ASSERT_EQ(config->ConnectorList().size(), 2u);
    EXPECT_EQ(config->ConnectorList()[0], serial);
    EXPECT_EQ(serial->openedWith, std::vector<std::string>{"/dev/ttyUSB0"});
    EXPECT_EQ(ftdi->openedWith, std::vector<std::string>{"0"});
}

TEST_F(MatchingTest, ChannelsThatFailToOpenAreDropped) {
    platform->AddMonitor(kBirch, "SN1", "PDX-2700");
    platform->AddSerial("SN1")->SetOpens(false);
    platform->AddFtdi("SN1")->SetOpens(false);
    auto ti = platform->AddTi("SN1");

    auto config = Discover(Options(eConnectionMode_FTDI));

    ASSERT_EQ(config->ConnectorList().size(), 1u);
    EXPECT_EQ(config->ConnectorList()[0], ti);
    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    EXPECT_EQ(config->DisplayInfos()[0].display->GetConnector(), ti);
}

TEST_F(MatchingTest, FtdiModeFindsASerialPortDisplayByItsExactSerialNumber) {
    platform->AddMonitor(kAspen, "SN2", "PDX-2100");
    // Serial numbers match with their case, and a channel without one matches nothing.
    platform->AddSerial("");
    platform->AddSerial("sn2");
    auto serial = platform->AddSerial("SN2");

    auto config = Discover(Options(eConnectionMode_FTDI));

    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    EXPECT_EQ(config->DisplayInfos()[0].display->GetConnector(), serial);
}

// Without serial numbers a legacy channel stands for a record when its type is the one of the
// record's group and it reports the same monitor name.
struct SSkipRow {
    uint16_t edid;
    int channelType;
    bool sameName;
    bool matches;
};

void PrintTo(const SSkipRow& row_I, std::ostream* out_I) {
    *out_I << "edid " << std::hex << row_I.edid << std::dec << " type " << row_I.channelType
           << (row_I.sameName ? " same name" : " other name");
}

class SkipSerialMatchTest : public MatchingTest, public ::testing::WithParamInterface<SSkipRow> {};

TEST_P(SkipSerialMatchTest, MatchesByGroupAndName) {
    const SSkipRow row = GetParam();
    platform->AddMonitor(row.edid, "SN1", "PANEL");
    const std::string name = row.sameName ? "PANEL" : "OTHER";
    switch (row.channelType) {
    case eConnectorType_Serial:
        platform->AddSerial("WRONG", name);
        break;
    case eConnectorType_FTDI:
        platform->AddFtdi("WRONG", name);
        break;
    default:
        platform->AddTi("WRONG", name);
        break;
    }

    auto config = Discover(Options(eConnectionMode_FTDI, true));

    EXPECT_EQ(config->DisplayInfos().size(), row.matches ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Groups, SkipSerialMatchTest,
    ::testing::Values(SSkipRow{kAspen, eConnectorType_Serial, true, true},
                      SSkipRow{kAspen, eConnectorType_Serial, false, false},
                      SSkipRow{kAspen, eConnectorType_FTDI, true, false},
                      SSkipRow{kBirch, eConnectorType_FTDI, true, true},
                      SSkipRow{kBirch, eConnectorType_Serial, true, false},
                      // Hazel is in the FTDI group as well as the HID group.
                      SSkipRow{kHazel, eConnectorType_FTDI, true, true},
                      SSkipRow{kCedarSmall, eConnectorType_TI, true, true},
                      SSkipRow{kCedarSmall, eConnectorType_FTDI, true, false},
                      // A model of no group matches nothing but its serial number.
                      SSkipRow{kFirLarge, eConnectorType_FTDI, true, false},
                      SSkipRow{kFirLarge, eConnectorType_Serial, true, false}));

TEST_F(MatchingTest, SkipSerialMatchPicksAnyHidChannelForAHidModel) {
    platform->AddMonitor(kHazel, "SN1", "PDX-2400H");
    platform->AddMonitor(kBirch, "SN2", "PDX-2700");
    auto hid = platform->AddHid("WRONG");

    auto config = Discover(Options(eConnectionMode_HID, true));

    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    EXPECT_EQ(config->DisplayInfos()[0].serialNumber, L"SN1");
    EXPECT_EQ(config->DisplayInfos()[0].display->GetConnector(), hid);
}

TEST_F(MatchingTest, TwoDisplaysOfOneModelShareAChannelWithoutSerialMatch) {
    platform->AddMonitor(kBirch, "SN1", "PDX-2700");
    platform->AddMonitor(kBirch, "SN2", "PDX-2700");
    auto ftdi = platform->AddFtdi("OTHER", "PDX-2700");

    auto config = Discover(Options(eConnectionMode_FTDI, true));

    ASSERT_EQ(config->DisplayInfos().size(), 2u);
    EXPECT_EQ(config->DisplayInfos()[0].display->GetConnector(), ftdi);
    EXPECT_EQ(config->DisplayInfos()[1].display->GetConnector(), ftdi);
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
    EXPECT_EQ(config->DisplayInfos()[2].display, nullptr);
    EXPECT_EQ(platform->ftdiScans, 0);
    const std::string modelNumber = ToNarrow(config->DisplayInfos()[1].modelNumber);
    ASSERT_FALSE(modelNumber.empty());
    EXPECT_EQ(config->LastError(), "Display: VRX1041  [" + modelNumber +
                                       "]\n    Could not connect through Display Port API\n"
                                       "    GetCapabilitiesStringLength, errcode: 31");

    // A new discovery that gets through clears the text.
    platform->videoSerials = {L"SN0", L"SN1", L"SN2"};
    config->Rediscover();
    EXPECT_TRUE(config->LastError().empty());
    EXPECT_EQ(config->DisplayInfos().size(), 3u);
}

TEST_F(MatchingTest, ExitOnErrorWithoutAReasonGoesOn) {
    platform->AddMonitor(kAspen, "SN1", "PDX-2100");
    platform->AddMonitor(kBirch, "SN2", "PDX-2700");
    platform->videoSerials.insert(L"SN2");
    platform->videoError = "";

    auto config = Discover(Options(eConnectionMode_All, false, true));

    ASSERT_EQ(config->DisplayInfos().size(), 1u);
    EXPECT_EQ(config->DisplayInfos()[0].serialNumber, L"SN2");
    EXPECT_TRUE(config->LastError().empty());
}

TEST_F(MatchingTest, ErasingRecordsKeepsTheWalkInStep) {
    // Failing records first, between and last: each erase slides the next record under the walk.
    platform->AddMonitor(kBirch, "SN0", "PDX-2700");
    platform->AddMonitor(kBirch, "SN1", "PDX-2700");
    platform->AddMonitor(kBirch, "SN2", "PDX-2700");
    platform->AddMonitor(kBirch, "SN3", "PDX-2700");
    platform->AddMonitor(kBirch, "SN4", "PDX-2700");
    platform->videoSerials = {L"SN2", L"SN3"};

    auto config = Discover(Options(eConnectionMode_Video));

    ASSERT_EQ(config->DisplayInfos().size(), 2u);
    EXPECT_EQ(config->DisplayInfos()[0].serialNumber, L"SN2");
    EXPECT_EQ(config->DisplayInfos()[1].serialNumber, L"SN3");
    EXPECT_EQ(platform->videoConnectors.size(), 5u);
}

TEST_F(MatchingTest, NoSupportedMonitorStillListsHidChannels) {
    platform->AddHid("SN1");

    auto config = Discover(Options(eConnectionMode_Video, false, true));

    EXPECT_EQ(platform->hidScans, 1);
    EXPECT_EQ(config->ConnectorList().size(), 1u);
    EXPECT_TRUE(config->DisplayNames().empty());
    EXPECT_TRUE(config->LastError().empty());
    EXPECT_EQ(config->CurrentDisplay(), nullptr);
}

} // namespace

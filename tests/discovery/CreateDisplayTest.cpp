#include "discovery/CDisplayConfigInterface.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"
#include "platform/sim/CSimulatedPlatform.h"
#include "support/CFakeConnector.h"

#include <gtest/gtest.h>

namespace {

constexpr uint16_t kBirch = 0x1044;
constexpr uint16_t kElmLarge = 0x1060;
constexpr uint16_t kHazel = 0x1070;
constexpr uint16_t kCedarSmall = 0x1052;
constexpr uint16_t kCedarSmallTwo = 0x1066;
constexpr uint16_t kFirSmall = 0x1064;

constexpr char kCapabilities[] =
    "(prot(monitor)type(LCD)model(TEST)cmds(01 02 03 0C E3 F3)vcp(10 12 CC)mccs_ver(2.2))";

// A channel whose scaler gives no capability string for its first few requests.
class CTestChannel : public CFakeConnector {
public:
    explicit CTestChannel(int type_I, int failures_I = 0) : mFailures(failures_I) {
        SetConnectorType(type_I);
        SetCapabilities(kCapabilities);
        SetVcp(0x10, 50, 100);
        SetVcp(0x12, 60, 100);
        SetVcp(0xCC, 17, 40);
    }
    std::string CapabilitiesString() override {
        return mFailures-- > 0 ? std::string() : CFakeConnector::CapabilitiesString();
    }

private:
    int mFailures;
};

class CreateDisplayTest : public ::testing::Test {
protected:
    std::unique_ptr<CDisplayConfigInterface> Config(const char* language_I = "en",
                                                    bool setOsdLanguage_I = true,
                                                    const char* description_I = "") {
        std::string error;
        platform = CSimulatedPlatform::FromDescription(description_I, error);
        platform->SetMakerSystem(makerSystem);
        SDisplayConfigOptions options;
        options.language = LanguageProvider(language_I);
        options.setOsdLanguage = setOsdLanguage_I;
        return std::make_unique<CDisplayConfigInterface>(options, platform);
    }

    CScopedVirtualClock clock;
    std::shared_ptr<CSimulatedPlatform> platform;
    bool makerSystem = false;
};

// Three attempts with a wait behind each failure, except on the video cable, which gets one.
TEST_F(CreateDisplayTest, RetriesAChannelOtherThanTheVideoCable) {
    struct SRow {
        int type;
        int failures;
        bool created;
        std::vector<uint32_t> sleeps;
    };
    const SRow rows[] = {
        {eConnectorType_FTDI, 3, false, {1000, 1000, 1000}},
        {eConnectorType_Serial, 2, true, {1000, 1000}},
        {eConnectorType_DisplayPort, 1, false, {}},
    };
    auto config = Config();
    for (const SRow& row : rows) {
        clock->ClearSleeps();
        auto channel = std::make_shared<CTestChannel>(row.type, row.failures);
        auto display = config->CreateDisplay(kFirSmall, L"PDX-1600", L"PDX-1600", channel);
        EXPECT_EQ(display != nullptr, row.created) << row.type;
        EXPECT_EQ(clock->Sleeps(), row.sleeps) << row.type;
    }
    EXPECT_EQ(config->CreateDisplay(kFirSmall, L"PDX-1600", L"PDX-1600", nullptr), nullptr);
}

// The OSD language of the Birch and Elm models follows the program's language when discovery is
// told to; other models keep theirs. Cedar models are built in on the maker's own computers.
TEST_F(CreateDisplayTest, SetsTheOsdLanguageAndTellsBuiltInDisplays) {
    struct SRow {
        const char* language;
        uint16_t edid;
        uint16_t expected;
        bool builtIn = false;
        bool makerSystem = false;
        bool setOsdLanguage = true;
    };
    const SRow rows[] = {
        {"fr", kBirch, 3},
        {"zh_TW", kElmLarge, 1},
        {"pl", kElmLarge, 30},
        {"en", kBirch, 2, false, true},
        {"fr", kHazel, 17},
        {"sv", kElmLarge, 17},
        {"neutral", kBirch, 17},
        {"fr", kElmLarge, 17, false, false, false},
        {"en", kCedarSmall, 17, true, true},
        {"en", kCedarSmallTwo, 17, true, true},
        {"en", kCedarSmall, 17},
    };
    for (const SRow& row : rows) {
        makerSystem = row.makerSystem;
        auto config = Config(row.language, row.setOsdLanguage);
        auto channel = std::make_shared<CTestChannel>(eConnectorType_FTDI);

        auto display = config->CreateDisplay(row.edid, L"PANEL", L"MODEL", channel);
        ASSERT_NE(display, nullptr);
        EXPECT_EQ(channel->Vcp(0xCC)->current, row.expected) << row.language << " " << row.edid;
        EXPECT_EQ(display->BuiltIn(), row.builtIn) << row.edid;
    }
}

TEST_F(CreateDisplayTest, SelectionFollowsTheMonitorAndEndsAtRediscovery) {
    auto config = Config("en", true, "Birch@video,Birch@video");
    ASSERT_EQ(config->DisplayNames().size(), 2u);
    EXPECT_TRUE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->CurrentDisplay(), nullptr);

    config->SetCurrentDisplay(1);
    EXPECT_TRUE(config->IsCurrentDisplay(1));
    EXPECT_FALSE(config->IsCurrentDisplay(0));
    EXPECT_EQ(config->CurrentDisplay(), config->DisplayInfos()[1].display);
    EXPECT_EQ(config->CurrentMonitor(), CSimulatedPlatform::MonitorHandle(1));
    config->SetCurrentDisplay(2);
    EXPECT_EQ(config->CurrentDisplay(), nullptr);

    platform->Unplug(0);
    config->Rediscover();
    EXPECT_EQ(config->CurrentDisplay(), nullptr);
    EXPECT_TRUE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->DisplayNames().size(), 1u);
}

} // namespace

#include "FakeDisplayPlatform.h"

#include "discovery/CDisplayConfigInterface.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"

#include <gtest/gtest.h>

namespace {

constexpr uint16_t kBirch = 0x1044;
constexpr uint16_t kElmLarge = 0x1060;
constexpr uint16_t kHazel = 0x1070;
constexpr uint16_t kCedarSmall = 0x1052;
constexpr uint16_t kCedarSmallTwo = 0x1066;
constexpr uint16_t kFirSmall = 0x1064;

// A channel whose scaler gives no capability string for its first few requests.
class CFlakyChannel : public CTestChannel {
public:
    CFlakyChannel(int type_I, int failures_I)
        : CTestChannel(type_I, "SN1"), mFailures(failures_I) {}
    std::string CapabilitiesString() override {
        return mFailures-- > 0 ? std::string() : CTestChannel::CapabilitiesString();
    }

private:
    int mFailures;
};

class CreateDisplayTest : public ::testing::Test {
protected:
    std::unique_ptr<CDisplayConfigInterface> Config(const char* language_I = "en",
                                                    bool setOsdLanguage_I = true) {
        SDisplayConfigOptions options;
        options.language = LanguageProvider(language_I);
        options.setOsdLanguage = setOsdLanguage_I;
        return std::make_unique<CDisplayConfigInterface>(options, platform);
    }

    CScopedVirtualClock clock;
    std::shared_ptr<CFakeDisplayPlatform> platform = std::make_shared<CFakeDisplayPlatform>();
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
        auto channel = std::make_shared<CFlakyChannel>(row.type, row.failures);
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
        platform->makerSystem = row.makerSystem;
        auto config = Config(row.language, row.setOsdLanguage);
        auto channel = std::make_shared<CTestChannel>(eConnectorType_FTDI, "SN1");
        channel->Open(0L);
        channel->SetVcp(0xCC, 17, 40);

        auto display = config->CreateDisplay(row.edid, L"PANEL", L"MODEL", channel);
        ASSERT_NE(display, nullptr);
        EXPECT_EQ(channel->Vcp(0xCC)->current, row.expected) << row.language << " " << row.edid;
        EXPECT_EQ(display->BuiltIn(), row.builtIn) << row.edid;
    }
}

TEST_F(CreateDisplayTest, SelectionFollowsTheMonitorAndEndsAtRediscovery) {
    platform->AddMonitor(kBirch, "SN0", "PDX-2700");
    platform->AddMonitor(kBirch, "SN1", "PDX-2700B");
    platform->videoSerials = {L"SN0", L"SN1", L"SN2"};
    auto config = Config();
    ASSERT_EQ(config->DisplayNames(), (std::vector<std::wstring>{L"PDX-2700", L"PDX-2700B"}));
    EXPECT_TRUE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->CurrentDisplay(), nullptr);

    config->SetCurrentDisplay(1);
    EXPECT_TRUE(config->IsCurrentDisplay(1));
    EXPECT_FALSE(config->IsCurrentDisplay(0));
    EXPECT_EQ(config->CurrentDisplay(), config->DisplayInfos()[1].display);
    EXPECT_EQ(config->CurrentMonitor(), "/dev/i2c-card0-DP-2");
    config->SetCurrentDisplay(2);
    EXPECT_EQ(config->CurrentDisplay(), nullptr);

    // The monitor moved to another bus since discovery.
    platform->handles[L"MONITOR\\VRX1044\\CARD0-DP-1"] = "/dev/i2c-9";
    config->SetCurrentDisplay(0);
    EXPECT_EQ(config->CurrentMonitor(), "/dev/i2c-9");
    EXPECT_EQ(config->DisplayInfos()[0].monitorHandle, "/dev/i2c-9");

    platform->AddMonitor(kBirch, "SN2", "PDX-2700C");
    config->Rediscover();
    EXPECT_EQ(config->CurrentDisplay(), nullptr);
    EXPECT_TRUE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->DisplayNames().size(), 3u);
}

} // namespace

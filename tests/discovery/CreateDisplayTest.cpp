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
    explicit CFlakyChannel(int failures_I)
        : CTestChannel(eConnectorType_Serial, "SN1"), mFailures(failures_I) {}
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

TEST_F(CreateDisplayTest, RetriesAChannelOtherThanTheVideoCable) {
    auto config = Config();
    auto channel = std::make_shared<CTestChannel>(eConnectorType_FTDI, "SN1", "", false);

    EXPECT_EQ(config->CreateDisplay(kFirSmall, L"PDX-1600", L"PDX-1600", channel), nullptr);
    EXPECT_EQ(clock->Sleeps(), (std::vector<uint32_t>{1000, 1000, 1000}));

    // A session that comes up at the third attempt has waited twice.
    clock->ClearSleeps();
    auto flaky = std::make_shared<CFlakyChannel>(2);
    auto display = config->CreateDisplay(kFirSmall, L"PDX-1600", L"PDX-1600", flaky);
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(clock->Sleeps(), (std::vector<uint32_t>{1000, 1000}));
    EXPECT_EQ(display->GetModelNumber(), "PDX-1600");
}

TEST_F(CreateDisplayTest, GivesUpTheVideoCableAtTheFirstFailure) {
    auto config = Config();
    auto channel = std::make_shared<CTestChannel>(eConnectorType_DisplayPort, "SN1", "", false);

    EXPECT_EQ(config->CreateDisplay(kFirSmall, L"PDX-1600", L"PDX-1600", channel), nullptr);
    EXPECT_TRUE(clock->Sleeps().empty());
    EXPECT_EQ(config->CreateDisplay(kFirSmall, L"PDX-1600", L"PDX-1600", nullptr), nullptr);
}

// The OSD language of the Birch and Elm models follows the program's language when discovery is
// told to; other models keep theirs.
TEST_F(CreateDisplayTest, SendsTheOsdLanguageToBirchAndElmModels) {
    struct SRow {
        const char* language;
        uint16_t edid;
        uint16_t expected;
        bool setOsdLanguage = true;
    };
    const SRow rows[] = {
        {"fr", kBirch, 3},
        {"zh_TW", kElmLarge, 1},
        {"tr", kBirch, 2},
        {"pl", kElmLarge, 30},
        {"en", kBirch, 2},
        {"ru", kBirch, 9},
        {"fr", kHazel, 17},
        {"fr", kFirSmall, 17},
        {"sv", kElmLarge, 17},
        {"neutral", kBirch, 17},
        {"fr", kElmLarge, 17, false},
    };
    for (const SRow& row : rows) {
        auto config = Config(row.language, row.setOsdLanguage);
        auto channel = std::make_shared<CTestChannel>(eConnectorType_FTDI, "SN1");
        channel->Open(0L);
        channel->SetVcp(0xCC, 17, 40);

        ASSERT_NE(config->CreateDisplay(row.edid, L"PANEL", L"MODEL", channel), nullptr);
        EXPECT_EQ(channel->Vcp(0xCC)->current, row.expected) << row.language << " " << row.edid;
    }
}

TEST_F(CreateDisplayTest, CedarModelsAreBuiltInOnTheMakersComputer) {
    struct SRow {
        uint16_t edid;
        bool makerSystem;
        bool builtIn;
    };
    const SRow rows[] = {
        {kCedarSmall, true, true},
        {kCedarSmallTwo, true, true},
        {kCedarSmall, false, false},
        {kBirch, true, false},
    };
    for (const SRow& row : rows) {
        platform->makerSystem = row.makerSystem;
        auto config = Config();
        auto channel = std::make_shared<CTestChannel>(eConnectorType_TI, "SN1");
        channel->Open(0L);

        auto display = config->CreateDisplay(row.edid, L"PANEL", L"MODEL", channel);
        ASSERT_NE(display, nullptr);
        EXPECT_EQ(display->BuiltIn(), row.builtIn) << row.edid;
    }
}

class SelectionTest : public CreateDisplayTest {
protected:
    void SetUp() override {
        platform->AddMonitor(kBirch, "SN0", "PDX-2700");
        platform->AddMonitor(kBirch, "SN1", "PDX-2700B");
        platform->videoSerials = {L"SN0", L"SN1"};
        config = Config();
        ASSERT_EQ(config->DisplayNames(), (std::vector<std::wstring>{L"PDX-2700", L"PDX-2700B"}));
    }

    std::unique_ptr<CDisplayConfigInterface> config;
};

TEST_F(SelectionTest, SelectsARecordOrNothing) {
    EXPECT_TRUE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->CurrentDisplay(), nullptr);
    EXPECT_TRUE(config->CurrentMonitor().empty());

    config->SetCurrentDisplay(1);
    EXPECT_TRUE(config->IsCurrentDisplay(1));
    EXPECT_FALSE(config->IsCurrentDisplay(0));
    EXPECT_FALSE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->CurrentDisplay(), config->DisplayInfos()[1].display);
    EXPECT_EQ(config->CurrentMonitor(), "/dev/i2c-card0-DP-2");

    // One past the end selects nothing.
    config->SetCurrentDisplay(2);
    EXPECT_EQ(config->CurrentDisplay(), nullptr);
    EXPECT_TRUE(config->IsCurrentDisplay(2));
    EXPECT_FALSE(config->IsCurrentDisplay(1));
}

TEST_F(SelectionTest, SelectingFollowsTheMonitorToItsNewHandle) {
    platform->handles[L"MONITOR\\VRX1044\\CARD0-DP-1"] = "/dev/i2c-9";

    config->SetCurrentDisplay(0);

    EXPECT_EQ(config->CurrentMonitor(), "/dev/i2c-9");
    EXPECT_EQ(config->DisplayInfos()[0].monitorHandle, "/dev/i2c-9");
}

TEST_F(SelectionTest, RediscoverForgetsTheSelection) {
    config->SetCurrentDisplay(0);
    platform->AddMonitor(kBirch, "SN2", "PDX-2700C");
    platform->videoSerials.insert(L"SN2");

    config->Rediscover();

    EXPECT_EQ(config->CurrentDisplay(), nullptr);
    EXPECT_TRUE(config->IsCurrentDisplay(-1));
    EXPECT_EQ(config->DisplayNames().size(), 3u);
}

} // namespace

#include "DialogHarness.h"

#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QtTest/QTest>

namespace {

using EModal = CMainDialog::EModal;

constexpr uint8_t kBrightness = 0x10;
constexpr uint8_t kFirBrightness = 0x13;
constexpr uint8_t kContrast = 0x12;

TEST_F(DialogTest, TwoDisplaysFillTheDisplayComboAndShowTheFirst) {
    ASSERT_TRUE(Start("ElmLarge@video,Birch@ftdi"));
    EXPECT_EQ(Rows("displayCombo").size(), 2);
    EXPECT_EQ(Find<QComboBox>("displayCombo")->currentIndex(), 0);
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_TRUE(Dialog().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(Dialog().mWaitWindowsShown, 1);
    EXPECT_FALSE(Dialog().Ended());
    // Nothing is stored before a normal close.
    EXPECT_FALSE(StoredSettings().contains(QStringLiteral("Location/X")));
    SaveScreenshot(Dialog(), "main-two-displays");
}

// Without a display, or when discovery fails, the program ends through its window and never shows
// the main dialog.
TEST_F(DialogTest, AStartWithoutDisplaysEndsThroughItsWindow) {
    const struct {
        const char* description;
        bool exitOnError;
        EModal window;
        const char* text;
    } cases[] = {
        {"Birch@none", false, EModal::eNotSupportedWindow, "Compatible display device not found\n"},
        {"Birch@video:fault=silence*forever", true, EModal::eErrorWindow, "PDX-2700"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.description);
        std::string error;
        mPlatform = CSimulatedPlatform::FromDescription(c.description, error);
        ASSERT_NE(mPlatform, nullptr) << error;
        SDisplayConfigOptions options;
        options.exitOnError = c.exitOnError;
        mDialog = std::make_unique<CTestMainDialog>(
            options, SMainDialogEnvironment{mPlatform, {}, QStringLiteral("paneltune-test-none")});
        EXPECT_FALSE(Dialog().OnInitDialog());
        EXPECT_TRUE(Dialog().Ended());
        EXPECT_EQ(Dialog().Result(), 0);
        ASSERT_EQ(Dialog().mShown.size(), 1u);
        EXPECT_EQ(Dialog().mShown.back().kind, c.window);
        EXPECT_TRUE(Dialog().mShown.back().text.contains(QLatin1String(c.text)));
        EXPECT_FALSE(Dialog().isVisible());
    }
}

struct SFamilyCase {
    const char* description;
    int colorSettingRows;
    int temperatureRows;
    int spaceRows;
    int gammaRows;
    uint8_t brightnessCode;
};

TEST_F(DialogTest, ControlsFollowTheFamily) {
    const SFamilyCase cases[] = {
        {"ElmLarge@video", 3, 5, 8, 36, kBrightness}, {"Birch@ftdi", 3, 6, 6, 2, kBrightness},
        {"CedarSmallTwo", 3, 3, 6, 3, kBrightness},   {"FirSmall@ftdi", 2, 3, 3, 2, kFirBrightness},
        {"Aspen", 2, 3, 3, 2, kBrightness},
    };
    for (const SFamilyCase& c : cases) {
        SCOPED_TRACE(c.description);
        mDialog.reset();
        // Cedar displays are built into the maker's own computers.
        ASSERT_TRUE(Start(c.description, "en", c.description[0] == 'C'));
        EXPECT_EQ(Rows("colorSettingCombo").size(), c.colorSettingRows);
        EXPECT_EQ(Rows("temperatureCombo").size(), c.temperatureRows);
        EXPECT_EQ(Rows("spaceCombo").size(), c.spaceRows);
        EXPECT_EQ(Rows("gammaCombo").size(), c.gammaRows);

        // Each control shows what its status says, and the usable sliders the display's value.
        const struct {
            const char* widget;
            SControlState state;
        } states[] = {
            {"brightnessSlider", Current().BrightnessStatus()},
            {"contrastSlider", Current().ContrastStatus()},
            {"colorSettingCombo", Current().ColorSettingStatus()},
            {"temperatureCombo", Current().ColorTemperatureStatus()},
            {"spaceCombo", Current().ColorSpaceStatus()},
            {"setButton", Current().CustomColorStatus()},
            {"resetColorButton", Current().ResetColorStatus()},
            {"gammaCombo", Current().GammaStatus()},
            {"saveButton", Current().SaveStatus()},
            {"revertButton", Current().RevertStatus()},
            {"advancedButton", SControlState::Usable()},
        };
        for (const auto& s : states) {
            EXPECT_EQ(Shown(s.widget), s.state.visible) << s.widget;
            EXPECT_EQ(Find<QWidget>(s.widget)->isEnabled(), s.state.visible && s.state.enabled)
                << s.widget;
        }
        if (Current().BrightnessStatus() == SControlState::Usable()) {
            EXPECT_EQ(Find<QSlider>("brightnessSlider")->value(), ScalerValue(0, c.brightnessCode));
            EXPECT_EQ(Find<QLineEdit>("brightnessEdit")->text().toInt(),
                      ScalerValue(0, c.brightnessCode));
        } else {
            EXPECT_EQ(Find<QSlider>("brightnessSlider")->value(), 75);
        }
        if (Current().ContrastStatus() == SControlState::Usable()) {
            EXPECT_EQ(Find<QSlider>("contrastSlider")->value(), ScalerValue(0, kContrast));
        }
        if (Shown("rgbLabel")) {
            EXPECT_TRUE(Find<QLabel>("rgbLabel")->text().startsWith(QStringLiteral("RGB: ")));
        }
    }
}

// The second start asks before it looks for displays, and brings a minimised first window back.
TEST_F(DialogTest, SecondStartRaisesTheFirstAndEndsWithZero) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    EXPECT_TRUE(QFileInfo::exists(
        QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).filePath(Dialog().InstanceName())));
    Dialog().showMinimized();
    SMainDialogEnvironment environment{mPlatform, {}, Dialog().InstanceName()};
    CTestMainDialog second(SDisplayConfigOptions{}, environment);
    EXPECT_FALSE(second.OnInitDialog());
    EXPECT_TRUE(second.Ended());
    EXPECT_EQ(second.Result(), 0);
    EXPECT_EQ(second.mWaitWindowsShown, 0);
    EXPECT_EQ(second.DisplayConfigIF(), nullptr);
    EXPECT_FALSE(Dialog().Ended());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Dialog().isMinimized(); }));
}

struct SPositionCase {
    bool stored;
    int x;
    int y;
    bool keptAsStored;
};

// A stored point comes back as the same point while the window shows on a screen; any other
// start puts the whole frame, title bar included, in the work area. Closing stores the point the
// next start restores.
TEST_F(DialogTest, StoredPositionComesBackAndKeepsTheWindowOnScreen) {
    const QRect work = TestApplication().primaryScreen()->availableGeometry();
    const SPositionCase cases[] = {
        {false, 0, 0, false},
        {true, work.left() + 40, work.top() + 30, true},
        {true, work.right() + 100, 10, false},
        {true, 10, work.top() - 5000, false},
        {true, 0, 0, false},
    };
    for (const SPositionCase& c : cases) {
        mDialog.reset();
        QSettings settings = StoredSettings();
        settings.remove(QStringLiteral("Location"));
        if (c.stored) {
            settings.setValue(QStringLiteral("Location/X"), c.x);
            settings.setValue(QStringLiteral("Location/Y"), c.y);
        }
        settings.sync();
        ASSERT_TRUE(Start("Birch@ftdi"));
        const QPoint shown = Dialog().geometry().topLeft();
        if (c.keptAsStored) {
            EXPECT_EQ(shown, QPoint(c.x, c.y));
        }
        EXPECT_TRUE(work.contains(Dialog().frameGeometry())) << c.x << "," << c.y;
        QTest::keyClick(&Dialog(), Qt::Key_Escape);
        mDialog.reset();
        ASSERT_TRUE(Start("Birch@ftdi"));
        EXPECT_EQ(Dialog().geometry().topLeft(), shown) << c.x << "," << c.y;
    }
}

} // namespace

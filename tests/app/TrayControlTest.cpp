#include "DialogHarness.h"

#include "app/CTrayControl.h"

#include <QIcon>
#include <QMenu>
#include <QScreen>
#include <QSystemTrayIcon>
#include <QTest>
#include <QWidgetAction>

#include <future>

namespace {

constexpr uint8_t kBrightness = 0x10;

// The tray is made before the dialog's set-up, as the program makes it.
class TrayControlTest : public DialogTest {
protected:
    void TearDown() override {
        mTray.reset();
        DialogTest::TearDown();
    }
    bool StartWithTray(const std::string& description_I, bool trayAvailable_I) {
        mBeforeInit = [this, trayAvailable_I](CTestMainDialog& dialog) {
            mTray = std::make_unique<CTrayControl>(dialog, trayAvailable_I);
        };
        return Start(description_I);
    }
    QSlider& Slider(int display_I) {
        return *mTray->Menu().findChildren<QSlider*>(QStringLiteral("trayBrightness"))[display_I];
    }
    // The entries after the displays: Open, then Quit.
    QAction* Entry(int fromEnd_I) {
        return mTray->Menu().actions()[mTray->Menu().actions().size() - fromEnd_I];
    }
    size_t Frames(size_t display_I) {
        return Platform().Display(display_I).Scaler().TakeRequests().size();
    }

    std::unique_ptr<CTrayControl> mTray;
};

} // namespace

// Without a tray the program starts and closes as it always did; with one it starts hidden and
// closing only hides it.
TEST_F(TrayControlTest, TheWindowStartsAndClosesIntoTheTrayOnlyWhereThereIsOne) {
    for (const bool available : {false, true}) {
        SCOPED_TRACE(available);
        ASSERT_TRUE(StartWithTray("Birch@ftdi", available));
        EXPECT_EQ(mTray->Active(), available);
        EXPECT_EQ(Dialog().isVisible(), !available);
        if (available) {
            mTray->Rebuild();
            Entry(2)->trigger();
            EXPECT_TRUE(Dialog().isVisible());
        }
        Dialog().close();
        EXPECT_FALSE(Dialog().isVisible());
        EXPECT_EQ(Dialog().Ended(), !available);
        if (available) {
            Entry(1)->trigger();
            EXPECT_TRUE(Dialog().Ended());
        }
        mTray.reset();
    }
}

TEST_F(TrayControlTest, EachDisplaysSliderWritesThroughTheWorkerAndShowsInTheDialog) {
    ASSERT_TRUE(StartWithTray("Birch@ftdi,ElmLarge@video", true));
    Enter("brightnessEdit", QStringLiteral("20"));
    mTray->Rebuild();
    QStringList names;
    for (QWidgetAction* action : mTray->Menu().findChildren<QWidgetAction*>()) {
        names << action->text();
    }
    EXPECT_EQ(names, Rows("displayCombo"));
    EXPECT_EQ(Slider(0).value(), 20);
    EXPECT_EQ(Slider(1).value(), ScalerValue(1, kBrightness));
    for (size_t display : {0, 1}) {
        Platform().Display(display).Scaler().RecordRequests(true);
    }

    // One step is one write and the dark test; a drag while the wire is busy keeps only its
    // last value. Neither reaches the other display.
    Slider(0).triggerAction(QAbstractSlider::SliderSingleStepAdd);
    const size_t oneWrite = Frames(0);
    EXPECT_GT(oneWrite, 0u);
    std::promise<void> wire;
    Dialog().Worker().Post([busy = wire.get_future().share()] { busy.wait(); });
    Slider(0).setSliderDown(true);
    for (const int value : {30, 40, 50}) {
        Slider(0).setValue(value);
    }
    wire.set_value();
    Slider(0).setSliderDown(false);
    EXPECT_EQ(Frames(0), oneWrite);
    EXPECT_EQ(Frames(1), 0u);
    EXPECT_EQ(ScalerValue(0, kBrightness), 50);
    EXPECT_EQ(Find<QLineEdit>("brightnessEdit")->text(), QStringLiteral("50"));

    // The dialog's change shows in the tray's menu the next time it opens.
    Enter("brightnessEdit", QStringLiteral("70"));
    emit mTray->Menu().aboutToShow();
    EXPECT_EQ(Slider(0).value(), 70);
}

// Pictures for people to look at: the open menu, and the screen with the icon in the tray host
// that desktop_session.sh starts under Xvfb. Skipped where no tray is.
TEST_F(TrayControlTest, PicturesOfTheMenuAndTheIconInTheTray) {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        GTEST_SKIP() << "no system tray";
    }
    QApplication::setWindowIcon(QIcon(QStringLiteral(PANELTUNE_ICON_FILE)));
    ASSERT_TRUE(StartWithTray("Birch@ftdi,ElmLarge@video", true));
    // Below the tray host, which stands at the screen's top right corner.
    const QRect corner(QGuiApplication::primaryScreen()->geometry().topRight() - QPoint(440, 0),
                       QSize(440, 300));
    QMenu& menu = mTray->Menu();
    menu.popup(corner.topLeft() + QPoint(100, 60));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    // The host embeds the icon when it gets to it; the picture waits for that, not for a time.
    auto* icon = mTray->findChild<QSystemTrayIcon*>();
    ASSERT_NE(icon, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([icon] { return icon->geometry().isValid(); }));
    SaveScreenshot(menu, "tray-menu");
    QGuiApplication::primaryScreen()
        ->grabWindow(0, corner.x(), corner.y(), corner.width(), corner.height())
        .save(ScreenshotFolder() + QStringLiteral("/tray-corner.png"));
    menu.hide();
}

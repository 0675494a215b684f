#include "DialogHarness.h"

#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QtTest/QTest>

namespace {

using EModal = CMainDialog::EModal;

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

// The second start asks before it looks for displays, and brings a minimised first window back.
TEST_F(DialogTest, SecondStartRaisesTheFirstAndEndsWithZero) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    EXPECT_TRUE(Dialog().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(Dialog().mWaitWindowsShown, 1);
    // Nothing is stored before a normal close.
    EXPECT_FALSE(StoredSettings().contains(QStringLiteral("Location/X")));
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

// A stored point comes back while the window shows on a screen, any other puts the whole frame,
// title bar included, in the work area; closing stores the point the next start restores.
TEST_F(DialogTest, StoredPositionComesBackAndKeepsTheWindowOnScreen) {
    const QRect work = TestApplication().primaryScreen()->availableGeometry();
    QSettings settings = StoredSettings();
    settings.setValue(QStringLiteral("Location/X"), work.right() + 100);
    settings.setValue(QStringLiteral("Location/Y"), 10);
    settings.sync();
    ASSERT_TRUE(Start("Birch@ftdi"));
    EXPECT_TRUE(work.contains(Dialog().frameGeometry()));
    Dialog().move(work.topLeft() + QPoint(40, 30));
    const QPoint moved = Dialog().geometry().topLeft();
    QTest::keyClick(&Dialog(), Qt::Key_Escape);
    mDialog.reset();
    ASSERT_TRUE(Start("Birch@ftdi"));
    EXPECT_EQ(Dialog().geometry().topLeft(), moved);
}

} // namespace

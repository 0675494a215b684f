#include "DialogHarness.h"

#include <QMessageBox>
#include <QtTest/QTest>

#include <future>

namespace {

using EModal = CMainDialog::EModal;

constexpr uint8_t kBrightness = 0x10;
constexpr uint8_t kContrast = 0x12;

class ControlsTest : public DialogTest {
protected:
    QSlider* BrightnessSlider() { return Find<QSlider>("brightnessSlider"); }
    QLineEdit* BrightnessEdit() { return Find<QLineEdit>("brightnessEdit"); }
    QLineEdit* ContrastEdit() { return Find<QLineEdit>("contrastEdit"); }
};

// On a Birch, brightness + 9 x contrast below 200 is too dark.
TEST_F(ControlsTest, DarkDragAppliesLiveAndComesBackWhenTheQuestionTimesOut) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    Enter("contrastEdit", QStringLiteral("15"));
    ASSERT_EQ(ScalerValue(0, kContrast), 15);
    const int before = ScalerValue(0, kBrightness);
    ASSERT_GE(before + 9 * 15, 200);

    Drag(BrightnessSlider(), {40, 20, 10}, false);
    EXPECT_EQ(ScalerValue(0, kBrightness), 10);
    EXPECT_EQ(BrightnessEdit()->text(), QStringLiteral("10"));
    EXPECT_EQ(Dialog().Count(EModal::eDarkQuestion), 0u);

    BrightnessSlider()->setSliderDown(false);
    Settle();
    ASSERT_EQ(Dialog().Count(EModal::eDarkQuestion), 1u);
    EXPECT_TRUE(Dialog().mShown.back().text.startsWith(QStringLiteral("Warning!\n")));
    EXPECT_EQ(ScalerValue(0, kBrightness), before);
    EXPECT_EQ(BrightnessSlider()->value(), before);
    EXPECT_EQ(BrightnessEdit()->text(), QString::number(before));

    // Answered Yes, the dark value stays.
    Dialog().mAnswers[EModal::eDarkQuestion] = QMessageBox::Yes;
    Drag(BrightnessSlider(), {12});
    EXPECT_EQ(ScalerValue(0, kBrightness), 12);
}

// Brightness reads letters as 0 and clamps; contrast gives way to the display's value. Home
// leaves the brightness alone, and Enter keeps the dialog open.
TEST_F(ControlsTest, EditsAndKeysReadAsTheDialogReadsThem) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    const SVCPResult brightness = Current().GetBrightness();
    const int contrast = ScalerValue(0, kContrast);
    BrightnessSlider()->triggerAction(QAbstractSlider::SliderToMinimum);
    Settle();
    EXPECT_EQ(ScalerValue(0, kBrightness), brightness.value);
    EXPECT_EQ(BrightnessSlider()->value(), brightness.value);

    Enter("brightnessEdit", QStringLiteral("ab"));
    EXPECT_EQ(ScalerValue(0, kBrightness), std::max(0, brightness.minimum));
    EXPECT_EQ(BrightnessSlider()->value(), std::max(0, brightness.minimum));
    Enter("contrastEdit", QStringLiteral("x"));
    EXPECT_EQ(ScalerValue(0, kContrast), contrast);
    EXPECT_EQ(ContrastEdit()->text(), QString::number(contrast));

    Enter("brightnessEdit", QString::number(brightness.maximum + 1));
    EXPECT_EQ(BrightnessEdit()->text(), QString::number(brightness.maximum));
    EXPECT_EQ(ScalerValue(0, kBrightness), brightness.maximum);
    EXPECT_EQ(BrightnessEdit()->selectedText(), QString::number(brightness.maximum));
    EXPECT_FALSE(Dialog().Ended());
    EXPECT_TRUE(Dialog().isVisible());
}

// Save and Revert follow the unsaved changes; a display switch rebuilds the combos for the new
// display, and choosing the current one again changes nothing.
TEST_F(ControlsTest, SaveRevertAndSwitchFollowTheUnsavedChanges) {
    ASSERT_TRUE(Start("Birch@ftdi,ElmLarge@video"));
    QPushButton* save = Find<QPushButton>("saveButton");
    QPushButton* revert = Find<QPushButton>("revertButton");
    EXPECT_FALSE(save->isEnabled());
    Enter("brightnessEdit", QStringLiteral("40"));
    EXPECT_TRUE(save->isEnabled());
    EXPECT_TRUE(revert->isEnabled());
    QTest::mouseClick(revert, Qt::LeftButton);
    Settle();
    EXPECT_EQ(BrightnessEdit()->text(), QString::number(ScalerValue(0, kBrightness)));
    EXPECT_FALSE(save->isEnabled());
    EXPECT_FALSE(revert->isEnabled());

    EXPECT_EQ(Rows("gammaCombo").size(), 2);
    Choose("displayCombo", 1);
    Settle();
    EXPECT_EQ(Rows("gammaCombo").size(), 36);
    EXPECT_EQ(BrightnessSlider()->value(), ScalerValue(1, kBrightness));
    Enter("brightnessEdit", QStringLiteral("41"));
    Choose("displayCombo", 1);
    EXPECT_EQ(ScalerValue(1, kBrightness), 41);
}

TEST_F(ControlsTest, ClosingRevertsUnsavedChanges) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    const int before = ScalerValue(0, kBrightness);
    Enter("brightnessEdit", QString::number(before == 30 ? 31 : 30));
    QTest::keyClick(&Dialog(), Qt::Key_Escape);
    EXPECT_TRUE(Dialog().Ended());
    EXPECT_EQ(Dialog().Result(), 1);
    EXPECT_EQ(ScalerValue(0, kBrightness), before);
}

TEST_F(ControlsTest, FactoryResetRunsBehindTheWaitWindowAndRediscovers) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    const int factory = ScalerValue(0, kBrightness);
    const int changed = factory == 30 ? 31 : 30;
    Enter("brightnessEdit", QString::number(changed));
    QTest::mouseClick(Find<QPushButton>("saveButton"), Qt::LeftButton);
    mClock->ClearSleeps();
    const int waitWindows = Dialog().mWaitWindowsShown;
    // Ctrl+Alt+R resets without the question.
    QApplication::setActiveWindow(&Dialog());
    QTest::keyClick(&Dialog(), Qt::Key_R, Qt::ControlModifier | Qt::AltModifier);
    Settle();
    EXPECT_EQ(Dialog().Count(EModal::eFactoryResetQuestion), 0u);
    EXPECT_EQ(Dialog().mWaitWindowsShown, waitWindows + 1);
    const std::vector<uint32_t> sleeps = mClock->Sleeps();
    EXPECT_NE(std::find(sleeps.begin(), sleeps.end(), 10000u), sleeps.end());
    EXPECT_EQ(ScalerValue(0, kBrightness), factory);
    EXPECT_EQ(BrightnessSlider()->value(), factory);
    EXPECT_EQ(Rows("displayCombo").size(), 1);
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_FALSE(Dialog().Ended());

    // On a display that has gone, the reset ends the program.
    Platform().Display(0).Unplug();
    Dialog().DoFactoryReset(true);
    EXPECT_TRUE(Dialog().Ended());
    EXPECT_EQ(Dialog().Result(), 0);
    EXPECT_EQ(Dialog().Count(EModal::eNotSupportedWindow), 1u);
}

TEST_F(ControlsTest, CommunicationFailureDuringADragIsReportedAndTheDialogStays) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    Drag(BrightnessSlider(), {35}, false);
    EXPECT_EQ(ScalerValue(0, kBrightness), 35);
    Platform().Display(0).Unplug();
    Drag(BrightnessSlider(), {36}, false);
    ASSERT_GE(Dialog().Count(EModal::eCommunicationError), 1u);
    EXPECT_TRUE(Dialog().mShown.back().text.startsWith(
        QStringLiteral("There was an error talking to the display.")));
    EXPECT_EQ(BrightnessEdit()->text(), QStringLiteral("36"));
    Platform().Display(0).Replug();
    BrightnessSlider()->setSliderDown(false);
    EXPECT_FALSE(Dialog().Ended());
    EXPECT_TRUE(Dialog().isVisible());
}

// While a preset or a drag's value waits behind a slow write, the action has returned and the
// window's events keep turning; the preset and the drag's last value reach the display.
TEST_F(ControlsTest, ASlowDisplayLeavesTheWindowResponsive) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    const std::optional<uint16_t> before = Platform().Display(0).Scaler().Current(kBrightness);
    std::promise<void> wire;
    Dialog().Worker().Post([busy = wire.get_future().share()] { busy.wait(); });
    emit Find<QComboBox>("colorSettingCombo")->activated(1);
    BrightnessSlider()->setSliderDown(true);
    for (int position : {40, 41, 42}) {
        BrightnessSlider()->setSliderPosition(position);
    }
    bool turned = false;
    QTimer::singleShot(0, [&turned] { turned = true; });
    QCoreApplication::processEvents();
    EXPECT_TRUE(turned);
    EXPECT_EQ(Platform().Display(0).Scaler().Current(kBrightness), before);
    wire.set_value();
    EXPECT_EQ(ScalerValue(0, 0xF0), 7);
    EXPECT_EQ(ScalerValue(0, kBrightness), 42);
}

TEST_F(ControlsTest, LeavingAnEditCommitsIt) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    QApplication::setActiveWindow(&Dialog());
    QLineEdit* brightness = Find<QLineEdit>("brightnessEdit");
    brightness->setFocus(Qt::MouseFocusReason);
    brightness->setText(QStringLiteral("47"));
    ASSERT_NE(ScalerValue(0, kBrightness), 47);
    Find<QLineEdit>("contrastEdit")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ScalerValue(0, kBrightness), 47);
}

} // namespace

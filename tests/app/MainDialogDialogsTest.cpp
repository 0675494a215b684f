#include "DialogHarness.h"

#include <QMessageBox>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

constexpr uint8_t kGainBlue = 0x1A;
constexpr uint8_t kSharpness = 0x87;

// The main dialog with the real advanced and colour dialogs behind its buttons, which it makes
// when it is given no other maker.
class MainDialogDialogsTest : public DialogTest {
protected:
    QDialog* Secondary(const char* name_I) { return mDialog->findChild<QDialog*>(name_I); }
};

TEST_F(MainDialogDialogsTest, AdvancedOpensBesideTheMainDialogAndAFailedWriteEndsTheProgram) {
    ASSERT_TRUE(Start("ElmLarge@video"));
    Find<QPushButton>("advancedButton")->click();
    QDialog* advanced = Secondary("advancedDialog");
    ASSERT_NE(advanced, nullptr);
    EXPECT_TRUE(advanced->isVisible());
    EXPECT_GT(advanced->x(), mDialog->x());
    EXPECT_FALSE(Dialog().Ended());

    mPlatform->Display(0).Faults().Arm({ESimFault::eUnplug, 0, 0, -1});
    QComboBox* aspect = advanced->findChild<QComboBox*>("aspectRatio");
    ASSERT_NE(aspect, nullptr);
    const int row = (aspect->currentIndex() + 1) % aspect->count();
    aspect->setCurrentIndex(row);
    emit aspect->activated(row);
    EXPECT_TRUE(Dialog().Ended());
    EXPECT_EQ(Dialog().Result(), 0);
    EXPECT_EQ(Dialog().Count(CMainDialog::EModal::eCommunicationError), 1u);
    EXPECT_FALSE(advanced->isVisible());
}

TEST_F(MainDialogDialogsTest, SetRunsTheColourDialogUntilItsOk) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    const QStringList settings = Rows("colorSettingCombo");
    const int custom = static_cast<int>(settings.size()) - 1;
    Choose("colorSettingCombo", custom);
    ASSERT_TRUE(Shown("setButton")) << settings.join(",").toStdString();
    bool ran = false;
    QTimer::singleShot(0, [&ran] {
        auto* color = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(color, nullptr);
        EXPECT_EQ(color->objectName(), "colorDialog");
        QLineEdit* blue = color->findChild<QLineEdit*>("blueEdit");
        ASSERT_NE(blue, nullptr);
        blue->setText("77");
        emit blue->returnPressed();
        color->findChild<QPushButton*>("ok")->click();
        ran = true;
    });
    Find<QPushButton>("setButton")->click();
    EXPECT_TRUE(ran);
    EXPECT_EQ(ScalerValue(0, kGainBlue), 77);
    EXPECT_FALSE(Secondary("colorDialog")->isVisible());
    EXPECT_FALSE(Dialog().Ended());
}

TEST_F(MainDialogDialogsTest, TheColourDialogAsksTheMainDialogsTooDarkQuestion) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    Choose("colorSettingCombo", static_cast<int>(Rows("colorSettingCombo").size()) - 1);
    ASSERT_TRUE(Shown("setButton"));
    Dialog().mAnswers[CMainDialog::EModal::eDarkQuestion] = QMessageBox::No;
    const int blueBefore = ScalerValue(0, kGainBlue);
    bool ran = false;
    QTimer::singleShot(0, [this, &ran] {
        auto* color = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(color, nullptr);
        QSlider* black = color->findChild<QSlider*>("blackSlider");
        ASSERT_NE(black, nullptr);
        black->setSliderDown(true);
        black->setSliderPosition(700);
        black->setSliderDown(false);
        // Refused: the main dialog asked once, and the colour went back.
        EXPECT_EQ(Dialog().Count(CMainDialog::EModal::eDarkQuestion), 1u);
        EXPECT_NE(black->value(), 700);
        color->findChild<QPushButton*>("ok")->click();
        ran = true;
    });
    Find<QPushButton>("setButton")->click();
    EXPECT_TRUE(ran);
    EXPECT_EQ(ScalerValue(0, kGainBlue), blueBefore);
    EXPECT_FALSE(Dialog().Ended());
}

// Each showing of the advanced dialog takes its snapshot: after a display switch Cancel goes back
// to the new display's value, not to one from the display before.
TEST_F(MainDialogDialogsTest, CancelAfterADisplaySwitchRestoresTheShownSharpness) {
    ASSERT_TRUE(Start("Birch@ftdi,Birch@video"));
    mPlatform->Display(1).Scaler().SetFromMenu(kSharpness, 2);
    Find<QPushButton>("advancedButton")->click();
    QDialog* advanced = Secondary("advancedDialog");
    ASSERT_NE(advanced, nullptr);
    Choose("displayCombo", 1);
    ASSERT_TRUE(advanced->isVisible());
    auto* sharpness = advanced->findChild<QSlider*>("sharpness");
    ASSERT_NE(sharpness, nullptr);
    EXPECT_EQ(sharpness->value(), 2);
    sharpness->setSliderDown(true);
    sharpness->setSliderPosition(4);
    sharpness->setSliderDown(false);
    advanced->findChild<QPushButton*>("cancel")->click();
    EXPECT_EQ(ScalerValue(1, kSharpness), 2);
}

// The two other dialogs stand on the main dialog's lower edge as its rows leave it, whatever
// rows the family hides.
TEST_F(MainDialogDialogsTest, SecondaryDialogsLineUpWithTheMainDialogsFinalLowerEdge) {
    for (const char* description : {"FirSmall@ftdi", "ElmLarge@video", "Aspen@serial"}) {
        SCOPED_TRACE(description);
        mDialog.reset();
        ASSERT_TRUE(Start(description));
        Find<QPushButton>("advancedButton")->click();
        QDialog* advanced = Secondary("advancedDialog");
        ASSERT_NE(advanced, nullptr);
        EXPECT_EQ(advanced->geometry().bottom(), Dialog().geometry().bottom());
        EXPECT_EQ(advanced->geometry().left(), Dialog().geometry().right() + 1 + 20);
    }
}

} // namespace

#pragma once
// Runs the main dialog on simulated displays under a virtual clock, with the stored position in
// a temporary folder, a private single-instance name, and every question answered by the test.

#include "app/CMainDialog.h"
#include "foundation/VirtualClock.h"
#include "model/UiDisplayDelegate.h"
#include "platform/sim/CSimulatedPlatform.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSlider>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

// The application object of the test run.
QApplication& TestApplication();
// The build folder's screenshots, or the folder PANELTUNE_SCREENSHOT_DIR names.
QString ScreenshotFolder();
// Saves a picture of the widget in the screenshot folder.
void SaveScreenshot(QWidget& widget_I, const std::string& name_I);

class CTestMainDialog : public CMainDialog {
public:
    using CMainDialog::CMainDialog;

    struct SShown {
        EModal kind;
        QString text;
    };
    std::vector<SShown> mShown;
    // Answers by kind. Without one the dark question runs its own loop, so that its timer
    // closes it, a factory reset is confirmed and the other windows are acknowledged.
    std::map<EModal, int> mAnswers;
    // Prefix of the pictures to take of each kind of window once; empty takes none.
    std::string mScreenshotPrefix;
    int mWaitWindowsShown = 0;

    size_t Count(EModal kind_I) const;

protected:
    int ExecModal(QDialog& window_I, EModal kind_I) override;
    void WaitWindowShown(QWidget& window_I) override;
};

class DialogTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Builds the displays and the dialog and runs the set-up; the platform stays reachable.
    bool Start(const std::string& description_I, const std::string& language_I = "en",
               bool makerSystem_I = false);
    CTestMainDialog& Dialog() { return *mDialog; }
    CSimulatedPlatform& Platform() { return *mPlatform; }
    UiDisplayDelegate& Current() { return *mDialog->DisplayConfigIF()->CurrentDisplay(); }
    // The value the simulated scaler holds now, -1 when it has no such code.
    int ScalerValue(size_t display_I, uint8_t code_I);
    int ScalerSaved(size_t display_I, uint8_t code_I);
    QSettings StoredSettings();

    template <typename T>
    T* Find(const char* name_I) {
        T* child = mDialog->findChild<T*>(QString::fromLatin1(name_I));
        EXPECT_NE(child, nullptr) << name_I;
        return child;
    }
    // Chooses a row the way a user does.
    void Choose(const char* combo_I, int row_I);
    // Types into an edit and presses Enter.
    void Enter(const char* edit_I, const QString& text_I);
    // Values of the rows of a combo, as text.
    QStringList Rows(const char* combo_I);
    bool Shown(const char* name_I);
    // Lets the dialog finish what the last action started.
    void Settle();

    // Runs between building the dialog and its set-up, when set.
    std::function<void(CTestMainDialog&)> mBeforeInit;
    CScopedVirtualClock mClock;
    std::unique_ptr<QTemporaryDir> mSettingsFolder;
    std::shared_ptr<CSimulatedPlatform> mPlatform;
    std::unique_ptr<CTestMainDialog> mDialog;
};

#pragma once
// Runs the main dialog on simulated displays under a virtual clock, with the stored position and
// the profiles in a temporary folder, a private single-instance name, and every question
// answered by the test.

#include "app/CMainDialog.h"
#include "app/IDialogOwner.h"
#include "app/TickTimer.h"
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
    int mWaitWindowsShown = 0;
    // Runs while a window of its own loop or the wait window is open.
    std::function<void()> mOnWindow;

    size_t Count(EModal kind_I) const;

protected:
    int ExecModal(QDialog& window_I, EModal kind_I) override;
    void WaitWindowShown(QWidget& window_I) override;
};

// A tick that fires only when the test says so.
class CManualTickTimer final : public ITickTimer {
public:
    void SetCallback(std::function<void()> tick_I) override { mTick = std::move(tick_I); }
    void Start(int intervalMs_I) override {
        mActive = true;
        interval = intervalMs_I;
    }
    void Stop() override { mActive = false; }
    bool IsActive() const override { return mActive; }
    // One tick, as the running timer would give it.
    void Fire() {
        if (mActive && mTick) {
            mTick();
        }
    }

    int interval = 0;

private:
    bool mActive = false;
    std::function<void()> mTick;
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
    QSettings StoredSettings();
    // What the main dialog is to the advanced and colour dialogs.
    IDialogOwner& Owner() { return *dynamic_cast<IDialogOwner*>(mDialog->SecondaryDialogs()); }
    // The advanced dialog as its button opens it.
    QDialog& OpenAdvanced();
    // Runs the colour dialog from "Set..." of the custom colour row; during_I acts in it.
    void RunColorDialog(const std::function<void(QDialog&)>& during_I);

    // A child of the main dialog, or of in_I.
    template <typename T>
    T* Find(const char* name_I, QWidget* in_I = nullptr) {
        QWidget* root = in_I != nullptr ? in_I : mDialog.get();
        T* child = root->findChild<T*>(QString::fromLatin1(name_I));
        EXPECT_NE(child, nullptr) << name_I;
        return child;
    }
    // Chooses a row the way a user does.
    void Choose(const char* combo_I, int row_I, QWidget* in_I = nullptr);
    // Types into an edit and presses Enter.
    void Enter(const char* edit_I, const QString& text_I, QWidget* in_I = nullptr);
    // A drag: the thumb held, moved through the positions, then let go unless told otherwise.
    void Drag(QSlider* slider_I, std::initializer_list<int> positions_I, bool release_I = true);
    // Values of the rows of a combo, as text.
    QStringList Rows(const char* combo_I);
    // Lets the dialog finish what the last action started.
    void Settle();

    // Runs between building the dialog and its set-up, when set.
    std::function<void(CTestMainDialog&)> mBeforeInit;
    CScopedVirtualClock mClock;
    SDisplayConfigOptions mOptions;
    std::unique_ptr<QTemporaryDir> mSettingsFolder;
    std::shared_ptr<CSimulatedPlatform> mPlatform;
    std::unique_ptr<CTestMainDialog> mDialog;
};

#include "app/CSecondaryDialogs.h"

#include "app/CAdvancedDialog.h"
#include "app/CColorSettingsDialog.h"
#include "app/CMainDialog.h"

#include <QGuiApplication>
#include <QScreen>

CSecondaryDialogs::CSecondaryDialogs(const SDisplayConfigOptions& options_I,
                                     CDisplayConfigInterface& displayConfig_I,
                                     CMainDialog& mainDialog_I)
    : mOptions(options_I), mDisplayConfigIF(displayConfig_I), mMainDialog(mainDialog_I) {}

CSecondaryDialogs::~CSecondaryDialogs() = default;

SecondaryDialogsFactory CSecondaryDialogs::Factory() {
    return [](const SDisplayConfigOptions& options_I, CDisplayConfigInterface& displayConfig_I,
              CMainDialog& mainDialog_I) -> std::unique_ptr<ISecondaryDialogs> {
        return std::make_unique<CSecondaryDialogs>(options_I, displayConfig_I, mainDialog_I);
    };
}

bool CSecondaryDialogs::RunColorDialog(QWidget*) {
    if (!mColor) {
        // Parented to the main dialog, which outlives this object's use of it.
        mColor =
            std::make_unique<CColorSettingsDialog>(mOptions, &mDisplayConfigIF, this, &mMainDialog);
    }
    return mColor->Run() == QDialog::Accepted;
}

bool CSecondaryDialogs::ColorDialogOpen() const {
    return mColor && mColor->WindowExists();
}

void CSecondaryDialogs::CloseColorDialog(bool restore_I) {
    if (mColor) {
        mColor->CloseColorDialog(restore_I);
    }
}

bool CSecondaryDialogs::AdvancedExists() const {
    return mAdvanced && mAdvanced->WindowExists();
}

bool CSecondaryDialogs::AdvancedVisible() const {
    return mAdvanced && mAdvanced->IsVisible();
}

void CSecondaryDialogs::OpenAdvanced(QWidget*) {
    if (!mAdvanced) {
        mAdvanced = std::make_unique<CAdvancedDialog>(
            mOptions, &mDisplayConfigIF, this, std::make_unique<CQtTickTimer>(), &mMainDialog);
    }
    if (!mAdvanced->IsVisible()) {
        mAdvanced->ShowAdvanced(true);
    }
    mAdvanced->activateWindow();
    mAdvanced->setFocus();
}

void CSecondaryDialogs::ShowAdvanced() {
    if (AdvancedExists()) {
        mAdvanced->ShowAdvanced(true);
    }
}

void CSecondaryDialogs::HideAdvanced() {
    if (AdvancedExists()) {
        mAdvanced->ShowAdvanced(false);
    }
}

void CSecondaryDialogs::RefreshAdvanced() {
    if (AdvancedExists()) {
        mAdvanced->Refresh(false);
    }
}

void CSecondaryDialogs::CloseAdvanced() {
    if (mAdvanced) {
        mAdvanced->Close();
    }
}

void CSecondaryDialogs::Place(const QRect& mainRect_I) {
    if (AdvancedExists()) {
        mAdvanced->Place(mainRect_I);
    }
    if (ColorDialogOpen()) {
        mColor->Place(mainRect_I);
    }
}

void CSecondaryDialogs::SettleDisplay() {
    mMainDialog.Worker().WaitIdle();
}

void CSecondaryDialogs::UpdateControls() {
    mMainDialog.UpdateControls();
}

void CSecondaryDialogs::UpdateSaveRevert() {
    mMainDialog.UpdateSaveRevert();
}

void CSecondaryDialogs::ShowCommunicationError(bool exit_I) {
    mMainDialog.ShowCommunicationError(exit_I);
}

void CSecondaryDialogs::DoFactoryReset(bool skipConfirmation_I) {
    mMainDialog.DoFactoryReset(skipConfirmation_I);
}

void CSecondaryDialogs::CloseAllDialogs() {
    mMainDialog.CloseAllDialogs();
}

bool CSecondaryDialogs::ConfirmTooDark(QWidget* asker_I) {
    return mMainDialog.ConfirmTooDark(asker_I);
}

QRect CSecondaryDialogs::MainDialogRect() const {
    return mMainDialog.geometry();
}

QRect CSecondaryDialogs::WorkArea() const {
    QScreen* screen = QGuiApplication::screenAt(MainDialogRect().center());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen != nullptr ? screen->availableGeometry() : QRect();
}

QRect CSecondaryDialogs::VirtualScreen() const {
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->virtualGeometry() : QRect();
}

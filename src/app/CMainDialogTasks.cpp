#include "app/CMainDialog.h"

#include "foundation/Trace.h"
#include "model/UiDisplayDelegate.h"

#include <QComboBox>
#include <QEventLoop>
#include <QLabel>
#include <QMessageBox>

namespace {

constexpr uint32_t kTitleId = 2000;
constexpr uint32_t kRgbLabelId = 2026;
constexpr uint32_t kResetNoticeId = 2908;
constexpr uint32_t kResetQuestionId = 2909;

} // namespace

void CMainDialog::RunDisplayConfig() {
    Trace("CMainDialog::DisplayConfigThread - searching for Mr. GoodDevice...");
    if (!mDisplayConfigIF) {
        mDisplayConfigIF =
            std::make_unique<CDisplayConfigInterface>(mOptions, mEnvironment.platform);
        if (!mDisplayConfigIF->LastError().empty()) {
            mConfigError = mDisplayConfigIF->LastError();
        }
    } else {
        mDisplayConfigIF->Rediscover();
    }
}

void CMainDialog::WaitBehindWaitWindow() {
    std::unique_ptr<QDialog> waitWindow = ShowWaitWindow();
    mWorker->WaitIdle();
    waitWindow->showMinimized();
}

void CMainDialog::SettleDisplay() {
    mWorker->WaitIdle();
}

// The reset reaches the display through the display list alone; the controls are rebuilt from
// the re-read options once it is done.
void CMainDialog::DoResetColor() {
    auto view = std::make_shared<SControlsView>();
    auto rgbText = std::make_shared<std::wstring>();
    PostToDisplay([](UiDisplayDelegate& display) { display.SetResetColor(); }, {});
    PostToDisplay(
        [view, rgbText](UiDisplayDelegate& display) {
            display.ResetOptions(true);
            *view = ReadControls(display);
            display.GetCustomRGBColorMod(false);
            *rgbText = display.GetRGBText();
        },
        [this, view, rgbText] {
            ShowControls(*view);
            if (!view->read) {
                return;
            }
            mRgbLabel->setText(Text(kRgbLabelId) + QString::fromStdWString(*rgbText));
        });
    WaitBehindWaitWindow();
}

bool CMainDialog::ConfirmFactoryReset() {
    QMessageBox box(QMessageBox::Warning, Text(kTitleId),
                    Text(kResetNoticeId) + QLatin1Char('\n') + Text(kResetQuestionId),
                    QMessageBox::Ok | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("factoryResetQuestion"));
    box.setDefaultButton(QMessageBox::Cancel);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    return ExecModal(box, EModal::eFactoryResetQuestion) == QMessageBox::Ok;
}

void CMainDialog::DoFactoryReset(bool skipConfirmation_I) {
    if (mSecondary->ColorDialogOpen()) {
        mSecondary->CloseColorDialog(true);
    }
    if (!skipConfirmation_I && !ConfirmFactoryReset()) {
        return;
    }
    SettleDisplay();
    CDisplayConfigInterface* config = mDisplayConfigIF.get();
    mWorker->Post([config] {
        if (std::shared_ptr<UiDisplayDelegate> display = config->CurrentDisplay()) {
            display->FactoryReset();
        }
    });
    const bool advancedVisible = mSecondary->AdvancedExists() && mSecondary->AdvancedVisible();
    if (advancedVisible) {
        mSecondary->HideAdvanced();
    }
    RememberPosition();
    hide();
    mWorker->Post([this] { RunDisplayConfig(); });
    WaitBehindWaitWindow();
    if (mDisplayConfigIF->DisplayNames().empty()) {
        mSecondary->CloseColorDialog(false);
        mSecondary->CloseAdvanced();
        EndDialog(0);
        ShowNotSupportedWindow();
        return;
    }
    FillDisplayCombo();
    PlaceWindow();
    ClearColorCombos();
    PrepareCurrentDisplay(false);
    if (mSecondary->AdvancedExists()) {
        mSecondary->RefreshAdvanced();
    }
    show();
    if (advancedVisible) {
        mSecondary->ShowAdvanced();
    }
    mDisplayCombo.Combo()->setFocus();
}

#include "app/CMainDialog.h"

#include "app/CThreadFrame.h"
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

const char* const kDisplayConfigLabel = "(LPTHREAD_START_ROUTINE)CMainDialog::DisplayConfigThread";
const char* const kFactoryResetLabel = "(LPTHREAD_START_ROUTINE)CMainDialog::FactoryResetThread";
const char* const kResetColorLabel = "(LPTHREAD_START_ROUTINE)CMainDialog::ResetColorThread";
const char* const kResetColorConfigLabel =
    "(LPTHREAD_START_ROUTINE)CMainDialog::ResetColorConfigThread";

} // namespace

uint32_t CMainDialog::DisplayConfigThread(void* context_I) {
    return RunInThreadFrame(L"DisplayConfig", [context_I] {
        static_cast<CMainDialog*>(context_I)->RunDisplayConfig();
    });
}

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

// The two reset tasks reach the display through the display list alone.
uint32_t CMainDialog::FactoryResetThread(void* context_I) {
    return RunInThreadFrame(L"FactoryReset", [context_I] {
        if (auto display = static_cast<CDisplayConfigInterface*>(context_I)->CurrentDisplay()) {
            display->FactoryReset();
        }
    });
}

uint32_t CMainDialog::ResetColorThread(void* context_I) {
    return RunInThreadFrame(L"ResetColor", [context_I] {
        if (auto display = static_cast<CDisplayConfigInterface*>(context_I)->CurrentDisplay()) {
            display->SetResetColor();
        }
    });
}

uint32_t CMainDialog::ResetColorConfigThread(void* context_I) {
    VRX_ASSERT(context_I);
    if (context_I != nullptr) {
        static_cast<CMainDialog*>(context_I)->ResetColorConfig();
    }
    return 1;
}

// The options are re-read here; the controls are rebuilt on the GUI thread, and this task ends
// only after they are.
void CMainDialog::ResetColorConfig() {
    VRX_ASSERT(mDisplayConfigIF);
    if (!mDisplayConfigIF) {
        return;
    }
    if (std::shared_ptr<UiDisplayDelegate> display = mDisplayConfigIF->CurrentDisplay()) {
        display->ResetOptions(true);
    }
    QMetaObject::invokeMethod(
        this, [this] { UpdateControls(); }, Qt::BlockingQueuedConnection);
}

void CMainDialog::PumpUntilEnded(WinUtils::CSignalThread& thread_IO) {
    QEventLoop loop;
    const auto connection = connect(&mTaskTick, &QTimer::timeout, &loop, [&] {
        if (thread_IO.WaitFor(0)) {
            loop.quit();
        }
    });
    if (!thread_IO.WaitFor(0)) {
        loop.exec();
    }
    disconnect(connection);
}

void CMainDialog::PumpTask(WinUtils::CSignalThread& threadA_IO, WinUtils::CSignalThread& threadB_IO,
                           WinUtils::CSignalThread::Routine routineB_I, const char* labelB_I) {
    std::unique_ptr<QDialog> waitWindow = ShowWaitWindow();
    if (!waitWindow) {
        return;
    }
    QEventLoop loop;
    auto poll = [&] {
        if (threadA_IO.Handle() && threadA_IO.WaitFor(0)) {
            threadA_IO.Close();
            threadB_IO.Create(routineB_I, labelB_I, this);
        }
        if (threadB_IO.Handle() && threadB_IO.WaitFor(0)) {
            threadB_IO.Close();
            loop.quit();
            return true;
        }
        return false;
    };
    const auto connection = connect(&mTaskTick, &QTimer::timeout, &loop, poll);
    loop.exec();
    disconnect(connection);
    waitWindow->showMinimized();
}

void CMainDialog::DoResetColor() {
    WinUtils::CSignalThread resetColor;
    WinUtils::CSignalThread resetColorConfig;
    resetColor.Create(&CMainDialog::ResetColorThread, kResetColorLabel, mDisplayConfigIF.get());
    mTaskTick.start();
    PumpTask(resetColor, resetColorConfig, &CMainDialog::ResetColorConfigThread,
             kResetColorConfigLabel);
    resetColorConfig.Close();
    mTaskTick.stop();
    resetColor.Close();
    if (std::shared_ptr<UiDisplayDelegate> display = Display()) {
        display->GetCustomRGBColorMod(false);
        mRgbLabel->setText(Text(kRgbLabelId) + QString::fromStdWString(display->GetRGBText()));
    }
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
    WinUtils::CSignalThread factoryReset;
    factoryReset.Create(&CMainDialog::FactoryResetThread, kFactoryResetLabel,
                        mDisplayConfigIF.get());
    const bool advancedVisible = mSecondary->AdvancedExists() && mSecondary->AdvancedVisible();
    if (advancedVisible) {
        mSecondary->HideAdvanced();
    }
    RememberPosition();
    hide();
    mTaskTick.start();
    {
        WinUtils::CSignalThread displayConfig;
        PumpTask(factoryReset, displayConfig, &CMainDialog::DisplayConfigThread,
                 kDisplayConfigLabel);
        displayConfig.Close();
        mTaskTick.stop();
    }
    factoryReset.Close();
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

// The main dialog following displays plugged in or out: discovery runs again behind the wait
// window, the list shows what is there now, the display the user had stays selected while it is
// there, and a short notice names what changed.

#include "app/CHotplugWatcher.h"
#include "app/CMainDialog.h"
#include "model/UiDisplayDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QToolTip>

namespace {

constexpr int kNoticeMs = 5000;

std::vector<SListedDisplay> Listed(const CDisplayConfigInterface& config_I) {
    std::vector<SListedDisplay> listed;
    for (const SDisplayInfo& info : config_I.DisplayInfos()) {
        listed.push_back({info.deviceID, QString::fromStdWString(info.monitorName)});
    }
    return listed;
}

} // namespace

void CMainDialog::WatchHotplug() {
    mHotplugWatcher = new CHotplugWatcher(
        mEnvironment.platform, [this] { return FollowHotplug(); }, this);
}

bool CMainDialog::FollowHotplug() {
    if (mEnded || !mDisplayConfigIF) {
        return true;
    }
    if (!mWorker->Idle() || QApplication::activeModalWidget() != nullptr) {
        return false;
    }
    const std::vector<SListedDisplay> before = Listed(*mDisplayConfigIF);
    std::wstring selected;
    if (std::shared_ptr<UiDisplayDelegate> display = Display()) {
        selected = mDisplayConfigIF->CurrentDisplayInfo().deviceID;
        // A new session starts from what the display holds; unsaved changes go, as on a switch.
        display->RevertSettings();
    }
    mSecondary->CloseColorDialog(false);
    mWorker->Post([this] { RunDisplayConfig(); });
    mWorker->WaitIdle();
    const std::vector<SListedDisplay> after = Listed(*mDisplayConfigIF);
    if (mDisplayConfigIF->DisplayNames().empty()) {
        mSecondary->CloseAdvanced();
        EndDialog(0);
        ShowNotSupportedWindow();
        return true;
    }
    FillDisplayCombo();
    const auto& infos = mDisplayConfigIF->DisplayInfos();
    for (size_t index = 0; index < infos.size(); ++index) {
        if (!selected.empty() && infos[index].deviceID == selected) {
            mDisplayCombo.Select(static_cast<int>(index));
            mDisplayConfigIF->SetCurrentDisplay(static_cast<int>(index));
        }
    }
    ClearColorCombos();
    PrepareCurrentDisplay(false);
    if (mSecondary->AdvancedExists()) {
        mSecondary->RefreshAdvanced();
    }
    emit displaysChanged();
    mHotplugNotice = HotplugNotice(before, after);
    if (!mHotplugNotice.isEmpty() && isVisible()) {
        QComboBox* combo = mDisplayCombo.Combo();
        QToolTip::showText(combo->mapToGlobal(QPoint(0, combo->height())), mHotplugNotice, combo,
                           {}, kNoticeMs);
    }
    return true;
}

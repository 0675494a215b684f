#pragma once
// The advanced and colour dialogs as the main dialog sees them, and the main dialog as they see
// it: this object owns both dialogs, answers the main dialog's requests, and passes theirs on.

#include "app/IDialogOwner.h"
#include "app/ISecondaryDialogs.h"
#include "discovery/SDisplayConfigOptions.h"

#include <memory>

class CAdvancedDialog;
class CColorSettingsDialog;
class CDisplayConfigInterface;
class CMainDialog;

class CSecondaryDialogs final : public ISecondaryDialogs, public IDialogOwner {
public:
    CSecondaryDialogs(const SDisplayConfigOptions& options_I,
                      CDisplayConfigInterface& displayConfig_I, CMainDialog& mainDialog_I);
    ~CSecondaryDialogs() override;

    static SecondaryDialogsFactory Factory();

    bool RunColorDialog(QWidget* owner_I) override;
    bool ColorDialogOpen() const override;
    void CloseColorDialog(bool restore_I) override;
    bool AdvancedExists() const override;
    bool AdvancedVisible() const override;
    void OpenAdvanced(QWidget* owner_I) override;
    void ShowAdvanced() override;
    void HideAdvanced() override;
    void RefreshAdvanced() override;
    void CloseAdvanced() override;
    void Place(const QRect& mainRect_I) override;

    void SettleDisplay() override;
    void UpdateControls() override;
    void UpdateSaveRevert() override;
    void ShowCommunicationError(bool exit_I) override;
    void DoFactoryReset(bool skipConfirmation_I) override;
    void CloseAllDialogs() override;
    bool ConfirmTooDark(QWidget* asker_I) override;
    QRect MainDialogRect() const override;
    QRect WorkArea() const override;
    QRect VirtualScreen() const override;

private:
    SDisplayConfigOptions mOptions;
    CDisplayConfigInterface& mDisplayConfigIF;
    CMainDialog& mMainDialog;
    std::unique_ptr<CAdvancedDialog> mAdvanced;
    std::unique_ptr<CColorSettingsDialog> mColor;
};

#pragma once
// The modeless companion of the main dialog for the settings a user touches seldom: aspect
// ratio, sharpness, power LED, uniformity, energy smart, dynamic contrast, fan speed, auto power
// down, LCD conditioning and battery mode, with the firmware and program versions and the
// factory reset. Every change goes to the display at once except sharpness, which goes out on
// a one-second tick; Cancel writes back what the display held when the dialog was shown.
// The object lives as long as the main dialog; its window comes and goes.

#include "app/CComboValues.h"
#include "app/SharpnessStep.h"
#include "app/TickTimer.h"
#include "discovery/SDisplayConfigOptions.h"
#include "model/SControlState.h"

#include <QDialog>

#include <array>
#include <cstdint>
#include <memory>

class CDisplayConfigInterface;
class IDialogOwner;
class QLabel;
class QPushButton;
class QRadioButton;
class QSlider;
class UiDisplayDelegate;

class CAdvancedDialog final : public QDialog {
public:
    // Rows in the order they stack from the top.
    enum ERow : int32_t {
        eRow_AspectRatio,
        eRow_Sharpness,
        eRow_PowerLed,
        eRow_Firmware,
        eRow_Version,
        eRow_Uniformity,
        eRow_EnergySmart,
        eRow_DynamicContrast,
        eRow_FanSpeed,
        eRow_AutoPowerDown,
        eRow_Conditioning,
        eRow_BatteryMode,
        eRow_Count,
    };

    static constexpr int kSharpnessTickMs = 1000;

    CAdvancedDialog(const SDisplayConfigOptions& options_I, CDisplayConfigInterface* config_I,
                    IDialogOwner* owner_I,
                    std::unique_ptr<ITickTimer> timer_I = std::make_unique<CQtTickTimer>(),
                    QWidget* parent_I = nullptr);
    ~CAdvancedDialog() override;

    // Brings every row up to date; with snapshot_I the restore values of Cancel are taken.
    void Refresh(bool snapshot_I);
    // Showing takes a new snapshot; hiding drops the combos' rows.
    void ShowAdvanced(bool show_I);
    // Ends the window; the next showing creates it again.
    void Close();
    // Beside the main dialog with the lower edges aligned, or on its other side at the screen's
    // right edge.
    void Place(const QRect& mainDialog_I);
    bool IsVisible() const { return isVisible(); }
    bool WindowExists() const { return mWindowExists; }

    // What the six stepping keys do to the sharpness slider while the window exists.
    void OnSharpnessKey(ESharpnessKey key_I);
    // One tick of the sharpness timer.
    void OnSharpnessTick();

protected:
    void showEvent(QShowEvent* event_I) override;
    void hideEvent(QHideEvent* event_I) override;
    void reject() override;
    // The stepping keys, taken from every window of the program while this window exists.
    bool eventFilter(QObject* watched_I, QEvent* event_I) override;

private:
    struct SRow {
        QLabel* label = nullptr;
        QWidget* control = nullptr;
        SControlState state;
    };
    struct SOnOff {
        QRadioButton* off = nullptr;
        QRadioButton* on = nullptr;
    };

    std::shared_ptr<UiDisplayDelegate> Display() const;
    QString Text(uint32_t stringId_I) const;
    void BuildWidgets();
    QWidget* MakeOnOff(SOnOff& pair_I, const char* name_I,
                       bool (UiDisplayDelegate::*setter_I)(bool));
    QWidget* MakeCombo(CComboValues<int32_t>& combo_I, const char* name_I,
                       void (CAdvancedDialog::*changed_I)(int32_t));
    void CreateWindow();
    void FillCombos(UiDisplayDelegate& display_I);
    void ApplyState(ERow row_I, SControlState state_I);
    void ClearCombos();

    void OnAspectRatio(int32_t value_I);
    void OnBatteryMode(int32_t value_I);
    void OnPowerLed(int32_t value_I);
    void OnFanSpeed(int32_t value_I);
    void OnUniformity(int32_t value_I);
    void OnOnOff(bool (UiDisplayDelegate::*setter_I)(bool), SOnOff& pair_I, bool on_I);
    void OnSharpnessAction(int action_I);
    void OnSharpnessReleased();
    void OnOk();
    void OnFactoryReset();
    void OnStartConditioning();
    // What every setter's answer leads to: a failure ends the program.
    bool Check(bool result_I);

    SDisplayConfigOptions mOptions;
    CDisplayConfigInterface* mDisplayConfigIF;
    IDialogOwner* mMainDlg;
    std::unique_ptr<ITickTimer> mTimer;
    bool mWindowExists = false;
    int32_t mSharpness = 0;
    bool mSharpnessDirty = false;
    int32_t mSharpnessMaximum = 100;
    int32_t mSharpnessMinimum = 0;
    bool mResetInProgress = false;

    std::array<SRow, eRow_Count> mRows{};
    CComboValues<int32_t> mAspectRatio;
    CComboValues<int32_t> mBatteryMode;
    CComboValues<int32_t> mUniformity;
    CComboValues<int32_t> mFanSpeed;
    CComboValues<int32_t> mLedBrightness;
    SOnOff mEnergySmart;
    SOnOff mDynamicContrast;
    SOnOff mAutoPowerDown;
    QSlider* mSharpnessSlider = nullptr;
    QLabel* mFirmwareText = nullptr;
    QLabel* mVersionText = nullptr;
    QPushButton* mStartButton = nullptr;
    QPushButton* mFactoryResetButton = nullptr;
    QPushButton* mOkButton = nullptr;
    QPushButton* mCancelButton = nullptr;
};

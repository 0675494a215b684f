#pragma once
// The main dialog: starts discovery behind a wait window, shows the current display's brightness,
// contrast and colour settings, remembers where the user left it and ends the program. Every
// control is a thin view of the current display's delegate; the long tasks (discovery, factory
// and colour reset) run on one worker at a time while this thread keeps its events turning.

#include "app/CComboValues.h"
#include "app/CDisplayWorker.h"
#include "app/ISecondaryDialogs.h"
#include "discovery/CDisplayConfigInterface.h"
#include "discovery/SDisplayConfigOptions.h"
#include "model/SControlState.h"
#include "model/SVCPResult.h"
#include "model/UserSettings.h"

#include <QDialog>
#include <QEventLoop>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>

class CHotplugWatcher;
class CProfileControl;
class QLabel;
class QLineEdit;
class QLocalServer;
class QPushButton;
class QSlider;
class QGroupBox;
class QGridLayout;
class UiDisplayDelegate;

// What the dialog is given besides the options: where displays come from, who makes the two
// other dialogs, and the name under which a running instance answers a second start.
struct SMainDialogEnvironment {
    std::shared_ptr<IDisplayPlatform> platform;
    // Empty: the real advanced and colour dialogs.
    SecondaryDialogsFactory makeSecondaryDialogs;
    // Empty: the product's title and the user's name.
    QString instanceName;
};

class CMainDialog : public QDialog {
    Q_OBJECT

public:
    // The windows that run a loop of their own until answered.
    enum class EModal {
        eDarkQuestion,
        eFactoryResetQuestion,
        eCommunicationError,
        eErrorWindow,
        eNotSupportedWindow,
        eHelpUnavailable
    };
    enum ESlider { eBrightnessSlider, eContrastSlider };
    static constexpr int kDarkQuestionTimeoutMs = 5000;

    CMainDialog(const SDisplayConfigOptions& options_I, SMainDialogEnvironment environment_I,
                QWidget* parent_I = nullptr);
    ~CMainDialog() override;

    // The modal run: set-up, then events until the dialog ends. The result is the exit code.
    int Run();
    // The set-up alone; false when it already ended the dialog.
    bool OnInitDialog();
    bool Ended() const { return mEnded; }
    int Result() const { return mResult; }
    void EndDialog(int result_I);
    // The thread all display calls run on.
    CDisplayWorker& Worker() { return *mWorker; }

    // Called by the other dialogs and the background tasks.
    void UpdateControls();
    void UpdateSaveRevert();
    void ShowCommunicationError(bool exit_I);
    // The same with the display's last error as the worker read it.
    void ShowCommunicationError(bool exit_I, const std::string& lastError_I);
    void DoFactoryReset(bool skipConfirmation_I);
    void DoResetColor();
    void CloseAllDialogs();
    // The too-dark question over asker_I: true when the user keeps the setting. It defaults to
    // No and answers No by itself after the dark-question delay.
    bool ConfirmTooDark(QWidget* asker_I);

    CDisplayConfigInterface* DisplayConfigIF() const { return mDisplayConfigIF.get(); }
    ISecondaryDialogs* SecondaryDialogs() const { return mSecondary.get(); }
    const QString& InstanceName() const { return mInstanceName; }
    // What the last change of the plugged displays said to the user; empty when nothing changed.
    const QString& LastHotplugNotice() const { return mHotplugNotice; }
    // The delay after which the dark-settings question answers No by itself.
    void SetDarkQuestionTimeout(int milliseconds_I) { mDarkQuestionTimeoutMs = milliseconds_I; }

protected:
    // Every window that waits for an answer runs through here; tests answer in its place.
    virtual int ExecModal(QDialog& window_I, EModal kind_I);
    // The wait window has just been shown.
    virtual void WaitWindowShown(QWidget& window_I);
    void reject() override;
    void done(int result_I) override;
    void closeEvent(QCloseEvent* event_I) override;
    bool eventFilter(QObject* watched_I, QEvent* event_I) override;

private:
    struct SSliderPair {
        QLabel* label = nullptr;
        QSlider* slider = nullptr;
        QLineEdit* edit = nullptr;
        int32_t* stored = nullptr;
    };
    // What the controls show of the display, read on the worker and shown on this thread.
    struct SSaveRevertView {
        bool read = false;
        SControlState save;
        SControlState revert;
    };
    struct SControlsView {
        bool read = false;
        SControlState brightness;
        SVCPResult brightnessRange;
        SControlState contrast;
        SVCPResult contrastRange;
        SControlState colorSetting;
        EColorSetting colorSettingValue{};
        SControlState temperature;
        EColorTemperature temperatureValue{};
        SControlState space;
        EColorSpace spaceValue{};
        SControlState customColor;
        std::wstring rgbText;
        SControlState resetColor;
        SControlState gamma;
        int32_t gammaValue = 0;
        SSaveRevertView saveRevert;
    };
    // The outcome of a write, taken on the worker.
    struct SWritten {
        bool ok = true;
        std::string error;
        bool tooDark = false;
    };
    using DisplayJob = std::function<void(UiDisplayDelegate&)>;

    // Set-up.
    void BuildControls();
    void SetStaticTexts();
    void ReadStoredPosition();
    bool RaiseRunningInstance();
    void ListenForSecondStarts();
    void FillDisplayCombo();
    void PrepareCurrentDisplay(bool refresh_I);
    void ClearColorCombos();

    // Displays plugged in or out (CMainDialogHotplug.cpp).
    void WatchHotplug();
    // false while a task or a question runs, which the change waits for.
    bool FollowHotplug();

    // Placement and the close sequence.
    void PlaceWindow();
    QMargins FrameMargins() const;
    // Keeps where the user moved the window for the next placement.
    void RememberPosition();
    void PlaceSecondaryDialogs();
    void CloseSequence();
    void SelectDisplay();

    // Controls.
    std::shared_ptr<UiDisplayDelegate> Display() const;
    // Runs job_I on the worker with the current display, then done_I here.
    void PostToDisplay(DisplayJob job_I, CDisplayWorker::Job done_I);
    static SControlsView ReadControls(UiDisplayDelegate& display_I);
    static SSaveRevertView ReadSaveRevert(UiDisplayDelegate& display_I);
    void ShowControls(const SControlsView& view_I);
    void ShowSaveRevert(const SSaveRevertView& view_I);
    // A setting's write, then every control (all_I) or Save and Revert read back, in one job.
    // beforeShow_I runs here between the error, if any, and the update of the controls.
    void WriteThenShow(std::function<bool(UiDisplayDelegate&)> write_I, bool all_I,
                       CDisplayWorker::Job beforeShow_I = {});
    // A level's write; then_I gets, here, whether the values written make the screen too dark.
    void WriteLevel(ESlider slider_I, int32_t value_I, std::function<void(bool)> then_I);
    // After a level's write: keeps it, or on No to the too-dark question writes the kept one.
    // fromSlider_I: a slider's thumb goes back too, which writes as a move does.
    void KeepLevel(ESlider slider_I, int32_t value_I, bool tooDark_I, bool fromSlider_I);
    void ReportError(const SWritten& written_I);
    void FillColorCombos(UiDisplayDelegate& display_I);
    void UpdateSlider(ESlider slider_I, SControlState state_I, SVCPResult range_I,
                      int32_t fallback_I);
    void OnSliderAction(ESlider slider_I, int action_I);
    void LiveEvent(ESlider slider_I, int32_t value_I);
    void CommitEvent(ESlider slider_I, int32_t value_I);
    // select_I: the text is selected once the value is written (Enter).
    void CommitEdit(ESlider slider_I, bool select_I);
    void OnColorSettingChanged();
    void OnTemperatureChanged();
    void OnSpaceChanged();
    void OnGammaChanged();
    void OnSet();
    void OnSave();
    void OnRevert();
    void OnAdvanced();
    // Opens the display's help, or says that none can be reached.
    void OnHelp();

    // Background tasks, all on the display worker.
    void RunDisplayConfig();
    // Keeps events turning behind the wait window until the worker has done its jobs.
    void WaitBehindWaitWindow();
    // Returns once no display call is in flight, so this thread may use the session.
    void SettleDisplay();
    bool ConfirmFactoryReset();

    // The three captionless windows.
    std::unique_ptr<QDialog> ShowWaitWindow();
    void ShowNotSupportedWindow();
    void ShowErrorWindow(const QString& text_I);

    QString Text(uint32_t id_I) const;
    static void ApplyState(SControlState state_I, std::initializer_list<QWidget*> widgets_I);

    SDisplayConfigOptions mOptions;
    SMainDialogEnvironment mEnvironment;
    QString mInstanceName;
    std::unique_ptr<ISecondaryDialogs> mSecondary;
    // Written by the discovery task, read here only after that task has ended.
    std::unique_ptr<CDisplayConfigInterface> mDisplayConfigIF;
    std::string mConfigError;
    // Declared after the session list it works on, so that it stops first.
    std::unique_ptr<CDisplayWorker> mWorker;

    int32_t mBrightness = 75;
    int32_t mContrast = 50;
    bool mBusy = false;
    bool mUseDefaultPosition = false;
    int64_t mLastX = 0;
    int64_t mLastY = 0;
    int mDarkQuestionTimeoutMs = kDarkQuestionTimeoutMs;
    bool mEnded = false;
    int mResult = 0;
    QPointer<QEventLoop> mRunLoop;
    QLocalServer* mInstanceServer = nullptr;

    CComboValues<int> mDisplayCombo;
    CComboValues<EColorSetting> mColorSettingCombo;
    CComboValues<EColorTemperature> mTemperatureCombo;
    CComboValues<EColorSpace> mSpaceCombo;
    CComboValues<int32_t> mGammaCombo;

    QGridLayout* mMainGrid = nullptr;
    QGridLayout* mColorGrid = nullptr;
    QLabel* mDisplayLabel = nullptr;
    SSliderPair mBrightnessPair;
    SSliderPair mContrastPair;
    QGroupBox* mColorGroup = nullptr;
    QLabel* mColorSettingLabel = nullptr;
    QLabel* mTemperatureLabel = nullptr;
    QLabel* mSpaceLabel = nullptr;
    QPushButton* mSetButton = nullptr;
    QLabel* mRgbLabel = nullptr;
    QPushButton* mResetColorButton = nullptr;
    QLabel* mGammaLabel = nullptr;
    QPushButton* mAdvancedButton = nullptr;
    QPushButton* mRevertButton = nullptr;
    QPushButton* mSaveButton = nullptr;
    CProfileControl* mProfileControl = nullptr;
    CHotplugWatcher* mHotplugWatcher = nullptr;
    QString mHotplugNotice;
};

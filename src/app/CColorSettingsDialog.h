#pragma once
// The modal "Set Color" dialog: one colour record of the display in three linked notations
// (red, green, blue; six hexadecimal digits; cyan, magenta, yellow, black) and, on the models
// that offer it, the attribute whose VCP triple the record stands for. Live slider moves change
// only the working colour; commits write it to the display, after the too-dark question where
// the colour risks an unreadable screen. Cancel writes back what the display held.

#include "app/CComboValues.h"
#include "app/ColorNotation.h"
#include "discovery/SDisplayConfigOptions.h"

#include <QDialog>

#include <array>
#include <memory>

class CDisplayConfigInterface;
class IDialogOwner;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class UiDisplayDelegate;

class CColorSettingsDialog final : public QDialog {
public:
    CColorSettingsDialog(const SDisplayConfigOptions& options_I, CDisplayConfigInterface* config_I,
                         IDialogOwner* owner_I, QWidget* parent_I = nullptr);
    ~CColorSettingsDialog() override;

    // Makes the window and runs it until OK, Cancel or the main dialog closes it.
    int Run();
    // The window's set-up, which Run does first: texts, colours, placement.
    void Open();
    // The main dialog's way to end a run, optionally writing back the original colours.
    void CloseColorDialog(bool restore_I);
    bool WindowExists() const { return mWindowExists; }
    // Beside the main dialog, kept within the work area.
    void Place(const QRect& mainDialog_I);

protected:
    void reject() override;
    void keyPressEvent(QKeyEvent* event_I) override;
    bool eventFilter(QObject* watched_I, QEvent* event_I) override;

private:
    // The sources of a change that the linked notations follow: the seven components and the
    // hex edit.
    static constexpr int kHexSource = eColorSlider_Count;

    struct SComponentRow {
        QLabel* label = nullptr;
        QSlider* slider = nullptr;
        QLineEdit* edit = nullptr;
    };

    std::shared_ptr<UiDisplayDelegate> Display() const;
    QString Text(uint32_t stringId_I) const;
    void BuildWidgets();
    void Refresh();
    void SetComponent(EColorSlider slider_I, int32_t value_I);
    void SetEditText(EColorSlider slider_I, int32_t value_I);
    void SetFromWorking(EColorSlider slider_I);
    void WriteHexText(const SCustomColor& color_I);
    void RefreshLinked(int source_I);
    // Whether the colour with this component may stay: asks the too-dark question if needed.
    bool DarkCheckAccepts(EColorSlider slider_I, int32_t value_I);
    void OnSliderAction(EColorSlider slider_I, int action_I);
    void OnSliderLive(EColorSlider slider_I, int32_t value_I);
    void OnSliderCommit(EColorSlider slider_I, int32_t value_I);
    void CommitEdit(int source_I);
    void CommitComponentEdit(EColorSlider slider_I, int32_t value_I, int32_t maximum_I);
    void CommitHexEdit();
    void OnAttribute(int32_t value_I);
    // Writes back the colours the run began with; false after a failed write.
    bool RestoreColors();
    void Finish(int result_I);
    void CommunicationFailure();

    SDisplayConfigOptions mOptions;
    CDisplayConfigInterface* mDisplayConfigIF;
    IDialogOwner* mMainDlg;
    CComboValues<int32_t> mAttribute;
    bool mBusy = false;
    bool mWindowExists = false;

    QLabel* mAttributeLabel = nullptr;
    QLabel* mCustomLabel = nullptr;
    std::array<SComponentRow, eColorSlider_Count> mRows{};
    QLabel* mHexLabel = nullptr;
    QLineEdit* mHexEdit = nullptr;
    QPushButton* mOkButton = nullptr;
    QPushButton* mCancelButton = nullptr;
};

#include "app/CMainDialog.h"

#include "foundation/Trace.h"
#include "model/UiDisplayDelegate.h"
#include "resources/StringIds.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

#include <algorithm>

// Slider events. The display's protocol knows nine scroll codes; Qt's slider actions and its
// release stand in for them as follows:
//   SliderSingleStepAdd/Sub, SliderPageStepAdd/Sub (arrow and page keys, groove clicks)
//       -> codes 0 to 3, live, at the slider's position; when the thumb is not held they are
//          followed at once by code 8 (scrolling ended), a commit at the slider's position.
//   SliderMove (thumb dragged, wheel)
//       -> code 5, live, at the slider's position; a wheel step (thumb not held) is also
//          followed by code 8.
//   SliderToMinimum, SliderToMaximum (Home, End)
//       -> codes 6 and 7: the slider goes back to the stored value, nothing else.
//   sliderReleased (thumb let go)
//       -> code 4, a commit at the thumb's position.

namespace {

constexpr uint32_t kTitleId = 2000;
constexpr uint32_t kRgbLabelId = 2026;
constexpr uint32_t kTooDarkId = 2902;
constexpr uint32_t kWarningId = 2903;

using DisplayTest = bool (*)(const UiDisplayDelegate&);

bool Always(const UiDisplayDelegate&) {
    return true;
}
bool Birch(const UiDisplayDelegate& d) {
    return d.IsBirchFamily();
}
bool Elm(const UiDisplayDelegate& d) {
    return d.IsElmFamily();
}
bool Cedar(const UiDisplayDelegate& d) {
    return d.IsCedarFamily();
}
bool BirchOrElm(const UiDisplayDelegate& d) {
    return d.IsBirchFamily() || d.IsElmFamily();
}
bool BirchElmOrCedar(const UiDisplayDelegate& d) {
    return d.IsBirchFamily() || d.IsElmFamily() || d.IsCedarFamily();
}

template <typename T>
struct SComboRow {
    T value;
    uint16_t stringId;
    DisplayTest exists;
};

constexpr SComboRow<EColorSetting> kColorSettingRows[] = {
    {eColorSetting_Temperature, 2005, Always},
    {eColorSetting_Space, 2006, BirchElmOrCedar},
    {eColorSetting_Custom, 2007, Always},
};

constexpr SComboRow<EColorTemperature> kTemperatureRows[] = {
    {eColorTemperature_5000K, 2009, Always}, {eColorTemperature_5700K, 2010, BirchOrElm},
    {eColorTemperature_6500K, 2011, Always}, {eColorTemperature_7500K, 2012, Birch},
    {eColorTemperature_9300K, 2013, Always}, {eColorTemperature_10000K, 2014, BirchOrElm},
};

// Rows in the order they are added; the row order of the combo.
constexpr SComboRow<EColorSpace> kSpaceRows[] = {
    {eColorSpace_Native, 2016, Cedar},
    {eColorSpace_AdobeRGB, 2017, Always},
    {eColorSpace_sRGB, 2018, Always},
    {eColorSpace_Rec709, 2019, Always},
    {eColorSpace_DCIP3, 2020, Elm},
    {eColorSpace_Rec2020, 2021, Elm},
    {eColorSpace_EBU, 2022, Elm},
    {eColorSpace_DCI, 2023, Birch},
    {eColorSpace_ColorManager1, 2034, BirchElmOrCedar},
    {eColorSpace_ColorManager2, 2035, BirchElmOrCedar},
};

constexpr SComboRow<int32_t> kGammaRows[] = {
    {eGamma_1_9, 2028, Cedar},
    {eGamma_2_2, 2029, Always},
    {eGamma_2_4, 2030, Always},
};

// On the Elm family a gamma value is ten times the gamma: 0.5 to 4.0.
constexpr int32_t kElmGammaFirst = 5;
constexpr int32_t kElmGammaLast = 39;
constexpr int32_t kElmGammaForty = 40;

constexpr int32_t kBrightnessFallback = 75;
constexpr int32_t kContrastFallback = 50;

template <typename T, size_t N>
void FillCombo(CComboValues<T>& combo_IO, const SComboRow<T> (&rows_I)[N],
               const UiDisplayDelegate& display_I, const std::function<QString(uint32_t)>& text_I) {
    if (!combo_IO.Empty()) {
        return;
    }
    for (const SComboRow<T>& row : rows_I) {
        if (row.exists(display_I)) {
            combo_IO.Add(row.value, text_I(row.stringId));
        }
    }
}

} // namespace

void CMainDialog::FillColorCombos(UiDisplayDelegate& display_I) {
    const auto text = [this](uint32_t id) { return Text(id); };
    FillCombo(mColorSettingCombo, kColorSettingRows, display_I, text);
    FillCombo(mTemperatureCombo, kTemperatureRows, display_I, text);
    FillCombo(mSpaceCombo, kSpaceRows, display_I, text);
    if (!mGammaCombo.Empty()) {
        return;
    }
    if (display_I.IsElmFamily()) {
        for (int32_t value = kElmGammaFirst; value <= kElmGammaLast; ++value) {
            mGammaCombo.Add(value, Text(kGammaFirstStringId + value - kElmGammaFirst));
        }
        mGammaCombo.Add(kElmGammaForty, Text(kGammaFortyStringId));
    } else {
        FillCombo(mGammaCombo, kGammaRows, display_I, text);
    }
}

void CMainDialog::PostToDisplay(DisplayJob job_I, CDisplayWorker::Job done_I) {
    CDisplayConfigInterface* config = mDisplayConfigIF.get();
    mWorker->Post(
        [config, job = std::move(job_I)] {
            if (config == nullptr) {
                return;
            }
            if (std::shared_ptr<UiDisplayDelegate> display = config->CurrentDisplay()) {
                job(*display);
            }
        },
        std::move(done_I));
}

// The reads in the order the controls have always made them.
CMainDialog::SControlsView CMainDialog::ReadControls(UiDisplayDelegate& display_I) {
    SControlsView view;
    view.read = true;
    view.brightness = display_I.BrightnessStatus();
    if (view.brightness.visible && view.brightness.enabled) {
        view.brightnessRange = display_I.GetBrightness();
    }
    view.contrast = display_I.ContrastStatus();
    if (view.contrast.visible && view.contrast.enabled) {
        view.contrastRange = display_I.GetContrast();
    }
    view.colorSetting = display_I.ColorSettingStatus();
    if (view.colorSetting.visible) {
        view.colorSettingValue = display_I.GetColorSetting().value;
    }
    view.temperature = display_I.ColorTemperatureStatus();
    if (view.temperature.visible) {
        view.temperatureValue = display_I.GetColorTemperature().value;
    }
    view.space = display_I.ColorSpaceStatus();
    if (view.space.visible) {
        const SUserValue<EColorSpace> space = display_I.GetColorSpace();
        if (!space.valid) {
            Trace("WARNING: Color space is NOT valid!\n");
        }
        view.spaceValue = space.value;
    }
    view.customColor = display_I.CustomColorStatus();
    if (view.customColor.visible) {
        view.rgbText = display_I.GetRGBText();
    }
    view.resetColor = display_I.ResetColorStatus();
    view.gamma = display_I.GammaStatus();
    if (view.gamma.visible) {
        view.gammaValue = display_I.GetGamma().value;
    }
    view.saveRevert = ReadSaveRevert(display_I);
    return view;
}

CMainDialog::SSaveRevertView CMainDialog::ReadSaveRevert(UiDisplayDelegate& display_I) {
    return {true, display_I.SaveStatus(), display_I.RevertStatus()};
}

void CMainDialog::UpdateSlider(ESlider slider_I, SControlState state_I, SVCPResult range_I,
                               int32_t fallback_I) {
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    ApplyState(state_I, {pair.label, pair.edit, pair.slider});
    if (state_I.visible && state_I.enabled) {
        *pair.stored = range_I.value;
        pair.slider->setRange(range_I.minimum, range_I.maximum);
    } else {
        *pair.stored = fallback_I;
    }
    pair.slider->setValue(*pair.stored);
    pair.edit->setMaxLength(3);
    pair.edit->setText(QString::number(*pair.stored));
}

void CMainDialog::ShowControls(const SControlsView& view_I) {
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!view_I.read || !display) {
        return;
    }
    FillColorCombos(*display);
    UpdateSlider(eBrightnessSlider, view_I.brightness, view_I.brightnessRange, kBrightnessFallback);
    UpdateSlider(eContrastSlider, view_I.contrast, view_I.contrastRange, kContrastFallback);
    ApplyState(view_I.colorSetting, {mColorSettingLabel, mColorGroup, mColorSettingCombo.Combo()});
    if (view_I.colorSetting.visible) {
        mColorSettingCombo.Select(view_I.colorSettingValue);
    }
    ApplyState(view_I.temperature, {mTemperatureLabel, mTemperatureCombo.Combo()});
    if (view_I.temperature.visible) {
        mTemperatureCombo.Select(view_I.temperatureValue);
    }
    ApplyState(view_I.space, {mSpaceLabel, mSpaceCombo.Combo()});
    if (view_I.space.visible) {
        mSpaceCombo.Select(view_I.spaceValue);
    }
    ApplyState(view_I.customColor, {mSetButton, mRgbLabel});
    if (view_I.customColor.visible) {
        mRgbLabel->setText(Text(kRgbLabelId) + QString::fromStdWString(view_I.rgbText));
    } else {
        mRgbLabel->clear();
    }
    ApplyState(view_I.resetColor, {mResetColorButton});
    ApplyState(view_I.gamma, {mGammaLabel, mGammaCombo.Combo()});
    if (view_I.gamma.visible) {
        mGammaCombo.Select(view_I.gammaValue);
    }
    ShowSaveRevert(view_I.saveRevert);
}

void CMainDialog::ShowSaveRevert(const SSaveRevertView& view_I) {
    ApplyState(SControlState::Usable(), {mAdvancedButton});
    if (view_I.read) {
        ApplyState(view_I.save, {mSaveButton});
        ApplyState(view_I.revert, {mRevertButton});
    }
}

void CMainDialog::UpdateControls() {
    auto view = std::make_shared<SControlsView>();
    PostToDisplay([view](UiDisplayDelegate& display) { *view = ReadControls(display); },
                  [this, view] { ShowControls(*view); });
}

void CMainDialog::UpdateSaveRevert() {
    auto view = std::make_shared<SSaveRevertView>();
    PostToDisplay([view](UiDisplayDelegate& display) { *view = ReadSaveRevert(display); },
                  [this, view] { ShowSaveRevert(*view); });
}

void CMainDialog::ReportError(const SWritten& written_I) {
    if (!written_I.ok) {
        ShowCommunicationError(false, written_I.error);
    }
}

void CMainDialog::WriteThenShow(std::function<bool(UiDisplayDelegate&)> write_I, bool all_I,
                                CDisplayWorker::Job beforeShow_I) {
    auto written = std::make_shared<SWritten>();
    auto view = std::make_shared<SControlsView>();
    PostToDisplay(
        [write = std::move(write_I), written, view, all_I](UiDisplayDelegate& display) {
            written->ok = write(display);
            if (!written->ok) {
                written->error = display.GetLastErrorText();
            }
            if (all_I) {
                *view = ReadControls(display);
            } else {
                view->saveRevert = ReadSaveRevert(display);
            }
        },
        [this, written, view, all_I, beforeShow = std::move(beforeShow_I)] {
            ReportError(*written);
            if (beforeShow) {
                beforeShow();
            }
            if (all_I) {
                ShowControls(*view);
            } else {
                ShowSaveRevert(view->saveRevert);
            }
        });
}

void CMainDialog::WriteLevel(ESlider slider_I, int32_t value_I, std::function<void(bool)> then_I) {
    const int32_t brightness = slider_I == eBrightnessSlider ? value_I : mBrightness;
    const int32_t contrast = slider_I == eContrastSlider ? value_I : mContrast;
    auto written = std::make_shared<SWritten>();
    PostToDisplay(
        [written, slider_I, value_I, brightness, contrast](UiDisplayDelegate& display) {
            written->ok = slider_I == eBrightnessSlider ? display.SetBrightness(value_I)
                                                        : display.SetContrast(value_I);
            if (!written->ok) {
                written->error = display.GetLastErrorText();
            }
            written->tooDark = display.IsTooDark(brightness, contrast);
        },
        [this, written, then = std::move(then_I)] {
            ReportError(*written);
            if (then) {
                then(written->tooDark);
            }
        });
}

void CMainDialog::KeepLevel(ESlider slider_I, int32_t value_I, bool tooDark_I, bool fromSlider_I) {
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    mBusy = true;
    const bool keep = !tooDark_I || ConfirmTooDark(this);
    mBusy = false;
    if (keep) {
        *pair.stored = value_I;
        UpdateSaveRevert();
        return;
    }
    if (fromSlider_I) {
        pair.slider->setSliderPosition(*pair.stored);
    }
    pair.slider->setValue(*pair.stored);
    pair.edit->setText(QString::number(*pair.stored));
    WriteLevel(slider_I, *pair.stored, nullptr);
}

void CMainDialog::OnSliderAction(ESlider slider_I, int action_I) {
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    switch (action_I) {
    case QAbstractSlider::SliderSingleStepAdd:
    case QAbstractSlider::SliderSingleStepSub:
    case QAbstractSlider::SliderPageStepAdd:
    case QAbstractSlider::SliderPageStepSub:
    case QAbstractSlider::SliderMove:
        LiveEvent(slider_I, pair.slider->sliderPosition());
        if (!pair.slider->isSliderDown()) {
            CommitEvent(slider_I, pair.slider->sliderPosition());
        }
        break;
    case QAbstractSlider::SliderToMinimum:
    case QAbstractSlider::SliderToMaximum:
        pair.slider->setSliderPosition(*pair.stored);
        break;
    default:
        break;
    }
}

// A drag's values go to the worker; while one is on the wire only the latest waits.
void CMainDialog::LiveEvent(ESlider slider_I, int32_t value_I) {
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    pair.edit->setText(QString::number(value_I));
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!display) {
        return;
    }
    auto written = std::make_shared<SWritten>();
    mWorker->Post(
        [display, slider_I, value_I, written] {
            written->ok = slider_I == eBrightnessSlider ? display->SetBrightness(value_I)
                                                        : display->SetContrast(value_I);
            if (!written->ok) {
                written->error = display->GetLastErrorText();
            }
        },
        [this, written] { ReportError(*written); }, slider_I);
}

void CMainDialog::CommitEvent(ESlider slider_I, int32_t value_I) {
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    if (value_I == *pair.stored || mBusy) {
        return;
    }
    pair.edit->setText(QString::number(value_I));
    // Set until the question is answered: a commit meanwhile is dropped, as while the box runs.
    mBusy = true;
    WriteLevel(slider_I, value_I, [this, slider_I, value_I](bool tooDark) {
        KeepLevel(slider_I, value_I, tooDark, true);
    });
}

// Bad text reads as 0 for brightness but as the display's value for contrast; the contrast edit
// is also rewritten when the value equals the display's, and re-evaluates the bottom buttons
// whatever the outcome.
void CMainDialog::CommitEdit(ESlider slider_I, bool select_I) {
    auto range = std::make_shared<SVCPResult>();
    PostToDisplay(
        [range, slider_I](UiDisplayDelegate& display) {
            *range =
                slider_I == eBrightnessSlider ? display.GetBrightness() : display.GetContrast();
        },
        [this, range, slider_I, select_I] {
            VRX_ASSERT(range->valid);
            if (!range->valid) {
                return;
            }
            const bool brightness = slider_I == eBrightnessSlider;
            SSliderPair& pair = brightness ? mBrightnessPair : mContrastPair;
            bool number = false;
            int read = pair.edit->text().toInt(&number);
            if (!number) {
                read = brightness ? 0 : range->value;
            }
            const int32_t value = std::clamp(read, range->minimum, range->maximum);
            if (value != read || (!brightness && read == range->value)) {
                pair.edit->setText(QString::number(value));
            }
            pair.slider->setValue(value);
            WriteLevel(slider_I, value,
                       [this, slider_I, value, brightness, select_I](bool tooDark) {
                           KeepLevel(slider_I, value, tooDark, false);
                           if (!brightness) {
                               UpdateSaveRevert();
                           }
                           if (select_I) {
                               (brightness ? mBrightnessPair : mContrastPair).edit->selectAll();
                           }
                       });
        });
}

bool CMainDialog::ConfirmTooDark(QWidget* asker_I) {
    QMessageBox box(QMessageBox::Warning, Text(kTitleId),
                    Text(kWarningId) + QLatin1Char('\n') + Text(kTooDarkId),
                    QMessageBox::Yes | QMessageBox::No, asker_I);
    box.setObjectName(QStringLiteral("darkQuestion"));
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    // A user who can't read the screen gets the old setting back: no answer counts as No.
    auto* timeout = new QTimer(&box);
    timeout->setSingleShot(true);
    connect(timeout, &QTimer::timeout, &box, [&box] { box.done(QMessageBox::No); });
    timeout->start(mDarkQuestionTimeoutMs);
    return ExecModal(box, EModal::eDarkQuestion) != QMessageBox::No;
}

void CMainDialog::OnColorSettingChanged() {
    const EColorSetting value = mColorSettingCombo.Selected();
    WriteThenShow([value](UiDisplayDelegate& display) { return display.SetColorSetting(value); },
                  true);
}

void CMainDialog::OnTemperatureChanged() {
    const EColorTemperature value = mTemperatureCombo.Selected();
    WriteThenShow(
        [value](UiDisplayDelegate& display) { return display.SetColorTemperature(value); }, true);
}

// A colour-managed display keeps its "unused" row until it stops being colour-managed.
void CMainDialog::OnSpaceChanged() {
    const EColorSpace value = mSpaceCombo.Selected();
    const bool hasUnused = mSpaceCombo.Has(eColorSpace_Unused);
    auto managed = std::make_shared<bool>(true);
    WriteThenShow(
        [value, hasUnused, managed](UiDisplayDelegate& display) {
            const bool written = display.SetColorSpace(value);
            *managed = !hasUnused || display.IsColorManaged();
            return written;
        },
        true,
        [this, managed] {
            if (!*managed) {
                mSpaceCombo.Remove(eColorSpace_Unused);
            }
        });
}

void CMainDialog::OnGammaChanged() {
    const int32_t value = mGammaCombo.Selected();
    WriteThenShow([value](UiDisplayDelegate& display) { return display.SetGamma(value); }, false);
}

void CMainDialog::OnSet() {
    SettleDisplay();
    if (mSecondary->ColorDialogOpen()) {
        VRX_ASSERT_NOT_REACHED("How???");
        return;
    }
    if (mSecondary->RunColorDialog(QApplication::activeWindow())) {
        auto text = std::make_shared<std::wstring>();
        PostToDisplay([text](UiDisplayDelegate& display) { *text = display.GetRGBText(); },
                      [this, text] {
                          mRgbLabel->setText(Text(kRgbLabelId) + QString::fromStdWString(*text));
                      });
    }
}

void CMainDialog::OnSave() {
    WriteThenShow([](UiDisplayDelegate& display) { return display.SaveSettings(); }, false);
}

void CMainDialog::OnRevert() {
    auto written = std::make_shared<SWritten>();
    auto view = std::make_shared<SControlsView>();
    PostToDisplay(
        [written, view](UiDisplayDelegate& display) {
            written->ok = display.RevertSettings();
            if (!written->ok) {
                written->error = display.GetLastErrorText();
            }
            *view = ReadControls(display);
        },
        [this, written, view] {
            ShowControls(*view);
            if (mSecondary->AdvancedExists()) {
                mSecondary->RefreshAdvanced();
            }
            UpdateSaveRevert();
            ReportError(*written);
        });
}

void CMainDialog::OnAdvanced() {
    SettleDisplay();
    mSecondary->OpenAdvanced(QApplication::activeWindow());
}

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

void CMainDialog::UpdateSlider(ESlider slider_I, SControlState state_I, int32_t fallback_I) {
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    std::shared_ptr<UiDisplayDelegate> display = Display();
    ApplyState(state_I, {pair.label, pair.edit, pair.slider});
    if (state_I.visible && state_I.enabled) {
        const SVCPResult range =
            slider_I == eBrightnessSlider ? display->GetBrightness() : display->GetContrast();
        *pair.stored = range.value;
        pair.slider->setRange(range.minimum, range.maximum);
    } else {
        *pair.stored = fallback_I;
    }
    pair.slider->setValue(*pair.stored);
    pair.edit->setMaxLength(3);
    pair.edit->setText(QString::number(*pair.stored));
}

void CMainDialog::SetRgbLabel(UiDisplayDelegate& display_I) {
    mRgbLabel->setText(Text(kRgbLabelId) + QString::fromStdWString(display_I.GetRGBText()));
}

void CMainDialog::UpdateControls() {
    SettleDisplay();
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!display) {
        return;
    }
    FillColorCombos(*display);
    UpdateSlider(eBrightnessSlider, display->BrightnessStatus(), kBrightnessFallback);
    UpdateSlider(eContrastSlider, display->ContrastStatus(), kContrastFallback);

    SControlState state = display->ColorSettingStatus();
    ApplyState(state, {mColorSettingLabel, mColorGroup, mColorSettingCombo.Combo()});
    if (state.visible) {
        mColorSettingCombo.Select(display->GetColorSetting().value);
    }
    state = display->ColorTemperatureStatus();
    ApplyState(state, {mTemperatureLabel, mTemperatureCombo.Combo()});
    if (state.visible) {
        mTemperatureCombo.Select(display->GetColorTemperature().value);
    }
    state = display->ColorSpaceStatus();
    ApplyState(state, {mSpaceLabel, mSpaceCombo.Combo()});
    if (state.visible) {
        const SUserValue<EColorSpace> space = display->GetColorSpace();
        if (!space.valid) {
            Trace("WARNING: Color space is NOT valid!\n");
        }
        mSpaceCombo.Select(space.value);
    }
    state = display->CustomColorStatus();
    ApplyState(state, {mSetButton, mRgbLabel});
    if (state.visible) {
        SetRgbLabel(*display);
    } else {
        mRgbLabel->clear();
    }
    ApplyState(display->ResetColorStatus(), {mResetColorButton});
    state = display->GammaStatus();
    ApplyState(state, {mGammaLabel, mGammaCombo.Combo()});
    if (state.visible) {
        mGammaCombo.Select(display->GetGamma().value);
    }
    UpdateSaveRevert();
}

void CMainDialog::UpdateSaveRevert() {
    SettleDisplay();
    std::shared_ptr<UiDisplayDelegate> display = Display();
    ApplyState(SControlState::Usable(), {mAdvancedButton});
    if (display) {
        ApplyState(display->SaveStatus(), {mSaveButton});
        ApplyState(display->RevertStatus(), {mRevertButton});
    }
}

bool CMainDialog::ApplySlider(ESlider slider_I, int32_t value_I) {
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!display) {
        return false;
    }
    return slider_I == eBrightnessSlider ? display->SetBrightness(value_I)
                                         : display->SetContrast(value_I);
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
    auto written = std::make_shared<bool>(true);
    mWorker->Post(
        [display, slider_I, value_I, written] {
            *written = slider_I == eBrightnessSlider ? display->SetBrightness(value_I)
                                                     : display->SetContrast(value_I);
        },
        [this, written] {
            if (!*written) {
                ShowCommunicationError(false);
            }
        },
        slider_I);
}

void CMainDialog::CommitEvent(ESlider slider_I, int32_t value_I) {
    SettleDisplay();
    SSliderPair& pair = slider_I == eBrightnessSlider ? mBrightnessPair : mContrastPair;
    if (value_I == *pair.stored || mBusy) {
        return;
    }
    mBusy = true;
    if (!ApplySlider(slider_I, value_I)) {
        ShowCommunicationError(false);
    }
    pair.edit->setText(QString::number(value_I));
    if (ConfirmDarkSettings(slider_I, value_I)) {
        *pair.stored = value_I;
        UpdateSaveRevert();
        mBusy = false;
        return;
    }
    pair.slider->setSliderPosition(*pair.stored);
    pair.slider->setValue(*pair.stored);
    pair.edit->setText(QString::number(*pair.stored));
    if (!ApplySlider(slider_I, *pair.stored)) {
        ShowCommunicationError(false);
    }
    mBusy = false;
}

void CMainDialog::CommitBrightnessEdit() {
    SettleDisplay();
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!display) {
        return;
    }
    const SVCPResult range = display->GetBrightness();
    VRX_ASSERT(range.valid);
    if (!range.valid) {
        return;
    }
    bool number = false;
    const int read = mBrightnessPair.edit->text().toInt(&number);
    const int32_t value = std::clamp(number ? read : 0, range.minimum, range.maximum);
    if (value != (number ? read : 0)) {
        mBrightnessPair.edit->setText(QString::number(value));
    }
    mBrightnessPair.slider->setValue(value);
    if (!display->SetBrightness(value)) {
        ShowCommunicationError(false);
    }
    if (ConfirmDarkSettings(eBrightnessSlider, value)) {
        mBrightness = value;
        UpdateSaveRevert();
        return;
    }
    mBrightnessPair.slider->setValue(mBrightness);
    mBrightnessPair.edit->setText(QString::number(mBrightness));
    if (!display->SetBrightness(mBrightness)) {
        ShowCommunicationError(false);
    }
}

// Unlike brightness: bad text reads as the display's value, the edit is rewritten when the
// value equals the display's, and the bottom buttons are re-evaluated whatever the outcome.
void CMainDialog::CommitContrastEdit() {
    SettleDisplay();
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!display) {
        return;
    }
    const SVCPResult range = display->GetContrast();
    VRX_ASSERT(range.valid);
    if (!range.valid) {
        return;
    }
    bool number = false;
    int read = mContrastPair.edit->text().toInt(&number);
    if (!number) {
        read = range.value;
    }
    const int32_t value = std::clamp(read, range.minimum, range.maximum);
    if (value != read || read == range.value) {
        mContrastPair.edit->setText(QString::number(value));
    }
    mContrastPair.slider->setValue(value);
    if (!display->SetContrast(value)) {
        ShowCommunicationError(false);
    }
    if (ConfirmDarkSettings(eContrastSlider, value)) {
        mContrast = value;
        UpdateSaveRevert();
    } else {
        mContrastPair.slider->setValue(mContrast);
        mContrastPair.edit->setText(QString::number(mContrast));
        if (!display->SetContrast(mContrast)) {
            ShowCommunicationError(false);
        }
    }
    UpdateSaveRevert();
}

bool CMainDialog::ConfirmDarkSettings(ESlider slider_I, int32_t value_I) {
    std::shared_ptr<UiDisplayDelegate> display = Display();
    const int32_t brightness = slider_I == eBrightnessSlider ? value_I : mBrightness;
    const int32_t contrast = slider_I == eContrastSlider ? value_I : mContrast;
    return !display || !display->IsTooDark(brightness, contrast) || ConfirmTooDark(this);
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
    SettleDisplay();
    if (!Display()->SetColorSetting(mColorSettingCombo.Selected())) {
        ShowCommunicationError(false);
    }
    UpdateControls();
}

void CMainDialog::OnTemperatureChanged() {
    SettleDisplay();
    if (!Display()->SetColorTemperature(mTemperatureCombo.Selected())) {
        ShowCommunicationError(false);
    }
    UpdateControls();
}

void CMainDialog::OnSpaceChanged() {
    SettleDisplay();
    std::shared_ptr<UiDisplayDelegate> display = Display();
    if (!display->SetColorSpace(mSpaceCombo.Selected())) {
        ShowCommunicationError(false);
    }
    if (mSpaceCombo.Has(eColorSpace_Unused) && !display->IsColorManaged()) {
        mSpaceCombo.Remove(eColorSpace_Unused);
    }
    UpdateControls();
}

void CMainDialog::OnGammaChanged() {
    SettleDisplay();
    if (!Display()->SetGamma(mGammaCombo.Selected())) {
        ShowCommunicationError(false);
    }
    UpdateSaveRevert();
}

void CMainDialog::OnSet() {
    SettleDisplay();
    if (mSecondary->ColorDialogOpen()) {
        VRX_ASSERT_NOT_REACHED("How???");
        return;
    }
    if (mSecondary->RunColorDialog(QApplication::activeWindow())) {
        if (std::shared_ptr<UiDisplayDelegate> display = Display()) {
            SetRgbLabel(*display);
        }
    }
}

void CMainDialog::OnSave() {
    SettleDisplay();
    if (!Display()->SaveSettings()) {
        ShowCommunicationError(false);
    }
    UpdateSaveRevert();
}

void CMainDialog::OnRevert() {
    SettleDisplay();
    const bool reverted = Display()->RevertSettings();
    UpdateControls();
    if (mSecondary->AdvancedExists()) {
        mSecondary->RefreshAdvanced();
    }
    UpdateSaveRevert();
    if (!reverted) {
        ShowCommunicationError(false);
    }
}

void CMainDialog::OnAdvanced() {
    SettleDisplay();
    mSecondary->OpenAdvanced(QApplication::activeWindow());
}

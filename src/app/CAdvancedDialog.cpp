#include "app/CAdvancedDialog.h"

#include "app/Mnemonics.h"

#include "app/DialogText.h"
#include "app/IDialogOwner.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/Trace.h"
#include "model/UiDisplayDelegate.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <span>

#ifndef PANELTUNE_VERSION_TEXT
#define PANELTUNE_VERSION_TEXT "0.0.0"
#endif

namespace {

constexpr int kMargin = 10;
constexpr int kRowGap = 10;
constexpr int kColumnGap = 10;
constexpr int kBottomMargin = 20;
constexpr int kMinimumControlWidth = 220;
// How far the dialog stands from the main dialog's side.
constexpr int kSideGap = 20;

constexpr uint32_t kTitleId = 2200;
constexpr uint32_t kOnId = 2214;
constexpr uint32_t kOffId = 2215;
constexpr uint32_t kStartId = 2213;
constexpr uint32_t kFactoryResetId = 2212;
constexpr uint32_t kOkId = 2090;
constexpr uint32_t kCancelId = 2091;

// The label's string id of each row, in row order.
constexpr std::array<uint32_t, CAdvancedDialog::eRow_Count> kRowLabelIds{
    2201, 2205, 2220, 2211, 2210, 2207, 2208, 2206, 2217, 2216, 2209, 2221};
constexpr std::array<const char*, CAdvancedDialog::eRow_Count> kRowLabelNames{
    "aspectRatioLabel", "sharpnessLabel",     "powerLedLabel",     "firmwareLabel",
    "versionLabel",     "uniformityLabel",    "energySmartLabel",  "dynamicContrastLabel",
    "fanSpeedLabel",    "autoPowerDownLabel", "conditioningLabel", "batteryModeLabel"};

struct SComboRow {
    int32_t value;
    uint32_t stringId;
};

constexpr SComboRow kBatteryRows[] = {{eBatteryMode_Mobile, 2222}, {eBatteryMode_Desktop, 2223}};
constexpr SComboRow kLedRows[] = {{ledBrightness_Off, 2912},
                                  {ledBrightness_Low, 2913},
                                  {ledBrightness_Medium, 2914},
                                  {ledBrightness_High, 2915}};
constexpr SComboRow kUniformityRows[] = {{0, 2215}, {1, 2214}};
constexpr SComboRow kFanRows[] = {{eFanSpeed_LowSpeed, 2219}, {eFanSpeed_Auto, 2218}};

constexpr uint32_t kAspectFullId = 2202;
constexpr uint32_t kAspectAspectId = 2203;
constexpr uint32_t kAspectOneToOneId = 2204;

// The hot keys that step the sharpness slider.
struct SHotKey {
    Qt::Key key;
    ESharpnessKey step;
};
constexpr SHotKey kHotKeys[] = {
    {Qt::Key_Up, eSharpnessKey_Up},         {Qt::Key_Down, eSharpnessKey_Down},
    {Qt::Key_Home, eSharpnessKey_Home},     {Qt::Key_End, eSharpnessKey_End},
    {Qt::Key_PageUp, eSharpnessKey_PageUp}, {Qt::Key_PageDown, eSharpnessKey_PageDown},
};

void SetState(QWidget* widget_I, SControlState state_I) {
    if (widget_I == nullptr) {
        return;
    }
    widget_I->setVisible(state_I.visible);
    widget_I->setEnabled(state_I.enabled);
}

} // namespace

CAdvancedDialog::CAdvancedDialog(const SDisplayConfigOptions& options_I,
                                 CDisplayConfigInterface* config_I, IDialogOwner* owner_I,
                                 std::unique_ptr<ITickTimer> timer_I, QWidget* parent_I)
    : QDialog(parent_I), mOptions(options_I), mDisplayConfigIF(config_I), mMainDlg(owner_I),
      mTimer(std::move(timer_I)) {
    setObjectName(QStringLiteral("advancedDialog"));
    setModal(false);
    mTimer->SetCallback([this] { OnSharpnessTick(); });
    BuildWidgets();
}

CAdvancedDialog::~CAdvancedDialog() {
    qApp->removeEventFilter(this);
}

std::shared_ptr<UiDisplayDelegate> CAdvancedDialog::Display() const {
    if (mMainDlg != nullptr) {
        mMainDlg->SettleDisplay();
    }
    return mDisplayConfigIF != nullptr ? mDisplayConfigIF->CurrentDisplay() : nullptr;
}

QString CAdvancedDialog::Text(uint32_t stringId_I) const {
    return DialogText(mOptions, stringId_I);
}

QWidget* CAdvancedDialog::MakeCombo(CComboValues<int32_t>& combo_I, const char* name_I,
                                    void (CAdvancedDialog::*changed_I)(int32_t)) {
    auto* combo = new QComboBox(this);
    combo->setObjectName(name_I);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    combo_I.Bind(combo);
    // Only the user's choice counts; filling and selecting are quiet.
    connect(combo, &QComboBox::activated, this, [this, &combo_I, changed_I](int index_I) {
        (this->*changed_I)(combo_I.ValueAt(index_I));
    });
    return combo;
}

QWidget* CAdvancedDialog::MakeOnOff(SOnOff& pair_I, const char* name_I,
                                    bool (UiDisplayDelegate::*setter_I)(bool)) {
    auto* box = new QWidget(this);
    box->setObjectName(name_I);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    pair_I.off = new QRadioButton(box);
    pair_I.on = new QRadioButton(box);
    pair_I.off->setObjectName("off");
    pair_I.on->setObjectName("on");
    // Both may be unchecked, so the pair is kept by hand.
    pair_I.off->setAutoExclusive(false);
    pair_I.on->setAutoExclusive(false);
    layout->addWidget(pair_I.off);
    layout->addWidget(pair_I.on);
    layout->addStretch();
    box->setFocusProxy(pair_I.off);
    connect(pair_I.off, &QRadioButton::clicked, this,
            [this, &pair_I, setter_I] { OnOnOff(setter_I, pair_I, false); });
    connect(pair_I.on, &QRadioButton::clicked, this,
            [this, &pair_I, setter_I] { OnOnOff(setter_I, pair_I, true); });
    return box;
}

void CAdvancedDialog::BuildWidgets() {
    for (size_t row = 0; row < mRows.size(); ++row) {
        mRows[row].label = new QLabel(this);
        mRows[row].label->setObjectName(kRowLabelNames[row]);
    }
    mRows[eRow_AspectRatio].control =
        MakeCombo(mAspectRatio, "aspectRatio", &CAdvancedDialog::OnAspectRatio);
    mSharpnessSlider = new QSlider(Qt::Horizontal, this);
    mSharpnessSlider->setObjectName("sharpness");
    mSharpnessSlider->setTickPosition(QSlider::TicksBelow);
    mRows[eRow_Sharpness].control = mSharpnessSlider;
    connect(mSharpnessSlider, &QSlider::actionTriggered, this,
            [this](int action_I) { OnSharpnessAction(action_I); });
    connect(mSharpnessSlider, &QSlider::sliderReleased, this, [this] { OnSharpnessReleased(); });
    mRows[eRow_PowerLed].control =
        MakeCombo(mLedBrightness, "powerLed", &CAdvancedDialog::OnPowerLed);
    mFirmwareText = new QLabel(this);
    mFirmwareText->setObjectName("firmwareVersion");
    mRows[eRow_Firmware].control = mFirmwareText;
    mVersionText = new QLabel(this);
    mVersionText->setObjectName("programVersion");
    mRows[eRow_Version].control = mVersionText;
    mRows[eRow_Uniformity].control =
        MakeCombo(mUniformity, "uniformity", &CAdvancedDialog::OnUniformity);
    mRows[eRow_EnergySmart].control =
        MakeOnOff(mEnergySmart, "energySmart", &UiDisplayDelegate::SetEnergySmart);
    mRows[eRow_DynamicContrast].control =
        MakeOnOff(mDynamicContrast, "dynamicContrast", &UiDisplayDelegate::SetDynamicContrast);
    mRows[eRow_FanSpeed].control = MakeCombo(mFanSpeed, "fanSpeed", &CAdvancedDialog::OnFanSpeed);
    mRows[eRow_AutoPowerDown].control =
        MakeOnOff(mAutoPowerDown, "autoPowerDown", &UiDisplayDelegate::SetAutoPowerDown);
    for (SRow& row : mRows) {
        if (qobject_cast<QLabel*>(row.control) == nullptr) {
            row.label->setBuddy(row.control);
        }
    }
    mStartButton = new QPushButton(this);
    mStartButton->setObjectName("start");
    mStartButton->setAutoDefault(false);
    mRows[eRow_Conditioning].control = mStartButton;
    connect(mStartButton, &QPushButton::clicked, this, [this] { OnStartConditioning(); });
    mRows[eRow_BatteryMode].control =
        MakeCombo(mBatteryMode, "batteryMode", &CAdvancedDialog::OnBatteryMode);

    mFactoryResetButton = new QPushButton(this);
    mFactoryResetButton->setObjectName("factoryReset");
    mFactoryResetButton->setAutoDefault(false);
    connect(mFactoryResetButton, &QPushButton::clicked, this, [this] { OnFactoryReset(); });
    mOkButton = new QPushButton(this);
    mOkButton->setObjectName("ok");
    connect(mOkButton, &QPushButton::clicked, this, [this] { OnOk(); });
    mCancelButton = new QPushButton(this);
    mCancelButton->setObjectName("cancel");
    mCancelButton->setAutoDefault(false);
    connect(mCancelButton, &QPushButton::clicked, this, [this] { reject(); });
}

void CAdvancedDialog::CreateWindow() {
    mWindowExists = true;
    setWindowTitle(Text(kTitleId));
    // Rows that show a text only take no mnemonic; Off and On repeat in every pair and take none.
    QStringList texts;
    for (size_t row = 0; row < mRows.size(); ++row) {
        texts << (mRows[row].label->buddy() ? Text(kRowLabelIds[row]) : QString());
    }
    texts << Text(kStartId) << Text(kFactoryResetId) << Text(kOkId) << Text(kCancelId);
    texts = WithMnemonics(texts);
    for (size_t row = 0; row < mRows.size(); ++row) {
        mRows[row].label->setText(mRows[row].label->buddy() ? texts[static_cast<qsizetype>(row)]
                                                            : Text(kRowLabelIds[row]));
    }
    for (SOnOff* pair : {&mEnergySmart, &mDynamicContrast, &mAutoPowerDown}) {
        pair->off->setText(Text(kOffId));
        pair->on->setText(Text(kOnId));
    }
    const auto buttons = static_cast<qsizetype>(mRows.size());
    mStartButton->setText(texts[buttons]);
    mFactoryResetButton->setText(texts[buttons + 1]);
    mOkButton->setText(texts[buttons + 2]);
    mCancelButton->setText(texts[buttons + 3]);
    Refresh(false);
    // Like system-wide hot keys, the keys reach the slider from every window of the program,
    // also while this one is hidden.
    qApp->installEventFilter(this);
    mSharpnessMaximum = mSharpnessSlider->maximum();
    mSharpnessMinimum = mSharpnessSlider->minimum();
}

void CAdvancedDialog::FillCombos(UiDisplayDelegate& display_I) {
    const auto fill = [this](CComboValues<int32_t>& combo_I, std::span<const SComboRow> rows_I) {
        if (!combo_I.Empty()) {
            return;
        }
        for (const SComboRow& row : rows_I) {
            combo_I.Add(row.value, Text(row.stringId));
        }
    };
    if (mAspectRatio.Empty()) {
        mAspectRatio.Add(eAspectRatio_Full, Text(kAspectFullId));
        if (!display_I.IsFirFamily() && !display_I.IsHazelOrFirTwo()) {
            mAspectRatio.Add(eAspectRatio_Aspect, Text(kAspectAspectId));
        }
        // Where 1:1 has no value of its own it shares Aspect's, and selecting 1 then picks it.
        const bool ownValue = display_I.IsBirchFamily() || display_I.IsElmFamily() ||
                              display_I.IsCedarFamily() || display_I.IsFirFamily();
        mAspectRatio.Add(ownValue ? eAspectRatio_OneToOne : eAspectRatio_Aspect,
                         Text(kAspectOneToOneId));
    }
    fill(mBatteryMode, kBatteryRows);
    fill(mLedBrightness, kLedRows);
    fill(mUniformity, kUniformityRows);
    fill(mFanSpeed, kFanRows);
}

void CAdvancedDialog::ApplyState(ERow row_I, SControlState state_I) {
    SRow& row = mRows[row_I];
    row.state = state_I;
    SetState(row.label, state_I);
    if (mResetInProgress) {
        state_I.enabled = false;
    }
    SetState(row.control, state_I);
}

void CAdvancedDialog::Refresh(bool snapshot_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (mWindowExists && display != nullptr) {
        UiDisplayDelegate& d = *display;
        const FileVersion& firmware = d.GetFWVersion();
        mFirmwareText->setText(firmware.IsValid() ? QString::fromStdString(firmware.AsString(2))
                                                  : QString());
        mVersionText->setText(QStringLiteral(PANELTUNE_VERSION_TEXT));
        FillCombos(d);

        ApplyState(eRow_AspectRatio, d.AspectRatioStatus(snapshot_I));
        ApplyState(eRow_BatteryMode, d.BatteryModeStatus(snapshot_I));
        ApplyState(eRow_PowerLed, d.PowerLedStatus(snapshot_I));
        ApplyState(eRow_Sharpness, d.SharpnessStatus(snapshot_I));
        ApplyState(eRow_Uniformity, d.UniformityStatus(snapshot_I));
        ApplyState(eRow_FanSpeed, d.FanSpeedStatus());
        ApplyState(eRow_EnergySmart, d.EnergySmartStatus(snapshot_I));
        ApplyState(eRow_AutoPowerDown, d.AutoPowerDownStatus());
        ApplyState(eRow_DynamicContrast, d.DynamicContrastStatus(snapshot_I));

        const auto select = [](CComboValues<int32_t>& combo_I, const SRow& row_I, auto res) {
            if (!row_I.state.visible) {
                return;
            }
            VRX_ASSERT(res.valid);
            if (res.valid) {
                combo_I.Select(static_cast<int32_t>(res.value));
            }
        };
        select(mAspectRatio, mRows[eRow_AspectRatio], d.GetAspectRatio());
        select(mBatteryMode, mRows[eRow_BatteryMode], d.GetBatteryMode());
        select(mLedBrightness, mRows[eRow_PowerLed], d.GetPowerLedBrightness());
        select(mUniformity, mRows[eRow_Uniformity], d.GetUniformity());
        if (mRows[eRow_FanSpeed].state.visible) {
            const SUserValue<EFanSpeed> res = d.GetFanSpeed();
            VRX_ASSERT(res.valid);
            if (res.value == eFanSpeed_LowSpeed || res.value == eFanSpeed_Auto) {
                mFanSpeed.Select(res.value);
            } else {
                VRX_ASSERT_NOT_REACHED("Oops - bad combo value");
            }
        }
        if (mRows[eRow_Sharpness].state == SControlState::Usable()) {
            const SVCPResult res = d.GetSharpness();
            VRX_ASSERT(res.valid);
            if (res.valid) {
                const SVCPResult& sharpness = res;
                const QSignalBlocker blocker(mSharpnessSlider);
                mSharpness = sharpness.value;
                mSharpnessSlider->setRange(sharpness.minimum, sharpness.maximum);
                mSharpnessSlider->setTickInterval(
                    1 + static_cast<int>(static_cast<double>(sharpness.maximum) / 19.0));
                mSharpnessSlider->setSingleStep(1);
                mSharpnessSlider->setPageStep(1);
                mSharpnessSlider->setValue(mSharpness);
                mSharpnessMaximum = mSharpnessSlider->maximum();
                mSharpnessMinimum = mSharpnessSlider->minimum();
            }
        }
        const auto check = [this](ERow row_I, SOnOff& pair_I, SUserValue<bool> res) {
            const SControlState state = mRows[row_I].state;
            if (!state.visible) {
                return;
            }
            pair_I.off->setChecked(false);
            pair_I.on->setChecked(false);
            if (state.enabled) {
                VRX_ASSERT(res.valid);
                (res.value ? pair_I.on : pair_I.off)->setChecked(true);
            }
        };
        check(eRow_EnergySmart, mEnergySmart, d.GetEnergySmart());
        check(eRow_AutoPowerDown, mAutoPowerDown, d.GetAutoPowerDown());
        check(eRow_DynamicContrast, mDynamicContrast, d.GetDynamicContrast());

        ApplyState(eRow_Conditioning, d.ConditioningStatus());
        ApplyState(eRow_Firmware, d.FirmwareVersionStatus());
        ApplyState(eRow_Version, SControlState::Usable());
        mFactoryResetButton->setVisible(true);
        mFactoryResetButton->setEnabled(!mResetInProgress);
        mOkButton->setEnabled(!mResetInProgress);
        mCancelButton->setEnabled(!mResetInProgress);
    }
    if (mMainDlg != nullptr) {
        Place(mMainDlg->MainDialogRect());
    }
}

void CAdvancedDialog::Place(const QRect& mainDialog_I) {
    int x = mainDialog_I.x() + mainDialog_I.width() + kSideGap;
    const int bottom = mainDialog_I.y() + mainDialog_I.height();
    int width = this->width();
    int height = this->height();
    if (mWindowExists) {
        int labelWidth = 0;
        int controlWidth = kMinimumControlWidth;
        for (const SRow& row : mRows) {
            labelWidth = std::max(labelWidth, row.label->sizeHint().width());
            controlWidth = std::max(controlWidth, row.control->sizeHint().width());
        }
        const int controlX = kMargin + labelWidth + kColumnGap;
        int y = kMargin;
        for (size_t index = 0; index < mRows.size(); ++index) {
            const SRow& row = mRows[index];
            const bool takesPart =
                row.state.visible || index == eRow_Firmware || index == eRow_Version;
            if (!takesPart) {
                continue;
            }
            const int rowHeight =
                std::max(row.label->sizeHint().height(), row.control->sizeHint().height());
            row.label->setGeometry(kMargin, y, labelWidth, rowHeight);
            row.control->setGeometry(controlX, y, controlWidth, rowHeight);
            y += rowHeight + kRowGap;
        }
        width = controlX + controlWidth + kMargin;
        int buttonsBottom = y;
        int buttonX = width - kMargin;
        for (QPushButton* button : {mCancelButton, mOkButton, mFactoryResetButton}) {
            const QSize size = button->sizeHint();
            buttonX -= size.width();
            button->setGeometry(buttonX, y, size.width(), size.height());
            buttonX -= kColumnGap;
            buttonsBottom = std::max(buttonsBottom, y + size.height());
        }
        height = buttonsBottom + kBottomMargin;
        setFixedSize(width, height);
    }
    if (mMainDlg != nullptr &&
        x >= mMainDlg->VirtualScreen().x() + mMainDlg->VirtualScreen().width()) {
        x = mainDialog_I.x() - kSideGap - width;
    }
    // Client areas, as the main dialog's rectangle is one: the lower edges line up.
    setGeometry(x, bottom - height, width, height);
}

void CAdvancedDialog::ShowAdvanced(bool show_I) {
    if (show_I) {
        if (!mWindowExists) {
            CreateWindow();
        }
        Refresh(true);
        show();
        raise();
        activateWindow();
        return;
    }
    hide();
    ClearCombos();
}

void CAdvancedDialog::Close() {
    if (!isVisible()) {
        return;
    }
    hide();
    ClearCombos();
    qApp->removeEventFilter(this);
    mWindowExists = false;
}

void CAdvancedDialog::ClearCombos() {
    for (CComboValues<int32_t>* combo :
         {&mAspectRatio, &mBatteryMode, &mUniformity, &mFanSpeed, &mLedBrightness}) {
        combo->Clear();
    }
}

void CAdvancedDialog::showEvent(QShowEvent* event_I) {
    QDialog::showEvent(event_I);
    if (!event_I->spontaneous()) {
        Trace("OnShowWindow - timer started...\n");
        mTimer->Start(kSharpnessTickMs);
    }
}

void CAdvancedDialog::hideEvent(QHideEvent* event_I) {
    QDialog::hideEvent(event_I);
    if (!event_I->spontaneous()) {
        Trace("OnShowWindow - timer stopped\n");
        mTimer->Stop();
    }
}

bool CAdvancedDialog::Check(bool result_I) {
    if (!result_I && mMainDlg != nullptr) {
        mMainDlg->ShowCommunicationError(true);
    }
    return result_I;
}

void CAdvancedDialog::OnSharpnessAction(int action_I) {
    switch (action_I) {
    case QAbstractSlider::SliderToMinimum:
    case QAbstractSlider::SliderToMaximum:
        mSharpnessSlider->setSliderPosition(mSharpness);
        return;
    case QAbstractSlider::SliderNoAction:
        return;
    default:
        break;
    }
    const int position = mSharpnessSlider->sliderPosition();
    if (position != mSharpness) {
        mSharpness = position;
        mSharpnessDirty = true;
    }
}

void CAdvancedDialog::OnSharpnessReleased() {
    const int position = mSharpnessSlider->sliderPosition();
    if (position == mSharpness) {
        return;
    }
    mSharpness = position;
    mSharpnessDirty = true;
    if (mMainDlg != nullptr) {
        mMainDlg->UpdateSaveRevert();
    }
}

void CAdvancedDialog::OnSharpnessKey(ESharpnessKey key_I) {
    if (!mWindowExists) {
        return;
    }
    const std::optional<int32_t> position =
        StepSharpness(key_I, mSharpnessSlider->value(), mSharpnessMinimum, mSharpnessMaximum);
    if (!position) {
        return;
    }
    const QSignalBlocker blocker(mSharpnessSlider);
    mSharpnessSlider->setValue(*position);
    mSharpnessDirty = true;
    mSharpness = *position;
}

bool CAdvancedDialog::eventFilter(QObject* watched_I, QEvent* event_I) {
    if (event_I->type() != QEvent::KeyPress || !mWindowExists ||
        QApplication::activeModalWidget() != nullptr) {
        return QDialog::eventFilter(watched_I, event_I);
    }
    const auto* key = static_cast<QKeyEvent*>(event_I);
    if (key->modifiers() != Qt::NoModifier && key->modifiers() != Qt::KeypadModifier) {
        return QDialog::eventFilter(watched_I, event_I);
    }
    for (const SHotKey& hotKey : kHotKeys) {
        if (key->key() == hotKey.key) {
            OnSharpnessKey(hotKey.step);
            return true;
        }
    }
    return QDialog::eventFilter(watched_I, event_I);
}

void CAdvancedDialog::OnSharpnessTick() {
    if (!mSharpnessDirty) {
        return;
    }
    mSharpnessDirty = false;
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    Check(display != nullptr && display->SetSharpness(mSharpnessSlider->value()));
}

void CAdvancedDialog::OnAspectRatio(int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (Check(display != nullptr && display->SetAspectRatio(static_cast<EAspectRatio>(value_I)))) {
        Refresh(false);
        mMainDlg->UpdateSaveRevert();
    }
}

void CAdvancedDialog::OnBatteryMode(int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (Check(display != nullptr && display->SetBatteryMode(static_cast<EBatteryMode>(value_I)))) {
        Refresh(false);
        mMainDlg->UpdateSaveRevert();
    }
}

void CAdvancedDialog::OnPowerLed(int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (Check(display != nullptr &&
              display->SetPowerLedBrightness(static_cast<ledBrightnessCode>(value_I)))) {
        Refresh(false);
        mMainDlg->UpdateSaveRevert();
    }
}

void CAdvancedDialog::OnFanSpeed(int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    const EFanSpeed speed = value_I != 0 ? eFanSpeed_Auto : eFanSpeed_LowSpeed;
    if (Check(display != nullptr && display->SetFanSpeed(speed))) {
        Refresh(false);
        mMainDlg->UpdateControls();
    }
}

void CAdvancedDialog::OnUniformity(int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (Check(display != nullptr && display->SetUniformity(value_I != 0))) {
        Refresh(false);
        mMainDlg->UpdateControls();
    }
}

void CAdvancedDialog::OnOnOff(bool (UiDisplayDelegate::*setter_I)(bool), SOnOff& pair_I,
                              bool on_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (Check(display != nullptr && ((*display).*setter_I)(on_I))) {
        (on_I ? pair_I.off : pair_I.on)->setChecked(false);
        Refresh(false);
        mMainDlg->UpdateSaveRevert();
    }
}

void CAdvancedDialog::OnOk() {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        VRX_ASSERT_NOT_REACHED("NULL display ptr");
    } else {
        display->ForgetConditioning();
    }
    ShowAdvanced(false);
}

void CAdvancedDialog::reject() {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        VRX_ASSERT_NOT_REACHED("NULL display ptr");
    } else {
        // The rows whose value the showing kept, in the order they go back, each only while
        // it is usable.
        struct SRestore {
            SControlState (UiDisplayDelegate::*status)(bool);
            bool (UiDisplayDelegate::*restore)(bool);
        };
        constexpr SRestore kRestores[] = {
            {&UiDisplayDelegate::AspectRatioStatus, &UiDisplayDelegate::RestoreAspectRatio},
            {&UiDisplayDelegate::BatteryModeStatus, &UiDisplayDelegate::RestoreBatteryMode},
            {&UiDisplayDelegate::SharpnessStatus, &UiDisplayDelegate::RestoreSharpness},
            {&UiDisplayDelegate::UniformityStatus, &UiDisplayDelegate::RestoreUniformity},
            {&UiDisplayDelegate::DynamicContrastStatus, &UiDisplayDelegate::RestoreDynamicContrast},
            {&UiDisplayDelegate::EnergySmartStatus, &UiDisplayDelegate::RestoreEnergySmart},
            {&UiDisplayDelegate::PowerLedStatus, &UiDisplayDelegate::RestorePowerLedBrightness},
        };
        for (const SRestore& row : kRestores) {
            if (((*display).*row.status)(false).enabled &&
                !Check(((*display).*row.restore)(true))) {
                return;
            }
        }
        display->ForgetConditioning();
    }
    ShowAdvanced(false);
}

void CAdvancedDialog::OnFactoryReset() {
    mResetInProgress = true;
    Refresh(false);
    mMainDlg->DoFactoryReset(false);
    mResetInProgress = false;
    Refresh(false);
}

void CAdvancedDialog::OnStartConditioning() {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    display->RevertSettings();
    display->ForgetConditioning();
    if (Check(display->StartConditioning())) {
        mMainDlg->CloseAllDialogs();
    }
}

#include "app/CColorSettingsDialog.h"

#include "app/Mnemonics.h"

#include "app/DialogText.h"
#include "app/IDialogOwner.h"
#include "discovery/CDisplayConfigInterface.h"
#include "foundation/Trace.h"
#include "model/CEdidBuilder.h"
#include "model/UiDisplayDelegate.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

namespace {

constexpr int kMargin = 10;
constexpr int kRowGap = 8;
constexpr int kColumnGap = 10;
constexpr int kButtonGap = 20;
constexpr int kBottomMargin = 20;
constexpr int kSliderWidth = 220;
constexpr int kEditWidth = 64;
constexpr int kSideGap = 20;

constexpr uint32_t kTitleId = 2100;
constexpr uint32_t kAttributeId = 2101;
constexpr uint32_t kCustomColorId = 2106;
constexpr uint32_t kHexId = 2110;
constexpr uint32_t kOkId = 2090;
constexpr uint32_t kCancelId = 2091;

constexpr int kRgbEditLength = 3;
constexpr int kCmykEditLength = 5;
constexpr int kHexEditLength = 6;

struct SAttributeRow {
    EColorMod slot;
    uint32_t stringId;
};
constexpr SAttributeRow kAttributeRows[] = {{eColorMod_Hue, 2102},
                                            {eColorMod_Saturation, 2103},
                                            {eColorMod_Gain, 2104},
                                            {eColorMod_Offset, 2105}};

// Red, green and blue have their localised labels; the CMYK letters are the same everywhere.
constexpr uint32_t kRgbLabelIds[] = {2107, 2108, 2109};
constexpr const char* kCmykLabels[] = {"C:", "M:", "Y:", "K:"};
constexpr const char* kSliderNames[] = {"red",     "green",  "blue", "cyan",
                                        "magenta", "yellow", "black"};

void SetState(QWidget* widget_I, SControlState state_I) {
    widget_I->setVisible(state_I.visible);
    widget_I->setEnabled(state_I.enabled);
}

} // namespace

CColorSettingsDialog::CColorSettingsDialog(const SDisplayConfigOptions& options_I,
                                           CDisplayConfigInterface* config_I, IDialogOwner* owner_I,
                                           QWidget* parent_I)
    : QDialog(parent_I), mOptions(options_I), mDisplayConfigIF(config_I), mMainDlg(owner_I) {
    setObjectName(QStringLiteral("colorDialog"));
    setModal(true);
    BuildWidgets();
}

CColorSettingsDialog::~CColorSettingsDialog() = default;

std::shared_ptr<UiDisplayDelegate> CColorSettingsDialog::Display() const {
    if (mMainDlg != nullptr) {
        mMainDlg->SettleDisplay();
    }
    return mDisplayConfigIF != nullptr ? mDisplayConfigIF->CurrentDisplay() : nullptr;
}

QString CColorSettingsDialog::Text(uint32_t stringId_I) const {
    return DialogText(mOptions, stringId_I);
}

void CColorSettingsDialog::BuildWidgets() {
    mAttributeLabel = new QLabel(this);
    auto* attribute = new QComboBox(this);
    attribute->setObjectName("attribute");
    mAttribute.Bind(attribute);
    connect(attribute, &QComboBox::activated, this,
            [this](int index_I) { OnAttribute(mAttribute.ValueAt(index_I)); });
    mCustomLabel = new QLabel(this);
    mCustomLabel->setObjectName("customColorLabel");
    for (int i = 0; i < eColorSlider_Count; ++i) {
        const auto slider = static_cast<EColorSlider>(i);
        SComponentRow& row = mRows[static_cast<size_t>(i)];
        row.label = new QLabel(this);
        row.slider = new QSlider(Qt::Horizontal, this);
        row.slider->setObjectName(QString(kSliderNames[i]) + "Slider");
        row.edit = new QLineEdit(this);
        row.edit->setObjectName(QString(kSliderNames[i]) + "Edit");
        row.edit->installEventFilter(this);
        row.label->setBuddy(row.edit);
        connect(row.slider, &QSlider::actionTriggered, this,
                [this, slider](int action_I) { OnSliderAction(slider, action_I); });
        connect(row.slider, &QSlider::sliderReleased, this, [this, slider] {
            OnSliderCommit(slider, mRows[static_cast<size_t>(slider)].slider->sliderPosition());
        });
        connect(row.edit, &QLineEdit::returnPressed, this, [this, slider] {
            CommitEdit(slider);
            mRows[static_cast<size_t>(slider)].edit->selectAll();
        });
    }
    mHexLabel = new QLabel(this);
    mHexEdit = new QLineEdit(this);
    mHexEdit->setObjectName("hexEdit");
    mHexLabel->setBuddy(mHexEdit);
    mHexEdit->installEventFilter(this);
    connect(mHexEdit, &QLineEdit::returnPressed, this, [this] {
        CommitEdit(kHexSource);
        mHexEdit->selectAll();
    });
    // The main dialog's factory reset key, which its own registration can't hear while this
    // dialog runs modally.
    auto* factoryReset = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+R")), this);
    factoryReset->setContext(Qt::ApplicationShortcut);
    connect(factoryReset, &QShortcut::activated, this, [this] {
        if (mMainDlg != nullptr) {
            mMainDlg->DoFactoryReset(true);
        }
    });
    mOkButton = new QPushButton(this);
    mOkButton->setObjectName("ok");
    mOkButton->setAutoDefault(false);
    connect(mOkButton, &QPushButton::clicked, this, [this] { Finish(QDialog::Accepted); });
    mCancelButton = new QPushButton(this);
    mCancelButton->setObjectName("cancel");
    mCancelButton->setAutoDefault(false);
    connect(mCancelButton, &QPushButton::clicked, this, [this] { reject(); });
}

int CColorSettingsDialog::Run() {
    Open();
    return exec();
}

void CColorSettingsDialog::Open() {
    mWindowExists = true;
    mBusy = false;
    setWindowTitle(Text(kTitleId));
    mAttributeLabel->setText(Text(kAttributeId));
    mCustomLabel->setText(Text(kCustomColorId));
    QStringList texts;
    for (const uint32_t id : kRgbLabelIds) {
        texts << Text(id);
    }
    for (const char* label : kCmykLabels) {
        texts << QString::fromLatin1(label);
    }
    texts << Text(kHexId) << Text(kOkId) << Text(kCancelId);
    texts = WithMnemonics(texts);
    const qsizetype rows = std::size(kRgbLabelIds) + std::size(kCmykLabels);
    for (qsizetype i = 0; i < rows; ++i) {
        mRows[static_cast<size_t>(i)].label->setText(texts[i]);
    }
    mHexLabel->setText(texts[rows]);
    mOkButton->setText(texts[rows + 1]);
    mCancelButton->setText(texts[rows + 2]);
    Refresh();
    if (mMainDlg != nullptr) {
        Place(mMainDlg->MainDialogRect());
    }
}

void CColorSettingsDialog::Refresh() {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    UiDisplayDelegate& d = *display;
    if (mAttribute.Empty()) {
        for (const SAttributeRow& row : kAttributeRows) {
            mAttribute.Add(row.slot, Text(row.stringId));
        }
        const SControlState state = d.CustomAttributeStatus();
        if (state == SControlState::Usable()) {
            for (const SAttributeRow& row : kAttributeRows) {
                d.LoadColorMods(row.slot);
            }
        } else {
            d.LoadColorMods(eColorMod_Gain);
        }
        d.SelectColorMod(eColorMod_Gain);
        SetState(mAttributeLabel, state);
        SetState(mAttribute.Combo(), state);
        mCustomLabel->setVisible(!state.visible);
        mAttribute.Select(d.GetSelectedColorMod());
    }

    const SCustomColor working = d.GetWorkingColor();
    const int32_t maximum = d.ColorMaximum();
    for (int i = 0; i < eColorSlider_Count; ++i) {
        const auto slider = static_cast<EColorSlider>(i);
        SComponentRow& row = mRows[static_cast<size_t>(i)];
        row.edit->setMaxLength(IsRgbSlider(slider) ? kRgbEditLength : kCmykEditLength);
        const QSignalBlocker blocker(row.slider);
        row.slider->setRange(0, IsRgbSlider(slider) ? maximum : kCmykSliderMaximum);
        SetComponent(slider, ComponentValue(working, slider));
    }
    mHexEdit->setMaxLength(kHexEditLength);
    WriteHexText(working);

    const SControlState cmykHex = d.CmykHexStatus();
    for (int i = eColorSlider_Cyan; i < eColorSlider_Count; ++i) {
        const SComponentRow& row = mRows[static_cast<size_t>(i)];
        SetState(row.label, cmykHex);
        SetState(row.slider, cmykHex);
        SetState(row.edit, cmykHex);
    }
    SetState(mHexLabel, cmykHex);
    SetState(mHexEdit, cmykHex);
}

void CColorSettingsDialog::SetEditText(EColorSlider slider_I, int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    std::wstring text = IsRgbSlider(slider_I) ? std::to_wstring(value_I) : CmykEditText(value_I);
    if (display != nullptr) {
        text = display->FormatForUser(text);
    }
    mRows[static_cast<size_t>(slider_I)].edit->setText(QString::fromStdWString(text.substr(0, 5)));
}

void CColorSettingsDialog::SetComponent(EColorSlider slider_I, int32_t value_I) {
    QSlider* slider = mRows[static_cast<size_t>(slider_I)].slider;
    const QSignalBlocker blocker(slider);
    slider->setValue(value_I);
    SetEditText(slider_I, value_I);
}

void CColorSettingsDialog::SetFromWorking(EColorSlider slider_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display != nullptr) {
        SetComponent(slider_I, ComponentValue(display->GetWorkingColor(), slider_I));
    }
}

void CColorSettingsDialog::WriteHexText(const SCustomColor& color_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    mHexEdit->setText(QString::fromStdWString(HexText(display->ScaleToUser(color_I.red),
                                                      display->ScaleToUser(color_I.green),
                                                      display->ScaleToUser(color_I.blue))));
}

void CColorSettingsDialog::RefreshLinked(int source_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    const SControlState state = display->CmykHexStatus();
    if (!state.visible) {
        return;
    }
    const bool fromHex = source_I == kHexSource;
    const bool fromCmyk = source_I >= eColorSlider_Cyan && source_I < eColorSlider_Count;
    if (fromCmyk || fromHex) {
        for (int i = eColorSlider_Red; i <= eColorSlider_Blue; ++i) {
            SetFromWorking(static_cast<EColorSlider>(i));
        }
    }
    if (state.enabled || fromHex) {
        for (int i = eColorSlider_Cyan; i < eColorSlider_Count; ++i) {
            SetFromWorking(static_cast<EColorSlider>(i));
        }
    }
    if (fromCmyk || state.enabled) {
        WriteHexText(display->GetWorkingColor());
    }
}

bool CColorSettingsDialog::DarkCheckAccepts(EColorSlider slider_I, int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return true;
    }
    const SCustomColor candidate = ApplyComponent(display->GetWorkingColor(), slider_I, value_I);
    const bool aspenOrAlder =
        display->IsOneOf({TabletId::Aspen, TabletId::AspenTwo}) || display->IsAlderFamily();
    const bool gain = !aspenOrAlder && display->GetSelectedColorMod() == eColorMod_Gain;
    if (!UiDisplayDelegate::IsColorTooDark(candidate, aspenOrAlder, gain)) {
        return true;
    }
    return mMainDlg == nullptr || mMainDlg->ConfirmTooDark(this);
}

void CColorSettingsDialog::CommunicationFailure() {
    if (mMainDlg != nullptr) {
        mMainDlg->ShowCommunicationError(true);
    }
}

void CColorSettingsDialog::OnSliderAction(EColorSlider slider_I, int action_I) {
    QSlider* slider = mRows[static_cast<size_t>(slider_I)].slider;
    switch (action_I) {
    case QAbstractSlider::SliderNoAction:
        return;
    case QAbstractSlider::SliderToMinimum:
    case QAbstractSlider::SliderToMaximum:
        if (const auto display = Display()) {
            slider->setSliderPosition(ComponentValue(display->GetWorkingColor(), slider_I));
        }
        return;
    default:
        break;
    }
    const int position = slider->sliderPosition();
    OnSliderLive(slider_I, position);
    // Steps by key or wheel end at once; a drag ends at the release.
    if (!slider->isSliderDown()) {
        OnSliderCommit(slider_I, position);
    }
}

void CColorSettingsDialog::OnSliderLive(EColorSlider slider_I, int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    SetEditText(slider_I, value_I);
    display->StoreWorkingColor(ApplyComponent(display->GetWorkingColor(), slider_I, value_I));
}

void CColorSettingsDialog::OnSliderCommit(EColorSlider slider_I, int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr || mBusy ||
        value_I == ComponentValue(display->GetAppliedColor(), slider_I)) {
        return;
    }
    mBusy = true;
    if (DarkCheckAccepts(slider_I, value_I)) {
        SetEditText(slider_I, value_I);
        if (!display->ApplyWorkingColor()) {
            CommunicationFailure();
            return;
        }
        RefreshLinked(slider_I);
        mBusy = false;
        return;
    }
    if (!display->RevertToApplied()) {
        CommunicationFailure();
        return;
    }
    SetFromWorking(slider_I);
    mBusy = false;
}

void CColorSettingsDialog::CommitEdit(int source_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    if (source_I == kHexSource) {
        CommitHexEdit();
        return;
    }
    const auto slider = static_cast<EColorSlider>(source_I);
    const std::wstring text = mRows[static_cast<size_t>(slider)].edit->text().toStdWString();
    if (IsRgbSlider(slider)) {
        const int32_t value = display->ScaleToDisplay(ReadEditInteger(text, 0));
        CommitComponentEdit(slider, value, display->ColorMaximum());
        return;
    }
    const double thousandths = ReadEditReal(text, -1.0) * kCmykSliderMaximum;
    if (thousandths < 0.0) {
        SetFromWorking(slider);
        return;
    }
    const double capped = std::min(thousandths, static_cast<double>(kCmykSliderMaximum) + 1.0);
    CommitComponentEdit(slider, static_cast<int32_t>(capped), kCmykSliderMaximum);
}

void CColorSettingsDialog::CommitComponentEdit(EColorSlider slider_I, int32_t value_I,
                                               int32_t maximum_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    const int32_t value = std::clamp(value_I, 0, maximum_I);
    if (value != value_I) {
        SetEditText(slider_I, value);
    }
    {
        QSlider* slider = mRows[static_cast<size_t>(slider_I)].slider;
        const QSignalBlocker blocker(slider);
        slider->setValue(value);
    }
    if (!DarkCheckAccepts(slider_I, value)) {
        if (!display->RevertToApplied()) {
            CommunicationFailure();
            return;
        }
        SetFromWorking(slider_I);
        return;
    }
    display->StoreWorkingColor(ApplyComponent(display->GetWorkingColor(), slider_I, value));
    if (!display->ApplyWorkingColor()) {
        CommunicationFailure();
        return;
    }
    RefreshLinked(slider_I);
}

void CColorSettingsDialog::CommitHexEdit() {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    const std::optional<SHexColor> hex = ParseHexColor(mHexEdit->text().toStdWString());
    if (!hex) {
        mHexEdit->setText(QString::fromStdWString(HexSnapBackText(display->GetWorkingColor())));
        return;
    }
    const int32_t components[] = {display->ScaleToDisplay(hex->red),
                                  display->ScaleToDisplay(hex->green),
                                  display->ScaleToDisplay(hex->blue)};
    for (int i = eColorSlider_Red; i <= eColorSlider_Blue; ++i) {
        QSlider* slider = mRows[static_cast<size_t>(i)].slider;
        const QSignalBlocker blocker(slider);
        slider->setValue(components[i]);
    }
    const auto component = [](int32_t value_I) {
        return static_cast<uint8_t>(std::clamp(value_I, 0, 255));
    };
    display->StoreWorkingColor(SCustomColor::FromRGB(
        component(components[0]), component(components[1]), component(components[2])));
    if (!display->ApplyWorkingColor()) {
        CommunicationFailure();
        return;
    }
    RefreshLinked(kHexSource);
}

void CColorSettingsDialog::OnAttribute(int32_t value_I) {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return;
    }
    display->SelectColorMod(static_cast<EColorMod>(value_I));
    display->GetCustomRGBColorMod(false);
    Refresh();
}

bool CColorSettingsDialog::RestoreColors() {
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    if (display == nullptr) {
        return true;
    }
    if (display->CustomAttributeStatus() == SControlState::Usable()) {
        for (const SAttributeRow& row : kAttributeRows) {
            if (!display->RestoreOriginal(row.slot)) {
                CommunicationFailure();
                return false;
            }
        }
        return true;
    }
    if (!display->RestoreOriginal(eColorMod_Gain)) {
        CommunicationFailure();
        return false;
    }
    return true;
}

void CColorSettingsDialog::Finish(int result_I) {
    mWindowExists = false;
    done(result_I);
    mAttribute.Clear();
    if (const auto display = Display()) {
        display->SelectColorMod(eColorMod_Gain);
    }
    if (mMainDlg != nullptr) {
        mMainDlg->UpdateSaveRevert();
    }
}

void CColorSettingsDialog::reject() {
    if (RestoreColors()) {
        Finish(QDialog::Rejected);
    }
}

void CColorSettingsDialog::CloseColorDialog(bool restore_I) {
    if (!mWindowExists) {
        return;
    }
    if (restore_I) {
        RestoreColors();
    }
    mWindowExists = false;
    done(0);
    mAttribute.Clear();
    if (const auto display = Display()) {
        display->SelectColorMod(eColorMod_Gain);
    }
}

void CColorSettingsDialog::keyPressEvent(QKeyEvent* event_I) {
    // Enter belongs to the focused edit; elsewhere it does nothing, and never ends the dialog.
    if (event_I->key() == Qt::Key_Return || event_I->key() == Qt::Key_Enter) {
        event_I->accept();
        return;
    }
    QDialog::keyPressEvent(event_I);
}

bool CColorSettingsDialog::eventFilter(QObject* watched_I, QEvent* event_I) {
    if (event_I->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event_I)->reason();
        // A question box or another window taking the focus is no commit.
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
            mWindowExists) {
            if (watched_I == mHexEdit) {
                CommitEdit(kHexSource);
            }
            for (int i = 0; i < eColorSlider_Count; ++i) {
                if (watched_I == mRows[static_cast<size_t>(i)].edit) {
                    CommitEdit(i);
                }
            }
        }
    }
    return QDialog::eventFilter(watched_I, event_I);
}

void CColorSettingsDialog::Place(const QRect& mainDialog_I) {
    int labelWidth = std::max({mAttributeLabel->sizeHint().width(), mHexLabel->sizeHint().width()});
    for (const SComponentRow& row : mRows) {
        labelWidth = std::max(labelWidth, row.label->sizeHint().width());
    }
    const int sliderX = kMargin + labelWidth + kColumnGap;
    const int editX = sliderX + kSliderWidth + kColumnGap;
    const int width = editX + kEditWidth + kMargin;
    int y = kMargin;
    const auto rowHeight = [](QWidget* a_I, QWidget* b_I) {
        return std::max(a_I->sizeHint().height(), b_I->sizeHint().height());
    };
    // The attribute row, or in its place the plain heading.
    QComboBox* attribute = mAttribute.Combo();
    const int topHeight = rowHeight(mAttributeLabel, attribute);
    mAttributeLabel->setGeometry(kMargin, y, labelWidth, topHeight);
    attribute->setGeometry(sliderX, y, kSliderWidth, topHeight);
    mCustomLabel->setGeometry(kMargin, y, width - 2 * kMargin, topHeight);
    y += topHeight + kButtonGap;
    const auto placeRow = [&](const SComponentRow& row_I) {
        const int height =
            std::max(rowHeight(row_I.label, row_I.slider), row_I.edit->sizeHint().height());
        row_I.label->setGeometry(kMargin, y, labelWidth, height);
        row_I.slider->setGeometry(sliderX, y, kSliderWidth, height);
        row_I.edit->setGeometry(editX, y, kEditWidth, height);
        y += height + kRowGap;
    };
    for (int i = eColorSlider_Red; i <= eColorSlider_Blue; ++i) {
        placeRow(mRows[static_cast<size_t>(i)]);
    }
    const int hexHeight = rowHeight(mHexLabel, mHexEdit);
    mHexLabel->setGeometry(kMargin, y, labelWidth, hexHeight);
    mHexEdit->setGeometry(editX, y, kEditWidth, hexHeight);
    int lastBottom = y + hexHeight;
    y = lastBottom + kRowGap;
    const std::shared_ptr<UiDisplayDelegate> display = Display();
    const bool cmykShown = display != nullptr && display->CmykHexStatus().visible;
    for (int i = eColorSlider_Cyan; i < eColorSlider_Count; ++i) {
        placeRow(mRows[static_cast<size_t>(i)]);
    }
    if (cmykShown) {
        lastBottom = y - kRowGap;
    }
    const int buttonsY = lastBottom + kButtonGap;
    int buttonX = width - kMargin;
    int buttonsBottom = buttonsY;
    for (QPushButton* button : {mCancelButton, mOkButton}) {
        const QSize size = button->sizeHint();
        buttonX -= size.width();
        button->setGeometry(buttonX, buttonsY, size.width(), size.height());
        buttonX -= kColumnGap;
        buttonsBottom = std::max(buttonsBottom, buttonsY + size.height());
    }
    const int height = buttonsBottom + kBottomMargin;
    setFixedSize(width, height);

    int x = mainDialog_I.x() + mainDialog_I.width() + kSideGap;
    int bottom = mainDialog_I.y() + mainDialog_I.height();
    if (mMainDlg != nullptr) {
        const QRect work = mMainDlg->WorkArea();
        if (bottom - height < work.y()) {
            bottom = height + work.y();
        } else if (bottom > work.y() + work.height()) {
            bottom = work.y() + work.height();
        }
        const QRect screen = mMainDlg->VirtualScreen();
        if (x >= screen.x() + screen.width()) {
            x = mainDialog_I.x() - kSideGap - width;
        }
    }
    setGeometry(x, bottom - height, width, height);
}

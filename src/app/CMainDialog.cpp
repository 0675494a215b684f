#include "app/CMainDialog.h"

#include "app/CInfoWindows.h"
#include "app/CProfileControl.h"
#include "app/CSecondaryDialogs.h"
#include "app/DisplayHelp.h"
#include "app/DisplayListNames.h"
#include "app/Mnemonics.h"
#include "app/RuntimeFolder.h"
#include "app/WindowPlacement.h"
#include "foundation/ScopeTimer.h"
#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"
#include "model/UiDisplayDelegate.h"
#include "resources/CResourceModule.h"
#include "resources/ResourceLookup.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSlider>
#include <QStyle>

#include <algorithm>

namespace {

// Text ids of the dialog's fixed texts.
constexpr uint32_t kTitleId = 2000;
constexpr uint32_t kDisplayLabelId = 2001;
constexpr uint32_t kBrightnessLabelId = 2002;
constexpr uint32_t kContrastLabelId = 2003;
constexpr uint32_t kColorSettingLabelId = 2004;
constexpr uint32_t kTemperatureLabelId = 2008;
constexpr uint32_t kSpaceLabelId = 2015;
constexpr uint32_t kSetButtonId = 2025;
constexpr uint32_t kRgbLabelId = 2026;
constexpr uint32_t kGammaLabelId = 2027;
constexpr uint32_t kAdvancedButtonId = 2031;
constexpr uint32_t kSaveButtonId = 2032;
constexpr uint32_t kRevertButtonId = 2033;
constexpr uint32_t kResetColorButtonId = 2036;
constexpr uint32_t kNotSupportedFirstId = 2037;
constexpr uint32_t kNotSupportedSecondId = 2038;
constexpr uint32_t kOkId = 2090;
constexpr uint32_t kTalkErrorId = 2900;
constexpr uint32_t kExitingId = 2901;
constexpr uint32_t kWaitTextId = 2905;

const char* const kSettingsOrganisation = "Vorex";
const char* const kSettingsApplication = "OSD";
const char* const kLocationGroup = "Location";
const char* const kRaiseRequest = "raise\n";
// The socket lives in the user's runtime folder, which makes it the user's own.
const char* const kDefaultInstanceName = "paneltune.instance";

// The smallest slider that still reads well; the edit holds three digits.
constexpr int kSliderMinimumWidth = 220;
constexpr int kEditDigits = 3;

} // namespace

CMainDialog::CMainDialog(const SDisplayConfigOptions& options_I,
                         SMainDialogEnvironment environment_I, QWidget* parent_I)
    : QDialog(parent_I), mOptions(options_I), mEnvironment(std::move(environment_I)) {
    setObjectName(QStringLiteral("mainDialog"));
    setWindowTitle(QStringLiteral("Empty Title"));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    if (!mEnvironment.makeSecondaryDialogs) {
        mEnvironment.makeSecondaryDialogs = CSecondaryDialogs::Factory();
    }
    mInstanceName = mEnvironment.instanceName;
    if (mInstanceName.isEmpty()) {
        mInstanceName = QString::fromLatin1(kDefaultInstanceName);
    }
    mWorker = std::make_unique<CDisplayWorker>();
    BuildControls();
}

CMainDialog::~CMainDialog() {
    mWorker.reset();
    mSecondary.reset();
}

QString CMainDialog::Text(uint32_t id_I) const {
    return QString::fromStdWString(
        GetTableString(id_I, mOptions.language.mLanguage.languageId, true, ProgramResources()));
}

void CMainDialog::ApplyState(SControlState state_I, std::initializer_list<QWidget*> widgets_I) {
    for (QWidget* widget : widgets_I) {
        widget->setEnabled(state_I.visible && state_I.enabled);
        widget->setVisible(state_I.visible);
    }
}

void CMainDialog::BuildControls() {
    auto makeLabel = [this](const char* name) {
        auto* label = new QLabel(this);
        label->setObjectName(QString::fromLatin1(name));
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        return label;
    };
    auto makeCombo = [this](const char* name) {
        auto* combo = new QComboBox(this);
        combo->setObjectName(QString::fromLatin1(name));
        combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        return combo;
    };
    auto makeButton = [this](const char* name) {
        auto* button = new QPushButton(this);
        button->setObjectName(QString::fromLatin1(name));
        // Enter belongs to the edits, never to a button.
        button->setAutoDefault(false);
        return button;
    };
    auto makePair = [&](SSliderPair& pair, const char* label, const char* slider, const char* edit,
                        int32_t* stored) {
        pair.label = makeLabel(label);
        pair.slider = new QSlider(Qt::Horizontal, this);
        pair.slider->setObjectName(QString::fromLatin1(slider));
        pair.slider->setMinimumWidth(kSliderMinimumWidth);
        pair.edit = new QLineEdit(this);
        pair.edit->setObjectName(QString::fromLatin1(edit));
        pair.edit->setMaxLength(kEditDigits);
        pair.edit->setValidator(new QRegularExpressionValidator(
            QRegularExpression(QStringLiteral("[0-9]{0,3}")), pair.edit));
        pair.edit->setFixedWidth(
            pair.edit->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 16);
        pair.edit->setAlignment(Qt::AlignRight);
        pair.edit->installEventFilter(this);
        pair.stored = stored;
        pair.label->setBuddy(pair.slider);
    };

    mDisplayLabel = makeLabel("displayLabel");
    QComboBox* displayCombo = makeCombo("displayCombo");
    mDisplayLabel->setBuddy(displayCombo);
    mDisplayCombo.Bind(displayCombo);
    makePair(mBrightnessPair, "brightnessLabel", "brightnessSlider", "brightnessEdit",
             &mBrightness);
    makePair(mContrastPair, "contrastLabel", "contrastSlider", "contrastEdit", &mContrast);

    mColorGroup = new QGroupBox(this);
    mColorGroup->setObjectName(QStringLiteral("colorGroup"));
    mColorSettingLabel = makeLabel("colorSettingLabel");
    QComboBox* colorSettingCombo = makeCombo("colorSettingCombo");
    mTemperatureLabel = makeLabel("temperatureLabel");
    QComboBox* temperatureCombo = makeCombo("temperatureCombo");
    mSpaceLabel = makeLabel("spaceLabel");
    QComboBox* spaceCombo = makeCombo("spaceCombo");
    mSetButton = makeButton("setButton");
    mRgbLabel = new QLabel(this);
    mRgbLabel->setObjectName(QStringLiteral("rgbLabel"));
    mResetColorButton = makeButton("resetColorButton");
    mGammaLabel = makeLabel("gammaLabel");
    QComboBox* gammaCombo = makeCombo("gammaCombo");
    mColorSettingCombo.Bind(colorSettingCombo);
    mColorSettingLabel->setBuddy(colorSettingCombo);
    mTemperatureLabel->setBuddy(temperatureCombo);
    mSpaceLabel->setBuddy(spaceCombo);
    mGammaLabel->setBuddy(gammaCombo);
    mTemperatureCombo.Bind(temperatureCombo);
    mSpaceCombo.Bind(spaceCombo);
    mGammaCombo.Bind(gammaCombo);
    mAdvancedButton = makeButton("advancedButton");
    mRevertButton = makeButton("revertButton");
    mSaveButton = makeButton("saveButton");

    mMainGrid = new QGridLayout(this);
    mMainGrid->setSizeConstraint(QLayout::SetFixedSize);
    mMainGrid->setColumnStretch(1, 1);
    int row = 0;
    mMainGrid->addWidget(mDisplayLabel, row, 0);
    mMainGrid->addWidget(displayCombo, row++, 1, 1, 2);
    for (SSliderPair* pair : {&mBrightnessPair, &mContrastPair}) {
        mMainGrid->addWidget(pair->label, row, 0);
        mMainGrid->addWidget(pair->slider, row, 1);
        mMainGrid->addWidget(pair->edit, row++, 2);
    }
    mColorGrid = new QGridLayout(mColorGroup);
    mColorGrid->setColumnStretch(1, 1);
    mColorGrid->addWidget(mColorSettingLabel, 0, 0);
    mColorGrid->addWidget(colorSettingCombo, 0, 1);
    mColorGrid->addWidget(mTemperatureLabel, 1, 0);
    mColorGrid->addWidget(temperatureCombo, 1, 1);
    mColorGrid->addWidget(mSpaceLabel, 2, 0);
    mColorGrid->addWidget(spaceCombo, 2, 1);
    auto* customRow = new QHBoxLayout;
    customRow->addWidget(mSetButton);
    customRow->addWidget(mRgbLabel, 1);
    mColorGrid->addLayout(customRow, 3, 1);
    mColorGrid->addWidget(mResetColorButton, 4, 1, Qt::AlignLeft);
    mMainGrid->addWidget(mColorGroup, row++, 0, 1, 3);
    mMainGrid->addWidget(mGammaLabel, row, 0);
    mMainGrid->addWidget(gammaCombo, row++, 1, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(mAdvancedButton);
    QPushButton* helpButton = makeButton("helpButton");
    helpButton->setText(QStringLiteral("?"));
    // One character needs no button of the usual width: as wide as high, or as its text needs.
    const int textWidth = helpButton->fontMetrics().horizontalAdvance(helpButton->text()) +
                          2 * (helpButton->style()->pixelMetric(QStyle::PM_ButtonMargin) +
                               helpButton->style()->pixelMetric(QStyle::PM_DefaultFrameWidth));
    helpButton->setFixedWidth(std::max(textWidth, helpButton->sizeHint().height()));
    // As high as its neighbours, whose texts may need a taller font.
    helpButton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    buttons->addWidget(helpButton);
    buttons->addStretch(1);
    mProfileControl = new CProfileControl(
        [this](const CProfileControl::DisplayWork& work_I) {
            SettleDisplay();
            const std::shared_ptr<UiDisplayDelegate> display = Display();
            if (!display) {
                return false;
            }
            const SDisplayInfo& info = mDisplayConfigIF->CurrentDisplayInfo();
            work_I(*display, {ToNarrow(info.modelNumber), ToNarrow(info.serialNumber)});
            return true;
        },
        [this] { UpdateControls(); }, this);
    buttons->addWidget(mProfileControl);
    buttons->addWidget(mRevertButton);
    buttons->addWidget(mSaveButton);
    mMainGrid->addLayout(buttons, row, 0, 1, 3);

    connect(displayCombo, &QComboBox::activated, this, [this] { SelectDisplay(); });
    connect(colorSettingCombo, &QComboBox::activated, this, [this] { OnColorSettingChanged(); });
    connect(temperatureCombo, &QComboBox::activated, this, [this] { OnTemperatureChanged(); });
    connect(spaceCombo, &QComboBox::activated, this, [this] { OnSpaceChanged(); });
    connect(gammaCombo, &QComboBox::activated, this, [this] { OnGammaChanged(); });
    connect(mSetButton, &QPushButton::clicked, this, [this] { OnSet(); });
    connect(mResetColorButton, &QPushButton::clicked, this, [this] { DoResetColor(); });
    connect(mSaveButton, &QPushButton::clicked, this, [this] { OnSave(); });
    connect(mRevertButton, &QPushButton::clicked, this, [this] { OnRevert(); });
    connect(mAdvancedButton, &QPushButton::clicked, this, [this] { OnAdvanced(); });
    connect(helpButton, &QPushButton::clicked, this, [this] { OnHelp(); });
    for (ESlider kind : {eBrightnessSlider, eContrastSlider}) {
        SSliderPair& pair = kind == eBrightnessSlider ? mBrightnessPair : mContrastPair;
        connect(pair.slider, &QSlider::actionTriggered, this,
                [this, kind](int action) { OnSliderAction(kind, action); });
        connect(pair.slider, &QSlider::sliderReleased, this,
                [this, kind, &pair] { CommitEvent(kind, pair.slider->sliderPosition()); });
    }
}

void CMainDialog::SetStaticTexts() {
    const std::pair<QWidget*, uint32_t> texts[] = {
        {mDisplayLabel, kDisplayLabelId},
        {mBrightnessPair.label, kBrightnessLabelId},
        {mContrastPair.label, kContrastLabelId},
        {mColorSettingLabel, kColorSettingLabelId},
        {mTemperatureLabel, kTemperatureLabelId},
        {mSpaceLabel, kSpaceLabelId},
        {mSetButton, kSetButtonId},
        {mResetColorButton, kResetColorButtonId},
        {mRgbLabel, kRgbLabelId},
        {mGammaLabel, kGammaLabelId},
        {mAdvancedButton, kAdvancedButtonId},
        {mRevertButton, kRevertButtonId},
        {mSaveButton, kSaveButtonId},
    };
    QStringList strings;
    for (const auto& entry : texts) {
        // The RGB label names no control and takes no mnemonic.
        strings << (entry.first == mRgbLabel ? QString() : Text(entry.second));
    }
    strings = WithMnemonics(strings);
    for (size_t i = 0; i < std::size(texts); ++i) {
        QWidget* widget = texts[i].first;
        const QString text = widget == mRgbLabel ? Text(texts[i].second) : strings[i];
        if (auto* label = qobject_cast<QLabel*>(widget)) {
            label->setText(text);
        } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
            button->setText(text);
        }
    }
    // The labels inside the colour box line up with those outside it.
    int labelWidth = 0;
    for (QLabel* label : {mDisplayLabel, mBrightnessPair.label, mContrastPair.label,
                          mColorSettingLabel, mTemperatureLabel, mSpaceLabel, mGammaLabel}) {
        labelWidth = std::max(labelWidth, label->sizeHint().width());
    }
    const QMargins inner = mColorGroup->contentsMargins() + mColorGrid->contentsMargins();
    mMainGrid->setColumnMinimumWidth(0, labelWidth + inner.left());
    mColorGrid->setColumnMinimumWidth(0, labelWidth);
}

int CMainDialog::Run() {
    if (!OnInitDialog()) {
        return mResult;
    }
    QEventLoop loop;
    mRunLoop = &loop;
    if (!mEnded) {
        loop.exec();
    }
    return mResult;
}

void CMainDialog::EndDialog(int result_I) {
    mEnded = true;
    mResult = result_I;
    hide();
    if (mRunLoop) {
        mRunLoop->quit();
    }
}

bool CMainDialog::OnInitDialog() {
    CScopeTimer timer("CMainDialog::OnInitDialog");
    // A second start only wakes the first one: it must not talk to the displays at all.
    if (RaiseRunningInstance()) {
        EndDialog(0);
        return false;
    }
    mWorker->Post([this] { RunDisplayConfig(); });
    ReadStoredPosition();
    ListenForSecondStarts();
    setWindowTitle(Text(kTitleId));
    SetStaticTexts();
    WaitBehindWaitWindow();

    if (!mDisplayConfigIF && mConfigError.empty()) {
        ShowErrorWindow(QStringLiteral("Could not configure display."));
        EndDialog(0);
        return false;
    }
    if (!mConfigError.empty()) {
        ShowErrorWindow(QString::fromStdString(mConfigError));
        EndDialog(0);
        return false;
    }
    mSecondary = mEnvironment.makeSecondaryDialogs(mOptions, *mDisplayConfigIF, *this);
    if (mDisplayConfigIF->DisplayNames().empty()) {
        Trace("No supported displays. Ending OSD\n");
        EndDialog(0);
        ShowNotSupportedWindow();
        return false;
    }
    FillDisplayCombo();
    PlaceWindow();
    PrepareCurrentDisplay(false);
    auto* hotKey = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+R")), this);
    hotKey->setContext(Qt::ApplicationShortcut);
    connect(hotKey, &QShortcut::activated, this, [this] { DoFactoryReset(true); });
    WatchHotplug();
    return true;
}

void CMainDialog::FillDisplayCombo() {
    mDisplayCombo.Clear();
    const QStringList names = DisplayListNames(mDisplayConfigIF->DisplayInfos());
    for (qsizetype i = 0; i < names.size(); ++i) {
        mDisplayCombo.Add(static_cast<int>(i), names[i]);
    }
    mDisplayCombo.Select(0);
    mDisplayConfigIF->SetCurrentDisplay(0);
}

// The colour slot the main dialog shows is Gain.
void CMainDialog::PrepareCurrentDisplay(bool refresh_I) {
    auto view = std::make_shared<SControlsView>();
    PostToDisplay(
        [view, refresh_I](UiDisplayDelegate& display) {
            display.LoadColorMods(eColorMod_Gain);
            display.SelectColorMod(eColorMod_Gain);
            display.GetCustomRGBColorMod(refresh_I);
            *view = ReadControls(display);
        },
        [this, view] {
            ShowControls(*view);
            PlaceSecondaryDialogs();
        });
}

void CMainDialog::ClearColorCombos() {
    mColorSettingCombo.Clear();
    mTemperatureCombo.Clear();
    mSpaceCombo.Clear();
    mGammaCombo.Clear();
}

void CMainDialog::ReadStoredPosition() {
    QSettings settings(QString::fromLatin1(kSettingsOrganisation),
                       QString::fromLatin1(kSettingsApplication));
    settings.beginGroup(QString::fromLatin1(kLocationGroup));
    bool okX = false;
    bool okY = false;
    const qlonglong x = settings.value(QStringLiteral("X")).toLongLong(&okX);
    const qlonglong y = settings.value(QStringLiteral("Y")).toLongLong(&okY);
    if (!okX || !okY) {
        mUseDefaultPosition = true;
        if (gTraceEnabled) {
            Trace("Using default app position\n");
        }
        return;
    }
    mLastX = x;
    mLastY = y;
    if (gTraceEnabled) {
        // The line prints X and X's upper half, as the stored pair lies in memory.
        Trace("Last user loc: %i,%i\n", static_cast<int32_t>(mLastX),
              static_cast<int32_t>(static_cast<uint64_t>(mLastX) >> 32));
    }
}

bool CMainDialog::RaiseRunningInstance() {
    QLocalSocket socket;
    socket.connectToServer(InstanceSocketPath(mInstanceName));
    if (!socket.waitForConnected(0) && socket.state() != QLocalSocket::ConnectedState) {
        return false;
    }
    socket.write(kRaiseRequest);
    socket.waitForBytesWritten();
    socket.disconnectFromServer();
    return true;
}

void CMainDialog::ListenForSecondStarts() {
    mInstanceServer = new QLocalServer(this);
    const QString path = InstanceSocketPath(mInstanceName);
    QLocalServer::removeServer(path);
    mInstanceServer->setSocketOptions(QLocalServer::UserAccessOption);
    if (!mInstanceServer->listen(path)) {
        Trace("CMainDialog - no single-instance channel: %s\n",
              mInstanceServer->errorString().toStdString().c_str());
        return;
    }
    connect(mInstanceServer, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* caller = mInstanceServer->nextPendingConnection()) {
            connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
            if (!mEnded && isVisible()) {
                setWindowState(windowState() & ~Qt::WindowMinimized);
                show();
                raise();
                activateWindow();
            }
        }
    });
}

// The screen that shows the current display: by connector name, then by EDID serial number.
static QScreen* ScreenOfDisplay(const SDisplayInfo& info_I) {
    const QString deviceId = QString::fromStdWString(info_I.deviceID).toUpper();
    const QString serial = QString::fromStdWString(info_I.serialNumber);
    for (QScreen* screen : QGuiApplication::screens()) {
        const QString name = screen->name().toUpper();
        if (!name.isEmpty() && (deviceId.endsWith(QLatin1Char('-') + name) ||
                                deviceId.endsWith(QLatin1Char('\\') + name))) {
            return screen;
        }
    }
    for (QScreen* screen : QGuiApplication::screens()) {
        if (!serial.isEmpty() && screen->serialNumber() == serial) {
            return screen;
        }
    }
    return nullptr;
}

// Before the window manager has framed the window its frame is a guess: a title bar as the
// style draws one.
QMargins CMainDialog::FrameMargins() const {
    const QMargins known(geometry().left() - frameGeometry().left(),
                         geometry().top() - frameGeometry().top(),
                         frameGeometry().right() - geometry().right(),
                         frameGeometry().bottom() - geometry().bottom());
    if (!known.isNull()) {
        return known;
    }
    const int border = style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    return QMargins(border, style()->pixelMetric(QStyle::PM_TitleBarHeight) + border, border,
                    border);
}

void CMainDialog::RememberPosition() {
    if (isVisible()) {
        mLastX = geometry().x();
        mLastY = geometry().y();
        mUseDefaultPosition = false;
    }
}

void CMainDialog::PlaceWindow() {
    QScreen* screen = nullptr;
    if (!mUseDefaultPosition && !mDisplayConfigIF->CurrentMonitor().empty()) {
        screen = ScreenOfDisplay(mDisplayConfigIF->CurrentDisplayInfo());
    }
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    adjustSize();
    std::vector<QRect> workAreas;
    for (QScreen* each : QGuiApplication::screens()) {
        workAreas.push_back(each->availableGeometry());
    }
    const QMargins frame = FrameMargins();
    QPoint position =
        DefaultPosition(screen != nullptr ? screen->availableGeometry() : QRect(0, 0, 0, 0), frame);
    if (!mUseDefaultPosition) {
        position = QPoint(static_cast<int>(mLastX), static_cast<int>(mLastY));
    }
    position = KeptOnScreen(QRect(position, size()), frame, workAreas);
    // The client area's point, so that the window manager does not add its frame on top.
    setGeometry(QRect(position, size()));
    show();
}

// The two other dialogs line up with the dialog as its rows leave it.
void CMainDialog::PlaceSecondaryDialogs() {
    layout()->activate();
    adjustSize();
    if (mSecondary) {
        mSecondary->Place(geometry());
    }
}

void CMainDialog::reject() {
    CloseSequence();
}

void CMainDialog::done(int result_I) {
    EndDialog(result_I);
}

void CMainDialog::closeEvent(QCloseEvent* event_I) {
    event_I->ignore();
    if (!mEnded) {
        CloseSequence();
    }
}

void CMainDialog::CloseSequence() {
    SettleDisplay();
    const QPoint topLeft = geometry().topLeft();
    {
        QSettings settings(QString::fromLatin1(kSettingsOrganisation),
                           QString::fromLatin1(kSettingsApplication));
        settings.beginGroup(QString::fromLatin1(kLocationGroup));
        settings.setValue(QStringLiteral("X"), static_cast<int32_t>(topLeft.x()));
        settings.setValue(QStringLiteral("Y"), static_cast<int32_t>(topLeft.y()));
    }
    if (std::shared_ptr<UiDisplayDelegate> display = Display()) {
        display->RevertSettings();
    }
    if (mSecondary) {
        mSecondary->CloseAdvanced();
    }
    EndDialog(1);
}

void CMainDialog::SelectDisplay() {
    SettleDisplay();
    const int index = mDisplayCombo.Selected();
    if (mDisplayConfigIF->IsCurrentDisplay(index)) {
        return;
    }
    const bool advancedVisible = mSecondary->AdvancedVisible();
    if (advancedVisible) {
        mSecondary->HideAdvanced();
    }
    RememberPosition();
    hide();
    if (std::shared_ptr<UiDisplayDelegate> old = Display()) {
        old->RevertSettings();
        old->ResetOptions(true);
    }
    mDisplayConfigIF->SetCurrentDisplay(index);
    if (std::shared_ptr<UiDisplayDelegate> display = Display()) {
        display->ResetOptions(true);
    }
    PlaceWindow();
    ClearColorCombos();
    PrepareCurrentDisplay(true);
    if (mSecondary->AdvancedExists()) {
        mSecondary->RefreshAdvanced();
    }
    show();
    if (advancedVisible) {
        mSecondary->ShowAdvanced();
    }
}

void CMainDialog::CloseAllDialogs() {
    if (mSecondary) {
        mSecondary->CloseColorDialog(false);
        mSecondary->CloseAdvanced();
    }
    EndDialog(0);
}

void CMainDialog::ShowCommunicationError(bool exit_I) {
    SettleDisplay();
    std::shared_ptr<UiDisplayDelegate> display = Display();
    ShowCommunicationError(exit_I, display ? display->GetLastErrorText() : std::string());
}

void CMainDialog::ShowCommunicationError(bool exit_I, const std::string& lastError_I) {
    QString text;
    if (exit_I) {
        CloseAllDialogs();
        text = Text(kExitingId) + QLatin1Char('\n');
    }
    text += Text(kTalkErrorId);
    if (!lastError_I.empty()) {
        text += QLatin1Char(' ') + QString::fromStdString(lastError_I);
    }
    QMessageBox box(QMessageBox::Critical, Text(kTitleId), text, QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("communicationError"));
    ExecModal(box, EModal::eCommunicationError);
}

void CMainDialog::OnHelp() {
    if (OpenDisplayHelp(mOptions, Display().get())) {
        return;
    }
    QMessageBox box(QMessageBox::Information, Text(kTitleId),
                    tr("No help can be reached: the help server does not answer and no help is "
                       "installed on this computer."),
                    QMessageBox::Ok, this);
    box.setObjectName(QStringLiteral("helpUnavailable"));
    ExecModal(box, EModal::eHelpUnavailable);
}

int CMainDialog::ExecModal(QDialog& window_I, EModal) {
    return window_I.exec();
}

void CMainDialog::WaitWindowShown(QWidget&) {}

std::unique_ptr<QDialog> CMainDialog::ShowWaitWindow() {
    std::unique_ptr<QDialog> window = MakeWaitWindow(Text(kWaitTextId), this);
    window->show();
    WaitWindowShown(*window);
    return window;
}

void CMainDialog::ShowNotSupportedWindow() {
    std::unique_ptr<QDialog> window = MakeNotSupportedWindow(
        Text(kNotSupportedFirstId), Text(kNotSupportedSecondId), Text(kOkId));
    ExecModal(*window, EModal::eNotSupportedWindow);
}

void CMainDialog::ShowErrorWindow(const QString& text_I) {
    std::unique_ptr<QDialog> window = MakeErrorWindow(text_I, Text(kOkId));
    ExecModal(*window, EModal::eErrorWindow);
}

std::shared_ptr<UiDisplayDelegate> CMainDialog::Display() const {
    return mDisplayConfigIF ? mDisplayConfigIF->CurrentDisplay() : nullptr;
}

bool CMainDialog::eventFilter(QObject* watched_I, QEvent* event_I) {
    // Enter commits the edit that has the focus whatever its text, selects the text once the
    // value is written and leaves the dialog open.
    if (event_I->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event_I)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched_I == mBrightnessPair.edit) {
                CommitEdit(eBrightnessSlider, true);
                return true;
            }
            if (watched_I == mContrastPair.edit) {
                CommitEdit(eContrastSlider, true);
                return true;
            }
        }
    }
    if (event_I->type() == QEvent::FocusOut) {
        // Focus that leaves with the window (a question box coming up) is no commit.
        const auto reason = static_cast<QFocusEvent*>(event_I)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && !mEnded) {
            if (watched_I == mBrightnessPair.edit) {
                CommitEdit(eBrightnessSlider, false);
            } else if (watched_I == mContrastPair.edit) {
                CommitEdit(eContrastSlider, false);
            }
        }
    }
    return QDialog::eventFilter(watched_I, event_I);
}

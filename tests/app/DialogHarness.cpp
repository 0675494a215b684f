#include "DialogHarness.h"

#include "resources/LanguageProvider.h"

#include <QDir>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QtTest/QTest>

#include <atomic>
#include <unistd.h>

QApplication& TestApplication() {
    return *qobject_cast<QApplication*>(QCoreApplication::instance());
}

QString ScreenshotFolder() {
    const QString chosen = qEnvironmentVariable("PANELTUNE_SCREENSHOT_DIR");
    return chosen.isEmpty() ? QStringLiteral(PANELTUNE_SCREENSHOT_DIR) : chosen;
}

void SaveScreenshot(QWidget& widget_I, const std::string& name_I) {
    const QString folder = ScreenshotFolder();
    QDir().mkpath(folder);
    QCoreApplication::sendPostedEvents();
    if (widget_I.layout() != nullptr) {
        widget_I.layout()->activate();
    }
    widget_I.grab().save(folder + QLatin1Char('/') + QString::fromStdString(name_I) +
                         QStringLiteral(".png"));
}

size_t CTestMainDialog::Count(EModal kind_I) const {
    return static_cast<size_t>(std::count_if(mShown.begin(), mShown.end(),
                                             [&](const SShown& s) { return s.kind == kind_I; }));
}

int CTestMainDialog::ExecModal(QDialog& window_I, EModal kind_I) {
    QString text;
    if (auto* box = qobject_cast<QMessageBox*>(&window_I)) {
        text = box->text();
    } else {
        for (QLabel* label : window_I.findChildren<QLabel*>()) {
            text += label->text() + QLatin1Char('\n');
        }
    }
    mShown.push_back({kind_I, text});
    if (mOnWindow) {
        mOnWindow();
    }
    const auto answer = mAnswers.find(kind_I);
    if (answer != mAnswers.end()) {
        return answer->second;
    }
    if (kind_I == EModal::eDarkQuestion) {
        return CMainDialog::ExecModal(window_I, kind_I);
    }
    return kind_I == EModal::eFactoryResetQuestion ? int{QMessageBox::Ok} : int{QDialog::Accepted};
}

void CTestMainDialog::WaitWindowShown(QWidget&) {
    ++mWaitWindowsShown;
    if (mOnWindow) {
        mOnWindow();
    }
}

void DialogTest::SetUp() {
    TestApplication();
    mSettingsFolder = std::make_unique<QTemporaryDir>();
    ASSERT_TRUE(mSettingsFolder->isValid());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mSettingsFolder->path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, mSettingsFolder->path());
    // The single-instance socket and help pages go to the user's runtime folder, profiles to
    // the configuration folder.
    qputenv("XDG_RUNTIME_DIR", mSettingsFolder->path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", mSettingsFolder->path().toLocal8Bit());
}

void DialogTest::TearDown() {
    mDialog.reset();
    mPlatform.reset();
}

bool DialogTest::Start(const std::string& description_I, const std::string& language_I,
                       bool makerSystem_I) {
    static std::atomic<int> counter{0};
    std::string error;
    mPlatform = CSimulatedPlatform::FromDescription(description_I, error);
    EXPECT_NE(mPlatform, nullptr) << error;
    if (!mPlatform) {
        return false;
    }
    mPlatform->SetMakerSystem(makerSystem_I);
    mOptions = SDisplayConfigOptions{};
    mOptions.language = LanguageProvider(language_I);
    SMainDialogEnvironment environment;
    environment.platform = mPlatform;
    environment.instanceName = QStringLiteral("paneltune-test-%1-%2").arg(getpid()).arg(++counter);
    mDialog = std::make_unique<CTestMainDialog>(mOptions, environment);
    // No timer is waited for: an unanswered dark question closes at the next turn of events.
    mDialog->SetDarkQuestionTimeout(0);
    if (mBeforeInit) {
        mBeforeInit(*mDialog);
    }
    const bool started = mDialog->OnInitDialog();
    Settle();
    return started;
}

int DialogTest::ScalerValue(size_t display_I, uint8_t code_I) {
    Settle();
    const std::optional<uint16_t> value = mPlatform->Display(display_I).Scaler().Current(code_I);
    return value ? *value : -1;
}

QSettings DialogTest::StoredSettings() {
    return QSettings(QStringLiteral("Vorex"), QStringLiteral("OSD"));
}

QDialog& DialogTest::OpenAdvanced() {
    Find<QPushButton>("advancedButton")->click();
    Settle();
    return *Find<QDialog>("advancedDialog");
}

void DialogTest::RunColorDialog(const std::function<void(QDialog&)>& during_I) {
    Choose("colorSettingCombo", static_cast<int>(Rows("colorSettingCombo").size()) - 1);
    bool ran = false;
    QTimer::singleShot(0, [&] {
        auto* color = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(color, nullptr);
        during_I(*color);
        ran = true;
        if (color->isVisible()) {
            color->reject();
        }
    });
    if (Find<QWidget>("setButton")->isVisibleTo(mDialog.get())) {
        Find<QPushButton>("setButton")->click();
    } else {
        // Models without a custom row get the colour dialog the way the main dialog would
        // prepare it.
        Current().LoadColorMods(eColorMod_Gain);
        Current().SelectColorMod(eColorMod_Gain);
        Current().GetCustomRGBColorMod(false);
        mDialog->SecondaryDialogs()->RunColorDialog(mDialog.get());
    }
    Settle();
    EXPECT_TRUE(ran);
}

void DialogTest::Choose(const char* combo_I, int row_I, QWidget* in_I) {
    QComboBox* combo = Find<QComboBox>(combo_I, in_I);
    combo->setCurrentIndex(row_I);
    emit combo->activated(row_I);
    Settle();
}

void DialogTest::Enter(const char* edit_I, const QString& text_I, QWidget* in_I) {
    QLineEdit* edit = Find<QLineEdit>(edit_I, in_I);
    edit->setText(text_I);
    QTest::keyClick(edit, Qt::Key_Return);
    Settle();
}

void DialogTest::Drag(QSlider* slider_I, std::initializer_list<int> positions_I, bool release_I) {
    slider_I->setSliderDown(true);
    for (int position : positions_I) {
        slider_I->setSliderPosition(position);
    }
    Settle();
    if (release_I) {
        slider_I->setSliderDown(false);
        Settle();
    }
}

void DialogTest::Settle() {
    mDialog->Worker().WaitIdle();
}

QStringList DialogTest::Rows(const char* combo_I) {
    QComboBox* combo = Find<QComboBox>(combo_I);
    QStringList rows;
    for (int i = 0; i < combo->count(); ++i) {
        rows << combo->itemText(i);
    }
    return rows;
}

#include "app/CTrayControl.h"

#include "app/CMainDialog.h"
#include "app/DisplayListNames.h"
#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"
#include "model/UiDisplayDelegate.h"
#include "profiles/CProfileStore.h"
#include "profiles/ProfileApply.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QSignalBlocker>
#include <QSlider>
#include <QSystemTrayIcon>
#include <QVBoxLayout>
#include <QWidgetAction>

namespace {

constexpr int kSliderWidth = 200;
// The contrast the dark test assumes where contrast cannot be set, as the main dialog does.
constexpr int32_t kContrastFallback = 50;

} // namespace

// What one display's part of the menu shows, read on the worker when the menu is built.
struct CTrayControl::SRow {
    std::shared_ptr<UiDisplayDelegate> display;
    QString name;
    SProfileOwner owner;
    SControlState state = SControlState::Hidden();
    SVCPResult brightness;
};

CTrayControl::CTrayControl(CMainDialog& dialog_I, bool trayAvailable_I, QObject* parent_I)
    : QObject(parent_I), mDialog(dialog_I) {
    notify = [this](const QString& text_I) {
        if (mIcon != nullptr) {
            mIcon->showMessage(mDialog.windowTitle(), text_I);
        }
    };
    if (!trayAvailable_I) {
        Trace("No system tray on this desktop: showing the window instead\n");
        return;
    }
    mDialog.KeepInTray(true);
    // The hidden dialog is no reason to end; Quit is.
    QApplication::setQuitOnLastWindowClosed(false);
    mMenu.setObjectName(QStringLiteral("trayMenu"));
    connect(&mMenu, &QMenu::aboutToShow, this, [this] { Rebuild(); });
    connect(&mDialog, &CMainDialog::displaysChanged, this, [this] { Rebuild(); });
    mIcon = new QSystemTrayIcon(QApplication::windowIcon(), this);
    mIcon->setContextMenu(&mMenu);
    connect(mIcon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason why) {
                if (why == QSystemTrayIcon::Trigger) {
                    OpenDialog();
                }
            });
    mIcon->show();
}

CTrayControl::~CTrayControl() {
    delete mIcon;
}

void CTrayControl::Rebuild() {
    mMenu.clear();
    for (QMenu* submenu : mMenu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        delete submenu;
    }
    CDisplayWorker& worker = mDialog.Worker();
    worker.WaitIdle();
    if (mIcon != nullptr) {
        mIcon->setToolTip(mDialog.windowTitle());
    }
    std::vector<SRow> rows;
    if (const CDisplayConfigInterface* config = mDialog.DisplayConfigIF()) {
        const QStringList names = DisplayListNames(config->DisplayInfos());
        for (size_t i = 0; i < config->DisplayInfos().size(); ++i) {
            const SDisplayInfo& info = config->DisplayInfos()[i];
            rows.push_back({info.display,
                            names[static_cast<qsizetype>(i)],
                            {ToNarrow(info.modelNumber), ToNarrow(info.serialNumber)},
                            {},
                            {}});
        }
    }
    worker.Post([&rows] {
        for (SRow& row : rows) {
            if (row.display) {
                row.state = row.display->BrightnessStatus();
                if (row.state.visible && row.state.enabled) {
                    row.brightness = row.display->GetBrightness();
                }
            }
        }
    });
    worker.WaitIdle();
    for (size_t i = 0; i < rows.size(); ++i) {
        AddDisplay(rows[i], kFirstSliderKey + static_cast<int>(i));
    }
    mMenu.addSeparator();
    mMenu.addAction(tr("Open %1").arg(mDialog.windowTitle()), this, [this] { OpenDialog(); });
    mMenu.addAction(tr("Quit"), this, [this] { Quit(); });
}

void CTrayControl::AddDisplay(const SRow& row_I, int key_I) {
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(new QLabel(row_I.name, panel));
    auto* slider = new QSlider(Qt::Horizontal, panel);
    slider->setObjectName(QStringLiteral("trayBrightness"));
    slider->setMinimumWidth(kSliderWidth);
    slider->setRange(row_I.brightness.minimum, row_I.brightness.maximum);
    slider->setValue(row_I.brightness.value);
    slider->setEnabled(row_I.state.visible && row_I.state.enabled);
    slider->setToolTip(tr("Brightness"));
    layout->addWidget(slider);
    auto* action = new QWidgetAction(&mMenu);
    action->setText(row_I.name);
    action->setDefaultWidget(panel);
    mMenu.addAction(action);

    // The value the display holds once a change is let go; the dark question goes back to it.
    auto kept = std::make_shared<int>(row_I.brightness.value);
    // Weak, so that a rediscovery finds every channel closed.
    const std::weak_ptr<UiDisplayDelegate> display = row_I.display;
    // The question and the dialog's refresh turn events, in which a rediscovery may rebuild the
    // menu.
    const auto commit = [this, slider, display, kept] {
        const QPointer<QSlider> alive(slider);
        *kept = Commit(display.lock(), *kept, slider->value());
        if (alive) {
            const QSignalBlocker quiet(slider);
            slider->setValue(*kept);
        }
    };
    connect(slider, &QSlider::valueChanged, this,
            [this, slider, display, key_I, commit](int value) {
                Write(display.lock(), key_I, value);
                if (!slider->isSliderDown()) {
                    commit();
                }
            });
    connect(slider, &QSlider::sliderReleased, this, commit);

    QStringList profiles;
    for (const std::string& name :
         FittingProfiles(CProfileStore(CProfileStore::DefaultDirectory()), row_I.owner)) {
        profiles << QString::fromStdString(name);
    }
    QMenu* submenu = mMenu.addMenu(tr("Profiles of %1").arg(row_I.name));
    submenu->setEnabled(!profiles.isEmpty() && row_I.display != nullptr);
    for (const QString& name : profiles) {
        submenu->addAction(name, this,
                           [this, display, name] { ApplyProfile(display.lock(), name); });
    }
}

// A drag's values coalesce on the worker: only the latest waits while one is on the wire.
void CTrayControl::Write(std::shared_ptr<UiDisplayDelegate> display_I, int key_I, int value_I) {
    if (!display_I) {
        return;
    }
    auto written = std::make_shared<bool>(true);
    mDialog.Worker().Post(
        [display_I, value_I, written] { *written = display_I->SetBrightness(value_I); },
        [this, written] {
            if (!*written) {
                mDialog.ShowCommunicationError(false);
            }
        },
        key_I);
}

int CTrayControl::Commit(std::shared_ptr<UiDisplayDelegate> display_I, int before_I, int value_I) {
    if (!display_I) {
        return before_I;
    }
    CDisplayWorker& worker = mDialog.Worker();
    bool tooDark = false;
    worker.Post([&] {
        const SControlState contrast = display_I->ContrastStatus();
        tooDark = display_I->IsTooDark(value_I, contrast.visible && contrast.enabled
                                                    ? display_I->GetContrast().value
                                                    : kContrastFallback);
    });
    worker.WaitIdle();
    int kept = value_I;
    if (tooDark && !mDialog.ConfirmTooDark(nullptr)) {
        kept = before_I;
        worker.Post([display_I, before_I] { display_I->SetBrightness(before_I); });
        worker.WaitIdle();
    }
    mDialog.UpdateControls();
    return kept;
}

void CTrayControl::ApplyProfile(std::shared_ptr<UiDisplayDelegate> display_I,
                                const QString& name_I) {
    if (!display_I) {
        return;
    }
    SProfile profile;
    std::string error;
    if (!CProfileStore(CProfileStore::DefaultDirectory())
             .Load(name_I.toStdString(), profile, error)) {
        notify(QString::fromStdString(error));
        return;
    }
    SProfileApplied applied;
    mDialog.Worker().Post([&] { applied = ::ApplyProfile(*display_I, profile, false); });
    mDialog.Worker().WaitIdle();
    mDialog.UpdateControls();
    if (!applied.Ok()) {
        notify(tr("These settings did not reach the display: %1")
                   .arg(QString::fromStdString(SkipsText(applied.failed))));
    } else if (!applied.skipped.empty()) {
        notify(tr("Skipped: %1").arg(QString::fromStdString(SkipsText(applied.skipped))));
    }
}

void CTrayControl::OpenDialog() {
    mDialog.show();
    mDialog.raise();
    mDialog.activateWindow();
}

void CTrayControl::Quit() {
    mDialog.KeepInTray(false);
    // The dialog's own close: position kept, unsaved changes reverted, the program ends.
    static_cast<QDialog&>(mDialog).reject();
}

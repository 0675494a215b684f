#include "app/CProfileControl.h"

#include "profiles/ProfileApply.h"

#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>

CProfileControl::CProfileControl(DisplayAccess access_I, std::function<void()> applied_I,
                                 QWidget* parent_I)
    : QPushButton(parent_I), mAccess(std::move(access_I)), mApplied(std::move(applied_I)),
      mStore(CProfileStore::DefaultDirectory()) {
    setObjectName(QStringLiteral("profileButton"));
    setText(tr("Profiles"));
    setToolTip(tr("Apply, save or delete a named set of this display's settings"));
    auto* menu = new QMenu(this);
    connect(menu, &QMenu::aboutToShow, this, [this] { FillMenu(); });
    setMenu(menu);
    askName = [this] {
        return QInputDialog::getText(this, tr("Save profile"),
                                     tr("Name of the profile for the present settings:"))
            .trimmed();
    };
    notify = [this](const QString& text_I) {
        QMessageBox::information(this, tr("Profiles"), text_I);
    };
}

QStringList CProfileControl::FittingNames() {
    SProfileOwner owner;
    if (!mAccess([&](UiDisplayDelegate&, const SProfileOwner& owner_I) { owner = owner_I; })) {
        return {};
    }
    QStringList names;
    for (const std::string& name : FittingProfiles(mStore, owner)) {
        names << QString::fromStdString(name);
    }
    return names;
}

bool CProfileControl::SaveCurrent(const QString& name_I, QString& message_O) {
    std::string error;
    SProfile existing;
    const std::string name = name_I.toStdString();
    SProfile profile;
    const bool reached = mAccess([&](UiDisplayDelegate& display_I, const SProfileOwner& owner_I) {
        if (mStore.Load(name, existing, error) && existing.owner != owner_I) {
            error = "profile '" + name + "' belongs to another display; choose another name";
            return;
        }
        error.clear();
        profile = CaptureProfile(display_I, name, owner_I);
    });
    if (!reached || !error.empty() || !mStore.Save(profile, error)) {
        message_O = reached ? QString::fromStdString(error) : tr("No display is selected.");
        return false;
    }
    return true;
}

bool CProfileControl::Apply(const QString& name_I, QString& message_O) {
    SProfile profile;
    std::string error;
    if (!mStore.Load(name_I.toStdString(), profile, error)) {
        message_O = QString::fromStdString(error);
        return false;
    }
    SProfileApplied applied;
    const bool reached = mAccess([&](UiDisplayDelegate& display_I, const SProfileOwner& owner_I) {
        error = ProfileMismatch(profile, owner_I);
        if (error.empty()) {
            applied = ApplyProfile(display_I, profile, false);
        }
    });
    if (!reached || !error.empty()) {
        message_O = reached ? QString::fromStdString(error) : tr("No display is selected.");
        return false;
    }
    mApplied();
    if (!applied.Ok()) {
        message_O = tr("These settings did not reach the display: %1")
                        .arg(QString::fromStdString(SkipsText(applied.failed)));
        return false;
    }
    if (!applied.skipped.empty()) {
        message_O = tr("Skipped: %1").arg(QString::fromStdString(SkipsText(applied.skipped)));
    }
    return true;
}

bool CProfileControl::Remove(const QString& name_I, QString& message_O) {
    std::string error;
    if (!mStore.Remove(name_I.toStdString(), error)) {
        message_O = QString::fromStdString(error);
        return false;
    }
    return true;
}

void CProfileControl::FillMenu() {
    QMenu* popup = menu();
    popup->clear();
    const QStringList names = FittingNames();
    const auto run = [this](bool (CProfileControl::*action_I)(const QString&, QString&),
                            const QString& name_I) {
        QString message;
        const bool done = (this->*action_I)(name_I, message);
        if (!done || !message.isEmpty()) {
            notify(message);
        }
    };
    for (const QString& name : names) {
        popup->addAction(name, this, [run, name] { run(&CProfileControl::Apply, name); });
    }
    if (names.isEmpty()) {
        popup->addAction(tr("No profiles for this display"))->setEnabled(false);
    }
    popup->addSeparator();
    popup->addAction(tr("Save present settings as..."), this, [this, run] {
        const QString name = askName();
        if (!name.isEmpty()) {
            run(&CProfileControl::SaveCurrent, name);
        }
    });
    QMenu* remove = popup->addMenu(tr("Delete"));
    remove->setEnabled(!names.isEmpty());
    for (const QString& name : names) {
        remove->addAction(name, this, [run, name] { run(&CProfileControl::Remove, name); });
    }
}

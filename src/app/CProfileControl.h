#pragma once
// The profile button beside Revert and Save: its menu applies a profile of the current display's
// model, saves the present settings under a name and deletes profiles. Applying leaves the
// changes unsaved, as if the user had made them, so Revert takes them back.

#include "profiles/CProfileStore.h"
#include "profiles/SProfile.h"

#include <QPushButton>
#include <QString>
#include <QStringList>

#include <functional>

class UiDisplayDelegate;

class CProfileControl : public QPushButton {
    Q_OBJECT

public:
    using DisplayWork = std::function<void(UiDisplayDelegate&, const SProfileOwner&)>;
    // Runs work on the current display and its owner; false when there is none. It is the one
    // way this control reaches a display, so the caller decides where that runs.
    using DisplayAccess = std::function<bool(const DisplayWork&)>;

    CProfileControl(DisplayAccess access_I, std::function<void()> applied_I, QWidget* parent_I);

    // The names of the profiles that fit the current display, sorted.
    QStringList FittingNames();
    // Each gives false with a sentence for the user in message_O when it cannot be done.
    bool SaveCurrent(const QString& name_I, QString& message_O);
    bool Apply(const QString& name_I, QString& message_O);
    bool Remove(const QString& name_I, QString& message_O);

    // What the menu asks and tells through; tests replace them. An empty name cancels.
    std::function<QString()> askName;
    std::function<void(const QString&)> notify;

private:
    void FillMenu();

    DisplayAccess mAccess;
    std::function<void()> mApplied;
    CProfileStore mStore;
};

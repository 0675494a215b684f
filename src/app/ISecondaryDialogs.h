#pragma once
// What the main dialog asks of the advanced and colour dialogs. The main dialog owns one object
// behind this interface, made by a factory it is given, so that the real dialogs plug in here.

#include <QRect>

#include <functional>
#include <memory>

class QWidget;
class CDisplayConfigInterface;
class CMainDialog;
struct SDisplayConfigOptions;

class ISecondaryDialogs {
public:
    virtual ~ISecondaryDialogs() = default;

    // The colour dialog runs modally; true when the user ended it with OK.
    virtual bool RunColorDialog(QWidget* owner_I) = 0;
    virtual bool ColorDialogOpen() const = 0;
    // restore_I puts back the colour the dialog started with.
    virtual void CloseColorDialog(bool restore_I) = 0;

    // The advanced dialog is modeless and lives beside the main dialog.
    virtual bool AdvancedExists() const = 0;
    virtual bool AdvancedVisible() const = 0;
    // Creates it owned by owner_I when needed, shows it refreshed when hidden, and focuses it.
    virtual void OpenAdvanced(QWidget* owner_I) = 0;
    // Every showing takes a new restore snapshot of the values Cancel goes back to.
    virtual void ShowAdvanced() = 0;
    virtual void HideAdvanced() = 0;
    // Re-reads the controls without a new restore snapshot.
    virtual void RefreshAdvanced() = 0;
    virtual void CloseAdvanced() = 0;

    // The main dialog's client rectangle once its rows are final, for the two dialogs to place
    // themselves by.
    virtual void Place(const QRect& mainRect_I) = 0;
};

using SecondaryDialogsFactory = std::function<std::unique_ptr<ISecondaryDialogs>(
    const SDisplayConfigOptions& options_I, CDisplayConfigInterface& displayConfig_I,
    CMainDialog& mainDialog_I)>;

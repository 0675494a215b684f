#pragma once
// What the advanced and colour dialogs need of the main dialog that owns them. The main dialog
// implements it; tests put a recorder in its place, so that ending the program is a call they
// can see instead of the end of the test.

#include <QRect>

class QWidget;

class IDialogOwner {
public:
    virtual ~IDialogOwner() = default;

    // Returns once the worker has no display call left, so that the caller may use the session
    // on this thread.
    virtual void SettleDisplay() = 0;
    // Rebuild every control of the main dialog from the display.
    virtual void UpdateControls() = 0;
    // Re-evaluate Save, Revert and Reset Color.
    virtual void UpdateSaveRevert() = 0;
    // Report the display's last error; with exit set the dialogs close and the program ends.
    virtual void ShowCommunicationError(bool exit_I) = 0;
    virtual void DoFactoryReset(bool skipConfirmation_I) = 0;
    // Close both dialogs and end the program with 0.
    virtual void CloseAllDialogs() = 0;
    // The main dialog's too-dark question over the asking dialog: true when the user keeps the
    // colour. It defaults to No and counts as No when nobody answers in time.
    virtual bool ConfirmTooDark(QWidget* asker_I) = 0;

    // The main dialog's frame in screen coordinates, which the dialogs are placed beside.
    virtual QRect MainDialogRect() const = 0;
    // The work area of the current display's monitor, or of the primary one.
    virtual QRect WorkArea() const = 0;
    // The union of all screens.
    virtual QRect VirtualScreen() const = 0;
};

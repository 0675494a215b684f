#pragma once
// The quick control in the desktop's tray: per display a brightness slider and the display's
// profiles, an entry that opens the main dialog, and Quit. It keeps no settings of its own: every
// value it shows is read from the display's delegate through the main dialog's display worker
// when the menu opens, and every change goes there too, after which the main dialog re-reads
// its controls. Closing the main dialog while the tray runs hides it.

#include <QMenu>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class CMainDialog;
class QSystemTrayIcon;
class UiDisplayDelegate;

class CTrayControl : public QObject {
    Q_OBJECT

public:
    // The worker's coalescing key of display N's slider; below it lie the main dialog's keys.
    static constexpr int kFirstSliderKey = 16;

    // Without a tray (trayAvailable_I false) it says so in the trace once and leaves the dialog
    // as it is; with one, the dialog starts hidden and closes into the tray.
    CTrayControl(CMainDialog& dialog_I, bool trayAvailable_I, QObject* parent_I = nullptr);
    ~CTrayControl() override;

    bool Active() const { return mIcon != nullptr; }
    QMenu& Menu() { return mMenu; }
    // Builds the menu from the displays found now and their present values.
    void Rebuild();
    // Tells the user what a profile did; tests replace it.
    std::function<void(const QString&)> notify;

private:
    struct SRow;

    void AddDisplay(const SRow& row_I, int key_I);
    void Write(std::shared_ptr<UiDisplayDelegate> display_I, int key_I, int value_I);
    // The value the display keeps: value_I, or before_I when the user declines a too-dark one.
    int Commit(std::shared_ptr<UiDisplayDelegate> display_I, int before_I, int value_I);
    void ApplyProfile(std::shared_ptr<UiDisplayDelegate> display_I, const QString& name_I);
    void OpenDialog();
    void Quit();

    CMainDialog& mDialog;
    QMenu mMenu;
    QSystemTrayIcon* mIcon = nullptr;
};

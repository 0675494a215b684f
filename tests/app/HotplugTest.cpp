#include "DialogHarness.h"

#include "app/CHotplugWatcher.h"
#include "app/CTrayControl.h"
#include "foundation/TimeSeam.h"

#include <QComboBox>
#include <QCoreApplication>

namespace {

class HotplugTest : public DialogTest {
protected:
    // The changes settle only once the program's clock has moved on.
    void Settle(CHotplugWatcher& watcher_I) {
        DialogTest::Settle();
        QCoreApplication::processEvents();
        EXPECT_FALSE(watcher_I.Poll());
        SleepMs(CHotplugWatcher::kSettleMs);
        EXPECT_TRUE(watcher_I.Poll());
    }
};

} // namespace

// Each event on the simulated platform, on virtual time, with the list and the selection after it;
// the tray's menu follows the list.
TEST_F(HotplugTest, TheListFollowsDisplaysPluggedInAndOutAndKeepsTheSelection) {
    ASSERT_TRUE(Start("ElmLarge@video,Hazel@hid,Birch@ftdi"));
    auto* watcher = Dialog().findChild<CHotplugWatcher*>(QStringLiteral("hotplugWatcher"));
    ASSERT_NE(watcher, nullptr);
    ASSERT_TRUE(watcher->Watching());
    CTrayControl tray(Dialog(), true);
    const QStringList all = Rows("displayCombo");
    Choose("displayCombo", 1);

    struct SRow {
        bool plug;
        std::vector<size_t> displays; // one burst
        QStringList rows;
        QString selected;
        const char* notice;
    };
    const SRow rows[] = {
        {false, {0}, {all[1], all[2]}, all[1], "was unplugged"},
        {true, {0}, all, all[1], "was plugged in"},
        {false, {0, 2}, {all[1]}, all[1], "was unplugged"},
        {true, {2, 0}, all, all[1], "was plugged in"},
        // The selected display leaves: the first one left is selected.
        {false, {1}, {all[0], all[2]}, all[0], "was unplugged"},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.rows.join(QLatin1Char(',')).toStdString());
        for (size_t display : row.displays) {
            row.plug ? Platform().Replug(display) : Platform().Unplug(display);
        }
        Settle(*watcher);
        EXPECT_EQ(Rows("displayCombo"), row.rows);
        EXPECT_EQ(tray.Menu().findChildren<QSlider*>().size(), row.rows.size());
        EXPECT_EQ(Find<QComboBox>("displayCombo")->currentText(), row.selected);
        EXPECT_EQ(
            QString::fromStdWString(Dialog().DisplayConfigIF()->CurrentDisplayInfo().monitorName),
            row.selected);
        EXPECT_TRUE(Dialog().LastHotplugNotice().contains(QLatin1String(row.notice)))
            << Dialog().LastHotplugNotice().toStdString();
    }
    EXPECT_FALSE(Dialog().Ended());
    // The last display leaving ends the program as a start without displays does.
    Platform().Unplug(0);
    Platform().Unplug(2);
    Settle(*watcher);
    EXPECT_TRUE(Dialog().Ended());
}

#include "DialogHarness.h"

#include "app/CProfileControl.h"
#include "app/CTrayControl.h"

#include <QMenu>
#include <QTest>

#include <fstream>

namespace {

constexpr uint8_t kBrightness = 0x10;

class ProfileControlTest : public DialogTest {};

} // namespace

TEST_F(ProfileControlTest, AProfileAppliesLikeTheUsersOwnChangesAndOnlyToItsModel) {
    ASSERT_TRUE(Start("Birch@ftdi"));
    auto* control = Find<CProfileControl>("profileButton");
    QString message;
    Enter("brightnessEdit", QStringLiteral("20"));
    ASSERT_TRUE(control->SaveCurrent(QStringLiteral("night"), message)) << message.toStdString();
    Enter("brightnessEdit", QStringLiteral("80"));
    QTest::mouseClick(Find<QPushButton>("saveButton"), Qt::LeftButton);

    // An applied profile is an unsaved change that Revert takes back.
    ASSERT_TRUE(control->Apply(QStringLiteral("night"), message)) << message.toStdString();
    EXPECT_EQ(ScalerValue(0, kBrightness), 20);
    EXPECT_EQ(Find<QLineEdit>("brightnessEdit")->text(), QStringLiteral("20"));
    EXPECT_EQ(Platform().Display(0).Scaler().Saved(kBrightness), 80);
    EXPECT_TRUE(Find<QPushButton>("saveButton")->isEnabled());
    QTest::mouseClick(Find<QPushButton>("revertButton"), Qt::LeftButton);
    EXPECT_EQ(ScalerValue(0, kBrightness), 80);

    // A profile of another model is neither offered nor applied.
    std::ofstream(
        mSettingsFolder->filePath(QStringLiteral("paneltune/profiles/other.profile")).toStdString())
        << "model = PDX-0000\nserial = X\nbrightness = 5\n";
    EXPECT_EQ(control->FittingNames(), QStringList{QStringLiteral("night")});
    EXPECT_FALSE(control->Apply(QStringLiteral("other"), message));
    EXPECT_TRUE(message.contains(QStringLiteral("PDX-0000"))) << message.toStdString();
    EXPECT_EQ(ScalerValue(0, kBrightness), 80);

    // The tray's menu offers and applies the same profiles.
    CTrayControl tray(Dialog(), true);
    tray.Rebuild();
    const QList<QMenu*> trayProfiles = tray.Menu().findChildren<QMenu*>();
    ASSERT_EQ(trayProfiles.size(), 1);
    ASSERT_EQ(trayProfiles[0]->actions().size(), 1);
    trayProfiles[0]->actions()[0]->trigger();
    EXPECT_EQ(ScalerValue(0, kBrightness), 20);

    ASSERT_TRUE(control->Remove(QStringLiteral("night"), message));
    EXPECT_TRUE(control->FittingNames().isEmpty());
}

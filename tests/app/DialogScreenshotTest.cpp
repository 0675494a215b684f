#include "app/CAdvancedDialog.h"
#include "app/CColorSettingsDialog.h"

#include "DialogHarness.h"
#include "DialogTestSupport.h"
#include "model/UiDisplayDelegate.h"

#include <QFileInfo>
#include <QLabel>
#include <QPixmap>

#include <gtest/gtest.h>

namespace {

// Pictures of both dialogs for people to look at, under the build folder.
void ExpectScreenshot(QWidget& widget_I, const std::string& name_I) {
    SaveScreenshot(widget_I, name_I);
    EXPECT_TRUE(
        QFileInfo::exists(ScreenshotFolder() + "/" + QString::fromStdString(name_I) + ".png"))
        << name_I;
}

// Whether every visible label shows its whole text.
void ExpectNothingClipped(QWidget& dialog_I, const std::string& what_I) {
    for (QLabel* label : dialog_I.findChildren<QLabel*>()) {
        if (label->isVisible()) {
            EXPECT_GE(label->width(), label->sizeHint().width())
                << what_I << ": " << label->text().toStdString();
        }
    }
}

TEST(DialogScreenshotTest, BothDialogsForSeveralFamiliesAndLanguages) {
    EnsureTestApplication();
    const char* families[] = {"ElmLarge@video", "Birch@ftdi", "Aspen@serial", "FirSmall@ftdi",
                              "ElmSmall@ftdi"};
    const char* languages[] = {"en", "de", "ja"};
    for (const char* language : languages) {
        for (const char* family : families) {
            const std::string name =
                std::string(family).substr(0, std::string(family).find('@')) + "-" + language;
            CDialogRig rig(family, language);
            CRecordingOwner owner;
            CAdvancedDialog advanced(rig.Options(), rig.Config(), &owner,
                                     std::make_unique<CManualTickTimer>());
            advanced.ShowAdvanced(true);
            ExpectNothingClipped(advanced, "advanced " + name);
            ExpectScreenshot(advanced, "advanced-" + name);
            advanced.Close();

            rig.Display().LoadColorMods(eColorMod_Gain);
            CColorSettingsDialog color(rig.Options(), rig.Config(), &owner);
            color.Open();
            color.show();
            ExpectNothingClipped(color, "colour " + name);
            ExpectScreenshot(color, "color-" + name);
            color.CloseColorDialog(false);
        }
    }
}

} // namespace

#include "DialogHarness.h"

#include <QFileInfo>
#include <QLabel>

namespace {

// Pictures of both dialogs for people to look at, under the build folder, with every visible
// label showing its whole text.
void ExpectWholeTextsAndScreenshot(QWidget& dialog_I, const std::string& name_I) {
    for (QLabel* label : dialog_I.findChildren<QLabel*>()) {
        if (label->isVisible()) {
            EXPECT_GE(label->width(), label->sizeHint().width())
                << name_I << ": " << label->text().toStdString();
        }
    }
    SaveScreenshot(dialog_I, name_I);
    EXPECT_TRUE(
        QFileInfo::exists(ScreenshotFolder() + "/" + QString::fromStdString(name_I) + ".png"))
        << name_I;
}

class DialogScreenshotTest : public DialogTest {};

TEST_F(DialogScreenshotTest, BothDialogsForSeveralFamiliesAndLanguages) {
    const char* families[] = {"ElmLarge@video", "Birch@ftdi", "Aspen@serial", "FirSmall@ftdi",
                              "ElmSmall@ftdi"};
    for (const char* language : {"en", "de", "ja"}) {
        for (const std::string family : families) {
            const std::string name = family.substr(0, family.find('@')) + "-" + language;
            mDialog.reset();
            ASSERT_TRUE(Start(family, language));
            ExpectWholeTextsAndScreenshot(OpenAdvanced(), "advanced-" + name);
            RunColorDialog(
                [&](QDialog& color) { ExpectWholeTextsAndScreenshot(color, "color-" + name); });
        }
    }
}

} // namespace

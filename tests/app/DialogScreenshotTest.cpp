#include "DialogHarness.h"

#include "resources/LanguageTable.h"

#include <QLabel>

namespace {

// Whether every visible label and button holds its whole text; a widget of fixed width only has
// to hold its text.
void ExpectWholeTexts(QWidget& dialog_I, const std::string& name_I) {
    for (QWidget* widget : dialog_I.findChildren<QWidget*>()) {
        auto* label = qobject_cast<QLabel*>(widget);
        auto* button = qobject_cast<QPushButton*>(widget);
        if ((label == nullptr && button == nullptr) || !widget->isVisibleTo(&dialog_I)) {
            continue;
        }
        const QString text = label ? label->text() : button->text();
        EXPECT_FALSE(text.isEmpty()) << name_I << ": " << widget->objectName().toStdString();
        const bool fixed = widget->minimumWidth() == widget->maximumWidth();
        EXPECT_GE(widget->width(), fixed ? widget->fontMetrics().horizontalAdvance(text)
                                         : widget->minimumSizeHint().width())
            << name_I << ": " << text.toStdString();
    }
}

class DialogScreenshotTest : public DialogTest {};

// Every translated language on the families whose rows differ most: labels come from the table,
// and nothing is cut. The pictures, for people to look at, go under the build folder.
TEST_F(DialogScreenshotTest, EveryLanguageFitsItsTextsInEveryDialog) {
    const char* families[] = {"ElmLarge@video", "Birch@ftdi", "Aspen@serial", "FirSmall@ftdi",
                              "ElmSmall@ftdi"};
    for (const SLanguageRow& row : kLanguageRows) {
        if (!row.translated) {
            continue;
        }
        // Every family in the pictured languages, the fullest elsewhere.
        const std::string language(row.name);
        const bool pictured = language == "en" || language == "de" || language == "ja";
        for (const std::string family : families) {
            if (!pictured && family != families[0]) {
                continue;
            }
            const std::string name = family.substr(0, family.find('@')) + "-" + language;
            SCOPED_TRACE(name);
            mDialog.reset();
            ASSERT_TRUE(Start(family, language));
            Dialog().adjustSize();
            if (language != "en") {
                EXPECT_NE(Find<QLabel>("brightnessLabel")->text(), QStringLiteral("Brightness:"));
            }
            ExpectWholeTexts(Dialog(), "main " + name);
            // The "?" is narrower than the buttons beside it, and of their height on their row.
            const QRect help = Find<QPushButton>("helpButton")->geometry();
            const QRect advancedButton = Find<QPushButton>("advancedButton")->geometry();
            EXPECT_LT(help.width(), advancedButton.width());
            EXPECT_EQ(help.height(), advancedButton.height());
            EXPECT_EQ(help.center().y(), advancedButton.center().y());
            SaveScreenshot(Dialog(), "main-" + name);

            QDialog& advanced = OpenAdvanced();
            ExpectWholeTexts(advanced, "advanced " + name);
            SaveScreenshot(advanced, "advanced-" + name);
            RunColorDialog([&](QDialog& color) {
                ExpectWholeTexts(color, "colour " + name);
                SaveScreenshot(color, "color-" + name);
            });
        }
    }
}

} // namespace

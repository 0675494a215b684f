#include "app/QtTranslations.h"

#include "DialogHarness.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

struct STranslationCase {
    const char* language;
    const char* yes;
};

// The standard buttons come from Qt's catalogue of the program's language.
TEST(QtTranslationsTest, StandardButtonsSpeakTheChosenLanguage) {
    TestApplication();
    const QDir folder(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (!folder.exists(QStringLiteral("qtbase_de.qm"))) {
        GTEST_SKIP() << "Qt's translations are not installed (qt6-translations-l10n)";
    }
    const STranslationCase cases[] = {
        {"de", "&Ja"}, {"fr", "&Oui"}, {"ru", "&Да"}, {"en", "&Yes"}, {"xx", "&Yes"}};
    for (const STranslationCase& c : cases) {
        QTranslator* translator = InstallQtTranslations(c.language);
        EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "&Yes").toStdString(), c.yes)
            << c.language;
        if (translator != nullptr) {
            QCoreApplication::removeTranslator(translator);
            delete translator;
        }
    }
}

} // namespace

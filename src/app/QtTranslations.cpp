#include "app/QtTranslations.h"

#include "foundation/Trace.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

QTranslator* InstallQtTranslations(const std::string& languageName_I) {
    const QLocale locale(QString::fromStdString(languageName_I));
    if (locale.language() == QLocale::English) {
        return nullptr;
    }
    // Owned by the application, which keeps it as long as it runs.
    auto* translator = new QTranslator(QCoreApplication::instance());
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!translator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), folder)) {
        Trace("No Qt translations for %s in %s\n", languageName_I.c_str(),
              folder.toStdString().c_str());
        delete translator;
        return nullptr;
    }
    QCoreApplication::installTranslator(translator);
    return translator;
}

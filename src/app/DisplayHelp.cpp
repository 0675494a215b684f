#include "app/DisplayHelp.h"

#include "app/QtUHMappingUtils.h"
#include "model/UiDisplayDelegate.h"

#include <QCoreApplication>
#include <QDir>

std::string HelpLanguageName(const LanguageProvider& language_I) {
    if (language_I.mLanguage.translated || language_I.mLangTable.empty()) {
        return language_I.mLanguage.name;
    }
    return language_I.mLangTable.front().name;
}

std::string HelpInstallFolder() {
    const QDir program(QCoreApplication::applicationDirPath());
    const QString shared = program.filePath("../share/paneltune");
    return QDir::cleanPath(QDir(shared).exists() ? shared : program.path()).toStdString();
}

bool OpenDisplayHelp(const SDisplayConfigOptions& options_I, const UiDisplayDelegate* display_I) {
    const std::string model = display_I != nullptr ? display_I->GetModelNumber() : std::string();
    return OpenHelp(HelpLanguageName(options_I.language), model, kHelpTopicOSD,
                    HelpInstallFolder());
}

#include "app/DisplayHelp.h"

#include "app/QtUHMappingUtils.h"
#include "foundation/StringUtilities.h"
#include "model/UiDisplayDelegate.h"
#include "platform/linux/LinuxSystemServices.h"

std::string HelpLanguageName(const LanguageProvider& language_I) {
    if (language_I.mLanguage.translated || language_I.mLangTable.empty()) {
        return language_I.mLanguage.name;
    }
    return language_I.mLangTable.front().name;
}

std::string HelpInstallFolder() {
    return ToNarrow(LinuxUtils::InstallFolder());
}

bool OpenDisplayHelp(const SDisplayConfigOptions& options_I, const UiDisplayDelegate* display_I) {
    const std::string model = display_I != nullptr ? display_I->GetModelNumber() : std::string();
    return OpenHelp(HelpLanguageName(options_I.language), model, kHelpTopicOSD,
                    HelpInstallFolder());
}

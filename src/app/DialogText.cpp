#include "app/DialogText.h"

#include "resources/CResourceModule.h"
#include "resources/ResourceLookup.h"

QString DialogText(const SDisplayConfigOptions& options_I, uint32_t stringId_I) {
    return QString::fromStdWString(GetTableString(
        stringId_I, options_I.language.mLanguage.languageId, true, ProgramResources()));
}

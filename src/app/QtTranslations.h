#pragma once
// Qt's own texts (the standard buttons Yes, No, OK, Cancel, the edits' context menus) in the
// program's language, from the translations Qt installs (Debian: qt6-translations-l10n).

#include <string>

class QTranslator;

// Installs the catalogue of a language name such as "de" or "zh_CN" on the application and
// returns it, owned by the application; null, traced, when Qt has none for it (English needs
// none).
QTranslator* InstallQtTranslations(const std::string& languageName_I);

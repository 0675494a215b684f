#pragma once
// The "?" of the main dialog: the user help of the current display's model, in the language of
// the run.

#include "discovery/SDisplayConfigOptions.h"

#include <string>

class UiDisplayDelegate;

// The language's own name when the program is translated into it, otherwise that of the
// table's first row.
std::string HelpLanguageName(const LanguageProvider& language_I);

// The folder that holds the installed help: <prefix>/share/paneltune beside <prefix>/bin, or the
// program's own folder in a build tree.
std::string HelpInstallFolder();

// Opens the help; a missing display asks for the page of no model.
bool OpenDisplayHelp(const SDisplayConfigOptions& options_I, const UiDisplayDelegate* display_I);

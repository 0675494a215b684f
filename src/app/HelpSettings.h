#pragma once
// Where the online help lives and how its visits are labelled: product data with defaults here,
// which a setting of the same name overrides.

#include <string>

struct SHelpSettings {
    // Ends with "/"; the language's folder follows under "UserHelp/".
    std::string serverRoot = "https://help.vorex.com/";
    // The product's name as the help server's statistics know it.
    std::string trackingSource = "Vorex Display Settings";
};

// The defaults above with what the program's settings (group "Help", keys "ServerRoot" and
// "TrackingSource") say instead.
SHelpSettings LoadHelpSettings();

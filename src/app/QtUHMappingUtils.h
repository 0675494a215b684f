#pragma once
// The platform's part of the help mapping, over Qt: a network request tells whether the help
// server answers, the installed help lies under the program's data folder, the redirect page is
// a private temporary file, and the system's browser opens the result. Reaching the server and
// opening the browser are functions a test can replace.

#include "app/UHMappingUtils.h"

#include <functional>
#include <string>

class QtUHMappingUtils final : public UHMappingUtils {
public:
    using ReachableFunction = std::function<bool(const std::string& url_I)>;
    using OpenFunction = std::function<bool(const std::string& url_I)>;

    struct SServices {
        ReachableFunction reachable;
        OpenFunction open;
        // Holds "UserHelp/"; no trailing "/" needed.
        std::string installFolder;
        // Where the redirect page goes; the user's runtime folder when empty.
        std::string temporaryFolder;
    };

    // The program's own services: the network, the browser, and the installed data folder
    // given.
    static SServices SystemServices(const std::string& installFolder_I);

    QtUHMappingUtils(SHelpSettings settings_I, SServices services_I);

    bool IsReachable(const std::string& url_I) override;
    bool LocalFileExists(const std::string& url_I) override;
    bool OpenUrl(const std::string& url_I) override;
    std::string WriteRedirectFile(const std::string& url_I) override;
    std::string LocalHelpRoot() override;

private:
    SServices mServices;
};

// What the "?" button does: build the address of the model's help in the language and open it;
// installFolder_I holds the installed copy of the help.
bool OpenHelp(const std::string& language_I, const std::string& model_I, const std::string& topic_I,
              const std::string& installFolder_I);
// The same over given mapping utilities.
bool OpenHelp(UHMappingUtils& utils_I, const std::string& language_I, const std::string& model_I,
              const std::string& topic_I);
// Removes the redirect pages written so far; the program does this as it ends.
void RemoveRedirectPages();

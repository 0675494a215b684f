#pragma once
// Turns a model, a language and a topic into the address of the product's user help: the help
// server's page when it answers, otherwise the copy installed beside the program, wrapped in a
// small redirect page because a browser drops the query of a file address. The platform's
// part (reaching the server, files, the browser) is left to a child.

#include "app/HelpSettings.h"

#include <map>
#include <string>

class UHMappingUtils {
public:
    explicit UHMappingUtils(SHelpSettings settings_I);
    virtual ~UHMappingUtils();
    UHMappingUtils(const UHMappingUtils&) = delete;
    UHMappingUtils& operator=(const UHMappingUtils&) = delete;

    // Whether the server answers the address with status 200.
    virtual bool IsReachable(const std::string& url_I) = 0;
    // Whether the file a file address names exists; its query is ignored.
    virtual bool LocalFileExists(const std::string& url_I) = 0;
    virtual bool OpenUrl(const std::string& url_I) = 0;
    // The name of a temporary page that sends the browser on to the address; empty on failure.
    virtual std::string WriteRedirectFile(const std::string& url_I) = 0;
    // The file address of the installed help's folder, ending with "/".
    virtual std::string LocalHelpRoot() = 0;

    // The address to open; empty when the server does not answer and no installed page exists,
    // or when the local fallback's page can't be written.
    std::string BuildUrl(const std::string& language_I, const std::string& model_I,
                         const std::string& topic_I);
    std::string TrackingQuery(const std::string& model_I, const std::string& topic_I) const;

private:
    std::map<std::string, std::string> mTopicPages;
    SHelpSettings mSettings;
};

// Text as it may stand in an address: letters, digits and "-._~" stay, every other byte of its
// UTF-8 form becomes %XX.
std::string PercentEncode(const std::string& text_I);

// The topic key the main dialog asks for.
inline constexpr const char* kHelpTopicOSD = "OSD";

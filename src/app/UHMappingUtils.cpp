#include "app/UHMappingUtils.h"

#include <cstdio>
#include <utility>

namespace {

constexpr const char* kHelpFolder = "UserHelp/";
constexpr const char* kTocFolder = "/TOC/";
constexpr const char* kPageExtension = ".html";
constexpr const char* kEmptyModelPage = "none.html";
constexpr const char* kOfflinePageSuffix = "_offline.htm";

bool IsUnreserved(unsigned char c_I) {
    return (c_I >= 'A' && c_I <= 'Z') || (c_I >= 'a' && c_I <= 'z') || (c_I >= '0' && c_I <= '9') ||
           c_I == '-' || c_I == '.' || c_I == '_' || c_I == '~';
}

} // namespace

std::string PercentEncode(const std::string& text_I) {
    std::string encoded;
    for (const char c : text_I) {
        const auto byte = static_cast<unsigned char>(c);
        if (IsUnreserved(byte)) {
            encoded += c;
            continue;
        }
        char buffer[4];
        std::snprintf(buffer, sizeof(buffer), "%%%02X", byte);
        encoded += buffer;
    }
    return encoded;
}

UHMappingUtils::UHMappingUtils(SHelpSettings settings_I)
    : mTopicPages{{kHelpTopicOSD, "OSD"}}, mSettings(std::move(settings_I)) {}

UHMappingUtils::~UHMappingUtils() = default;

std::string UHMappingUtils::TrackingQuery(const std::string& model_I,
                                          const std::string& topic_I) const {
    std::string query =
        "?utm_source=" + PercentEncode(mSettings.trackingSource) +
        "&utm_medium=application&utm_content=online%20help&utm_campaign=" + PercentEncode(model_I);
    const auto page = mTopicPages.find(topic_I);
    if (page != mTopicPages.end() && !page->second.empty()) {
        query += "&topicid=" + page->second;
    }
    return query;
}

std::string UHMappingUtils::BuildUrl(const std::string& language_I, const std::string& model_I,
                                     const std::string& topic_I) {
    const std::string query = TrackingQuery(model_I, topic_I);
    const std::string page =
        model_I.empty() ? kEmptyModelPage : PercentEncode(model_I) + kPageExtension;
    const std::string remote =
        mSettings.serverRoot + kHelpFolder + language_I + kTocFolder + page + query;
    if (IsReachable(remote)) {
        return remote;
    }
    const std::string localRoot = LocalHelpRoot();
    std::string local = localRoot + language_I + kTocFolder + page + query;
    if (!LocalFileExists(local)) {
        local = localRoot + language_I + kOfflinePageSuffix;
        // Nothing to show: the caller tells the user rather than open a browser on nothing.
        if (!LocalFileExists(local)) {
            return {};
        }
    }
    return WriteRedirectFile(local);
}

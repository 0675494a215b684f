#include "app/QtUHMappingUtils.h"

#include "app/NetworkProbe.h"
#include "app/RuntimeFolder.h"
#include "foundation/Trace.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QUrl>

#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr const char* kRedirectTemplate = "OUHXXXXXX.html";

QUrl ToUrl(const std::string& address_I) {
    const QString text = QString::fromStdString(address_I);
    // The redirect page is a plain file name.
    if (QDir::isAbsolutePath(text)) {
        return QUrl::fromLocalFile(text);
    }
    return QUrl(text);
}

} // namespace

QtUHMappingUtils::SServices QtUHMappingUtils::SystemServices(const std::string& installFolder_I) {
    SServices services;
    services.reachable = [](const std::string& url_I) { return IsUrlReachable(url_I); };
    services.open = [](const std::string& url_I) {
        return QDesktopServices::openUrl(ToUrl(url_I));
    };
    services.installFolder = installFolder_I;
    return services;
}

QtUHMappingUtils::QtUHMappingUtils(SHelpSettings settings_I, SServices services_I)
    : UHMappingUtils(std::move(settings_I)), mServices(std::move(services_I)) {}

bool QtUHMappingUtils::IsReachable(const std::string& url_I) {
    return mServices.reachable && mServices.reachable(url_I);
}

bool QtUHMappingUtils::LocalFileExists(const std::string& url_I) {
    const std::string withoutQuery = url_I.substr(0, url_I.find('?'));
    const QUrl url(QString::fromStdString(withoutQuery));
    if (!url.isLocalFile()) {
        return false;
    }
    return QFileInfo::exists(url.toLocalFile());
}

bool QtUHMappingUtils::OpenUrl(const std::string& url_I) {
    return mServices.open && mServices.open(url_I);
}

// The browser reads a page after the help call has returned, so the pages live as long as the
// program and go with it.
static std::vector<std::unique_ptr<QTemporaryFile>>& RedirectPages() {
    static std::vector<std::unique_ptr<QTemporaryFile>> pages;
    return pages;
}

void RemoveRedirectPages() {
    RedirectPages().clear();
}

std::string QtUHMappingUtils::WriteRedirectFile(const std::string& url_I) {
    QString folder = QString::fromStdString(mServices.temporaryFolder);
    if (folder.isEmpty()) {
        folder = RuntimeFolder();
    }
    if (folder.isEmpty()) {
        folder = QDir::tempPath();
    }
    auto owned = std::make_unique<QTemporaryFile>(QDir(folder).filePath(kRedirectTemplate));
    QTemporaryFile& file = *owned;
    if (!file.open()) {
        return {};
    }
    const std::string name = file.fileName().toStdString();
    const std::string page =
        "<html><head><meta http-equiv=\"refresh\" content=\"0;URL=" + url_I + "\"></head></html>";
    Trace("Writing %s to %s\n", page.c_str(), name.c_str());
    if (file.write(page.data(), static_cast<qint64>(page.size())) !=
            static_cast<qint64>(page.size()) ||
        !file.flush()) {
        return {};
    }
    file.close();
    RedirectPages().push_back(std::move(owned));
    return name;
}

std::string QtUHMappingUtils::LocalHelpRoot() {
    const QString folder =
        QDir(QString::fromStdString(mServices.installFolder)).filePath("UserHelp");
    return QUrl::fromLocalFile(folder).toString(QUrl::FullyEncoded).toStdString() + "/";
}

bool OpenHelp(UHMappingUtils& utils_I, const std::string& language_I, const std::string& model_I,
              const std::string& topic_I) {
    const std::string url = utils_I.BuildUrl(language_I, model_I, topic_I);
    return !url.empty() && utils_I.OpenUrl(url);
}

bool OpenHelp(const std::string& language_I, const std::string& model_I, const std::string& topic_I,
              const std::string& installFolder_I) {
    QtUHMappingUtils utils(LoadHelpSettings(), QtUHMappingUtils::SystemServices(installFolder_I));
    return OpenHelp(utils, language_I, model_I, topic_I);
}

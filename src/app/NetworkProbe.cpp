#include "app/NetworkProbe.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace {

constexpr int kHttpOk = 200;

} // namespace

bool IsUrlReachable(const std::string& url_I, int timeoutMs_I) {
    const QUrl url(QString::fromStdString(url_I));
    if (!url.isValid()) {
        return false;
    }
    QNetworkAccessManager manager;
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setTransferTimeout(timeoutMs_I);
    QNetworkReply* reply = manager.head(request);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished()) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool reachable = reply->error() == QNetworkReply::NoError && status == kHttpOk;
    reply->deleteLater();
    return reachable;
}

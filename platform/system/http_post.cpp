#include "platform/system/http_post.h"

#include "platform/runtime/error.h"
#include "resources/texts.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>

namespace quillon::system {

namespace {

constexpr int TimeoutMilliseconds = 60'000;

[[noreturn]] void fail(const QString &address, const QString &reason) {
    throw runtime::Error(runtime::error_number::DeviceIo,
                         resources::texts::CannotSend.toString().arg(address, reason));
}

} // namespace

HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType) {
    const QUrl url(address, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() ||
        (url.scheme() != QLatin1String("http") && url.scheme() != QLatin1String("https")))
        fail(address, resources::texts::BadAddress.toString());
    QNetworkAccessManager manager;
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    request.setTransferTimeout(TimeoutMilliseconds);
    QNetworkReply *const reply = manager.post(request, body);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid())
        fail(address, reply->errorString());
    return {status.toInt(), reply->readAll()};
}

} // namespace quillon::system

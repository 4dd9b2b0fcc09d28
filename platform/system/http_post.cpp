#include "platform/system/http_post.h"

#include "platform/runtime/error.h"
#include "resources/texts.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

namespace quillon::system {

namespace {

constexpr int TimeoutMilliseconds = 60'000;
constexpr int ProgressMilliseconds = 50;

[[noreturn]] void fail(const QString &address, const QString &reason) {
    throw runtime::Error(runtime::error_number::DeviceIo,
                         resources::texts::CannotSend.toString().arg(address, reason));
}

} // namespace

HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType,
                      const runtime::Progress &progress) {
    const QUrl url(address.trimmed(), QUrl::StrictMode);
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
    bool cancelled = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (cancelled || !progress || progress(runtime::UnknownProgress))
            return;
        cancelled = true;
        reply->abort();
    });
    timer.start(ProgressMilliseconds);
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (cancelled)
        runtime::raise(runtime::error_number::Cancelled);
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid())
        fail(address, reply->errorString());
    return {status.toInt(), reply->readAll()};
}

} // namespace quillon::system

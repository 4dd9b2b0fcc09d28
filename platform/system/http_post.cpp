#include "platform/system/http_post.h"

#include "platform/runtime/error.h"
#include "resources/texts.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

namespace quillon::system {

namespace {

constexpr int TimeoutMilliseconds = 60'000;
constexpr int ProgressMilliseconds = 50;
constexpr int MostRedirects = 10;

[[noreturn]] void fail(const QString &address, const QString &reason) {
    throw runtime::Error(runtime::error_number::DeviceIo,
                         resources::texts::CannotSend.toString().arg(address, reason));
}

bool isWebAddress(const QUrl &url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

bool isSamePlace(const QUrl &a, const QUrl &b) {
    const auto port = [](const QUrl &url) {
        return url.port(url.scheme() == QLatin1String("https") ? 443 : 80);
    };
    return a.scheme() == b.scheme() && a.host() == b.host() && port(a) == port(b);
}

bool isRedirect(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

struct Request {
    QUrl url;
    /// Without it the request is a GET.
    const QByteArray *body;
    QString contentType;
};

struct Answer {
    HttpResponse response;
    QUrl redirect;
};

Answer perform(const Request &asked, const runtime::Progress &progress) {
    QNetworkAccessManager manager;
    QNetworkRequest request(asked.url);
    request.setTransferTimeout(TimeoutMilliseconds);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    if (asked.body)
        request.setHeader(QNetworkRequest::ContentTypeHeader, asked.contentType);
    QNetworkReply *const reply =
        asked.body ? manager.post(request, *asked.body) : manager.get(request);
    reply->setReadBufferSize(LongestAnswer);

    Answer answer;
    QEventLoop loop;
    const auto read = [&] {
        answer.response.body += reply->read(LongestAnswer - answer.response.body.size());
        if (answer.response.body.size() == LongestAnswer)
            loop.quit();
    };
    QObject::connect(reply, &QNetworkReply::readyRead, &loop, read);
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    bool cancelled = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        cancelled = cancelled || (progress && !progress(runtime::UnknownProgress));
        if (cancelled)
            loop.quit();
    });
    timer.start(ProgressMilliseconds);
    if (!reply->isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (cancelled)
        runtime::raise(runtime::error_number::Cancelled);
    read();

    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid())
        fail(asked.url.toDisplayString(), reply->errorString());
    answer.response.status = status.toInt();
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (isRedirect(answer.response.status) && !target.isEmpty())
        answer.redirect = asked.url.resolved(target);
    return answer;
}

} // namespace

HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType,
                      const AllowRedirect &allow, const RunRequest &run) {
    Request request{QUrl(address.trimmed(), QUrl::StrictMode), &body, contentType};
    if (!isWebAddress(request.url))
        fail(address, resources::texts::BadAddress.toString());
    for (int redirects = 0; redirects <= MostRedirects; ++redirects) {
        Answer answer;
        run([&](const runtime::Progress &progress) { answer = perform(request, progress); });
        if (answer.redirect.isEmpty())
            return std::move(answer.response);
        if (!isWebAddress(answer.redirect))
            fail(answer.redirect.toDisplayString(), resources::texts::BadAddress.toString());
        const bool keepsMethod = answer.response.status == 307 || answer.response.status == 308;
        if (!keepsMethod)
            request.body = nullptr;
        if (!isSamePlace(request.url, answer.redirect) &&
            !allow(answer.redirect, request.body != nullptr))
            runtime::raise(runtime::error_number::Cancelled);
        request.url = answer.redirect;
    }
    fail(address, resources::texts::TooManyRedirects.toString());
}

} // namespace quillon::system

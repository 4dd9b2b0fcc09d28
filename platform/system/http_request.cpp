#include "platform/system/http_request.h"

#include "platform/runtime/error.h"
#include "resources/schema_link_texts.h"
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

bool isWebAddress(const QUrl &url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

bool isSecureAddress(const QUrl &url) {
    return isWebAddress(url) && url.scheme() == QLatin1String("https");
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
    /// What is said when it fails: of the address, and why.
    resources::Text failure;
    /// To what addresses it may go.
    bool (*isAddress)(const QUrl &url);
    /// Without it the request is a GET.
    const QByteArray *body;
    QString contentType;
};

[[noreturn]] void fail(const Request &request, const QString &address, const QString &reason) {
    throw runtime::Error(runtime::error_number::DeviceIo,
                         request.failure.toString().arg(address, reason));
}

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
        fail(asked, asked.url.toDisplayString(), reply->errorString());
    answer.response.status = status.toInt();
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (isRedirect(answer.response.status) && !target.isEmpty())
        answer.redirect = asked.url.resolved(target);
    return answer;
}

HttpResponse exchange(Request request, const QString &address, const AllowRedirect &allow,
                      const RunRequest &run) {
    if (!request.isAddress(request.url))
        fail(request, address, resources::texts::BadAddress.toString());
    for (int redirects = 0; redirects <= MostRedirects; ++redirects) {
        Answer answer;
        run([&](const runtime::Progress &progress) { answer = perform(request, progress); });
        if (answer.redirect.isEmpty())
            return std::move(answer.response);
        if (!request.isAddress(answer.redirect))
            fail(request, answer.redirect.toDisplayString(),
                 resources::texts::BadAddress.toString());
        const bool keepsMethod = answer.response.status == 307 || answer.response.status == 308;
        if (!keepsMethod)
            request.body = nullptr;
        if (!isSamePlace(request.url, answer.redirect) &&
            !allow(answer.redirect, request.body != nullptr))
            runtime::raise(runtime::error_number::Cancelled);
        request.url = answer.redirect;
    }
    fail(request, address, resources::texts::TooManyRedirects.toString());
}

} // namespace

QUrl webAddress(const QString &text) {
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    return isWebAddress(url) ? url : QUrl();
}

HttpResponse httpPost(const QString &address, const QByteArray &body, const QString &contentType,
                      const AllowRedirect &allow, const RunRequest &run) {
    return exchange(
        {webAddress(address), resources::texts::CannotSend, isWebAddress, &body, contentType},
        address, allow, run);
}

HttpResponse httpsGet(const QString &address, const AllowRedirect &allow, const RunRequest &run) {
    return exchange({QUrl(address, QUrl::StrictMode),
                     resources::schema_link_texts::CannotFetch,
                     isSecureAddress,
                     nullptr,
                     {}},
                    address, allow, run);
}

} // namespace quillon::system

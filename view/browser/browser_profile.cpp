#include "view/browser/browser_profile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <unistd.h>

namespace quillon::browser {

namespace {

constexpr char Scheme[] = "quillon-preview";

/// Closes the network to the browser at the root: no name is found, connections go through a proxy
/// that does not exist, and connections between peers, which no request filter sees, have no
/// other way.
constexpr char NoNetwork[] = " --host-resolver-rules=\"MAP * ~NOTFOUND\""
                             " --proxy-server=socks5://nowhere.invalid:9"
                             " --proxy-bypass-list=<-loopback>"
                             " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
                             " --dns-prefetch-disable --disable-quic";

/// The environment that the browser reads when its first profile is made. Programs that are
/// started later must not inherit it: the desktop's browser may be of the same family.
class BrowserEnvironment {
public:
    BrowserEnvironment() : flags_(qgetenv(Flags)), sandbox_(qgetenv(Sandbox)) {
        qputenv(Flags, flags_ + NoNetwork);
        // Where it cannot work.
        if (::geteuid() == 0)
            qputenv(Sandbox, "1");
    }
    ~BrowserEnvironment() {
        restore(Flags, flags_);
        restore(Sandbox, sandbox_);
    }
    BrowserEnvironment(const BrowserEnvironment &) = delete;
    BrowserEnvironment &operator=(const BrowserEnvironment &) = delete;

private:
    static constexpr char Flags[] = "QTWEBENGINE_CHROMIUM_FLAGS";
    static constexpr char Sandbox[] = "QTWEBENGINE_DISABLE_SANDBOX";

    static void restore(const char *name, const QByteArray &value) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }

    const QByteArray flags_;
    const QByteArray sandbox_;
};

/// Lets requests through to the page's own files and nowhere else.
class OwnFilesOnly final : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo &info) override {
        const QString scheme = info.requestUrl().scheme();
        if (scheme != QLatin1String(Scheme) && scheme != QLatin1String("data") &&
            scheme != QLatin1String("about"))
            info.block(true);
    }
};

/// What a page of the program has no use for.
constexpr QWebEngineSettings::WebAttribute SwitchedOff[] = {
    QWebEngineSettings::AutoLoadIconsForPage,
    QWebEngineSettings::DnsPrefetchEnabled,
    QWebEngineSettings::HyperlinkAuditingEnabled,
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::JavascriptCanOpenWindows,
    QWebEngineSettings::JavascriptCanPaste,
    QWebEngineSettings::LocalContentCanAccessFileUrls,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::LocalStorageEnabled,
    QWebEngineSettings::NavigateOnDropEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::WebGLEnabled,
};

} // namespace

void prepareBrowser() {
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // Neither local nor secure: no way to files, and none of what only secure pages have.
    QWebEngineUrlScheme scheme(Scheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl PageFiles::serve(const QString &path, const QStringList &files, bool sameSubject) {
    path_ = path;
    files_ = files;
    if (!sameSubject)
        ++subject_;
    QUrl url;
    url.setScheme(QLatin1String(Scheme));
    url.setHost(QStringLiteral("page%1").arg(subject_));
    url.setPath(QLatin1Char('/') + QFileInfo(path).fileName());
    url.setQuery(QString::number(++pages_));
    return url;
}

void PageFiles::requestStarted(QWebEngineUrlRequestJob *job) {
    const QUrl url = job->requestUrl();
    const QFileInfo page(path_);
    const QString name = url.path().mid(1);
    auto *file = new QFile(page.absolutePath() + QLatin1Char('/') + name, job);
    const bool ours = url.host() == QStringLiteral("page%1").arg(subject_) &&
                      (name == page.fileName() || files_.contains(name));
    if (!ours || !file->open(QIODevice::ReadOnly))
        return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    job->reply(
        QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension).name().toLatin1(),
        file);
}

std::unique_ptr<QWebEngineProfile> makeProfile(PageFiles *files) {
    const BrowserEnvironment environment;
    // Without a name a profile keeps nothing on disk.
    auto profile = std::make_unique<QWebEngineProfile>();
    files->setParent(profile.get());
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile->installUrlSchemeHandler(Scheme, files);
    profile->setUrlRequestInterceptor(new OwnFilesOnly(profile.get()));
    for (const QWebEngineSettings::WebAttribute attribute : SwitchedOff)
        profile->settings()->setAttribute(attribute, false);
    profile->settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    QObject::connect(profile.get(), &QWebEngineProfile::downloadRequested,
                     [](QWebEngineDownloadRequest *download) { download->cancel(); });
    return profile;
}

} // namespace quillon::browser

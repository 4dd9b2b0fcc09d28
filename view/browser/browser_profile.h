#pragma once

#include <QStringList>
#include <QUrl>
#include <QWebEngineProfile>
#include <QWebEngineUrlSchemeHandler>

#include <memory>

namespace quillon::browser {

/// What the browser pane needs of the process. Call once, before the application object is made.
void prepareBrowser();

/// Gives the pages of one browser what they are made of: the file shown, and those files of a
/// folder that belong to it. Every subject has addresses of its own, so that no page reads what
/// another one has stored.
class PageFiles final : public QWebEngineUrlSchemeHandler {
public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    /// Makes a file the page to be shown, which may use others of its folder, given by their
    /// names. Returns an address that is new.
    QUrl serve(const QString &path, const QStringList &files, bool sameSubject);

    void requestStarted(QWebEngineUrlRequestJob *job) override;

private:
    QString path_;
    QStringList files_;
    int subject_ = 0;
    int pages_ = 0;
};

/// A profile that keeps nothing on disk and lets pages read what the files give and nothing else:
/// no other scheme, no network, no download. Takes the files over.
std::unique_ptr<QWebEngineProfile> makeProfile(PageFiles *files);

} // namespace quillon::browser

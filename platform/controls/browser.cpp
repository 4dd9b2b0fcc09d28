#include "platform/controls/browser.h"

#include "resources/texts.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPrinter>
#include <QUuid>
#include <QVBoxLayout>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillon::controls {

namespace texts = resources::texts;

namespace {

/// Tells the page's clicks to the program. It runs in a world of its own: the page's own scripts
/// neither see it nor know the word with which it begins its messages.
QString clickReporter(const QString &word) {
    return QStringLiteral("document.addEventListener('click', function (event) {"
                          "  var at = event.target;"
                          "  if (at && at.id) console.log('%1' + at.id);"
                          "}, true);")
        .arg(word);
}

constexpr std::pair<QWebEnginePage::WebAction, QStringView> ContextMenu[] = {
    {QWebEnginePage::Reload, texts::BrowserReload},
    {QWebEnginePage::Copy, texts::BrowserCopy},
    {QWebEnginePage::SelectAll, texts::BrowserSelectAll},
    {QWebEnginePage::CopyLinkToClipboard, texts::BrowserCopyLink},
    {QWebEnginePage::CopyImageToClipboard, texts::BrowserCopyImage},
};

/// Lets through what stands in one folder and nothing else.
class FolderOnly final : public QWebEngineUrlRequestInterceptor {
public:
    FolderOnly(const QString &folder, QObject *parent)
        : QWebEngineUrlRequestInterceptor(parent), folder_(folder) {}

    void interceptRequest(QWebEngineUrlRequestInfo &info) override {
        const QUrl url = info.requestUrl();
        if (url.scheme() == QLatin1String("data") || url.scheme() == QLatin1String("about"))
            return;
        const QString path = QFileInfo(url.toLocalFile()).canonicalFilePath();
        const QString folder = QFileInfo(folder_).canonicalFilePath();
        if (!url.isLocalFile() || folder.isEmpty() || !path.startsWith(folder + QLatin1Char('/')))
            info.block(true);
    }

private:
    const QString &folder_;
};

} // namespace

class BrowserPage final : public QWebEnginePage {
public:
    BrowserPage(QWebEngineProfile *profile, Browser &browser)
        : QWebEnginePage(profile, &browser), browser_(browser),
          word_(QUuid::createUuid().toString(QUuid::Id128)) {
        QWebEngineScript script;
        script.setSourceCode(clickReporter(word_));
        script.setInjectionPoint(QWebEngineScript::DocumentReady);
        script.setWorldId(QWebEngineScript::ApplicationWorld);
        scripts().insert(script);
    }

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override {
        if (type != NavigationTypeLinkClicked)
            return true;
        if (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
            QDesktopServices::openUrl(url);
        // Within the page itself a link may lead anywhere.
        return isMainFrame &&
               url.adjusted(QUrl::RemoveFragment) == this->url().adjusted(QUrl::RemoveFragment);
    }
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &message, int,
                                  const QString &) override {
        if (message.startsWith(word_))
            Q_EMIT browser_.clicked(message.mid(word_.size()));
    }

private:
    Browser &browser_;
    const QString word_;
};

Browser::Browser(QWidget *parent) : QWidget(parent) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

Browser::~Browser() {
    // The page must go before its profile, which is a child of this widget, too.
    delete view_;
}

void Browser::makeView() {
    // Without a name a profile keeps nothing on disk.
    auto *profile = new QWebEngineProfile(this);
    profile->setUrlRequestInterceptor(new FolderOnly(folder_, profile));
    view_ = new QWebEngineView(this);
    auto *page = new BrowserPage(profile, *this);
    page->setParent(view_);
    view_->setPage(page);
    QWebEngineSettings *settings = page->settings();
    settings->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    connect(page, &QWebEnginePage::loadFinished, this, [this](bool ok) {
        loading_ = false;
        Q_EMIT NavigateComplete(ok);
        printNow();
    });
    connect(view_, &QWebEngineView::printFinished, this, [this] { printer_.reset(); });
    view_->setAccessibleName(accessibleName());
    view_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view_, &QWidget::customContextMenuRequested, this, &Browser::showContextMenu);
    layout()->addWidget(view_);
}

void Browser::showContextMenu(const QPoint &position) {
    QMenu *const menu = view_->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // Those that make sense for a page of the program, with texts that Qt has in English only.
    const QList<QAction *> offered = menu->actions();
    for (QAction *action : offered) {
        const auto kept = std::ranges::find_if(ContextMenu, [&](const auto &entry) {
            return action == view_->page()->action(entry.first);
        });
        if (kept == std::end(ContextMenu))
            menu->removeAction(action);
        else
            action->setText(kept->second.toString());
    }
    if (menu->isEmpty())
        menu->close();
    else
        menu->popup(view_->mapToGlobal(position));
}

void Browser::Navigate(const QString &path) {
    const bool blank = path == QLatin1String("about:blank");
    if (!view_ && blank)
        return;
    if (!view_)
        makeView();
    loading_ = true;
    view_->load(blank ? QUrl(path) : QUrl::fromLocalFile(path));
}

void Browser::print(std::unique_ptr<QPrinter> printer) {
    printer_ = std::move(printer);
    if (!loading_)
        printNow();
}

void Browser::printNow() {
    if (!printer_ || !view_)
        return;
    if (printer_->outputFormat() == QPrinter::PdfFormat) {
        // With text, where printing would paint a picture of the page.
        view_->page()->printToPdf(printer_->outputFileName(), printer_->pageLayout());
        printer_.reset();
    } else {
        view_->print(printer_.get());
    }
}

} // namespace quillon::controls

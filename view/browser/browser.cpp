#include "view/browser/browser.h"

#include "platform/runtime/error.h"
#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "resources/texts.h"
#include "view/browser/browser_page.h"
#include "view/browser/browser_profile.h"
#include "view/controls/printer_dialog.h"
#include "view/controls/theme.h"

#include <QAction>
#include <QDesktopServices>
#include <QFile>
#include <QMenu>
#include <QPrinter>
#include <QVBoxLayout>
#include <QWebEngineLoadingInfo>
#include <QWebEngineView>

#include <algorithm>
#include <csignal>
#include <iterator>
#include <utility>

namespace quillon::browser {

namespace texts = resources::texts;

namespace {

constexpr int PulseMs = 1000;
/// Questions without an answer after which a page is stopped: while it is shown, and while it is
/// printed, when it lays itself out for paper.
constexpr int Patience = 5;
constexpr int PrintingPatience = 60;

/// More of one page are not shown, nor longer ones: they would hide what the program has to say.
constexpr int MessagesOfPage = 10;
constexpr int MessageLength = 200;

/// A longer address than a message box shows in full is not opened.
constexpr int AddressLength = 900;

const QString Blank = QStringLiteral("about:blank");

constexpr std::pair<QWebEnginePage::WebAction, resources::Text> ContextMenu[] = {
    {QWebEnginePage::Copy, texts::BrowserCopy},
    {QWebEnginePage::SelectAll, texts::BrowserSelectAll},
    {QWebEnginePage::CopyLinkToClipboard, texts::BrowserCopyLink},
    {QWebEnginePage::CopyImageToClipboard, texts::BrowserCopyImage},
};

void savePdf(const QByteArray &pdf, const QString &path) {
    // A page that has died meanwhile has been told of.
    if (pdf.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.flush())
        throw runtime::Error(
            runtime::error_number::DeviceIo,
            texts::CannotWritePreview.toString().arg(file.fileName(), file.errorString()));
}

} // namespace

Browser::Browser(QWidget *parent) : QWidget(parent) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    connect(&controls::theme(), &controls::Theme::changed, this, [this] {
        if (!view_)
            return;
        showColours();
        if (colours_ == Colours::OfTheme && stage_ == Stage::Shown)
            page_->showTheme(controls::theme().isDark());
    });
    connect(&pulse_, &QTimer::timeout, this, &Browser::askForLife);
}

Browser::~Browser() {
    // The page must go before its profile.
    delete view_;
}

void Browser::setFiles(const QStringList &names) {
    fileNames_ = names;
}

void Browser::setZoom(double factor) {
    zoom_ = factor;
    if (view_)
        view_->setZoomFactor(zoom_);
}

void Browser::makeView() {
    files_ = new PageFiles;
    profile_ = makeProfile(files_);
    view_ = new QWebEngineView(this);
    page_ = new BrowserPage(profile_.get(), view_);
    view_->setPage(page_);
    connect(page_, &QWebEnginePage::loadingChanged, this, &Browser::loadingChanged);
    connect(page_, &BrowserPage::clicked, this, &Browser::clicked);
    connect(page_, &BrowserPage::moreWanted, this, &Browser::moreWanted);
    connect(page_, &BrowserPage::message, this, &Browser::showMessageOfPage);
    // A box must not open, nor a page be loaded, while the browser is telling what has happened.
    connect(
        page_, &BrowserPage::linkFollowed, this,
        [this](const QString &address) { ui::guarded([&] { offerLink(address); }); },
        Qt::QueuedConnection);
    connect(page_, &QWebEnginePage::renderProcessTerminated, this, [this] {
        dead_ = true;
        QMetaObject::invokeMethod(this, &Browser::pageDied, Qt::QueuedConnection);
    });
    connect(view_, &QWebEngineView::printFinished, this, &Browser::endPrinting);
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
        const auto kept = std::ranges::find_if(
            ContextMenu, [&](const auto &entry) { return action == page_->action(entry.first); });
        if (kept == std::end(ContextMenu))
            menu->removeAction(action);
        else
            action->setText(kept->second.toString());
    }
    // The browser's own would be refused like every other change of page.
    if (path_ != Blank)
        menu->insertAction(menu->actions().value(0),
                           menu->addAction(texts::BrowserReload.toString(), this,
                                           [this] { Navigate(path_, subject_, colours_); }));
    if (menu->isEmpty())
        menu->close();
    else
        menu->popup(view_->mapToGlobal(position));
}

void Browser::Navigate(const QString &path, const QString &subject, Colours colours) {
    if (!view_ && path == Blank)
        return;
    const bool first = !view_;
    if (first)
        makeView();
    path_ = path;
    subject_ = subject;
    colours_ = colours;
    if (first)
        load({});
    else if (stage_ == Stage::Shown)
        askAndLoad();
    else
        waiting_ = true;
}

void Browser::askAndLoad() {
    // A page that hangs would take the next one with it, so none is loaded before this one answers
    // or has been stopped.
    stage_ = Stage::Asking;
    page_->askForPlace([this](const QString &place) {
        if (stage_ == Stage::Asking)
            load(place);
    });
}

void Browser::load(const QString &place) {
    const bool same = !subject_.isEmpty() && subject_ == subjectShown_;
    stage_ = Stage::Loading;
    waiting_ = false;
    subjectShown_ = subject_;
    messagesOfPage_ = 0;
    unanswered_ = 0;
    stopped_ = false;
    if (path_ == Blank) {
        pulse_.stop();
        page_->setPlace({}, {});
        url_ = QUrl(Blank);
    } else {
        pulse_.start(PulseMs);
        page_->setPlace(same ? place : QString(), std::exchange(revealed_, {}));
        url_ = files_->serve(path_, fileNames_, same);
    }
    showColours();
    page_->load(url_);
}

void Browser::showColours() {
    using controls::Colour;
    const bool isDark = controls::theme().isDark();
    const bool isOfTheme = colours_ == Colours::OfTheme;
    page_->setTheme(isOfTheme ? std::optional(isDark) : std::nullopt);
    // An author's page that paints no background counts on white paper.
    page_->setBackgroundColor(controls::themeColour(Colour::Paper, isDark && isOfTheme && !job_));
}

void Browser::loadingChanged(const QWebEngineLoadingInfo &info) {
    // What the page has tried in vain ends, too.
    if (stage_ != Stage::Loading || info.status() == QWebEngineLoadingInfo::LoadStartedStatus ||
        info.url().adjusted(QUrl::RemoveFragment) != url_)
        return;
    // The death of a page is told after the failure of its load.
    const bool ok = info.status() == QWebEngineLoadingInfo::LoadSucceededStatus;
    QMetaObject::invokeMethod(
        this, [this, ok] { pageLoaded(ok); }, Qt::QueuedConnection);
}

void Browser::pageLoaded(bool ok) {
    if (dead_ || stage_ != Stage::Loading)
        return;
    if (waiting_)
        return askAndLoad();
    stage_ = Stage::Shown;
    // The theme may have changed on the way, and until Qt 6.6 the background is set to no effect
    // while a page is loading.
    showColours();
    if (colours_ == Colours::OfTheme)
        page_->showTheme(controls::theme().isDark());
    // The browser keeps it for each host, and every document has its own.
    view_->setZoomFactor(zoom_);
    if (!revealed_.isEmpty())
        page_->reveal(std::exchange(revealed_, {}));
    Q_EMIT NavigateComplete(ok);
    printNow();
}

void Browser::takeIn(const QString &page) {
    if (view_ && stage_ == Stage::Shown)
        page_->takeIn(page);
}

void Browser::reveal(const QList<quint32> &nodes) {
    if (view_ && stage_ == Stage::Shown)
        page_->reveal(nodes);
    else
        revealed_ = nodes;
}

void Browser::askForLife() {
    if (unanswered_ >= (job_ ? PrintingPatience : Patience)) {
        const auto process = pid_t(page_->renderProcessPid());
        stopped_ = process > 0;
        // Its end is told by a signal.
        if (stopped_)
            ::kill(process, SIGKILL);
        return;
    }
    ++unanswered_;
    page_->askForLife([this] { unanswered_ = 0; });
}

void Browser::pageDied() {
    Q_EMIT statusText((stopped_ ? texts::PageStopped : texts::PageDied).toString());
    giveUpPrinting();
    dead_ = false;
    // The page that the user waits for is not the one that died.
    if (stage_ != Stage::Asking && !waiting_)
        path_ = Blank;
    subjectShown_.clear();
    load({});
}

void Browser::offerLink(const QString &address) {
    if (address.size() > AddressLength) {
        Q_EMIT statusText(texts::LinkTooLong.toString());
        return;
    }
    const QUrl url(address, QUrl::StrictMode);
    if (!url.isValid())
        return;
    // As it goes out, so that no letter looks like another one.
    const QString shown = url.toString(QUrl::FullyEncoded);
    if (ui::showMessage(texts::OpenLink.toString().arg(shown),
                        ui::message_style::YesNo | ui::message_style::Question |
                            ui::message_style::DefaultButton2) == ui::message_answer::Yes)
        QDesktopServices::openUrl(url);
}

void Browser::showMessageOfPage(const QString &text) {
    if (++messagesOfPage_ <= MessagesOfPage)
        Q_EMIT statusText(
            texts::MessageOfPage.toString().arg(text.simplified().left(MessageLength)));
}

void Browser::print(const QString &documentName) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setPageLayout(paper());
    printer->setDocName(documentName);
    if (!controls::choosePrinter(*printer))
        return;
    PrintJob job;
    job.paper = printer->pageLayout();
    if (printer->outputFormat() == QPrinter::PdfFormat)
        // With text, where printing would paint a picture of the page.
        job.takePdf = [file = printer->outputFileName()](const QByteArray &pdf) {
            savePdf(pdf, file);
        };
    job.printer = std::move(printer);
    printWhenShown(std::move(job));
}

void Browser::makePdf(const QPageLayout &layout, std::function<void(const QByteArray &)> take) {
    if (!view_)
        return take({});
    printWhenShown({nullptr, layout, std::move(take)});
}

void Browser::printWhenShown(PrintJob job) {
    nextJob_ = std::make_unique<PrintJob>(std::move(job));
    if (stage_ == Stage::Shown)
        printNow();
}

void Browser::printNow() {
    if (!nextJob_ || job_ || !view_)
        return;
    job_ = std::move(nextJob_);
    // What is printed lies on paper, whatever lies below the page on the screen.
    showColours();
    if (job_->takePdf)
        page_->printToPdf([this](const QByteArray &pdf) { takePdf(pdf); }, job_->paper);
    else
        view_->print(job_->printer.get());
}

void Browser::takePdf(const QByteArray &pdf) {
    // The job of a page that has died has been given up.
    if (job_ && job_->takePdf)
        ui::guarded([&] { std::exchange(job_->takePdf, {})(pdf); });
    endPrinting();
}

void Browser::giveUpPrinting() {
    for (std::unique_ptr<PrintJob> *job : {&nextJob_, &job_}) {
        const std::unique_ptr<PrintJob> ended = std::move(*job);
        if (ended && ended->takePdf)
            ui::guarded([&] { ended->takePdf({}); });
    }
}

void Browser::endPrinting() {
    job_.reset();
    showColours();
    if (stage_ == Stage::Shown)
        printNow();
}

} // namespace quillon::browser

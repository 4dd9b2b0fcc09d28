#pragma once

#include "platform/ui/browser.h"

#include <QPageLayout>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <memory>

class QPrinter;
class QWebEngineLoadingInfo;
class QWebEngineProfile;
class QWebEngineView;

namespace quillon::browser {

class BrowserPage;
class PageFiles;

/// The pane that shows pages made by the program (`ie`). The browser behind it is made when the
/// first page is shown; prepareBrowser() has settled before what it needs.
///
/// A page is a stranger: its scripts run, but reach nothing but itself and the files given to it.
/// A link to the web that the user follows opens in the desktop's browser, after a question. Boxes
/// of a script are lines in the status bar. A page that does not answer for some seconds is
/// stopped.
class Browser : public QWidget, public ui::Browser {
    Q_OBJECT

public:
    explicit Browser(QWidget *parent = nullptr);
    ~Browser() override;

    void setFiles(const QStringList &names) override;
    void Navigate(const QString &path, const QString &subject = {},
                  Colours colours = Colours::OfItsAuthor) override;
    void takeIn(const QString &page) override;
    void reveal(const QList<quint32> &nodes) override;
    void print(const QString &documentName) override;
    /// Makes a PDF of the page shown there, or of the one that is on its way, and gives it to a
    /// function; an empty one when there is no page, or none any more. What has been asked for
    /// before and has not begun is given up without a word.
    void makePdf(const QPageLayout &layout, std::function<void(const QByteArray &pdf)> take);

    /// Asked for what a printer is to print on, unless the user chooses something else.
    std::function<QPageLayout()> paper = [] { return QPageLayout(); };

    /// How large pages are shown; 1 to begin with. It does not count in print.
    void setZoom(double factor);

    /// The browser itself; null until the first page is shown.
    QWebEngineView *view() const { return view_; }

Q_SIGNALS:
    /// The page that was asked for is there.
    void NavigateComplete(bool ok);
    /// The user has clicked an element of the page that has this id.
    void clicked(const QString &id);
    /// The page wants to have some of the nodes that it leaves out from this one on: those at the
    /// end. A page may say anything.
    void moreWanted(quint32 first, bool atEnd);
    void statusText(const QString &text);

private:
    /// How far a new page is: the one before it is asked for its place, then it is loaded.
    enum class Stage { Asking, Loading, Shown };

    /// A page that is to be printed, or, where there is a function for it, to become a PDF.
    struct PrintJob {
        std::unique_ptr<QPrinter> printer;
        QPageLayout paper;
        std::function<void(const QByteArray &pdf)> takePdf;
    };

    void makeView();
    void load(const QString &place);
    void askAndLoad();
    void loadingChanged(const QWebEngineLoadingInfo &info);
    void pageLoaded(bool ok);
    void printWhenShown(PrintJob job);
    void printNow();
    void takePdf(const QByteArray &pdf);
    void giveUpPrinting();
    void endPrinting();
    /// Has the page, and what is seen where there is none yet, in the colours of the theme or not.
    void showColours();
    void showContextMenu(const QPoint &position);
    void offerLink(const QString &address);
    void showMessageOfPage(const QString &text);
    void askForLife();
    void pageDied();

    std::unique_ptr<QWebEngineProfile> profile_;
    PageFiles *files_ = nullptr;
    QWebEngineView *view_ = nullptr;
    BrowserPage *page_ = nullptr;

    Stage stage_ = Stage::Shown;
    /// What was asked for last; it waits while the page before it is still on its way.
    QString path_;
    QString subject_;
    Colours colours_ = Colours::OfTheme;
    bool waiting_ = false;
    double zoom_ = 1;
    /// The address loaded last.
    QUrl url_;
    QString subjectShown_;
    /// What the page that is on its way is to bring into sight.
    QList<quint32> revealed_;
    QStringList fileNames_;
    /// Waits for the page, and for the printing before it.
    std::unique_ptr<PrintJob> nextJob_;
    /// Which the browser is about.
    std::unique_ptr<PrintJob> job_;
    int messagesOfPage_ = 0;

    QTimer pulse_;
    /// How often the page was asked for life since its last answer.
    int unanswered_ = 0;
    bool stopped_ = false;
    /// The page's process has ended, and pageDied() is to come.
    bool dead_ = false;
};

} // namespace quillon::browser

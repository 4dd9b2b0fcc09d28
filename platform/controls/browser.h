#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class QPrinter;
class QWebEngineView;

namespace quillon::controls {

class BrowserPage;

/// The pane that shows pages made by the program (`ie`). The browser behind it is made when the
/// first page is shown. A page reaches nothing but itself and the files of one folder; a link to
/// the web that the user clicks opens in the desktop's browser.
class Browser : public QWidget {
    Q_OBJECT

public:
    explicit Browser(QWidget *parent = nullptr);
    ~Browser() override;

    /// The folder whose files pages may use.
    void setFolder(const QString &folder) { folder_ = folder; }

    /// Shows a file of the folder, or an empty pane for "about:blank".
    void Navigate(const QString &path);
    /// Prints the page shown, or the one that is on its way, onto a printer that has been chosen.
    void print(std::unique_ptr<QPrinter> printer);

    /// The browser itself; null until the first page is shown.
    QWebEngineView *view() const { return view_; }

Q_SIGNALS:
    /// The page that was asked for is there.
    void NavigateComplete(bool ok);
    /// The user has clicked an element of the page, or one inside it, that has this id.
    void clicked(const QString &id);

private:
    void makeView();
    void printNow();
    void showContextMenu(const QPoint &position);

    QString folder_;
    QWebEngineView *view_ = nullptr;
    bool loading_ = false;
    std::unique_ptr<QPrinter> printer_;
};

} // namespace quillon::controls

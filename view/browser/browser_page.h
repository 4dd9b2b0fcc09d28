#pragma once

#include <QWebEnginePage>
#include <QWebEngineScript>

#include <functional>
#include <optional>

namespace quillon::browser {

/// A page in the browser pane. It is a stranger: its scripts run, but they leave it in no way, open
/// no box, and cannot click or press keys for the user.
class BrowserPage final : public QWebEnginePage {
    Q_OBJECT

public:
    BrowserPage(QWebEngineProfile *profile, QObject *parent);

    /// Has the next page put into a place that askForPlace() gave, an empty one for none, or, so
    /// folded, to where the first of these nodes is that has a block there.
    void setPlace(const QString &place, const QList<quint32> &revealed);
    /// Scrolls the page that is there to where the first of these nodes is that has a block.
    void reveal(const QList<quint32> &nodes);
    /// Has the page that is there take in the blocks of another one.
    void takeIn(const QString &page);
    /// Has the next page shown by a theme, which is dark or not, or as it is.
    void setTheme(std::optional<bool> isDark);
    /// Has the page that is there shown by a theme.
    void showTheme(bool isDark);
    /// Asks the page how far it is scrolled and what is folded. A page that hangs does not answer.
    void askForPlace(const std::function<void(const QString &place)> &answer);
    /// Asks the page for any sign of life.
    void askForLife(const std::function<void()> &answer);

Q_SIGNALS:
    /// The user has clicked an element that has this id.
    void clicked(const QString &id);
    /// Nodes that the page leaves out are wanted: of those from one on, the first or the last.
    void moreWanted(quint32 first, bool atEnd);
    /// The user has clicked a link to the web, or pressed Enter on it.
    void linkFollowed(const QString &address);
    /// A script wants the user to read this.
    void message(const QString &text);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList &oldFiles,
                            const QStringList &acceptedMimeTypes) override;
    void javaScriptAlert(const QUrl &securityOrigin, const QString &text) override;
    bool javaScriptConfirm(const QUrl &securityOrigin, const QString &text) override;
    bool javaScriptPrompt(const QUrl &securityOrigin, const QString &text,
                          const QString &defaultValue, QString *result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &text,
                                  int line, const QString &source) override;

private:
    void insertScript(const QString &name, const QString &code,
                      QWebEngineScript::InjectionPoint when);
    void removeScript(const QString &name);
    /// A script that sends messages to the program.
    QString scriptWithWord(const QString &name) const;
    void denyPermissions();

    const QString word_;
};

} // namespace quillon::browser

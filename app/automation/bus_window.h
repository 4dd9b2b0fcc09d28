#pragma once

#include "app/main_window/window.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>

namespace quillon::app {

/// A Window as other programs see it on the bus. It knows the bus names of the clients that have
/// called it; property access does not tell who asks.
///
/// A window that is hidden can be reached by its clients only. So it is closed when they release
/// it or are gone; one that is shown belongs to the user and lives until it is closed.
class BusWindow : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quillon.XmlEditor.Window")
    Q_PROPERTY(int hWnd READ hWnd)
    Q_PROPERTY(bool ReadOnly READ ReadOnly)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)

public:
    /// `graceMs`: how long, in milliseconds, a hidden window waits for the next client when the
    /// last one is gone. A script that makes every call from a process of its own needs it.
    BusWindow(std::unique_ptr<Window> window, int graceMs);

    int hWnd() const { return window_->hWnd(); }
    bool ReadOnly() const { return window_->ReadOnly(); }
    bool Visible() const { return window_->Visible(); }
    void setVisible(bool visible);

    void addClient(const QString &busName);
    void removeClient(const QString &busName);
    /// Whether the object may go: nobody calls it, and nothing of it is under way.
    bool isIdle() const { return clients_.isEmpty() && !running_; }

public Q_SLOTS:
    /// Answers before the file is opened: a box that reports a failure must not keep the client
    /// waiting. The client's later calls find the file opened.
    Q_SCRIPTABLE QDBusVariant OpenFile(const QString &path);
    Q_SCRIPTABLE QDBusVariant Save();
    Q_SCRIPTABLE QDBusVariant SaveAs(const QDBusVariant &argument);
    Q_SCRIPTABLE QDBusVariant Quit();
    Q_SCRIPTABLE void CloseWindow();

Q_SIGNALS:
    /// A client has made a call.
    void called(const QString &busName);
    /// Neither a client nor a window is left that the object could serve.
    void abandoned();

private:
    void noteCaller();
    /// Gives the window up, and closes it where nobody could ever show it again.
    void release();
    void reconsider();
    /// Runs what may show a box. One after the other, and not under a modal box: that box may
    /// have been opened by the very window that is to change.
    void runInTurn(std::function<void()> job);
    void runJobs();

    std::unique_ptr<Window> window_;
    QSet<QString> clients_;
    QTimer grace_;
    std::deque<std::function<void()>> jobs_;
    QTimer retry_;
    bool running_ = false;
};

} // namespace quillon::app

#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class QSocketNotifier;

namespace quillon::system {

/// What a window tells the others of itself.
struct WindowNote {
    /// The name of its document, with a mark where that has changes that are not saved.
    QString caption;
    /// The file of the document; empty for none.
    QString path;
    bool isModified = false;

    bool operator==(const WindowNote &) const = default;
};

/// The windows of the program that are open, of whatever process, and this one among them. They
/// know each other by files in a folder of the user's, so nobody ever waits for anybody: one that
/// hangs is listed like any other, and what one that has died has left is taken away by the next
/// that looks.
class OpenWindows : public QObject {
    Q_OBJECT

public:
    struct Other {
        QString id;
        WindowNote note;
    };

    explicit OpenWindows(QString folder = defaultFolder());
    ~OpenWindows() override;

    static QString defaultFolder();

    /// Has the others see this window from now on. Without a folder that can be used, nothing
    /// happens, and there are no others.
    void join();
    /// Tells what is to be known of this window.
    void tell(const WindowNote &note);
    const WindowNote &note() const { return note_; }

    /// The others, in the order of their captions.
    std::vector<Other> others() const;
    /// The others that have a file open, by whatever name.
    std::vector<Other> othersWith(const QString &path) const;
    /// Asks one to come to the front. False where it is gone.
    bool callToFront(const Other &other) const;

Q_SIGNALS:
    /// Another window wants this one to come to the front.
    void calledToFront();

private:
    void write() const;
    void leave();
    void takeCall();
    QString fileOf(const QString &id, const char *suffix) const;
    /// The address of another window's socket, connected to; negative where nobody listens.
    int connectedTo(const QString &id) const;

    QString folder_;
    QString id_;
    WindowNote note_;
    int socket_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace quillon::system

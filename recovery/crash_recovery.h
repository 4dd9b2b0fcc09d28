#pragma once

#include "document/document_commands.h"
#include "platform/runtime/paths.h"
#include "platform/system/working_folder.h"
#include "state/document_state.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace quillon::recovery {

/// When unsaved changes are written.
struct RecoveryPace {
    /// So long after the latest change,
    std::chrono::milliseconds quiet = std::chrono::seconds(2);
    /// and at most so long after the first one that has not been written.
    std::chrono::milliseconds longest = std::chrono::seconds(10);
};

/// A document that a program which died has left behind. No other process offers it, nor is it
/// deleted, while the lock is held.
struct Recoverable {
    /// Where the document was to be saved, or the name that it had instead of a path.
    QString name;
    /// The name that its files have in common.
    QString base;
    std::unique_ptr<QLockFile> lock;
};

/// The edit pane, as far as it holds text that the document does not.
struct PaneText {
    std::function<bool()> exists = [] { return false; };
    /// The text in a form of its own; empty when there is none.
    std::function<QByteArray()> content = [] { return QByteArray(); };
    /// Puts such a text back, after the document that it belongs to has been opened.
    std::function<void(const QByteArray &)> restore = [](const QByteArray &) {};
};

/// Keeps a copy of the document's unsaved changes in a folder of its own in the working folder, so
/// that they survive the death of the program. The copy is gone once the changes are saved or given
/// up. When the document goes without either it stays, for the next start to offer. It is written
/// by a child process, which is a snapshot of the document by nature; what typing has to wait for
/// is the making of that process.
class CrashRecovery : public QObject {
    Q_OBJECT

public:
    CrashRecovery(state::DocumentState &state, document::DocumentCommands &commands,
                  const system::WorkingFolder &workingFolder, runtime::Clock clock,
                  RecoveryPace pace = {});
    /// Leaves the copy as it is on the disk.
    ~CrashRecovery() override;

    /// What is kept beside the document.
    PaneText pane;

    /// To be called when the document, its modified state or its name has changed, or the text of
    /// the pane.
    void documentChanged();

    /// What dead programs have left, the latest first. Clears away what is of no use to anybody.
    std::vector<Recoverable> find() const;
    /// Asks for each of them whether it is to be opened, until one is: that one becomes the
    /// current document. What is declined is deleted. When the user cancels all that is left stays
    /// for the next start, and so does what cannot be opened, after a message with the reason.
    void offer();

    /// Removes the copy: the changes are saved or given up.
    void discard();
    /// Writes the unsaved changes at once, for a program that ends without asking about them.
    /// Raises when that fails.
    void keep();
    /// The same for a document that goes while the program goes on. What changes from then on gets
    /// a copy of its own.
    void leaveForNextStart();
    /// Keeps what is about to be written over a file in its place, until the document is saved,
    /// closed or given up: when the program dies half-way, the next start offers it under the name
    /// of the file. It is on the disk on return; raises when that fails.
    void keepForSaving(const QString &path, std::string_view bytes);

Q_SIGNALS:
    /// The changes made up to when the writing began are on the disk.
    void written();
    /// They cannot be put there, which is tried again and again.
    void statusText(const QString &text);

private:
    /// Whether there is anything that is not saved,
    bool isUnsaved() const;
    /// and a document that can be opened again, or typing in the pane of one that is still empty.
    bool hasSomethingToKeep() const;
    QString filePath(const QString &name) const;
    bool holdBase();
    bool isTaken(const QString &base) const;
    /// Ends the writing and leaves the copy as it is.
    void release();
    void removeFiles(const QString &base) const;
    void write();
    /// The copy itself, in whatever process.
    void writeFiles() const;
    void writeFiles(const QString &name, const QByteArray &content) const;
    void childEnded();
    /// Says once that there is no writing, and goes on trying.
    void tryAgain();
    int reapChild();

    state::DocumentState &state_;
    document::DocumentCommands &commands_;
    const system::WorkingFolder &workingFolder_;
    runtime::Clock clock_;
    RecoveryPace pace_;
    QTimer timer_;
    /// Since the first change that has not been written; not running when there is none.
    QElapsedTimer unwritten_;
    bool isFailing_ = false;
    /// Empty until the first writing.
    QString base_;
    std::unique_ptr<QLockFile> lock_;
    /// The process that is writing, 0 for none, and the end of the pipe that closes with it.
    int child_ = 0;
    std::unique_ptr<QSocketNotifier> childEnd_;
};

} // namespace quillon::recovery

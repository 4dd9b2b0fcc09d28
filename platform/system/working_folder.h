#pragma once

#include <QString>

#include <optional>

namespace quillon::system {

/// What the program itself calls its files in the working folder.
namespace working_name {
inline const QString Recovery = QStringLiteral("recovery");
inline const QString BackupSuffix = QStringLiteral(".bak");
/// Followed by the kind of page.
inline const QString PreviewStem = QStringLiteral("preview.");
inline const QString ValidatedCopy = QStringLiteral("document.xml");
} // namespace working_name

/// The folder for backups, copies of stylesheets and schemas, and generated files, as one window
/// uses it. It is its owner's alone, and knows which files the program has written: only those are
/// removed in the end, by the last window of whatever instance that uses it.
class WorkingFolder {
public:
    explicit WorkingFolder(QString path) : path_(std::move(path)) {}
    ~WorkingFolder();
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

    const QString &path() const { return path_; }
    /// The path of a file in it; empty when a relative name would leave the folder.
    QString filePath(const QString &relativeName) const;

    /// The path of a file directly in it that is to be written, and counts as the program's own
    /// from now on, if there was none that the program has not written. Makes the folder where it
    /// has gone; raises what create() raises.
    QString fileToWrite(const QString &name) const;

    /// Whether a file of the user's may be copied into the folder under a name: it names no
    /// subfolder, and nothing that the program writes there itself.
    static bool isFree(const QString &name);

    /// Makes the folder, or checks one that is there already, and counts this window as using it.
    /// Raises PathNotFound, naming the folder, where it cannot be used: it belongs to another
    /// user, or something else stands in its place, a symbolic link among others.
    void create() const;
    /// This window has no more use for the folder. When no other has, either, the program's files
    /// are removed, and the folder if nothing else is in it; what stands in subfolders stays.
    void leave() const;

private:
    bool isHeld() const;
    void hold() const;
    void note(const QString &name) const;
    void clear() const;

    QString path_;
    /// The lock file, locked for shared use; negative while the folder is not in use.
    mutable int lock_ = -1;
};

/// Makes a folder that only its owner may enter, or makes one that stands there already such. Its
/// parent folders are made, too. Raises PathNotFound, naming it, when it cannot be used.
void makePrivateFolder(const QString &path);
/// Whether a folder of this user's, and no symbolic link, stands at a path.
bool isOwnFolder(const QString &path);
/// Whether a regular file of this user's, and no symbolic link, stands at a path.
bool isOwnFile(const QString &path);

/// What a copy does with a file that has its name.
enum class ExistingFile { Keep, Replace };

/// Copies a regular file; the copy is its owner's alone and may be written. Copying a file onto
/// itself does nothing. False when another one is kept instead. Raises FileNotFound, or with the
/// system's reason, naming the folder. `mostBytes`: a larger file raises DiskFull.
bool copyFile(const QString &from, const QString &to, ExistingFile existing = ExistingFile::Replace,
              std::optional<qint64> mostBytes = std::nullopt);

} // namespace quillon::system

#include "platform/system/open_windows.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/system/instance_lock.h"
#include "platform/system/working_folder.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSocketNotifier>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillon::system {

namespace {

constexpr char NoteSuffix[] = ".window";
constexpr char SocketSuffix[] = ".socket";
/// All that is ever sent.
constexpr char Call = 'F';
/// No note is longer, nor are there so many windows.
constexpr qint64 MostNoteBytes = 64 * 1024;
constexpr qsizetype MostWindows = 200;

/// Nothing where the path is too long for an address.
std::optional<sockaddr_un> addressOf(const QString &path) {
    const QByteArray name = runtime::encodedPath(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (std::size_t(name.size()) >= sizeof address.sun_path)
        return std::nullopt;
    std::memcpy(address.sun_path, name.constData(), std::size_t(name.size()));
    return address;
}

/// An open socket that is not waited for.
int newSocket() {
    return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

const sockaddr *generic(const sockaddr_un &address) {
    return reinterpret_cast<const sockaddr *>(&address);
}

bool isSameFile(const QString &one, const QString &other) {
    std::error_code error;
    return std::filesystem::equivalent(runtime::encodedPath(one).toStdString(),
                                       runtime::encodedPath(other).toStdString(), error);
}

std::optional<WindowNote> readNote(const QString &path) {
    QFile file(path);
    if (!isOwnFile(path) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(file.read(MostNoteBytes)).object();
    if (object.isEmpty())
        return std::nullopt;
    return WindowNote{object.value(QLatin1String("caption")).toString(),
                      object.value(QLatin1String("path")).toString(),
                      object.value(QLatin1String("modified")).toBool()};
}

} // namespace

QString OpenWindows::defaultFolder() {
    return runtimeFolder() + QStringLiteral("/quillon-xml-editor-windows");
}

OpenWindows::OpenWindows(QString folder)
    : folder_(std::move(folder)), id_(QUuid::createUuid().toString(QUuid::Id128)) {}

OpenWindows::~OpenWindows() {
    leave();
}

QString OpenWindows::fileOf(const QString &id, const char *suffix) const {
    return folder_ + QLatin1Char('/') + id + QLatin1String(suffix);
}

void OpenWindows::join() {
    const auto address = addressOf(fileOf(id_, SocketSuffix));
    if (socket_ >= 0 || !address)
        return;
    try {
        makePrivateFolder(folder_);
    } catch (const runtime::Error &) {
        return;
    }
    socket_ = newSocket();
    if (socket_ < 0 || ::bind(socket_, generic(*address), sizeof *address) != 0) {
        leave();
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &OpenWindows::takeCall);
    write();
}

void OpenWindows::leave() {
    if (socket_ < 0)
        return;
    notifier_.reset();
    ::close(socket_);
    socket_ = -1;
    QFile::remove(fileOf(id_, NoteSuffix));
    QFile::remove(fileOf(id_, SocketSuffix));
    QDir().rmdir(folder_);
}

void OpenWindows::tell(const WindowNote &note) {
    if (note == note_)
        return;
    note_ = note;
    write();
}

void OpenWindows::write() const {
    if (socket_ < 0)
        return;
    // One that cannot be written leaves this window unknown, and is no reason to trouble the user.
    QSaveFile file(fileOf(id_, NoteSuffix));
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(QJsonDocument(QJsonObject{{QStringLiteral("caption"), note_.caption},
                                         {QStringLiteral("path"), note_.path},
                                         {QStringLiteral("modified"), note_.isModified}})
                   .toJson(QJsonDocument::Compact));
    file.commit();
}

int OpenWindows::connectedTo(const QString &id) const {
    const auto address = addressOf(fileOf(id, SocketSuffix));
    if (!address)
        return -1;
    const int other = newSocket();
    if (other >= 0 && ::connect(other, generic(*address), sizeof *address) == 0)
        return other;
    if (other >= 0)
        ::close(other);
    return -1;
}

std::vector<OpenWindows::Other> OpenWindows::others() const {
    std::vector<Other> all;
    if (!isOwnFolder(folder_))
        return all;
    const QStringList names =
        QDir(folder_).entryList({QLatin1Char('*') + QLatin1String(NoteSuffix)}, QDir::Files);
    for (const QString &name : names.mid(0, MostWindows)) {
        const QString id = name.chopped(qsizetype(sizeof NoteSuffix) - 1);
        if (id == id_)
            continue;
        const int socket = connectedTo(id);
        if (socket < 0) {
            QFile::remove(fileOf(id, NoteSuffix));
            QFile::remove(fileOf(id, SocketSuffix));
            continue;
        }
        ::close(socket);
        if (const auto note = readNote(fileOf(id, NoteSuffix)))
            all.push_back({id, *note});
    }
    const QCollator collator;
    std::ranges::sort(all, [&](const Other &one, const Other &other) {
        const int order = collator.compare(one.note.caption, other.note.caption);
        return order != 0 ? order < 0 : one.id < other.id;
    });
    return all;
}

std::vector<OpenWindows::Other> OpenWindows::othersWith(const QString &path) const {
    std::vector<Other> found = others();
    std::erase_if(found, [&](const Other &other) {
        return other.note.path.isEmpty() || !isSameFile(other.note.path, path);
    });
    return found;
}

bool OpenWindows::callToFront(const Other &other) const {
    const int socket = connectedTo(other.id);
    if (socket < 0)
        return false;
    // Where it has more calls waiting than there is room for, it hangs, and has been called.
    ::send(socket, &Call, sizeof Call, MSG_DONTWAIT | MSG_NOSIGNAL);
    ::close(socket);
    return true;
}

void OpenWindows::takeCall() {
    std::array<char, 16> bytes{};
    bool isCalled = false;
    for (ssize_t count = 0; (count = ::recv(socket_, bytes.data(), bytes.size(), 0)) > 0;)
        isCalled |= count == 1 && bytes.front() == Call;
    if (isCalled)
        Q_EMIT calledToFront();
}

} // namespace quillon::system

#include "recovery/crash_recovery.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/system/instance_lock.h"
#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "platform/xml/io/atomic_file.h"
#include "resources/texts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace quillon::recovery {

namespace texts = resources::texts;
namespace style = ui::message_style;

namespace {

/// A writer that takes longer hangs.
constexpr unsigned MostSeconds = 120;

const QString ContentSuffix = QStringLiteral(".xml");
const QString NameSuffix = QStringLiteral(".name");
const QString PaneSuffix = QStringLiteral(".pane");
const QString LockSuffix = QStringLiteral(".lock");

/// Locks a base for this process. Null when another one holds it.
std::unique_ptr<QLockFile> lockFor(const QString &path) {
    auto lock = system::processLock(path);
    if (!lock->tryLock(0))
        return nullptr;
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    return lock;
}

/// In the document's own encoding; where that cannot hold its text, as UTF-8, which the byte order
/// mark tells whatever the declaration says.
QByteArray contentOf(const xml::DOMDocument40 &document) {
    try {
        return document.serialize();
    } catch (const runtime::Error &) {
        return "\xEF\xBB\xBF" + document.xml();
    }
}

void writeFile(const QString &path, const QByteArray &bytes) {
    xml::writeFileAtomically(path, std::string_view(bytes.constData(), std::size_t(bytes.size())),
                             {.ownerOnly = true});
}

/// What holdBase() calls its files. Everything else in the folder is none of the program's.
bool isBase(const QString &name) {
    static const QRegularExpression base(QStringLiteral("^[0-9]{14}-[0-9]+(-[0-9]+)?$"));
    return base.match(name).hasMatch();
}

/// The name a recovered document is shown under. One that is recovered again keeps it.
QString recoveredName(const QString &path) {
    const QString name = runtime::fileName(path);
    return name.endsWith(texts::RecoveredMark) ? name : name + texts::RecoveredMark.toString();
}

} // namespace

CrashRecovery::CrashRecovery(state::DocumentState &state, document::DocumentCommands &commands,
                             const system::WorkingFolder &workingFolder, runtime::Clock clock,
                             RecoveryPace pace)
    : state_(state), commands_(commands), workingFolder_(workingFolder), clock_(std::move(clock)),
      pace_(pace) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &CrashRecovery::write);
}

CrashRecovery::~CrashRecovery() {
    release();
}

QString CrashRecovery::filePath(const QString &name) const {
    return workingFolder_.filePath(system::working_name::Recovery + QLatin1Char('/') + name);
}

bool CrashRecovery::isUnsaved() const {
    return commands_.hasUnsavedChanges() || pane.exists();
}

bool CrashRecovery::hasSomethingToKeep() const {
    return isUnsaved() && (state_.m_DOM.documentElement() || state_.isBroken || pane.exists());
}

void CrashRecovery::documentChanged() {
    if (!isUnsaved()) {
        discard();
        return;
    }
    if (!unwritten_.isValid())
        unwritten_.start();
    const auto left = pace_.longest - std::chrono::milliseconds(unwritten_.elapsed());
    // A writing that is due must not be put off by the next change.
    if (left > std::chrono::milliseconds(0) || !timer_.isActive())
        timer_.start(std::clamp(left, std::chrono::milliseconds(0), pace_.quiet));
}

bool CrashRecovery::holdBase() {
    if (lock_)
        return true;
    const QString stem = QStringLiteral("%1-%2")
                             .arg(runtime::timeStamp(clock_.now()))
                             .arg(QCoreApplication::applicationPid());
    try {
        workingFolder_.create();
        system::makePrivateFolder(filePath(QString()));
    } catch (const runtime::Error &) {
        return false;
    }
    // Only this process could have the first name, for another window or for a document it has
    // left.
    constexpr int MostInASecond = 100;
    for (int number = 1; !lock_ && number <= MostInASecond; ++number) {
        base_ = number == 1 ? stem : QStringLiteral("%1-%2").arg(stem).arg(number);
        if (!isTaken(base_))
            lock_ = lockFor(filePath(base_ + LockSuffix));
    }
    return bool(lock_);
}

bool CrashRecovery::isTaken(const QString &base) const {
    return QFileInfo::exists(filePath(base + ContentSuffix));
}

void CrashRecovery::write() {
    // Without a root element nothing could be opened again; the copy before it was removed stays.
    if (!hasSomethingToKeep())
        return;
    if (child_ != 0) {
        timer_.start(pace_.longest);
        return;
    }
    std::array<int, 2> ends;
    if (!holdBase() || ::pipe2(ends.data(), O_CLOEXEC) != 0)
        return tryAgain();
    child_ = ::fork();
    if (child_ == 0) {
        // When the program dies now, this process still finishes; but it must not hang.
        ::alarm(MostSeconds);
        try {
            writeFiles();
        } catch (...) {
            ::_exit(EXIT_FAILURE);
        }
        // Nothing of the parent's may be flushed, released or run at the end of its copy.
        ::_exit(EXIT_SUCCESS);
    }
    ::close(ends[1]);
    if (child_ < 0) {
        ::close(ends[0]);
        child_ = 0;
        return tryAgain();
    }
    unwritten_.invalidate();
    childEnd_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    connect(childEnd_.get(), &QSocketNotifier::activated, this, &CrashRecovery::childEnded);
}

void CrashRecovery::writeFiles() const {
    const QString path = commands_.initialPath();
    const QString paneFile = filePath(base_ + PaneSuffix);
    if (pane.exists())
        writeFile(paneFile, pane.content());
    else
        QFile::remove(paneFile);
    QByteArray content;
    if (state_.isBroken)
        content = QByteArray::fromStdString(commands_.brokenTextToKeep());
    else if (state_.m_DOM.documentElement())
        content = contentOf(state_.m_DOM);
    // All that a document without a root element holds stands in the pane as well.
    writeFiles(path.isEmpty() ? state_.m_FileName : path, content);
}

void CrashRecovery::writeFiles(const QString &name, const QByteArray &content) const {
    writeFile(filePath(base_ + NameSuffix), name.toUtf8());
    writeFile(filePath(base_ + ContentSuffix), content);
}

void CrashRecovery::keep() {
    timer_.stop();
    if (!hasSomethingToKeep())
        return;
    if (child_ != 0)
        reapChild();
    if (!holdBase())
        throw runtime::Error(runtime::error_number::Fail, texts::CannotKeepChanges.toString());
    writeFiles();
}

void CrashRecovery::keepForSaving(const QString &path, std::string_view bytes) {
    if (child_ != 0)
        reapChild();
    if (!holdBase())
        throw runtime::Error(runtime::error_number::Fail, texts::CannotKeepChanges.toString());
    writeFiles(path, QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size())));
}

void CrashRecovery::leaveForNextStart() {
    keep();
    release();
}

void CrashRecovery::release() {
    timer_.stop();
    unwritten_.invalidate();
    if (child_ != 0)
        reapChild();
    lock_.reset();
}

int CrashRecovery::reapChild() {
    int status = 0;
    while (::waitpid(child_, &status, 0) < 0 && errno == EINTR) {
    }
    child_ = 0;
    const int pipe = int(childEnd_->socket());
    childEnd_->setEnabled(false);
    // It may be the one whose signal has led here.
    childEnd_.release()->deleteLater();
    ::close(pipe);
    return status;
}

void CrashRecovery::childEnded() {
    const int status = reapChild();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS)
        return tryAgain();
    isFailing_ = false;
    Q_EMIT written();
}

void CrashRecovery::tryAgain() {
    if (!timer_.isActive())
        timer_.start(pace_.longest);
    if (!std::exchange(isFailing_, true))
        Q_EMIT statusText(texts::CannotKeepChanges.toString());
}

void CrashRecovery::discard() {
    timer_.stop();
    unwritten_.invalidate();
    if (child_ != 0) {
        ::kill(child_, SIGKILL);
        reapChild();
    }
    if (!lock_)
        return;
    removeFiles(base_);
    lock_.reset();
    // Stays while there are files of others in it.
    QDir().rmdir(filePath(QString()));
}

void CrashRecovery::removeFiles(const QString &base) const {
    const QDir folder(filePath(QString()));
    // A file that was being written has a dot ahead of its name.
    const QStringList names =
        folder.entryList({base + ContentSuffix, base + NameSuffix, base + PaneSuffix,
                          QStringLiteral(".%1.*").arg(base)},
                         QDir::Files | QDir::Hidden);
    for (const QString &name : names)
        QFile::remove(folder.filePath(name));
}

std::vector<Recoverable> CrashRecovery::find() const {
    const QDir folder(filePath(QString()));
    if (!system::isOwnFolder(folder.path()))
        return {};
    QSet<QString> bases;
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden)) {
        const QString base = name.section(QLatin1Char('.'), 0, 0, QString::SectionSkipEmpty);
        if (isBase(base))
            bases.insert(base);
    }
    std::vector<Recoverable> found;
    for (const QString &base : bases) {
        auto lock = lockFor(folder.filePath(base + LockSuffix));
        if (!lock)
            continue;
        if (!folder.exists(base + ContentSuffix)) {
            removeFiles(base);
            continue;
        }
        QFile name(folder.filePath(base + NameSuffix));
        if (system::isOwnFile(folder.filePath(base + ContentSuffix)) &&
            system::isOwnFile(name.fileName()) && name.open(QIODevice::ReadOnly))
            found.push_back({QString::fromUtf8(name.readAll()), base, std::move(lock)});
    }
    // A base starts with the time.
    std::ranges::sort(found, std::greater<>(), &Recoverable::base);
    return found;
}

void CrashRecovery::offer() {
    for (Recoverable &found : find()) {
        const QString content = filePath(found.base + ContentSuffix);
        const QString time =
            QFileInfo(content).lastModified().toString(QStringLiteral("yyyy/MM/dd HH:mm"));
        const int reply = ui::showMessage(
            texts::OfferRecovery.toString().arg(runtime::shownPath(found.name), time),
            style::YesNoCancel + style::Question);
        if (reply == ui::message_answer::Cancel)
            return;
        if (reply == ui::message_answer::No) {
            removeFiles(found.base);
            continue;
        }
        bool isOpened = false;
        try {
            isOpened = commands_.openRecovered(content, recoveredName(found.name), found.name);
        } catch (...) {
            ui::reportCurrentException();
            continue;
        }
        if (isOpened) {
            // What was recovered becomes the copy of this document's unsaved changes.
            discard();
            base_ = found.base;
            lock_ = std::move(found.lock);
            documentChanged();
            QFile paneText(filePath(base_ + PaneSuffix));
            if (system::isOwnFile(paneText.fileName()) && paneText.open(QIODevice::ReadOnly))
                pane.restore(paneText.readAll());
        }
        return;
    }
}

} // namespace quillon::recovery

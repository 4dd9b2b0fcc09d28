#include "platform/system/instance_lock.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace quillon::system {

namespace {

const QString lockName = QStringLiteral("quillon-xml-editor-%1.lock");

bool isHeld(const QDir &folder, const QString &name) {
    const auto probe = processLock(folder.filePath(name));
    return !probe->tryLock(0) && probe->error() == QLockFile::LockFailedError;
}

bool anyHeld(const QDir &folder) {
    const QStringList names = folder.entryList({lockName.arg(QStringLiteral("*"))}, QDir::Files);
    return std::ranges::any_of(names, [&](const QString &name) { return isHeld(folder, name); });
}

std::unique_ptr<QLockFile> holdFirstFree(const QDir &folder) {
    for (int number = 1;; ++number) {
        auto lock = processLock(folder.filePath(lockName.arg(number)));
        if (lock->tryLock(0))
            return lock;
        if (lock->error() != QLockFile::LockFailedError)
            return nullptr;
    }
}

} // namespace

QString runtimeFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder.isEmpty() ? QDir::tempPath() : folder;
}

std::unique_ptr<QLockFile> processLock(const QString &path) {
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0);
    return lock;
}

InstanceLock::InstanceLock(const QString &folder) {
    // Two instances that start at the same moment must not both find themselves alone. Nor may
    // one that hangs here keep the other from starting.
    constexpr int patienceMs = 1000;
    QLockFile registration(QDir(folder).filePath(QStringLiteral("quillon-xml-editor.lock")));
    registration.tryLock(patienceMs);
    startedAlone_ = !anyHeld(QDir(folder));
    lock_ = holdFirstFree(QDir(folder));
}

} // namespace quillon::system

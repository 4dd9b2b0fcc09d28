#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace quillon::system {

/// Where the user's running programs keep what must not outlive them.
QString runtimeFolder();

/// A lock file that is not yet held, without an age limit: what counts is whether the process that
/// made the lock still runs.
std::unique_ptr<QLockFile> processLock(const QString &path);

/// This process's entry among the running instances of the program, from construction to
/// destruction. Each instance holds a lock file of its own, so that one which has outlived the
/// first is noticed as well. The lock of an instance that crashed counts for nothing.
class InstanceLock {
public:
    /// The folder holds the lock files. Where it cannot be written, the instance counts as alone.
    explicit InstanceLock(const QString &folder = runtimeFolder());

    /// Whether no other instance was running when this one started.
    bool startedAlone() const { return startedAlone_; }

private:
    std::unique_ptr<QLockFile> lock_;
    bool startedAlone_;
};

} // namespace quillon::system

#pragma once

#include "platform/runtime/error.h"
#include "recovery/crash_recovery.h"
#include "tests/support/headless_editor.h"
#include "tests/support/patience.h"

#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace quillon::test {

using recovery::CrashRecovery;
using recovery::Recoverable;

/// A window with a recovery of its own, which works in another folder than the program's.
class CrashRecoveryTest : public HeadlessEditor {
protected:
    CrashRecoveryTest() { QDir().mkpath(kept.path()); }

    std::unique_ptr<CrashRecovery> start(const system::WorkingFolder &at,
                                         recovery::RecoveryPace pace = {}) {
        auto made = std::make_unique<CrashRecovery>(state(), editor().commands, at,
                                                    runtime::Clock{[this] { return time; }}, pace);
        editor().wireRecovery(*made);
        return made;
    }
    /// A change, and what it leads to on the disk.
    void change(const QString &caption, const QString &text) {
        QSignalSpy written(recovery.get(), &CrashRecovery::written);
        select(caption);
        type(text);
        ASSERT_TRUE(written.wait(Patience));
    }
    static QStringList files(const system::WorkingFolder &at) {
        return QDir(at.filePath("recovery")).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// What a crash would leave: the files, with locks of a process that has ended.
    void crash() {
        QProcess ended;
        ended.start("true", QStringList());
        const QByteArray deadProcess = QByteArray::number(ended.processId());
        ASSERT_TRUE(ended.waitForFinished(Patience));
        QDir().mkpath(left.filePath("recovery"));
        for (const QString &name : files(kept)) {
            QFile from(kept.filePath("recovery/" + name));
            QFile to(left.filePath("recovery/" + name));
            ASSERT_TRUE(from.open(QIODevice::ReadOnly) && to.open(QIODevice::WriteOnly));
            QByteArray bytes = from.readAll();
            if (name.endsWith(".lock"))
                bytes.replace(0, bytes.indexOf('\n'), deadProcess);
            to.write(bytes);
        }
    }
    /// The program starts again where it died.
    void restart() {
        recovery.reset();
        window = makeWindow();
        recovery = start(left, {});
    }

    const recovery::RecoveryPace soon{std::chrono::milliseconds(1), std::chrono::milliseconds(1)};
    const system::WorkingFolder kept{path("kept")};
    const system::WorkingFolder left{path("left")};
    std::unique_ptr<CrashRecovery> recovery = start(kept, soon);
};

} // namespace quillon::test

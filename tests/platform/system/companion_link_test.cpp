#include "platform/system/companion_link.h"
#include "tests/support/private_bus.h"

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>
#include <utility>

using namespace quillon::system;
using quillon::test::PrivateBus;

namespace {

class Companion : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quillon.QuillonEditDDE")

public:
    QStringList commands;

public Q_SLOTS:
    Q_SCRIPTABLE void Execute(const QString &command) { commands.append(command); }
};

TEST(CompanionLink, IsSkippedWhereThereIsNoBus) {
    CompanionLink link{QDBusConnection(QStringLiteral("none"))};
    EXPECT_FALSE(link.open());
    link.execute(QStringLiteral("ADD 1"));
}

TEST(CompanionLink, SessionBusIsNeverStarted) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const QTemporaryDir empty;
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", empty.path().toUtf8());
    EXPECT_FALSE(sessionBus().isConnected());
    address.isEmpty() ? qunsetenv("DBUS_SESSION_BUS_ADDRESS")
                      : qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    runtime.isEmpty() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", runtime);
}

TEST(CompanionLink, SendsCommandsToTheCompanion) {
    const PrivateBus bus;
    ASSERT_TRUE(bus.runs());
    CompanionLink link(bus.connect(QStringLiteral("editor")));
    EXPECT_FALSE(link.open());
    link.execute(QStringLiteral("ADD 1"));

    // In a thread of its own, as the link waits for its answer.
    QThread thread;
    Companion companion;
    companion.moveToThread(&thread);
    thread.start();
    QDBusConnection theirs = bus.connect(QStringLiteral("companion"));
    ASSERT_TRUE(theirs.registerObject(QStringLiteral("/System"), &companion,
                                      QDBusConnection::ExportScriptableSlots));
    ASSERT_TRUE(theirs.registerService(QStringLiteral("org.quillon.QuillonEditDDE")));
    EXPECT_TRUE(link.open());
    link.execute(QStringLiteral("ADD 2"));
    link.execute(QStringLiteral("REMOVE 2"));
    thread.quit();
    thread.wait();
    EXPECT_EQ(companion.commands,
              QStringList({QStringLiteral("ADD 2"), QStringLiteral("REMOVE 2")}));

    theirs.unregisterService(QStringLiteral("org.quillon.QuillonEditDDE"));
    link.execute(QStringLiteral("REMOVE 2"));
    EXPECT_FALSE(link.open());
}

TEST(Companion, IsStartedWhereItIsThere) {
    const QTemporaryDir folder;
    startCompanion(folder.path());
    QFile program(folder.filePath(QStringLiteral("QuillonDDE")));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\n: >started\n");
    program.close();
    program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    startCompanion(folder.path());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return QFileInfo::exists(folder.filePath(QStringLiteral("started"))); }, 30000));
}

} // namespace

#include "companion_link_test.moc"

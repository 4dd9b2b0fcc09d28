#include "platform/system/companion_link.h"

#include <QDBusMessage>
#include <QProcess>

namespace quillon::system {

namespace {

constexpr int patienceMs = 1000;

QString companionName() {
    return QString::fromLatin1(CompanionBusName);
}

} // namespace

bool CompanionLink::open() {
    if (!bus_.isConnected())
        return open_ = false;
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question << companionName();
    const QDBusMessage answer = bus_.call(question, QDBus::Block, patienceMs);
    open_ = answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
    return open_;
}

void CompanionLink::execute(const QString &command) {
    if (!open_)
        return;
    QDBusMessage message = QDBusMessage::createMethodCall(
        companionName(), QStringLiteral("/System"), companionName(), QStringLiteral("Execute"));
    message << command;
    message.setAutoStartService(false);
    // Waiting for the answer also makes sure that the last command before the program ends gets
    // through.
    bus_.call(message, QDBus::Block, patienceMs);
}

void startCompanion(const QString &folder) {
    QProcess::startDetached(folder + QLatin1Char('/') + QLatin1String(CompanionFileName), {},
                            folder);
}

} // namespace quillon::system

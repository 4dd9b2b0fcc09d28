#include "platform/system/desktop_appearance.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace quillon::system {

namespace {

const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString Interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString Group = QStringLiteral("org.freedesktop.appearance");
const QString Key = QStringLiteral("color-scheme");

/// A portal that has to be started first takes its time.
constexpr int PatienceMs = 5000;

} // namespace

DesktopAppearance::DesktopAppearance(const QDBusConnection &bus, QObject *parent)
    : QObject(parent) {
    if (!bus.isConnected())
        return;
    QDBusConnection(bus).connect(Service, Path, Interface, QStringLiteral("SettingChanged"), this,
                                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    // The way that all versions of the portal know.
    QDBusMessage question =
        QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("Read"));
    question << Group << Key;
    auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(question, PatienceMs), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            tell(reply.value().variant());
    });
}

void DesktopAppearance::settingChanged(const QString &group, const QString &key,
                                       const QDBusVariant &value) {
    if (group == Group && key == Key)
        tell(value.variant());
}

void DesktopAppearance::tell(const QVariant &value) {
    // "Read" wraps it once more.
    const QVariant bare =
        value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
    bool isNumber = false;
    const uint scheme = bare.toUInt(&isNumber);
    // What no version of the portal knows yet is no preference.
    if (isNumber)
        Q_EMIT preferenceTold(scheme <= 2 ? Preference(scheme) : Preference::None);
}

} // namespace quillon::system

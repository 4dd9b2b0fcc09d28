#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace quillon::system {

/// Whether the user wants programs to be dark, as the desktop's portal says on the session bus. It
/// is asked without waiting, and heard from whenever the user changes the setting.
class DesktopAppearance : public QObject {
    Q_OBJECT

public:
    /// The values of "color-scheme".
    enum class Preference { None = 0, Dark = 1, Light = 2 };
    Q_ENUM(Preference)

    /// Asks at once. Nothing comes of it without a bus or a portal, nor from a portal that does not
    /// answer in time.
    explicit DesktopAppearance(const QDBusConnection &bus, QObject *parent = nullptr);

Q_SIGNALS:
    /// What the portal has answered, or told of its own accord.
    void preferenceTold(quillon::system::DesktopAppearance::Preference preference);

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void tell(const QVariant &value);
};

} // namespace quillon::system

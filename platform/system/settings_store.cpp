#include "platform/system/settings_store.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <chrono>

namespace quillon::system {

namespace {

constexpr std::chrono::seconds LongestWait(5);

QString entry(const QString &section, const QString &key) {
    return section + QLatin1Char('/') + key;
}

} // namespace

QString SettingsStore::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/quillon/Quillon XML Editor.ini");
}

QString SettingsStore::GetSetting(const QString &section, const QString &key,
                                  const QString &defaultValue) const {
    return QSettings(path_, QSettings::IniFormat)
        .value(entry(section, key), defaultValue)
        .toString();
}

void SettingsStore::SaveSetting(const QString &section, const QString &key,
                                const QString &value) const {
    QSettings(path_, QSettings::IniFormat).setValue(entry(section, key), value);
}

SettingsStore::Lock SettingsStore::lock() const {
    // QSettings has a lock of its own beside the file, but only for a single access.
    QDir().mkpath(QFileInfo(path_).absolutePath());
    auto lock = std::make_unique<QLockFile>(path_ + QStringLiteral(".changing"));
    lock->tryLock(std::chrono::milliseconds(LongestWait).count());
    return lock;
}

} // namespace quillon::system

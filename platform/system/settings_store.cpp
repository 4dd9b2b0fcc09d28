#include "platform/system/settings_store.h"

#include <QSettings>
#include <QStandardPaths>

namespace quillon::system {

namespace {

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

} // namespace quillon::system

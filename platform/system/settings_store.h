#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace quillon::system {

/// The user's settings of the program: texts in sections under keys, kept in one INI file in the
/// user's configuration folder. Every call reads or writes the file, so that instances running at
/// once see each other's changes.
class SettingsStore {
public:
    SettingsStore() : SettingsStore(defaultPath()) {}
    explicit SettingsStore(QString path) : path_(std::move(path)) {}

    QString GetSetting(const QString &section, const QString &key,
                       const QString &defaultValue = QString()) const;
    /// A store that cannot be written loses the setting without a word.
    void SaveSetting(const QString &section, const QString &key, const QString &value) const;

    /// While it lives no other instance gets one: what is read meanwhile may be written back
    /// changed. None is waited for longer than some seconds.
    using Lock = std::unique_ptr<QLockFile>;
    Lock lock() const;

    static QString defaultPath();

private:
    QString path_;
};

} // namespace quillon::system

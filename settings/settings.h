#pragma once

#include "platform/system/settings_store.h"
#include "settings/settings_table.h"

#include <QString>

#include <functional>
#include <optional>

namespace quillon::settings {

/// The user's settings (`basSetting`), kept in the settings store as the table of settings says.
class Settings : public Values {
public:
    explicit Settings(const system::SettingsStore &store);

    /// Reads everything. What is missing keeps the default, which for the placement is what the
    /// window has at the time. A value that cannot be converted, or is too small, does so, too,
    /// and is reported.
    void load(Placement &placement);
    /// Writes everything. The placement is written only when the window is in its normal state;
    /// else the one before stays. Editors that were taken off the end of the list stay in the
    /// store and come back.
    void save(const Placement &placement, bool isNormal) const;

    /// Writes the editors, and empties the places behind them: those that were there have been
    /// removed by the user in so many words.
    void saveEditors() const;

    /// Writes one value alone, for what windows that open later go by, e.g. &Values::themeMode.
    void saveAtOnce(QString Values::*value) const;
    /// Takes over what another window may have written so meanwhile.
    void reread(QString Values::*value);

    /// Receives the descriptions of broken settings.
    std::function<void(const QString &)> report;

private:
    QString text(const SettingRow &row) const;
    /// Nothing when the number is missing or broken.
    std::optional<qint16> number(const SettingRow &row) const;
    void tell(const SettingRow &row, const QString &value, const QString &fault) const;
    void write(const SettingRow &row, int number) const;
    void readEditors();
    void writeEditors() const;

    const system::SettingsStore &store_;
};

} // namespace quillon::settings

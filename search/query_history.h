#pragma once

#include "settings/settings_table.h"

#include <QStringList>

namespace quillon::search {

/// The queries that were made last, in this run of the program and in earlier ones.
class QueryHistory {
public:
    explicit QueryHistory(const system::SettingsStore &store) : store_(store) {}

    /// At most 30, the oldest first.
    QStringList read() const;
    /// Makes a query the latest one.
    void add(const QString &query) const;

private:
    const system::SettingsStore &store_;
};

} // namespace quillon::search

#pragma once

#include "settings/settings_table.h"

#include <QStringList>

namespace quillon::document {

/// The list of recently opened files, most recent first. It is read and written on demand.
class RecentFiles {
public:
    /// Those that are read, and the one that has pushed the last of them out.
    static constexpr int MaxWritten = settings::RecentFileList.most + 1;

    explicit RecentFiles(const system::SettingsStore &store) : store_(store) {}

    /// At most ten paths. Files that no longer exist drop out; a path stands once, whatever the
    /// case of its letters.
    QStringList read() const;
    /// The files that were opened and are not there any more, in the same order.
    QStringList gone() const;
    /// Writes every entry. An eleventh is written, too, and never read back.
    void write(const QStringList &files) const;
    /// Puts a path in front.
    void add(const QString &path) const;

private:
    QStringList read(bool existing) const;

    const system::SettingsStore &store_;
};

} // namespace quillon::document

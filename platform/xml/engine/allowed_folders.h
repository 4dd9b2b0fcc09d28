#pragma once

#include <QStringList>

namespace quillon::xml {

/// The folders from which stylesheets, schemas and what belongs to them are read, in the order in
/// which a name is looked up. Everything else is out of reach.
class AllowedFolders {
public:
    AllowedFolders() = default;
    explicit AllowedFolders(const QStringList &folders);

    /// The path, links followed, of a file in one of the folders; empty when there is none, or when
    /// it leads out of them. A relative path is looked up in each folder. So is an absolute one
    /// that starts with one of them: the file may stand in the same place of another.
    QString find(const QString &name) const;

private:
    QString allowed(const QString &path) const;

    QStringList folders_;
};

} // namespace quillon::xml

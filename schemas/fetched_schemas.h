#pragma once

#include <QByteArray>
#include <QString>

namespace quillon::schemas {

/// The schemas that the user has had fetched, in a folder of the user's cache. A file stands there
/// as at its address, host and folders, so that parts of a schema find each other.
class FetchedSchemas {
public:
    explicit FetchedSchemas(QString folder) : folder_(std::move(folder)) {}

    static QString defaultFolder();

    const QString &folder() const { return folder_; }
    /// The address by which something can be fetched: it is never fetched in the clear. Empty for
    /// what is no address of the web.
    static QString fetchable(const QString &address);
    /// The file of an address, whether or not it is there; empty for what cannot be fetched.
    QString pathOf(const QString &address) const;
    /// Keeps what has been fetched. Raises with the reason when it cannot be written.
    void keep(const QString &address, const QByteArray &content) const;

    qsizetype count() const;
    void clear() const;

private:
    QString folder_;
};

} // namespace quillon::schemas

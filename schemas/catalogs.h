#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace quillon::schemas {

/// What the OASIS catalogs of the system and of the user say: /etc/xml/catalog, or those that the
/// variable XML_CATALOG_FILES names, and further ones. They are read when something is asked for
/// first, from local files alone, whatever one catalog says of another.
///
/// libxml2 keeps them for the whole process, and reads them as it likes: to be used in a child
/// process only.
class Catalogs {
public:
    explicit Catalogs(QStringList furtherFiles) : furtherFiles_(std::move(furtherFiles)) {}

    struct Answer {
        /// The local file; empty when no catalog knows the name, or when what it says is no local
        /// file.
        QString path;
        /// What a catalog says where that is an address of another machine's.
        QString refused;

        bool isEmpty() const { return path.isEmpty() && refused.isEmpty(); }
    };

    /// For an external identifier of a document type; either part may be empty.
    Answer entity(const QString &publicId, const QString &systemId);
    /// For an address or the name of a namespace, whatever kind of entry has it.
    Answer address(const QString &name);

private:
    void load();

    QStringList furtherFiles_;
    bool isLoaded_ = false;
};

} // namespace quillon::schemas

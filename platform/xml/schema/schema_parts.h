#pragma once

#include "platform/xml/engine/allowed_folders.h"

#include <QByteArray>

namespace quillon::xml {

/// The addresses of the schemas that the program brings along start so; a file name follows.
inline const QString BuiltInSchemas = QStringLiteral("quillon-schema:");

/// The address of the schema that the program brings along for a namespace; empty for most.
QString builtInSchemaFor(const QString &namespaceName);

/// The files that a schema or a DTD consists of: they stand in some folders, or are not read at
/// all. They are known by addresses in the schema's own folder, wherever they really stand.
class SchemaParts {
public:
    /// `schemaPath` is the schema itself; its folder is the base of relative names. Everything else
    /// is looked up in the other folders first.
    SchemaParts(const QString &schemaPath, const QStringList &partFolders);

    /// The schema's own folder, links followed.
    const QString &folder() const { return folder_; }
    /// A file of the schema's folder as an address.
    QString addressOf(const QString &fileName) const;
    /// The path of the file at an address; empty when there is none that may be read.
    QString find(const QString &address) const;

    /// The text of a file in UTF-8, which says so in its declaration; null when it cannot be read
    /// or decoded.
    static QByteArray read(const QString &path);

private:
    QString folder_;
    QString schemaName_;
    AllowedFolders schemaFolder_;
    AllowedFolders partFolders_;
};

/// Makes a text in UTF-8 declare that it is.
void declareUtf8(QByteArray &text);

} // namespace quillon::xml

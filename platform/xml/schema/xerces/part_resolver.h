#pragma once

#include "platform/xml/schema/schema_parts.h"
#include "platform/xml/schema/schema_source.h"

#include <QHash>
#include <QStringList>

#include <memory>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>

namespace quillon::xml {

/// Text in UTF-8 to be read under an address, whatever its declaration says.
std::unique_ptr<xercesc::InputSource> inputOf(const QByteArray &utf8, const QString &address);

/// Gives Xerces the files that it asks for: parts of schemas and DTDs from the folders allowed, and
/// nothing else.
class PartResolver final : public xercesc::XMLEntityResolver {
public:
    /// `schemas`: those from which imports that tell no file are answered.
    PartResolver(const SchemaParts &parts, std::vector<XsdSource> schemas, PartCatalog catalog)
        : parts_(parts), schemas_(std::move(schemas)), catalog_(std::move(catalog)) {}

    /// The document names a DTD by that system identifier, which is that file. An empty path: it is
    /// not read.
    void setDtd(const QString &systemId, const QString &path) {
        dtdName_ = systemId;
        dtdPath_ = path;
    }

    xercesc::InputSource *resolveEntity(xercesc::XMLResourceIdentifier *wanted) override;

    /// What schemas import and was not found, each once: the place as it stands in the schema, or
    /// the namespace.
    const QStringList &missingImports() const { return missingImports_; }
    /// The first other part of a schema, or of a document and its DTD, that was not found: the name
    /// of the file; null for none.
    const QString &missingPart() const { return missingPart_; }
    const QString &missingEntity() const { return missingEntity_; }
    /// The text of a file that was read under an address.
    QByteArray textOf(const QString &address) const { return SchemaParts::read(pathOf(address)); }

private:
    QString pathOf(const QString &address) const;
    /// The address of what is imported; empty when there is none.
    QString imported(const QString &address, const QString &namespaceName);
    /// Never null.
    std::unique_ptr<xercesc::InputSource> entity(const QString &name, const QString &publicId,
                                                 const QString &base);
    /// The address of a copy that the catalog knows for one of these names; empty when it knows
    /// none. What stands beside it may be read from then on.
    QString copyOf(const QStringList &names);
    /// Null when there is none. Raises Fail when its entities multiply.
    std::unique_ptr<xercesc::InputSource> openedSchema(const QString &address) const;
    std::unique_ptr<xercesc::InputSource> opened(const QString &path, const QString &address) const;

    const SchemaParts &parts_;
    std::vector<XsdSource> schemas_;
    PartCatalog catalog_;
    QStringList copyFolders_;
    /// What the catalog has answered, by address. It may be a link that leads anywhere.
    QHash<QString, QString> copies_;
    QString dtdName_;
    QString dtdPath_;
    QStringList missingImports_;
    QString missingPart_;
    QString missingEntity_;
};

} // namespace quillon::xml

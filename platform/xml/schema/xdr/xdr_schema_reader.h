#pragma once

#include "platform/xml/schema/xdr/xdr_schema.h"

namespace quillon::xdr {

/// Fills a Schema from its markup. All faults raise Fail with the line.
class SchemaReader {
public:
    /// `schemas` has the other schemas that this one refers to.
    SchemaReader(Schema &schema, SchemaSet &schemas) : schema_(schema), schemas_(schemas) {}

    /// Checks the markup and notes what is declared.
    void declare(const xml::Node &schemaElement);
    /// Then: reads the declarations, which may refer to each other.
    void resolve();

private:
    void checkMarkup(const xml::Node &schemaElement) const;
    void checkAttributes(const xml::Node &element, const QString &kind) const;
    void readElementType(const xml::Node &declaration, ElementType &type);
    void readContent(const xml::Node &declaration, ElementType &type);
    AttributeType readAttributeType(const xml::Node &declaration) const;
    void readAttribute(const xml::Node &use, const QHash<QString, AttributeType> &local,
                       ElementType &type);
    void applyDefault(const xml::Node &declaration, AttributeType &attribute) const;
    std::optional<Datatype> readDatatype(const xml::Node &declaration) const;
    void readLimits(const xml::Node &from, std::optional<Datatype> &datatype) const;
    std::optional<qint64> readLength(const xml::Node &from, const QString &name) const;

    ContentModel::Fragment readGroup(const xml::Node &group, const QString &order,
                                     ContentModel &model);
    ContentModel::Fragment readOccurrence(const xml::Node &particle, ContentModel &model,
                                          const ContentModel::Fragment &fragment) const;
    const ElementType *resolveElement(const xml::Node &use);

    QString name(const xml::Node &declaration) const;
    /// The schema that the prefix of a type's name stands for.
    const Schema &schemaOf(const xml::Node &use, const QString &typeName, const QString &kind);
    /// An attribute that has one of a few values; the first one when it is missing.
    QString oneOf(const xml::Node &element, const QString &attribute,
                  const QStringList &values) const;
    [[noreturn]] void fail(const xml::Node &at, const QString &reason) const;
    [[noreturn]] void failValue(const xml::Node &at, const QString &attribute,
                                const QString &value) const;

    struct Declaration {
        xml::Node node;
        std::shared_ptr<ElementType> type;
    };

    Schema &schema_;
    SchemaSet &schemas_;
    std::vector<Declaration> declarations_;
};

} // namespace quillon::xdr

#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/engine/allowed_folders.h"
#include "platform/xml/schema/xdr/xdr_content_model.h"
#include "platform/xml/schema/xdr/xdr_datatype.h"

#include <QHash>
#include <QMap>

#include <memory>
#include <optional>
#include <vector>

namespace quillon::xdr {

/// The namespace of the elements of a schema.
inline const QString SchemaNamespace = QStringLiteral("urn:schemas-microsoft-com:xml-data");
/// The namespace of dt:type and its like, and of dt:dt in documents.
inline const QString DatatypeNamespace = QStringLiteral("urn:schemas-microsoft-com:datatypes");
/// How the name of a namespace starts that says where its schema is.
inline const QString AddressPrefix = QStringLiteral("x-schema:");

class Schema;

enum class Content : quint8 { Empty, TextOnly, EltOnly, Mixed };

/// An attribute as it is declared, or as an element type uses it.
struct AttributeType {
    QString name;
    Datatype datatype;
    std::optional<QString> defaultValue;
    bool required = false;

    /// Both at once fix the value.
    bool isFixed() const { return required && defaultValue; }
};

/// Name of an attribute in AttributeUses: its own name, for one of another schema after that
/// schema's namespace.
inline QString attributeKey(const QString &namespaceName, const QString &localName) {
    return namespaceName.isEmpty() ? localName : u'{' + namespaceName + u'}' + localName;
}
using AttributeUses = QHash<QString, AttributeType>;

struct ElementType {
    QString name;
    const Schema *schema = nullptr;
    Content content = Content::Mixed;
    bool open = true;
    /// Nothing when the text is not typed.
    std::optional<Datatype> datatype;
    AttributeUses attributes;
    /// Those attributes that matter when they are missing.
    QMap<QString, AttributeType> watched;
    ContentModel model;
};

/// What one schema declares.
class Schema {
public:
    Schema(QString nameOfNamespace, QString nameForMessages)
        : namespaceName(std::move(nameOfNamespace)), displayName(std::move(nameForMessages)) {}

    /// The element type of a name, or null.
    const ElementType *element(const QString &name) const {
        const auto found = elementTypes.constFind(name);
        return found == elementTypes.constEnd() ? nullptr : found->get();
    }
    /// The attribute type of a name, or null.
    const AttributeType *attribute(const QString &name) const {
        const auto found = attributeTypes.constFind(name);
        return found == attributeTypes.constEnd() ? nullptr : &*found;
    }

    const QString namespaceName;
    /// For messages.
    const QString displayName;
    QHash<QString, std::shared_ptr<ElementType>> elementTypes;
    QHash<QString, AttributeType> attributeTypes;
};

/// The schemas known by the names of their namespaces.
class SchemaSet {
public:
    /// Schemas are looked up in these folders only.
    explicit SchemaSet(const QStringList &folders) : folders_(folders) {}

    /// Adds a schema, given as its Schema element. Raises Fail, with the line, for one that is no
    /// schema or has faults; the set is then as it was.
    void add(const QString &namespaceName, const QString &displayName,
             const xml::Node &schemaElement);
    /// The schema of a namespace; one that says where its schema is has it loaded. Null for a
    /// namespace without a schema. Raises Fail when a schema cannot be loaded.
    const Schema *find(const QString &namespaceName);

private:
    const Schema *load(const QString &namespaceName);

    xml::AllowedFolders folders_;
    QHash<QString, std::shared_ptr<Schema>> schemas_;
};

} // namespace quillon::xdr

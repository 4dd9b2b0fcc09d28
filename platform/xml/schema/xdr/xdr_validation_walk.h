#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/xdr/xdr_schema.h"

#include <QSet>

#include <vector>

namespace quillon::xdr {

/// One validation: a walk over the document that keeps what is known of every open element.
class ValidationWalk final : public xml::NodeVisitor {
public:
    ValidationWalk(const xml::DOMDocument40 &document, SchemaSet &schemas)
        : document_(document), schemas_(schemas) {}

    void enter(quint32 number, xml::NodeType kind) override;
    void leave() override;
    /// To be called after the walk: checks what needs the whole document, and gives the errors.
    std::vector<xml::SchemaError> finish();

private:
    struct Namespace {
        QString prefix;
        QString name;
        const Schema *schema = nullptr;
        /// `schema` has been looked up.
        bool known = false;
    };
    /// An element that is not complete yet.
    struct OpenElement {
        xml::Node node;
        /// Where its own namespaces start.
        std::size_t namespaceCount = 0;
        /// Null when it is not validated.
        const ElementType *type = nullptr;
        ContentModel::State state = {};
        /// Has children beyond those of the declared model.
        bool extended = false;
        /// Its content has been found wrong; one error is enough.
        bool failed = false;
        bool hasText = false;
        bool hasChildren = false;
        /// Part of a schema that stands in the document.
        bool isSchema = false;
    };
    struct Attribute {
        QString name;
        QString value;
    };
    struct Reference {
        xml::Node element;
        /// Empty when the element itself refers.
        QString attribute;
        QString id;
    };

    void startElement();
    void endElement();
    void readAttributes();
    void addToParent(const ElementType *type, const Schema *schema, const QString &name);
    void enterSchema();
    void checkText(quint32 number);
    void checkValue();
    void checkAttributes(const ElementType &type);
    void checkAttribute(const AttributeType *type, const Attribute &attribute);
    /// An attribute that the element type does not list.
    void checkExtraAttribute(const ElementType &type, const Attribute &attribute);
    void checkMissing(const ElementType &type);
    void noteIdentity(const Datatype &datatype, const QString &attribute, const QString &value);
    bool isDeclaredName(const Datatype &datatype, const QString &value);
    void readDocumentType();

    Namespace *findNamespace(const QString &prefix);
    QString namespaceOf(const QString &prefix);
    /// An attribute's place in AttributeUses.
    QString keyOf(const QString &attributeName);
    const Schema *schemaOf(const QString &prefix);
    static QStringList expected(const OpenElement &element);
    void report(qint32 code, const QString &reason);
    void report(qint32 code, const QString &reason, const xml::Node &node);
    bool isFull() const { return errors_.size() > xml::MaxSchemaErrors; }

    const xml::DOMDocument40 &document_;
    SchemaSet &schemas_;
    std::vector<xml::NodeType> kinds_;
    std::vector<OpenElement> open_;
    std::vector<Namespace> namespaces_;
    /// The start tag of the innermost open element is not complete.
    bool starting_ = false;
    std::vector<quint32> attributeNumbers_;
    std::vector<Attribute> attributes_;
    bool foundSchema_ = false;
    bool readDocumentType_ = false;
    QSet<QString> entities_;
    QSet<QString> notations_;
    QSet<QString> ids_;
    std::vector<Reference> references_;
    std::vector<xml::SchemaError> errors_;
};

} // namespace quillon::xdr

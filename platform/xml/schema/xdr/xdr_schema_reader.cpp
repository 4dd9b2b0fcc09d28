#include "platform/xml/schema/xdr/xdr_schema_reader.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/validation_texts.h"

#include <QSet>

#include <algorithm>

namespace quillon::xdr {

using xml::Node;
using xml::NodeType;
namespace texts = resources::validation_texts;

namespace {

constexpr int MaxGroupDepth = 200;

/// What may stand in and on an element of a schema.
struct Grammar {
    QStringList children;
    QStringList attributes;
    bool datatypes = false;
};

const Grammar *grammarOf(const QString &kind) {
    static const QHash<QString, Grammar> grammar{
        {"Schema", {{"ElementType", "AttributeType", "description"}, {"name"}}},
        {"ElementType",
         {{"AttributeType", "attribute", "element", "group", "datatype", "description"},
          {"name", "content", "model", "order"},
          true}},
        {"AttributeType", {{"datatype", "description"}, {"name", "default", "required"}, true}},
        {"element", {{"description"}, {"type", "minOccurs", "maxOccurs"}}},
        {"attribute", {{"description"}, {"type", "default", "required"}}},
        {"group", {{"element", "group", "description"}, {"order", "minOccurs", "maxOccurs"}}},
        {"datatype", {{}, {}, true}},
        {"description", {}},
    };
    const auto found = grammar.constFind(kind);
    return found == grammar.constEnd() ? nullptr : &*found;
}

/// The local name of an element of the schema language; empty for any other node.
QString kindOf(const Node &node) {
    if (node.nodeType() != NodeType::Element)
        return {};
    const QString name = node.nodeName();
    return xml::namespaceAt(node, xml::prefixOf(name)) == SchemaNamespace ? xml::localNameOf(name)
                                                                          : QString();
}

std::optional<QString> datatypeAttribute(const Node &element, const QString &localName) {
    for (int i = 0; const Node attribute = element.attributes().item(i); ++i) {
        const QString name = attribute.nodeName();
        if (name.contains(u':') && xml::localNameOf(name) == localName &&
            xml::namespaceAt(element, xml::prefixOf(name)) == DatatypeNamespace)
            return attribute.nodeValue();
    }
    return {};
}

bool isNamespaceDeclaration(const QString &attribute) {
    return attribute == QLatin1String("xmlns") || attribute.startsWith(QLatin1String("xmlns:"));
}

/// Calls a function with every child that belongs to the schema language, and its kind.
template <typename Function>
void forEachPart(const Node &element, Function &&function) {
    for (Node child = element.firstChild(); child; child = child.nextSibling()) {
        if (const QString kind = kindOf(child); !kind.isEmpty())
            function(child, kind);
    }
}

/// The content has an inner structure.
bool hasGroups(const Node &declaration) {
    bool found = false;
    forEachPart(declaration, [&](const Node &, const QString &kind) {
        found = found || kind == QLatin1String("group");
    });
    return found;
}

} // namespace

void SchemaReader::fail(const Node &at, const QString &reason) const {
    xml::raiseSchemaError(schema_.displayName, xml::lineOf(at), reason);
}

void SchemaReader::failValue(const Node &at, const QString &attribute, const QString &value) const {
    fail(at, value.trimmed().isEmpty()
                 ? texts::XdrEmptyAttribute.toString().arg(attribute, at.nodeName())
                 : texts::XdrInvalidAttribute.toString().arg(attribute, at.nodeName(), value));
}

void SchemaReader::declare(const Node &schemaElement) {
    if (kindOf(schemaElement) != QLatin1String("Schema"))
        fail(schemaElement, texts::NotAnXdr.toString());
    checkMarkup(schemaElement);
    forEachPart(schemaElement, [this](const Node &child, const QString &kind) {
        if (kind == QLatin1String("ElementType")) {
            const auto type = std::make_shared<ElementType>();
            type->name = name(child);
            type->schema = &schema_;
            if (schema_.elementTypes.contains(type->name))
                fail(child, texts::XdrDuplicate.toString().arg(type->name));
            schema_.elementTypes.insert(type->name, type);
            declarations_.push_back({child, type});
        } else if (kind == QLatin1String("AttributeType")) {
            const AttributeType type = readAttributeType(child);
            if (schema_.attributeTypes.contains(type.name))
                fail(child, texts::XdrDuplicate.toString().arg(type.name));
            schema_.attributeTypes.insert(type.name, type);
        }
    });
}

void SchemaReader::resolve() {
    for (const Declaration &declaration : declarations_)
        readElementType(declaration.node, *declaration.type);
}

void SchemaReader::checkMarkup(const Node &schemaElement) const {
    // Without recursion: nothing is known yet of how deeply the elements nest.
    int depth = 0;
    for (Node at = schemaElement; at;) {
        const QString kind = kindOf(at);
        if (!kind.isEmpty() && at != schemaElement) {
            const QString parent = kindOf(at.parentNode());
            if (!grammarOf(parent)->children.contains(kind))
                fail(at, texts::XdrUnknownElement.toString().arg(at.nodeName(),
                                                                 at.parentNode().nodeName()));
        }
        if (!kind.isEmpty())
            checkAttributes(at, kind);
        // What stands in foreign elements and in descriptions is nobody's business here.
        const bool enters = !kind.isEmpty() && kind != QLatin1String("description");
        if (const Node child = enters ? at.firstChild() : Node()) {
            if (++depth > MaxGroupDepth)
                fail(at, texts::XdrTooDeep.toString());
            at = child;
            continue;
        }
        for (; at != schemaElement && !at.nextSibling(); --depth)
            at = at.parentNode();
        at = at == schemaElement ? Node() : at.nextSibling();
    }
}

void SchemaReader::checkAttributes(const Node &element, const QString &kind) const {
    static const QStringList known{"type", "values", "minLength",    "maxLength",
                                   "min",  "max",    "minExclusive", "maxExclusive"};
    const Grammar &grammar = *grammarOf(kind);
    for (int i = 0; const Node attribute = element.attributes().item(i); ++i) {
        const QString qualified = attribute.nodeName();
        if (isNamespaceDeclaration(qualified))
            continue;
        const QString local = xml::localNameOf(qualified);
        bool allowed = true;
        if (!qualified.contains(u':'))
            allowed = grammar.attributes.contains(local);
        else if (xml::namespaceAt(element, xml::prefixOf(qualified)) == DatatypeNamespace)
            allowed = grammar.datatypes && known.contains(local);
        if (!allowed)
            fail(element, texts::XdrUnknownAttribute.toString().arg(qualified, element.nodeName()));
    }
}

QString SchemaReader::name(const Node &declaration) const {
    const std::optional<QString> given = declaration.getAttribute(QStringLiteral("name"));
    if (!given)
        fail(declaration, texts::XdrMissingAttribute.toString().arg(QStringLiteral("name"),
                                                                    declaration.nodeName()));
    if (given->contains(u':') || !isValue({Type::Id}, *given))
        failValue(declaration, QStringLiteral("name"), *given);
    return *given;
}

QString SchemaReader::oneOf(const Node &element, const QString &attribute,
                            const QStringList &values) const {
    const QString value = element.getAttribute(attribute).value_or(values.first());
    if (!values.contains(value))
        failValue(element, attribute, value);
    return value;
}

std::optional<qint64> SchemaReader::readLength(const Node &from, const QString &name) const {
    const std::optional<QString> given = datatypeAttribute(from, name);
    if (!given)
        return {};
    if (!isValue({Type::Ui4}, *given))
        failValue(from, QStringLiteral("dt:") + name, *given);
    return given->trimmed().toLongLong();
}

void SchemaReader::readLimits(const Node &from, std::optional<Datatype> &datatype) const {
    const auto part = [&]() -> Datatype & { return datatype ? *datatype : datatype.emplace(); };
    if (const std::optional<QString> typeName = datatypeAttribute(from, QStringLiteral("type"))) {
        const std::optional<Type> type = typeByName(*typeName);
        if (!type)
            failValue(from, QStringLiteral("dt:type"), *typeName);
        part().type = *type;
    }
    if (const auto values = datatypeAttribute(from, QStringLiteral("values")))
        part().values = values->simplified().split(u' ', Qt::SkipEmptyParts);
    if (const auto length = readLength(from, QStringLiteral("minLength")))
        part().minLength = length;
    if (const auto length = readLength(from, QStringLiteral("maxLength")))
        part().maxLength = length;
}

std::optional<Datatype> SchemaReader::readDatatype(const Node &declaration) const {
    std::optional<Datatype> datatype;
    readLimits(declaration, datatype);
    bool found = false;
    forEachPart(declaration, [&](const Node &child, const QString &kind) {
        if (kind != QLatin1String("datatype"))
            return;
        if (found || datatypeAttribute(declaration, QStringLiteral("type")))
            fail(child,
                 texts::XdrUnknownElement.toString().arg(child.nodeName(), declaration.nodeName()));
        found = true;
        readLimits(child, datatype);
    });
    if (datatype && datatype->type == Type::Enumeration && datatype->values.isEmpty())
        fail(declaration, texts::XdrMissingAttribute.toString().arg(QStringLiteral("dt:values"),
                                                                    declaration.nodeName()));
    if (datatype && datatype->type != Type::Enumeration && !datatype->values.isEmpty())
        failValue(declaration, QStringLiteral("dt:values"), datatype->values.join(u' '));
    if (datatype && datatype->minLength && datatype->maxLength &&
        *datatype->minLength > *datatype->maxLength)
        failValue(declaration, QStringLiteral("dt:minLength"),
                  QString::number(*datatype->minLength));
    return datatype;
}

void SchemaReader::applyDefault(const Node &declaration, AttributeType &attribute) const {
    if (const auto given = declaration.getAttribute(QStringLiteral("default")))
        attribute.defaultValue = given;
    if (declaration.getAttribute(QStringLiteral("required")))
        attribute.required =
            oneOf(declaration, QStringLiteral("required"), {"no", "yes"}) == QLatin1String("yes");
    if (attribute.defaultValue && (!isValue(attribute.datatype, *attribute.defaultValue) ||
                                   !isLengthAllowed(attribute.datatype, *attribute.defaultValue)))
        fail(declaration,
             texts::XdrBadDefault.toString().arg(attribute.name, *attribute.defaultValue));
}

AttributeType SchemaReader::readAttributeType(const Node &declaration) const {
    AttributeType type;
    type.name = name(declaration);
    type.datatype = readDatatype(declaration).value_or(Datatype());
    applyDefault(declaration, type);
    return type;
}

const Schema &SchemaReader::schemaOf(const Node &use, const QString &typeName,
                                     const QString &kind) {
    const QString prefix = xml::prefixOf(typeName);
    if (prefix.isEmpty())
        return schema_;
    const QString namespaceName = xml::namespaceAt(use, prefix);
    const Schema *schema = namespaceName.isNull() ? nullptr : schemas_.find(namespaceName);
    if (!schema)
        fail(use, texts::XdrUndefinedType.toString().arg(typeName, kind));
    return *schema;
}

void SchemaReader::readAttribute(const Node &use, const QHash<QString, AttributeType> &local,
                                 ElementType &type) {
    const QString kind = QStringLiteral("AttributeType");
    const std::optional<QString> typeName = use.getAttribute(QStringLiteral("type"));
    if (!typeName)
        fail(use,
             texts::XdrMissingAttribute.toString().arg(QStringLiteral("type"), use.nodeName()));
    if (typeName->isEmpty())
        failValue(use, QStringLiteral("type"), *typeName);
    const Schema &schema = schemaOf(use, *typeName, kind);
    const QString localName = xml::localNameOf(*typeName);
    const auto own = &schema == &schema_ ? local.constFind(localName) : local.constEnd();
    const AttributeType *declared = own != local.constEnd() ? &*own : schema.attribute(localName);
    if (!declared)
        fail(use, texts::XdrUndefinedType.toString().arg(*typeName, kind));
    AttributeType attribute = *declared;
    applyDefault(use, attribute);
    const QString key =
        attributeKey(&schema == &schema_ ? QString() : schema.namespaceName, localName);
    if (type.attributes.contains(key))
        fail(use, texts::XdrDuplicate.toString().arg(*typeName));
    type.attributes.insert(key, attribute);
    if (attribute.required || attribute.defaultValue)
        type.watched.insert(key, attribute);
}

void SchemaReader::readElementType(const Node &declaration, ElementType &type) {
    QHash<QString, AttributeType> local;
    forEachPart(declaration, [&](const Node &child, const QString &kind) {
        if (kind != QLatin1String("AttributeType"))
            return;
        const AttributeType attribute = readAttributeType(child);
        if (local.contains(attribute.name))
            fail(child, texts::XdrDuplicate.toString().arg(attribute.name));
        local.insert(attribute.name, attribute);
    });
    forEachPart(declaration, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("attribute"))
            readAttribute(child, local, type);
    });
    type.open =
        oneOf(declaration, QStringLiteral("model"), {"open", "closed"}) == QLatin1String("open");
    readContent(declaration, type);
}

void SchemaReader::readContent(const Node &declaration, ElementType &type) {
    static const QStringList names{"mixed", "empty", "textOnly", "eltOnly"};
    type.datatype = readDatatype(declaration);
    if (type.datatype && type.datatype->type == Type::Enumeration)
        failValue(declaration, QStringLiteral("dt:type"), nameOf(Type::Enumeration));
    QString content = oneOf(declaration, QStringLiteral("content"), names);
    // A data type makes the content text, unless that contradicts what is said.
    if (type.datatype && !declaration.getAttribute(QStringLiteral("content")))
        content = QStringLiteral("textOnly");
    type.content = content == QLatin1String("empty")      ? Content::Empty
                   : content == QLatin1String("textOnly") ? Content::TextOnly
                   : content == QLatin1String("eltOnly")  ? Content::EltOnly
                                                          : Content::Mixed;
    bool particles = false;
    forEachPart(declaration, [&](const Node &, const QString &kind) {
        particles = particles || kind == QLatin1String("element") || kind == QLatin1String("group");
    });
    const bool takesElements = type.content == Content::EltOnly || type.content == Content::Mixed;
    if ((particles && !takesElements) || (type.datatype && type.content != Content::TextOnly))
        fail(declaration, texts::XdrContradiction.toString().arg(type.name));

    const bool mixed = type.content == Content::Mixed;
    const QString order =
        oneOf(declaration, QStringLiteral("order"),
              mixed ? QStringList{"many", "seq", "one"} : QStringList{"seq", "one", "many"});
    ContentModel model;
    const ContentModel::Fragment whole = readGroup(declaration, order, model);
    // Mixed content has no order and no numbers, whatever is said.
    if (mixed || (order == QLatin1String("many") && !hasGroups(declaration)))
        type.model.takeAnyOf(model.types());
    else if (takesElements) {
        model.finish(whole);
        type.model = std::move(model);
    }
}

const ElementType *SchemaReader::resolveElement(const Node &use) {
    const QString kind = QStringLiteral("ElementType");
    const std::optional<QString> typeName = use.getAttribute(QStringLiteral("type"));
    if (!typeName)
        fail(use,
             texts::XdrMissingAttribute.toString().arg(QStringLiteral("type"), use.nodeName()));
    if (typeName->isEmpty())
        failValue(use, QStringLiteral("type"), *typeName);
    const ElementType *type = schemaOf(use, *typeName, kind).element(xml::localNameOf(*typeName));
    if (!type)
        fail(use, texts::XdrUndefinedType.toString().arg(*typeName, kind));
    return type;
}

ContentModel::Fragment SchemaReader::readOccurrence(const Node &particle, ContentModel &model,
                                                    const ContentModel::Fragment &fragment) const {
    const bool optional = oneOf(particle, QStringLiteral("minOccurs"), {"1", "0"}) == u"0";
    const bool unbounded = oneOf(particle, QStringLiteral("maxOccurs"), {"1", "*"}) == u"*";
    return optional || unbounded ? model.repeat(fragment, optional ? 0 : 1, unbounded) : fragment;
}

ContentModel::Fragment SchemaReader::readGroup(const Node &group, const QString &order,
                                               ContentModel &model) {
    std::vector<ContentModel::Fragment> parts;
    forEachPart(group, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("element"))
            parts.push_back(readOccurrence(child, model, model.element(resolveElement(child))));
        if (kind == QLatin1String("group"))
            parts.push_back(readOccurrence(
                child, model,
                readGroup(child, oneOf(child, QStringLiteral("order"), {"seq", "one", "many"}),
                          model)));
    });
    if (order == QLatin1String("seq"))
        return model.sequence(parts);
    const ContentModel::Fragment any = model.choice(parts);
    return order == QLatin1String("one") ? any : model.repeat(any, 0, true);
}

} // namespace quillon::xdr

#include "platform/xml/schema/xdr/xdr_validation_walk.h"

#include "platform/xml/dom/qualified_name.h"
#include "resources/validation_texts.h"

#include <QRegularExpression>

#include <algorithm>

namespace quillon::xdr {

using xml::Node;
using xml::NodeType;
namespace code = xml::schema_error;
namespace texts = resources::validation_texts;

namespace {

QStringList tokensOf(const QString &value) {
    return value.simplified().split(u' ', Qt::SkipEmptyParts);
}

bool takesElements(const ElementType &type) {
    return type.content == Content::EltOnly || type.content == Content::Mixed;
}

} // namespace

void ValidationWalk::report(qint32 errorCode, const QString &reason, const Node &node) {
    if (!isFull())
        errors_.push_back({errorCode, reason, node, 0});
}

void ValidationWalk::report(qint32 errorCode, const QString &reason) {
    report(errorCode, reason, open_.back().node);
}

void ValidationWalk::enter(quint32 number, NodeType kind) {
    if (isFull())
        return;
    kinds_.push_back(kind);
    if (kind == NodeType::Attribute) {
        attributeNumbers_.push_back(number);
        return;
    }
    if (starting_)
        startElement();
    if (kind == NodeType::Element) {
        open_.push_back({.node = document_.nodeByNumber(number),
                         .namespaceCount = namespaces_.size(),
                         .isSchema = !open_.empty() && open_.back().isSchema});
        attributeNumbers_.clear();
        starting_ = true;
    } else if (kind == NodeType::Text || kind == NodeType::CDATASection ||
               kind == NodeType::EntityReference) {
        checkText(number);
    }
}

void ValidationWalk::leave() {
    if (isFull())
        return;
    const NodeType kind = kinds_.back();
    kinds_.pop_back();
    if (kind != NodeType::Element)
        return;
    if (starting_)
        startElement();
    endElement();
    namespaces_.resize(open_.back().namespaceCount);
    open_.pop_back();
}

void ValidationWalk::readAttributes() {
    attributes_.clear();
    for (const quint32 number : attributeNumbers_) {
        const Node node = document_.nodeByNumber(number);
        Attribute attribute{node.nodeName(), node.nodeValue()};
        if (attribute.name == QLatin1String("xmlns"))
            namespaces_.push_back({{}, attribute.value});
        else if (attribute.name.startsWith(QLatin1String("xmlns:")))
            namespaces_.push_back({attribute.name.mid(6), attribute.value});
        else
            attributes_.push_back(std::move(attribute));
    }
}

ValidationWalk::Namespace *ValidationWalk::findNamespace(const QString &prefix) {
    const auto found = std::find_if(namespaces_.rbegin(), namespaces_.rend(),
                                    [&](const Namespace &at) { return at.prefix == prefix; });
    return found == namespaces_.rend() ? nullptr : &*found;
}

QString ValidationWalk::namespaceOf(const QString &prefix) {
    const Namespace *found = findNamespace(prefix);
    return found ? found->name : QString();
}

QString ValidationWalk::keyOf(const QString &attributeName) {
    const QString prefix = xml::prefixOf(attributeName);
    return prefix.isEmpty() ? attributeName
                            : attributeKey(namespaceOf(prefix), xml::localNameOf(attributeName));
}

const Schema *ValidationWalk::schemaOf(const QString &prefix) {
    Namespace *found = findNamespace(prefix);
    // A prefix that is not declared stands for a namespace that nothing is known of.
    if (!found)
        return prefix.isEmpty() ? schemas_.find(QString()) : nullptr;
    if (!found->known) {
        found->schema = schemas_.find(found->name);
        found->known = true;
    }
    return found->schema;
}

void ValidationWalk::startElement() {
    starting_ = false;
    readAttributes();
    OpenElement &element = open_.back();
    if (element.isSchema)
        return;
    const QString name = element.node.nodeName();
    const QString prefix = xml::prefixOf(name);
    if (namespaceOf(prefix) == SchemaNamespace) {
        addToParent(nullptr, nullptr, name);
        enterSchema();
        return;
    }
    const Schema *schema = schemaOf(prefix);
    const ElementType *type = schema ? schema->element(xml::localNameOf(name)) : nullptr;
    addToParent(type, schema, name);
    if (!schema)
        return;
    foundSchema_ = true;
    if (!type) {
        report(code::UndeclaredElement, texts::UndeclaredElement.toString().arg(name));
        return;
    }
    element.type = type;
    element.state = type->model.start();
    checkAttributes(*type);
}

void ValidationWalk::enterSchema() {
    OpenElement &element = open_.back();
    element.isSchema = true;
    const std::optional<QString> name = element.node.getAttribute(QStringLiteral("name"));
    if (xml::localNameOf(element.node.nodeName()) == QLatin1String("Schema") && name)
        schemas_.add(AddressPrefix + u'#' + *name, u'#' + *name, element.node);
}

QStringList ValidationWalk::expected(const OpenElement &element) {
    QStringList names;
    for (const ElementType *type : element.type->model.expected(element.state))
        names.append(type->name);
    names.sort();
    return names;
}

void ValidationWalk::addToParent(const ElementType *type, const Schema *schema,
                                 const QString &name) {
    if (open_.size() < 2)
        return;
    OpenElement &parent = open_[open_.size() - 2];
    parent.hasChildren = true;
    if (!parent.type || parent.failed)
        return;
    const ElementType &parentType = *parent.type;
    if (takesElements(parentType)) {
        if (type && !parent.extended && parentType.model.advance(parent.state, type))
            return;
        // An open element may have more than what is declared, but after it.
        if (parentType.open && (parent.extended || parentType.model.accepts(parent.state))) {
            parent.extended = true;
            return;
        }
    }
    parent.failed = true;
    // That it is not declared says more than that it may not stand here.
    if (schema && !type)
        return;
    report(code::InvalidContent,
           xml::withExpected(texts::UnexpectedElement.toString().arg(parent.node.nodeName(), name),
                             takesElements(parentType) ? expected(parent) : QStringList()));
}

void ValidationWalk::checkText(quint32 number) {
    if (open_.empty() || !open_.back().type)
        return;
    OpenElement &element = open_.back();
    const Content content = element.type->content;
    if (element.hasText || content == Content::TextOnly || content == Content::Mixed)
        return;
    if (document_.nodeByNumber(number).text().trimmed().isEmpty())
        return;
    element.hasText = true;
    report(code::TextNotAllowed, texts::TextNotAllowed.toString().arg(element.node.nodeName()));
}

void ValidationWalk::endElement() {
    const OpenElement &element = open_.back();
    if (!element.type || element.failed)
        return;
    if (takesElements(*element.type) && !element.extended &&
        !element.type->model.accepts(element.state)) {
        const QString name = element.node.nodeName();
        if (element.hasChildren)
            report(code::IncompleteContent,
                   xml::withExpected(texts::IncompleteContent.toString().arg(name),
                                     expected(element)));
        else
            report(code::EmptyElement,
                   xml::withExpected(texts::EmptyElement.toString().arg(name), expected(element)));
    }
    if (element.type->datatype)
        checkValue();
}

void ValidationWalk::checkValue() {
    const OpenElement &element = open_.back();
    const Datatype &datatype = *element.type->datatype;
    const QString name = element.node.nodeName();
    const QString value = element.node.text();
    if (!isValue(datatype, value) || !isDeclaredName(datatype, value))
        report(code::InvalidDatatype,
               texts::InvalidDatatype.toString().arg(value, nameOf(datatype.type), name));
    else if (!isLengthAllowed(datatype, value))
        report(code::InvalidDatatype, texts::InvalidLength.toString().arg(name));
    else
        noteIdentity(datatype, QString(), value);
}

void ValidationWalk::checkAttributes(const ElementType &type) {
    for (const Attribute &attribute : attributes_) {
        const QString prefix = xml::prefixOf(attribute.name);
        if (prefix == QLatin1String("xml") ||
            (!prefix.isEmpty() && namespaceOf(prefix) == DatatypeNamespace))
            continue;
        const auto declared = type.attributes.constFind(keyOf(attribute.name));
        if (declared != type.attributes.constEnd())
            checkAttribute(&*declared, attribute);
        else
            checkExtraAttribute(type, attribute);
    }
    checkMissing(type);
}

void ValidationWalk::checkExtraAttribute(const ElementType &type, const Attribute &attribute) {
    const QString prefix = xml::prefixOf(attribute.name);
    if (type.open && !prefix.isEmpty()) {
        const Schema *schema = schemaOf(prefix);
        if (!schema)
            return;
        if (const AttributeType *declared = schema->attribute(xml::localNameOf(attribute.name))) {
            checkAttribute(declared, attribute);
            return;
        }
    }
    report(code::UndefinedAttribute,
           texts::UndefinedAttribute.toString().arg(attribute.name, open_.back().node.nodeName()));
}

void ValidationWalk::checkAttribute(const AttributeType *type, const Attribute &attribute) {
    // An empty value counts as none, but not as a missing attribute.
    if (attribute.value.isEmpty())
        return;
    const QString element = open_.back().node.nodeName();
    if (type->isFixed() && attribute.value != *type->defaultValue)
        report(code::FixedAttribute, texts::FixedAttribute.toString().arg(attribute.name, element));
    else if (!isValue(type->datatype, attribute.value) ||
             !isLengthAllowed(type->datatype, attribute.value) ||
             !isDeclaredName(type->datatype, attribute.value))
        report(code::InvalidAttribute,
               texts::InvalidAttribute.toString().arg(attribute.name, element, attribute.value));
    else
        noteIdentity(type->datatype, attribute.name, attribute.value);
}

void ValidationWalk::checkMissing(const ElementType &type) {
    for (auto at = type.watched.cbegin(); at != type.watched.cend(); ++at) {
        const bool present = std::ranges::any_of(attributes_, [&](const Attribute &attribute) {
            return keyOf(attribute.name) == at.key();
        });
        const AttributeType &declared = at.value();
        if (present)
            continue;
        if (declared.required)
            report(code::MissingAttribute, texts::MissingAttribute.toString().arg(
                                               declared.name, open_.back().node.nodeName()));
        else
            noteIdentity(declared.datatype, declared.name, *declared.defaultValue);
    }
}

void ValidationWalk::noteIdentity(const Datatype &datatype, const QString &attribute,
                                  const QString &value) {
    const Node &element = open_.back().node;
    if (datatype.type == Type::Id) {
        const QString id = value.trimmed();
        if (ids_.contains(id))
            report(code::InvalidAttribute,
                   texts::DuplicateId.toString().arg(id, element.nodeName()));
        ids_.insert(id);
    } else if (datatype.type == Type::Idref || datatype.type == Type::Idrefs) {
        for (const QString &id : tokensOf(value))
            references_.push_back({element, attribute, id});
    }
}

void ValidationWalk::readDocumentType() {
    static const QRegularExpression entity(QStringLiteral("<!ENTITY\\s+([^\\s%]+)\\s"));
    static const QRegularExpression notation(QStringLiteral("<!NOTATION\\s+(\\S+)\\s"));
    readDocumentType_ = true;
    for (Node node = document_.node().firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() != NodeType::DocumentType)
            continue;
        const QString markup = QString::fromUtf8(node.xml());
        for (auto at = entity.globalMatch(markup); at.hasNext();)
            entities_.insert(at.next().captured(1));
        for (auto at = notation.globalMatch(markup); at.hasNext();)
            notations_.insert(at.next().captured(1));
    }
}

bool ValidationWalk::isDeclaredName(const Datatype &datatype, const QString &value) {
    const bool entity = datatype.type == Type::Entity || datatype.type == Type::Entities;
    if (!entity && datatype.type != Type::Notation)
        return true;
    if (!readDocumentType_)
        readDocumentType();
    const QSet<QString> &declared = entity ? entities_ : notations_;
    return std::ranges::all_of(tokensOf(value),
                               [&](const QString &name) { return declared.contains(name); });
}

std::vector<xml::SchemaError> ValidationWalk::finish() {
    for (const Reference &reference : references_) {
        if (ids_.contains(reference.id) || isFull())
            continue;
        if (reference.attribute.isEmpty())
            report(code::UndefinedId,
                   texts::UndefinedElementId.toString().arg(reference.element.nodeName(),
                                                            reference.id),
                   reference.element);
        else
            report(code::UndefinedId,
                   texts::UndefinedId.toString().arg(reference.attribute, reference.id),
                   reference.element);
    }
    if (!foundSchema_)
        report(code::NoSchemaFound, texts::NoSchemaFound.toString(), document_.documentElement());
    xml::setLines(errors_);
    return std::move(errors_);
}

} // namespace quillon::xdr

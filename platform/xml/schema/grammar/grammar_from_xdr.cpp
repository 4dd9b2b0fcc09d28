#include "platform/xml/schema/grammar/grammar_from_xdr.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/grammar/grammar_builder.h"
#include "platform/xml/schema/grammar/node_lines.h"
#include "platform/xml/schema/xdr/xdr_schema.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace quillon::grammar {

using xml::Node;

namespace {

/// In the order of xdr::Type.
constexpr std::array BuiltIns{
    "string",      "ID",           "IDREF",    "IDREFS",   "NMTOKEN",      "NMTOKENS",
    "ENTITY",      "ENTITIES",     "NOTATION", "NMTOKEN",  "base64Binary", "hexBinary",
    "boolean",     "string",       "date",     "dateTime", "dateTime",     "time",
    "time",        "decimal",      "double",   "double",   "float",        "integer",
    "byte",        "short",        "int",      "long",     "unsignedByte", "unsignedShort",
    "unsignedInt", "unsignedLong", "anyURI",   "string",
};
static_assert(BuiltIns.size() == static_cast<std::size_t>(xdr::Type::Uuid) + 1);

const QString UuidPattern = QStringLiteral("[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}");

/// The local name of an element of the schema language; empty for any other node.
QString kindOf(const Node &node) {
    if (node.nodeType() != xml::NodeType::Element)
        return {};
    const QString name = node.nodeName();
    return xml::namespaceAt(node, xml::prefixOf(name)) == xdr::SchemaNamespace
               ? xml::localNameOf(name)
               : QString();
}

template <typename Function>
void forEachPart(const Node &element, Function &&function) {
    for (Node child = element.firstChild(); child; child = child.nextSibling()) {
        if (const QString kind = kindOf(child); !kind.isEmpty())
            function(child, kind);
    }
}

QString value(const Node &node, const char *attribute, const char *without = "") {
    return node.getAttribute(QString::fromLatin1(attribute)).value_or(QString::fromLatin1(without));
}

class XdrReader {
public:
    XdrReader(const QString &path, SchemaFiles &files)
        : files_(files), builder_(Language::Xdr), schemas_({QFileInfo(path).absolutePath()}) {}

    Data read(const QString &path, const Node &root, const QString &namespaceName);

private:
    /// A schema whose declarations are to be read.
    struct Source {
        QString path;
        Node root;
        QString space;
        const xdr::Schema *schema = nullptr;
        /// The 1-based lines of its elements, by the numbers of the nodes.
        QHash<quint32, quint32> lines;
    };

    void readSchema(std::size_t source);
    void readElementType(const Source &source, const Node &declaration);
    Index element(const Source &source, const Node &at, const QString &typeName);
    QString spaceOf(const Source &source, const Node &at, const QString &typeName);
    void wantSchema(const Source &from, const QString &space);
    Index content(const Source &source, const Node &declaration, const xdr::ElementType &type);
    Index group(const Source &source, const Node &node, const QString &order, quint32 minimum,
                quint32 maximum);
    void collect(const Source &source, const Node &node, std::vector<Index> &elements);
    std::vector<Attribute> attributes(const Source &source, const Node &declaration,
                                      const xdr::ElementType &type);
    Index simpleType(const xdr::Datatype &datatype);
    Index description(const Node &node);
    Index wildcard(NamespaceRule rule);
    Place placeOf(const Source &source, const Node &node) {
        return {builder_.string(source.path), source.lines.value(node.number())};
    }

    SchemaFiles &files_;
    GrammarBuilder builder_;
    xdr::SchemaSet schemas_;
    std::vector<Source> sources_;
    QHash<QString, Index> elements_;
};

Data XdrReader::read(const QString &path, const Node &root, const QString &namespaceName) {
    const QString canonical = QFileInfo(path).canonicalFilePath();
    // The validator's reader has the last word on what a schema may be.
    schemas_.add(namespaceName, QFileInfo(path).fileName(), root);
    builder_.data.files.push_back(builder_.string(canonical));
    sources_.push_back({canonical, root, namespaceName, schemas_.find(namespaceName),
                        linesOfElements(root.ownerDocument())});
    // The list grows by the schemas that are referred to.
    for (std::size_t source = 0; source < sources_.size(); ++source)
        readSchema(source);
    return std::move(builder_.data);
}

void XdrReader::readSchema(std::size_t at) {
    const Source source = sources_[at];
    forEachPart(source.root, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("ElementType"))
            readElementType(source, child);
    });
}

void XdrReader::wantSchema(const Source &from, const QString &space) {
    if (std::ranges::find(sources_, space, &Source::space) != sources_.end())
        return;
    const QString path = files_.find(space.mid(xdr::AddressPrefix.size()), from.path);
    const std::optional<QByteArray> text = files_.read(path);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!text || !document.loadXML(*text)) {
        builder_.noteMissing(space);
        return;
    }
    builder_.data.files.push_back(builder_.string(path));
    sources_.push_back(
        {path, document.documentElement(), space, schemas_.find(space), linesOfElements(document)});
}

QString XdrReader::spaceOf(const Source &source, const Node &at, const QString &typeName) {
    const QString prefix = xml::prefixOf(typeName);
    const QString space = prefix.isEmpty() ? source.space : xml::namespaceAt(at, prefix);
    if (space != source.space)
        wantSchema(source, space);
    return space;
}

Index XdrReader::element(const Source &source, const Node &at, const QString &typeName) {
    const QString space = spaceOf(source, at, typeName);
    const QString local = xml::localNameOf(typeName);
    const QString key = space + u'\n' + local;
    if (const Index known = elements_.value(key, None); known != None)
        return known;
    Data &data = builder_.data;
    Element element;
    element.name = builder_.name(space, local);
    element.type = static_cast<Index>(data.types.size());
    element.isGlobal = 1;
    data.types.push_back({});
    data.elements.push_back(element);
    const auto place = static_cast<Index>(data.elements.size()) - 1;
    elements_.insert(key, place);
    return place;
}

void XdrReader::readElementType(const Source &source, const Node &declaration) {
    const QString name = value(declaration, "name");
    const xdr::ElementType *declared = source.schema ? source.schema->element(name) : nullptr;
    if (!declared)
        return;
    const Index at = element(source, declaration, name);
    Type type;
    const bool takesElements =
        declared->content == xdr::Content::EltOnly || declared->content == xdr::Content::Mixed;
    type.content = declared->content == xdr::Content::Empty      ? Content::Empty
                   : declared->content == xdr::Content::TextOnly ? Content::Text
                   : declared->content == xdr::Content::EltOnly  ? Content::Elements
                                                                 : Content::Mixed;
    if (takesElements)
        type.particle = content(source, declaration, *declared);
    if (declared->datatype)
        type.text = simpleType(*declared->datatype);
    type.attributes = builder_.attributes(attributes(source, declaration, *declared));
    if (declared->open)
        type.anyAttribute = wildcard(NamespaceRule::NotListed);
    type.documentation = description(declaration);
    type.place = placeOf(source, declaration);
    Element &element = builder_.data.elements[at];
    element.documentation = type.documentation;
    element.place = type.place;
    builder_.data.types[element.type] = type;
}

Index XdrReader::wildcard(NamespaceRule rule) {
    Wildcard any;
    any.rule = rule;
    any.process = Process::Lax;
    if (rule == NamespaceRule::NotListed)
        any.namespaces = builder_.stringList({QString()});
    builder_.data.wildcards.push_back(any);
    return static_cast<Index>(builder_.data.wildcards.size()) - 1;
}

Index XdrReader::content(const Source &source, const Node &declaration,
                         const xdr::ElementType &type) {
    const bool isMixed = type.content == xdr::Content::Mixed;
    const QString order = value(declaration, "order", isMixed ? "many" : "seq");
    Index declared = None;
    if (isMixed) {
        // Mixed content has no order and no numbers, whatever is said.
        std::vector<Index> elements;
        collect(source, declaration, elements);
        declared = builder_.group(ParticleKind::Choice, elements, 0, Unbounded);
    } else {
        declared = group(source, declaration, order, 1, 1);
    }
    if (!type.open)
        return declared;
    // An open element may have more than what is declared, but after it.
    const Index more =
        builder_.particle(ParticleKind::Wildcard, wildcard(NamespaceRule::Any), 0, Unbounded);
    return builder_.group(ParticleKind::Sequence, {declared, more});
}

void XdrReader::collect(const Source &source, const Node &node, std::vector<Index> &elements) {
    forEachPart(node, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("element"))
            elements.push_back(builder_.particle(ParticleKind::Element,
                                                 element(source, child, value(child, "type"))));
        else if (kind == QLatin1String("group"))
            collect(source, child, elements);
    });
}

Index XdrReader::group(const Source &source, const Node &node, const QString &order,
                       quint32 minimum, quint32 maximum) {
    std::vector<Index> parts;
    forEachPart(node, [&](const Node &child, const QString &kind) {
        const quint32 least = value(child, "minOccurs", "1") == QLatin1String("0") ? 0 : 1;
        const quint32 most = value(child, "maxOccurs", "1") == QLatin1String("*") ? Unbounded : 1;
        if (kind == QLatin1String("element"))
            parts.push_back(builder_.particle(
                ParticleKind::Element, element(source, child, value(child, "type")), least, most));
        else if (kind == QLatin1String("group"))
            parts.push_back(group(source, child, value(child, "order", "seq"), least, most));
    });
    if (order == QLatin1String("seq") || parts.empty())
        return builder_.group(ParticleKind::Sequence, parts, minimum, maximum);
    if (order == QLatin1String("one"))
        return builder_.group(ParticleKind::Choice, parts, minimum, maximum);
    return builder_.group(ParticleKind::Choice, parts, 0, Unbounded);
}

std::vector<Attribute> XdrReader::attributes(const Source &source, const Node &declaration,
                                             const xdr::ElementType &type) {
    std::vector<Attribute> list;
    forEachPart(declaration, [&](const Node &use, const QString &kind) {
        if (kind != QLatin1String("attribute"))
            return;
        const QString typeName = value(use, "type");
        const QString space = spaceOf(source, use, typeName);
        const QString foreign = space == source.space ? QString() : space;
        const auto found =
            type.attributes.constFind(xdr::attributeKey(foreign, xml::localNameOf(typeName)));
        if (found == type.attributes.constEnd())
            return;
        Attribute attribute;
        attribute.name = builder_.name(foreign, xml::localNameOf(typeName));
        attribute.type = simpleType(found->datatype);
        attribute.isRequired = found->required && !found->defaultValue;
        if (found->defaultValue) {
            attribute.valueRule = found->isFixed() ? ValueRule::Fixed : ValueRule::Default;
            attribute.value = builder_.string(*found->defaultValue);
        }
        attribute.documentation = description(use);
        attribute.place = placeOf(source, declaration);
        list.push_back(attribute);
    });
    return list;
}

Index XdrReader::simpleType(const xdr::Datatype &datatype) {
    const QString builtIn = QString::fromLatin1(BuiltIns[static_cast<std::size_t>(datatype.type)]);
    SimpleType type;
    type.base = builder_.builtInType(builtIn);
    const SimpleType &base = builder_.data.simpleTypes[type.base];
    const Range inherited = base.facets;
    type.variety = base.variety;
    type.whiteSpace = base.whiteSpace;
    type.members = base.members;
    type.name = builder_.name(xdr::DatatypeNamespace, xdr::nameOf(datatype.type));
    type.builtIn = builder_.string(builtIn);
    std::vector<FacetValue> facets;
    for (Index i = 0; i < inherited.count; ++i)
        facets.push_back(builder_.data.facets[inherited.first + i]);
    const auto add = [&](Facet facet, qint64 number) {
        facets.push_back({facet, builder_.string(QString::number(number))});
    };
    if (datatype.minLength)
        add(Facet::MinLength, *datatype.minLength);
    if (datatype.maxLength)
        add(Facet::MaxLength, *datatype.maxLength);
    if (datatype.type == xdr::Type::Char)
        add(Facet::Length, 1);
    if (datatype.type == xdr::Type::Fixed14_4) {
        add(Facet::TotalDigits, 18);
        add(Facet::FractionDigits, 4);
    }
    if (datatype.type == xdr::Type::Uuid)
        type.patterns = builder_.patterns({{builder_.string(UuidPattern), 0}});
    if (datatype.type == xdr::Type::Enumeration)
        type.enumeration = builder_.enumeration(datatype.values);
    type.facets = builder_.facets(facets);
    builder_.data.simpleTypes.push_back(type);
    return static_cast<Index>(builder_.data.simpleTypes.size()) - 1;
}

Index XdrReader::description(const Node &node) {
    QStringList texts;
    forEachPart(node, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("description"))
            texts.append(child.text().trimmed());
    });
    return builder_.string(texts.join(QLatin1String("\n\n")));
}

} // namespace

bool isXdr(const Node &root) {
    return kindOf(root) == QLatin1String("Schema");
}

Data grammarFromXdr(const QString &path, const Node &root, SchemaFiles &files,
                    const QString &namespaceName) {
    return XdrReader(path, files).read(path, root, namespaceName);
}

} // namespace quillon::grammar

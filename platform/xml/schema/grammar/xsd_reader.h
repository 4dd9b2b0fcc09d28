#pragma once

#include "platform/xml/schema/grammar/xsd_components.h"

namespace quillon::grammar {

/// Fills a grammar from the components of an XML Schema.
class XsdReader {
public:
    explicit XsdReader(SchemaFiles &files)
        : builder_(Language::Xsd), components_(files, builder_) {}

    Data read(const QStringList &paths);

private:
    /// Where a reader is: a node with the file it stands in.
    struct Spot {
        xml::Node node;
        int document = 0;
    };
    /// Attributes in the order of the schema, each name once.
    struct AttributeSet {
        std::vector<Attribute> list;
        std::vector<Name> prohibited;
        Index any = None;
    };
    enum class State : quint8 { Waiting, Building, Done };
    struct TypeWork {
        Spot spot;
        State state = State::Done;
        AttributeSet attributes;
    };
    class Depth;

    // xsd_reader.cpp
    Index globalElement(int component);
    Index localElement(const Spot &spot);
    void fillElement(Index element, const Spot &spot);
    Index typeOfElement(const Spot &spot);
    Index elementParticle(const Spot &spot, quint32 minimum, quint32 maximum);
    Index particle(const Spot &spot, const QString &kind);
    Index groupParticle(const Spot &spot);
    Index contentParticle(const Spot &spot);
    Index wildcard(const Spot &spot);
    void collectSubstitutes();
    /// What a declaration says about what may not stand in its place.
    QString blockedAt(const Spot &spot) const;
    Blocked blockedWays(const Spot &spot) const;
    bool maySubstitute(const Element &member, int head) const;

    // xsd_types.cpp
    void addAnyType();
    /// The type of a name; that of a component.
    Index namedType(const Spot &at, const QString &qualifiedName, int original = -1);
    Index componentType(int place);
    Index addType(const Type &type, const Spot &spot, State state);
    Index complexType(const Spot &spot, int component);
    Index textType(Index simpleType);
    void complete(Index type);
    void build(Index type);
    void buildSimpleContent(Index type, const Spot &content);
    void buildComplexContent(Index type, const Spot &content, bool isMixed);
    void setContent(Index type, Index particle, bool isMixed);
    Index derivedFrom(Index type, const Spot &derivation);
    void takeAttributes(Index type, Index base, AttributeSet own, bool extends);
    AttributeSet attributesIn(const Spot &spot);
    void addAttribute(const Spot &spot, AttributeSet &to);
    AttributeSet attributeGroup(const Spot &reference);
    Attribute globalAttribute(int component);
    void fillAttribute(const Spot &spot, Attribute &attribute);

    // xsd_simple_types.cpp
    Index namedSimpleType(const Spot &at, const QString &qualifiedName, int original = -1);
    Index simpleTypeOf(int component);
    Index simpleType(const Spot &spot, const Name &name, int original);
    Index restricted(const Spot &restriction, Index base, const Name &name);
    void readFacet(const Spot &spot, const QString &kind, std::vector<FacetValue> &facets,
                   std::vector<EnumerationValue> &values, std::vector<Pattern> &patterns,
                   SimpleType &type);
    /// The type that a child of a node defines; None when there is none.
    Index simpleTypeIn(const Spot &spot);

    const XsdDocument &documentOf(const Spot &spot) const {
        return components_.documents()[static_cast<std::size_t>(spot.document)];
    }
    const XsdComponent &component(int place) const {
        return components_.all()[static_cast<std::size_t>(place)];
    }
    Spot spotOf(int place) const { return {component(place).node, component(place).document}; }
    /// The component that a reference names; noted when there is none. A reference of a redefining
    /// component to its own name means what it redefines.
    int referred(ComponentKind kind, const Spot &at, const QString &qualifiedName, int original);
    int originalAround(ComponentKind kind, const Spot &spot) const;
    Name nameOf(const ExpandedName &name) { return builder_.name(name.space, name.local); }
    QString value(const xml::Node &node, const char *attribute) const;
    Index documentation(const Spot &spot);
    ValueRule valueRule(const xml::Node &node, Index &value);

    Place placeOf(const Spot &spot);

    GrammarBuilder builder_;
    XsdComponents components_;
    QHash<int, Index> elements_;
    QHash<int, Index> complexTypes_;
    QHash<int, Index> simpleTypes_;
    QHash<Index, Index> textTypes_;
    QHash<int, Index> groups_;
    QHash<int, AttributeSet> attributeGroups_;
    QHash<int, Attribute> attributes_;
    /// Components that are being built: what refers to itself comes here again.
    QSet<int> building_;
    /// As `types` of the grammar.
    std::vector<TypeWork> work_;
    Index anyType_ = None;
    int depth_ = 0;
};

/// Counts how deeply the reader is within itself. Raises Fail where that is too deep.
class XsdReader::Depth {
public:
    explicit Depth(XsdReader &reader);
    ~Depth() { --reader_.depth_; }
    Depth(const Depth &) = delete;
    Depth &operator=(const Depth &) = delete;

private:
    XsdReader &reader_;
};

} // namespace quillon::grammar

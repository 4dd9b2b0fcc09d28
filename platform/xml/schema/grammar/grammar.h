#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"

#include <QHash>

#include <memory>
#include <optional>
#include <span>

namespace quillon::grammar {

/// A name that may be none of the grammar's: each part is a place in its strings, or None for a
/// text that it does not have.
struct Symbol {
    Index space = None;
    Index local = None;

    bool operator==(const Symbol &) const = default;
};

/// A grammar that does not change any more, to be asked by name. A small value: copies share the
/// data.
class Grammar {
public:
    /// Data that a reader has made or fromBytes() has given.
    explicit Grammar(Data data);

    const Data &data() const { return content_->data; }
    const Element &element(Index element) const { return data().elements[element]; }
    const Type &type(Index type) const { return data().types[type]; }
    const Particle &particle(Index particle) const { return data().particles[particle]; }
    QStringView text(Index string) const { return data().strings.at(string); }

    std::span<const Attribute> attributesOf(const Type &type) const;
    std::span<const Index> substitutesOf(const Element &element) const;
    std::span<const Index> partsOf(const Particle &particle) const;

    /// A name of a document. An empty namespace is none.
    Symbol symbol(QStringView namespaceName, QStringView localName) const;

    /// The element that a root of that name is, or a child that a wildcard lets in; None when there
    /// is none.
    Index globalElement(const Symbol &name) const;
    /// All of these, in the order of the schema.
    const std::vector<Index> &globalElements() const { return content_->globals; }
    /// The element that a child of an element of a type is, wherever it stands among the others;
    /// None when the type knows none of that name. Where a model has several of one name, as RELAX
    /// NG allows, it is the first.
    Index childElement(Index type, const Symbol &name) const;
    /// A type with a name, as xsi:type gives it; None when there is none.
    Index namedType(const Symbol &name) const;
    /// A type is another one, or is derived from it at however many removes.
    bool isDerived(Index type, Index from) const;
    /// The types that xsi:type may choose for an element of a type: those with names that are
    /// derived from it or are it, without what is abstract or what the type, or the element where
    /// one is given, blocks. In the order of the schema.
    std::vector<Index> typesFor(Index type, Index element = None) const;

    /// A particle that stands for an element lets in a child of that name: its own or one that may
    /// stand in its place.
    bool matches(const Element &element, const Symbol &name) const;
    /// The element, this one or a substitute, that a child of that name is; None when it is none.
    Index matched(Index element, const Symbol &name) const;
    bool matches(const Wildcard &wildcard, const Symbol &name) const;
    /// The elements, in the order of the schema, that a particle for one stands for: none that is
    /// abstract.
    std::vector<Index> standingFor(Index element) const;
    /// The elements declared that a wildcard lets in.
    std::vector<Index> standingForWildcard(Index wildcard) const;

    /// The attribute that is declared on its own under a name; null when there is none.
    const Attribute *globalAttribute(const Symbol &name) const;

private:
    /// A type is derived from another one, or is it, and by no way that is blocked.
    bool mayStandFor(Index type, Index from, Blocked blocked) const;

    struct Shared {
        Data data;
        QHash<QStringView, Index> strings;
        QHash<quint64, Index> elements;
        QHash<quint64, Index> types;
        std::vector<Index> globals;
    };

    static quint64 key(const Symbol &name) { return quint64(name.space) << 32 | name.local; }
    static Symbol symbolOf(const Name &name) { return {name.space, name.local}; }

    std::shared_ptr<const Shared> content_;
};

} // namespace quillon::grammar

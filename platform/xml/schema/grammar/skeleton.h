#pragma once

#include "platform/xml/schema/grammar/grammar.h"

#include <functional>
#include <map>

namespace quillon::grammar {

/// What names mean at a place of a document.
struct NameScope {
    /// Namespaces by their prefixes, the default namespace under the empty one. What is not
    /// declared is not in it.
    std::map<QString, QString> namespaces;
    /// The prefix of the parent, which is taken where several mean the same.
    QString prefix = {};
};

/// Several things of which an element has to have one.
struct OpenChoice {
    /// Of `elements`: whose content is chosen; for types the element that gets one.
    Index element = None;
    /// Whether types are chosen from, as an abstract one has to be replaced.
    bool isOfTypes = false;
    /// For each alternative the elements, of `elements`, that it brings along first; one type, of
    /// `types`, for each where types are chosen from.
    std::vector<std::vector<Index>> alternatives;
};

/// Gives the 0-based place of the alternative to be taken. What it raises ends the making.
using Chooser = std::function<std::size_t(const OpenChoice &)>;

/// Makes elements with all that a grammar wants them to have, and nothing that may be left out. It
/// ends for every grammar: what an element needs of itself, or in great numbers, stays out.
class SkeletonMaker {
public:
    explicit SkeletonMaker(const Grammar &grammar);

    const Grammar &grammar() const { return grammar_; }

    /// The markup of an element, of `elements`, on one line: mandatory attributes and children
    /// filled in, namespaces declared that the place does not have; with two tags where text may be
    /// typed. `type`, of `types`, is another one than the declared; xsi:type then says so. Where
    /// `choose` is not given, or has been asked often enough, the first alternative that comes to
    /// an end is taken.
    QString markup(Index element, const NameScope &scope, const Chooser &choose = {},
                   Index type = None) const;

    /// Whether nothing complete can be made of an element, as it needs itself.
    bool isEndless(Index element) const;

    /// The name that an element, or an attribute, has at a place. Where no prefix stands for its
    /// namespace there, `declaration` becomes the attribute that declares it: a name and a value.
    QString elementName(Index element, const NameScope &scope,
                        std::pair<QString, QString> *declaration = nullptr) const;
    QString attributeName(const Attribute &attribute, const NameScope &scope,
                          std::pair<QString, QString> *declaration = nullptr) const;
    /// What an attribute begins with: its default or fixed value, else the first of its
    /// enumeration, else nothing.
    QString valueOf(const Attribute &attribute) const;
    /// The same for the text of an element.
    QString textOf(const Element &element) const;

private:
    struct Making;

    void measure();
    bool measureOnce();
    int heightOf(const Particle &particle) const;
    QString firstValue(Index simpleType) const;

    Grammar grammar_;
    // How many levels of mandatory elements stand below; Endless for what does not come to an end.
    std::vector<int> elements_;
    /// The least of what may stand in its place.
    std::vector<int> substituted_;
    std::vector<int> types_;
    /// The least of the types derived from it.
    std::vector<int> derived_;
    std::vector<int> particles_;
};

} // namespace quillon::grammar

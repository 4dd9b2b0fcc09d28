#include "validation/fault_mends.h"

#include "platform/xml/query/xpath.h"
#include "platform/xml/schema/grammar/attribute_choices.h"
#include "resources/live_texts.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace quillon::validation {

namespace texts = resources::live_texts;
using candidates::CandidateFinder;
using candidates::Entry;
using grammar::ContentFault;
using grammar::Index;
using grammar::None;
using xml::Node;
using xml::NodeType;

namespace {

/// A list that is any longer is not read.
constexpr std::size_t MostInsertions = 8;
constexpr qsizetype MostRenames = 3;
constexpr qsizetype MostValues = 6;
constexpr int MostSteps = 20;
constexpr qsizetype LongestWord = 100;

/// How many letters have to be changed, added or left out to make one word another one. Neither is
/// longer than LongestWord.
qsizetype distance(const QString &one, const QString &other) {
    std::array<qsizetype, std::size_t(LongestWord) + 1> row;
    std::iota(row.begin(), row.end(), 0);
    for (const QChar letter : one) {
        qsizetype corner = row[0]++;
        for (std::size_t j = 0; j < std::size_t(other.size()); ++j) {
            const qsizetype changed = corner + (letter == other[qsizetype(j)] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row[std::size_t(other.size())];
}

/// A word as it is compared.
QString folded(const QString &word) {
    return word.toCaseFolded().left(LongestWord);
}

Mend changeOf(Mend::Action action, const Node &node, QStringView caption, const QString &text) {
    return {.action = action,
            .node = node.number(),
            .text = text,
            .caption = caption.toString().arg(text)};
}

Mend removalOf(const Node &node) {
    const QStringView caption = node.nodeType() == NodeType::Element     ? texts::RemoveElement
                                : node.nodeType() == NodeType::Attribute ? texts::RemoveAttribute
                                                                         : texts::RemoveText;
    const bool isText = caption == texts::RemoveText;
    return {.action = Mend::Action::Remove,
            .node = node.number(),
            .caption = isText ? caption.toString() : caption.toString().arg(node.nodeName())};
}

} // namespace

QStringList nearest(const QString &word, const QStringList &words, qsizetype most) {
    const QString wanted = folded(word);
    std::vector<std::pair<qsizetype, QString>> near;
    for (const QString &other : words) {
        if (other == word || other.size() > LongestWord)
            continue;
        const qsizetype steps = distance(wanted, folded(other));
        if (steps * 2 <= std::max(wanted.size(), other.size()))
            near.emplace_back(steps, other);
    }
    std::ranges::stable_sort(near, {}, &std::pair<qsizetype, QString>::first);
    QStringList found;
    for (const auto &[steps, other] : near) {
        if (found.size() < most && !found.contains(other))
            found += other;
    }
    return found;
}

/// An element that something is wrong with.
struct FaultMends::Element {
    Node node;
    grammar::KnownElement known;
    bool areNamesLocked;
};

std::vector<Mend> FaultMends::at(const Node &node, bool areNamesLocked) {
    std::vector<Mend> mends;
    if (!finder_.grammar() || !node)
        return mends;
    const bool isAttribute = node.nodeType() == NodeType::Attribute;
    const bool isElement = node.nodeType() == NodeType::Element;
    const Node owner = isElement ? node : isAttribute ? xml::ownerElement(node) : node.parentNode();
    if (owner.nodeType() != NodeType::Element)
        return mends;
    const Element element{owner, finder_.known(owner), areNamesLocked};
    if (isElement)
        ofPlace(node, areNamesLocked, mends);
    if (element.known.type == None)
        return mends;
    if (isElement)
        ofContent(element, mends);
    if (isElement || isAttribute)
        ofAttributes(element, isAttribute ? node : Node(), mends);
    if (!isAttribute)
        ofText(element, mends);
    return mends;
}

void FaultMends::ofPlace(const Node &child, bool areNamesLocked, std::vector<Mend> &mends) {
    const Node parent = child.parentNode();
    if (parent.nodeType() != NodeType::Element)
        return;
    const grammar::Grammar &grammar = *finder_.grammar();
    const grammar::KnownElement known = finder_.known(parent);
    if (known.type == None)
        return;
    const grammar::NamedChildren children = grammar::namedChildren(grammar, parent);
    const auto place =
        std::size_t(std::ranges::find(children.nodes, child) - children.nodes.begin());
    const grammar::ContentRun run =
        grammar::ContentMatcher(grammar).run(known.type, children.names);
    for (const ContentFault &fault : run.faults()) {
        if (fault.child != place)
            continue;
        if (fault.kind == ContentFault::Kind::Missing) {
            for (std::size_t i = 0; i < std::min(fault.expected.size(), MostInsertions); ++i)
                mends.push_back(insertion(parent, child, {fault.expected[i]}));
            continue;
        }
        if (!areNamesLocked) {
            std::vector<Index> names = fault.expected;
            for (const grammar::Candidate &candidate : run.replaceable(place).elements) {
                if (candidate.misfit == grammar::Misfit::Fits)
                    names.push_back(candidate.element);
            }
            addRenames(child, names, mends);
        }
        mends.push_back(removalOf(child));
    }
}

void FaultMends::addRenames(const Node &element, const std::vector<Index> &elements,
                            std::vector<Mend> &mends) const {
    const grammar::NameScope scope = CandidateFinder::scopeIn(element.parentNode());
    QStringList names;
    for (const Index candidate : elements) {
        std::pair<QString, QString> declaration;
        const QString name = finder_.skeletons()->elementName(candidate, scope, &declaration);
        if (declaration.first.isEmpty())
            names += name;
    }
    QStringList near = nearest(element.nodeName(), names, MostRenames);
    // The only name that there can be need not be like the present one.
    names.removeDuplicates();
    if (near.isEmpty() && names.size() == 1)
        near = names;
    for (const QString &name : near)
        mends.push_back(changeOf(Mend::Action::Rename, element, texts::RenameElement, name));
}

Mend FaultMends::insertion(const Node &parent, const Node &before,
                           const std::vector<Index> &elements) const {
    const grammar::NameScope scope = CandidateFinder::scopeIn(parent);
    Mend mend{.action = Mend::Action::InsertElements,
              .node = before ? before.number() : parent.number(),
              .isAtEnd = before.isNull()};
    QStringList names;
    for (const Index element : elements) {
        names += finder_.skeletons()->elementName(element, scope);
        mend.entries.push_back({.name = names.back(), .declaration = element});
    }
    const QStringView caption = elements.size() == 1 ? texts::InsertElement : texts::InsertAll;
    mend.caption = caption.toString().arg(names.join(QStringLiteral(", ")));
    return mend;
}

void FaultMends::ofContent(const Element &element, std::vector<Mend> &mends) {
    const grammar::Grammar &grammar = *finder_.grammar();
    if (grammar::isNil(grammar, element.known, element.node))
        return;
    const grammar::NamedChildren children = grammar::namedChildren(grammar, element.node);
    grammar::ContentMatcher matcher(grammar);
    const grammar::ContentRun run = matcher.run(element.known.type, children.names);
    for (const ContentFault &fault : run.faults()) {
        if (fault.child < children.nodes.size() || fault.kind != ContentFault::Kind::Missing)
            continue;
        const auto steps = matcher.completion(element.known.type, children.names, MostSteps);
        std::vector<Index> all;
        for (const std::vector<Index> &step : steps)
            all.push_back(step.front());
        if (all.size() > 1)
            mends.push_back(insertion(element.node, {}, all));
        for (std::size_t i = 0; i < std::min(fault.expected.size(), MostInsertions); ++i)
            mends.push_back(insertion(element.node, {}, {fault.expected[i]}));
    }
}

void FaultMends::ofAttributes(const Element &element, const Node &only, std::vector<Mend> &mends) {
    const grammar::Grammar &grammar = *finder_.grammar();
    const grammar::NamedAttributes present = grammar::namedAttributes(grammar, element.node);
    const grammar::AttributeChoices choices =
        grammar::attributeChoices(grammar, element.known.type, present.names);
    const grammar::NameScope scope = CandidateFinder::scopeIn(element.node);
    QStringList free;
    for (const grammar::AttributeChoice &choice : choices.attributes) {
        std::pair<QString, QString> declaration;
        const QString name =
            finder_.skeletons()->attributeName(*choice.attribute, scope, &declaration);
        if (choice.present < 0) {
            if (declaration.first.isEmpty())
                free += name;
            if (choice.isMissing() && !only)
                mends.push_back(
                    {.action = Mend::Action::AddAttribute,
                     .node = element.node.number(),
                     .entries = {{.name = name,
                                  .declaration =
                                      Index(choice.attribute - grammar.data().attributes.data())}},
                     .caption = texts::AddAttribute.toString().arg(name)});
            continue;
        }
        const Node &attribute = present.nodes[std::size_t(choice.present)];
        if (!(attribute == only))
            continue;
        const QStringList values = valuesOf(grammar, choice.attribute->type);
        const QString value = attribute.nodeValue();
        if (values.isEmpty() || isOneOf(values, grammar, choice.attribute->type, value))
            continue;
        QStringList offered = nearest(value, values, MostValues) + values;
        offered.removeDuplicates();
        for (const QString &other : offered.mid(0, MostValues))
            mends.push_back(changeOf(Mend::Action::SetValue, attribute, texts::SetValue, other));
    }
    for (const int at : choices.unexpected) {
        const Node &attribute = present.nodes[std::size_t(at)];
        if (!(attribute == only))
            continue;
        if (!element.areNamesLocked) {
            for (const QString &name : nearest(attribute.nodeName(), free, MostRenames))
                mends.push_back(
                    changeOf(Mend::Action::Rename, attribute, texts::RenameAttribute, name));
        }
        mends.push_back(removalOf(attribute));
    }
}

void FaultMends::ofText(const Element &element, std::vector<Mend> &mends) {
    const grammar::Grammar &grammar = *finder_.grammar();
    const grammar::Type &type = grammar.type(element.known.type);
    const std::vector<Node> text = textIn(element.node);
    if (text.empty())
        return;
    if (type.content == grammar::Content::Elements || type.content == grammar::Content::Empty) {
        mends.push_back(removalOf(text.front()));
        return;
    }
    const QStringList values =
        type.content == grammar::Content::Text ? valuesOf(grammar, type.text) : QStringList();
    if (values.isEmpty() || text.size() != 1 || text.front().nodeType() != NodeType::Text ||
        isOneOf(values, grammar, type.text, element.node.text()))
        return;
    QStringList offered = nearest(text.front().nodeValue(), values, MostValues) + values;
    offered.removeDuplicates();
    for (const QString &other : offered.mid(0, MostValues))
        mends.push_back(changeOf(Mend::Action::SetValue, text.front(), texts::SetValue, other));
}

} // namespace quillon::validation

#include "candidates/candidate_finder.h"

#include "candidates/grammar_entries.h"
#include "platform/xml/dom/document_states.h"
#include "platform/xml/dom/qualified_name.h"
#include "resources/candidate_texts.h"
#include "tree/node_transfer.h"

#include <algorithm>

namespace quillon::candidates {

namespace texts = resources::candidate_texts;
using grammar::None;
using xml::Node;
using xml::NodeType;

namespace {

/// The children of so many elements are kept.
constexpr std::size_t MostParents = 4;
/// An edit of so many nodes is looked at closely.
constexpr std::size_t MostFollowed = 64;

EntryList nothing(QStringView remark) {
    return {{}, remark.toString()};
}

bool isElement(const Node &node) {
    return node.nodeType() == NodeType::Element;
}

/// Whether what elements are can depend on a node: on all but texts and most attributes.
bool bearsOnNames(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::Comment:
    case NodeType::ProcessingInstruction:
        return false;
    case NodeType::Attribute: {
        const QString name = node.nodeName();
        return name.startsWith(QLatin1String("xmlns")) || name.endsWith(QLatin1String(":type"));
    }
    default:
        return true;
    }
}

/// The name that the DOCTYPE gives the root.
QString doctypeName(const Node &document) {
    for (Node child = document.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == NodeType::DocumentType)
            return child.nodeName();
    }
    return {};
}

/// Whether an element put ahead of a child of the document, or at its end for none, would stand
/// ahead of what has to come first.
bool isAheadOfProlog(const Node &ref) {
    for (Node at = ref; at; at = at.nextSibling()) {
        if (at.nodeType() == NodeType::DocumentType || at.nodeName() == QLatin1String("xml"))
            return true;
    }
    return false;
}

} // namespace

CandidateFinder::CandidateFinder(const state::DocumentState &state) : state_(state) {
    connect(&usage_, &DocumentUsage::counted, this, &CandidateFinder::changed);
}

void CandidateFinder::setGrammar(const std::optional<grammar::Grammar> &grammar, bool isAwaited) {
    isAwaited_ = isAwaited;
    const bool isSame = grammar && grammar_ && &grammar->data() == &grammar_->data();
    if (isSame)
        return;
    parents_.clear();
    grammar_ = grammar;
    skeletons_.reset();
    matcher_.reset();
    if (grammar) {
        skeletons_.emplace(*grammar);
        matcher_.emplace(*grammar);
    }
    Q_EMIT changed();
}

void CandidateFinder::documentChanged() {
    isEdited_ = true;
    Q_EMIT changed();
}

void CandidateFinder::followEdits() {
    if (!std::exchange(isEdited_, false))
        return;
    const xml::DOMDocument40 before = std::exchange(seen_, {});
    bool isAbout = !xml::haveCommonOrigin(before, state_.m_DOM);
    const auto changed =
        isAbout ? std::vector<quint32>() : xml::changedNodes(before, state_.m_DOM, MostFollowed);
    isAbout = isAbout || changed.size() > MostFollowed;
    for (const quint32 number : changed)
        isAbout = isAbout || bearsOnNames(before.nodeByNumber(number)) ||
                  bearsOnNames(state_.m_DOM.nodeByNumber(number));
    if (isAbout)
        parents_.clear();
    else
        seen_ = state_.m_DOM.clone();
}

void CandidateFinder::documentReplaced() {
    parents_.clear();
    seen_ = {};
    usage_.clear();
    isCounted_ = false;
    documentChanged();
}

grammar::NameScope CandidateFinder::scopeIn(const Node &parent) {
    return isElement(parent)
               ? grammar::NameScope{tree::namespacesAt(parent), xml::prefixOf(parent.nodeName())}
               : grammar::NameScope();
}

grammar::KnownElement CandidateFinder::known(const Node &element) {
    if (!grammar_ || !isElement(element))
        return {};
    followEdits();
    const auto kept = std::ranges::find(parents_, element, &Parent::node);
    return kept != parents_.end() ? kept->known : grammar::knownElement(*grammar_, element);
}

CandidateFinder::Parent *CandidateFinder::parentOf(const Node &node) {
    if (!grammar_)
        return nullptr;
    followEdits();
    const auto kept = std::ranges::find(parents_, node, &Parent::node);
    if (kept != parents_.end()) {
        parents_.splice(parents_.begin(), parents_, kept);
    } else {
        if (parents_.empty())
            seen_ = state_.m_DOM.clone();
        if (parents_.size() == MostParents)
            parents_.pop_back();
        Parent &parent = parents_.emplace_front();
        parent.node = node;
        parent.known = grammar::knownElement(*grammar_, node);
        if (parent.known.type != None) {
            const grammar::NamedChildren children = grammar::namedChildren(*grammar_, node);
            parent.children.reserve(children.nodes.size());
            for (const Node &child : children.nodes)
                parent.children.push_back(child.number());
            parent.run.emplace(matcher_->run(parent.known.type, children.names));
        }
    }
    return parents_.front().run ? &parents_.front() : nullptr;
}

std::size_t CandidateFinder::placeOf(const Parent &parent, const Node &node,
                                     Position position) const {
    // Between elements stand others; those ahead of the next element are at its place.
    Node at = position == Position::Behind ? node.nextSibling() : node;
    while (at && !isElement(at))
        at = at.nextSibling();
    if (!at)
        return parent.children.size();
    return std::size_t(std::ranges::find(parent.children, at.number()) - parent.children.begin());
}

EntryList CandidateFinder::elements(const Node &node, Position position) {
    const bool isChild = position == Position::LastChild;
    if (isChild && !isElement(node) && node.nodeType() != NodeType::Document)
        return nothing(texts::NoChildrenOfNode);
    const Node parent = isChild ? node : node.parentNode();
    if (parent.nodeType() == NodeType::Document)
        return rootsFor(parent, isChild                        ? Node()
                                : position == Position::Behind ? node.nextSibling()
                                                               : node);
    if (!isElement(parent))
        return nothing(texts::NoElementsHere);
    const Parent *at = parentOf(parent);
    if (!at)
        return fromDocument(parent);
    using grammar::Content;
    const Content content = grammar_->type(at->known.type).content;
    if (content == Content::Empty)
        return nothing(texts::NoChildren);
    if (content == Content::Text)
        return nothing(texts::TextOnly);
    const std::size_t place = isChild ? at->children.size() : placeOf(*at, node, position);
    return elementEntries(*skeletons_, at->run->insertable(place), scopeIn(parent));
}

EntryList CandidateFinder::rootsFor(const Node &document, const Node &ref) {
    if (state_.m_DOM.documentElement())
        return nothing(texts::OneRootOnly);
    if (isAheadOfProlog(ref))
        return nothing(texts::NoElementsHere);
    return grammar_ ? rootEntries(*skeletons_, doctypeName(document)) : fromDocument(document);
}

EntryList CandidateFinder::namesFor(const Node &element) {
    const Node parent = element.parentNode();
    if (parent.nodeType() == NodeType::Document)
        return grammar_ ? rootEntries(*skeletons_, doctypeName(parent)) : fromDocument(parent);
    if (!isElement(element) || !isElement(parent))
        return nothing(texts::NoElementsHere);
    const Parent *at = parentOf(parent);
    if (!at)
        return fromDocument(parent);
    const std::size_t place = placeOf(*at, element, Position::Ahead);
    return elementEntries(*skeletons_, at->run->replaceable(place), scopeIn(parent));
}

EntryList CandidateFinder::attributes(const Node &element) {
    if (!isElement(element))
        return nothing(texts::NoAttributesOfNode);
    const grammar::KnownElement found = known(element);
    if (found.type != None) {
        const grammar::NamedAttributes named = grammar::namedAttributes(*grammar_, element);
        // What is only there by default may be written.
        std::vector<grammar::Symbol> written;
        for (std::size_t i = 0; i < named.nodes.size(); ++i) {
            if (named.nodes[i].specified())
                written.push_back(named.names[i]);
        }
        return attributeEntries(*skeletons_, found.type, written, scopeIn(element));
    }
    count();
    EntryList list;
    for (const QString &name : usage_.attributesOf(element.nodeName())) {
        Entry entry{name};
        if (element.getAttributeNode(name)) {
            entry.isAllowed = false;
            entry.remark = texts::IsThere.toString();
        }
        list.entries.push_back(std::move(entry));
    }
    std::ranges::stable_partition(list.entries, &Entry::isAllowed);
    remarkOnCount(list);
    return list;
}

EntryList CandidateFinder::fromDocument(const Node &parent) {
    count();
    EntryList list;
    for (const QString &name : usage_.childrenOf(isElement(parent) ? parent.nodeName() : QString()))
        list.entries.push_back({name});
    remarkOnCount(list);
    return list;
}

void CandidateFinder::remarkOnCount(EntryList &list) const {
    const QStringView remark = isAwaited_             ? texts::SchemaAwaited
                               : usage_.isCounting()  ? texts::StillCounting
                               : list.entries.empty() ? texts::NothingSeen
                               : grammar_             ? texts::UnknownToSchema
                                                      : texts::FromDocument;
    list.remark = remark.toString();
}

void CandidateFinder::count() {
    if (!std::exchange(isCounted_, true))
        usage_.count(state_.m_DOM);
}

} // namespace quillon::candidates

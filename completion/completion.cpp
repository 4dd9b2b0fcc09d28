#include "completion/completion.h"

#include "candidates/grammar_entries.h"
#include "completion/insertion.h"
#include "completion/node_explanation.h"
#include "platform/runtime/strings.h"
#include "resources/completion_texts.h"

#include <algorithm>

namespace quillon::completion {

namespace texts = resources::completion_texts;
using candidates::Entry;
using candidates::EntryList;
using grammar::None;
using items::TreeItem;
using ui::Insertion;
using ui::Proposal;
using ui::ProposalKind;
using ui::ProposalList;
using ui::ValueEditor;
using xml::Node;
using xml::NodeType;

namespace {

bool isText(const Node &node) {
    return node.nodeType() == NodeType::Text || node.nodeType() == NodeType::CDATASection;
}

/// Whether a list may open behind a character that has been typed, without anybody asking.
bool opensBehind(char typed, Place place) {
    switch (place) {
    case Place::ElementName:
        return typed == '<';
    case Place::EndTag:
        return typed == '/';
    case Place::AttributeName:
        return typed == ' ' || typed == '\n' || typed == '\t';
    case Place::AttributeValue:
        return typed == '"' || typed == '\'';
    default:
        return false;
    }
}

Proposal proposalOf(const Entry &entry, ProposalKind kind) {
    Proposal proposal{.kind = kind, .text = entry.name, .detail = entry.type};
    QStringList lines;
    for (const QString &line :
         {entry.isAllowed ? entry.remark : QString(), entry.type, entry.documentation}) {
        if (!line.isEmpty())
            lines.append(line);
    }
    proposal.documentation = lines.join(u'\n');
    proposal.reason = entry.isAllowed ? QString() : entry.remark;
    proposal.isNeeded = entry.isMandatory;
    proposal.id = entry.declaration;
    return proposal;
}

void add(const EntryList &entries, ProposalKind kind, ProposalList &list) {
    for (const Entry &entry : entries.entries)
        list.proposals.push_back(proposalOf(entry, kind));
    list.origin = entries.remark;
}

void addEditor(ValueEditor editor, ProposalList &list) {
    if (editor == ValueEditor::None)
        return;
    const QStringView text = editor == ValueEditor::Colour ? texts::FromColours
                             : editor == ValueEditor::Time ? texts::FromClock
                                                           : texts::FromCalendar;
    list.proposals.push_back({.text = text.toString(), .editor = editor});
}

Stretch trimmed(QByteArrayView text, Stretch stretch, qsizetype caret) {
    while (stretch.start < caret && QByteArrayView(" \n\t").contains(text[stretch.start]))
        ++stretch.start;
    while (stretch.end > caret && QByteArrayView(" \n\t").contains(text[stretch.end - 1]))
        --stretch.end;
    return stretch;
}

bool hasFitting(const ProposalList &list) {
    return std::ranges::any_of(list.proposals,
                               [](const Proposal &proposal) { return proposal.reason.isEmpty(); });
}

} // namespace

Completion::Completion(const state::DocumentState &state, candidates::CandidateFinder &finder,
                       const tree::NodeRegistry &registry, items::Tree &tree,
                       const tree::PaneContent &pane)
    : state_(state), finder_(finder), registry_(registry), tree_(tree), pane_(pane) {}

const grammar::Grammar *Completion::grammar() const {
    return finder_.grammar() ? &*finder_.grammar() : nullptr;
}

// ---- Places

Completion::Shown Completion::shown(const TreeItem &item) const {
    if (!item || registry_.isEmpty())
        return {};
    const Node node = registry_.Item(item);
    // An attribute does not know where it stands, and its item may show a copy of it.
    return {node, node.nodeType() == NodeType::Attribute ? registry_.Item(item.Parent())
                                                         : node.parentNode()};
}

Completion::Shown Completion::shown() const {
    return shown(pane_.shownItem);
}

ui::Proposer Completion::paneProposer() {
    ui::Proposer proposer;
    proposer.propose = [this](QByteArrayView text, qsizetype caret, bool isAsked) {
        const Shown at = shown();
        ProposalList list;
        if (at.node.nodeType() == NodeType::Element || at.node.nodeType() == NodeType::Document)
            list = proposeInMarkup(text, caret, isAsked);
        else if (at.node.nodeType() == NodeType::Attribute || isText(at.node))
            list = proposeValue(at, text, caret);
        if (isAsked && list.proposals.empty())
            Q_EMIT statusText(list.origin.isEmpty() ? texts::NothingToPropose.toString()
                                                    : list.origin);
        else if (!isAsked && !hasFitting(list))
            return ProposalList();
        return list;
    };
    proposer.insertion = [this](QByteArrayView text, qsizetype caret, const Proposal &proposal) {
        const NodeType kind = shown().node.nodeType();
        return kind == NodeType::Element || kind == NodeType::Document
                   ? insertInMarkup(text, caret, proposal)
                   : insertValue(text, caret, proposal);
    };
    proposer.textChanged = [this](qsizetype from) { contexts_.textChanged(from); };
    return proposer;
}

ui::Proposer Completion::captionProposer(const TreeItem &item) {
    ui::Proposer proposer;
    proposer.propose = [this, item](QByteArrayView text, qsizetype caret, bool) {
        const Shown at = shown(item);
        ProposalList list;
        if (at.node.nodeType() == NodeType::Element) {
            add(finder_.namesFor(at.node), ProposalKind::Element, list);
        } else if (at.node.nodeType() == NodeType::Attribute) {
            add(finder_.attributes(at.element), ProposalKind::Attribute, list);
        } else if (isText(at.node)) {
            list = proposeValue(at, text, caret);
        }
        list.start = 0;
        list.end = text.size();
        if (list.proposals.empty())
            Q_EMIT statusText(list.origin.isEmpty() ? texts::NothingToPropose.toString()
                                                    : list.origin);
        return list;
    };
    proposer.insertion = [](QByteArrayView text, qsizetype,
                            const Proposal &proposal) -> std::optional<Insertion> {
        QString value = proposal.text;
        if (proposal.editor != ValueEditor::None) {
            const auto chosen = askForValue(proposal.editor, QString::fromUtf8(text));
            if (!chosen)
                return std::nullopt;
            value = *chosen;
        }
        const QByteArray bytes = value.toUtf8();
        return Insertion{0, text.size(), bytes, bytes.size()};
    };
    return proposer;
}

// ---- What is proposed

ProposalList Completion::proposeInMarkup(QByteArrayView text, qsizetype caret, bool isAsked) {
    ProposalList list;
    const TextContext context = contexts_.at(text, caret);
    if (context.place == Place::Nowhere ||
        (!isAsked && (caret == 0 || !opensBehind(text[caret - 1], context.place))))
        return list;
    list.start = context.word.start;
    list.end = context.word.end;
    if (context.place == Place::EndTag) {
        if (!context.open.empty())
            list.proposals.push_back(
                {.kind = ProposalKind::EndTag,
                 .text = QString::fromUtf8(tagName(text, context.open.back()).in(text)),
                 .detail = texts::EndTag.toString()});
        return list;
    }
    const auto place = placeDocument(shown().element, text, context);
    if (!place)
        return list;
    if (context.place == Place::AttributeName) {
        add(finder_.attributes(place->element), ProposalKind::Attribute, list);
    } else if (context.place == Place::AttributeValue) {
        const ValueType type =
            typeOfAttribute(place->element, QString::fromUtf8(context.attribute.name.in(text)));
        if (grammar() && isList(*grammar(), type)) {
            const Stretch item = itemAt(text, context.word, caret);
            list.start = item.start;
            list.end = item.end;
        }
        addValues(type, QString::fromUtf8(context.attribute.value.in(text)), list);
    } else {
        addElements(*place, list);
        if (context.place == Place::Content && !hasFitting(list)) {
            ProposalList values;
            addContentValues(*place, values);
            const Stretch run = trimmed(text, context.run, caret);
            values.start = run.start;
            values.end = run.end;
            if (!values.proposals.empty())
                return values;
        }
    }
    return list;
}

EntryList Completion::elementEntries(const PlaceDocument &place) {
    if (place.parent.nodeType() == NodeType::Document) {
        const grammar::SkeletonMaker *maker = finder_.skeletons();
        return maker ? candidates::rootEntries(*maker, {}) : EntryList();
    }
    Node at = place.parent.firstChild();
    for (std::size_t i = 0; i < place.place && at; ++i)
        at = at.nextSibling();
    return at ? finder_.elements(at, candidates::Position::Ahead)
              : finder_.elements(place.parent, candidates::Position::LastChild);
}

void Completion::addElements(const PlaceDocument &place, ProposalList &list) {
    add(elementEntries(place), ProposalKind::Element, list);
}

ValueType Completion::typeOfAttribute(const Node &element, const QString &name) const {
    const grammar::Grammar *const known = grammar();
    if (!known)
        return {.name = name};
    ValueType found{.name = name};
    const grammar::Attribute *const declared =
        declaredAttribute(*known, finder_.known(element).type, element, name);
    if (declared) {
        found.type = declared->type;
        found.rule = declared->valueRule;
        found.value = declared->value;
    }
    return found;
}

ValueType Completion::typeOfText(const Node &element) const {
    ValueType found{.name = element.nodeName()};
    const grammar::Grammar *const known = grammar();
    const grammar::KnownElement at = finder_.known(element);
    if (!known || at.type == None)
        return found;
    found.type = known->type(at.type).text;
    if (at.element != None) {
        found.rule = known->element(at.element).valueRule;
        found.value = known->element(at.element).value;
    }
    return found;
}

ValueType Completion::typeOfShown(const Shown &shown) const {
    if (shown.node.nodeType() == NodeType::Attribute)
        return typeOfAttribute(shown.element, shown.node.nodeName());
    return typeOfText(shown.element);
}

void Completion::addContentValues(const PlaceDocument &place, ProposalList &list) const {
    if (place.parent.nodeType() == NodeType::Element)
        addValues(typeOfText(place.parent), {}, list);
}

void Completion::addValues(const ValueType &type, const QString &present,
                           ProposalList &list) const {
    const grammar::Grammar *const known = grammar();
    if (known)
        list.proposals = knownValues(*known, type);
    if (list.proposals.empty())
        list.proposals = knownValues(type.name);
    if (known && refersToId(*known, type)) {
        for (const QString &id : idsOf(state_.m_DOM, known))
            list.proposals.push_back({.text = id, .detail = texts::IdInDocument.toString()});
    }
    addEditor(editorFor(known, type, present.trimmed()), list);
}

ProposalList Completion::proposeValue(const Shown &shown, QByteArrayView text,
                                      qsizetype caret) const {
    ProposalList list;
    const ValueType type = typeOfShown(shown);
    addValues(type, QString::fromUtf8(text), list);
    const Stretch all{0, text.size()};
    const Stretch word = grammar() && isList(*grammar(), type) ? itemAt(text, all, caret) : all;
    list.start = word.start;
    list.end = word.end;
    return list;
}

// ---- What is inserted

QByteArray Completion::elementMarkup(const PlaceDocument &place, const Proposal &proposal) const {
    const QByteArray name = proposal.text.toUtf8();
    const grammar::SkeletonMaker *maker = finder_.skeletons();
    const grammar::Grammar *known = grammar();
    if (!maker || !known || proposal.id == None)
        return '<' + name + "></" + name + '>';
    const QByteArray markup =
        maker->markup(proposal.id, candidates::CandidateFinder::scopeIn(place.parent)).toUtf8();
    // What may have something in it is shown with room for that.
    const grammar::Index type = known->element(proposal.id).type;
    const bool isEmptyTag = markup.endsWith("/>") && markup.count('<') == 1;
    if (!isEmptyTag || (type != None && known->type(type).content == grammar::Content::Empty))
        return markup;
    return markup.chopped(2).trimmed() + "></" + name + '>';
}

std::optional<Insertion> Completion::insertInMarkup(QByteArrayView text, qsizetype caret,
                                                    const Proposal &proposal) {
    const TextContext context = contexts_.at(text, caret);
    const auto place = placeDocument(shown().element, text, context);
    if (proposal.kind == ProposalKind::EndTag)
        return insertedEndTag(context, proposal.text.toUtf8());
    if (!place)
        return std::nullopt;
    if (proposal.kind == ProposalKind::Element)
        return insertedElement(text, context, elementMarkup(*place, proposal));
    if (proposal.kind == ProposalKind::Attribute) {
        QString value;
        QByteArray declaration;
        if (finder_.skeletons() && proposal.id != None) {
            const grammar::Attribute &attribute = grammar()->data().attributes[proposal.id];
            std::pair<QString, QString> declared;
            finder_.skeletons()->attributeName(
                attribute, candidates::CandidateFinder::scopeIn(place->element), &declared);
            if (!declared.first.isEmpty())
                declaration = QStringLiteral(" %1=\"%2\"")
                                  .arg(declared.first, declared.second.toHtmlEscaped())
                                  .toUtf8();
            if (attribute.valueRule != grammar::ValueRule::Free)
                value = finder_.skeletons()->valueOf(attribute);
        }
        return insertedAttribute(text, context, proposal.text.toUtf8(), value, declaration);
    }
    const bool isInTag = context.place == Place::AttributeValue;
    QString value = proposal.text;
    Stretch word = isInTag ? context.word : trimmed(text, context.run, caret);
    if (proposal.editor != ValueEditor::None) {
        const auto chosen = askForValue(proposal.editor, QString::fromUtf8(word.in(text)));
        if (!chosen)
            return std::nullopt;
        value = *chosen;
    } else if (isInTag && grammar() &&
               isList(*grammar(),
                      typeOfAttribute(place->element,
                                      QString::fromUtf8(context.attribute.name.in(text))))) {
        word = itemAt(text, word, caret);
    }
    return isInTag ? insertedValue(text, context, word, value) : insertedText(word, value);
}

std::optional<Insertion> Completion::insertValue(QByteArrayView text, qsizetype caret,
                                                 const Proposal &proposal) {
    const ValueType type = typeOfShown(shown());
    Stretch word{0, text.size()};
    QString value = proposal.text;
    if (proposal.editor != ValueEditor::None) {
        const auto chosen = askForValue(proposal.editor, QString::fromUtf8(text));
        if (!chosen)
            return std::nullopt;
        value = *chosen;
    } else if (grammar() && isList(*grammar(), type)) {
        word = itemAt(text, word, caret);
    }
    const QByteArray bytes = value.toUtf8();
    return Insertion{word.start, word.end, bytes, bytes.size()};
}

QString Completion::explanationAt(QByteArrayView text, qsizetype at) {
    const NodeType kind = shown().node.nodeType();
    if (!grammar() || (kind != NodeType::Element && kind != NodeType::Document))
        return {};
    TextContext context = contexts_.at(text, at);
    const bool isAttribute = context.place == Place::AttributeName && !context.word.isEmpty();
    if (context.place != Place::ElementName && context.place != Place::EndTag && !isAttribute)
        return {};
    const bool isEnd = context.place == Place::EndTag;
    if (context.place == Place::ElementName)
        context.place = Place::AttributeName;
    const auto place = placeDocument(shown().element, text, context);
    if (!place)
        return {};
    const Node element = isEnd ? place->parent : place->element;
    const grammar::KnownElement known = finder_.known(element);
    if (!isAttribute)
        return explanationOf(*grammar(), {known.element});
    const QString name = QString::fromUtf8(context.word.in(text));
    return explanationOf(*grammar(),
                         {None, declaredAttribute(*grammar(), known.type, element, name)});
}

bool Completion::hasValues() const {
    const Shown at = shown();
    if (at.node.nodeType() != NodeType::Attribute && !isText(at.node))
        return false;
    const ValueType type = typeOfShown(at);
    const grammar::Grammar *const known = grammar();
    return editorFor(known, type, at.node.text().trimmed()) != ValueEditor::None ||
           !knownValues(type.name).empty() ||
           (known && (refersToId(*known, type) || !knownValues(*known, type).empty()));
}

} // namespace quillon::completion

#include "candidates/candidate_insertion.h"

#include "platform/runtime/error.h"
#include "platform/ui/dialogs.h"
#include "platform/xml/dom/arrangement.h"
#include "resources/candidate_texts.h"
#include "tree/fragment.h"

#include <QRegularExpression>

namespace quillon::candidates {

namespace texts = resources::candidate_texts;
using grammar::None;
using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

/// Where something is to be typed first in the markup that has just been made: the value of an
/// attribute, or between two tags; -1 for nowhere.
qsizetype firstGap(const QString &markup) {
    static const QRegularExpression gap(QStringLiteral(R"((?<!\bxmlns)=""|></)"));
    const QRegularExpressionMatch found = gap.match(markup);
    if (!found.hasMatch())
        return -1;
    return found.capturedStart() + (found.captured().startsWith(u'=') ? 2 : 1);
}

} // namespace

CandidateInsertion::CandidateInsertion(const state::DocumentState &state, CandidateFinder &finder,
                                       tree::TreeBuilder &builder, tree::NodeRemoval &removal,
                                       tree::Selection &selection, items::Tree &tree,
                                       tree::PaneContent &pane)
    : state_(state), finder_(finder), builder_(builder), selection_(selection), tree_(tree),
      pane_(pane), relocation_(builder, removal, tree) {}

EntryList CandidateInsertion::elements(Position position) const {
    return finder_.elements(selection_.GetDOMNode(itemFor(position)), position);
}

TreeItem CandidateInsertion::itemFor(Position position) const {
    const TreeItem item = tree_.SelectedItem();
    const bool isAttribute = selection_.GetDOMNode(item).nodeType() == NodeType::Attribute;
    return isAttribute && position == Position::LastChild ? item.Parent() : item;
}

TreeItem CandidateInsertion::elementItem() const {
    const TreeItem item = tree_.SelectedItem();
    const bool isElement = selection_.GetDOMNode(item).nodeType() == NodeType::Element;
    return isElement || !item ? item : item.Parent();
}

EntryList CandidateInsertion::attributes() const {
    return finder_.attributes(selection_.GetDOMNode(elementItem()));
}

bool CandidateInsertion::isPossible(const TreeItem &item, const Entry &entry) {
    return !state_.m_ReadOnly && item && entry.isAllowed && selection_.mayLeavePane();
}

std::size_t CandidateInsertion::choose(const grammar::OpenChoice &choice) const {
    const grammar::Grammar &grammar = *finder_.grammar();
    const auto nameOf = [&](grammar::Index index) {
        const grammar::Name &name =
            choice.isOfTypes ? grammar.type(index).name : grammar.element(index).name;
        return grammar.text(name.local).toString();
    };
    QStringList names;
    for (const std::vector<grammar::Index> &alternative : choice.alternatives) {
        QStringList parts;
        for (const grammar::Index part : alternative)
            parts.append(nameOf(part));
        names.append(parts.join(u", "));
    }
    const QString element = grammar.text(grammar.element(choice.element).name.local).toString();
    const QStringView prompt = choice.isOfTypes ? texts::ChooseType : texts::ChooseContent;
    const std::optional<int> chosen =
        ui::dialogs().chooseOne(prompt.toString().arg(element), names);
    if (!chosen)
        runtime::raise(runtime::error_number::Cancelled);
    return std::size_t(*chosen);
}

QByteArray CandidateInsertion::markupOf(const Entry &entry, const Node &parent) const {
    if (entry.declaration == None)
        return '<' + entry.name.toUtf8() + "/>";
    return finder_.skeletons()
        ->markup(entry.declaration, CandidateFinder::scopeIn(parent),
                 [this](const grammar::OpenChoice &choice) { return choose(choice); })
        .toUtf8();
}

bool CandidateInsertion::insertElement(const Entry &entry, Position position) {
    return insertElements({entry}, position);
}

bool CandidateInsertion::insertElements(const std::vector<Entry> &entries, Position position) {
    const TreeItem item = itemFor(position);
    for (const Entry &entry : entries) {
        if (!isPossible(item, entry))
            return false;
    }
    const Node node = selection_.GetDOMNode(item);
    const Node parent = position == Position::LastChild ? node : node.parentNode();
    std::vector<Node> made;
    for (const Entry &entry : entries) {
        const QByteArray markup = markupOf(entry, parent);
        made.push_back(tree::parsedFragment(state_.m_DOM, markup).documentElement());
        if (!made.back())
            throw runtime::Error(runtime::error_number::Fail,
                                 texts::CannotBeMade.toString().arg(entry.name));
    }
    // Others may have been at work while the user was asked.
    if (itemFor(position) != item || !(selection_.GetDOMNode(item) == node))
        return false;
    const tree::TreeBuilder::PreviewPause pause(builder_);
    const tree::Place place = position == Position::LastChild ? relocation_.lastIn(item)
                              : position == Position::Ahead   ? relocation_.ahead(item)
                                                              : relocation_.behind(item);
    TreeItem firstItem;
    for (const Node &element : made) {
        const Node inserted = xml::insertLaidOut(parent, element, place.ref);
        tree_.setTreeVisible(true);
        const TreeItem newItem = relocation_.show(inserted, place);
        if (!firstItem)
            firstItem = newItem;
    }
    selection_.ShowNode(firstItem, true);
    Q_EMIT documentModified();
    awaitText();
    return true;
}

void CandidateInsertion::awaitText() {
    const qsizetype gap = firstGap(pane_.textBox().Text());
    if (gap < 0)
        return;
    pane_.textBox().select(gap, 0);
    pane_.textBox().takeFocus();
}

TreeItem CandidateInsertion::writeDefault(const TreeItem &item, const Node &attribute) {
    const Node element = selection_.GetDOMNode(item);
    element.setAttributeNode(attribute);
    builder_.showOwnAttributes({element.number()});
    TreeItem child = item.Child();
    while (child && selection_.GetDOMNode(child).nodeName() != attribute.nodeName())
        child = child.Next();
    return child;
}

bool CandidateInsertion::addAttribute(const Entry &entry) {
    const TreeItem item = elementItem();
    if (!isPossible(item, entry))
        return false;
    const Node element = selection_.GetDOMNode(item);
    const Node present = element.getAttributeNode(entry.name);
    if (element.nodeType() != NodeType::Element || (present && present.specified()))
        return false;
    Node attribute = state_.m_DOM.createAttribute(entry.name);
    if (entry.declaration != None) {
        const grammar::Attribute &declared =
            finder_.grammar()->data().attributes[entry.declaration];
        std::pair<QString, QString> declaration;
        finder_.skeletons()->attributeName(declared, CandidateFinder::scopeIn(element),
                                           &declaration);
        if (!declaration.first.isEmpty()) {
            Node declares = state_.m_DOM.createAttribute(declaration.first);
            declares.setNodeValue(declaration.second);
            builder_.AddAttributeToTree(item, declares, false);
        }
        attribute.setNodeValue(finder_.skeletons()->valueOf(declared));
    }
    const TreeItem newItem = present ? writeDefault(item, attribute)
                                     : builder_.AddAttributeToTree(item, attribute, false);
    if (!newItem)
        return false;
    selection_.ShowNode(newItem, true);
    Q_EMIT documentModified();
    pane_.textBox().select(0, pane_.textBox().Text().size());
    pane_.textBox().takeFocus();
    return true;
}

} // namespace quillon::candidates

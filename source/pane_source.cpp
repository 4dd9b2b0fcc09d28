#include "source/pane_source.h"

#include "completion/markup_token.h"
#include "platform/ui/dialogs.h"
#include "platform/xml/dom/markup_places.h"
#include "platform/xml/query/xpath.h"
#include "resources/pane_texts.h"
#include "source/tag_pairs.h"

namespace quillon::source {

namespace texts = resources::pane_texts;
using completion::MarkupToken;
using completion::TextAttribute;
using completion::TextContext;
using items::TreeItem;
using xml::Node;
using xml::NodeType;

namespace {

bool isSourceOf(const Node &node) {
    return node.nodeType() == NodeType::Element || node.nodeType() == NodeType::Document;
}

/// How many elements begin ahead of a place.
quint32 elementsAhead(QByteArrayView text, qsizetype place) {
    quint32 count = 0;
    for (qsizetype at = completion::nextMarkup(text, 0); at < place;) {
        const MarkupToken token = completion::tokenAt(text, at);
        if (token.kind == MarkupToken::Kind::StartTag || token.kind == MarkupToken::Kind::EmptyTag)
            ++count;
        at = completion::nextMarkup(text, token.where.end);
    }
    return count;
}

/// Finds an element by its 0-based number in the order of the markup.
class ElementFinder final : public xml::NodeVisitor {
public:
    explicit ElementFinder(quint32 number) : left_(number) {}

    void enter(quint32 number, NodeType kind) override {
        if (kind == NodeType::Element && left_-- == 0)
            found = number;
    }
    void leave() override {}

    quint32 found = 0;

private:
    quint32 left_;
};

Node elementAt(const Node &top, quint32 number) {
    ElementFinder finder(number);
    xml::visitSubtree(top, finder);
    return finder.found == 0 ? Node() : top.ownerDocument().nodeByNumber(finder.found);
}

/// The attribute whose name or value a caret is in, or at the end of.
Node attributeAt(const Node &element, QByteArrayView text, const Stretch &tag, qsizetype caret) {
    for (const TextAttribute &attribute : completion::tagAttributes(text, tag)) {
        // The quote behind a value belongs to it.
        if (caret >= attribute.name.start && caret <= attribute.value.end + 1)
            return element.getAttributeNode(QString::fromUtf8(attribute.name.in(text)));
    }
    return {};
}

} // namespace

PaneSource::PaneSource(const state::DocumentState &state, const state::ViewOptions &options,
                       const tree::TreeBuilder &builder, tree::Selection &selection,
                       items::Tree &tree, const tree::PaneContent &pane,
                       search::HitNavigation &navigation)
    : state_(state), options_(options), builder_(builder), selection_(selection), tree_(tree),
      pane_(pane), navigation_(navigation) {}

ui::TextStructure PaneSource::structure() {
    ui::TextStructure structure;
    structure.pairAt = [this](QByteArrayView text, qsizetype caret,
                              ui::TextBox::Language language) -> std::optional<ui::TextPair> {
        if (const auto brackets = bracketPairAt(text, caret))
            return brackets;
        if (language != ui::TextBox::Language::Xml)
            return {};
        return tagPairAt(contexts_, text, caret);
    };
    structure.closing = [this](QByteArrayView text, qsizetype caret) {
        return closingAt(contexts_, text, caret);
    };
    structure.textChanged = [this](qsizetype from) { contexts_.textChanged(from); };
    return structure;
}

bool PaneSource::isMarkup() const {
    const Node shown = selection_.GetDOMNode(shownItem());
    // What has no tree yet is the source of a whole file.
    return !shown || isSourceOf(shown);
}

void PaneSource::mnuPaneRenameTags_Click() {
    ui::TextBox &box = pane_.textBox();
    const QByteArray text = box.utf8();
    const std::vector<Stretch> names =
        isMarkup() ? tagNamesAt(contexts_, text, box.caret()) : std::vector<Stretch>();
    if (state_.m_ReadOnly || options_.viewLock || names.empty()) {
        Q_EMIT statusText((names.empty() ? texts::NoTagsHere : texts::NamesAreLocked).toString());
        return;
    }
    const QString present = QString::fromUtf8(names.front().in(text));
    const QString name =
        ui::dialogs().inputText(texts::RenamePrompt.toString(), {.present = present}).trimmed();
    // While the dialog asks, another program may open another document.
    if (name.isEmpty() || name == present || box.utf8() != text)
        return;
    // Raises the error for what is no name.
    xml::DOMDocument40::create().createElement(name);
    std::vector<ui::TextReplacement> replacements;
    for (const Stretch &stretch : names)
        replacements.push_back({stretch.start, stretch.end - stretch.start, name.toUtf8()});
    box.replace(replacements);
    box.takeFocus();
}

Node PaneSource::nodeAt(const Node &shown, QByteArrayView text, qsizetype caret) {
    const TextContext context = contexts_.at(text, caret);
    const bool isInStartTag = !context.tag.isEmpty() && !context.tag.in(text).startsWith("</");
    const Stretch tag = isInStartTag           ? context.tag
                        : context.open.empty() ? Stretch()
                                               : context.open.back();
    if (tag.isEmpty()) {
        // Beside the root element.
        const bool isDocument = shown.nodeType() == NodeType::Document;
        const Node child = isDocument ? xml::childAtPlace(shown, caret) : Node();
        return child ? child : shown;
    }
    const Node element = elementAt(shown, elementsAhead(text, tag.start));
    if (!element)
        return shown;
    const Node part = isInStartTag ? attributeAt(element, text, tag, caret)
                                   : xml::childAtPlace(element, caret - tag.start);
    return part ? part : element;
}

bool PaneSource::goToItem() {
    const Node shown = selection_.GetDOMNode(shownItem());
    if (!shown || !selection_.hasUnparsedText()) {
        if (!isSourceOf(shown))
            return true;
        const QByteArray text = pane_.textBox().utf8();
        const Node node = nodeAt(shown, text, pane_.textBox().caret());
        origin_ = shown.number();
        navigation_.show({.node = node.number()});
        return true;
    }
    // What the text would have an item for is not in the tree.
    return selection_.mayLeavePane();
}

bool PaneSource::goToPlace() {
    const Node node = selection_.GetSelectedDOMNode();
    const bool isAttribute = node.nodeType() == NodeType::Attribute;
    // An attribute does not know where it stands, and its item may show a copy of it.
    const Node parent =
        isAttribute ? selection_.GetDOMNode(tree_.SelectedItem().Parent()) : node.parentNode();
    if (!parent || selection_.hasUnparsedText())
        return true;
    Node top = parent;
    while (top && top.number() != origin_)
        top = top.parentNode();
    if (!top)
        top = parent;
    const TreeItem item = builder_.itemOf(top);
    selection_.ShowNode(item, true);
    if (!item || pane_.shownItem != item)
        return false;
    TreeItem(item).EnsureVisible();
    ui::TextBox &box = pane_.textBox();
    const qsizetype at = xml::placeInMarkup(top, isAttribute ? parent : node);
    if (!isAttribute) {
        const bool isElement = node.nodeType() == NodeType::Element;
        box.selectBytes(isElement ? at + 1 : at, isElement ? node.nodeName().toUtf8().size() : 0);
        return true;
    }
    const QByteArray text = box.utf8();
    for (const TextAttribute &attribute :
         completion::tagAttributes(text, completion::tokenAt(text, at).where)) {
        if (attribute.name.in(text) == node.nodeName().toUtf8())
            box.selectBytes(attribute.name.start, attribute.name.end - attribute.name.start);
    }
    return true;
}

} // namespace quillon::source

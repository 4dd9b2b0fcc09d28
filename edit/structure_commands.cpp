#include "edit/structure_commands.h"

#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"
#include "platform/xml/dom/arrangement.h"
#include "resources/node_texts.h"

#include <algorithm>

namespace quillon::edit {

namespace style = ui::message_style;
namespace texts = resources::node_texts;
using items::TreeItem;
using tree::Place;
using xml::Node;
using xml::NodeType;

namespace {

/// Says why nothing is done, with the caption of what stands in the way.
void refuse(QStringView text, const TreeItem &item) {
    constexpr qsizetype Longest = 40;
    QString caption = item.Text().simplified();
    if (caption.size() > Longest)
        caption = caption.left(Longest) + u'…';
    ui::showMessage(text.toString().arg(caption), style::Exclamation);
}

bool isDeclaration(const Node &node) {
    return node.nodeType() == NodeType::ProcessingInstruction &&
           node.nodeName() == QLatin1String("xml");
}

/// Whether a node can be put elsewhere at all.
bool isMovable(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::None:
    case NodeType::Document:
    case NodeType::DocumentType:
    case NodeType::Attribute:
        return false;
    default:
        return !isDeclaration(node);
    }
}

bool standsInElement(const Node &node) {
    return node.parentNode().nodeType() == NodeType::Element;
}

} // namespace

StructureCommands::StructureCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                                     tree::NodeRemoval &removal, tree::Selection &selection,
                                     items::Tree &tree)
    : state_(state), builder_(builder), removal_(removal), selection_(selection), tree_(tree),
      relocation_(builder, removal, tree) {}

StructureStates StructureCommands::states() const {
    const Node node = selection_.GetSelectedDOMNode();
    if (state_.m_ReadOnly || !node)
        return {};
    const bool isElement = node.nodeType() == NodeType::Element;
    if (tree_.selectedCount() > 1)
        return {true, true, true, isElement};
    const bool movable = isMovable(node);
    return {movable, movable, isElement, isElement};
}

StructureCommands::Items StructureCommands::movableItems(QStringView refusal) const {
    Items items = state_.m_ReadOnly ? Items() : tree_.topmostSelectedItems();
    for (const TreeItem &item : items) {
        if (!isMovable(nodeOf(item))) {
            refuse(refusal, item);
            return {};
        }
    }
    return items;
}

std::size_t StructureCommands::placeOfCurrent(const Items &items) const {
    for (TreeItem at = tree_.SelectedItem(); at; at = at.Parent()) {
        if (const auto found = std::find(items.begin(), items.end(), at); found != items.end())
            return static_cast<std::size_t>(found - items.begin());
    }
    return items.size() - 1;
}

void StructureCommands::finish(const Items &items, const TreeItem &current) {
    tree_.selectItems(items, current);
    Q_EMIT documentModified();
    selection_.ShowNode(current, true);
}

void StructureCommands::moveSelected(Direction direction) {
    const bool isUp = direction == Direction::Up;
    const QStringView refusal = isUp ? texts::CannotMoveUp : texts::CannotMoveDown;
    Items items = movableItems(refusal);
    if (items.empty())
        return;
    // One behind another that moves has a place to go to.
    for (const TreeItem &item : items) {
        const TreeItem sibling = isUp ? item.Previous() : item.Next();
        if (!standsInElement(nodeOf(item)) || !sibling ||
            nodeOf(sibling).nodeType() == NodeType::Attribute) {
            refuse(refusal, item);
            return;
        }
    }
    const std::size_t current = placeOfCurrent(items);
    const tree::TreeBuilder::PreviewPause pause(builder_);
    tree_.selectOnlyCurrent();
    for (std::size_t i = 0; i < items.size(); ++i) {
        TreeItem &item = items[isUp ? i : items.size() - 1 - i];
        item = relocation_.move(item, isUp ? relocation_.ahead(item.Previous())
                                           : relocation_.behind(item.Next()));
    }
    finish(items, items[current]);
}

void StructureCommands::duplicateSelected() {
    Items items = movableItems(texts::CannotDuplicate);
    for (const TreeItem &item : items) {
        const Node node = nodeOf(item);
        if (node.nodeType() == NodeType::Element && !standsInElement(node)) {
            refuse(texts::OneRootOnly, item);
            return;
        }
    }
    if (items.empty())
        return;
    const std::size_t current = placeOfCurrent(items);
    const tree::TreeBuilder::PreviewPause pause(builder_);
    Items copies;
    for (std::size_t first = 0; first < items.size();) {
        std::size_t behind = first + 1;
        while (behind < items.size() && items[behind - 1].Next() == items[behind])
            ++behind;
        const Place place = relocation_.behind(items[behind - 1]);
        for (; first < behind; ++first)
            copies.push_back(relocation_.insert(nodeOf(items[first]).cloneNode(true), place));
    }
    finish(copies, copies[current]);
}

bool StructureCommands::mayStandOutsideRoot(const TreeItem &item) const {
    switch (nodeOf(item).nodeType()) {
    case NodeType::Element:
        refuse(texts::OneRootOnly, item);
        return false;
    case NodeType::Comment:
    case NodeType::ProcessingInstruction:
        return true;
    default:
        refuse(texts::TextUnderDocument, item);
        return false;
    }
}

void StructureCommands::raiseSelected() {
    Items items = movableItems(texts::CannotRaise);
    for (const TreeItem &item : items) {
        const Node node = nodeOf(item);
        if (!standsInElement(node)) {
            refuse(texts::CannotRaise, item);
            return;
        }
        if (!standsInElement(node.parentNode()) && !mayStandOutsideRoot(item))
            return;
    }
    if (items.empty())
        return;
    const std::size_t current = placeOfCurrent(items);
    const tree::TreeBuilder::PreviewPause pause(builder_);
    tree_.selectOnlyCurrent();
    // From the last one on, each right behind the parent, which leaves them in their order.
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        *item = relocation_.move(*item, relocation_.behind(item->Parent()));
    finish(items, items[current]);
}

TreeItem StructureCommands::elementAhead(const TreeItem &item) const {
    for (TreeItem at = item.Previous(); at; at = at.Previous()) {
        const NodeType kind = nodeOf(at).nodeType();
        if (kind == NodeType::Element && !tree_.isSelected(at))
            return at;
        const bool isPassed = kind == NodeType::Comment ||
                              kind == NodeType::ProcessingInstruction || tree_.isSelected(at);
        if (!isPassed)
            return {};
    }
    return {};
}

void StructureCommands::lowerSelected() {
    Items items = movableItems(texts::CannotLower);
    Items targets;
    for (const TreeItem &item : items) {
        // The one ahead may go to the same element.
        const bool follows = !targets.empty() && item.Previous() == items[targets.size() - 1];
        targets.push_back(follows ? targets.back() : elementAhead(item));
        if (!standsInElement(nodeOf(item)) || !targets.back()) {
            refuse(texts::CannotLower, item);
            return;
        }
    }
    if (items.empty())
        return;
    const std::size_t current = placeOfCurrent(items);
    const tree::TreeBuilder::PreviewPause pause(builder_);
    tree_.selectOnlyCurrent();
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i] = relocation_.move(items[i], relocation_.lastIn(targets[i]));
    finish(items, items[current]);
}

bool StructureCommands::mayEnclose(const Items &items) const {
    const TreeItem parent = items.front().Parent();
    const bool isOutside = !standsInElement(nodeOf(items.front()));
    bool takesRoot = false;
    for (const TreeItem &item : items) {
        if (item.Parent() != parent) {
            ui::showMessage(texts::EncloseSiblingsOnly.toString(), style::Exclamation);
            return false;
        }
        takesRoot = takesRoot || nodeOf(item).nodeType() == NodeType::Element;
    }
    if (isOutside && !takesRoot && builder_.HasRootElement()) {
        refuse(texts::OneRootOnly, items.front());
        return false;
    }
    return true;
}

void StructureCommands::encloseSelected() {
    Items items = movableItems(texts::CannotEnclose);
    if (items.empty() || !mayEnclose(items))
        return;
    const QString name = ui::dialogs().inputText(texts::EnclosePrompt.toString());
    if (name.isEmpty())
        return;
    // Raises before anything is changed.
    const Node element = state_.m_DOM.createElement(name);
    const tree::TreeBuilder::PreviewPause pause(builder_);
    tree_.selectOnlyCurrent();
    // Outside the root, its place is the only one for an element.
    const bool isOutside = !standsInElement(nodeOf(items.front()));
    const auto isElement = [&](const TreeItem &item) {
        return nodeOf(item).nodeType() == NodeType::Element;
    };
    const auto root = std::find_if(items.begin(), items.end(), isElement);
    const TreeItem first = isOutside && root != items.end() ? *root : items.front();
    const Node firstNode = nodeOf(first);
    const Place place = relocation_.ahead(first);
    const auto indent = xml::lineIndentOf(firstNode);
    firstNode.parentNode().replaceChild(element, firstNode);
    const TreeItem newItem = relocation_.show(element, place);
    for (const TreeItem &item : items) {
        if (item == first) {
            element.appendChild(firstNode);
            xml::reindentBelow(firstNode, indent);
            relocation_.follow(item, relocation_.lastIn(newItem));
        } else {
            relocation_.move(item, relocation_.lastIn(newItem));
        }
    }
    TreeItem(newItem).setExpanded(true);
    finish({newItem}, newItem);
}

bool StructureCommands::mayUnwrap(const Items &items) const {
    int attributes = 0;
    for (const TreeItem &item : items) {
        const Node element = nodeOf(item);
        if (element.nodeType() != NodeType::Element) {
            refuse(texts::CannotUnwrap, item);
            return false;
        }
        for (const Node &attribute : element.attributes().all())
            attributes +=
                attribute.specified() && !attribute.nodeName().startsWith(QLatin1String("xmlns"));
        if (standsInElement(element))
            continue;
        int roots = 0;
        for (TreeItem child = item.Child(); child; child = child.Next()) {
            const NodeType kind = nodeOf(child).nodeType();
            roots += kind == NodeType::Element;
            if (kind == NodeType::Element
                    ? roots > 1
                    : kind != NodeType::Attribute && !mayStandOutsideRoot(child)) {
                if (kind == NodeType::Element)
                    refuse(texts::OneRootOnly, child);
                return false;
            }
        }
        if (roots == 0) {
            refuse(texts::RootStays, item);
            return false;
        }
    }
    constexpr int Ask = style::YesNo + style::Question + style::DefaultButton2;
    return attributes == 0 ||
           ui::showMessage(texts::UnwrapLosesAttributes.toString().arg(attributes), Ask) ==
               ui::message_answer::Yes;
}

StructureCommands::Items StructureCommands::unwrap(const TreeItem &item) {
    const Node element = nodeOf(item);
    const Node behind = element.nextSibling();
    const bool isRoot = !standsInElement(element);
    bool isRootGone = false;
    Items children;
    for (TreeItem child = item.Child(); child; child = child.Next()) {
        if (nodeOf(child).nodeType() != NodeType::Attribute)
            children.push_back(child);
    }
    for (TreeItem &child : children) {
        Place place = relocation_.ahead(item);
        if (isRootGone)
            place.ref = behind;
        if (isRoot && nodeOf(child).nodeType() == NodeType::Element) {
            child = relocation_.moveInPlaceOf(child, item);
            isRootGone = true;
        } else {
            child = relocation_.move(child, place);
        }
    }
    if (isRootGone)
        removal_.removeItem(item);
    else
        removal_.removeNodes({item});
    return children;
}

void StructureCommands::unwrapSelected() {
    const Items items = movableItems(texts::CannotUnwrap);
    if (items.empty() || !mayUnwrap(items))
        return;
    const tree::TreeBuilder::PreviewPause pause(builder_);
    tree_.selectOnlyCurrent();
    Items children;
    for (const TreeItem &item : items) {
        const Items of = unwrap(item);
        children.insert(children.end(), of.begin(), of.end());
    }
    // An element without children leaves nothing to select.
    if (children.empty())
        children.push_back(tree_.SelectedItem());
    finish(children, children.back());
}

} // namespace quillon::edit

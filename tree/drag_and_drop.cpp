#include "tree/drag_and_drop.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/ui/error_boundary.h"
#include "tree/node_mime_data.h"

#include <QUrl>

#include <algorithm>

namespace quillon::tree {

using items::DragPoint;
using items::TreeItem;
using xml::NodeType;

namespace {

constexpr QLatin1String TextFormat("text/plain");

/// The first local file on offer, or an empty path.
QString fileOf(const QMimeData &data) {
    for (const QUrl &url : data.urls()) {
        // Not toLocalFile(), which loses what is not UTF-8.
        if (url.isLocalFile())
            return runtime::decodedPath(
                QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
    }
    return {};
}

/// What may be done in place of an action that the source does not allow.
Qt::DropAction allowed(Qt::DropAction wanted, const DragPoint &point) {
    if (point.possible.testFlag(wanted))
        return wanted;
    return point.possible.testFlag(Qt::CopyAction) ? Qt::CopyAction : Qt::IgnoreAction;
}

/// A file's document as text; empty when the file does not parse. Raises for a folder, a device or
/// the like.
QString contentOf(const QString &path) {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.load(path) && !runtime::isRegularFile(path))
        throw runtime::Error(runtime::error_number::Fail, document.parseError().reason);
    return QString::fromUtf8(document.xml());
}

/// An item and all above it, from the top-level item down.
std::vector<TreeItem> chainOf(const TreeItem &item) {
    std::vector<TreeItem> chain;
    for (TreeItem at = item; at; at = at.Parent())
        chain.push_back(at);
    std::reverse(chain.begin(), chain.end());
    return chain;
}

/// What an item of a chain adds to the path of the last one.
QString pieceOf(const std::vector<TreeItem> &chain, std::size_t at) {
    return at == 0 ? chain[at].Text() : QLatin1Char('/') + chain[at].Text();
}

/// item.FullPath().startsWith(start.FullPath()), without making the captions of deeply nested
/// items further than they have to be compared.
bool pathBeginsWith(const TreeItem &item, const TreeItem &start) {
    const std::vector<TreeItem> items = chainOf(item);
    const std::vector<TreeItem> starts = chainOf(start);
    const auto common = std::mismatch(items.begin(), items.end(), starts.begin(), starts.end());
    auto next = static_cast<std::size_t>(common.first - items.begin());
    QString path;
    for (std::size_t at = next; at < starts.size(); ++at) {
        const QString piece = pieceOf(starts, at);
        while (path.size() < piece.size() && next < items.size())
            path += pieceOf(items, next++);
        if (!path.startsWith(piece))
            return false;
        path.remove(0, piece.size());
    }
    return true;
}

} // namespace

DragAndDrop::DragAndDrop(const state::DocumentState &state, TreeBuilder &builder,
                         NodeInsertion &nodeInsertion, NodeRemoval &removal, items::Tree &tree)
    : state_(state), builder_(builder), nodeInsertion_(nodeInsertion), removal_(removal),
      tree_(tree) {}

items::DragHandlers DragAndDrop::handlers() {
    return {[this] { return tvw_OLEStartDrag(); },
            [this](const QMimeData &data) { tvw_OLEDragEnter(data); },
            [this] { bringSelectionBack(); },
            [this](const DragPoint &point) { return tvw_OLEDragOver(point); },
            [this](const DragPoint &point, const QMimeData &data) {
                return tvw_OLEDragDrop(point, data);
            },
            [this](Qt::DropAction effect) { tvw_OLECompleteDrag(effect); }};
}

// ---- The source

items::DragOffer DragAndDrop::tvw_OLEStartDrag() {
    // After a question the button is up, and there is no drag any more.
    if (hasUnparsedText()) {
        mayLeavePane();
        return {};
    }
    m_nodDrag = m_nodDown;
    if (!m_nodDrag)
        return {};
    const NodeRegistry &registry = builder_.registry();
    dragged_ = draggedItems();
    ownSlots_.clear();
    DepartingNodes nodes;
    for (const TreeItem &item : dragged_) {
        const xml::Node node = registry.Item(item);
        nodes.add(node, registry.Item(item.Parent()));
        const bool isAttribute = node.nodeType() == NodeType::Attribute;
        ownSlots_.push_back(tree_.nodes().slotOf(isAttribute ? item.Parent() : item));
    }
    std::sort(ownSlots_.begin(), ownSlots_.end());
    auto data = std::make_unique<NodeMimeData>(std::move(nodes));
    connect(data.get(), &NodeMimeData::confirmationAnnounced, this,
            [this] { awaitsConfirmation_ = true; });
    // Not while the other program waits for the answer to what it asks.
    connect(
        data.get(), &NodeMimeData::moveConfirmed, this,
        [this, items = dragged_] {
            // Of an earlier drag, otherwise.
            if (items == unconfirmed_)
                ui::guarded([&] { completeMove(); });
        },
        Qt::QueuedConnection);
    items::DragOffer offer{std::move(data)};
    // A reference cannot be deleted, so a move would leave it twice.
    if (state_.m_ReadOnly || holdsEntityReference(dragged_))
        offer.actions = Qt::CopyAction;
    return offer;
}

DragAndDrop::Items DragAndDrop::draggedItems() const {
    if (!tree_.isSelected(m_nodDrag) || tree_.selectedCount() < 2)
        return {m_nodDrag};
    return tree_.topmostSelectedItems();
}

bool DragAndDrop::holdsEntityReference(const Items &items) const {
    return std::any_of(items.begin(), items.end(), [&](const TreeItem &item) {
        return builder_.registry().Item(item).nodeType() == NodeType::EntityReference;
    });
}

void DragAndDrop::tvw_OLECompleteDrag(Qt::DropAction effect) {
    bringSelectionBack();
    m_nodDrag = {};
    const Items dragged = std::exchange(dragged_, {});
    unconfirmed_.clear();
    const bool isUnconfirmed = std::exchange(awaitsConfirmation_, false);
    if (effect != Qt::MoveAction || state_.m_ReadOnly || holdsEntityReference(dragged))
        return;
    if (isUnconfirmed)
        unconfirmed_ = dragged;
    else
        remove(dragged);
}

void DragAndDrop::completeMove() {
    remove(std::exchange(unconfirmed_, {}));
    Q_EMIT nodesLeft();
}

void DragAndDrop::remove(const Items &items) {
    // What has gone since is gone already.
    Items present;
    std::copy_if(items.begin(), items.end(), std::back_inserter(present),
                 [](const TreeItem &item) { return bool(item); });
    const auto mayDelete = [this](const TreeItem &item) { return removal_.mayDelete(item); };
    if (items.size() == 1 && !present.empty())
        removal_.DeleteNode(present.front());
    else if (!present.empty() && std::all_of(present.begin(), present.end(), mayDelete))
        removal_.DeleteNodes(present);
}

// ---- The target

void DragAndDrop::tvw_OLEDragEnter(const QMimeData &data) {
    isFile_ = !fileOf(data).isEmpty();
    isOfUse_ = isFile_ || NodeMimeData::hasNodes(data) || data.hasFormat(TextFormat);
    if (!m_nodDrag)
        NodeMimeData::announceConfirmation(data);
}

void DragAndDrop::takeMouseDown(const TreeItem &item) {
    if (item)
        m_nodDown = item;
}

void DragAndDrop::bringSelectionBack() {
    if (const auto before = std::exchange(selectedBefore_, std::nullopt))
        tree_.bringBack(*before);
}

bool DragAndDrop::isOwnPlace(const TreeItem &target) const {
    if (!m_nodDrag)
        return false;
    const auto isOwn = [&](const TreeItem &item) {
        return std::binary_search(ownSlots_.begin(), ownSlots_.end(), tree_.nodes().slotOf(item));
    };
    // An attribute would be given its own value and then be removed.
    if (isOwn(target))
        return true;
    // By the paths, not by descent, at the price that a later sibling whose caption begins with
    // the dragged one's is refused as well. Of several nodes, each of which may have such siblings,
    // that would refuse too much.
    if (ownSlots_.size() == 1)
        return pathBeginsWith(target, m_nodDrag);
    for (TreeItem at = target; at; at = at.Parent()) {
        if (isOwn(at) && std::find(dragged_.begin(), dragged_.end(), at) != dragged_.end())
            return true;
    }
    return false;
}

Qt::DropAction DragAndDrop::tvw_OLEDragOver(const DragPoint &point) {
    if (state_.m_ReadOnly || !isOfUse_)
        return Qt::IgnoreAction;
    if (!point.item)
        return isFile_ ? allowed(Qt::CopyAction, point) : point.proposed;
    if (!selectedBefore_)
        selectedBefore_ = tree_.selected();
    tree_.selectInPlace(point.item);
    // The document takes drops, as of files, but is not offered as a target for nodes.
    if (builder_.registry().Item(point.item).nodeType() != NodeType::Element ||
        isOwnPlace(point.item))
        return Qt::IgnoreAction;
    // Ctrl alone here, Ctrl with whatever else at the drop, where a key let go late must not turn
    // the copy into a move.
    constexpr auto Counted = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    const bool isCopy = isFile_ || (point.modifiers & Counted) == Qt::ControlModifier;
    return allowed(isCopy ? Qt::CopyAction : Qt::MoveAction, point);
}

Qt::DropAction DragAndDrop::tvw_OLEDragDrop(const DragPoint &point, const QMimeData &data) {
    // It may have crossed another window before; back here it is no question what becomes of it.
    awaitsConfirmation_ = false;
    const Qt::DropAction done = takeDropped(point, data);
    if (done == Qt::IgnoreAction)
        bringSelectionBack();
    selectedBefore_.reset();
    return done;
}

Qt::DropAction DragAndDrop::takeDropped(const DragPoint &point, const QMimeData &data) {
    const TreeItem target = point.item ? point.item : tree_.SelectedItem();
    const bool isOwnDrag(m_nodDrag);
    if (state_.m_ReadOnly || isOwnPlace(target))
        return Qt::IgnoreAction;
    if (!state_.showsDocument())
        return mayLeavePane() ? openDropped(data) : Qt::IgnoreAction;
    if (!mayLeavePane() || !insertDropped(target, data))
        return Qt::IgnoreAction;
    // Moved, a file would be removed from where it is.
    const bool isCopy = point.modifiers.testFlag(Qt::ControlModifier) || !fileOf(data).isEmpty() ||
                        !point.possible.testFlag(Qt::MoveAction);
    if (!isCopy && dragged_.size() > 1)
        removal_.removeNodes(std::exchange(dragged_, {}));
    Q_EMIT documentModified();
    if (isCopy)
        return Qt::CopyAction;
    if (!isOwnDrag)
        NodeMimeData::confirmMove(data);
    return Qt::MoveAction;
}

bool DragAndDrop::insertDropped(const TreeItem &target, const QMimeData &data) {
    if (NodeMimeData::hasNodes(data)) {
        const QByteArray packed = NodeMimeData::packedNodes(data);
        // Too large for the way from one program to another, as its text will be.
        if (packed.isEmpty())
            return false;
        if (const auto nodes = unpackedNodes(packed, state_.m_DOM); !nodes.empty())
            return !nodeInsertion_.insertArrivedNodes(target, nodes).empty();
    }
    // A file manager offers text as well, but that is only the names of the files.
    if (const QString file = fileOf(data); !file.isEmpty())
        return !nodeInsertion_.insertText(target, contentOf(file)).empty();
    return data.hasFormat(TextFormat) && !nodeInsertion_.insertText(target, data.text()).empty();
}

Qt::DropAction DragAndDrop::openDropped(const QMimeData &data) {
    if (const QString file = fileOf(data); !file.isEmpty())
        Q_EMIT openFileRequested(file);
    else if (data.hasFormat(TextFormat))
        Q_EMIT loadXmlRequested(data.text());
    // The document that this makes is not saved anywhere, so nothing is taken away for it.
    return state_.m_DOM.documentElement() ? Qt::CopyAction : Qt::IgnoreAction;
}

} // namespace quillon::tree

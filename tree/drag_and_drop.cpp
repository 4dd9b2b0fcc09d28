#include "tree/drag_and_drop.h"

#include "platform/controls/error_boundary.h"
#include "tree/node_mime_data.h"

#include <QUrl>

#include <algorithm>

namespace quillon::tree {

using controls::DragPoint;
using controls::TreeItem;
using xml::NodeType;

namespace {

constexpr QLatin1String TextFormat("text/plain");

/// The first local file on offer, or an empty path.
QString fileOf(const QMimeData &data) {
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

QString textOf(const QMimeData &data) {
    return data.hasFormat(TextFormat) ? data.text() : QString();
}

/// A file's document as text; empty when the file does not parse.
QString contentOf(const QString &path) {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    document.load(path);
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

DragAndDrop::DragAndDrop(const document::DocumentState &state, TreeBuilder &builder,
                         NodeText &nodeText, NodeRemoval &removal, controls::TreeView &tvw)
    : state_(state), builder_(builder), nodeText_(nodeText), removal_(removal), tvw_(tvw) {
    connect(&tvw, &controls::TreeView::MouseDown, this, [this](const TreeItem &item) {
        if (item)
            m_nodDown = item;
    });
    tvw.setDragHandlers({[this] { return tvw_OLEStartDrag(); },
                         [this](const QMimeData &data) {
                             if (!m_nodDrag)
                                 NodeMimeData::announceConfirmation(data);
                         },
                         [this](const DragPoint &point) { return tvw_OLEDragOver(point); },
                         [this](const DragPoint &point, const QMimeData &data) {
                             return tvw_OLEDragDrop(point, data);
                         },
                         [this](Qt::DropAction effect) { tvw_OLECompleteDrag(effect); }});
}

// ---- The source

std::unique_ptr<QMimeData> DragAndDrop::tvw_OLEStartDrag() {
    m_nodDrag = m_nodDown;
    if (!m_nodDrag)
        return nullptr;
    auto data = std::make_unique<NodeMimeData>(builder_.registry().Item(m_nodDrag));
    connect(data.get(), &NodeMimeData::confirmationAnnounced, this,
            [this] { awaitsConfirmation_ = true; });
    // Not while the other program waits for the answer to what it asks.
    connect(
        data.get(), &NodeMimeData::moveConfirmed, this,
        [this, item = m_nodDrag] { controls::guarded([&] { completeMove(item); }); },
        Qt::QueuedConnection);
    return data;
}

void DragAndDrop::tvw_OLECompleteDrag(Qt::DropAction effect) {
    const TreeItem dragged = std::exchange(m_nodDrag, {});
    unconfirmed_ = {};
    const bool isUnconfirmed = std::exchange(awaitsConfirmation_, false);
    if (effect != Qt::MoveAction)
        return;
    if (isUnconfirmed)
        unconfirmed_ = dragged;
    else
        removal_.DeleteNode(dragged);
}

void DragAndDrop::completeMove(const TreeItem &item) {
    if (item && item == unconfirmed_)
        removal_.DeleteNode(std::exchange(unconfirmed_, {}));
}

// ---- The target

bool DragAndDrop::isWithinDragged(const TreeItem &target) const {
    // By the paths, not by descent: a later sibling whose caption begins with the dragged one's
    // is refused as well. That is meant so.
    return m_nodDrag && pathBeginsWith(target, m_nodDrag);
}

Qt::DropAction DragAndDrop::tvw_OLEDragOver(const DragPoint &point) {
    if (state_.m_ReadOnly)
        return Qt::IgnoreAction;
    if (!point.item)
        return point.proposed;
    tvw_.selectInPlace(point.item);
    // The document takes drops, but is not offered as a target. That is meant so.
    if (builder_.registry().Item(point.item).nodeType() != NodeType::Element ||
        isWithinDragged(point.item))
        return Qt::IgnoreAction;
    // Ctrl alone here, Ctrl with whatever else at the drop. That is meant so.
    constexpr auto Counted = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    return (point.modifiers & Counted) == Qt::ControlModifier ? Qt::CopyAction : Qt::MoveAction;
}

Qt::DropAction DragAndDrop::tvw_OLEDragDrop(const DragPoint &point, const QMimeData &data) {
    // It may have crossed another window before; back here it is no question what becomes of it.
    awaitsConfirmation_ = false;
    const TreeItem target = point.item ? point.item : tvw_.SelectedItem();
    if (state_.m_ReadOnly || isWithinDragged(target))
        return Qt::IgnoreAction;
    if (!state_.showsDocument())
        return openDropped(data);
    // A file manager offers text as well, but that is only the names of the files.
    const QString file = fileOf(data);
    const QString text = file.isEmpty() ? textOf(data) : contentOf(file);
    if (!nodeText_.InsertNodeFromText(target, text))
        return Qt::IgnoreAction;
    Q_EMIT documentModified();
    if (point.modifiers.testFlag(Qt::ControlModifier))
        return Qt::CopyAction;
    if (!m_nodDrag)
        NodeMimeData::confirmMove(data);
    return Qt::MoveAction;
}

Qt::DropAction DragAndDrop::openDropped(const QMimeData &data) {
    if (const QString file = fileOf(data); !file.isEmpty())
        Q_EMIT openFileRequested(file);
    else if (data.hasFormat(TextFormat))
        Q_EMIT loadXmlRequested(textOf(data));
    // The document that this makes is not saved anywhere, so nothing is taken away for it.
    return state_.m_DOM.documentElement() ? Qt::CopyAction : Qt::IgnoreAction;
}

} // namespace quillon::tree

#include "source/file_lines.h"

#include "completion/markup_token.h"
#include "completion/text_context.h"
#include "platform/ui/error_boundary.h"

namespace quillon::source {

using completion::TextAttribute;
using xml::Node;
using xml::NodeType;

namespace {

/// Takes a fraction of a millisecond.
constexpr std::size_t BytesAtOnce = 1024 * 1024;

/// How many lines of a start tag stand ahead of the value of an attribute; none where the value is
/// written on other lines than it is shown on.
std::optional<qsizetype> linesAheadOfValue(const Node &element, const Node &attribute) {
    std::optional<qsizetype> lines;
    element.readXml([&](QByteArrayView text) {
        const QByteArray name = attribute.nodeName().toUtf8();
        for (const TextAttribute &found :
             completion::tagAttributes(text, completion::tokenAt(text, 0).where)) {
            if (found.name.in(text) == name &&
                found.value.in(text).count('\n') == attribute.text().count(u'\n'))
                lines = text.first(found.value.start).count('\n');
        }
    });
    return lines;
}

/// Where the text of a node begins, in lines from the node itself.
std::optional<qsizetype> linesInNode(const Node &node) {
    switch (node.nodeType()) {
    case NodeType::Element:
    case NodeType::Document:
        return 0;
    case NodeType::Text:
    case NodeType::CDATASection:
    case NodeType::Comment:
        // A line end may be written as a reference.
        return node.xml().count('\n') == node.text().count(u'\n') ? std::optional<qsizetype>(0)
                                                                  : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

FileLines::FileLines(const tree::Selection &selection, const items::Tree &tree,
                     const tree::PaneContent &pane)
    : selection_(selection), tree_(tree), pane_(pane) {
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] { ui::guarded([this] { goOn(); }); });
}

void FileLines::setOn(bool on) {
    on_ = on;
    placeChanged();
}

void FileLines::placeChanged() {
    ahead_.reset();
    if (on_) {
        Q_EMIT firstLineChanged(std::nullopt);
        soon_.start(0);
    } else {
        soon_.stop();
        Q_EMIT firstLineChanged(1);
    }
}

void FileLines::goOn() {
    if (!ahead_)
        begin();
    if (!ahead_)
        return;
    if (!ahead_->count(BytesAtOnce)) {
        soon_.start(0);
        return;
    }
    Q_EMIT firstLineChanged(ahead_->lineEnds() + linesInNode_ + 1);
    ahead_.reset();
}

void FileLines::begin() {
    const items::TreeItem item = pane_.shownItem;
    Node node = selection_.GetDOMNode(item);
    if (!node) {
        // The pane has a whole file, or nothing.
        Q_EMIT firstLineChanged(1);
        return;
    }
    std::optional<qsizetype> lines = linesInNode(node);
    if (node.nodeType() == NodeType::Attribute) {
        const Node element = selection_.GetDOMNode(item.Parent());
        lines = linesAheadOfValue(element, node);
        node = element;
    }
    if (!lines) {
        Q_EMIT firstLineChanged(std::nullopt);
        return;
    }
    linesInNode_ = *lines;
    ahead_.emplace(node.ownerDocument().node(), node);
}

} // namespace quillon::source

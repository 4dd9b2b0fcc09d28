#include "search/path_copy.h"

#include "platform/xml/query/node_path.h"
#include "resources/query_texts.h"
#include "search/selected_node.h"

#include <QMimeData>

namespace quillon::search {

namespace texts = resources::query_texts;

namespace {

/// Why no path finds a node.
QStringView reason(const xml::Node &node) {
    switch (node.nodeType()) {
    case xml::NodeType::DocumentType:
        return texts::NoPathOfDocumentType;
    case xml::NodeType::ProcessingInstruction:
        return texts::NoPathOfDeclaration;
    case xml::NodeType::Attribute:
        return texts::NoPathOfUndeclaration;
    default:
        return texts::NoPath;
    }
}

} // namespace

void PathCopy::mnuEditCopyXPath_Click() {
    const xml::Node node = selectedNode(selection_, tree_);
    if (!node)
        return;
    const QString path = xml::pathTo(node);
    if (path.isEmpty()) {
        Q_EMIT statusText(reason(node).toString());
        return;
    }
    auto data = std::make_unique<QMimeData>();
    data->setText(path);
    clipboard_.setMimeData(std::move(data));
    Q_EMIT statusText(texts::PathCopied.toString().arg(path));
}

} // namespace quillon::search

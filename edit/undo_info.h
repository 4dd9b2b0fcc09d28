#pragma once

#include "platform/xml/dom/dom.h"

#include <QString>

#include <vector>

namespace quillon::edit {

/// One state of the document to come back to.
class clsUndoInfo {
public:
    /// The stored copy itself; clone it before it is edited. Empty when nothing could be copied.
    const xml::DOMDocument40 &xml() const { return xml_; }
    /// Stores a deep copy of a document. It shares all storage with the original, so this is
    /// cheap at any size.
    void setXml(const xml::DOMDocument40 &document) { xml_ = document.clone(); }

    /// Adds the position of an item that was expanded. Positions are the numbers of the nodes in
    /// the document: unlike places in the tree they hold whatever was inserted ahead of them.
    void AddExpand(qint32 index) { expand_.push_back(index); }
    const std::vector<qint32> &ExpandIndex() const { return expand_; }

    /// Stored for completeness; nothing sets or reads it.
    qint32 SelectedIndex() const { return selectedIndex_; }
    void setSelectedIndex(qint32 index) { selectedIndex_ = index; }

    /// The key of the item that was selected. Written and never read back: a rebuilt tree has new
    /// keys.
    const QString &NodeKey() const { return nodeKey_; }
    void setNodeKey(const QString &key) { nodeKey_ = key; }

    /// The number of the node that was selected, by which the selection comes back; 0 for none.
    quint32 selectedNode() const { return selectedNode_; }
    void setSelectedNode(quint32 number) { selectedNode_ = number; }

    /// The numbers of all selected nodes where there are several; else empty.
    const std::vector<quint32> &selectedNodes() const { return selectedNodes_; }
    void setSelectedNodes(std::vector<quint32> numbers) { selectedNodes_ = std::move(numbers); }

private:
    std::vector<qint32> expand_;
    xml::DOMDocument40 xml_;
    qint32 selectedIndex_ = 0;
    QString nodeKey_;
    quint32 selectedNode_ = 0;
    std::vector<quint32> selectedNodes_;
};

} // namespace quillon::edit

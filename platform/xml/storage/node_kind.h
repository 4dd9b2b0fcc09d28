#pragma once

#include <QtGlobal>

namespace quillon::xml {

/// Kinds of node, with the numbers that the DOM gives them.
enum class NodeType : quint8 {
    None = 0,
    Element = 1,
    Attribute = 2,
    Text = 3,
    CDATASection = 4,
    EntityReference = 5,
    ProcessingInstruction = 7,
    Comment = 8,
    Document = 9,
    DocumentType = 10,
};

} // namespace quillon::xml

#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/transform/document_part.h"

namespace quillon::xml {

/// Receives the nodes of a walk over a part of a document.
class PartVisitor : public NodeVisitor {
public:
    /// Children that are not shown are passed over.
    virtual void pass(const ChildRun &run) = 0;
};

/// visitSubtree() for a part of a document: what belongs to it is visited, in document order and
/// without recursion.
void visitPart(const Node &top, const DocumentPart &part, PartVisitor &visitor);

} // namespace quillon::xml

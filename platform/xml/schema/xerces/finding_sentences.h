#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/xerces/declarations.h"
#include "platform/xml/schema/xerces/document_reader.h"

namespace quillon::xml {

/// Puts into words what Xerces has found in a document.
class FindingSentences {
public:
    explicit FindingSentences(Declarations &declarations) : declarations_(declarations) {}

    /// Adds the errors that a finding stands for, at least one. `element` is the one that it is
    /// about; null when there is none.
    void add(const Finding &finding, const Node &element, std::vector<SchemaError> &errors);

private:
    SchemaError inDocument(const Finding &finding, const Node &element);
    SchemaError invalidValue(const Finding &finding, const Node &element);
    void addContentErrors(const Finding &finding, const Node &parent,
                          std::vector<SchemaError> &errors);

    Declarations &declarations_;
};

/// What is wrong with a declaration in a DTD: a whole sentence.
QString declarationFault(const Finding &finding);

} // namespace quillon::xml

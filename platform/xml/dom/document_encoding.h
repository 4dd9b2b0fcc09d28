#pragma once

#include "platform/xml/dom/dom.h"

#include <memory>

namespace quillon::xml {

/// What the encoding in which a document would be saved can hold.
class DocumentEncoding {
public:
    /// Raises Fail for a document whose encoding is not supported.
    explicit DocumentEncoding(const DOMDocument40 &document);
    ~DocumentEncoding();

    /// Raises Fail for the first character that it lacks. In text and attribute values references
    /// stand for such characters, elsewhere the document could not be saved.
    void check(const QString &text) const;

private:
    std::unique_ptr<class FileOutput> output_;
};

} // namespace quillon::xml

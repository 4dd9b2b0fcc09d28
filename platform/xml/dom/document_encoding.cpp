#include "platform/xml/dom/document_encoding.h"

#include "platform/xml/dom/handle_access.h"
#include "platform/xml/io/output.h"
#include "platform/xml/io/serializer.h"

namespace quillon::xml {

DocumentEncoding::DocumentEncoding(const DOMDocument40 &document)
    : output_(outputFor(HandleAccess::arena(document))) {}

DocumentEncoding::~DocumentEncoding() = default;

void DocumentEncoding::check(const QString &text) const {
    output_->require(text.toStdString());
}

} // namespace quillon::xml

#include "platform/xml/transform/xslt.h"

#include "platform/runtime/error.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/transform/xslt_engine.h"
#include "resources/xml_texts.h"

namespace quillon::xml {

QString transformNode(const Node &source, const DOMDocument40 &stylesheet,
                      const TransformOptions &options) {
    if (source.nodeType() != NodeType::Document && source.nodeType() != NodeType::Element)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::xml_texts::WrongKind.toString().arg(TypeName(source)));
    const auto transform = [&] { return runStylesheet(source, stylesheet, options); };
    return QString::fromUtf8(
        runInChild(transform, {options.timeLimit, options.memoryLimit}, options.progress));
}

} // namespace quillon::xml

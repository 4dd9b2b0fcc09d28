#include "platform/xml/io/file_target.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/encoding.h"
#include "platform/xml/storage/values.h"
#include "resources/xml_texts.h"

namespace quillon::xml {

Number declarationOf(const Arena &arena) {
    const Number first = arena.part(arena.documentNumber()).firstChild;
    if (first == 0 || arena.record(first).kind != NodeType::ProcessingInstruction ||
        arena.names->utf8(arena.record(first).name) != "xml")
        return 0;
    return first;
}

std::string declaredEncodingOf(const Arena &arena) {
    const Number declaration = declarationOf(arena);
    if (declaration == 0)
        return {};
    return declaredEncoding("<?xml " + valueOf(arena, declaration) + "?>");
}

FileTarget targetOf(const Arena &arena) {
    const FileFormat &format = arena.format;
    const std::string declared = declaredEncodingOf(arena);
    FileTarget target;
    bool mark = format.byteOrderMark;
    if (!format.codec.empty() && declared == format.declared) {
        target.codec = format.codec;
    } else {
        target.codec = declared.empty() ? "UTF-8" : codecFor(declared);
        if (target.codec.empty())
            throw runtime::Error(runtime::error_number::Fail,
                                 resources::xml_texts::UnknownEncoding.toString().arg(
                                     QString::fromStdString(declared)));
        mark = target.codec == "UTF-16" || (mark && target.codec == "UTF-8");
    }
    target.encodingName = QString::fromStdString(declared.empty() ? target.codec : declared);
    if (mark)
        target.mark = byteOrderMark(target.codec);
    return target;
}

} // namespace quillon::xml

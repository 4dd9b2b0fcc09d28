#include "platform/xml/syntax/judge.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/parser.h"

#include <algorithm>

namespace quillon::xml {

namespace {

ParseError parsed(std::string text, const runtime::Progress &progress) {
    bool isStopped = false;
    const Ref<Arena> arena(new Arena);
    const Ref<SourceText> source(new SourceText);
    source->utf8 = std::move(text);
    const ParseError error = parse(*arena, source, [&](double done) {
        isStopped = progress && !progress(done);
        return !isStopped;
    });
    if (isStopped)
        runtime::raise(runtime::error_number::Cancelled);
    return error;
}

} // namespace

ParseError judged(QByteArrayView utf8, const SyntaxScope &scope,
                  const runtime::Progress &progress) {
    const std::string text(utf8.data(), std::size_t(utf8.size()));
    ParseError error = parsed(text, progress);
    if (error.errorCode == 0 || scope.declarations.isEmpty() || !utf8.contains('&'))
        return error;
    // The entities of the document are known in its parts.
    const std::string declarations = scope.declarations.toStdString();
    ParseError inDocument = parsed(declarations + text, progress);
    inDocument.filepos = std::max<qint64>(inDocument.filepos - qint64(declarations.size()), 0);
    return inDocument;
}

StopPlace stopPlaceOf(QByteArrayView utf8, const ParseError &error, const SyntaxScope &scope) {
    using Reason = StopPlace::Reason;
    const Reason reason =
        error.errorCode == parse_error_code::DuplicateAttribute ? Reason::DuplicateAttribute
        : error.errorCode == parse_error_code::UndefinedEntity  ? Reason::UndeclaredEntity
                                                                : Reason::Any;
    return {std::clamp<qsizetype>(error.filepos, 0, utf8.size()), reason, scope.declarations};
}

StopPlace stopPlaceOf(const SyntaxFault &fault, const SyntaxScope &scope) {
    using Reason = StopPlace::Reason;
    const Reason reason =
        fault.kind == SyntaxFaultKind::DuplicateAttribute ? Reason::DuplicateAttribute
        : fault.kind == SyntaxFaultKind::UndeclaredEntity ? Reason::UndeclaredEntity
                                                          : Reason::Any;
    return {fault.noticedAt, reason, scope.declarations};
}

} // namespace quillon::xml

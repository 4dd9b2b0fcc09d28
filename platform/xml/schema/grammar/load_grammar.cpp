#include "platform/xml/schema/grammar/load_grammar.h"

#include "platform/runtime/error.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "platform/xml/schema/grammar/grammar_from_dtd.h"
#include "platform/xml/schema/grammar/grammar_from_relaxng.h"
#include "platform/xml/schema/grammar/grammar_from_xdr.h"
#include "platform/xml/schema/grammar/grammar_from_xsd.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/child_process_texts.h"
#include "resources/validation_texts.h"

#include <QFileInfo>

namespace quillon::grammar {

namespace {

constexpr std::chrono::seconds MaxTime(10);

/// What comes first behind comments and instructions tells: a document would have a tag or its
/// DOCTYPE there.
bool isDtd(QByteArrayView text) {
    while (true) {
        text = text.trimmed();
        const bool isComment = text.startsWith("<!--");
        if (!isComment && !text.startsWith("<?"))
            break;
        const qsizetype end = text.indexOf(isComment ? "-->" : "?>");
        if (end < 0)
            return false;
        text = text.sliced(end + (isComment ? 3 : 2));
    }
    return text.isEmpty() || text.startsWith('%') ||
           (text.startsWith("<!") && !text.startsWith("<!DOCTYPE"));
}

QStringList foldersOf(const SchemaSource &source) {
    QStringList folders = source.folders;
    for (const QString &path : source.furtherPaths)
        folders.append(QFileInfo(path).absolutePath());
    return folders;
}

} // namespace

Data readGrammar(const SchemaSource &source) {
    SchemaFiles files(source.path, foldersOf(source), source.catalog);
    if (source.path.isEmpty())
        return grammarFromDtd({}, source.internalSubset, files);
    const std::optional<QByteArray> text = files.read(source.path);
    if (!text)
        xml::raiseSchemaError(QFileInfo(source.path).fileName(), 0,
                              resources::validation_texts::SchemaNotFound.toString());
    if (isDtd(*text))
        return grammarFromDtd(source.path, source.internalSubset, files);
    if (source.path.endsWith(QLatin1String(".rnc"), Qt::CaseInsensitive))
        return grammarFromRelaxNg(source.path, files);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.loadXML(*text))
        xml::raiseSchemaError(QFileInfo(source.path).fileName(), document.parseError().line,
                              document.parseError().reason);
    const xml::Node root = document.documentElement();
    if (isXdr(root))
        return grammarFromXdr(source.path, root, files, source.namespaceName);
    if (isRelaxNg(root))
        return grammarFromRelaxNg(source.path, files);
    return grammarFromXsd(QStringList(source.path) + source.furtherPaths, files);
}

Grammar loadGrammar(const SchemaSource &source, const runtime::Progress &progress) {
    const QByteArray bytes =
        xml::runInChild([&source] { return toBytes(readGrammar(source)); }, {MaxTime}, progress);
    std::optional<Data> data = fromBytes(bytes);
    if (!data)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::child_process_texts::Died.toString());
    return Grammar(std::move(*data));
}

} // namespace quillon::grammar

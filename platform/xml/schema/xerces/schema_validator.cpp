#include "platform/xml/schema/xerces/schema_validator.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/schema/libxml_validator.h"
#include "platform/xml/schema/schema_error_bytes.h"
#include "platform/xml/schema/schema_imports.h"
#include "platform/xml/schema/xerces/document_reader.h"
#include "platform/xml/schema/xerces/xerces_verdict.h"
#include "resources/validation_texts.h"

#include <QFileInfo>

#include <algorithm>

namespace quillon::xml {

namespace texts = resources::validation_texts;

namespace {

using Errors = std::vector<SchemaError>;

/// What comes ahead of the answer of the child.
enum class Answer : char { Verdict = 'V', Refusal = 'R', TooMuch = 'T' };

constexpr std::chrono::seconds BaseTime(3);
constexpr qsizetype BytesPerSecond = 4 << 20;

QByteArray answer(Answer kind, const QByteArray &content = {}) {
    return QByteArray(1, static_cast<char>(kind)) + content;
}

/// Has Xerces judge in a child, where it can neither hang nor fill the memory; what is too much for
/// it, libxml2 does.
Errors judged(const DOMDocument40 &document,
              const std::function<Errors(const QByteArray &text)> &byXerces,
              const std::function<Errors()> &byLibxml) {
    const QByteArray text = document.xml();
    const auto work = [&] {
        try {
            return answer(Answer::Verdict, toBytes(byXerces(text), document));
        } catch (const TooMuch &) {
            return answer(Answer::TooMuch);
        } catch (const runtime::Error &error) {
            return answer(Answer::Refusal, error.description().toUtf8());
        }
    };
    const auto instead = [&] {
        Errors errors = byLibxml();
        putInDocumentOrder(errors, document);
        return errors;
    };
    QByteArray told;
    try {
        told = runInChild(work,
                          {.time = BaseTime + std::chrono::seconds(text.size() / BytesPerSecond)});
    } catch (const runtime::Error &) {
        return instead();
    }
    const QByteArray content = told.sliced(1);
    switch (static_cast<Answer>(told.front())) {
    case Answer::Verdict:
        return schemaErrorsFrom(content, document);
    case Answer::Refusal:
        throw runtime::Error(runtime::error_number::Fail, QString::fromUtf8(content));
    case Answer::TooMuch:
        break;
    }
    return instead();
}

/// A schema that may be chosen: an XSD without a target namespace.
void checkXsd(const QString &path) {
    const QString name = QFileInfo(path).fileName();
    const DOMDocument40 schema = DOMDocument40::create();
    if (!DOMDocument40(schema).load(path))
        raiseSchemaError(name, schema.parseError().line, schema.parseError().reason);
    const Node root = schema.documentElement();
    if (localNameOf(root.nodeName()) != QLatin1String("schema") ||
        namespaceAt(root, prefixOf(root.nodeName())) != XsdNamespace)
        raiseSchemaError(name, 0, texts::NotAnXsd.toString());
    const QString target = root.getAttribute(QStringLiteral("targetNamespace")).value_or(QString());
    if (!target.isEmpty())
        raiseSchemaError(name, lineOf(root), texts::TargetNamespace.toString().arg(target));
}

} // namespace

Errors validateByDtd(const DOMDocument40 &document, const QString &schemaPath,
                     const QStringList &partFolders, const PartCatalog &catalog) {
    if (documentTypeOf(document).isEmpty() || !QFileInfo(schemaPath).isFile())
        raiseSchemaError(QFileInfo(schemaPath).fileName(), 0, texts::SchemaNotFound.toString());
    return judged(
        document,
        [&](const QByteArray &text) {
            return xercesVerdictByDtd(document, text, schemaPath, {partFolders, catalog});
        },
        [&] { return libxmlVerdictByDtd(document, schemaPath, partFolders); });
}

Errors validateByXsd(const DOMDocument40 &document, const QString &schemaPath,
                     const QStringList &partFolders) {
    checkXsd(schemaPath);
    const std::vector<XsdSource> schemas{{QString(), schemaPath}};
    return judged(
        document,
        [&](const QByteArray &text) {
            return xercesVerdictByXsd(document, text, schemas, {partFolders}, true);
        },
        [&] { return libxmlVerdictByXsd(document, schemas, partFolders); });
}

Errors validateByXsds(const DOMDocument40 &document, const std::vector<XsdSource> &schemas,
                      const QStringList &partFolders, const PartCatalog &catalog) {
    if (schemas.empty())
        return {};
    QStringList folders = partFolders;
    for (const XsdSource &schema : schemas)
        folders.append(QFileInfo(schema.path).absolutePath());
    folders.removeDuplicates();
    return judged(
        document,
        [&](const QByteArray &text) {
            return xercesVerdictByXsd(document, text, schemas, {folders, catalog}, false);
        },
        [&] { return libxmlVerdictByXsd(document, schemas, folders); });
}

} // namespace quillon::xml

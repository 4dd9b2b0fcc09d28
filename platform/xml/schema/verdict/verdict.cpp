#include "platform/xml/schema/verdict/verdict.h"

#include "platform/runtime/error.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/schema/relaxng/relaxng_validator.h"
#include "platform/xml/schema/schema_error_bytes.h"
#include "platform/xml/schema/schematron/schematron_validator.h"
#include "platform/xml/schema/xdr/xdr_validator.h"
#include "platform/xml/schema/xerces/schema_validator.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <iterator>

namespace quillon::xml {

namespace {

/// A DTD judges documents that name it: a copy does, whatever the document names.
DOMDocument40 namingDtd(const DOMDocument40 &document, const QString &path) {
    const QByteArray written = documentTypeOf(document);
    QByteArray subset;
    if (const qsizetype open = written.indexOf('['); open >= 0)
        subset = written.sliced(open, written.lastIndexOf(']') + 1 - open);
    DOMDocument40 copy = DOMDocument40::create();
    const Node root = document.documentElement();
    if (!copy.loadXML("<!DOCTYPE " + root.nodeName().toUtf8() + " SYSTEM \"" +
                      QFileInfo(path).fileName().toUtf8() + "\" " + subset + ">\n" + root.xml()))
        throw runtime::Error(copy.parseError().errorCode, copy.parseError().reason);
    return copy;
}

std::vector<SchemaError> byDtd(const DOMDocument40 &document, const SchemaForVerdict &schema) {
    // All that an internal subset lacks to be a DTD is an external one without anything in it.
    const QTemporaryDir folder;
    QString path = schema.path;
    if (path.isEmpty()) {
        path = folder.filePath(QStringLiteral("internal.dtd"));
        if (!QFile(path).open(QIODevice::WriteOnly))
            runtime::raise(runtime::error_number::PermissionDenied);
    }
    const DOMDocument40 copy = namingDtd(document, path);
    const std::vector<SchemaError> found =
        validateByDtd(copy, path, schema.partFolders, schema.catalog);
    std::vector<SchemaError> errors = schemaErrorsFrom(toBytes(found, copy), document);
    setLines(errors);
    return errors;
}

std::vector<SchemaError> byXdr(const DOMDocument40 &document, const SchemaForVerdict &schema) {
    DOMDocument40 source = DOMDocument40::create();
    if (!source.load(schema.path))
        raiseSchemaError(QFileInfo(schema.path).fileName(), source.parseError().line,
                         source.parseError().reason);
    xdr::Validator validator(QStringList(QFileInfo(schema.path).absolutePath()) +
                             schema.partFolders);
    validator.addSchema(schema.namespaceName, source);
    return validator.validate(document);
}

SchemaError unusable(const runtime::Error &error) {
    return {.errorCode = schema_error::UnusableSchema,
            .reason = error.description(),
            .node = {},
            .isWarning = true};
}

/// Those for XSD judge together: the elements of one stand among those of another. One that cannot
/// be used is left out.
std::vector<SchemaError> byXsds(const DOMDocument40 &document,
                                const std::vector<SchemaForVerdict> &schemas) {
    std::vector<XsdSource> sources;
    QStringList folders;
    PartCatalog catalog;
    for (const SchemaForVerdict &schema : schemas) {
        if (schema.kind != SchemaKind::Xsd)
            continue;
        sources.push_back({schema.namespaceName, schema.path});
        folders += schema.partFolders;
        catalog = schema.catalog;
    }
    try {
        return validateByXsds(document, sources, folders, catalog);
    } catch (const runtime::Error &) {
        if (sources.size() == 1)
            throw;
    }
    std::vector<SchemaError> warnings;
    std::erase_if(sources, [&](const XsdSource &source) {
        try {
            validateByXsds(document, {source}, folders, catalog);
            return false;
        } catch (const runtime::Error &error) {
            warnings.push_back(unusable(error));
            return true;
        }
    });
    std::vector<SchemaError> errors = validateByXsds(document, sources, folders, catalog);
    std::ranges::move(warnings, std::back_inserter(errors));
    return errors;
}

std::vector<SchemaError> bySchema(const DOMDocument40 &document, const SchemaForVerdict &schema) {
    switch (schema.kind) {
    case SchemaKind::Dtd:
        return byDtd(document, schema);
    case SchemaKind::Xdr:
        return byXdr(document, schema);
    case SchemaKind::Schematron:
        return validateBySchematron(document, schema.path, schema.partFolders, schema.phase);
    case SchemaKind::RelaxNg:
        return validateByRelaxNg(document, schema.path, schema.partFolders);
    case SchemaKind::Xsd: // all of them are asked together
    case SchemaKind::Unknown:
        break;
    }
    return {};
}

/// What one schema has said, another may say in its own words. What an author has put in words is
/// only the same when the words are.
bool isSame(const SchemaError &a, const SchemaError &b) {
    if (!(a.node == b.node) || a.attribute != b.attribute)
        return false;
    return a.reason == b.reason || (a.errorCode == b.errorCode && !a.node.isNull() &&
                                    a.errorCode != schema_error::RuleViolation);
}

/// Adds what is new of what a further schema says.
void merge(std::vector<SchemaError> &all, std::vector<SchemaError> further) {
    const std::size_t known = all.size();
    for (SchemaError &error : further) {
        const auto end = all.begin() + static_cast<std::ptrdiff_t>(known);
        if (std::none_of(all.begin(), end,
                         [&](const SchemaError &other) { return isSame(other, error); }))
            all.push_back(std::move(error));
    }
}

} // namespace

std::vector<SchemaError> verdict(const DOMDocument40 &document,
                                 const std::vector<SchemaForVerdict> &schemas) {
    std::vector<SchemaError> all;
    const auto add = [&](const std::function<std::vector<SchemaError>()> &judge) {
        try {
            merge(all, judge());
        } catch (const runtime::Error &error) {
            all.push_back(unusable(error));
        }
    };
    add([&] { return byXsds(document, schemas); });
    for (const SchemaForVerdict &schema : schemas)
        add([&] { return bySchema(document, schema); });
    putInDocumentOrder(all, document);
    return all;
}

} // namespace quillon::xml

#include "platform/xml/schema/xerces/xerces_verdict.h"

#include "platform/runtime/error.h"
#include "platform/xml/engine/document_type.h"
#include "platform/xml/schema/xerces/document_reader.h"
#include "platform/xml/schema/xerces/element_places.h"
#include "platform/xml/schema/xerces/finding_sentences.h"
#include "platform/xml/schema/xerces/key_faults.h"
#include "platform/xml/schema/xerces/report_kinds.h"
#include "platform/xml/schema/xerces/report_sentences.h"
#include "resources/validation_texts.h"

#include <QFileInfo>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <functional>
#include <xercesc/framework/XMLErrorCodes.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/framework/XMLValidityCodes.hpp>

namespace quillon::xml {

namespace texts = resources::validation_texts;
using Language = DocumentReader::Language;
using xercesc::XMLValid;

namespace {

/// Bytes that Xerces may hold at a time.
constexpr qint64 MaxMemory = qint64(1) << 30;

/// By what name Xerces knows the document, as a file of the schema's folder.
const QString DocumentName = QStringLiteral("document.xml");
/// The same for the schema that combines the others.
const QString CombinedName = QStringLiteral("quillon-combined.xsd");

QString fileNameOf(const QString &address) {
    return QFileInfo(QUrl(address).path()).fileName();
}

/// What is wrong with a document, in the order in which it is found.
class Judgement {
public:
    Judgement(Language language, const DOMDocument40 &document, QByteArray text,
              Declarations &declarations)
        : byDtd_(language == Language::Dtd), document_(document), text_(std::move(text)),
          sentences_(declarations) {}

    void add(const DocumentReader &reader, std::vector<Finding> findings) {
        std::ranges::stable_sort(findings, {}, &Finding::element);
        std::vector<qint64> positions;
        for (const Finding &finding : findings)
            positions.push_back(finding.element);
        const std::vector<Node> nodes = elementsAt(document_, positions);
        for (std::size_t i = 0; i < findings.size(); ++i) {
            if (findings[i].scope < 0 || !reader.constraints().contains(findings[i].scope))
                sentences_.add(findings[i], nodes[i], errors_);
        }
        addKeys(reader, findings);
        addReferences(reader);
    }

    std::vector<SchemaError> errors() {
        dropFollowing();
        putInOrder();
        setPlaces(errors_, document_, text_);
        return std::move(errors_);
    }

private:
    void dropFollowing();
    void addKeys(const DocumentReader &reader, const std::vector<Finding> &findings);
    void addReferences(const DocumentReader &reader);
    void putInOrder();

    const bool byDtd_;
    const DOMDocument40 &document_;
    QByteArray text_;
    FindingSentences sentences_;
    std::vector<SchemaError> errors_;
};

/// What was told of the keys of an element.
KeyReports reportsOf(const std::vector<Finding> &findings, qint64 scope) {
    KeyReports reports;
    for (const Finding &finding : findings) {
        if (finding.scope != scope)
            continue;
        switch (finding.report.code) {
        case XMLValid::IC_KeyNotFound:
            ++reports.unmatched;
            break;
        case XMLValid::IC_DuplicateKey:
        case XMLValid::IC_DuplicateUnique:
            ++reports.duplicate;
            break;
        case XMLValid::IC_AbsentKeyValue:
        case XMLValid::IC_KeyNotEnoughValues:
            ++reports.incomplete;
            break;
        default:
            break;
        }
    }
    return reports;
}

void Judgement::addKeys(const DocumentReader &reader, const std::vector<Finding> &findings) {
    // A value that is none of its type is no key either.
    QSet<quint32> withBadValues;
    for (const SchemaError &error : errors_) {
        if (error.errorCode == schema_error::InvalidDatatype)
            withBadValues.insert(error.node.number());
    }
    for (const auto &[scope, constraints] : reader.constraints()) {
        const std::vector<KeyFault> faults = keyFaults(elementsAt(document_, {scope}).front(),
                                                       constraints, reportsOf(findings, scope));
        for (const KeyFault &fault : faults) {
            if (!withBadValues.contains(fault.element.number()))
                errors_.push_back({.errorCode = schema_error::InvalidContent,
                                   .reason = fault.reason,
                                   .node = fault.element});
        }
        if (!faults.empty())
            continue;
        // Values that are equal and written differently.
        for (const Finding &finding : findings) {
            if (finding.scope == scope)
                sentences_.add(finding, elementsAt(document_, {finding.element}).front(), errors_);
        }
    }
}

void Judgement::addReferences(const DocumentReader &reader) {
    std::vector<qint64> positions;
    for (const DanglingReference &reference : reader.danglingReferences())
        positions.push_back(reference.element);
    // Those of elements come when they end.
    std::vector<qint64> ascending = positions;
    std::ranges::sort(ascending);
    const std::vector<Node> nodes = elementsAt(document_, ascending);
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const DanglingReference &reference = reader.danglingReferences()[i];
        const auto at = std::ranges::lower_bound(ascending, positions[i]) - ascending.begin();
        const Node &node = nodes[std::size_t(at)];
        const QString reason =
            reference.attribute.isEmpty()
                ? texts::UndefinedElementId.toString().arg(node.nodeName(), reference.identifier)
                : texts::UndefinedId.toString().arg(reference.attribute, reference.identifier);
        errors_.push_back({.errorCode = schema_error::UndefinedId,
                           .reason = reason,
                           .node = node,
                           .attribute = reference.attribute});
    }
}

/// An element that an XML Schema does not let in at a place is not declared there either.
void Judgement::dropFollowing() {
    if (byDtd_)
        return;
    QSet<quint32> misplaced;
    for (const SchemaError &error : errors_) {
        if (error.errorCode == schema_error::InvalidContent)
            misplaced.insert(error.node.number());
    }
    std::erase_if(errors_, [&](const SchemaError &error) {
        return error.errorCode == schema_error::UndeclaredElement &&
               misplaced.contains(error.node.number());
    });
}

void Judgement::putInOrder() {
    std::vector<Node> nodes;
    for (const SchemaError &error : errors_)
        nodes.push_back(error.node);
    const std::vector<qint64> positions = positionsOf(document_, nodes);
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < errors_.size(); ++i)
        order.push_back(i);
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return positions[i]; });
    std::vector<SchemaError> sorted;
    for (const std::size_t i : order) {
        const SchemaError &error = errors_[i];
        const auto isKnown = [&](const SchemaError &known) {
            return known.node == error.node && known.reason == error.reason;
        };
        if (sorted.size() > MaxSchemaErrors)
            break;
        // What has no place is not said twice; of the others those of one element follow each
        // other.
        const auto first = error.node ? std::ranges::find_if(sorted.rbegin(), sorted.rend(),
                                                             [&](const SchemaError &known) {
                                                                 return !(known.node == error.node);
                                                             })
                                            .base()
                                      : sorted.begin();
        if (std::none_of(first, sorted.end(), isKnown))
            sorted.push_back(error);
    }
    errors_ = std::move(sorted);
}

bool isOfUndefinedEntity(const Finding &finding) {
    return isUndefinedEntity(finding.report);
}

/// Values are reported without their attributes, and references without their places: what is found
/// so is worth a second reading.
bool needsMore(DocumentReader &reader) {
    return !reader.danglingIdentifiers().empty() ||
           std::ranges::any_of(reader.findings(), [](const Finding &finding) {
               return finding.inTag && finding.report.domain == ReportDomain::Value;
           });
}

/// Raises what ended the reading of a document.
void raiseSyntaxFault(const DocumentReader &reader, const PartResolver &resolver) {
    if (!reader.syntaxFault())
        return;
    const Report &fault = *reader.syntaxFault();
    const QString file = fileNameOf(fault.file);
    if (file == DocumentName)
        throw runtime::Error(runtime::error_number::Fail,
                             texts::DocumentFault.toString().arg(faultOf(fault, {})));
    raiseSchemaError(file, fault.line, faultOf(fault, resolver.textOf(fault.file)));
}

/// What is wrong with a schema: the first report says it.
struct SchemaFault {
    void note(const Report &report) {
        // A name that leads nowhere is reported as a type first.
        const bool isBetter =
            first && report.is(ReportDomain::Error, xercesc::XMLErrs::RefElementNotFound) &&
            first->is(ReportDomain::Error, xercesc::XMLErrs::TypeNotFound) &&
            first->line == report.line && first->column == report.column;
        if (!report.isWarning && (!first || isBetter))
            first = report;
    }

    void raise(const PartResolver &resolver, const QString &name) const {
        QString reason;
        if (first)
            reason = faultOf(*first, resolver.textOf(first->file));
        else if (resolver.missingPart().isNull())
            return;
        QStringList missing = resolver.missingImports();
        if (!resolver.missingPart().isNull())
            missing.append(resolver.missingPart());
        QStringList lines(reason);
        for (const QString &file : std::as_const(missing))
            lines.append(texts::MissingImportOfFault.toString().arg(file));
        lines.removeAll(QString());
        // Nobody knows of the schema that combines the others.
        const bool hasPlace = first && first->line > 0 && fileNameOf(first->file) != CombinedName;
        raiseSchemaError(hasPlace ? fileNameOf(first->file) : name, hasPlace ? first->line : 0,
                         lines.join(u'\n'));
    }

    std::optional<Report> first;
};

grammar::SchemaSource grammarSource(const std::vector<XsdSource> &schemas,
                                    const PartPlaces &places) {
    grammar::SchemaSource source{
        .path = schemas.front().path, .folders = places.folders, .catalog = places.catalog};
    for (std::size_t i = 1; i < schemas.size(); ++i)
        source.furtherPaths.append(schemas[i].path);
    return source;
}

QByteArray internalSubsetOf(const DOMDocument40 &document) {
    const QByteArray type = documentTypeOf(document);
    const qsizetype open = type.indexOf('[');
    const qsizetype close = type.lastIndexOf(']');
    return open < 0 || close < open ? QByteArray() : type.sliced(open + 1, close - open - 1);
}

} // namespace

std::vector<SchemaError> xercesVerdictByDtd(const DOMDocument40 &document, const QByteArray &text,
                                            const QString &schemaPath, const PartPlaces &places) {
    const grammar::SchemaSource source{.path = schemaPath,
                                       .internalSubset = internalSubsetOf(document),
                                       .folders = places.folders,
                                       .catalog = places.catalog};
    startXerces(MaxMemory);
    const SchemaParts parts(schemaPath, places.folders);
    PartResolver resolver(parts, {}, places.catalog);
    Declarations declarations(source);
    if (declarations.expandsTooMuch())
        throw runtime::Error(runtime::error_number::Fail, texts::ExpansionLimit.toString());
    const QString address = parts.addressOf(DocumentName);
    xercesc::XMLGrammarPoolImpl grammars;
    DocumentReader reader(Language::Dtd, resolver, grammars);
    reader.read(text, address, schemaPath, false);
    // Where a DTD breaks off, Xerces is back in the document.
    if (reader.syntaxFault() && fileNameOf(reader.syntaxFault()->file) == DocumentName)
        grammar::readGrammar(source);
    raiseSyntaxFault(reader, resolver);
    // What a missing part declares would be an error wherever it is used.
    if (!resolver.missingEntity().isNull())
        raiseSchemaError(resolver.missingEntity(), 0, texts::SchemaNotFound.toString());
    Judgement judgement(Language::Dtd, document, text, declarations);
    if (!needsMore(reader)) {
        judgement.add(reader, reader.findings());
        return judgement.errors();
    }
    DocumentReader again(Language::Dtd, resolver, grammars);
    again.tellMore(reader.danglingIdentifiers());
    again.read(text, address, schemaPath, false);
    judgement.add(again, again.findings());
    return judgement.errors();
}

std::vector<SchemaError> xercesVerdictByXsd(const DOMDocument40 &document, const QByteArray &text,
                                            const std::vector<XsdSource> &schemas,
                                            const PartPlaces &places, bool followsHints) {
    Declarations declarations(grammarSource(schemas, places));
    if (declarations.hasLargeGroups())
        throw TooMuch();
    startXerces(MaxMemory);
    const SchemaParts parts(schemas.front().path, places.folders);
    PartResolver resolver(parts, schemas, places.catalog);
    xercesc::XMLGrammarPoolImpl grammars;
    DocumentReader reader(Language::Xsd, resolver, grammars);
    SchemaFault fault;
    reader.loadSchema(combiningSchema(schemas), parts.addressOf(CombinedName),
                      [&](const Report &report) { fault.note(report); });
    fault.raise(resolver, QFileInfo(schemas.front().path).fileName());
    const QStringList missing = resolver.missingImports();

    const QString address = parts.addressOf(DocumentName);
    reader.read(text, address, {}, followsHints);
    Judgement judgement(Language::Xsd, document, text, declarations);
    // It is not known what should stand there.
    if (std::ranges::any_of(reader.findings(), isOfUndefinedEntity)) {
        std::erase_if(reader.findings(), std::not_fn(isOfUndefinedEntity));
        judgement.add(reader, reader.findings());
        return judgement.errors();
    }
    raiseSyntaxFault(reader, resolver);
    if (needsMore(reader)) {
        DocumentReader again(Language::Xsd, resolver, grammars);
        again.tellMore(reader.danglingIdentifiers());
        again.read(text, address, {}, followsHints);
        judgement.add(again, again.findings());
    } else {
        judgement.add(reader, reader.findings());
    }
    std::vector<SchemaError> errors = judgement.errors();
    for (const QString &what : missing)
        errors.push_back({.errorCode = schema_error::MissingImport,
                          .reason = texts::MissingImport.toString().arg(what),
                          .node = {},
                          .isWarning = true});
    return errors;
}

} // namespace quillon::xml

#include "platform/xml/schema/relaxng/relaxng_validator.h"

#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/grammar_from_relaxng.h"
#include "platform/xml/schema/grammar/relaxng_compact.h"
#include "platform/xml/schema/relaxng/relaxng_faults.h"
#include "platform/xml/schema/relaxng/relaxng_message.h"
#include "platform/xml/schema/schema_fault.h"
#include "platform/xml/schema/schema_session.h"
#include "resources/relaxng_texts.h"
#include "resources/validation_texts.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <iterator>
#include <libxml/relaxng.h>

namespace quillon::xml {

namespace texts = resources::relaxng_texts;
namespace document_texts = resources::validation_texts;

namespace {

using Schema = std::unique_ptr<xmlRelaxNG, Releaser<xmlRelaxNGFree>>;
using SchemaParser = std::unique_ptr<xmlRelaxNGParserCtxt, Releaser<xmlRelaxNGFreeParserCtxt>>;
using SchemaValidator = std::unique_ptr<xmlRelaxNGValidCtxt, Releaser<xmlRelaxNGFreeValidCtxt>>;

/// A report on an element, given by its 0-based position in the document.
struct Report {
    SchemaMessage message;
    qint64 element;
};

/// Has the parts of a schema that are in the compact syntax put into the other one, which libxml2
/// reads.
class CompactParts {
public:
    explicit CompactParts(SchemaSession &session) {
        session.prepare = [this](const QByteArray &text, const QString &address) {
            return prepared(text, QFileInfo(QUrl(address).path()).fileName());
        };
    }
    /// Raises what is wrong with one of them. Nothing may be raised while libxml2 reads.
    void check() const {
        if (fault_)
            throw runtime::Error(*fault_);
    }

private:
    QByteArray prepared(const QByteArray &text, const QString &name) {
        if (!grammar::mayBeCompactRelaxNg(text))
            return text;
        try {
            return grammar::relaxNgFromCompact(text, name);
        } catch (const runtime::Error &error) {
            fault_ = fault_.value_or(error);
            return {};
        }
    }

    std::optional<runtime::Error> fault_;
};

/// Raises Fail for XML that is no RELAX NG.
void checkIsRelaxNg(const QString &path, const QString &name) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || grammar::mayBeCompactRelaxNg(file.read(4096)))
        return;
    DOMDocument40 schema = DOMDocument40::create();
    if (!schema.load(path))
        raiseSchemaError(name, schema.parseError().line, schema.parseError().reason);
    if (!grammar::isRelaxNg(schema.documentElement()))
        raiseSchemaError(name, lineOf(schema.documentElement()), texts::NotRelaxNg.toString());
}

/// The first thing that is wrong with a schema.
struct SchemaFault {
    void note(const xmlError &error) {
        // What follows a first fault seldom helps.
        if (!reason.isNull() || error.level < XML_ERR_ERROR || error.domain == XML_FROM_IO)
            return;
        reason = relaxNgSchemaFault(error);
        const auto *node = static_cast<const xmlNode *>(error.node);
        line = node ? static_cast<int>(xmlGetLineNo(node)) : error.line;
        const char *url = node && node->doc && node->doc->URL ? bytes(node->doc->URL) : error.file;
        file = QFileInfo(QUrl(QString::fromUtf8(url)).path()).fileName();
    }

    QString reason;
    QString file;
    int line = 0;
};

Schema compiled(SchemaSession &session, const QString &name) {
    SchemaFault fault;
    session.report = [&](const xmlError &error) { fault.note(error); };
    const CompactParts parts(session);
    const SchemaParser parser(xmlRelaxNGNewParserCtxt(session.addressOf(name).constData()));
    Schema schema(parser ? xmlRelaxNGParse(parser.get()) : nullptr);
    session.report = {};
    session.prepare = {};
    parts.check();
    if (!session.missing().isNull())
        raiseSchemaError(session.missing(), 0, document_texts::SchemaNotFound.toString());
    if (!schema)
        raiseSchemaError(fault.file.isEmpty() ? name : fault.file, fault.line,
                         fault.reason.isNull() ? document_texts::SchemaNotFound.toString()
                                               : fault.reason);
    return schema;
}

/// What libxml2 reports of the document; empty for a valid one.
std::vector<Report> reportsOf(SchemaSession &session, xmlRelaxNG *schema, xmlDoc *document) {
    std::vector<Report> reports;
    session.report = [&](const xmlError &error) {
        if (error.domain == XML_FROM_RELAXNGV && reports.size() <= MaxSchemaErrors)
            reports.push_back({relaxNgMessage(error), session.elementIndex(error)});
    };
    const SchemaValidator validator(xmlRelaxNGNewValidCtxt(schema));
    const int result = validator ? xmlRelaxNGValidateDoc(validator.get(), document) : -1;
    session.report = {};
    if (result < 0)
        throw runtime::Error(runtime::error_number::Fail,
                             document_texts::ValidatorFailed.toString());
    if (result > 0 && reports.empty())
        reports.push_back(
            {{schema_error::InvalidContent, document_texts::SchemaViolation.toString().arg(result)},
             0});
    return reports;
}

/// The numbers of nodes and of all that they stand in.
class Surroundings {
public:
    void add(const Node &node) {
        for (Node at = node; at && !numbers_.contains(at.number()); at = at.parentNode())
            numbers_.insert(at.number());
    }
    bool contains(const Node &node) const { return numbers_.contains(node.number()); }

private:
    QSet<quint32> numbers_;
};

/// The reports that say something new. What has an error in it brings reports on what it stands in
/// and on all that stands beside that, and so on outward.
std::vector<SchemaError> unexplained(const std::vector<Report> &reports,
                                     const std::vector<SchemaError> &known,
                                     const DOMDocument40 &document) {
    Surroundings explained;
    for (const SchemaError &error : known)
        explained.add(error.node);
    std::vector<Report> sorted = reports;
    std::ranges::stable_sort(sorted, {}, &Report::element);
    std::vector<qint64> positions;
    for (const Report &report : sorted)
        positions.push_back(report.element);
    const std::vector<Node> nodes = elementsAt(document, positions);
    std::vector<SchemaError> errors;
    Surroundings reported;
    // From the innermost on.
    for (std::size_t i = sorted.size(); i-- > 0;) {
        const Node node = nodes[i] ? nodes[i] : document.documentElement();
        if (explained.contains(node) || explained.contains(node.parentNode()) ||
            reported.contains(node))
            continue;
        reported.add(node);
        errors.push_back({sorted[i].message.errorCode, sorted[i].message.reason, node});
    }
    return errors;
}

grammar::Grammar grammarOf(const QString &path, const QStringList &folders) {
    grammar::SchemaFiles files(path, folders);
    return grammar::Grammar(grammar::grammarFromRelaxNg(path, files));
}

/// The document with its entities in their places. What its own entities lack is added to errors.
XmlDocument parsed(SchemaSession &session, const DOMDocument40 &document,
                   std::vector<Report> &undefined) {
    QString reason;
    session.report = [&](const xmlError &error) {
        if (error.code == XML_WAR_UNDECLARED_ENTITY || error.code == XML_ERR_UNDECLARED_ENTITY)
            undefined.push_back(
                {{schema_error::UndefinedEntity, schemaFault(error)}, session.elementIndex(error)});
        else if (reason.isNull() && error.level >= XML_ERR_ERROR && error.domain == XML_FROM_PARSER)
            reason = schemaFault(error);
    };
    XmlDocument result = session.parse(document.xml(), false);
    session.report = {};
    if (!result && undefined.empty())
        throw runtime::Error(runtime::error_number::Fail,
                             document_texts::DocumentFault.toString().arg(reason));
    return result;
}

} // namespace

std::vector<SchemaError> validateByRelaxNg(const DOMDocument40 &document, const QString &schemaPath,
                                           const QStringList &partFolders) {
    const QString name = QFileInfo(schemaPath).fileName();
    checkIsRelaxNg(schemaPath, name);
    SchemaSession session(schemaPath, partFolders);
    const Schema schema = compiled(session, name);
    std::vector<Report> reports;
    const XmlDocument copy = parsed(session, document, reports);
    std::vector<SchemaError> errors;
    // The validator cannot look past a reference that stands for nothing.
    if (!reports.empty()) {
        for (const Report &report : reports)
            errors.push_back({report.message.errorCode, report.message.reason,
                              elementsAt(document, {report.element}).front()});
    } else {
        reports = reportsOf(session, schema.get(), copy.get());
        if (!reports.empty())
            errors = RelaxNgFaults(grammarOf(schemaPath, partFolders)).find(document);
        std::ranges::move(unexplained(reports, errors, document), std::back_inserter(errors));
    }
    putInDocumentOrder(errors, document);
    errors.resize(std::min(errors.size(), MaxSchemaErrors + 1));
    setLines(errors);
    return errors;
}

} // namespace quillon::xml

#include "platform/xml/schema_validator.h"

#include "platform/runtime/error.h"
#include "platform/xml/qualified_name.h"
#include "platform/xml/schema_message.h"
#include "platform/xml/schema_session.h"
#include "resources/validation_texts.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <libxml/valid.h>
#include <libxml/xmlschemas.h>

namespace quillon::xml {

namespace text = resources::validation_text;

namespace {

const QString XsdNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema");

/// Collects what a validator reports.
class Collector {
public:
    using Translate = SchemaMessage (*)(const xmlError &);

    Collector(const SchemaSession &session, Translate translate)
        : session_(session), translate_(translate) {}

    void add(const xmlError &error) {
        if (found_.size() < MaxSchemaErrors)
            add(error, translate_(error));
    }
    void add(const xmlError &error, const SchemaMessage &message) {
        if (message.errorCode == 0 || found_.size() == MaxSchemaErrors)
            return;
        const Found found{message, session_.elementIndex(error)};
        // Some faults are reported twice over.
        if (found_.empty() || found_.back().element != found.element ||
            found_.back().message.reason != message.reason)
            found_.push_back(found);
    }

    bool isEmpty() const { return found_.empty(); }

    /// The errors with their elements in the document that was validated.
    std::vector<SchemaError> errorsIn(const DOMDocument40 &document) const {
        std::vector<SchemaError> errors(found_.size());
        std::vector<std::size_t> byElement;
        for (std::size_t i = 0; i < found_.size(); ++i) {
            errors[i].errorCode = found_[i].message.errorCode;
            errors[i].reason = found_[i].message.reason;
            byElement.push_back(i);
        }
        std::ranges::stable_sort(byElement, {},
                                 [this](std::size_t i) { return found_[i].element; });
        std::vector<qint64> positions;
        for (const std::size_t i : byElement)
            positions.push_back(found_[i].element);
        const std::vector<Node> nodes = elementsAt(document, positions);
        for (std::size_t i = 0; i < byElement.size(); ++i)
            errors[byElement[i]].node = nodes[i];
        setLines(errors);
        return errors;
    }

private:
    struct Found {
        SchemaMessage message;
        qint64 element;
    };

    const SchemaSession &session_;
    Translate translate_;
    std::vector<Found> found_;
};

/// The first report about what is no document's own fault.
struct FirstFault {
    void note(const xmlError &error) {
        if (!reason.isNull() || error.level < XML_ERR_ERROR || error.domain == XML_FROM_NAMESPACE)
            return;
        reason = (error.domain == XML_FROM_PARSER ? text::ParserFault : text::SchemaFault)
                     .arg(libxmlSentence(error));
        line = error.line;
        file = QFileInfo(QUrl(QString::fromUtf8(error.file)).path()).fileName();
    }

    [[noreturn]] void raise(const QString &schemaName) const {
        raiseSchemaError(file.isEmpty() ? schemaName : file, line,
                         reason.isNull() ? text::SchemaNotFound : reason);
    }

    QString reason;
    QString file;
    int line = 0;
};

[[noreturn]] void raiseFailed() {
    throw runtime::Error(runtime::error_number::Fail, text::ValidatorFailed);
}

/// A schema that the validator may be asked to compile: an XSD without a target namespace.
void checkXsd(const QString &path, const QString &name) {
    const DOMDocument40 schema = DOMDocument40::create();
    if (!DOMDocument40(schema).load(path))
        raiseSchemaError(name, schema.parseError().line, schema.parseError().reason);
    const Node root = schema.documentElement();
    if (localNameOf(root.nodeName()) != QLatin1String("schema") ||
        namespaceAt(root, prefixOf(root.nodeName())) != XsdNamespace)
        raiseSchemaError(name, 0, text::NotAnXsd);
    const QString target = root.getAttribute(QStringLiteral("targetNamespace")).value_or(QString());
    if (!target.isEmpty())
        raiseSchemaError(name, lineOf(root), text::TargetNamespace.arg(target));
}

using Schema = std::unique_ptr<xmlSchema, Releaser<xmlSchemaFree>>;
using SchemaParser = std::unique_ptr<xmlSchemaParserCtxt, Releaser<xmlSchemaFreeParserCtxt>>;
using SchemaValidator = std::unique_ptr<xmlSchemaValidCtxt, Releaser<xmlSchemaFreeValidCtxt>>;
using DtdValidator = std::unique_ptr<xmlValidCtxt, Releaser<xmlFreeValidCtxt>>;

Schema compileXsd(SchemaSession &session, const QString &name) {
    FirstFault fault;
    session.report = [&](const xmlError &error) { fault.note(error); };
    const SchemaParser context(xmlSchemaNewParserCtxt(session.addressOf(name).constData()));
    Schema schema(context ? xmlSchemaParse(context.get()) : nullptr);
    session.report = {};
    if (!schema)
        fault.raise(name);
    return schema;
}

/// Parses a document. A reference to an entity that is not defined is an error of the document,
/// anything else one for `fault`.
XmlDocument parseDocument(SchemaSession &session, const DOMDocument40 &document, bool byDtd,
                          Collector &collector, FirstFault &fault) {
    session.report = [&](const xmlError &error) {
        if (error.code == XML_WAR_UNDECLARED_ENTITY || error.code == XML_ERR_UNDECLARED_ENTITY)
            collector.add(error, {schema_error::UndefinedEntity,
                                  text::UndefinedEntity.arg(QString::fromUtf8(error.str1))});
        else
            fault.note(error);
    };
    XmlDocument doc =
        session.parse(document.xml(), byDtd,
                      byDtd ? SchemaSession::Entities::Keep : SchemaSession::Entities::Replace);
    session.report = {};
    return doc;
}

} // namespace

std::vector<SchemaError> validateByDtd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &partFolders) {
    SchemaSession session(schemaPath, partFolders);
    Collector collector(session, dtdMessage);
    FirstFault fault;
    const XmlDocument doc = parseDocument(session, document, true, collector, fault);
    if (!doc || !fault.reason.isNull() || !doc->extSubset)
        fault.raise(doc && doc->intSubset ? QString::fromUtf8(reinterpret_cast<const char *>(
                                                doc->intSubset->SystemID))
                                          : QString());
    // What a missing part declares would be an error wherever it is used.
    if (!session.missing().isNull())
        raiseSchemaError(session.missing(), 0, text::SchemaNotFound);
    session.report = [&](const xmlError &error) { collector.add(error); };
    const DtdValidator context(xmlNewValidCtxt());
    if (!context)
        raiseFailed();
    xmlValidateDocument(context.get(), doc.get());
    session.report = {};
    return collector.errorsIn(document);
}

std::vector<SchemaError> validateByXsd(const DOMDocument40 &document, const QString &schemaPath,
                                       const QStringList &partFolders) {
    const QString name = QFileInfo(schemaPath).fileName();
    checkXsd(schemaPath, name);
    SchemaSession session(schemaPath, partFolders);
    const Schema schema = compileXsd(session, name);
    Collector collector(session, xsdMessage);
    FirstFault fault;
    const XmlDocument doc = parseDocument(session, document, false, collector, fault);
    // The validator cannot look past a reference that stands for nothing.
    if (!collector.isEmpty())
        return collector.errorsIn(document);
    if (!doc)
        throw runtime::Error(runtime::error_number::Fail, fault.reason);
    const SchemaValidator context(xmlSchemaNewValidCtxt(schema.get()));
    session.report = [&](const xmlError &error) {
        // Not what is wrong with a schema that the document names itself.
        if (error.domain == XML_FROM_SCHEMASV)
            collector.add(error);
    };
    if (!context || xmlSchemaValidateDoc(context.get(), doc.get()) < 0)
        raiseFailed();
    session.report = {};
    return collector.errorsIn(document);
}

} // namespace quillon::xml

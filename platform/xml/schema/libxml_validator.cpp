#include "platform/xml/schema/libxml_validator.h"

#include "platform/runtime/error.h"
#include "platform/xml/schema/schema_fault.h"
#include "platform/xml/schema/schema_imports.h"
#include "platform/xml/schema/schema_message.h"
#include "platform/xml/schema/schema_references.h"
#include "platform/xml/schema/schema_session.h"
#include "resources/validation_texts.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <libxml/valid.h>
#include <libxml/xmlschemas.h>
#include <tuple>

namespace quillon::xml {

namespace texts = resources::validation_texts;

namespace {

/// Collects what a validator reports.
class Collector {
public:
    using Translate = SchemaMessage (*)(const xmlError &);

    Collector(const SchemaSession &session, Translate translate)
        : session_(session), translate_(translate) {}

    void add(const xmlError &error) { add(error, session_.elementIndex(error)); }
    /// `element` is its position in the document.
    void add(const xmlError &error, qint64 element) {
        if (!isFull())
            add(translate_(error), element);
    }
    void add(const SchemaMessage &message, qint64 element) {
        if (message.errorCode == 0 || isFull())
            return;
        // Some faults are reported twice over, those of declarations not one after the other.
        const auto isKnown = [&](const Found &known) {
            return known.element == element && known.message.reason == message.reason;
        };
        if (element < 0 ? std::ranges::any_of(found_, isKnown)
                        : !found_.empty() && isKnown(found_.back()))
            return;
        found_.push_back({message, element});
    }

    /// References that lead nowhere are reported at the end, in an order that changes from run to
    /// run; puts them into the document's.
    void putReferencesInOrder() {
        const auto first =
            std::ranges::find(found_, schema_error::UndefinedId,
                              [](const Found &found) { return found.message.errorCode; });
        std::sort(first, found_.end(), [](const Found &a, const Found &b) {
            return std::tie(a.element, a.message.reason) < std::tie(b.element, b.message.reason);
        });
    }

    bool isEmpty() const { return found_.empty(); }
    bool isFull() const { return found_.size() > MaxSchemaErrors; }

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
        // A pattern that cannot be compiled is reported once more, with its place.
        if (!reason.isNull() || error.level < XML_ERR_ERROR || error.domain == XML_FROM_NAMESPACE ||
            error.domain == XML_FROM_REGEXP)
            return;
        reason = schemaFault(error);
        line = error.line;
        file = QFileInfo(QUrl(QString::fromUtf8(error.file)).path()).fileName();
    }

    /// `schemaName` stands for a file whose name is not known.
    [[noreturn]] void raise(const QString &schemaName) const {
        if (file == DocumentName)
            throw runtime::Error(runtime::error_number::Fail,
                                 texts::DocumentFault.toString().arg(reason));
        raiseSchemaError(file.isEmpty() ? schemaName : file, line,
                         reason.isNull() ? texts::SchemaNotFound.toString() : reason);
    }

    QString reason;
    QString file;
    int line = 0;
};

[[noreturn]] void raiseFailed() {
    throw runtime::Error(runtime::error_number::Fail, texts::ValidatorFailed.toString());
}

using Schema = std::unique_ptr<xmlSchema, Releaser<xmlSchemaFree>>;
using SchemaParser = std::unique_ptr<xmlSchemaParserCtxt, Releaser<xmlSchemaFreeParserCtxt>>;
using SchemaValidator = std::unique_ptr<xmlSchemaValidCtxt, Releaser<xmlSchemaFreeValidCtxt>>;
using DtdValidator = std::unique_ptr<xmlValidCtxt, Releaser<xmlFreeValidCtxt>>;

Schema compileXsd(SchemaSession &session, const std::vector<XsdSource> &schemas,
                  const SchemaImports &imports) {
    FirstFault fault;
    session.report = [&](const xmlError &error) { fault.note(error); };
    const QString name = QFileInfo(schemas.front().path).fileName();
    const bool isAlone = schemas.size() == 1;
    const QByteArray combined = isAlone ? QByteArray() : combiningSchema(schemas);
    const SchemaParser context(
        isAlone ? xmlSchemaNewParserCtxt(session.addressOf(name).constData())
                : xmlSchemaNewMemParserCtxt(combined.constData(), int(combined.size())));
    Schema schema(context ? xmlSchemaParse(context.get()) : nullptr);
    session.report = {};
    session.prepare = {};
    if (schema)
        return schema;
    QStringList missing = imports.missing();
    if (!session.missing().isNull())
        missing.append(session.missing());
    for (const QString &file : std::as_const(missing))
        fault.reason += u'\n' + texts::MissingImportOfFault.toString().arg(file);
    fault.raise(name);
}

/// Parses a document, with its entities in their places: what they hold is part of what is
/// validated. A reference to an entity that is not defined is an error of the document, anything
/// else one for `fault`.
XmlDocument parseDocument(SchemaSession &session, const DOMDocument40 &document, bool byDtd,
                          Collector &collector, FirstFault &fault) {
    session.report = [&](const xmlError &error) {
        if (error.code == XML_WAR_UNDECLARED_ENTITY || error.code == XML_ERR_UNDECLARED_ENTITY)
            collector.add({schema_error::UndefinedEntity, schemaFault(error)},
                          session.elementIndex(error));
        else if (error.domain != XML_FROM_VALID && error.domain != XML_FROM_DTD)
            fault.note(error);
        else if (byDtd && error.level >= XML_ERR_ERROR && error.code != XML_DTD_ID_REDEFINED)
            // Of the DTD. Identifiers are looked at again when the document is validated.
            collector.add({schema_error::InvalidContent, dtdDeclarationFault(error)}, -1);
    };
    XmlDocument doc = session.parse(document.xml(), byDtd);
    session.report = {};
    return doc;
}

/// The rules for declarations that parsing does not look at.
void validateDeclarations(xmlValidCtxt *context, xmlDoc *doc) {
    for (xmlNode *at = doc->extSubset->children; at; at = at->next) {
        if (at->type == XML_ELEMENT_DECL)
            xmlValidateElementDecl(context, doc, reinterpret_cast<xmlElement *>(at));
        else if (at->type == XML_ATTRIBUTE_DECL)
            xmlValidateAttributeDecl(context, doc, reinterpret_cast<xmlAttribute *>(at));
    }
}

void reportDanglingReferences(xmlDoc *doc, Collector &collector) {
    for (const Reference &reference : danglingReferences(doc))
        collector.add({schema_error::UndefinedId,
                       texts::UndefinedId.toString().arg(
                           QString::fromUtf8(bytes(reference.attribute->name)), reference.value)},
                      SchemaSession::elementIndex(reference.attribute->parent));
}

} // namespace

std::vector<SchemaError> libxmlVerdictByDtd(const DOMDocument40 &document,
                                            const QString &schemaPath,
                                            const QStringList &partFolders) {
    SchemaSession session(schemaPath, partFolders);
    Collector collector(session, dtdMessage);
    FirstFault fault;
    const XmlDocument doc = parseDocument(session, document, true, collector, fault);
    if (!doc || !fault.reason.isNull() || !doc->extSubset)
        fault.raise(QFileInfo(schemaPath).fileName());
    // What a missing part declares would be an error wherever it is used.
    if (!session.missing().isNull())
        raiseSchemaError(session.missing(), 0, texts::SchemaNotFound.toString());
    const DtdValidator context(xmlNewValidCtxt());
    if (!context)
        raiseFailed();
    session.report = [&](const xmlError &error) {
        collector.add({schema_error::InvalidContent, dtdDeclarationFault(error)}, -1);
    };
    validateDeclarations(context.get(), doc.get());
    session.report = [&](const xmlError &error) { collector.add(error); };
    xmlValidateDocument(context.get(), doc.get());
    session.report = {};
    collector.putReferencesInOrder();
    return collector.errorsIn(document);
}

std::vector<SchemaError> libxmlVerdictByXsd(const DOMDocument40 &document,
                                            const std::vector<XsdSource> &schemas,
                                            const QStringList &partFolders) {
    SchemaSession session(schemas.front().path, partFolders);
    SchemaImports imports(session);
    const Schema schema = compileXsd(session, schemas, imports);
    Collector collector(session, xsdMessage);
    FirstFault fault;
    const XmlDocument doc = parseDocument(session, document, false, collector, fault);
    // The validator cannot look past a reference that stands for nothing.
    if (!collector.isEmpty())
        return collector.errorsIn(document);
    if (!doc)
        fault.raise(DocumentName);
    const SchemaValidator context(xmlSchemaNewValidCtxt(schema.get()));
    ElementsByLine elements(doc.get());
    session.report = [&](const xmlError &error) {
        // Not what is wrong with a schema that the document names itself.
        if (error.domain != XML_FROM_SCHEMASV)
            return;
        if (error.node)
            collector.add(error);
        else if (!collector.isFull())
            collector.add(error, elements.find(error));
    };
    if (!context || xmlSchemaValidateDoc(context.get(), doc.get()) < 0)
        raiseFailed();
    session.report = {};
    reportDanglingReferences(doc.get(), collector);
    std::vector<SchemaError> found = collector.errorsIn(document);
    for (const QString &missing : imports.missing())
        found.push_back({schema_error::MissingImport,
                         texts::MissingImport.toString().arg(missing),
                         {},
                         0,
                         true});
    return found;
}

} // namespace quillon::xml

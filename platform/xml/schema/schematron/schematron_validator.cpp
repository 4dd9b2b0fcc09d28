#include "platform/xml/schema/schematron/schematron_validator.h"

#include "platform/runtime/error.h"
#include "platform/xml/schema/schematron/schematron_stylesheet.h"
#include "platform/xml/transform/xslt.h"
#include "platform/xml/transform/xslt_engine.h"
#include "resources/schematron_texts.h"
#include "resources/validation_texts.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace quillon::xml {

namespace texts = resources::schematron_texts;
using schematron::Check;
using schematron::SchemaStylesheet;

namespace {

DOMDocument40 parsed(const QByteArray &text) {
    DOMDocument40 document = DOMDocument40::create();
    document.setPreserveWhiteSpace(true);
    if (!document.loadXML(text))
        throw runtime::Error(document.parseError().errorCode, document.parseError().reason);
    return document;
}

QByteArray applied(const SchemaStylesheet &stylesheet, const DOMDocument40 &document,
                   const QString &schemaPath, const QStringList &partFolders) {
    TransformOptions options;
    options.folders = QStringList(QFileInfo(schemaPath).absolutePath()) + partFolders;
    try {
        return runStylesheet(document.node(), parsed(stylesheet.text), options);
    } catch (const StylesheetError &error) {
        const schematron::Place place = stylesheet.placeOf(error.line());
        raiseSchemaError(QFileInfo(place.file.isEmpty() ? schemaPath : place.file).fileName(),
                         place.line, error.reason());
    }
}

/// The author's words on one line; ideographic spaces are the author's.
QString message(const QString &written, const Check &check) {
    static const QRegularExpression blanks(QStringLiteral("[ \\t\\r\\n]+"));
    QString text = written;
    text.replace(blanks, QStringLiteral(" "));
    text = text.trimmed();
    return text.isEmpty()
               ? (check.isReport ? texts::Reported : texts::Violated).toString().arg(check.test)
               : text;
}

} // namespace

std::vector<SchemaError> validateBySchematron(const DOMDocument40 &document,
                                              const QString &schemaPath,
                                              const QStringList &partFolders,
                                              const QString &phase) {
    const schematron::Schema schema = schematron::readSchematron(schemaPath, partFolders, phase);
    const SchemaStylesheet stylesheet = schematron::stylesheetFor(schema);
    const DOMDocument40 faults = parsed(applied(stylesheet, document, schemaPath, partFolders));
    std::vector<SchemaError> errors;
    for (Node fault = faults.documentElement().firstChild();
         fault && errors.size() <= MaxSchemaErrors; fault = fault.nextSibling()) {
        const auto value = [&](const char *name) {
            return fault.getAttribute(QLatin1String(name)).value_or(QString());
        };
        const Check &check = *stylesheet.checks.at(value("check").toULong());
        const quint32 number = value("node").toUInt();
        SchemaError &error = errors.emplace_back();
        error.errorCode = schema_error::RuleViolation;
        error.reason = message(fault.text(), check);
        error.node = number == 0 ? document.documentElement() : document.nodeByNumber(number);
        error.attribute = value("attribute");
        error.isWarning = check.isHint;
    }
    setLines(errors);
    return errors;
}

} // namespace quillon::xml

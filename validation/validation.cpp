#include "validation/validation.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/schema/schema_error_bytes.h"
#include "platform/xml/schema/xdr/xdr_validator.h"
#include "platform/xml/schema/xerces/schema_validator.h"
#include "resources/messages.h"
#include "resources/validation_texts.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>

namespace quillon::validation {

namespace texts = resources::validation_texts;

namespace {

const xml::SaveOptions WorkingCopy{.readOnly = xml::ReadOnlyFile::Replace, .ownerOnly = true};

/// Lines ahead of the root element in the working copy for a DTD.
constexpr int HeaderLines = 2;

QString onOneLine(QString text) {
    return text.replace(u'\n', u' ');
}

/// The number of lines ahead of the root element in a document as it would be saved.
int linesAheadOfRoot(const xml::DOMDocument40 &document) {
    const xml::Node root = document.documentElement();
    const QByteArray whole = document.xml();
    qsizetype prolog = 0;
    for (xml::Node at = root.previousSibling(); at; at = at.previousSibling())
        prolog += at.xml().size();
    // Beyond the nodes ahead of the root there is only white space.
    const qsizetype start = whole.indexOf(root.xml(), prolog);
    return static_cast<int>(whole.first(std::max<qsizetype>(start, 0)).count('\n'));
}

} // namespace

void Validation::mnuToolVerifyNew_Click() {
    namespace flag = ui::file_dialog_flag;
    const QString chosen =
        ui::dialogs()
            .showOpen({.title = texts::DialogTitle.toString(),
                       .filter = texts::DialogFilter.toString(),
                       .flags = flag::FileMustExist | flag::PathMustExist | flag::HideReadOnly,
                       .path = {},
                       .folder = schemaFolder_.isEmpty() ? state_.folder() : schemaFolder_})
            .path;
    if (chosen.isEmpty())
        return;
    m_strSchemaFile = runtime::shownPath(runtime::fileName(chosen));
    schemaFolder_ = QFileInfo(chosen).absolutePath();
    const QString copy = workingFolder_.fileToWrite(m_strSchemaFile);
    system::copyFile(chosen, copy);
    mnuToolVerify_Click();
}

void Validation::mnuToolVerify_Click() {
    if (m_strSchemaFile.isEmpty())
        mnuToolVerifyNew_Click();
    else
        VerifyDocument();
}

QString Validation::workingCopyPath() const {
    const QString name = system::working_name::ValidatedCopy;
    // A schema of that name must not be overwritten by the copy of the document.
    return workingFolder_.fileToWrite(m_strSchemaFile == name ? u'_' + name : name);
}

Validation::Validate Validation::validationByKind() const {
    const QString kind = m_strSchemaFile.right(4).toLower();
    if (kind == QLatin1String(".dtd"))
        return &Validation::validateDtd;
    if (kind == QLatin1String(".xsd"))
        return &Validation::validateXsd;
    if (kind == QLatin1String(".xml"))
        return &Validation::validateXdr;
    return nullptr;
}

void Validation::VerifyDocument() {
    const Validate validate = validationByKind();
    if (!validate || !state_.m_DOM)
        return;
    clear();
    if (!state_.m_DOM.documentElement())
        throw runtime::Error(runtime::error_number::Fail, texts::NoRoot.toString());
    Q_EMIT statusText(texts::Validating.toString());
    auto clearStatus = qScopeGuard([this] { Q_EMIT statusText(QString()); });
    try {
        longWork_.run(texts::Validating.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          // A child process can be stopped, and a schema cannot harm the editor.
                          take(xml::runInChild([&] { return findings(validate); }, {}, progress));
                      });
    } catch (const runtime::Error &error) {
        clearStatus.dismiss();
        Q_EMIT statusText(onOneLine(error.description()));
        throw;
    }
    clearStatus.dismiss();
    if (errors_.empty())
        showSuccess();
    else
        showFirst();
}

void Validation::clear() {
    errors_.clear();
    hasMoreErrors_ = false;
    warnings_.clear();
    Q_EMIT errorsChanged();
}

QByteArray Validation::findings(Validate validate) const {
    xml::DOMDocument40 copy = xml::DOMDocument40::create();
    const std::vector<xml::SchemaError> found = (this->*validate)(copy);
    return xml::toBytes(found, copy);
}

void Validation::writeForDtd(const xml::Node &root, const QByteArray &encoding) const {
    xml::DOMDocument40 written = xml::DOMDocument40::create();
    // Only the root element: what stands outside it, a document type too, is left out on purpose.
    if (!written.loadXML("<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\r\n<!DOCTYPE " +
                         root.nodeName().toUtf8() + " SYSTEM \"" + m_strSchemaFile.toUtf8() +
                         "\">\r\n" + root.xml()))
        throw runtime::Error(written.parseError().errorCode, written.parseError().reason);
    written.save(workingCopyPath(), WorkingCopy);
}

std::vector<xml::SchemaError> Validation::validateDtd(xml::DOMDocument40 &copy) const {
    const xml::Node root = state_.m_DOM.documentElement();
    try {
        writeForDtd(root, "x-sjis");
    } catch (const runtime::Error &) {
        // A name or a comment, which must not be replaced by a reference, need not be Japanese.
        writeForDtd(root, "UTF-8");
    }
    loadWorkingCopy(copy);
    std::vector<xml::SchemaError> found = xml::validateByDtd(copy, schemaCopyPath(), partFolders());
    const int shift = found.empty() ? 0 : linesAheadOfRoot(state_.m_DOM) - HeaderLines;
    for (xml::SchemaError &error : found) {
        if (error.line > 0)
            error.line += shift;
    }
    return found;
}

std::vector<xml::SchemaError> Validation::validateXsd(xml::DOMDocument40 &copy) const {
    state_.m_DOM.save(workingCopyPath(), WorkingCopy);
    // What would be read back is what is there.
    copy = state_.m_DOM;
    return xml::validateByXsd(copy, schemaCopyPath(), partFolders());
}

std::vector<xml::SchemaError> Validation::validateXdr(xml::DOMDocument40 &copy) const {
    const xml::DOMDocument40 clone = state_.m_DOM.clone();
    const QString attribute = QStringLiteral("xmlns");
    clone.documentElement().removeAttribute(attribute);
    clone.documentElement().setAttribute(attribute, xdr::AddressPrefix + m_strSchemaFile);
    clone.save(workingCopyPath(), WorkingCopy);
    loadWorkingCopy(copy);
    xml::DOMDocument40 schema = xml::DOMDocument40::create();
    if (!schema.load(schemaCopyPath()))
        xml::raiseSchemaError(m_strSchemaFile, schema.parseError().line,
                              schema.parseError().reason);
    xdr::Validator validator(partFolders());
    validator.addSchema(xdr::AddressPrefix + m_strSchemaFile, schema);
    return validator.validate(copy);
}

void Validation::loadWorkingCopy(xml::DOMDocument40 &copy) const {
    if (!copy.load(workingCopyPath()))
        throw runtime::Error(copy.parseError().errorCode, copy.parseError().reason);
}

void Validation::take(const QByteArray &findings) {
    // Both documents have the same elements in the same order.
    for (xml::SchemaError &error : xml::schemaErrorsFrom(findings, state_.m_DOM)) {
        if (error.isWarning)
            warnings_.append(error.reason);
        else if (errors_.size() == xml::MaxSchemaErrors)
            hasMoreErrors_ = true;
        else
            errors_.push_back({std::move(error.reason), error.line, error.node});
    }
    if (!errors_.empty())
        Q_EMIT errorsChanged();
}

void Validation::showSuccess() {
    const QString succeeded = resources::messageText(resources::message::ValidationSucceeded);
    Q_EMIT statusText((QStringList(succeeded) + warnings_).join(QLatin1Char(' ')));
}

void Validation::showFirst() {
    const ValidationError &first = errors_.front();
    const QString reason =
        first.line > 0 ? texts::AtLine.toString().arg(QString::number(first.line), first.reason)
                       : first.reason;
    Q_EMIT statusText(onOneLine(reason));
    ui::showMessage(reason, ui::message_style::Exclamation);
}

} // namespace quillon::validation

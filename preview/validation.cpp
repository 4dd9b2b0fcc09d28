#include "preview/validation.h"

#include "platform/controls/dialogs.h"
#include "platform/controls/message_box.h"
#include "platform/runtime/error.h"
#include "platform/runtime/paths.h"
#include "platform/xml/schema_validator.h"
#include "preview/xdr/xdr_validator.h"
#include "resources/messages.h"
#include "resources/validation_texts.h"

#include <algorithm>

namespace quillon::preview {

namespace text = resources::validation_text;

namespace {

/// Lines ahead of the root element in the working copy for a DTD.
constexpr int HeaderLines = 2;

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
    namespace flag = controls::file_dialog_flag;
    const QString chosen =
        controls::dialogs()
            .showOpen({.title = text::DialogTitle,
                       .filter = text::DialogFilter,
                       .flags = flag::FileMustExist | flag::PathMustExist | flag::HideReadOnly,
                       .path = {}})
            .path;
    if (chosen.isEmpty())
        return;
    m_strSchemaFile = runtime::fileName(chosen);
    const QString copy = workingFolder_.filePath(m_strSchemaFile);
    system::copyFile(chosen, copy);
    system::makeWritable(copy);
    mnuToolVerify_Click();
}

void Validation::mnuToolVerify_Click() {
    if (m_strSchemaFile.isEmpty())
        mnuToolVerifyNew_Click();
    else
        VerifyDocument();
}

QString Validation::workingCopyPath() const {
    const QString name = QStringLiteral("document.xml");
    // A schema of that name must not be overwritten by the copy of the document.
    return workingFolder_.filePath(m_strSchemaFile == name ? u'_' + name : name);
}

void Validation::VerifyDocument() {
    const QString kind = m_strSchemaFile.right(4).toLower();
    std::vector<xml::SchemaError> (Validation::*validate)(xml::DOMDocument40 &) const = nullptr;
    if (kind == QLatin1String(".dtd"))
        validate = &Validation::validateDtd;
    else if (kind == QLatin1String(".xsd"))
        validate = &Validation::validateXsd;
    else if (kind == QLatin1String(".xml"))
        validate = &Validation::validateXdr;
    if (!validate || !state_.m_DOM)
        return;
    errors_.clear();
    Q_EMIT errorsChanged();
    if (!state_.m_DOM.documentElement())
        throw runtime::Error(runtime::error_number::Fail, text::NoRoot);
    xml::DOMDocument40 copy = xml::DOMDocument40::create();
    take((this->*validate)(copy), copy);
    if (errors_.empty())
        Q_EMIT statusText(resources::messageText(resources::message::ValidationSucceeded));
    else
        showFirst();
}

std::vector<xml::SchemaError> Validation::validateDtd(xml::DOMDocument40 &copy) const {
    const xml::Node root = state_.m_DOM.documentElement();
    xml::DOMDocument40 written = xml::DOMDocument40::create();
    // Only the root element: what stands outside it, a document type too, is left out on purpose.
    if (!written.loadXML("<?xml version=\"1.0\" encoding=\"x-sjis\"?>\r\n<!DOCTYPE " +
                         root.nodeName().toUtf8() + " SYSTEM \"" + m_strSchemaFile.toUtf8() +
                         "\">\r\n" + root.xml()))
        throw runtime::Error(written.parseError().errorCode, written.parseError().reason);
    written.save(workingCopyPath(), xml::ReadOnlyFile::Replace);
    loadWorkingCopy(copy);
    std::vector<xml::SchemaError> found = xml::validateByDtd(copy, workingFolder_.path());
    const int shift = found.empty() ? 0 : linesAheadOfRoot(state_.m_DOM) - HeaderLines;
    for (xml::SchemaError &error : found) {
        if (error.line > 0)
            error.line += shift;
    }
    return found;
}

std::vector<xml::SchemaError> Validation::validateXsd(xml::DOMDocument40 &copy) const {
    state_.m_DOM.save(workingCopyPath(), xml::ReadOnlyFile::Replace);
    loadWorkingCopy(copy);
    return xml::validateByXsd(copy, workingFolder_.filePath(m_strSchemaFile));
}

std::vector<xml::SchemaError> Validation::validateXdr(xml::DOMDocument40 &copy) const {
    const xml::DOMDocument40 clone = state_.m_DOM.clone();
    const QString attribute = QStringLiteral("xmlns");
    clone.documentElement().removeAttribute(attribute);
    clone.documentElement().setAttribute(attribute, xdr::AddressPrefix + m_strSchemaFile);
    clone.save(workingCopyPath(), xml::ReadOnlyFile::Replace);
    loadWorkingCopy(copy);
    return xdr::Validator(workingFolder_.path()).validate(copy);
}

void Validation::loadWorkingCopy(xml::DOMDocument40 &copy) const {
    copy.setAsync(false);
    copy.setValidateOnParse(false);
    if (!copy.load(workingCopyPath()))
        throw runtime::Error(copy.parseError().errorCode, copy.parseError().reason);
}

void Validation::take(const std::vector<xml::SchemaError> &found, const xml::DOMDocument40 &copy) {
    std::vector<xml::Node> copied;
    for (const xml::SchemaError &error : found)
        copied.push_back(error.node);
    // Both documents have the same elements in the same order.
    const std::vector<qint64> positions = xml::positionsOf(copy, copied);
    std::vector<qint64> ascending = positions;
    std::ranges::sort(ascending);
    const std::vector<xml::Node> nodes = xml::elementsAt(state_.m_DOM, ascending);
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto at = std::ranges::lower_bound(ascending, positions[i]) - ascending.begin();
        errors_.push_back({found[i].reason, found[i].line, nodes[static_cast<std::size_t>(at)]});
    }
    if (!errors_.empty())
        Q_EMIT errorsChanged();
}

void Validation::showFirst() {
    const ValidationError &first = errors_.front();
    const QString reason =
        first.line > 0 ? text::AtLine.arg(QString::number(first.line), first.reason) : first.reason;
    Q_EMIT statusText(QString(reason).replace(u'\n', u' '));
    controls::showMessage(reason, controls::message_style::Exclamation);
}

} // namespace quillon::preview

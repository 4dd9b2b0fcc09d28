#pragma once

#include "platform/system/working_folder.h"
#include "platform/ui/long_work.h"
#include "platform/xml/schema/schema_error.h"
#include "state/document_state.h"

#include <QObject>

#include <vector>

namespace quillon::validation {

/// One way in which the current document does not keep to its schema.
struct ValidationError {
    /// A Japanese sentence that names the element or attribute; what was expected instead stands on
    /// a second line.
    QString reason;
    /// 1-based line in the document as it would be saved; 0 when unknown.
    int line = 0;
    /// The element concerned, in the document that was validated; empty when unknown.
    xml::Node node;
};

/// Validation of the current document by a schema that the user has chosen: a DTD, an XML Schema or
/// an XML-Data Reduced schema. The document itself is never changed: a working copy is, which
/// stands beside a copy of the schema in the working folder.
class Validation : public QObject {
    Q_OBJECT

public:
    Validation(state::DocumentState &state, const system::WorkingFolder &workingFolder,
               ui::LongWork &longWork)
        : state_(state), workingFolder_(workingFolder), longWork_(longWork) {}

    /// Has the user choose a schema and validates by it. Raises what the next one raises, and what
    /// system::copyFile() raises.
    void mnuToolVerifyNew_Click();
    /// Validates by the schema chosen last; asks for one when none has been chosen. Says in the
    /// status bar that the document is valid, or there and in a message box what the first error
    /// is. Raises when there is no validating: the working copy cannot be written, the schema has
    /// faults, or the user has it stopped.
    void mnuToolVerify_Click();

    /// Forgets the errors: they were those of another document.
    void clear();

    /// What the latest validation has found, at most xml::MaxSchemaErrors; empty after a success,
    /// and when it could not be carried out.
    const std::vector<ValidationError> &errors() const { return errors_; }
    /// Whether there are more errors than errors() has.
    bool hasMoreErrors() const { return hasMoreErrors_; }

Q_SIGNALS:
    /// A text for the status bar.
    void statusText(const QString &text);
    /// errors() may give something else.
    void errorsChanged();

private:
    using Validate = std::vector<xml::SchemaError> (Validation::*)(xml::DOMDocument40 &) const;

    void VerifyDocument();
    Validate validationByKind() const;
    QString workingCopyPath() const;
    QString schemaCopyPath() const { return workingFolder_.filePath(m_strSchemaFile); }
    /// Where the parts of a schema are looked up. The working folder has copies of schemas that
    /// were chosen before, which may be called alike.
    QStringList partFolders() const { return {schemaFolder_, workingFolder_.path()}; }
    /// The errors found, as take() reads them.
    QByteArray findings(Validate validate) const;
    std::vector<xml::SchemaError> validateDtd(xml::DOMDocument40 &copy) const;
    std::vector<xml::SchemaError> validateXsd(xml::DOMDocument40 &copy) const;
    std::vector<xml::SchemaError> validateXdr(xml::DOMDocument40 &copy) const;
    /// Writes the working copy for a DTD. Raises Fail when the encoding cannot hold it.
    void writeForDtd(const xml::Node &root, const QByteArray &encoding) const;
    void loadWorkingCopy(xml::DOMDocument40 &copy) const;
    void take(const QByteArray &findings);
    void showFirst();
    void showSuccess();

    state::DocumentState &state_;
    const system::WorkingFolder &workingFolder_;
    ui::LongWork &longWork_;
    /// The schema's file name without its folder; empty until one has been chosen.
    QString m_strSchemaFile;
    /// Where it was chosen: what belongs to it stands there.
    QString schemaFolder_;
    std::vector<ValidationError> errors_;
    bool hasMoreErrors_ = false;
    /// What the schema wanted and was not there.
    QStringList warnings_;
};

} // namespace quillon::validation

#include "document/commands/document_commands.h"

#include "platform/controls/dialogs.h"
#include "platform/controls/message_box.h"
#include "platform/runtime/error.h"
#include "resources/messages.h"
#include "resources/texts.h"

#include <QFile>
#include <QFileInfo>

namespace quillon::document {

namespace texts = resources::texts;
namespace style = controls::message_style;
namespace answer = controls::message_answer;

namespace {

constexpr int AskSave = style::YesNoCancel + style::Question;
constexpr int AskLoss = style::YesNo + style::Question + style::DefaultButton2;

QString newDocumentName() {
    return texts::NewDocument.toString();
}

QString caption(const QString &name, QStringView marks) {
    return name + marks.toString() + QStringLiteral(" - ") + texts::ApplicationTitle.toString();
}

} // namespace

DocumentCommands::DocumentCommands(DocumentState &state, DocumentLoader &loader,
                                   tree::TreeBuilder &builder, edit::UndoHistory &history,
                                   controls::TreeView &tvw, tree::EditPane &pane,
                                   QString applicationFolder)
    : state_(state), loader_(loader), builder_(builder), history_(history), tvw_(tvw), pane_(pane),
      applicationFolder_(std::move(applicationFolder)) {
    connect(&loader_, &DocumentLoader::statusUpdateRequested, this,
            &DocumentCommands::UpdateStatus);
}

bool DocumentCommands::ConfirmSave() {
    if (!state_.m_Modified)
        return true;
    const int reply =
        controls::showMessage(resources::messageText(resources::message::ConfirmSave), AskSave);
    if (reply == answer::Yes)
        mnuFileSave_Click();
    return reply != answer::Cancel;
}

void DocumentCommands::mnuFileNew_Click() {
    if (!ConfirmSave())
        return;
    ClearStatus();
    const QString standard = applicationFolder_ + QStringLiteral("/default.xml");
    if (QFileInfo(standard).isFile()) {
        loader_.OpenFile(standard);
    } else {
        state_.m_DOM = xml::DOMDocument40::create();
        builder_.BuildTree(state_.m_DOM, true);
        Q_EMIT documentCreated();
        history_.ResetUndoHistory();
    }
    state_.m_FileName.clear();
    state_.m_ReadOnly = state_.m_Opened = state_.m_Modified = false;
    UpdateStatus(newDocumentName());
}

void DocumentCommands::mnuFileOpen_Click() {
    if (!ConfirmSave())
        return;
    dialogTitle_ = texts::OpenDialogTitle.toString();
    const controls::FileDialogResult chosen =
        controls::dialogs().showOpen({dialogTitle_, texts::OpenFilter.toString(),
                                      controls::file_dialog_flag::FileMustExist, initialPath()});
    if (chosen.path.isEmpty())
        return;
    ClearStatus();
    state_.m_ReadOnly = (chosen.flags & controls::file_dialog_flag::ReadOnly) != 0;
    if (loader_.OpenFile(chosen.path))
        UpdateStatus(chosen.path);
}

void DocumentCommands::mnuFileReload_Click() {
    if (state_.m_Modified &&
        controls::showMessage(resources::messageText(resources::message::ConfirmReload), AskLoss) !=
            answer::Yes)
        return;
    loader_.OpenFile(state_.m_FileName);
    UpdateStatus(state_.m_FileName);
}

void DocumentCommands::mnuFileClose_Click() {
    if (ConfirmSave())
        ClearStatus();
}

void DocumentCommands::mnuFileSave_Click() {
    if (state_.m_DOM.isNull())
        return;
    requireSomethingToSave();
    if (state_.m_ReadOnly || !state_.m_Opened)
        mnuFileSaveAs_Click();
    else if (mayOverwrite())
        SaveFile(state_.m_FileName);
}

void DocumentCommands::mnuFileSaveAs_Click() {
    if (state_.m_DOM.isNull())
        return;
    requireSomethingToSave();
    const controls::FileDialogResult chosen =
        controls::dialogs().showSave({dialogTitle_, texts::SaveFilter.toString(),
                                      controls::file_dialog_flag::OverwritePrompt, initialPath()});
    if (!chosen.path.isEmpty())
        SaveFile(chosen.path);
}

void DocumentCommands::mnuFileMRUFiles_Click(const QString &path) {
    if (!ConfirmSave())
        return;
    ClearStatus();
    if (loader_.OpenFile(path))
        UpdateStatus(path);
}

bool DocumentCommands::openRecovered(const QString &path, const QString &name,
                                     const QString &original) {
    if (!ConfirmSave())
        return false;
    loader_.openRecovered(path);
    state_.m_ReadOnly = state_.m_Opened = false;
    state_.m_Modified = true;
    suggestedPath_ = QFileInfo(original).isAbsolute() ? original : QString();
    UpdateStatus(name);
    return true;
}

void DocumentCommands::requireSomethingToSave() const {
    if (state_.m_DOM == state_.failedLoad)
        throw runtime::Error(runtime::error_number::Fail, texts::NothingToSave.toString());
}

QString DocumentCommands::initialPath() const {
    return QFileInfo(state_.m_FileName).isAbsolute() ? state_.m_FileName : suggestedPath_;
}

bool DocumentCommands::isChangedOnDisk() const {
    return state_.m_Opened && loader_.fileOnDisk().path == state_.m_FileName &&
           loader_.fileOnDisk().hasChanged();
}

bool DocumentCommands::mayOverwrite() const {
    return !isChangedOnDisk() ||
           controls::showMessage(texts::OverwriteChangedFile.toString(), AskLoss) == answer::Yes;
}

void DocumentCommands::checkFileOnDisk() {
    if (isChangedOnDisk())
        Q_EMIT statusText(texts::FileChangedOnDisk.toString());
}

void DocumentCommands::SaveFile(const QString &path) {
    // Saving replaces the file, so a read-only one needs no deleting first: a save that fails
    // leaves it as it was.
    const QFileInfo file(path);
    const bool readOnly = file.isFile() && !file.permission(QFile::WriteOwner);
    state_.m_DOM.save(path, readOnly ? xml::ReadOnlyFile::Replace : xml::ReadOnlyFile::Keep);
    loader_.setFileOnDisk(FileOnDisk::of(path));
    state_.m_Modified = false;
    state_.m_Opened = true;
    state_.m_ReadOnly = false;
    UpdateStatus(path);
}

void DocumentCommands::UpdateStatus(const QString &path) {
    QString name = runtime::fileName(path);
    state_.m_FileName = path;
    if (state_.m_Modified)
        name += QStringLiteral(" *");
    Q_EMIT captionChanged(caption(name, state_.m_ReadOnly ? texts::ReadOnlyMark : QStringView()));
    Q_EMIT previewRequested(state_.m_DOM.node());
}

void DocumentCommands::DocumentModified() {
    // Pasting into an empty tree, for one, has changed nothing that could be saved or undone.
    if (state_.m_DOM.isNull())
        return;
    if (!state_.m_Modified) {
        state_.m_Modified = true;
        // Without the read-only mark, which comes back with the next UpdateStatus; that is meant
        // so.
        const QString name =
            state_.m_FileName.isEmpty() ? newDocumentName() : runtime::fileName(state_.m_FileName);
        Q_EMIT captionChanged(caption(name, u" *"));
    }
    history_.TakeSnapshot();
    Q_EMIT documentModified();
}

bool DocumentCommands::canUndoAll() const {
    return !state_.m_BackupPath.isEmpty() && state_.m_Modified;
}

void DocumentCommands::mnuEditUndoAll_Click() {
    if (!canUndoAll() ||
        controls::showMessage(texts::LoseAllChanges.toString(), AskLoss) != answer::Yes)
        return;
    // Before the present document is given up.
    if (!QFileInfo(state_.m_BackupPath).isFile())
        runtime::raise(runtime::error_number::FileNotFound);
    // What is compared with the disk stays the user's file, not its copy.
    const FileOnDisk userFile = loader_.fileOnDisk();
    // Loading makes another copy and gives the member its name.
    const QString backup = state_.m_BackupPath;
    loader_.OpenFile(backup);
    loader_.setFileOnDisk(userFile);
    state_.m_Modified = true;
    UpdateStatus(state_.m_FileName);
}

void DocumentCommands::ClearStatus() {
    suggestedPath_.clear();
    state_.m_DOM = {};
    builder_.registry().reset({}, 1);
    state_.m_FileName.clear();
    state_.m_Modified = state_.m_Opened = state_.m_ReadOnly = false;
    pane_.fillValue(QString());
    pane_.textBox().setLocked(true);
    tvw_.setTreeVisible(false);
    tvw_.nodes().Clear();
    tvw_.setTreeVisible(true);
    Q_EMIT captionChanged(texts::ApplicationTitle.toString());
    Q_EMIT cleared();
}

} // namespace quillon::document

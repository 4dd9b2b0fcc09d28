#include "document/document_commands.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"
#include "platform/xml/io/atomic_file.h"
#include "resources/broken_texts.h"
#include "resources/messages.h"
#include "resources/texts.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <utility>

namespace quillon::document {

namespace texts = resources::texts;
namespace style = ui::message_style;
namespace answer = ui::message_answer;

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

DocumentCommands::DocumentCommands(state::DocumentState &state, DocumentLoader &loader,
                                   BrokenFile &broken, tree::TreeBuilder &builder,
                                   edit::UndoHistory &history, items::Tree &tree,
                                   tree::PaneContent &pane, QString applicationFolder)
    : state_(state), loader_(loader), broken_(broken), builder_(builder), history_(history),
      tree_(tree), pane_(pane), applicationFolder_(std::move(applicationFolder)) {}

void DocumentCommands::takeOpened() {
    suggestedPath_.clear();
    savedState_.reset();
}

bool DocumentCommands::ConfirmSave() {
    changesGivenUp_ = false;
    if (!mayLeavePane())
        return false;
    if (!state_.m_Modified)
        return true;
    const int reply =
        ui::showMessage(resources::messageText(resources::message::ConfirmSave), AskSave);
    if (reply == answer::Yes)
        return save();
    changesGivenUp_ = reply == answer::No;
    return reply != answer::Cancel;
}

bool DocumentCommands::hasUnsavedChanges() const {
    return state_.m_Modified || (savedState_ && savedState_ != history_.current());
}

void DocumentCommands::leaveDocument() {
    if (hasUnsavedChanges() && !changesGivenUp_)
        Q_EMIT unsavedLeaving();
}

bool DocumentCommands::confirmLeaving() {
    if (!ConfirmSave())
        return false;
    leaveDocument();
    return true;
}

void DocumentCommands::mnuFileNew_Click() {
    const QScopedValueRollback answered(changesGivenUp_);
    if (!ConfirmSave())
        return;
    ClearStatus();
    const QString standard = applicationFolder_ + QStringLiteral("/default.xml");
    if (QFileInfo(standard).isFile()) {
        loader_.OpenFile(standard);
    } else {
        state_.m_DOM = xml::DOMDocument40::create();
        builder_.BuildTree(state_.m_DOM, true);
        tree_.setFocus();
        Q_EMIT documentCreated();
        history_.ResetUndoHistory();
    }
    // A copy of the standard document is no state that this one was opened in.
    state_.m_BackupPath.clear();
    state_.m_FileName.clear();
    state_.m_ReadOnly = state_.m_Opened = state_.m_Modified = false;
    UpdateStatus(newDocumentName());
}

void DocumentCommands::mnuFileOpen_Click() {
    const QScopedValueRollback answered(changesGivenUp_);
    if (!ConfirmSave())
        return;
    dialogTitle_ = texts::OpenDialogTitle.toString();
    const ui::FileDialogResult chosen = ui::dialogs().showOpen(
        {dialogTitle_, texts::OpenFilter.toString(), ui::file_dialog_flag::FileMustExist,
         runtime::shownPath(initialPath())});
    if (chosen.path.isEmpty() || isSettledElsewhere(chosen.path))
        return;
    ClearStatus();
    state_.m_ReadOnly = (chosen.flags & ui::file_dialog_flag::ReadOnly) != 0;
    // An empty window is not read-only.
    const auto none = qScopeGuard([this] { state_.m_ReadOnly &= state_.showsAnything(); });
    if (loader_.OpenFile(chosen.path) || showBroken(chosen.path))
        UpdateStatus(chosen.path);
}

void DocumentCommands::mnuFileReload_Click() {
    if (!mayLeavePane())
        return;
    if (state_.m_Modified &&
        ui::showMessage(resources::messageText(resources::message::ConfirmReload), AskLoss) !=
            answer::Yes)
        return;
    const QScopedValueRollback answered(changesGivenUp_, state_.m_Modified);
    const QString path = state_.m_FileName;
    if (!loader_.OpenFile(path))
        showBroken(path);
    UpdateStatus(path);
}

bool DocumentCommands::showBroken(const QString &path) {
    std::optional<xml::FileText> text = loader_.readBroken(path);
    if (!text)
        return false;
    const FileOnDisk file = loader_.fileOnDisk();
    const bool readOnly = state_.m_ReadOnly || !runtime::mayWrite(path);
    ClearStatus();
    loader_.setFileOnDisk(file);
    state_.m_ReadOnly = readOnly;
    state_.isBroken = state_.m_Opened = true;
    broken_.show(std::move(*text));
    Q_EMIT brokenShown();
    return true;
}

void DocumentCommands::takeBrokenEdit() {
    changesGivenUp_ = false;
    if (!std::exchange(state_.m_Modified, true))
        Q_EMIT captionChanged(captionOf(state_.m_FileName));
    Q_EMIT documentModified();
}

void DocumentCommands::takeMended() {
    // It has been recovered, perhaps, and is to be saved where it was.
    const QString suggestedPath = suggestedPath_;
    if (!loader_.openMended(broken_.bytes()))
        return;
    suggestedPath_ = suggestedPath;
    UpdateStatus(state_.m_FileName);
    Q_EMIT statusText(resources::broken_texts::Mended.toString());
}

void DocumentCommands::mnuFileClose_Click() {
    const QScopedValueRollback answered(changesGivenUp_);
    if (ConfirmSave())
        ClearStatus();
}

void DocumentCommands::mnuFileSave_Click() {
    save();
}

bool DocumentCommands::save() {
    if (state_.m_DOM.isNull() && !state_.isBroken)
        return true;
    if (!maySave())
        return false;
    const bool hasFile = state_.m_Opened && QFileInfo(state_.m_FileName).isAbsolute();
    if (state_.m_ReadOnly || !hasFile)
        saveUnderNewName();
    else if (mayOverwrite())
        SaveFile(state_.m_FileName);
    else
        return false;
    return true;
}

bool DocumentCommands::maySave() {
    // What has been typed last may be what was missing.
    if (state_.isBroken && !broken_.isJudged())
        takeMended();
    if (!state_.isBroken) {
        requireSomethingToSave();
        return mayLeavePane();
    }
    const std::optional<TextFault> &fault = broken_.fault();
    return ui::showMessage(resources::broken_texts::ConfirmSave.toString()
                               .arg(fault ? fault->at.sentence : QString())
                               .trimmed(),
                           AskLoss) == answer::Yes;
}

void DocumentCommands::mnuFileSaveAs_Click() {
    if ((state_.m_DOM || state_.isBroken) && maySave())
        saveUnderNewName();
}

void DocumentCommands::saveUnderNewName() {
    const ui::FileDialogResult chosen = ui::dialogs().showSave(
        {dialogTitle_, texts::SaveFilter.toString(), ui::file_dialog_flag::OverwritePrompt,
         runtime::shownPath(initialPath())});
    if (!chosen.path.isEmpty())
        SaveFile(chosen.path);
}

void DocumentCommands::mnuFileMRUFiles_Click(const QString &path) {
    if (isSettledElsewhere(path))
        return;
    const QScopedValueRollback answered(changesGivenUp_);
    if (!ConfirmSave())
        return;
    ClearStatus();
    if (loader_.OpenFile(path) || showBroken(path))
        UpdateStatus(path);
}

bool DocumentCommands::openRecovered(const QString &path, const QString &name,
                                     const QString &original) {
    const QScopedValueRollback answered(changesGivenUp_);
    if (!ConfirmSave())
        return false;
    try {
        loader_.openRecovered(path);
    } catch (const runtime::Error &) {
        if (!showBroken(path))
            throw;
        loader_.setFileOnDisk({});
    }
    state_.m_ReadOnly = state_.m_Opened = false;
    state_.m_Modified = true;
    suggestedPath_ = QFileInfo(original).isAbsolute() ? original : QString();
    UpdateStatus(name);
    return true;
}

void DocumentCommands::openDropped(const QString &path) {
    if (!isSettledElsewhere(path))
        openUnasked(path);
}

void DocumentCommands::openUnasked(const QString &path) {
    // What is being typed into a caption is one of the changes.
    tree_.endLabelEdit();
    const QString shown = initialPath();
    const bool isOpened = loader_.OpenFile(path) || (!state_.showsDocument() && showBroken(path));
    if (!isOpened && state_.showsAnything()) {
        suggestedPath_ = shown;
        state_.m_Opened = false;
    }
    UpdateStatus(path);
}

void DocumentCommands::requireSomethingToSave() const {
    if (!state_.showsDocument())
        throw runtime::Error(runtime::error_number::Fail, texts::NothingToSave.toString());
}

QString DocumentCommands::initialPath() const {
    if (!suggestedPath_.isEmpty())
        return suggestedPath_;
    return QFileInfo(state_.m_FileName).isAbsolute() ? state_.m_FileName : QString();
}

bool DocumentCommands::isChangedOnDisk() const {
    return state_.m_Opened && loader_.fileOnDisk().path == state_.m_FileName &&
           loader_.fileOnDisk().hasChanged();
}

bool DocumentCommands::mayOverwrite() const {
    return !isChangedOnDisk() ||
           ui::showMessage(texts::OverwriteChangedFile.toString(), AskLoss) == answer::Yes;
}

void DocumentCommands::checkFileOnDisk() {
    if (isChangedOnDisk())
        Q_EMIT statusText(texts::FileChangedOnDisk.toString());
}

void DocumentCommands::SaveFile(const QString &path) {
    // Saving replaces the file, so a read-only one needs no deleting first: a save that fails
    // leaves it as it was.
    const xml::SaveOptions options{
        .readOnly = xml::ReadOnlyFile::Replace,
        .beforeOverwriting = [&](std::string_view bytes) { beforeOverwriting(path, bytes); }};
    if (state_.isBroken) {
        xml::writeFileAtomically(path, broken_.bytes(), options);
        pane_.textBox().setLocked(false);
    } else {
        state_.m_DOM.save(path, options);
    }
    loader_.setFileOnDisk(FileOnDisk::of(path));
    suggestedPath_.clear();
    savedState_ = history_.current();
    state_.m_Modified = false;
    state_.m_Opened = true;
    state_.m_ReadOnly = false;
    UpdateStatus(path);
}

void DocumentCommands::UpdateStatus(const QString &path) {
    state_.m_FileName = path;
    Q_EMIT captionChanged(captionOf(path));
    if (!state_.isBroken)
        Q_EMIT previewRequested(state_.m_DOM.node());
}

QString DocumentCommands::captionOf(const QString &path) const {
    QString marks;
    if (state_.m_Modified)
        marks += QStringLiteral(" *");
    if (state_.isBroken)
        marks += resources::broken_texts::Mark.toString();
    if (state_.m_ReadOnly)
        marks += texts::ReadOnlyMark.toString();
    return caption(runtime::shownPath(runtime::fileName(path)), marks);
}

void DocumentCommands::DocumentModified() {
    // Pasting into an empty tree, for one, has changed nothing that could be saved or undone.
    if (!state_.showsDocument())
        return;
    changesGivenUp_ = false;
    if (!state_.m_Modified) {
        state_.m_Modified = true;
        // Without the read-only mark, which comes back with the next UpdateStatus; that is meant
        // so.
        const QString name = state_.m_FileName.isEmpty()
                                 ? newDocumentName()
                                 : runtime::shownPath(runtime::fileName(state_.m_FileName));
        Q_EMIT captionChanged(caption(name, u" *"));
    }
    history_.takeSnapshot();
    Q_EMIT documentModified();
}

bool DocumentCommands::canUndoAll() const {
    return !state_.m_BackupPath.isEmpty() && state_.m_Modified;
}

void DocumentCommands::mnuEditUndoAll_Click() {
    if (!canUndoAll() || !mayLeavePane() ||
        ui::showMessage(texts::LoseAllChanges.toString(), AskLoss) != answer::Yes)
        return;
    // Before the present document is given up.
    if (!QFileInfo(state_.m_BackupPath).isFile())
        runtime::raise(runtime::error_number::FileNotFound);
    // What is compared with the disk stays the user's file, not its copy.
    const FileOnDisk userFile = loader_.fileOnDisk();
    const QString suggestedPath = suggestedPath_;
    const bool wasOpened = state_.m_Opened;
    // Loading makes another copy and gives the member its name.
    const QString backup = state_.m_BackupPath;
    const QScopedValueRollback answered(changesGivenUp_, true);
    loader_.OpenFile(backup);
    loader_.setFileOnDisk(userFile);
    suggestedPath_ = suggestedPath;
    state_.m_Opened = wasOpened;
    state_.m_Modified = true;
    UpdateStatus(state_.m_FileName);
}

void DocumentCommands::ClearStatus() {
    leaveDocument();
    broken_.leave();
    state_.isBroken = false;
    suggestedPath_.clear();
    savedState_.reset();
    state_.m_DOM = state_.failedLoad = {};
    state_.m_BackupPath.clear();
    builder_.registry().reset({});
    state_.m_FileName.clear();
    state_.m_Modified = state_.m_Opened = state_.m_ReadOnly = false;
    pane_.fillValue(QString());
    pane_.textBox().setLocked(true);
    tree_.setTreeVisible(false);
    tree_.nodes().Clear();
    tree_.setTreeVisible(true);
    Q_EMIT captionChanged(texts::ApplicationTitle.toString());
    Q_EMIT cleared();
}

} // namespace quillon::document

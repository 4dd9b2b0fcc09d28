#pragma once

#include "document/broken_file.h"
#include "document/document_loader.h"

#include <QObject>

#include <functional>
#include <string_view>

namespace quillon::document {

/// The commands on whole documents, the modified state and the caption.
class DocumentCommands : public QObject {
    Q_OBJECT

public:
    DocumentCommands(state::DocumentState &state, DocumentLoader &loader, BrokenFile &broken,
                     tree::TreeBuilder &builder, edit::UndoHistory &history, items::Tree &tree,
                     tree::PaneContent &pane, QString applicationFolder);

    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileReload_Click();
    void mnuFileClose_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    /// Opens a file of the list of recent ones.
    void mnuFileMRUFiles_Click(const QString &path);
    /// Opens a file that was kept for a document whose program died, as a modified document that
    /// has no file of its own, under a name; saving it suggests the path of the original. Text that
    /// was being mended is mended on. False when the user cancelled saving the document before.
    /// Raises when the file cannot be opened; everything is then as it was.
    bool openRecovered(const QString &path, const QString &name, const QString &original);
    /// Goes back to the file as it was opened. Cannot be undone.
    void mnuEditUndoAll_Click();
    bool canUndoAll() const;

    /// Opens a file in whatever is shown, for those who do not ask about unsaved changes, and has
    /// the caption name it whether or not it could be opened. In a window without a document, a
    /// text that is not well-formed is shown to be mended. A document that is still shown then has
    /// no file of its own any more: saving asks for a name, and suggests the one it had.
    /// Raises what DocumentLoader::OpenFile raises.
    void openUnasked(const QString &path);
    /// The same for a file that the user has dropped on the window.
    void openDropped(const QString &path);

    /// Asked ahead of every command that would give up what is in the edit pane alone, or save
    /// without it; false stops the command.
    std::function<bool()> mayLeavePane = [] { return true; };
    /// Asked ahead of opening a file that the user has chosen; true when another window has it and
    /// nothing is to be opened here.
    std::function<bool(const QString &path)> isSettledElsewhere = [](const QString &) {
        return false;
    };

    /// Asks whether changes are to be saved. False when the user cancelled, or would not have a
    /// file replaced that others have changed; True also when the save that was asked for was
    /// given up in its dialog: the recovery copy then keeps the changes.
    bool ConfirmSave();
    /// Whether what is shown has changes that no file has: the document counts as modified, or it
    /// has been saved and then changed by undoing or redoing, which leaves the modified mark alone.
    bool hasUnsavedChanges() const;
    /// To be called before the document goes: announces unsavedLeaving unless its changes are
    /// saved, or given up by the answer to the question that the present command has asked.
    /// Whoever raises there keeps it from going.
    void leaveDocument();
    /// Both, for a window that is to close: whether it may.
    bool confirmLeaving();
    /// To be called when a document has been opened: nothing of it is saved yet, and its place is
    /// its file.
    void takeOpened();
    /// Writes the document, or the text that is being mended, over a read-only file, too. Raises
    /// with the reason when that fails; document, flags and caption are then as before, and so is
    /// the file.
    void SaveFile(const QString &path);
    /// Records the path of the document and shows it in the caption.
    void UpdateStatus(const QString &path);
    /// To be called after every change: marks the document modified and records the state for
    /// undoing.
    void DocumentModified();
    /// To be called when a text that is being mended has been edited: marks it modified.
    void takeBrokenEdit();
    /// To be called when such a text has become well-formed: it is the document from then on.
    void takeMended();
    /// The bytes of a text that is being mended, for a copy of unsaved changes.
    std::string brokenTextToKeep() const { return broken_.bytesToKeep(); }
    /// Resets everything to the state without a document, which leaves the present one.
    void ClearStatus();
    /// Where the document is suggested to be saved: its own path, or that of the original of one
    /// without a file of its own; empty for no place.
    QString initialPath() const;
    /// Tells, when it is so, that the file has changed on disk since it was opened.
    void checkFileOnDisk();

    /// Is to keep what is about to be written over a file in its place, where it survives a crash
    /// half-way; raises when it cannot. To be set before anything is saved.
    std::function<void(const QString &path, std::string_view bytes)> beforeOverwriting;

Q_SIGNALS:
    void captionChanged(const QString &caption);
    void statusText(const QString &text);
    /// The commands on documents apply (a new document), or there is none to apply them to.
    void documentCreated();
    void cleared();
    /// The text of a file that is not well-formed is shown, to be mended.
    void brokenShown();
    /// The document is about to go with changes that nobody has given up.
    void unsavedLeaving();
    /// The document has been changed, not for the first time perhaps.
    void documentModified();
    void previewRequested(const quillon::xml::Node &node);

private:
    /// The Save command. False when the user would not have a file replaced that others have
    /// changed.
    bool save();
    /// Asks what is to be asked ahead of saving what is shown: false when it is not to be saved.
    /// Raises Fail when there is nothing.
    bool maySave();
    void saveUnderNewName();
    /// Shows the text of a file that could not be loaded, to be mended, in place of what is shown;
    /// false, with everything as it was, for what is no text. Raises when it cannot be read.
    bool showBroken(const QString &path);
    /// What the caption says of what is shown, under a path.
    QString captionOf(const QString &path) const;
    bool isChangedOnDisk() const;
    bool mayOverwrite() const;
    /// Raises Fail when the document is what a failed load has left.
    void requireSomethingToSave() const;

    state::DocumentState &state_;
    DocumentLoader &loader_;
    BrokenFile &broken_;
    tree::TreeBuilder &builder_;
    edit::UndoHistory &history_;
    items::Tree &tree_;
    tree::PaneContent &pane_;
    QString applicationFolder_;
    /// The save dialog has no title of its own: it keeps the one that the dialog last had.
    QString dialogTitle_;
    /// The path of the original of a document that has no file of its own; else empty.
    QString suggestedPath_;
    /// The state of the history that was saved latest; none since the document was opened.
    edit::clsUndoRedo::Info savedState_;
    /// The user has chosen to lose the unsaved changes. Holds within one command.
    bool changesGivenUp_ = false;
};

} // namespace quillon::document

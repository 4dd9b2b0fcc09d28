#pragma once

#include "document/file_on_disk.h"
#include "document/recent_files.h"
#include "edit/undo_history.h"
#include "platform/runtime/paths.h"
#include "platform/system/working_folder.h"
#include "platform/ui/long_work.h"
#include "platform/xml/io/file_text.h"
#include "state/document_state.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>

#include <optional>
#include <string>

namespace quillon::document {

/// Turns a file, or a string of XML, into the current document and shows it.
class DocumentLoader : public QObject {
    Q_OBJECT

public:
    DocumentLoader(state::DocumentState &state, tree::TreeBuilder &builder,
                   tree::Selection &selection, edit::UndoHistory &history, items::Tree &tree,
                   const system::WorkingFolder &workingFolder, const RecentFiles &recentFiles,
                   runtime::Clock clock, ui::LongWork &longWork);

    /// Loads a file and keeps a copy of it in the working folder. False when it has no document
    /// element, after a message. Raises when the file cannot be read or copied. In both cases what
    /// was shown is still the document, with its state and history; an empty window is left with a
    /// document that has nothing in it. An empty name gives False and changes nothing; nor does
    /// what raises: a folder, a device or the like, a file that is too large, and the user who has
    /// it stopped (Cancelled).
    bool OpenFile(const QString &fileName);

    /// Loads a file that was kept for a document whose program died, and shows it. It is no file
    /// of the user's: not copied, not remembered. Raises Fail with the reason when it cannot be
    /// read or parsed; the document is then the one before.
    void openRecovered(const QString &path);

    /// Reads the text of a file that cannot be loaded, to be mended; it is then fileOnDisk().
    /// Nothing for what is no text. Raises Fail when the file cannot be read.
    std::optional<xml::FileText> readBroken(const QString &path);
    /// Shows as the document what the text in the pane has become, given as the bytes of the file;
    /// the pane keeps its text. False when they cannot be loaded; nothing has changed then.
    bool openMended(std::string bytes);

    /// Loads a text. One that does not parse is shown, without a message, as an empty document:
    /// what is dropped on a window is often no XML.
    void LoadXML(const QString &xmlText);

    /// Expands what is to be seen of a document that has been opened: its item and those below
    /// that.
    static void expandTopLevel(items::Tree &tree);

    /// The file last loaded or saved, as it then stood on disk.
    const FileOnDisk &fileOnDisk() const { return fileOnDisk_; }
    void setFileOnDisk(const FileOnDisk &file) { fileOnDisk_ = file; }

Q_SIGNALS:
    /// A text for the status bar while something takes its time.
    void statusText(const QString &text);
    /// A large file is about to be read; its document begins like this one, which is closed where
    /// it is cut off.
    void opening(const quillon::xml::DOMDocument40 &head);
    /// That file has been opened, or has not. Also told when there was nothing to tell before.
    void openingEnded();
    /// The document is about to be replaced: the new one can be shown. Whoever raises here keeps
    /// it from going.
    void replacing();
    /// A document has been opened from a file: the commands on documents apply.
    void documentOpened();
    /// UpdateStatus is wanted for a document that has this name.
    void statusUpdateRequested(const QString &name);

private:
    /// The path of the copy.
    QString backUp(const QString &fileName, bool replacesDocument);
    /// Copies what the document's instructions name. Gives the first instruction that could not be
    /// understood; Nothing when there is none.
    xml::Node copyStylesheets(const QString &fileName);
    void copyStylesheet(const QString &documentFolder, const QString &data);
    void showFromTop();
    /// Shows what could not be understood of a stylesheet instruction; nothing for Nothing.
    void tellOfFaulty(const xml::Node &stylesheetLink);

    state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    edit::UndoHistory &history_;
    items::Tree &tree_;
    const system::WorkingFolder &workingFolder_;
    const RecentFiles &recentFiles_;
    runtime::Clock clock_;
    ui::LongWork &longWork_;
    FileOnDisk fileOnDisk_;
    /// The copy that this window made last.
    QString ownBackup_;
};

} // namespace quillon::document

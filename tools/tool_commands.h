#pragma once

#include "platform/system/settings_store.h"
#include "platform/system/shell.h"
#include "platform/ui/long_work.h"
#include "state/document_state.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::tools {

/// The commands of the Tool and Help menus that have no home of their own.
class ToolCommands : public QObject {
    Q_OBJECT

public:
    ToolCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                 const system::SettingsStore &settings, system::Shell &shell,
                 ui::LongWork &longWork);

    /// Removes all text and empties all attribute values but namespace declarations, after a
    /// question.
    void mnuToolRemoveText_Click();
    /// Opens the document's file, as last saved, in another program. A program that does not
    /// start is told in a message box.
    void mnuToolOpen_Click(const QString &program);
    /// Asks for an address, saying what would go there and offering the last ones, and posts the
    /// document there, in its own encoding. What comes back is read and not shown; being redirected
    /// to another place is asked about. Raises when the document cannot be written, the address is
    /// bad, nobody answers or the user has it stopped.
    void mnuToolSend_Click();
    /// Has the desktop show the file. Raises when the program that does so cannot be started; that
    /// it finds no viewer is told in a message box.
    void mnuHelpReadme_Click();
    void mnuHelpAbout_Click();

Q_SIGNALS:
    void documentModified();
    void previewRequested(const quillon::xml::Node &node);

private:
    QString explainSending(const QString &address, qsizetype bytes) const;

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    const system::SettingsStore &settings_;
    system::Shell &shell_;
    ui::LongWork &longWork_;
};

} // namespace quillon::tools

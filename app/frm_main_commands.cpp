#include "app/frm_main.h"
#include "resources/texts.h"

#include <QAction>

namespace quillon::app {

namespace {

/// The buttons that apply to any open document.
constexpr QStringView DocumentButtons[] = {u"save", u"preview", u"find", u"print", u"verify"};
/// The buttons that apply to a selection or a history besides.
constexpr QStringView OtherButtons[] = {u"cut", u"copy", u"paste", u"delete", u"undo", u"redo"};

} // namespace

void frmMain::connectFileCommands() {
    document::DocumentCommands &commands = editor_->commands;
    const auto hasDocument = [this] { return bool(editor_->state.m_DOM); };
    actions_.connectAction(u"mnuFileNew", [&commands] { commands.mnuFileNew_Click(); });
    actions_.connectAction(u"mnuFileOpen", [&commands] { commands.mnuFileOpen_Click(); });
    actions_.connectAction(
        u"mnuFileReload", [&commands] { commands.mnuFileReload_Click(); },
        [this] {
            const QString &name = editor_->state.m_FileName;
            return !name.isEmpty() && name != resources::texts::NewDocument;
        });
    actions_.connectAction(
        u"mnuFileSave", [&commands] { commands.mnuFileSave_Click(); }, hasDocument);
    actions_.connectAction(
        u"mnuFileSaveAs", [&commands] { commands.mnuFileSaveAs_Click(); }, hasDocument);
    actions_.connectAction(
        u"mnuFileClose", [&commands] { commands.mnuFileClose_Click(); }, hasDocument);
    actions_.connectAction(u"mnuFileQuit", [this] { close(); });
}

void frmMain::connectEditCommands() {
    edit::UndoHistory &history = editor_->history;
    actions_.connectAction(
        u"mnuEditUndo", [&history] { history.UndoCommand(); },
        [&history] { return history.CanUndo(); });
    actions_.connectAction(
        u"mnuEditRedo", [&history] { history.RedoCommand(); },
        [&history] { return history.CanRedo(); });
    document::DocumentCommands &commands = editor_->commands;
    actions_.connectAction(
        u"mnuEditUndoAll", [&commands] { commands.mnuEditUndoAll_Click(); },
        [&commands] { return commands.canUndoAll(); });
    actions_.connectAction(
        u"mnuEditRename", [this] { tvw->StartLabelEdit(); },
        [this] {
            return !editor_->state.m_ReadOnly && tvw->SelectedItem() &&
                   editor_->selection.GetSelectedDOMNode().nodeType() != xml::NodeType::Document;
        });
    actions_.connectAction(u"mnuViewLock", [this] {
        editor_->options.viewLock = actions_.action(u"mnuViewLock")->isChecked();
    });
}

void frmMain::connectViewCommands() {
    const auto isContainer = [this] {
        const xml::NodeType kind = editor_->selection.GetSelectedDOMNode().nodeType();
        return kind == xml::NodeType::Element || kind == xml::NodeType::Document;
    };
    actions_.connectAction(
        u"mnuNodeExpand", [this] { changeSubtree(&tree::TreeBuilder::ExpandSubtree); },
        isContainer);
    actions_.connectAction(
        u"mnuNodeCollapse", [this] { changeSubtree(&tree::TreeBuilder::CollapseSubtree); },
        isContainer);
    actions_.connectAction(u"mnuViewText", [this] {
        editor_->options.viewText = actions_.action(u"mnuViewText")->isChecked();
        editor_->builder.BuildTree(editor_->state.m_DOM, true);
    });
}

void frmMain::changeSubtree(void (tree::TreeBuilder::*change)(const controls::TreeItem &)) {
    const controls::TreeItem item = tvw->SelectedItem();
    if (!item)
        return;
    tvw->setTreeVisible(false);
    (editor_->builder.*change)(item);
    tvw->setTreeVisible(true);
    tvw->setFocus();
}

void frmMain::connectButtons() {
    connect(editor_.get(), &Editor::statusText, this, &frmMain::showStatus);
    connect(&editor_->loader, &document::DocumentLoader::documentOpened, this,
            [this] { enableDocumentButtons(true); });
    document::DocumentCommands &commands = editor_->commands;
    connect(&commands, &document::DocumentCommands::captionChanged, this, &QWidget::setWindowTitle);
    connect(&commands, &document::DocumentCommands::documentCreated, this,
            [this] { enableDocumentButtons(true); });
    connect(&commands, &document::DocumentCommands::cleared, this, [this] {
        enableDocumentButtons(false);
        for (const QStringView key : OtherButtons)
            actions_.setToolButtonEnabled(key, false);
        cboPath->setText(QString());
        editor_->history.release();
    });
    connect(&editor_->selection, &tree::Selection::buttonsChanged, this,
            &frmMain::enableClipboardButtons);
    edit::UndoHistory &history = editor_->history;
    connect(&history, &edit::UndoHistory::buttonsChanged, this, &frmMain::enableClipboardButtons);
    connect(&history, &edit::UndoHistory::undoButtonChanged, this,
            [this](bool enabled) { actions_.setToolButtonEnabled(u"undo", enabled); });
    connect(&history, &edit::UndoHistory::redoButtonChanged, this,
            [this](bool enabled) { actions_.setToolButtonEnabled(u"redo", enabled); });
}

void frmMain::enableClipboardButtons(const tree::ClipboardButtons &buttons) {
    actions_.setToolButtonEnabled(u"copy", buttons.copy);
    actions_.setToolButtonEnabled(u"cut", buttons.cut);
    actions_.setToolButtonEnabled(u"delete", buttons.remove);
    actions_.setToolButtonEnabled(u"paste", buttons.paste);
}

void frmMain::enableDocumentButtons(bool enabled) {
    for (const QStringView key : DocumentButtons)
        actions_.setToolButtonEnabled(key, enabled);
}

} // namespace quillon::app

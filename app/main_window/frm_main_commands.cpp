#include "app/main_window/frm_main.h"
#include "platform/ui/error_boundary.h"
#include "resources/texts.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>

#include <algorithm>
#include <iterator>

namespace quillon::app {

namespace {

/// The buttons that apply to any open document.
constexpr QStringView DocumentButtons[] = {u"save", u"preview", u"find", u"print", u"verify"};
/// The buttons that apply to a selection or a history besides.
constexpr QStringView OtherButtons[] = {u"cut", u"copy", u"paste", u"delete", u"undo", u"redo"};

/// The commands of the Edit and Node menus that leave document and pane as they are.
constexpr QStringView HarmlessCommands[] = {u"mnuEditCopy",     u"mnuEditFind",
                                            u"mnuEditFindNext", u"mnuEditUndoAll",
                                            u"mnuNodeExpand",   u"mnuNodeCollapse"};
/// Those of other menus that do not.
constexpr QStringView OtherCommands[] = {u"mnuViewText", u"mnuToolRemoveText", u"mnuToolSend"};

} // namespace

bool frmMain::needsPane(QStringView command) {
    if (std::ranges::find(OtherCommands, command) != std::end(OtherCommands))
        return true;
    return (command.startsWith(u"mnuEdit") || command.startsWith(u"mnuNode")) &&
           std::ranges::find(HarmlessCommands, command) == std::end(HarmlessCommands);
}

controls::ActionSet::Enabled frmMain::hasDocument() const {
    return [this] { return bool(editor_->state.m_DOM); };
}

void frmMain::connectFileCommands() {
    document::DocumentCommands &commands = editor_->commands;
    actions_.connectAction(u"mnuFileNew", [&commands] { commands.mnuFileNew_Click(); });
    actions_.connectAction(u"mnuFileOpen", [&commands] { commands.mnuFileOpen_Click(); });
    actions_.connectAction(
        u"mnuFileReload", [&commands] { commands.mnuFileReload_Click(); },
        [this] {
            const QString &name = editor_->state.m_FileName;
            // A recovered document has a name but no file to be read again.
            return QFileInfo(name).isAbsolute();
        });
    actions_.connectAction(
        u"mnuFileSave", [&commands] { commands.mnuFileSave_Click(); }, hasDocument());
    actions_.connectAction(
        u"mnuFileSaveAs", [&commands] { commands.mnuFileSaveAs_Click(); }, hasDocument());
    actions_.connectAction(
        u"mnuFileClose", [&commands] { commands.mnuFileClose_Click(); }, hasDocument());
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
    search::CaptionSearch &search = editor_->captionSearch;
    actions_.connectAction(
        u"mnuEditFind", [&search] { search.mnuEditFind_Click(); },
        [this] { return editor_->nodeCommands.mnuEdit_Click().find; });
    actions_.connectAction(
        u"mnuEditFindNext", [&search] { search.mnuEditFindNext_Click(); },
        [this] { return editor_->nodeCommands.mnuEdit_Click().find; });
    document::DocumentCommands &commands = editor_->commands;
    actions_.connectAction(
        u"mnuEditUndoAll", [&commands] { commands.mnuEditUndoAll_Click(); },
        [&commands] { return commands.canUndoAll(); });
    edit::NodeCommands &nodes = editor_->nodeCommands;
    actions_.connectAction(
        u"mnuEditCut", [&nodes] { nodes.mnuEditCut_Click(); },
        [&nodes] { return nodes.mnuEdit_Click().cut; });
    actions_.connectAction(
        u"mnuEditCopy", [&nodes] { nodes.mnuEditCopy_Click(); },
        [&nodes] { return nodes.mnuEdit_Click().copy; });
    actions_.connectAction(
        u"mnuEditPaste", [&nodes] { nodes.mnuEditPaste_Click(); },
        [&nodes] { return nodes.mnuEdit_Click().paste; });
    actions_.connectAction(
        u"mnuEditDelete", [&nodes] { nodes.mnuEditDelete_Click(); },
        [&nodes] { return nodes.mnuEdit_Click().remove; });
    actions_.connectAction(
        u"mnuEditRename", [&nodes] { nodes.mnuEditRename_Click(); },
        [&nodes] { return nodes.mnuEdit_Click().rename; });
}

void frmMain::connectViewCommands() {
    tools::ViewCommands &view = editor_->view;
    const auto isContainer = [&view] { return view.mnuView_Click(); };
    actions_.connectAction(
        u"mnuNodeExpand", [&view] { view.mnuNodeExpand_Click(); }, isContainer);
    actions_.connectAction(
        u"mnuNodeCollapse", [&view] { view.mnuNodeCollapse_Click(); }, isContainer);
    actions_.connectAction(u"mnuViewText", [this, &view] {
        view.mnuViewText_Click(actions_.action(u"mnuViewText")->isChecked());
    });
    actions_.connectAction(u"mnuViewLock", [this, &view] {
        view.mnuViewLock_Click(actions_.action(u"mnuViewLock")->isChecked());
    });
    actions_.connectAction(u"mnuViewFont", [this, &view] {
        view.mnuViewFont_Click(editor_->settings.fontName, editor_->settings.fontSize);
    });
    connect(&view, &tools::ViewCommands::fontChosen, this, &frmMain::takeFont);
}

void frmMain::connectToolCommands() {
    tools::ToolCommands &tools = editor_->tools;
    actions_.connectAction(
        u"mnuToolRemoveText", [&tools] { tools.mnuToolRemoveText_Click(); },
        [this] { return editor_->state.m_DOM && !editor_->state.m_ReadOnly; });
    actions_.connectAction(
        u"mnuToolSend", [&tools] { tools.mnuToolSend_Click(); }, hasDocument());
    actions_.connectAction(u"mnuWindowTileH", [this] {
        ui::ignoringErrors([this] { companion_.execute(QStringLiteral("TILE_VERTICAL")); });
    });
    actions_.connectAction(u"mnuToolOption", [this] { mnuToolOption_Click(); });
    actions_.connectAction(u"mnuHelpReadme", [&tools] { tools.mnuHelpReadme_Click(); });
    actions_.connectAction(u"mnuHelpAbout", [&tools] { tools.mnuHelpAbout_Click(); });
    actions_.connectAction(
        u"mnuFilePrintTree", [this] { editor_->treePrinting.mnuFilePrintTree_Click(); },
        hasDocument());
    menus_->onMenuOpening(u"mnuTool", [this] {
        actions_.action(u"mnuToolOpenEditor")->setEnabled(!editor_->state.m_FileName.isEmpty());
    });
    menus_->onMenuOpening(u"mnuFile", [this] { showRecentFiles(); });
}

void frmMain::connectPreview() {
    preview::Preview &preview = editor_->preview;
    actions_.connectAction(
        u"mnuToolPreview", [&preview] { preview.mnuToolPreview_Click(); }, hasDocument());
    actions_.connectAction(
        u"mnuToolPreviewSel", [&preview] { preview.mnuToolPreviewSel_Click(); },
        [this] { return bool(tvw->SelectedItem()); });
    actions_.connectAction(
        u"mnuToolSelXSL", [&preview] { preview.mnuToolSelXSL_Click(); }, hasDocument());
    actions_.connectAction(u"mnuToolPrevHTML", [this, &preview] {
        preview.mnuToolPrevHTML_Click(actions_.action(u"mnuToolPrevHTML")->isChecked());
    });
    actions_.connectAction(u"mnuToolPreviewSync", [this, &preview] {
        preview.mnuToolPreviewSync_Click(actions_.action(u"mnuToolPreviewSync")->isChecked());
    });
    actions_.connectAction(
        u"mnuFilePrint", [&preview] { preview.mnuFilePrint_Click(); }, hasDocument());
    validation::Validation &validation = editor_->validation;
    actions_.connectAction(
        u"mnuToolVerify", [&validation] { validation.mnuToolVerify_Click(); }, hasDocument());
    actions_.connectAction(
        u"mnuToolVerifyNew", [&validation] { validation.mnuToolVerifyNew_Click(); }, hasDocument());
    validationList_ = new ValidationList(this, [this](const xml::Node &node) {
        // The document may have been undone or edited since.
        const xml::Node now = editor_->state.m_DOM.nodeByNumber(node.number());
        editor_->selection.ShowNode(editor_->builder.itemOf(now), true);
    });
    connect(&validation, &validation::Validation::errorsChanged, this,
            &frmMain::showValidationErrors);
    connect(validationButton_, &QPushButton::clicked, validationList_, &QWidget::show);
}

void frmMain::showValidationErrors() {
    const std::vector<validation::ValidationError> &errors = editor_->validation.errors();
    validationList_->setErrors(errors);
    const QStringView text = editor_->validation.hasMoreErrors()
                                 ? resources::texts::ValidationListButtonMore
                                 : resources::texts::ValidationListButton;
    validationButton_->setText(text.toString().arg(errors.size()));
    validationButton_->setVisible(!errors.empty());
    if (errors.empty())
        validationList_->hide();
}

void frmMain::connectNodeCommands() {
    edit::NodeCreation &creation = editor_->creation;
    edit::NodeCommands &nodes = editor_->nodeCommands;
    using Create = void (edit::NodeCreation::*)();
    using Applies = bool edit::NodeMenuStates::*;
    const auto connectCreation = [&](QStringView name, Create handler, Applies applies) {
        actions_.connectAction(
            name, [&creation, handler] { (creation.*handler)(); },
            [&nodes, applies] { return nodes.mnuNode_Click().*applies; });
    };
    using Creation = edit::NodeCreation;
    using States = edit::NodeMenuStates;
    connectCreation(u"mnuNodeAddElement", &Creation::mnuNodeAddElement_Click, &States::addElement);
    connectCreation(u"mnuNodeAddText", &Creation::mnuNodeAddText_Click, &States::addOther);
    connectCreation(u"mnuNodeAddComment", &Creation::mnuNodeAddComment_Click, &States::addOther);
    connectCreation(u"mnuNodeAddCDATA", &Creation::mnuNodeAddCDATA_Click, &States::addOther);
    connectCreation(u"mnuNodeInsElement", &Creation::mnuNodeInsElement_Click, &States::insert);
    connectCreation(u"mnuNodeInsText", &Creation::mnuNodeInsText_Click, &States::insert);
    connectCreation(u"mnuNodeInsComment", &Creation::mnuNodeInsComment_Click, &States::insert);
    connectCreation(u"mnuNodeInsCDATA", &Creation::mnuNodeInsCDATA_Click, &States::insert);
    // Its key also works with a child of the element selected.
    actions_.connectAction(
        u"mnuNodeAddAttribute",
        [&creation] {
            if (creation.canAddAttributeToParent())
                creation.AddAttributeToParent();
            else
                creation.mnuNodeAddAttribute_Click();
        },
        [&nodes] { return nodes.mnuNode_Click().addOther; });
    actions_.connectAction(
        u"mnuNodeMoveUp", [&nodes] { nodes.mnuNodeMoveUp_Click(); },
        [&nodes] { return nodes.mnuNode_Click().moveUp; });
    actions_.connectAction(
        u"mnuNodeMoveDown", [&nodes] { nodes.mnuNodeMoveDown_Click(); },
        [&nodes] { return nodes.mnuNode_Click().moveDown; });
    actions_.connectAction(
        u"mnuNodeDelete", [&nodes] { nodes.mnuEditDelete_Click(); },
        [&nodes] { return nodes.mnuEdit_Click().remove; });
    connect(&nodes, &edit::NodeCommands::pasteEnabled, this, [this] {
        actions_.action(u"mnuEditPaste")->setEnabled(true);
        actions_.setToolButtonEnabled(u"paste", true);
    });
}

void frmMain::connectContextMenu() {
    QMenu *menu = menus_->contextMenu();
    menu->addSeparator();
    QAction *toParent = menu->addAction(resources::texts::AddAttributeToParent.toString());
    toParent->setObjectName(QStringLiteral("AddAttributeToParent"));
    edit::NodeCreation &creation = editor_->creation;
    connect(menu, &QMenu::aboutToShow, this,
            [&creation, toParent] { toParent->setVisible(creation.canAddAttributeToParent()); });
    connect(toParent, &QAction::triggered, this, [this, &creation] {
        ui::guarded([&] {
            if (editor_->selection.mayLeavePane())
                creation.AddAttributeToParent();
        });
    });
    tvw->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tvw, &QWidget::customContextMenuRequested, this, [this, menu](const QPoint &position) {
        const items::TreeItem hit = tvw->HitTest(position);
        // The press on another item has asked about text in the pane, and the answer was to stay.
        if (!hit || (editor_->selection.hasUnparsedText() && hit != tvw->SelectedItem()))
            return;
        // The press of the button has shown it already, unless it was selected but not shown.
        if (hit != tvw->SelectedItem() || editor_->pane.shownSequence != hit.sequence())
            ui::guarded([&] { editor_->selection.ShowNode(hit, true); });
        menu->popup(tvw->viewport()->mapToGlobal(position));
    });
}

void frmMain::connectButtons() {
    const auto runPath = [this] { ui::guarded([this] { editor_->pathQuery.SelectByPath(); }); };
    connect(cboPath, &controls::PathBox::Enter, this, runPath);
    connect(cboPath, &controls::PathBox::Click, this, runPath);
    actions_.connectToolButton(u"move", runPath);
    connect(editor_.get(), &Editor::statusText, this, &frmMain::showStatus);
    connect(&editor_->loader, &document::DocumentLoader::documentOpened, this,
            [this] { enableDocumentButtons(true); });
    document::DocumentCommands &commands = editor_->commands;
    connect(&commands, &document::DocumentCommands::captionChanged, this, [this](QString caption) {
        // Written once, Qt takes it for the place of a mark of its own.
        const QString mark = QStringLiteral("[*]");
        setWindowTitle(caption.replace(mark, mark + mark));
    });
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

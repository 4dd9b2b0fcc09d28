#include "app/editor.h"

#include "platform/ui/error_boundary.h"

namespace quillon::app {

using items::TreeItem;
using ui::guarded;

Surroundings Surroundings::ofProgram() {
    return {runtime::applicationFolder(), {}, {}, std::make_shared<system::Shell>()};
}

Editor::Editor(Surroundings given, ui::TextBox &txtEdit, ui::PathBox &cboPath, ui::Browser &ie,
               ui::LongWork &longWork, ui::Clipboard &clipboard)
    : surroundings(std::move(given)),
      workingFolder(runtime::workingFolder(surroundings.applicationFolder)),
      recentFiles(surroundings.settings), settings(surroundings.settings), pane(txtEdit),
      builder(state, options, tree), removal(builder, tree), nodeText(state, builder, tree),
      dragAndDrop(state, builder, nodeText, removal, tree),
      selection(state, options, builder.registry(), tree, pane, cboPath, clipboard),
      labels(state, options, builder, tree, pane),
      paneEditing(state, options, builder, removal, labels, selection, tree, pane),
      history(state, builder, selection, tree), creation(state, builder, selection, tree),
      nodeCommands(state, builder, removal, nodeText, selection, tree, clipboard),
      captionSearch(tree, selection),
      pathQuery(tree, cboPath, selection, builder.registry(), longWork),
      preview(state, builder, selection, tree, ie, workingFolder, longWork,
              [this] {
                  return preview::PreviewFont{settings.fontName, settings.fontSize};
              }),
      validation(state, workingFolder, longWork),
      tools(state, builder, *surroundings.shell, longWork),
      view(state, options, builder, selection, tree),
      loader(state, builder, selection, history, tree, workingFolder, recentFiles,
             surroundings.clock, longWork),
      commands(state, loader, builder, history, tree, pane, surroundings.applicationFolder),
      recovery(state, commands, workingFolder, surroundings.clock) {
    commands.beforeOverwriting = [this](const QString &path, std::string_view bytes) {
        recovery.keepForSaving(path, bytes);
    };
    wireStatusTexts();
    wireModifications();
    wireHistory();
    wireTree();
    wirePane();
    wirePreview();
}

void Editor::wireStatusTexts() {
    connect(&builder, &tree::TreeBuilder::statusText, this, &Editor::statusText);
    connect(&selection, &tree::Selection::statusText, this, &Editor::statusText);
    connect(&paneEditing, &tree::PaneEditing::statusText, this, &Editor::statusText);
    connect(&captionSearch, &search::CaptionSearch::statusText, this, &Editor::statusText);
    connect(&pathQuery, &search::PathQuery::statusText, this, &Editor::statusText);
    connect(&preview, &preview::Preview::statusText, this, &Editor::statusText);
    connect(&validation, &validation::Validation::statusText, this, &Editor::statusText);
    connect(&loader, &document::DocumentLoader::statusText, this, &Editor::statusText);
    connect(&commands, &document::DocumentCommands::statusText, this, &Editor::statusText);
    connect(&recovery, &recovery::CrashRecovery::statusText, this, &Editor::statusText);
}

void Editor::wireModifications() {
    const auto modified = &document::DocumentCommands::DocumentModified;
    connect(&removal, &tree::NodeRemoval::documentModified, &commands, modified);
    connect(&labels, &tree::LabelEditing::documentModified, &commands, modified);
    connect(&paneEditing, &tree::PaneEditing::documentModified, &commands, modified);
    connect(&dragAndDrop, &tree::DragAndDrop::documentModified, &commands, modified);
    connect(&creation, &edit::NodeCreation::documentModified, &commands, modified);
    connect(&nodeCommands, &edit::NodeCommands::documentModified, &commands, modified);
    connect(&tools, &tools::ToolCommands::documentModified, &commands, modified);
}

void Editor::wireHistory() {
    connect(&history, &edit::UndoHistory::moved, &recovery,
            &recovery::CrashRecovery::documentChanged);
}

void Editor::wireTree() {
    connect(&dragAndDrop, &tree::DragAndDrop::openFileRequested, &commands,
            &document::DocumentCommands::openUnasked);
    // A drag leaves the item it was dropped on selected. The pane must show that one, and show it
    // anew when the end of the drag has taken the node out of its old place.
    const auto refill = [this] { guarded([&] { selection.RefillPane(tree.SelectedItem()); }); };
    connect(&dragAndDrop, &tree::DragAndDrop::documentModified, this, refill);
    connect(&tools, &tools::ToolCommands::documentModified, this, refill);
    connect(&removal, &tree::NodeRemoval::documentModified, this, [this, refill] {
        if (pane.shownSequence == tree.SelectedItem().sequence())
            refill();
    });
    connect(&dragAndDrop, &tree::DragAndDrop::loadXmlRequested, &loader,
            &document::DocumentLoader::LoadXML);
    connect(&tree, &items::Tree::NodeClick, this,
            [this](const TreeItem &item) { guarded([&] { selection.ShowNode(item, true); }); });
    tree.beforeLabelEdit = [this](const TreeItem &) {
        bool allowed = false;
        guarded([&] { allowed = labels.tvw_BeforeLabelEdit() && selection.mayLeavePane(); });
        return allowed;
    };
    tree.labelEditText = [this](const TreeItem &item) { return labels.editorText(item); };
    tree.afterLabelEdit = [this](const TreeItem &item, QString &newText) {
        // An editor that is left with the text it opened with has edited nothing.
        bool accepted = false;
        if (newText != labels.editorText(item))
            guarded([&] { accepted = labels.tvw_AfterLabelEdit(item, newText); });
        return accepted;
    };
}

void Editor::wirePreview() {
    const auto request = &preview::Preview::requestPreview;
    connect(&builder, &tree::TreeBuilder::syncPreviewRequested, &preview,
            &preview::Preview::SyncPreview);
    connect(&creation, &edit::NodeCreation::previewRequested, &preview, request);
    connect(&tools, &tools::ToolCommands::previewRequested, &preview, request);
    connect(&commands, &document::DocumentCommands::previewRequested, &preview, request);
    connect(&commands, &document::DocumentCommands::cleared, &preview, &preview::Preview::clear);
    // A document that is loaded again is the same one.
    connect(&loader, &document::DocumentLoader::documentOpened, &preview,
            [this, shown = QString()]() mutable {
                const QString opened = loader.fileOnDisk().path;
                if (std::exchange(shown, opened) != opened)
                    preview.forgetPlace();
            });
    const auto forgetErrors = &validation::Validation::clear;
    connect(&commands, &document::DocumentCommands::cleared, &validation, forgetErrors);
    connect(&loader, &document::DocumentLoader::documentOpened, &validation, forgetErrors);
    connect(&loader, &document::DocumentLoader::statusUpdateRequested, &validation, forgetErrors);
}

void Editor::wirePane() {
    const auto mayLeavePane = [this] { return selection.mayLeavePane(); };
    commands.mayLeavePane = dragAndDrop.mayLeavePane = mayLeavePane;
    dragAndDrop.hasUnparsedText = [this] { return selection.hasUnparsedText(); };
    recovery.pane = {[this] { return selection.hasUnparsedText(); },
                     [this] { return paneEditing.unparsedText(); },
                     [this](const QByteArray &kept) { paneEditing.restoreUnparsedText(kept); }};
    const auto changed = &recovery::CrashRecovery::documentChanged;
    connect(&paneEditing, &tree::PaneEditing::unparsedTextChanged, &recovery, changed);
    connect(&selection, &tree::Selection::unparsedTextGivenUp, &recovery, changed);
}

} // namespace quillon::app

#include "app/editor.h"

#include "document/open_elsewhere.h"
#include "platform/runtime/file_names.h"
#include "platform/ui/error_boundary.h"
#include "platform/xml/query/xpath.h"
#include "resources/node_texts.h"
#include "resources/texts.h"
#include "tree/fragment.h"

namespace quillon::app {

using items::TreeItem;
using ui::guarded;

Environment Environment::ofProgram() {
    Environment environment;
    environment.applicationFolder = runtime::applicationFolder();
    return environment;
}

Editor::Editor(Environment given, ui::TextBox &txtEdit, ui::PathBox &cboPath, ui::Browser &ie,
               ui::LongWork &longWork, ui::Clipboard &clipboard)
    : environment(std::move(given)),
      workingFolder(runtime::workingFolder(environment.applicationFolder)),
      recentFiles(environment.settings), settings(environment.settings),
      windows(environment.openWindows), pane(txtEdit), builder(state, options, tree),
      removal(builder, tree), nodeInsertion(state, builder, tree),
      dragAndDrop(state, builder, nodeInsertion, removal, tree),
      selection(state, options, builder.registry(), tree, pane, cboPath, clipboard),
      labels(state, options, builder, tree, pane),
      textEditing(state, options, builder, removal, labels, selection, tree, pane),
      history(state, builder, selection, tree), creation(state, builder, selection, tree),
      structure(state, builder, removal, selection, tree),
      sorting(state, builder, removal, selection, tree, longWork),
      prettyPrinting(state, builder, tree, longWork), encodings(state, builder, tree, longWork),
      nodeCommands(state, builder, removal, nodeInsertion, selection, structure, tree, clipboard),
      schemas(state, environment.settings, environment.fetchedSchemas),
      schemaCommands(state, schemas, builder, *environment.shell, longWork,
                     schemas::FetchedSchemas(environment.fetchedSchemas)),
      captionSearch(tree, selection),
      pathQuery(tree, cboPath, selection, builder.registry(), longWork),
      pathCopy(tree, selection, clipboard), pathCompletion(state, cboPath),
      queryHistory(environment.settings), hits(state),
      hitNavigation(hits, builder, selection, tree, pane), hitExport(hits, clipboard, longWork),
      replacing(state, options, builder, tree),
      findAndReplace(state, builder, selection, tree, replacing, hits, longWork),
      candidateFinder(state),
      candidateInsertion(state, candidateFinder, builder, removal, selection, tree, pane),
      completion(state, candidateFinder, builder.registry(), tree, pane),
      explanation(candidateFinder, builder.registry(), tree),
      paneSource(state, options, builder, selection, tree, pane, hitNavigation),
      fileLines(selection, tree, pane),
      preview(state, builder, selection, tree, ie, workingFolder, longWork,
              [this] {
                  return preview::PreviewFont{settings.fontName, settings.fontSize};
              }),
      validation(state, workingFolder, longWork), live(state),
      faultMarks(live, builder.registry(), tree), paneSyntax(pane, longWork),
      paneMarks(live, paneSyntax, state, selection, pane),
      mending(state, options, candidateFinder, candidateInsertion, replacing, removal, builder,
              selection),
      faults(state), faultNavigation(faults, builder, selection, tree, pane),
      faultExport(faults, clipboard, longWork),
      tools(state, builder, environment.settings, *environment.shell, longWork),
      view(state, options, builder, selection, tree), broken(state, pane, longWork),
      loader(state, builder, selection, history, tree, workingFolder, recentFiles,
             environment.clock, longWork),
      commands(state, loader, broken, builder, history, tree, pane, environment.applicationFolder),
      recovery(state, commands, workingFolder, environment.clock) {
    wireStatusBar();
    wireDocumentCommands();
    wireBrokenFile();
    wireWindows();
    wireRecovery(recovery);
    wireTree();
    wireDrops();
    wirePane();
    wireQueries(cboPath);
    wirePreview();
    wireValidation();
    wireSchemas();
    wireLiveValidation();
    wirePaneSyntax();
    wireHits();
    wireReplacing();
    wireCandidates();
}

void Editor::wireStatusBar() {
    connect(&builder, &tree::TreeBuilder::statusText, this, &Editor::statusText);
    connect(&selection, &tree::Selection::statusText, this, &Editor::statusText);
    connect(&textEditing, &tree::TextEditing::statusText, this, &Editor::statusText);
    connect(&sorting, &edit::ChildSorting::statusText, this, &Editor::statusText);
    connect(&prettyPrinting, &edit::PrettyPrinting::statusText, this, &Editor::statusText);
    connect(&encodings, &edit::EncodingCommands::statusText, this, &Editor::statusText);
    connect(&captionSearch, &search::CaptionSearch::statusText, this, &Editor::statusText);
    connect(&pathQuery, &search::PathQuery::statusText, this, &Editor::statusText);
    connect(&pathCopy, &search::PathCopy::statusText, this, &Editor::statusText);
    connect(&hitNavigation, &search::HitNavigation::statusText, this, &Editor::statusText);
    connect(&completion, &completion::Completion::statusText, this, &Editor::statusText);
    connect(&paneSource, &source::PaneSource::statusText, this, &Editor::statusText);
    connect(&hitExport, &search::HitExport::statusText, this, &Editor::statusText);
    connect(&faultNavigation, &search::HitNavigation::statusText, this, &Editor::statusText);
    connect(&mending, &validation::Mending::statusText, this, &Editor::statusText);
    connect(&faultExport, &search::HitExport::statusText, this, &Editor::statusText);
    connect(&preview, &preview::Preview::statusText, this, &Editor::statusText);
    connect(&validation, &validation::Validation::statusText, this, &Editor::statusText);
    connect(&loader, &document::DocumentLoader::statusText, this, &Editor::statusText);
    connect(&commands, &document::DocumentCommands::statusText, this, &Editor::statusText);
    connect(&recovery, &recovery::CrashRecovery::statusText, this, &Editor::statusText);
}

void Editor::wireDocumentCommands() {
    using document::DocumentCommands;
    using document::DocumentLoader;
    const auto modified = &DocumentCommands::DocumentModified;
    connect(&removal, &tree::NodeRemoval::documentModified, &commands, modified);
    connect(&labels, &tree::LabelEditing::documentModified, &commands, modified);
    connect(&textEditing, &tree::TextEditing::documentModified, &commands, modified);
    connect(&dragAndDrop, &tree::DragAndDrop::documentModified, &commands, modified);
    connect(&creation, &edit::NodeCreation::documentModified, &commands, modified);
    connect(&nodeCommands, &edit::NodeCommands::documentModified, &commands, modified);
    connect(&structure, &edit::StructureCommands::documentModified, &commands, modified);
    connect(&sorting, &edit::ChildSorting::documentModified, &commands, modified);
    connect(&prettyPrinting, &edit::PrettyPrinting::documentModified, &commands, modified);
    connect(&encodings, &edit::EncodingCommands::documentModified, &commands, modified);
    connect(&tools, &tools::ToolCommands::documentModified, &commands, modified);

    connect(&loader, &DocumentLoader::replacing, &commands, &DocumentCommands::leaveDocument);
    connect(&loader, &DocumentLoader::documentOpened, &commands, &DocumentCommands::takeOpened);
    connect(&loader, &DocumentLoader::statusUpdateRequested, &commands,
            &DocumentCommands::UpdateStatus);
    connect(&commands, &DocumentCommands::cleared, &history, &edit::UndoHistory::release);
    connect(&commands, &DocumentCommands::cleared, &selection, &tree::Selection::showNothing);
    commands.mayLeavePane = [this] { return selection.mayLeavePane(); };
    commands.beforeOverwriting = [this](const QString &path, std::string_view bytes) {
        recovery.keepForSaving(path, bytes);
    };
}

void Editor::wireBrokenFile() {
    using document::BrokenFile;
    const auto leave = &BrokenFile::leave;
    connect(&textEditing, &tree::TextEditing::brokenTextChanged, &broken, &BrokenFile::textChanged);
    connect(&broken, &BrokenFile::edited, &commands, &document::DocumentCommands::takeBrokenEdit);
    connect(&broken, &BrokenFile::mended, &commands, &document::DocumentCommands::takeMended);
    connect(&loader, &document::DocumentLoader::documentOpened, &broken, leave);
    connect(&broken, &BrokenFile::statusText, this, &Editor::statusText);
}

void Editor::wireWindows() {
    connect(&commands, &document::DocumentCommands::captionChanged, this, &Editor::tellWindows);
    commands.isSettledElsewhere = [this](const QString &path) {
        return document::isSettledElsewhere(windows, path);
    };
}

void Editor::tellWindows() {
    const QString name = runtime::shownPath(runtime::fileName(state.m_FileName));
    const bool isModified = state.m_Modified;
    QString caption = name;
    if (caption.isEmpty())
        caption = (state.showsDocument() ? resources::texts::NewDocument
                                         : resources::texts::ApplicationTitle)
                      .toString();
    if (isModified)
        caption += QStringLiteral(" *");
    const bool hasFile = state.m_Opened && QFileInfo(state.m_FileName).isAbsolute();
    windows.tell({caption, hasFile ? state.m_FileName : QString(), isModified});
}

void Editor::wireRecovery(recovery::CrashRecovery &follower) {
    using document::DocumentCommands;
    const auto changed = &recovery::CrashRecovery::documentChanged;
    connect(&commands, &DocumentCommands::documentModified, &follower, changed);
    connect(&commands, &DocumentCommands::captionChanged, &follower, changed);
    connect(&history, &edit::UndoHistory::moved, &follower, changed);
    connect(&textEditing, &tree::TextEditing::unparsedTextChanged, &follower, changed);
    connect(&selection, &tree::Selection::unparsedTextGivenUp, &follower, changed);
    connect(&commands, &DocumentCommands::unsavedLeaving, &follower,
            &recovery::CrashRecovery::leaveForNextStart);
    follower.pane = {[this] { return selection.hasUnparsedText(); },
                     [this] { return textEditing.unparsedText(); },
                     [this](const QByteArray &kept) { textEditing.restoreUnparsedText(kept); }};
}

void Editor::wireTree() {
    connect(&tree, &items::Tree::NodeClick, this,
            [this](const TreeItem &item) { guarded([&] { selection.ShowNode(item, true); }); });
    // How many there are, in the place of what showing the node has left there, for as long as they
    // are selected and nothing else is told.
    connect(&tree, &items::Tree::severalSelected, this, [this](int count) {
        if (count > 1)
            tellSelectedCount(resources::node_texts::SeveralSelected.toString().arg(count));
    });
    connect(&tree, &items::Tree::otherSelectedItemsChanged, this, [this] {
        if (tree.selectedCount() < 2 && !toldCount_.isEmpty())
            tellSelectedCount({});
    });
    connect(this, &Editor::statusText, this, [this](const QString &text) {
        if (text != toldCount_)
            toldCount_.clear();
    });
    tree.beforeLabelEdit = [this](const TreeItem &) { return mayEditLabel(); };
    tree.labelEditText = [this](const TreeItem &item) { return labels.editorText(item); };
    tree.afterLabelEdit = [this](const TreeItem &item, QString &text) {
        return takeLabel(item, text);
    };
}

void Editor::wireDrops() {
    using tree::DragAndDrop;
    tree.dragHandlers = dragAndDrop.handlers();
    connect(&tree, &items::Tree::mouseDown, &dragAndDrop, &DragAndDrop::takeMouseDown);
    connect(&dragAndDrop, &DragAndDrop::openFileRequested, &commands,
            &document::DocumentCommands::openDropped);
    connect(&dragAndDrop, &DragAndDrop::loadXmlRequested, &loader,
            &document::DocumentLoader::LoadXML);
    dragAndDrop.mayLeavePane = [this] {
        // What is dropped in place of a text that is being mended closes that.
        if (state.isBroken)
            commands.mnuFileClose_Click();
        return !state.isBroken && selection.mayLeavePane();
    };
    dragAndDrop.hasUnparsedText = [this] { return selection.hasUnparsedText(); };
}

void Editor::wirePane() {
    // A drag leaves the item it was dropped on selected. The pane must show that one, and show it
    // anew when the end of the drag has taken the node out of its old place.
    connect(&dragAndDrop, &tree::DragAndDrop::documentModified, this, &Editor::showAnew);
    connect(&removal, &tree::NodeRemoval::documentModified, this, &Editor::showAnewAfterRemoval);
    connect(&dragAndDrop, &tree::DragAndDrop::nodesLeft, this, &Editor::showSelectedInstead);
    connect(&prettyPrinting, &edit::PrettyPrinting::documentModified, this, &Editor::showAnew);
    connect(&encodings, &edit::EncodingCommands::documentModified, this, &Editor::showAnew);
    connect(&tools, &tools::ToolCommands::documentModified, this, &Editor::showAnew);

    // What is typed into the pane leaves all that is ahead of it where it is.
    const auto placeChanged = [this] {
        if (!textEditing.isCarryingOver())
            fileLines.placeChanged();
    };
    connect(&selection, &tree::Selection::nodeShown, this, placeChanged);
    connect(&history, &edit::UndoHistory::recorded, this, placeChanged);
    connect(&history, &edit::UndoHistory::moved, this, placeChanged);
}

void Editor::wireQueries(ui::PathBox &cboPath) {
    for (const QString &query : queryHistory.read())
        cboPath.AddItem(query);
    connect(&pathQuery, &search::PathQuery::remembered, this,
            [this](const QString &query) { queryHistory.add(query); });
}

void Editor::wirePreview() {
    using preview::Preview;
    connect(&builder, &tree::TreeBuilder::syncPreviewRequested, &preview, &Preview::SyncPreview);
    connect(&creation, &edit::NodeCreation::previewRequested, &preview, &Preview::requestPreview);
    connect(&tools, &tools::ToolCommands::previewRequested, &preview, &Preview::requestPreview);
    connect(&commands, &document::DocumentCommands::previewRequested, &preview,
            &Preview::requestPreview);
    connect(&commands, &document::DocumentCommands::cleared, &preview, &Preview::clear);
    connect(&selection, &tree::Selection::nodeShown, &preview, &Preview::showSelected);
    connect(&history, &edit::UndoHistory::recorded, &preview, &Preview::documentChanged);
    connect(&loader, &document::DocumentLoader::documentOpened, this, &Editor::forgetPlaceOfOther);
}

void Editor::wireValidation() {
    const auto forgetErrors = &validation::Validation::clear;
    connect(&commands, &document::DocumentCommands::cleared, &validation, forgetErrors);
    connect(&loader, &document::DocumentLoader::documentOpened, &validation, forgetErrors);
    connect(&loader, &document::DocumentLoader::statusUpdateRequested, &validation, forgetErrors);
}

void Editor::wireSchemas() {
    using document::DocumentCommands;
    using schemas::DocumentSchemas;
    const auto replaced = &DocumentSchemas::documentReplaced;
    connect(&loader, &document::DocumentLoader::documentOpened, &schemas, replaced);
    connect(&loader, &document::DocumentLoader::statusUpdateRequested, &schemas, replaced);
    connect(&commands, &DocumentCommands::documentCreated, &schemas, replaced);
    connect(&commands, &DocumentCommands::cleared, &schemas, replaced);
    const auto documentChanged = &DocumentSchemas::documentChanged;
    connect(&schemaCommands, &schemas::SchemaCommands::documentModified, &commands,
            &DocumentCommands::DocumentModified);
    connect(&schemaCommands, &schemas::SchemaCommands::documentModified, this, &Editor::showAnew);
    connect(&schemaCommands, &schemas::SchemaCommands::statusText, this, &Editor::statusText);
    connect(&history, &edit::UndoHistory::recorded, &schemas, documentChanged);
    connect(&history, &edit::UndoHistory::moved, &schemas, documentChanged);
    // The document may have got another place.
    connect(&commands, &DocumentCommands::captionChanged, &schemas, documentChanged);
}

void Editor::wireLiveValidation() {
    using validation::LiveValidation;
    const auto changed = &LiveValidation::documentChanged;
    const auto replaced = &LiveValidation::documentReplaced;
    connect(&history, &edit::UndoHistory::recorded, &live, changed);
    connect(&history, &edit::UndoHistory::moved, &live, changed);
    connect(&commands, &document::DocumentCommands::cleared, &live, replaced);
    connect(&commands, &document::DocumentCommands::documentCreated, &live, replaced);
    connect(&loader, &document::DocumentLoader::documentOpened, &live, replaced);
    connect(&schemas, &schemas::DocumentSchemas::changed, &live,
            [this] { live.setSchemas(schemas, state.folder()); });

    const auto markSoon = &validation::PaneMarks::markSoon;
    connect(&live, &LiveValidation::faultsChanged, this, &Editor::listFaults);
    connect(&live, &LiveValidation::faultsChanged, this, [this] { faultMarks.faultsChanged(); });
    connect(&live, &LiveValidation::faultsChanged, &paneMarks, markSoon);
    connect(&live, &LiveValidation::followed, &paneMarks, markSoon);
    connect(&selection, &tree::Selection::nodeShown, &paneMarks, markSoon);
}

void Editor::wirePaneSyntax() {
    using validation::PaneSyntax;
    const auto textChanged = &PaneSyntax::textChanged;
    connect(&textEditing, &tree::TextEditing::unparsedTextChanged, &paneSyntax, textChanged);
    connect(&textEditing, &tree::TextEditing::documentModified, &paneSyntax, textChanged);
    connect(&selection, &tree::Selection::unparsedTextGivenUp, &paneSyntax, textChanged);
    connect(&selection, &tree::Selection::nodeShown, &paneSyntax, textChanged);
    connect(&commands, &document::DocumentCommands::cleared, &paneSyntax, textChanged);
    paneSyntax.scope = [this]() -> std::optional<xml::SyntaxScope> {
        if (!selection.hasUnparsedText())
            return std::nullopt;
        const bool isPart = selection.GetSelectedDOMNode().nodeType() != xml::NodeType::Document;
        return xml::SyntaxScope{isPart ? tree::entityDeclarationsOf(state.m_DOM) : QByteArray()};
    };
    live.syntaxFault = [this]() -> std::optional<validation::Fault> {
        const std::optional<ui::TextMark> mark =
            paneSyntax.mark(selection.GetSelectedDOMNode().number());
        if (!mark)
            return std::nullopt;
        const xml::TextPlace &place = paneSyntax.place();
        return validation::Fault{validation::FaultKind::Syntax,
                                 false,
                                 mark->subject,
                                 mark->subject,
                                 mark->reason,
                                 place.line,
                                 place.column};
    };
    connect(&paneSyntax, &PaneSyntax::checked, &live,
            &validation::LiveValidation::syntaxFaultChanged);
    connect(&paneSyntax, &PaneSyntax::checked, &paneMarks, &validation::PaneMarks::markSoon);
    connect(&paneSyntax, &PaneSyntax::statusText, this, &Editor::statusText);
}

void Editor::listFaults() {
    search::Hits list{search::HitSource::Faults, {}, {}};
    list.hits.reserve(live.faults().size());
    list.notes.reserve(live.faults().size());
    for (const validation::Fault &fault : live.faults()) {
        search::Hit hit{.node = fault.node};
        const xml::Node node = state.m_DOM ? state.m_DOM.nodeByNumber(fault.node) : xml::Node();
        // The name of an element is what is selected in the pane.
        if (node.nodeType() == xml::NodeType::Element) {
            hit.part = search::Part::Name;
            hit.length = quint32(node.nodeName().size());
        }
        list.hits.push_back(hit);
        list.notes.push_back(fault.sentence);
    }
    faults.refresh(std::move(list));
}

void Editor::wireHits() {
    using search::HitList;
    connect(&captionSearch, &search::CaptionSearch::found, &hits,
            [this](const search::Hits &found) {
                hits.show(found);
                hitNavigation.startFromSelected();
            });
    connect(&pathQuery, &search::PathQuery::found, &hits,
            [this](const QString &query, const std::vector<xml::Node> &nodes) {
                hits.show(search::nodeHits(search::HitSource::Query, query, nodes));
                hitNavigation.startFromSelected();
            });
    connect(&history, &edit::UndoHistory::recorded, &hits, &HitList::documentChanged);
    connect(&history, &edit::UndoHistory::moved, &hits, &HitList::documentRestored);
    connect(&commands, &document::DocumentCommands::cleared, &hits, &HitList::clear);
    connect(&commands, &document::DocumentCommands::documentCreated, &hits, &HitList::clear);
    connect(&loader, &document::DocumentLoader::documentOpened, &hits, &HitList::clear);
}

void Editor::wireReplacing() {
    using search::FindAndReplace;
    connect(&replacing, &search::Replacing::documentModified, &commands,
            &document::DocumentCommands::DocumentModified);
    connect(&replacing, &search::Replacing::documentModified, this, &Editor::showAnew);
    connect(&findAndReplace, &FindAndReplace::statusText, this, &Editor::statusText);
    connect(&findAndReplace, &FindAndReplace::hitReached, this,
            [this](const search::Hit &hit) { guarded([&] { hitNavigation.show(hit); }); });
    connect(&hits, &search::HitList::shown, &findAndReplace, &FindAndReplace::takeShown);
    findAndReplace.mayLeavePane = [this] { return selection.mayLeavePane(); };
}

void Editor::wireCandidates() {
    using candidates::CandidateFinder;
    using document::DocumentCommands;
    const auto changed = &CandidateFinder::documentChanged;
    const auto replaced = &CandidateFinder::documentReplaced;
    connect(&history, &edit::UndoHistory::recorded, &candidateFinder, changed);
    connect(&history, &edit::UndoHistory::moved, &candidateFinder, changed);
    connect(&commands, &DocumentCommands::cleared, &candidateFinder, replaced);
    connect(&commands, &DocumentCommands::documentCreated, &candidateFinder, replaced);
    connect(&loader, &document::DocumentLoader::documentOpened, &candidateFinder, replaced);
    connect(&schemas, &schemas::DocumentSchemas::changed, &candidateFinder,
            [this] { candidateFinder.setGrammar(schemas.grammar(), schemas.isFinding()); });
    connect(&candidateInsertion, &candidates::CandidateInsertion::documentModified, &commands,
            &DocumentCommands::DocumentModified);
}

void Editor::tellSelectedCount(const QString &text) {
    toldCount_ = text;
    Q_EMIT statusText(text);
}

bool Editor::mayEditLabel() {
    bool allowed = false;
    guarded([&] { allowed = labels.tvw_BeforeLabelEdit() && selection.mayLeavePane(); });
    return allowed;
}

bool Editor::takeLabel(const TreeItem &item, QString &newText) {
    // An editor that is left with the text it opened with has edited nothing.
    bool accepted = false;
    if (newText != labels.editorText(item))
        guarded([&] { accepted = labels.tvw_AfterLabelEdit(item, newText); });
    return accepted;
}

void Editor::showAnew() {
    guarded([&] { selection.refillPane(tree.SelectedItem()); });
}

void Editor::showAnewAfterRemoval() {
    if (pane.shownItem == tree.SelectedItem())
        showAnew();
}

void Editor::showSelectedInstead() {
    if (pane.shownItem != tree.SelectedItem())
        showAnew();
}

void Editor::forgetPlaceOfOther() {
    // A document that is loaded again is the same one.
    const QString opened = loader.fileOnDisk().path;
    if (std::exchange(previewedFile_, opened) != opened)
        preview.forgetPlace();
}

} // namespace quillon::app

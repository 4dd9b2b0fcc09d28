#pragma once

#include "candidates/candidate_finder.h"
#include "candidates/candidate_insertion.h"
#include "completion/completion.h"
#include "completion/node_explanation.h"
#include "document/document_commands.h"
#include "document/document_loader.h"
#include "edit/child_sorting.h"
#include "edit/encoding_commands.h"
#include "edit/node_commands.h"
#include "edit/node_creation.h"
#include "edit/pretty_printing.h"
#include "edit/undo_history.h"
#include "platform/items/tree.h"
#include "platform/system/open_windows.h"
#include "platform/system/settings_store.h"
#include "platform/system/shell.h"
#include "platform/system/working_folder.h"
#include "preview/preview.h"
#include "recovery/crash_recovery.h"
#include "schemas/document_schemas.h"
#include "schemas/fetched_schemas.h"
#include "schemas/schema_commands.h"
#include "search/caption_search.h"
#include "search/find_and_replace.h"
#include "search/hit_export.h"
#include "search/hit_list.h"
#include "search/hit_navigation.h"
#include "search/path_completion.h"
#include "search/path_copy.h"
#include "search/path_query.h"
#include "search/query_history.h"
#include "settings/settings.h"
#include "source/file_lines.h"
#include "source/pane_source.h"
#include "tools/tool_commands.h"
#include "tools/view_commands.h"
#include "tree/drag_and_drop.h"
#include "tree/label_editing.h"
#include "tree/node_insertion.h"
#include "tree/node_removal.h"
#include "tree/selection.h"
#include "tree/text_editing.h"
#include "validation/fault_marks.h"
#include "validation/live_validation.h"
#include "validation/mending.h"
#include "validation/pane_marks.h"
#include "validation/pane_syntax.h"
#include "validation/validation.h"

#include <QObject>

#include <memory>

namespace quillon::app {

/// Where a window keeps its things, and what time it is.
struct Environment {
    QString applicationFolder;
    system::SettingsStore settings;
    runtime::Clock clock;
    std::shared_ptr<system::Shell> shell = std::make_shared<system::Shell>();
    /// Where schemas are kept that have been fetched.
    QString fetchedSchemas = schemas::FetchedSchemas::defaultFolder();
    /// Where the windows of the program know each other.
    QString openWindows = system::OpenWindows::defaultFolder();

    /// Those of the program as it is installed.
    static Environment ofProgram();
};

/// All subsystems of one window, from the ground up, and the wires by which news travels upward
/// between them.
class Editor : public QObject {
    Q_OBJECT

public:
    Editor(Environment environment, ui::TextBox &txtEdit, ui::PathBox &cboPath, ui::Browser &ie,
           ui::LongWork &longWork, ui::Clipboard &clipboard);

    const Environment environment;
    const system::WorkingFolder workingFolder;
    const document::RecentFiles recentFiles;
    settings::Settings settings;
    system::OpenWindows windows;

    state::DocumentState state;
    state::ViewOptions options;

    items::Tree tree;
    tree::PaneContent pane;
    tree::TreeBuilder builder;
    tree::NodeRemoval removal;
    tree::NodeInsertion nodeInsertion;
    tree::DragAndDrop dragAndDrop;
    tree::Selection selection;
    tree::LabelEditing labels;
    tree::TextEditing textEditing;

    edit::UndoHistory history;
    edit::NodeCreation creation;
    edit::StructureCommands structure;
    edit::ChildSorting sorting;
    edit::PrettyPrinting prettyPrinting;
    edit::EncodingCommands encodings;
    edit::NodeCommands nodeCommands;

    schemas::DocumentSchemas schemas;
    schemas::SchemaCommands schemaCommands;

    search::CaptionSearch captionSearch;
    search::PathQuery pathQuery;
    search::PathCopy pathCopy;
    const search::PathCompletion pathCompletion;
    const search::QueryHistory queryHistory;
    search::HitList hits;
    search::HitNavigation hitNavigation;
    search::HitExport hitExport;
    search::Replacing replacing;
    search::FindAndReplace findAndReplace;

    candidates::CandidateFinder candidateFinder;
    candidates::CandidateInsertion candidateInsertion;
    completion::Completion completion;
    completion::NodeExplanation explanation;
    source::PaneSource paneSource;
    source::FileLines fileLines;

    preview::Preview preview;
    validation::Validation validation;
    validation::LiveValidation live;
    validation::FaultMarks faultMarks;
    validation::PaneSyntax paneSyntax;
    validation::PaneMarks paneMarks;
    validation::Mending mending;
    /// What is wrong in the document, to be walked through like hits.
    search::HitList faults;
    search::HitNavigation faultNavigation;
    search::HitExport faultExport;

    tools::ToolCommands tools;
    tools::ViewCommands view;

    document::BrokenFile broken;
    document::DocumentLoader loader;
    document::DocumentCommands commands;
    recovery::CrashRecovery recovery;

    /// Has a recovery follow this editor's document. Its own one does already.
    void wireRecovery(recovery::CrashRecovery &follower);

Q_SIGNALS:
    /// A text for the status bar, whoever has one.
    void statusText(const QString &text);

private:
    // The wires, by where they lead to.
    void wireStatusBar();
    void wireDocumentCommands();
    void wireBrokenFile();
    void wireWindows();
    void wireTree();
    void wireDrops();
    void wirePane();
    void wireQueries(ui::PathBox &cboPath);
    void wirePreview();
    void wireValidation();
    void wireSchemas();
    void wireLiveValidation();
    void wirePaneSyntax();
    void listFaults();
    void wireHits();
    void wireReplacing();
    void wireCandidates();

    void tellWindows();
    void tellSelectedCount(const QString &text);
    bool mayEditLabel();
    bool takeLabel(const items::TreeItem &item, QString &newText);
    void showAnew();
    void showAnewAfterRemoval();
    void showSelectedInstead();
    void forgetPlaceOfOther();

    /// The file that the preview has shown last.
    QString previewedFile_;
    /// The status text that says how many nodes are selected, while it is the latest.
    QString toldCount_;
};

} // namespace quillon::app

#include "app/main_window/command_table.h"
#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTest>

namespace quillon::test {

namespace {

using xml::NodeType;

const QByteArray Sample = "<!DOCTYPE r [<!ENTITY e 'x'>]><r><a k='1'>t<![CDATA[d]]>&e;"
                          "<!--c--><?p i?><b/></a><z/></r>";

/// What is selected, in the order of the columns below.
enum Column {
    NoDocument,
    NewDocument,
    DocumentItem,
    Root,
    Element,
    Attribute,
    Text,
    CData,
    EntityReference,
    Comment,
    Instruction,
    Doctype,
    Columns
};

enum class ReadOnly { Same, Never };

struct States {
    const char *name;
    /// A column for each of the above; a dot where the command does not apply.
    const char *applies;
    /// What becomes of that in a read-only document.
    ReadOnly readOnly = ReadOnly::Same;
};

constexpr auto Always = "############";
constexpr auto WithDocument = ".###########";
constexpr auto NotAtFirst = "............";
constexpr auto WithNode = "...#########";
constexpr auto InElement = "...##.......";
constexpr auto AheadOfNode = "...##.######";

constexpr auto MovableNode = "...##.#####.";

constexpr States MenuStates[] = {
    {"mnuFileNew", Always},
    {"mnuFileOpen", Always},
    {"mnuFileReload", "..##########"},
    {"mnuFileSave", WithDocument},
    {"mnuFileSaveAs", WithDocument},
    {"mnuFilePrint", WithDocument},
    {"mnuFilePrintTree", WithDocument},
    {"mnuFileClose", WithDocument},
    {"mnuFileQuit", Always},
    {"mnuFilePrintPreview", WithDocument},
    {"mnuFilePrintTreePreview", WithDocument},
    {"mnuEditUndo", NotAtFirst},
    {"mnuEditRedo", NotAtFirst},
    {"mnuEditUndoAll", NotAtFirst},
    {"mnuEditCut", WithNode, ReadOnly::Never},
    {"mnuEditCopy", WithNode},
    {"mnuEditPaste", InElement, ReadOnly::Never},
    {"mnuEditDelete", WithNode, ReadOnly::Never},
    {"mnuEditRename", WithNode, ReadOnly::Never},
    {"mnuEditFind", WithDocument},
    {"mnuEditFindNext", WithDocument},
    {"mnuViewLock", Always},
    {"mnuEditReplace", WithDocument},
    {"mnuEditCopyXPath", WithDocument},
    {"mnuEditSelectMatches", NotAtFirst},
    {"mnuEditFormat", WithDocument, ReadOnly::Never},
    {"mnuEditEncoding", WithDocument, ReadOnly::Never},
    {"mnuNodeCollapse", ".####......."},
    {"mnuNodeExpand", ".####......."},
    {"mnuViewText", Always},
    {"mnuViewFont", Always},
    {"mnuViewPanel", Always},
    {"mnuViewNextHit", NotAtFirst},
    {"mnuViewPreviousHit", NotAtFirst},
    {"mnuViewNextPart", Always},
    {"mnuViewPreviousPart", Always},
    {"mnuViewCandidates", Always},
    {"mnuViewInsertCandidate", Always},
    {"mnuViewPropose", Always},
    {"mnuViewLive", Always},
    {"mnuViewThemeAutomatic", Always},
    {"mnuViewThemeLight", Always},
    {"mnuViewThemeDark", Always},
    {"mnuPaneFold", Always},
    {"mnuPaneUnfold", Always},
    {"mnuPaneFoldAll", Always},
    {"mnuPaneUnfoldAll", Always},
    {"mnuPanePartner", Always},
    {"mnuPaneRenameTags", Always},
    {"mnuPaneJump", Always},
    {"mnuPaneWrap", Always},
    {"mnuPaneBlanks", Always},
    {"mnuPaneFileLines", Always},
    {"mnuPaneClose", Always},
    {"mnuZoomIn", Always},
    {"mnuZoomOut", Always},
    {"mnuZoomReset", Always},
    {"mnuNodeMoveUp", ".......####.", ReadOnly::Never},
    {"mnuNodeMoveDown", "....#.#####.", ReadOnly::Never},
    {"mnuNodeAddElement", ".#.##.......", ReadOnly::Never},
    {"mnuNodeAddAttribute", InElement, ReadOnly::Never},
    {"mnuNodeAddText", InElement, ReadOnly::Never},
    {"mnuNodeAddComment", InElement, ReadOnly::Never},
    {"mnuNodeAddCDATA", InElement, ReadOnly::Never},
    {"mnuNodeInsElement", AheadOfNode, ReadOnly::Never},
    {"mnuNodeInsText", AheadOfNode, ReadOnly::Never},
    {"mnuNodeInsComment", AheadOfNode, ReadOnly::Never},
    {"mnuNodeInsCDATA", AheadOfNode, ReadOnly::Never},
    {"mnuNodeDelete", WithNode, ReadOnly::Never},
    {"mnuNodeDuplicate", MovableNode, ReadOnly::Never},
    {"mnuNodeRaise", MovableNode, ReadOnly::Never},
    {"mnuNodeLower", MovableNode, ReadOnly::Never},
    {"mnuNodeEnclose", MovableNode, ReadOnly::Never},
    {"mnuNodeUnwrap", InElement, ReadOnly::Never},
    {"mnuNodeSort", InElement, ReadOnly::Never},
    {"mnuNodeChooseValue", NotAtFirst},
    {"mnuNodeExplain", NotAtFirst},
    {"mnuNodeDefinition", NotAtFirst},
    {"mnuNodeMend", NotAtFirst},
    {"mnuToolSelXSL", WithDocument},
    {"mnuToolPreview", WithDocument},
    {"mnuToolPreviewSel", WithDocument},
    {"mnuToolPrevHTML", Always},
    {"mnuToolPreviewSync", Always},
    {"mnuToolVerifyNew", WithDocument},
    {"mnuToolVerify", WithDocument},
    {"mnuToolSend", WithDocument},
    {"mnuToolRemoveText", WithDocument, ReadOnly::Never},
    {"mnuToolOpenEditor", WithDocument},
    {"mnuToolOption", Always},
    {"mnuToolSchemas", Always},
    {"mnuToolBindSchema", WithDocument, ReadOnly::Never},
    {"mnuToolCreateSchema", WithDocument},
    {"mnuWindowTileH", Always},
    // It is hidden where the menu has room for all windows.
    {"mnuWindowMore", NotAtFirst},
    {"mnuHelpReadme", Always},
    {"mnuHelpAbout", Always},
    {"mnuHelpManual", Always},
    {"mnuHelpFindCommand", Always},
};

/// With text on the clipboard. Unlike its menu entry, "paste" takes the document item, too.
constexpr States ButtonStates[] = {
    {"new", Always},
    {"open", Always},
    {"save", WithDocument},
    {"print", WithDocument},
    {"preview", WithDocument},
    {"cut", WithNode, ReadOnly::Never},
    {"copy", WithNode},
    {"paste", ".####.......", ReadOnly::Never},
    {"delete", WithNode, ReadOnly::Never},
    {"find", WithDocument},
    {"undo", NotAtFirst},
    {"redo", NotAtFirst},
    {"verify", WithDocument},
    {"move", Always},
};

class CommandStates : public EditorWindow {
protected:
    CommandStates() {
        QGuiApplication::clipboard()->setText("text");
        // Without an editor its menu is hidden.
        const system::SettingsStore store(path("settings.ini"));
        store.SaveSetting("Programs", "Name0", "editor");
        store.SaveSetting("Programs", "Path0", "/usr/bin/editor");
        form.reset();
        form = std::make_unique<app::frmMain>(app::Environment{folder.path(), store, {}});
    }

    QAction &action(QStringView name) { return *form->actions().action(name); }

    /// Brings the window into the state of a column.
    void show(Column column) {
        if (column == NoDocument)
            return editor().commands.ClearStatus();
        if (column == NewDocument) {
            editor().commands.mnuFileNew_Click();
            return select("#document");
        }
        dialogs.answerMessage(ui::message_answer::Ok);
        open(Sample);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        selectColumn(column);
    }
    void selectColumn(Column column) {
        static const std::map<Column, NodeType> kinds{
            {DocumentItem, NodeType::Document},
            {Attribute, NodeType::Attribute},
            {Text, NodeType::Text},
            {CData, NodeType::CDATASection},
            {EntityReference, NodeType::EntityReference},
            {Comment, NodeType::Comment},
            {Instruction, NodeType::ProcessingInstruction},
            {Doctype, NodeType::DocumentType},
        };
        if (column == EntityReference)
            dialogs.answerMessage(ui::message_answer::Ok);
        if (column == Element)
            return select("a");
        if (column == Root) {
            const auto root = state().m_DOM.documentElement();
            return editor().selection.ShowNode(editor().builder.itemOf(root), true);
        }
        items::Nodes &nodes = tree().nodes();
        for (int i = 1; i <= nodes.Count(); ++i) {
            const xml::NodeType kind = editor().selection.GetDOMNode(nodes.Item(i)).nodeType();
            if (kind == kinds.at(column))
                return editor().selection.ShowNode(nodes.Item(i), true);
        }
        FAIL() << "no node for column " << column;
    }
    /// The name of every entry that is enabled when its menu has opened.
    std::set<QString> enabledEntries() {
        std::set<QString> enabled;
        for (const char *name : {"mnuFile", "mnuEdit", "mnuView", "mnuNode", "mnuTool", "mnuWindow",
                                 "mnuHelp", "mnuViewTheme", "mnuPane", "mnuZoom"}) {
            QMenu &menu = *action(QString(name)).menu();
            Q_EMIT menu.aboutToShow();
            for (const QAction *entry : menu.actions()) {
                if (entry->isEnabled())
                    enabled.insert(entry->objectName());
            }
            Q_EMIT menu.aboutToHide();
        }
        return enabled;
    }
    void check(Column column, bool readOnly) {
        const auto expected = [&](const States &row) {
            return row.applies[column] == '#' && !(readOnly && row.readOnly == ReadOnly::Never);
        };
        const std::set<QString> entries = enabledEntries();
        for (const States &row : MenuStates)
            EXPECT_EQ(entries.count(row.name) == 1, expected(row)) << row.name;
        for (const States &row : ButtonStates)
            EXPECT_EQ(button(QString(row.name)), expected(row)) << row.name;
    }
};

TEST_F(CommandStates, FollowTheNodeSelected) {
    for (int column = NoDocument; column < Columns; ++column) {
        SCOPED_TRACE(column);
        show(Column(column));
        check(Column(column), false);
    }
    for (int column = DocumentItem; column < Columns; ++column) {
        SCOPED_TRACE(column);
        show(Column(column));
        state().m_ReadOnly = true;
        selectColumn(Column(column));
        check(Column(column), true);
    }
}

TEST_F(CommandStates, HideWhatTheTreeMenuOffersForOthers) {
    for (const Column column : {Element, Attribute, Doctype, Text, Comment}) {
        SCOPED_TRACE(column);
        show(column);
        Q_EMIT action(u"treeMenu").menu()->aboutToShow();
        const bool isInElement = column != Element && column != Doctype;
        EXPECT_EQ(action(u"AddAttributeToParent").isVisible(), isInElement);
        EXPECT_EQ(action(u"mnuNodeAddText").isEnabled(), column == Element);
        Q_EMIT action(u"treeMenu").menu()->aboutToHide();
    }
}

TEST_F(CommandStates, AreKnownOfEveryCommand) {
    // The hidden menu, which nobody can open, and what has no place in the menu bar.
    std::set<QString> names{"mnuNodeContextUp",  "mnuNodeContextDown", "AddAttributeToParent",
                            "treeMenuCopyXPath", "SearchBackward",     "SelectByPath",
                            "MoveUpByKey",       "MoveDownByKey",      "treeMenuCandidates"};
    std::set<QString> buttons;
    for (const States &row : MenuStates)
        names.insert(row.name);
    for (const States &row : ButtonStates)
        buttons.insert(row.name);
    for (const app::CommandRow &row : app::commandTable()) {
        if (row.entry.kind == controls::ActionKind::Command) {
            EXPECT_TRUE(names.count(row.entry.name.toString())) << row.entry.name.toUtf8().data();
        }
        if (!row.button.key.isEmpty()) {
            EXPECT_EQ(buttons.erase(row.button.key.toString()), 1u)
                << row.button.key.toUtf8().data();
        }
    }
    EXPECT_TRUE(buttons.empty());
}

TEST_F(CommandStates, HoldForKeysAsWell) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open(Sample);
    editor().commands.mnuFileClose_Click();
    for (const app::CommandRow &row : app::commandTable()) {
        if (row.enabled && row.run && row.entry.keyContext == controls::KeyContext::Window)
            action(row.entry.name).trigger();
    }
    EXPECT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.prompts.size() + dialogs.openRequests.size() + dialogs.saveRequests.size(),
              0u);
    EXPECT_FALSE(state().m_DOM);
}

TEST_F(CommandStates, OfButtonsAreSetByTheirNewsAlone) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open(Sample);
    select("a");
    const auto change = [&] {
        state().m_DOM.documentElement().setAttribute("n", "1");
        editor().commands.DocumentModified();
    };
    change();
    EXPECT_TRUE(button(u"undo"));
    EXPECT_FALSE(button(u"redo"));
    action(u"mnuEditUndo").trigger();
    EXPECT_FALSE(button(u"undo"));
    EXPECT_TRUE(button(u"redo"));
    // A change leaves the button, and pressing it finds that there is nothing to redo.
    change();
    EXPECT_TRUE(button(u"redo"));
    EXPECT_EQ(enabledEntries().count("mnuEditRedo"), 0u);
    form->actions().run(u"mnuEditRedo");
    EXPECT_FALSE(button(u"redo"));
    EXPECT_TRUE(button(u"undo"));

    // Undoing selects what was changed.
    select("#document");
    EXPECT_FALSE(button(u"copy"));
    action(u"mnuEditUndo").trigger();
    EXPECT_NE(tree().SelectedItem(), item("#document"));
    EXPECT_TRUE(button(u"copy"));

    // The clipboard is looked at when a node is shown, and after copying.
    select("z");
    QGuiApplication::clipboard()->clear();
    EXPECT_TRUE(button(u"paste"));
    select("a");
    EXPECT_FALSE(button(u"paste"));
    state().m_ReadOnly = true;
    action(u"mnuEditCopy").trigger();
    EXPECT_TRUE(button(u"paste")) << "copying does not ask whether the document may be changed";
    select("z");
    EXPECT_FALSE(button(u"paste"));
}

TEST_F(CommandStates, OfATextThatIsMended) {
    dialogs.answerFile({write("broken.xml", "<r>"), 0});
    dialogs.answerMessage(ui::message_answer::Ok);
    action(u"mnuFileOpen").trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bool(editor().broken.fault()); }, Patience));
    std::set<QString> more{"mnuFileReload", "mnuFileSave",      "mnuFileSaveAs",
                           "mnuFileClose",  "mnuViewNextHit",   "mnuViewPreviousHit",
                           "mnuNodeMend",   "mnuToolOpenEditor"};
    const auto check = [&] {
        const std::set<QString> entries = enabledEntries();
        for (const States &row : MenuStates)
            EXPECT_EQ(entries.count(row.name) == 1,
                      row.applies[NoDocument] == '#' || more.count(row.name) == 1)
                << row.name;
        for (const States &row : ButtonStates)
            EXPECT_EQ(button(QString(row.name)),
                      row.applies[NoDocument] == '#' || QString(row.name) == "save" ||
                          (QString(row.name) == "undo" && more.count("mnuEditUndo") == 1))
                << row.name;
    };
    check();
    QTest::keyClick(&txtEdit(), 'x');
    more.insert("mnuEditUndo");
    more.erase("mnuViewNextHit");
    more.erase("mnuViewPreviousHit");
    more.erase("mnuNodeMend");
    check();
    EXPECT_EQ(title(), "broken.xml * (修正中) - Quillon XML Editor");
    action(u"mnuEditUndo").trigger();
    EXPECT_EQ(txtEdit().utf8(), "<r>");
    action(u"mnuEditRedo").trigger();
    EXPECT_NE(txtEdit().utf8(), "<r>");
}

TEST_F(CommandStates, OfAnEmptyWindowThatCouldNotOpenAFile) {
    dialogs.answerFile({write("no-text.xml", QByteArray(64, '\1')), 0});
    dialogs.answerMessage(ui::message_answer::Ok);
    action(u"mnuFileOpen").trigger();
    EXPECT_FALSE(button(u"save"));
    EXPECT_EQ(enabledEntries().count("mnuFileSave"), 1u) << "saving says that there is nothing";
    open("<r/>");
    EXPECT_TRUE(button(u"save"));
    EXPECT_TRUE(button(u"verify"));
    editor().commands.mnuFileClose_Click();
    for (const States &row : ButtonStates)
        EXPECT_EQ(button(QString(row.name)), row.applies[NoDocument] == '#') << row.name;
}

} // namespace

} // namespace quillon::test

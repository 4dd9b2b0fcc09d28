#include "platform/runtime/error.h"
#include "tests/support/headless_editor.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

class UndoTest : public HeadlessEditor {
protected:
    edit::UndoHistory &history() { return editor().history; }
    /// Changes the document once.
    void edit(const QString &value) {
        state().m_DOM.documentElement().setAttribute("v", value);
        editor().commands.DocumentModified();
    }
    QString value() { return state().m_DOM.documentElement().getAttribute("v").value_or(""); }
};

TEST_F(UndoTest, TenStepsBackAndForth) {
    open("<r/>");
    for (int i = 1; i <= 11; ++i)
        edit(QString::number(i));
    for (int i = 10; i >= 1; --i) {
        EXPECT_TRUE(history().CanUndo());
        history().UndoCommand();
        EXPECT_EQ(value(), QString::number(i));
    }
    EXPECT_FALSE(history().CanUndo());
    history().UndoCommand();
    EXPECT_EQ(value(), "1");
    for (int i = 2; i <= 11; ++i) {
        history().RedoCommand();
        EXPECT_EQ(value(), QString::number(i));
    }
    EXPECT_FALSE(history().CanRedo());
    EXPECT_TRUE(history().CanUndo());
}

TEST_F(UndoTest, TheKeyboardGoesOnInTheTree) {
    open("<r/>");
    edit("1");
    const QSignalSpy focused(&tree(), &items::Tree::focusRequested);
    history().UndoCommand();
    EXPECT_EQ(focused.size(), 1);
    history().RedoCommand();
    EXPECT_EQ(focused.size(), 2);
    history().RedoCommand();
    EXPECT_EQ(focused.size(), 2) << "there was nothing to redo";
}

TEST_F(UndoTest, ThePaneOfADocumentThatIsEmptyAgainIsEmpty) {
    editor().commands.mnuFileNew_Click();
    select("#document");
    editor().creation.mnuNodeAddElement_Click();
    EXPECT_EQ(txtEdit().Text(), "<Element1/>");
    history().UndoCommand();
    EXPECT_EQ(xml(), "");
    EXPECT_EQ(txtEdit().Text(), "");
    select("#document");
    type("<a/>");
    history().UndoCommand();
    EXPECT_EQ(txtEdit().Text(), "");
    type("<a/>");
    select("a");
    history().UndoCommand();
    EXPECT_EQ(txtEdit().Text(), "");
}

TEST_F(UndoTest, ExpansionComesBackAsItWas) {
    open("<r><a><x/></a><b><y/></b></r>");
    item("b").setExpanded(true);
    edit("1");
    // Nodes inserted ahead of what is expanded, and what follows in the order of adding.
    for (int i = 0; i < 3; ++i) {
        items::TreeItem rel = item("a");
        auto before = items::Relationship::Previous;
        xml::Node made = state().m_DOM.createElement("n");
        editor().builder.AddNodeToTree(rel, made, false, before).setExpanded(true);
    }
    item("a").setExpanded(true);
    editor().commands.DocumentModified();
    const QStringList later = expanded();
    history().UndoCommand();
    EXPECT_EQ(expanded(), QStringList({"#document", "r", "b"}));
    EXPECT_TRUE(tree().treeVisible());
    history().RedoCommand();
    QStringList again = expanded();
    EXPECT_EQ(QSet<QString>(again.begin(), again.end()), QSet<QString>(later.begin(), later.end()));
    EXPECT_EQ(again.size(), later.size());
    history().UndoCommand();
    history().UndoCommand();
    EXPECT_EQ(expanded(), QStringList("#document")) << "the loaded state counts only the root";
}

TEST_F(UndoTest, TheSelectedPlaceStaysSelected) {
    open("<r><a/><b>old</b></r>");
    item("b").setExpanded(true);
    select("old");
    type("new");
    EXPECT_EQ(xml(), "<r><a/><b>new</b></r>");
    type("newer");
    history().UndoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "new");
    EXPECT_EQ(txtEdit().Text(), "new");
    history().UndoCommand();
    // The elements around it are not expanded in this state, and must not be.
    EXPECT_EQ(tree().SelectedItem().Text(), "r");
    EXPECT_EQ(expanded(), QStringList("#document"));
}

TEST_F(UndoTest, ARenamedElementStaysSelectedAndAnAddedOneGivesWayToItsParent) {
    open("<r><a/><b/></r>");
    select("b");
    editor().commands.DocumentModified();
    QString name = "renamed";
    ASSERT_TRUE(editor().labels.tvw_AfterLabelEdit(tree().SelectedItem(), name));
    history().UndoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "b");
    select("r");
    editor().creation.mnuNodeAddElement_Click();
    history().UndoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "r");
    select("b");
    editor().nodeCommands.mnuNodeMoveUp_Click();
    history().UndoCommand();
    EXPECT_EQ(captions(item("r")), QStringList({"a", "b"}));
    EXPECT_EQ(tree().SelectedItem().Text(), "r") << "not what stands where it was moved to";
}

TEST_F(UndoTest, RedoingSelectsThePlaceOfTheChange) {
    open("<r><a k='1'/><b/></r>");
    item("a").setExpanded(true);
    select("a");
    editor().creation.mnuNodeAddAttribute_Click();
    select("b");
    history().UndoCommand();
    select("b");
    history().RedoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "Attribute1=\"\"");
    // The attribute of a renamed element.
    select("a");
    QString name = "renamed";
    ASSERT_TRUE(editor().labels.tvw_AfterLabelEdit(tree().SelectedItem(), name));
    select("k=\"1\"");
    txtEdit().setText(QStringLiteral("2"));
    history().UndoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "k=\"1\"");
    select("b");
    history().RedoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "k=\"2\"");
    EXPECT_EQ(txtEdit().Text(), "2");
}

TEST_F(UndoTest, AReplacedNodeIsFoundBesideAnAddedAttribute) {
    open("<r><a/><b/></r>");
    select("r");
    editor().creation.mnuNodeAddAttribute_Click();
    select("b");
    QString name = "renamed";
    ASSERT_TRUE(editor().labels.tvw_AfterLabelEdit(tree().SelectedItem(), name));
    history().UndoCommand();
    EXPECT_EQ(tree().SelectedItem().Text(), "b");
}

TEST_F(UndoTest, NeitherModifiedMarkNorCaptionGoBack) {
    open("<r/>");
    edit("1");
    history().UndoCommand();
    EXPECT_TRUE(state().m_Modified);
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    // A snapshot stays what it was although what it restored is edited.
    edit("2");
    history().UndoCommand();
    EXPECT_EQ(xml(), "<r/>");
    history().RedoCommand();
    EXPECT_EQ(value(), "2");
}

TEST_F(UndoTest, UndoAllGoesBackToTheFileAsOpened) {
    open("<r/>");
    EXPECT_FALSE(editor().commands.canUndoAll());
    editor().commands.mnuEditUndoAll_Click();
    edit("1");
    EXPECT_TRUE(editor().commands.canUndoAll());
    dialogs.answerMessage(ui::message_answer::No);
    editor().commands.mnuEditUndoAll_Click();
    EXPECT_EQ(dialogs.messages.back().text, "変更は全て失われます。よろしいですか？");
    EXPECT_EQ(dialogs.messages.back().style, 292);
    EXPECT_EQ(value(), "1");
    // Later than the opening, whose copy has the time in its name.
    time = time.addSecs(5);
    dialogs.answerMessage(ui::message_answer::Yes);
    editor().commands.mnuEditUndoAll_Click();
    EXPECT_EQ(xml(), "<r/>");
    EXPECT_EQ(title(), "doc.xml * - Quillon XML Editor");
    EXPECT_TRUE(state().m_Modified);
    EXPECT_FALSE(history().CanUndo());
    EXPECT_EQ(state().m_FileName, path("doc.xml"));

    edit("2");
    QFile::remove(state().m_BackupPath);
    dialogs.answerMessage(ui::message_answer::Yes);
    EXPECT_THROW(editor().commands.mnuEditUndoAll_Click(), runtime::Error);
    EXPECT_EQ(value(), "2") << "without the copy the document stays";
}

TEST(UndoRedo, TheStacksAlone) {
    edit::clsUndoRedo history;
    EXPECT_FALSE(history.Undo());
    EXPECT_FALSE(history.Redo());
    const auto info = [](int number) {
        auto made = std::make_shared<edit::clsUndoInfo>();
        made->setSelectedIndex(number);
        return made;
    };
    history.Action(info(1));
    EXPECT_FALSE(history.CanUndo());
    history.Action(info(2));
    history.Action(info(3));
    EXPECT_EQ(history.Undo()->SelectedIndex(), 2);
    EXPECT_EQ(history.Undo()->SelectedIndex(), 1);
    EXPECT_FALSE(history.Undo());
    EXPECT_EQ(history.Redo()->SelectedIndex(), 2);
    history.Action(info(4));
    EXPECT_FALSE(history.CanRedo());
    history.Clear();
    EXPECT_FALSE(history.CanUndo());
    history.Action(info(5));
    EXPECT_EQ(history.Undo()->SelectedIndex(), 4) << "clearing keeps the current state";
}

} // namespace

} // namespace quillon::test

#include "platform/ui/message_box.h"
#include "resources/texts.h"
#include "tests/support/editor_window.h"

#include <QAction>
#include <QTest>

namespace quillon::test {

namespace {

constexpr int Yes = ui::message_answer::Yes;
constexpr int No = ui::message_answer::No;

const QByteArray Document = "<doc><a>1</a><b>2</b></doc>";
const QString Broken = "<a>1</a";

/// A document whose element `a` is shown with text in the pane that does not parse.
class UnparsedTextWindow : public EditorWindow {
protected:
    void SetUp() override {
        form->show();
        open(Document);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
    }
    void typeBroken() {
        select("a");
        type(Broken);
        ASSERT_EQ(status(), "構文エラー");
    }
    void run(QStringView command) { form->actions().action(command)->trigger(); }

    struct Way {
        const char *name;
        std::function<void()> go;
    };
    /// The ways in which the text could go by keys and commands.
    std::vector<Way> ways() {
        std::vector<Way> ways{
            {"key", [this] { QTest::keyClick(&tvw(), Qt::Key_Down); }},
            {"collapse", [this] { tvw().setExpandedAsUser(item("doc"), false); }},
            {"tree key", [this] { QTest::keyClick(&tvw(), Qt::Key_X, Qt::ControlModifier); }},
        };
        for (const char *command :
             {"mnuEditUndo",       "mnuEditCut",          "mnuEditPaste",      "mnuNodeAddElement",
              "mnuNodeAddText",    "mnuNodeAddAttribute", "mnuNodeAddComment", "mnuNodeAddCDATA",
              "mnuNodeInsElement", "mnuNodeInsText",      "mnuNodeInsCDATA",   "mnuNodeInsComment",
              "mnuNodeDuplicate",  "mnuNodeRaise",        "mnuNodeLower",      "mnuNodeEnclose",
              "mnuNodeUnwrap",     "mnuNodeSort",         "mnuNodeMoveDown",   "mnuEditDelete",
              "mnuNodeDelete",     "mnuEditRename",       "mnuViewText",       "mnuToolRemoveText",
              "mnuToolSend",       "mnuFileSave",         "mnuFileNew",        "mnuFileOpen",
              "mnuFileReload",     "mnuFileClose",        "mnuFileQuit"})
            ways.push_back({command, [this, command] { run(QString(command)); }});
        return ways;
    }
};

TEST_F(UnparsedTextWindow, IsAskedAboutBeforeItGoes) {
    select("b");
    type("<b>3</b>");
    select("a");
    run(u"mnuEditCopy");
    const QByteArray before = xml();
    for (const Way &way : ways()) {
        SCOPED_TRACE(way.name);
        typeBroken();
        const size_t asked = dialogs.messages.size();
        dialogs.answerMessage(No);
        way.go();
        ASSERT_EQ(dialogs.messages.size(), asked + 1);
        EXPECT_EQ(dialogs.messages.back().text, resources::texts::GiveUpUnparsedText.toString());
        // Yes and No, and No for Return and Escape.
        EXPECT_EQ(dialogs.messages.back().style, 4 + 32 + 256);
        EXPECT_EQ(xml(), before);
        EXPECT_EQ(txtEdit().Text(), Broken);
        EXPECT_EQ(tree().SelectedItem(), item("a"));
        EXPECT_EQ(status(), "構文エラー");
        EXPECT_EQ(form->focusWidget(), &txtEdit());
        ASSERT_TRUE(editor().selection.hasUnparsedText());
    }
    EXPECT_EQ(read("doc.xml"), Document);

    // Going on with it, the user makes it part of the document.
    type("<a>4</a>");
    EXPECT_EQ(xml(), "<doc><a>4</a><b>3</b></doc>");
    select("b");
}

TEST_F(UnparsedTextWindow, IsTheStepThatIsUndone) {
    select("a");
    type("<a>9</a>");
    const QByteArray before = xml();
    typeBroken();
    dialogs.answerMessage(Yes);
    run(u"mnuEditUndo");
    EXPECT_EQ(xml(), before);
    EXPECT_EQ(txtEdit().Text(), "<a>9</a>");
    run(u"mnuEditUndo");
    EXPECT_NE(xml(), before);
    // Going forth again would take it away as everything else does.
    typeBroken();
    dialogs.answerMessage(No);
    run(u"mnuEditRedo");
    EXPECT_EQ(txtEdit().Text(), Broken);
    dialogs.answerMessage(Yes);
    run(u"mnuEditRedo");
    EXPECT_EQ(xml(), before);
}

TEST_F(UnparsedTextWindow, GoesWhenTheUserSaysSo) {
    typeBroken();
    dialogs.answerMessage(Yes);
    run(u"mnuNodeMoveDown");
    EXPECT_EQ(xml(), "<doc><b>2</b><a>1</a></doc>");
    typeBroken();
    dialogs.answerMessage(Yes);
    run(u"mnuFileSave");
    EXPECT_EQ(read("doc.xml"), "<doc><b>2</b><a>1</a></doc>");
    EXPECT_EQ(txtEdit().utf8(), "<a>1</a>") << "the pane shows what has been saved";
    typeBroken();
    dialogs.answerMessage(Yes);
    run(u"mnuFileClose");
    EXPECT_FALSE(state().m_DOM);
}

TEST_F(UnparsedTextWindow, StaysWithoutAQuestionWhereNothingHappensToIt) {
    typeBroken();
    for (const char *command :
         {"mnuEditCopy", "mnuNodeExpand", "mnuViewLock", "mnuToolPreviewSync"})
        run(QString(command));
    run(u"mnuViewLock");
    EXPECT_EQ(txtEdit().Text(), Broken);
}

} // namespace

} // namespace quillon::test

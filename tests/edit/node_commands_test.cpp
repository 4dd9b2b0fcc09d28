#include "platform/ui/message_box.h"
#include "tests/support/headless_editor.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

using ui::message_answer::No;
using ui::message_answer::Yes;

class NodeCommandsTest : public HeadlessEditor {
protected:
    edit::NodeCreation &creation() { return editor().creation; }
    edit::NodeCommands &nodes() { return editor().nodeCommands; }
    QString selected() { return tree().SelectedItem().Text(); }
    /// The Node menu's states: expand, add element, add other, insert, up, down.
    QString nodeMenu() {
        const edit::NodeMenuStates s = nodes().mnuNode_Click();
        QString out;
        for (const bool on : {s.expand, s.addElement, s.addOther, s.insert, s.moveUp, s.moveDown})
            out += on ? '1' : '0';
        return out;
    }
    /// The Edit menu's states: paste, copy, cut, delete, rename, find.
    QString editMenu() {
        const edit::EditMenuStates s = nodes().mnuEdit_Click();
        QString out;
        for (const bool on : {s.paste, s.copy, s.cut, s.remove, s.rename, s.find})
            out += on ? '1' : '0';
        return out;
    }
};

TEST_F(NodeCommandsTest, NamesAreUniqueAmongTheCaptionsOfTheSiblings) {
    open("<r Element2='x'><Element1/><!--Comment1--></r>");
    EXPECT_EQ(creation().MakeUniqueName(item("r"), "Element"), "Element3");
    EXPECT_EQ(creation().MakeUniqueName(item("r"), "Comment"), "Comment2");
    EXPECT_EQ(creation().MakeUniqueName(item("r"), "element"), "element1");
    EXPECT_EQ(creation().MakeUniqueName(item("Element1"), "Element"), "Element1");
    editor().options.viewText = false;
    editor().builder.BuildTree(state().m_DOM, true);
    EXPECT_EQ(creation().MakeUniqueName(item("r"), "Comment"), "Comment1");
}

TEST_F(NodeCommandsTest, AnAddedElementIsPreviewedAtOnce) {
    open("<r/>");
    select("r");
    const QSignalSpy previewed(&editor().creation, &edit::NodeCreation::previewRequested);
    editor().creation.mnuNodeAddElement_Click();
    EXPECT_EQ(previewed.size(), 1);
}

TEST_F(NodeCommandsTest, CommandsThatDoNotApplyDoNothing) {
    const QByteArray before = "<r a='1'>t<x/></r>";
    open(before);
    const auto nothing = [&](const QString &caption, void (edit::NodeCreation::*command)()) {
        select(caption);
        (creation().*command)();
        EXPECT_EQ(xml(), before) << caption.toStdString();
        EXPECT_FALSE(state().m_Modified);
    };
    using C = edit::NodeCreation;
    for (const char *leaf : {"a=\"1\"", "t"}) {
        for (const auto command :
             {&C::mnuNodeAddElement_Click, &C::mnuNodeAddText_Click, &C::mnuNodeAddAttribute_Click,
              &C::mnuNodeAddComment_Click, &C::mnuNodeAddCDATA_Click})
            nothing(leaf, command);
    }
    nothing("#document", &C::mnuNodeAddText_Click);
    nothing("#document", &C::mnuNodeAddAttribute_Click);
    nothing("#document", &C::mnuNodeAddCDATA_Click);
    nothing("#document", &C::mnuNodeInsComment_Click);
    nothing("#document", &C::AddAttributeToParent);
    dialogs.answerMessage(ui::message_answer::Ok);
    nothing("#document", &C::mnuNodeAddElement_Click);
    dialogs.answerMessage(ui::message_answer::Ok);
    nothing("r", &C::mnuNodeInsElement_Click);
    state().m_ReadOnly = true;
    nothing("x", &C::mnuNodeAddElement_Click);
    nothing("x", &C::mnuNodeInsText_Click);
    nothing("t", &C::AddAttributeToParent);
    tree().setSelectedItem({});
    creation().mnuNodeAddElement_Click();
    creation().mnuNodeInsElement_Click();
    EXPECT_EQ(xml(), before);
}

TEST_F(NodeCommandsTest, WhatTheMenusOffer) {
    open("<!--c--><r a='1'>t<x/><y/></r>");
    const struct {
        const char *caption;
        const char *node;
        const char *edit;
        const char *readOnlyNode;
        const char *readOnlyEdit;
    } cases[] = {
        {"#document", "100000", "000001", "100000", "000001"},
        {"c", "000100", "011111", "000000", "010001"},
        {"r", "111100", "111111", "100000", "010001"},
        {"a=\"1\"", "000000", "011111", "000000", "010001"},
        {"t", "000101", "011111", "000000", "010001"},
        {"x", "011111", "111111", "000000", "010001"},
        {"y", "011110", "111111", "000000", "010001"},
    };
    for (const auto &c : cases) {
        select(c.caption);
        EXPECT_EQ(nodeMenu(), c.node) << c.caption;
        EXPECT_EQ(editMenu(), c.edit) << c.caption;
        state().m_ReadOnly = true;
        EXPECT_EQ(nodeMenu(), c.readOnlyNode) << c.caption;
        EXPECT_EQ(editMenu(), c.readOnlyEdit) << c.caption;
        state().m_ReadOnly = false;
    }
    tree().setSelectedItem({});
    EXPECT_EQ(nodeMenu(), "000000");
    EXPECT_EQ(editMenu(), "000001");
    editor().commands.mnuFileNew_Click();
    select("#document");
    EXPECT_EQ(nodeMenu(), "010000");
}

TEST_F(NodeCommandsTest, DeletingAsksAndSelectsTheNext) {
    open("<r a='1'>\n  <x/>\n  <y><z/></y>\n  <w/>\n</r>");
    select("#document");
    dialogs.answerMessage(ui::message_answer::Ok);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(dialogs.messages.back().text, "ルート要素は削除できません。");
    EXPECT_EQ(dialogs.messages.back().style, 48);
    select("y");
    const items::TreeItem z = item("z");
    dialogs.answerMessage(No);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(dialogs.messages.back().text, "削除してもよろしいですか？");
    EXPECT_EQ(dialogs.messages.back().style, 292);
    EXPECT_TRUE(item("y"));
    dialogs.answerMessage(Yes);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(xml(), "<r a='1'>\n  <x/>\n  <w/>\n</r>");
    EXPECT_EQ(selected(), "w");
    EXPECT_EQ(txtEdit().Text(), "<w/>");
    EXPECT_FALSE(editor().builder.registry().Item(z));
    select("a=\"1\"");
    dialogs.answerMessage(Yes);
    nodes().mnuEditDelete_Click();
    EXPECT_EQ(xml(), "<r>\n  <x/>\n  <w/>\n</r>");
    editor().history.UndoCommand();
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r a='1'>\n  <x/>\n  <y><z/></y>\n  <w/>\n</r>");
    state().m_ReadOnly = true;
    select("x");
    nodes().mnuEditDelete_Click();
    EXPECT_TRUE(item("x"));
}

TEST_F(NodeCommandsTest, TheClipboardCarriesMarkup) {
    open("<r a='1'><x k='\"'><!--c--></x></r>");
    clipboard.setText({});
    const struct {
        const char *caption;
        const char *text;
    } cases[] = {
        {"x", "<x k='\"'><!--c--></x>"},
        {"c", "<!--c-->"},
        {"a=\"1\"", "a='1'"},
        {"#document", "<r a='1'><x k='\"'><!--c--></x></r>"},
    };
    for (const auto &c : cases) {
        select(c.caption);
        nodes().mnuEditCopy_Click();
        EXPECT_EQ(clipboard.text(), c.text);
    }
    clipboard.setText("  <n/>  ");
    select("x");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(xml(), "<r a='1'><x k='\"'><!--c--><n/></x></r>");
    EXPECT_EQ(selected(), "n");
    EXPECT_TRUE(state().m_Modified);
    select("x");
    nodes().mnuEditCut_Click();
    EXPECT_EQ(xml(), "<r a='1'></r>");
    EXPECT_EQ(clipboard.text(), "<x k='\"'><!--c--><n/></x>");
    EXPECT_EQ(selected(), "r");
    nodes().mnuEditPaste_Click();
    EXPECT_TRUE(item("n"));
    select("a=\"1\"");
    const QByteArray now = xml();
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(xml(), now) << "an attribute takes no child";
    select("#document");
    nodes().mnuEditCut_Click();
    EXPECT_TRUE(state().m_DOM.documentElement());
}

TEST_F(NodeCommandsTest, PastingMarksTheDocumentWhenItChangesIt) {
    editor().options.viewText = false;
    open("<r a='1'><x/></r>");
    const auto paste = [&](const QString &caption, const QString &text) {
        clipboard.setText(text);
        select(caption);
        nodes().mnuEditPaste_Click();
        return std::exchange(state().m_Modified, false);
    };
    EXPECT_FALSE(paste("a", "<n/>"));
    EXPECT_FALSE(paste("r", "<?pi x?>"));
    EXPECT_FALSE(paste("#document", "text"));
    EXPECT_FALSE(paste("r", "a=\"1\""));
    EXPECT_FALSE(editor().history.CanUndo());
    // It has its item, so none is added.
    EXPECT_TRUE(paste("r", "a=\"2\""));
    EXPECT_EQ(selected(), "a");
    EXPECT_EQ(xml(), "<r a='2'><x/></r>");
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), "<r a='1'><x/></r>");
}

TEST_F(NodeCommandsTest, PastedTextLosesOnlyTheBlanksAroundIt) {
    open("<r/>");
    select("r");
    clipboard.setText("  \t a\tb \n ");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(state().m_DOM.documentElement().firstChild().nodeValue(), "\t a\tb \n");
}

TEST_F(NodeCommandsTest, ADocumentTypeStaysWhileItsEntitiesAreReferredTo) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<!DOCTYPE t [<!ENTITY e 'x'><!ENTITY f 'y'>]><r>&e;<a k='&f;'/></r>");
    clipboard.setText("before");
    const QByteArray before = xml();
    select("t");
    for (const auto command :
         {&edit::NodeCommands::mnuEditDelete_Click, &edit::NodeCommands::mnuEditCut_Click}) {
        dialogs.answerMessage(ui::message_answer::Ok);
        (nodes().*command)();
        EXPECT_EQ(dialogs.messages.back().text,
                  "ドキュメントの中で実体 e が参照されているため、\n文書型宣言を削除できません。");
        EXPECT_EQ(dialogs.messages.back().style, 48);
    }
    EXPECT_EQ(clipboard.text(), "before");
    EXPECT_EQ(xml(), before);
    EXPECT_TRUE(item("t"));
    EXPECT_FALSE(state().m_Modified);
    select("r");
    type("<r>&#38;<a k='&f;'/></r>");
    select("t");
    dialogs.answerMessage(ui::message_answer::Ok);
    nodes().mnuEditCut_Click();
    EXPECT_TRUE(dialogs.messages.back().text.contains(" f "));
    select("a");
    type("<a k='&lt;'/>");
    select("t");
    nodes().mnuEditCut_Click();
    EXPECT_EQ(xml(), "<r>&#38;<a k='&lt;'/></r>");
    // Each state that undoing and redoing lead to has both or neither.
    for (int i = 0; i < 3; ++i)
        editor().history.UndoCommand();
    EXPECT_EQ(xml(), before);
    for (int i = 0; i < 3; ++i)
        editor().history.RedoCommand();
    EXPECT_EQ(xml(), "<r>&#38;<a k='&lt;'/></r>");
}

TEST_F(NodeCommandsTest, AnEntityReferenceDoesNotMove) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<!DOCTYPE t [<!ENTITY e 'x'>]><r><a/>&e;<b/></r>");
    const QByteArray before = xml();
    for (const auto command :
         {&edit::NodeCommands::mnuNodeMoveUp_Click, &edit::NodeCommands::mnuNodeMoveDown_Click}) {
        tree().setSelectedItem(item("e"));
        dialogs.answerMessage(ui::message_answer::Ok);
        (nodes().*command)();
        EXPECT_EQ(dialogs.messages.back().text, "実体 e の参照は移動できません。");
    }
    EXPECT_EQ(xml(), before);
    EXPECT_EQ(captions(item("r")), QStringList({"a", "e", "b"}));
    EXPECT_FALSE(state().m_Modified);
    select("a");
    nodes().mnuNodeMoveDown_Click();
    EXPECT_EQ(xml(), "<!DOCTYPE t [<!ENTITY e 'x'>]><r>&e;<a/><b/></r>");
}

TEST_F(NodeCommandsTest, MovingKeepsTheLayoutAndOneUndoStepGoesBack) {
    const QByteArray before = "<r i='1'>\n  <a/>\n\n  <b>t</b>\n  <c/>\n</r>\n";
    open(before);
    select("b");
    nodes().mnuNodeMoveUp_Click();
    EXPECT_EQ(xml().toStdString(), "<r i='1'>\n  <b>t</b>\n  <a/>\n  <c/>\n</r>\n");
    EXPECT_EQ(selected(), "b");
    EXPECT_EQ(captions(item("r")), QStringList({"i=\"1\"", "b", "a", "c"}));
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), before);
    select("b");
    nodes().mnuNodeMoveDown_Click();
    EXPECT_EQ(xml().toStdString(), "<r i='1'>\n  <a/>\n  <c/>\n  <b>t</b>\n</r>\n");
    nodes().mnuNodeMoveDown_Click();
    EXPECT_EQ(captions(item("r")), QStringList({"i=\"1\"", "a", "c", "b"}));
    select("a");
    nodes().mnuNodeMoveDown_Click();
    EXPECT_EQ(captions(item("r")), QStringList({"i=\"1\"", "c", "a", "b"}));
    for (const char *fixed : {"r", "i=\"1\"", "#document"}) {
        select(fixed);
        const QByteArray now = xml();
        nodes().mnuNodeMoveUp_Click();
        nodes().mnuNodeMoveDown_Click();
        EXPECT_EQ(xml(), now);
    }
}

} // namespace

} // namespace quillon::test

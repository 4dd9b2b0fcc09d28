#include "tests/support/editor_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace quillon::test {

namespace {

using ui::message_answer::No;
using ui::message_answer::Yes;

class NodeCommandsTest : public EditorWindow {
protected:
    edit::NodeCreation &creation() { return editor().creation; }
    edit::NodeCommands &nodes() { return editor().nodeCommands; }
    QString selected() { return tree().SelectedItem().Text(); }
    QLineEdit *labelEditor() { return tvw().findChild<QLineEdit *>(); }
    void closeLabelEditor() {
        if (QLineEdit *line = labelEditor())
            QTest::keyClick(line, Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Types over the text in the label editor and confirms it.
    void label(const QString &before, const QString &after) {
        ASSERT_TRUE(labelEditor());
        EXPECT_EQ(labelEditor()->selectedText(), before);
        QTest::keyClicks(labelEditor(), after);
        QTest::keyClick(labelEditor(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void show() {
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        tvw().setFocus();
    }
    QString clipboard() { return QGuiApplication::clipboard()->text(); }
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

TEST_F(NodeCommandsTest, ADocumentIsBuiltFromNothingWithTheKeyboard) {
    show();
    QTest::keyClick(&tvw(), Qt::Key_N, Qt::ControlModifier);
    select("#document");
    form->actions().action(u"mnuNodeAddElement")->trigger();
    label("Element1", "order");
    QTest::keyClick(&tvw(), Qt::Key_A, Qt::ControlModifier);
    label("Attribute1", "id");
    EXPECT_EQ(selected(), "id=\"\"");
    type("1001");
    // With the attribute selected the key adds another one beside it.
    QTest::keyClick(&tvw(), Qt::Key_A, Qt::ControlModifier);
    closeLabelEditor();
    EXPECT_EQ(xml(), "<order id=\"1001\" Attribute1=\"\"/>");
    select("order");
    form->actions().action(u"mnuNodeAddText")->trigger();
    closeLabelEditor();
    EXPECT_EQ(xml(), "<order id=\"1001\" Attribute1=\"\">Text1</order>");
    QTest::keyClick(&tvw(), Qt::Key_E, Qt::ControlModifier | Qt::AltModifier);
    closeLabelEditor();
    QTest::keyClick(&tvw(), Qt::Key_K, Qt::ControlModifier | Qt::AltModifier);
    closeLabelEditor();
    QTest::keyClick(&tvw(), Qt::Key_T, Qt::ControlModifier | Qt::AltModifier);
    closeLabelEditor();
    EXPECT_EQ(captions(item("order")), QStringList({"id=\"1001\"", "Attribute1=\"\"", "Text2",
                                                    "Comment1", "Element1", "Text1"}));
    EXPECT_EQ(form->windowTitle(), "New XML File * - Quillon XML Editor");
    EXPECT_EQ(editor().history.CanUndo(), true);
}

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
    const quint32 sequence = item("z").sequence();
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
    EXPECT_FALSE(editor().builder.registry().Item(sequence));
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
    QGuiApplication::clipboard()->clear();
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
        EXPECT_EQ(clipboard(), c.text);
    }
    QGuiApplication::clipboard()->setText("  <n/>  ");
    select("x");
    nodes().mnuEditPaste_Click();
    EXPECT_EQ(xml(), "<r a='1'><x k='\"'><!--c--><n/></x></r>");
    EXPECT_EQ(selected(), "n");
    EXPECT_TRUE(state().m_Modified);
    select("x");
    nodes().mnuEditCut_Click();
    EXPECT_EQ(xml(), "<r a='1'></r>");
    EXPECT_EQ(clipboard(), "<x k='\"'><!--c--><n/></x>");
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
        QGuiApplication::clipboard()->setText(text);
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

TEST_F(NodeCommandsTest, ADocumentTypeStaysWhileItsEntitiesAreReferredTo) {
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<!DOCTYPE t [<!ENTITY e 'x'><!ENTITY f 'y'>]><r>&e;<a k='&f;'/></r>");
    QGuiApplication::clipboard()->setText("before");
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
    EXPECT_EQ(clipboard(), "before");
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

TEST_F(NodeCommandsTest, KeysBelongToWhatHasTheFocus) {
    show();
    open("<r><x/>text</r>");
    select("x");
    tvw().setFocus();
    QTest::keyClick(&tvw(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "<x/>");
    select("text");
    txtEdit().setFocus();
    QTest::keyClick(&txtEdit(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(txtEdit().SelLength(), 4);
    QTest::keyClick(&txtEdit(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "text");
    EXPECT_EQ(xml(), "<r><x/>text</r>") << "an emptied pane leaves the text";
    select("x");
    tvw().setFocus();
    dialogs.answerMessage(Yes);
    QTest::keyClick(&tvw(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_FALSE(item("x"));
    state().m_ReadOnly = true;
    select("r");
    QTest::keyClick(&tvw(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_TRUE(item("r"));
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

TEST_F(NodeCommandsTest, TheContextMenuBelongsToTheItemUnderIt) {
    show();
    open("<r a='1'><x/></r>");
    QMenu *menu = nullptr;
    Q_EMIT tvw().customContextMenuRequested(
        tvw().visualRect(tree().nodes().indexOf(item("a=\"1\""))).center());
    EXPECT_EQ(selected(), "a=\"1\"");
    EXPECT_EQ(txtEdit().Text(), "1");
    menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    QAction *toParent = form->actions().action(u"AddAttributeToParent");
    EXPECT_EQ(menu->actions().last(), toParent);
    EXPECT_TRUE(toParent->isVisible());
    EXPECT_FALSE(form->actions().action(u"mnuNodeAddElement")->isEnabled());
    toParent->trigger();
    menu->close();
    closeLabelEditor();
    EXPECT_EQ(xml(), "<r a='1' Attribute1=\"\"><x/></r>");
    Q_EMIT tvw().customContextMenuRequested(QPoint(5, tvw().height() - 5));
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST_F(NodeCommandsTest, TheRightButtonShowsAnItemOnce) {
    show();
    dialogs.answerMessage(ui::message_answer::Ok);
    open("<!DOCTYPE t [<!ENTITY e 'x'>]><r>&e;</r>");
    const QPoint place = tvw().visualRect(tree().nodes().indexOf(item("e"))).center();
    dialogs.answerMessage(ui::message_answer::Ok);
    QTest::mousePress(tvw().viewport(), Qt::RightButton, {}, place);
    Q_EMIT tvw().customContextMenuRequested(place);
    EXPECT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(dialogs.messages.back().text, "IXMLDOMEntityReference cannot modify");
    ASSERT_TRUE(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
    QTest::mouseRelease(tvw().viewport(), Qt::RightButton, {}, place);
}

} // namespace

} // namespace quillon::test

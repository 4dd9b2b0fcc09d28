#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace quillon::test {

namespace {

/// The commands on nodes as the keyboard and the context menu of a window give them.
class NodeCommandsWindow : public EditorWindow {
protected:
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
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get(), Patience));
        tvw().setFocus();
    }
    QString clipboard() { return QGuiApplication::clipboard()->text(); }
};

TEST_F(NodeCommandsWindow, ADocumentIsBuiltFromNothingWithTheKeyboard) {
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

TEST_F(NodeCommandsWindow, KeysBelongToWhatHasTheFocus) {
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
    dialogs.answerMessage(ui::message_answer::Yes);
    QTest::keyClick(&tvw(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_FALSE(item("x"));
    state().m_ReadOnly = true;
    select("r");
    QTest::keyClick(&tvw(), Qt::Key_X, Qt::ControlModifier);
    EXPECT_TRUE(item("r"));
}

TEST_F(NodeCommandsWindow, TheContextMenuBelongsToTheItemUnderIt) {
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
    EXPECT_TRUE(menu->actions().contains(toParent));
    EXPECT_TRUE(toParent->isVisible());
    EXPECT_FALSE(form->actions().action(u"mnuNodeAddElement")->isEnabled());
    toParent->trigger();
    menu->close();
    closeLabelEditor();
    EXPECT_EQ(xml(), "<r a='1' Attribute1=\"\"><x/></r>");
    Q_EMIT tvw().customContextMenuRequested(QPoint(5, tvw().height() - 5));
    EXPECT_FALSE(QApplication::activePopupWidget());
    // The program may have selected an item without showing it.
    tree().setSelectedItem(item("r"));
    Q_EMIT tvw().customContextMenuRequested(
        tvw().visualRect(tree().nodes().indexOf(item("r"))).center());
    ASSERT_TRUE(QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
    EXPECT_EQ(txtEdit().Text(), QString::fromUtf8(xml()));
}

TEST_F(NodeCommandsWindow, TheRightButtonShowsAnItemOnce) {
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

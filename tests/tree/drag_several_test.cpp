#include "tests/tree/drag_fixture.h"

namespace quillon::test {

namespace {

/// Dragging several nodes at once.
class DragSeveral : public DragTest {
protected:
    std::unique_ptr<QMimeData> startWith(const QStringList &captions) {
        tree().setSelectedItem({});
        for (const QString &caption : captions)
            tree().asUserGesture([&] { tree().toggleSelected(item(caption)); });
        // Pressing one of several selects nothing yet.
        Q_EMIT tree().mouseDown(item(captions.front()));
        return drag().tvw_OLEStartDrag().data;
    }
    QString selected() {
        QStringList captions;
        for (const items::TreeItem &item : tree().selectedItems())
            captions << item.Text();
        return captions.join(' ');
    }
};

TEST_F(DragSeveral, MoveWithinTheTreeAsOneStep) {
    openExpanded(Document);
    const auto data = startWith({"#comment", "1", "items", "item"});
    EXPECT_EQ(data->text(), "<item>1</item>\n<items/>\n<!--c-->");
    EXPECT_EQ(hover(item("in"), *data, None), Qt::MoveAction);
    EXPECT_EQ(selected(), "in");
    EXPECT_EQ(hover(item("items"), *data, None), Qt::IgnoreAction);
    EXPECT_EQ(hover(item("doc"), *data, Ctrl), Qt::CopyAction);
    hover(item("in"), *data, None);
    const Qt::DropAction done = drop(item("in"), *data, None);
    EXPECT_EQ(done, Qt::MoveAction);
    drag().tvw_OLECompleteDrag(done);
    QCoreApplication::processEvents();
    EXPECT_EQ(xml(), "<doc><other><in><item>1</item><items/><!--c--></in></other></doc>");
    EXPECT_EQ(txtEdit().Text(), "<in><item>1</item><items/><!--c--></in>");
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), Document);
    EXPECT_FALSE(editor().history.CanUndo());
}

TEST_F(DragSeveral, ADragThatComesToNothingLeavesAllSelected) {
    openExpanded(Document);
    for (const bool refused : {false, true}) {
        const auto data = startWith({"items", "in"});
        hover(item("item"), *data, None);
        EXPECT_EQ(selected(), "item");
        if (refused) {
            EXPECT_EQ(drop(item("items"), *data, None), Qt::IgnoreAction);
        }
        drag().tvw_OLECompleteDrag(Qt::IgnoreAction);
        EXPECT_EQ(selected(), "items in");
    }
    // A press on what is not selected takes that alone.
    startWith({"items", "in"});
    Q_EMIT tree().mouseDown(item("other"));
    EXPECT_EQ(drag().tvw_OLEStartDrag().data->text(), "<other><in/></other>");
}

TEST_F(DragSeveral, AnElementTakesNoneOfItsOwnAttributes) {
    openExpanded("<doc><a i='1'/><b j='2'/><c/></doc>");
    const auto data = startWith({"i", "j"});
    EXPECT_EQ(hover(item("b"), *data, None), Qt::IgnoreAction);
    const Qt::DropAction done = drop(item("c"), *data, None);
    drag().tvw_OLECompleteDrag(done);
    EXPECT_EQ(xml(), "<doc><a/><b/><c i='1' j='2'/></doc>");
}

TEST_F(DragSeveral, WhatIsRefusedLeavesThemAll) {
    openExpanded("<doc><a/><?p?><b/></doc>");
    const QByteArray before = xml();
    const auto data = startWith({"a", "p"});
    dialogs.answerMessage(ui::message_answer::Ok);
    const Qt::DropAction done = drop(item("b"), *data, None);
    drag().tvw_OLECompleteDrag(done);
    EXPECT_EQ(done, Qt::IgnoreAction);
    EXPECT_EQ(xml(), before);
    EXPECT_EQ(selected(), "a p");
}

TEST_F(DragSeveral, GoToAnotherWindowOnceItHasTakenThem) {
    openExpanded(Document);
    const auto other = makeWindow();
    ASSERT_TRUE(other->editor.loader.OpenFile(write("other.xml", "<b><one/></b>")));
    items::Tree &target = other->editor.tree;
    const items::DragPoint one{target.nodes().Item(3), None, Qt::MoveAction, Qt::MoveAction};
    for (const bool refused : {true, false}) {
        SCOPED_TRACE(refused);
        other->editor.state.m_ReadOnly = refused;
        const auto data = startWith({"items", "item", "in"});
        target.dragHandlers.enter(*data);
        drag().tvw_OLECompleteDrag(Qt::MoveAction);
        EXPECT_EQ(xml(), Document);
        target.dragHandlers.drop(one, *data);
        QCoreApplication::processEvents();
        EXPECT_EQ(xml() == Document, refused);
        EXPECT_EQ(status(), refused ? "3 個のノードを選択しています。" : "");
    }
    EXPECT_EQ(xml(), "<doc><other></other><!--c--></doc>");
    EXPECT_EQ(other->editor.state.m_DOM.xml(), "<b><one><item>1</item><items/><in/></one></b>");
    editor().history.UndoCommand();
    EXPECT_EQ(xml(), Document);
    other->editor.history.UndoCommand();
    EXPECT_EQ(other->editor.state.m_DOM.xml(), "<b><one/></b>");
}

TEST_F(DragSeveral, AnOlderWindowGetsText) {
    openExpanded(Document);
    const auto several = startWith({"items", "item"});
    EXPECT_EQ(several->formats().first(), tree::NodesFormat);
    EXPECT_FALSE(several->hasFormat(tree::NodeFormat));
    EXPECT_TRUE(startWith({"item"})->hasFormat(tree::NodeFormat));
    // What claims to be nodes and is not is taken as the text beside it.
    for (const char *packed :
         {"<quillon-nodes version='1'><a/></quillon-nodes>", "<quillon-nodes version='1'/>",
          "<quillon-nodes version='2'/>", "<other/>"}) {
        QMimeData data;
        data.setText("<seen/>");
        data.setData(tree::NodesFormat, packed);
        openExpanded("<doc/>");
        drop(item("doc"), data, Ctrl);
        EXPECT_EQ(xml(), "<doc>\n  <seen/>\n</doc>") << packed;
        state().m_Modified = false;
    }
}

} // namespace

} // namespace quillon::test

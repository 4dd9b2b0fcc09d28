#include "tests/tree/drag_fixture.h"

#include <QSignalSpy>

namespace quillon::test {

namespace {

const QByteArray WithEntity = "<!DOCTYPE t [<!ENTITY e 'x'>]><doc><a/>&e;</doc>";

TEST_F(DragTest, ADocumentTypeThatIsNeededStaysThoughItWasDraggedAway) {
    dialogs.answerMessage(ui::message_answer::Ok);
    openExpanded(WithEntity);
    const auto data = start("t");
    dialogs.answerMessage(ui::message_answer::Ok);
    drag().tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_TRUE(dialogs.messages.back().text.contains("実体 e "));
    EXPECT_EQ(xml(), WithEntity);
    EXPECT_TRUE(item("t"));
    EXPECT_FALSE(state().m_Modified);
}

TEST_F(DragTest, MovesAndCopiesWithinTheTree) {
    struct Case {
        const char *source, *target;
        Qt::KeyboardModifiers keys;
        Qt::DropAction action;
        const char *xml;
    };
    const Case cases[] = {
        {"item", "other", None, Qt::MoveAction,
         "<doc><items/><other><in/><item>1</item></other><!--c--></doc>"},
        {"item", "other", Ctrl, Qt::CopyAction,
         "<doc><item>1</item><items/><other><in/><item>1</item></other><!--c--></doc>"},
        // Over the target only Ctrl alone says copy, at the drop Ctrl does with other keys, too.
        {"item", "other", CtrlShift, Qt::CopyAction,
         "<doc><item>1</item><items/><other><in/><item>1</item></other><!--c--></doc>"},
        {"in", "items", Qt::ShiftModifier, Qt::MoveAction,
         "<doc><item>1</item><items><in/></items><other></other><!--c--></doc>"},
        {"other", "doc", None, Qt::MoveAction,
         "<doc><item>1</item><items/><!--c--><other><in/></other></doc>"},
        // An element takes what its name merely begins with, in this direction.
        {"items", "item", None, Qt::MoveAction,
         "<doc><item>1<items/></item><other><in/></other><!--c--></doc>"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.source << " to " << c.target);
        openExpanded(Document);
        EXPECT_EQ(dragTo(c.source, c.target, c.keys), c.action);
        EXPECT_EQ(xml(), c.xml);
        EXPECT_TRUE(state().m_Modified);
        state().m_Modified = false;
    }
    editor().commands.DocumentModified();
}

TEST_F(DragTest, AMoveIsUndoneAndRedone) {
    openExpanded(Document);
    const QString key = item("item").Key();
    dragTo("item", "other", None);
    EXPECT_NE(item("item").Key(), key);
    EXPECT_EQ(item("item").Parent().Text(), QString("other"));
    const QByteArray moved = xml();
    while (editor().history.CanUndo())
        editor().history.UndoCommand();
    EXPECT_EQ(xml(), Document);
    while (editor().history.CanRedo())
        editor().history.RedoCommand();
    EXPECT_EQ(xml(), moved);
}

TEST_F(DragTest, RefusesWhileHovering) {
    openExpanded("<doc a=\"1\"><item><in/></item><items/><?pi x?><!--c--><last>t</last></doc>");
    struct Case {
        const char *dragged, *over;
        Qt::DropAction plain, ctrl;
    };
    const Case cases[] = {
        {"item", "item", Qt::IgnoreAction, Qt::IgnoreAction},
        {"item", "in", Qt::IgnoreAction, Qt::IgnoreAction},
        {"item", "items", Qt::IgnoreAction, Qt::IgnoreAction},
        {"items", "item", Qt::MoveAction, Qt::CopyAction},
        {"item", "doc", Qt::MoveAction, Qt::CopyAction},
        {"item", "last", Qt::MoveAction, Qt::CopyAction},
        {"in", "last", Qt::MoveAction, Qt::CopyAction},
        // Elements only, not even the document.
        {"item", "a", Qt::IgnoreAction, Qt::IgnoreAction},
        {"item", "pi", Qt::IgnoreAction, Qt::IgnoreAction},
        {"item", "#comment", Qt::IgnoreAction, Qt::IgnoreAction},
        {"item", "#text", Qt::IgnoreAction, Qt::IgnoreAction},
        {"item", "#document", Qt::IgnoreAction, Qt::IgnoreAction},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.dragged << " over " << c.over);
        const auto data = start(c.dragged);
        EXPECT_EQ(hover(item(c.over), *data, None), c.plain);
        EXPECT_EQ(hover(item(c.over), *data, Ctrl), c.ctrl);
        EXPECT_EQ(hover(item(c.over), *data, CtrlShift), c.plain);
        EXPECT_EQ(tree().SelectedItem().Text(), QString(c.over));
        drag().tvw_OLECompleteDrag(Qt::IgnoreAction);
    }
    // The same rule at the drop itself; nothing is inserted and nothing taken away.
    const QByteArray before = xml();
    for (const char *target : {"item", "in", "items"}) {
        const auto data = start("item");
        drag().tvw_OLECompleteDrag(drop(item(target), *data, None));
        EXPECT_EQ(xml(), before);
    }
    EXPECT_FALSE(state().m_Modified);
}

TEST_F(DragTest, HoveringSelectsWithoutFillingThePane) {
    openExpanded(Document);
    select("item");
    const QString shown = txtEdit().Text();
    const QSignalSpy clicks(&tree(), &items::Tree::NodeClick);
    hover(item("other"), *textData("<x/>"), None);
    EXPECT_EQ(tree().SelectedItem().Text(), QString("other"));
    EXPECT_EQ(txtEdit().Text(), shown);
    EXPECT_EQ(clicks.count(), 0);
    // Beside the items nothing changes, and the source's wish stands.
    EXPECT_EQ(hover(Beside, *textData("<x/>"), None, Qt::CopyAction), Qt::CopyAction);
    EXPECT_EQ(tree().SelectedItem().Text(), QString("other"));
}

TEST_F(DragTest, WhatIsNotInsertedStaysAtItsSource) {
    struct Case {
        const char *source, *target;
    };
    const QByteArray text = "<doc><?pi x?><a k=\"1\"/><b k=\"2\"/></doc>";
    const Case cases[] = {{"pi", "a"}, {"b", "#document"}, {"a", "k"}};
    // The second one is told.
    dialogs.answerMessage(ui::message_answer::Ok);
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.source << " to " << c.target);
        openExpanded(text);
        const auto data = start(c.source);
        const Qt::DropAction action = drop(item(c.target), *data, None);
        EXPECT_EQ(action, Qt::IgnoreAction);
        drag().tvw_OLECompleteDrag(action);
        EXPECT_EQ(xml(), text);
        EXPECT_FALSE(state().m_Modified);
    }
    // An error on the way is shown, and counts as a refusal.
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_EQ(drop(item("a"), *textData("1=\"x\""), None), Qt::IgnoreAction);
    EXPECT_EQ(xml(), text);
}

TEST_F(DragTest, AnAttributeIsNotDroppedOnItsOwnElement) {
    openExpanded("<doc><a k=\"1\"/><b k=\"2\"/></doc>");
    for (const Qt::KeyboardModifiers keys : {None, Ctrl}) {
        const auto data = start("k");
        EXPECT_EQ(hover(item("a"), *data, keys), Qt::IgnoreAction);
        drag().tvw_OLECompleteDrag(drop(item("a"), *data, keys));
        EXPECT_EQ(xml(), "<doc><a k=\"1\"/><b k=\"2\"/></doc>");
    }
    const auto data = start("k");
    EXPECT_EQ(hover(item("doc"), *data, None), Qt::MoveAction);
    drag().tvw_OLECompleteDrag(drop(item("doc"), *data, None));
    EXPECT_EQ(xml(), "<doc k=\"1\"><a/><b k=\"2\"/></doc>");
}

TEST_F(DragTest, ADragThatComesToNothingLeavesTheSelection) {
    openExpanded(Document);
    const auto data = start("item");
    hover(item("other"), *data, None);
    ASSERT_EQ(tree().SelectedItem(), item("other"));
    tree().dragHandlers.leave();
    EXPECT_EQ(tree().SelectedItem(), item("item"));
    hover(item("other"), *data, None);
    drag().tvw_OLECompleteDrag(Qt::IgnoreAction);
    EXPECT_EQ(tree().SelectedItem(), item("item"));

    // From elsewhere, and refused at last.
    EXPECT_EQ(drop(item("other"), *textData("<?pi x?>"), None), Qt::IgnoreAction);
    hover(item("other"), *textData("<?pi x?>"), None);
    EXPECT_EQ(drop(item("other"), *textData("<?pi x?>"), None), Qt::IgnoreAction);
    EXPECT_EQ(tree().SelectedItem(), item("item"));
    // What is taken stays where the user has looked last.
    hover(item("other"), *textData("<x/>"), None);
    drop(item("other"), *textData("<x/>"), None);
    EXPECT_EQ(tree().SelectedItem(), item("other"));
}

TEST_F(DragTest, OffersTheNodePressedLast) {
    openExpanded(Document);
    EXPECT_EQ(drag().tvw_OLEStartDrag().data, nullptr);
    press("item");
    Q_EMIT tree().mouseDown(Beside);

    const auto data = drag().tvw_OLEStartDrag().data;
    EXPECT_TRUE(data->hasFormat("text/plain"));
    // The drop may be told of before its text is asked for: by then the move is complete.
    drag().tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_FALSE(xml().contains("<item>"));
    EXPECT_EQ(data->text(), QString("<item>1</item>"));
    EXPECT_EQ(data->data("text/plain"), "<item>1</item>");
    EXPECT_EQ(drag().tvw_OLEStartDrag().data, nullptr);
}

// Over another process the desktop reports what was said while hovering, not what the drop did.
TEST_F(DragTest, AMoveToAnotherWindowWaitsForItsConfirmation) {
    openExpanded(Document);
    const auto other = makeWindow();
    ASSERT_TRUE(other->editor.loader.OpenFile(write("other.xml", "<b><one/></b>")));
    items::Tree &target = other->editor.tree;
    const items::DragPoint one{target.nodes().Item(3), None, Qt::MoveAction, Qt::MoveAction};

    for (const bool refused : {true, false}) {
        SCOPED_TRACE(refused);
        other->editor.state.m_ReadOnly = refused;
        const auto data = start("item");
        target.dragHandlers.enter(*data);
        drag().tvw_OLECompleteDrag(Qt::MoveAction);
        EXPECT_TRUE(item("item"));
        EXPECT_EQ(target.dragHandlers.drop(one, *data),
                  refused ? Qt::IgnoreAction : Qt::MoveAction);
        QCoreApplication::processEvents();
        EXPECT_EQ(!item("item"), !refused);
    }
    EXPECT_EQ(other->editor.state.m_DOM.xml(), "<b><one><item>1</item></one></b>");
    EXPECT_EQ(txtEdit().utf8(), editor().selection.GetSelectedDOMNode().xml());

    // A drag that has been there and comes back.
    const auto data = start("items");
    target.dragHandlers.enter(*data);
    drag().tvw_OLECompleteDrag(drop(item("other"), *data, None));
    EXPECT_EQ(xml(), "<doc><other><in/><items/></other><!--c--></doc>");
}

} // namespace

} // namespace quillon::test

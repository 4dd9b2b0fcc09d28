#include "platform/ui/message_box.h"
#include "tests/support/editor_window.h"
#include "tree/drag_and_drop.h"
#include "tree/node_transfer.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include <cstdio>
#include <unistd.h>

using namespace quillon;
using items::TreeItem;

namespace {

constexpr Qt::KeyboardModifiers None = Qt::NoModifier;
constexpr Qt::KeyboardModifiers Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

std::unique_ptr<QMimeData> textData(const QString &text) {
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    return data;
}

std::unique_ptr<QMimeData> fileData(const QStringList &paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data->setUrls(urls);
    return data;
}

/// The tree of a real window with a drag source of its own: dragging is done by the events that
/// the desktop sends.
class Drag : public test::EditorWindow {
protected:
    Drag() {
        editor().tree.dragHandlers = drag.handlers();
        QObject::connect(&editor().tree, &items::Tree::mouseDown, &drag,
                         &tree::DragAndDrop::takeMouseDown);
        QObject::connect(&drag, &tree::DragAndDrop::documentModified, &drag,
                         [this] { editor().commands.DocumentModified(); });
        QObject::connect(&drag, &tree::DragAndDrop::openFileRequested, &drag,
                         [this](const QString &file) {
                             if (form->OpenFile(file))
                                 form->UpdateStatus(file);
                         });
        QObject::connect(&drag, &tree::DragAndDrop::loadXmlRequested, &drag,
                         [this](const QString &text) { editor().loader.LoadXML(text); });
        editor().options.viewText = false;
        form->show();
        QApplication::processEvents();
    }

    void openExpanded(const QByteArray &text) {
        open(text);
        editor().builder.ExpandSubtree(tree().nodes().Item(1));
        QApplication::processEvents();
    }
    /// Presses an item, as a drag of it begins.
    void press(const QString &caption, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(tvw().viewport(), button, None, placeOf(caption));
        QTest::mouseRelease(tvw().viewport(), button, None, placeOf(caption));
    }
    std::unique_ptr<QMimeData> start(const QString &caption) {
        press(caption);
        return drag.tvw_OLEStartDrag().data;
    }
    QPoint placeOf(const QString &caption) {
        tvw().doItemsLayout();
        const QRect rect = tvw().visualRect(tree().nodes().indexOf(item(caption)));
        EXPECT_TRUE(rect.isValid()) << caption.toStdString();
        return rect.topLeft() + QPoint(25, rect.height() / 2);
    }
    QPoint beside() { return {5, tvw().viewport()->height() - 30}; }

    /// Qt sends a widget nothing of a drag that it has not seen enter.
    void enter(const QPoint &at, const QMimeData &data, Qt::DropActions possible) {
        QDragEnterEvent event(at, possible, &data, Qt::LeftButton, None);
        QApplication::sendEvent(tvw().viewport(), &event);
        EXPECT_TRUE(event.isAccepted());
    }
    Qt::DropAction hover(const QPoint &at, const QMimeData &data, Qt::KeyboardModifiers keys,
                         Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction) {
        enter(at, data, possible);
        QDragMoveEvent move(at, possible, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(tvw().viewport(), &move);
        return move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction drop(const QPoint &at, const QMimeData &data, Qt::KeyboardModifiers keys,
                        Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction) {
        enter(at, data, possible);
        QDropEvent event(at, possible, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(tvw().viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    /// A whole drag within the tree; the pointer first crosses the target.
    Qt::DropAction dragTo(const QString &source, const QString &target,
                          Qt::KeyboardModifiers keys) {
        const auto data = start(source);
        Qt::DropAction action = hover(placeOf(target), *data, keys);
        if (action != Qt::IgnoreAction)
            action = drop(placeOf(target), *data, keys);
        drag.tvw_OLECompleteDrag(action);
        EXPECT_FALSE(drag.m_nodDrag);
        return action;
    }

    tree::DragAndDrop drag{state(), editor().builder, editor().nodeInsertion, editor().removal,
                           tree()};
};

const QByteArray WithEntity = "<!DOCTYPE t [<!ENTITY e 'x'>]><doc><a/>&e;</doc>";
const QByteArray Document = "<doc><item>1</item><items/><other><in/></other><!--c--></doc>";

TEST_F(Drag, ADocumentTypeThatIsNeededStaysThoughItWasDraggedAway) {
    dialogs.answerMessage(ui::message_answer::Ok);
    openExpanded(WithEntity);
    const auto data = start("t");
    dialogs.answerMessage(ui::message_answer::Ok);
    drag.tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_TRUE(dialogs.messages.back().text.contains("実体 e "));
    EXPECT_EQ(xml(), WithEntity);
    EXPECT_TRUE(item("t"));
    EXPECT_FALSE(state().m_Modified);
}

TEST_F(Drag, MovesAndCopiesWithinTheTree) {
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

TEST_F(Drag, AMoveIsUndoneAndRedone) {
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

TEST_F(Drag, RefusesWhileHovering) {
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
        EXPECT_EQ(hover(placeOf(c.over), *data, None), c.plain);
        EXPECT_EQ(hover(placeOf(c.over), *data, Ctrl), c.ctrl);
        EXPECT_EQ(hover(placeOf(c.over), *data, CtrlShift), c.plain);
        EXPECT_EQ(tree().SelectedItem().Text(), QString(c.over));
        drag.tvw_OLECompleteDrag(Qt::IgnoreAction);
    }
    // The same rule at the drop itself; nothing is inserted and nothing taken away.
    const QByteArray before = xml();
    for (const char *target : {"item", "in", "items"}) {
        const auto data = start("item");
        drag.tvw_OLECompleteDrag(drop(placeOf(target), *data, None));
        EXPECT_EQ(xml(), before);
    }
    EXPECT_FALSE(state().m_Modified);
}

TEST_F(Drag, HoveringSelectsWithoutFillingThePane) {
    openExpanded(Document);
    select("item");
    const QString shown = txtEdit().Text();
    const QSignalSpy clicks(&tree(), &items::Tree::NodeClick);
    hover(placeOf("other"), *textData("<x/>"), None);
    EXPECT_EQ(tree().SelectedItem().Text(), QString("other"));
    EXPECT_EQ(txtEdit().Text(), shown);
    EXPECT_EQ(clicks.count(), 0);
    // Beside the items nothing changes, and the source's wish stands.
    EXPECT_EQ(hover(beside(), *textData("<x/>"), None, Qt::CopyAction), Qt::CopyAction);
    EXPECT_EQ(tree().SelectedItem().Text(), QString("other"));
}

TEST_F(Drag, ReadOnlyDocumentsTakeNothing) {
    openExpanded(Document);
    select("item");
    state().m_ReadOnly = true;
    EXPECT_EQ(hover(placeOf("other"), *textData("<x/>"), None), Qt::IgnoreAction);
    EXPECT_EQ(tree().SelectedItem().Text(), QString("item"));
    EXPECT_EQ(drop(placeOf("other"), *textData("<x/>"), None), Qt::IgnoreAction);
    EXPECT_EQ(xml(), Document);
}

TEST_F(Drag, TakesTextAndFilesFromElsewhere) {
    const QString good = write("good.xml", "<?xml version=\"1.0\"?>\n<root>\n  <k/>\n</root>");
    const QString bad = write("bad.xml", "<root>");
    auto both = fileData({good});
    both->setText("good.xml");
    auto remote = textData("<seen/>");
    remote->setUrls({QUrl("http://localhost/a.xml")});

    struct Case {
        std::unique_ptr<QMimeData> data;
        const char *inside;
    };
    std::vector<Case> cases;
    cases.push_back({textData("<x><y/></x>"), "<x><y/></x>"});
    cases.push_back({textData("a < b"), "a &lt; b"});
    cases.push_back({fileData({good, bad}), "<root>\n  <k/>\n</root>"});
    cases.push_back({std::move(both), "<root>\n  <k/>\n</root>"});
    cases.push_back({std::move(remote), "<seen/>"});
    for (const Case &c : cases) {
        openExpanded("<doc><to/></doc>");
        EXPECT_EQ(drop(placeOf("to"), *c.data, Ctrl), Qt::CopyAction);
        EXPECT_EQ(xml(), QByteArray("<doc><to>") + c.inside + "</to></doc>");
        state().m_Modified = false;
    }
    // A file that does not parse gives empty text, which is a node like any other text.
    openExpanded("<doc><to/></doc>");
    EXPECT_EQ(drop(placeOf("to"), *fileData({bad}), None), Qt::CopyAction);
    EXPECT_EQ(captions(item("to")), QStringList("#text"));
}

TEST_F(Drag, ADropBesideTheItemsGoesToTheSelectedOne) {
    openExpanded("<doc><to/></doc>");
    select("to");
    EXPECT_EQ(drop(beside(), *textData("<x/>"), None), Qt::MoveAction);
    EXPECT_EQ(xml(), "<doc><to><x/></to></doc>");
    // The document takes comments, but no second root element.
    EXPECT_EQ(drop(placeOf("#document"), *textData("<!--c-->"), None), Qt::MoveAction);
    EXPECT_EQ(xml(), "<doc><to><x/></to></doc>\n<!--c-->");
}

TEST_F(Drag, WhatIsNotInsertedStaysAtItsSource) {
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
        const Qt::DropAction action = drop(placeOf(c.target), *data, None);
        EXPECT_EQ(action, Qt::IgnoreAction);
        drag.tvw_OLECompleteDrag(action);
        EXPECT_EQ(xml(), text);
        EXPECT_FALSE(state().m_Modified);
    }
    // An error on the way is shown, and counts as a refusal.
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_EQ(drop(placeOf("a"), *textData("1=\"x\""), None), Qt::IgnoreAction);
    EXPECT_EQ(xml(), text);
}

TEST_F(Drag, AnAttributeIsNotDroppedOnItsOwnElement) {
    openExpanded("<doc><a k=\"1\"/><b k=\"2\"/></doc>");
    for (const Qt::KeyboardModifiers keys : {None, Ctrl}) {
        const auto data = start("k");
        EXPECT_EQ(hover(placeOf("a"), *data, keys), Qt::IgnoreAction);
        drag.tvw_OLECompleteDrag(drop(placeOf("a"), *data, keys));
        EXPECT_EQ(xml(), "<doc><a k=\"1\"/><b k=\"2\"/></doc>");
    }
    const auto data = start("k");
    EXPECT_EQ(hover(placeOf("doc"), *data, None), Qt::MoveAction);
    drag.tvw_OLECompleteDrag(drop(placeOf("doc"), *data, None));
    EXPECT_EQ(xml(), "<doc k=\"1\"><a/><b k=\"2\"/></doc>");
}

TEST_F(Drag, NothingIsMovedFromWhereItMayNotBe) {
    openExpanded(Document);
    const auto text = textData("<x/>");
    const QString file = write("file.xml", "<x/>");
    const auto actions = [&](const QMimeData &data, Qt::DropActions possible) {
        const Qt::DropAction over = hover(placeOf("other"), data, None, possible);
        return std::pair(over, drop(placeOf("other"), data, None, possible));
    };
    const std::pair copy(Qt::CopyAction, Qt::CopyAction);
    EXPECT_EQ(actions(*text, Qt::CopyAction | Qt::LinkAction), copy);
    EXPECT_EQ(actions(*fileData({file}), Qt::CopyAction | Qt::MoveAction), copy);
    EXPECT_EQ(hover(beside(), *fileData({file}), None), Qt::CopyAction);
    EXPECT_EQ(hover(placeOf("other"), *text, None, Qt::LinkAction), Qt::IgnoreAction);

    // A document that may not be changed gives copies away, whatever the target says.
    press("item");
    EXPECT_EQ(drag.tvw_OLEStartDrag().actions, Qt::CopyAction | Qt::MoveAction);
    state().m_ReadOnly = true;
    EXPECT_EQ(drag.tvw_OLEStartDrag().actions, Qt::DropActions(Qt::CopyAction));
    const QByteArray before = xml();
    drag.tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_EQ(xml(), before);

    // Nor does a reference, which cannot be deleted, go away.
    state().m_ReadOnly = false;
    dialogs.answerMessage(ui::message_answer::Ok);
    openExpanded("<!DOCTYPE r [<!ENTITY e 'E'>]><r>&e;<other/></r>");
    dialogs.answerMessage(ui::message_answer::Ok);
    press("e");
    EXPECT_EQ(drag.tvw_OLEStartDrag().actions, Qt::DropActions(Qt::CopyAction));
    drag.tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_TRUE(item("e"));
}

TEST_F(Drag, ADragThatComesToNothingLeavesTheSelection) {
    openExpanded(Document);
    const auto data = start("item");
    hover(placeOf("other"), *data, None);
    ASSERT_EQ(tree().SelectedItem(), item("other"));
    QDragLeaveEvent leave;
    QApplication::sendEvent(tvw().viewport(), &leave);
    EXPECT_EQ(tree().SelectedItem(), item("item"));
    hover(placeOf("other"), *data, None);
    drag.tvw_OLECompleteDrag(Qt::IgnoreAction);
    EXPECT_EQ(tree().SelectedItem(), item("item"));

    // From elsewhere, and refused at last.
    EXPECT_EQ(drop(placeOf("other"), *textData("<?pi x?>"), None), Qt::IgnoreAction);
    hover(placeOf("other"), *textData("<?pi x?>"), None);
    EXPECT_EQ(drop(placeOf("other"), *textData("<?pi x?>"), None), Qt::IgnoreAction);
    EXPECT_EQ(tree().SelectedItem(), item("item"));
    // What is taken stays where the user has looked last.
    hover(placeOf("other"), *textData("<x/>"), None);
    drop(placeOf("other"), *textData("<x/>"), None);
    EXPECT_EQ(tree().SelectedItem(), item("other"));
}

TEST_F(Drag, DataOfNoUseIsNoDrop) {
    openExpanded(Document);
    QMimeData picture;
    picture.setData("image/png", "png");
    QMimeData address;
    address.setUrls({QUrl("http://localhost/a.xml")});
    QMimeData tooLarge;
    tooLarge.setData(tree::NodeFormat, "");
    tooLarge.setText("");
    for (const QMimeData *data : {&picture, &address})
        EXPECT_EQ(hover(placeOf("other"), *data, None), Qt::IgnoreAction);
    for (const QMimeData *data : {&picture, &address, &tooLarge}) {
        EXPECT_EQ(drop(placeOf("other"), *data, None), Qt::IgnoreAction);
    }
    EXPECT_EQ(xml(), Document);
}

TEST_F(Drag, ANodeIsNoTypingInThePane) {
    openExpanded(Document);
    select("other");
    const auto send = [&](const QMimeData &data) {
        const QPoint at(20, 5);
        QDragEnterEvent entering(at, Qt::CopyAction, &data, Qt::LeftButton, None);
        QApplication::sendEvent(txtEdit().viewport(), &entering);
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, None);
        QApplication::sendEvent(txtEdit().viewport(), &dropped);
        return entering.isAccepted();
    };
    EXPECT_FALSE(send(*start("item")));
    select("other");
    EXPECT_EQ(txtEdit().utf8(), "<other><in/></other>");
    EXPECT_TRUE(send(*textData("text")));
    EXPECT_TRUE(txtEdit().utf8().contains("text"));
}

TEST_F(Drag, DroppedFilesNeedNotHaveUtf8NamesAndMustBeFiles) {
    const QByteArray name = folder.path().toUtf8() + "/\x95\x5c.xml";
    ASSERT_TRUE(QFile::rename(write("made.xml", "<root/>"), path("renamed.xml")));
    ASSERT_EQ(::rename(path("renamed.xml").toUtf8().constData(), name.constData()), 0);
    QMimeData data;
    data.setData("text/uri-list", "file://" + name.toPercentEncoding("/") + "\r\n");
    EXPECT_NE(drop(beside(), data, Ctrl), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<root/>");
    EXPECT_EQ(::unlink(name.constData()), 0);
    dialogs.answerMessage(ui::message_answer::Ok);
    drop(placeOf("root"), *fileData({QString("/dev/zero")}), None);
    EXPECT_TRUE(dialogs.messages.back().text.contains("/dev/zero"));
    EXPECT_EQ(xml(), "<root/>");
}

TEST_F(Drag, OpensWhatIsDroppedWhileNoDocumentIsOpen) {
    const QString file = write("dropped.xml", "<root/>");
    EXPECT_EQ(hover(beside(), *fileData({file}), None, Qt::CopyAction), Qt::CopyAction);
    EXPECT_NE(drop(beside(), *fileData({file}), Ctrl), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<root/>");
    EXPECT_EQ(state().m_FileName, file);

    editor().commands.mnuFileClose_Click();
    ASSERT_FALSE(state().m_DOM);
    EXPECT_NE(drop(beside(), *textData("<text/>"), Ctrl), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<text/>");

    // One that cannot be opened leaves the window as empty as it was.
    editor().commands.mnuFileClose_Click();
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_EQ(drop(beside(), *fileData({write("broken.xml", "<root")}), None), Qt::IgnoreAction);
    EXPECT_NE(drop(beside(), *fileData({file}), None), Qt::IgnoreAction);
    EXPECT_EQ(xml(), "<root/>");
    EXPECT_EQ(state().m_FileName, file);
}

TEST_F(Drag, OffersTheNodePressedLast) {
    openExpanded(Document);
    EXPECT_EQ(drag.tvw_OLEStartDrag().data, nullptr);
    press("item", Qt::RightButton);
    EXPECT_EQ(drag.m_nodDown, item("item"));
    QTest::mousePress(tvw().viewport(), Qt::LeftButton, None, beside());
    EXPECT_EQ(drag.m_nodDown, item("item"));

    const auto data = drag.tvw_OLEStartDrag().data;
    EXPECT_TRUE(data->hasFormat("text/plain"));
    // The drop may be told of before its text is asked for: by then the move is complete.
    drag.tvw_OLECompleteDrag(Qt::MoveAction);
    EXPECT_FALSE(xml().contains("<item>"));
    EXPECT_EQ(data->text(), QString("<item>1</item>"));
    EXPECT_EQ(data->data("text/plain"), "<item>1</item>");
    EXPECT_EQ(drag.tvw_OLEStartDrag().data, nullptr);
}

// Over another process the desktop reports what was said while hovering, not what the drop did.
TEST_F(Drag, AMoveToAnotherWindowWaitsForItsConfirmation) {
    openExpanded(Document);
    app::frmMain other({folder.path(), system::SettingsStore(path("other.ini")), {}});
    other.setAttribute(Qt::WA_DeleteOnClose, false);
    tree::DragAndDrop target(other.editor().state, other.editor().builder,
                             other.editor().nodeInsertion, other.editor().removal,
                             other.editor().tree);
    other.editor().tree.dragHandlers = target.handlers();
    ASSERT_TRUE(other.OpenFile(write("other.xml", "<b><one/></b>")));
    auto &view = *other.findChild<controls::TreeView *>("tvw");
    const items::DragPoint one{other.editor().tree.nodes().Item(3), None, Qt::MoveAction,
                               Qt::MoveAction};

    for (const bool refused : {true, false}) {
        SCOPED_TRACE(refused);
        other.editor().state.m_ReadOnly = refused;
        const auto data = start("item");
        QDragEnterEvent entering({5, 5}, Qt::MoveAction, data.get(), Qt::LeftButton, None);
        QApplication::sendEvent(view.viewport(), &entering);
        drag.tvw_OLECompleteDrag(Qt::MoveAction);
        EXPECT_TRUE(item("item"));
        EXPECT_EQ(target.tvw_OLEDragDrop(one, *data), refused ? Qt::IgnoreAction : Qt::MoveAction);
        QApplication::processEvents();
        EXPECT_EQ(!item("item"), !refused);
    }
    EXPECT_EQ(other.editor().state.m_DOM.xml(), "<b><one><item>1</item></one></b>");

    // A drag that has been there and comes back.
    const auto data = start("items");
    QDragEnterEvent entering({5, 5}, Qt::MoveAction, data.get(), Qt::LeftButton, None);
    QApplication::sendEvent(view.viewport(), &entering);
    drag.tvw_OLECompleteDrag(drop(placeOf("other"), *data, None));
    EXPECT_EQ(xml(), "<doc><other><in/><items/></other><!--c--></doc>");
}

TEST_F(Drag, ExpandsAndScrollsUnderThePointer) {
    QByteArray text = "<doc><closed><in/></closed>";
    for (int i = 0; i < 100; ++i)
        text += "<e/>";
    open(text + "<end/></doc>");
    tree().nodes().Item(1).setExpanded(true);
    item("doc").setExpanded(true);
    EXPECT_EQ(tvw().autoExpandDelay(), 800);
    tvw().setAutoExpandDelay(0);
    const auto data = textData("<x/>");
    hover(placeOf("closed"), *data, None);
    EXPECT_TRUE(QTest::qWaitFor([&] { return item("closed").Expanded(); }));

    // The pointer rests at the lower edge until the last item is there.
    QScrollBar &bar = *tvw().verticalScrollBar();
    const QPoint edge(60, tvw().viewport()->height() - 2);
    hover(edge, *data, None);
    const TreeItem before = tree().SelectedItem();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() >= 3; }));
    EXPECT_NE(tree().SelectedItem(), before);
    EXPECT_EQ(tree().SelectedItem(), tvw().HitTest(edge));
    const int left = bar.value();
    QDragLeaveEvent leave;
    QApplication::sendEvent(tvw().viewport(), &leave);
    EXPECT_FALSE(QTest::qWaitFor([&] { return bar.value() != left; }, 250));
}

} // namespace

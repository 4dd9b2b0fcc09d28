#include "tests/support/editor_window.h"
#include "tests/support/patience.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

namespace quillon::test {

namespace {

/// Dragging in a shown window, done by the events that the desktop sends.
class DragWindow : public EditorWindow {
protected:
    void SetUp() override {
        editor().options.viewText = false;
        form->show();
        QApplication::processEvents();
    }

    QPoint placeOf(const QString &caption) {
        tvw().doItemsLayout();
        const QRect rect = tvw().visualRect(tree().nodes().indexOf(item(caption)));
        EXPECT_TRUE(rect.isValid()) << caption.toStdString();
        return rect.topLeft() + QPoint(25, rect.height() / 2);
    }
    /// Qt sends a widget nothing of a drag that it has not seen enter.
    void enter(const QPoint &at, const QMimeData &data) {
        QDragEnterEvent event(at, Possible, &data, Qt::LeftButton, {});
        QApplication::sendEvent(tvw().viewport(), &event);
        EXPECT_TRUE(event.isAccepted());
    }
    Qt::DropAction hover(const QPoint &at, const QMimeData &data) {
        enter(at, data);
        QDragMoveEvent move(at, Possible, &data, Qt::LeftButton, {});
        QApplication::sendEvent(tvw().viewport(), &move);
        return move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction drop(const QPoint &at, const QMimeData &data) {
        enter(at, data);
        QDropEvent event(at, Possible, &data, Qt::LeftButton, {});
        QApplication::sendEvent(tvw().viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }

    static constexpr Qt::DropActions Possible = Qt::CopyAction | Qt::MoveAction;
};

TEST_F(DragWindow, TheTreeIsAskedWhatThePointerFinds) {
    open("<doc><item>1</item><?pi x?><other/></doc>");
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    QTest::mousePress(tvw().viewport(), Qt::RightButton, {}, placeOf("item"));
    QTest::mouseRelease(tvw().viewport(), Qt::RightButton, {}, placeOf("item"));
    const auto data = tree().dragHandlers.start().data;
    ASSERT_TRUE(data);
    EXPECT_EQ(data->text(), QString("<item>1</item>"));
    EXPECT_EQ(hover(placeOf("pi"), *data), Qt::IgnoreAction);
    EXPECT_EQ(hover(placeOf("other"), *data), Qt::MoveAction);
    EXPECT_EQ(tree().SelectedItem(), item("other"));
    QDragLeaveEvent leave;
    QApplication::sendEvent(tvw().viewport(), &leave);
    EXPECT_EQ(tree().SelectedItem(), item("item"));
    const Qt::DropAction done = drop(placeOf("other"), *data);
    EXPECT_EQ(done, Qt::MoveAction);
    tree().dragHandlers.complete(done);
    EXPECT_EQ(xml(), "<doc><?pi x?><other><item>1</item></other></doc>");

    // An error is shown, and refuses; beside the items the selected one is meant.
    QMimeData text;
    text.setText("1=\"x\"");
    dialogs.answerMessage(ui::message_answer::Ok);
    EXPECT_EQ(drop({5, tvw().viewport()->height() - 30}, text), Qt::IgnoreAction);
}

TEST_F(DragWindow, ANodeIsNoTypingInThePane) {
    open("<doc><item>1</item><other><in/></other></doc>");
    editor().builder.ExpandSubtree(tree().nodes().Item(1));
    select("other");
    const auto send = [&](const QMimeData &data) {
        const QPoint at(20, 5);
        QDragEnterEvent entering(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(txtEdit().viewport(), &entering);
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(txtEdit().viewport(), &dropped);
        return entering.isAccepted();
    };
    tree().selectAsUser(item("item"));
    Q_EMIT tree().mouseDown(item("item"));
    EXPECT_FALSE(send(*tree().dragHandlers.start().data));
    select("other");
    EXPECT_EQ(txtEdit().utf8(), "<other><in/></other>");
    QMimeData text;
    text.setText("text");
    EXPECT_TRUE(send(text));
    EXPECT_TRUE(txtEdit().utf8().contains("text"));
}

TEST_F(DragWindow, ExpandsAndScrollsUnderThePointer) {
    QByteArray text = "<doc><closed><in/></closed>";
    for (int i = 0; i < 100; ++i)
        text += "<e/>";
    open(text + "<end/></doc>");
    tree().nodes().Item(1).setExpanded(true);
    item("doc").setExpanded(true);
    EXPECT_EQ(tvw().autoExpandDelay(), 800);
    tvw().setAutoExpandDelay(0);
    QMimeData data;
    data.setText("<x/>");
    hover(placeOf("closed"), data);
    EXPECT_TRUE(QTest::qWaitFor([&] { return item("closed").Expanded(); }, Patience));

    // The pointer rests at the lower edge until the last item is there.
    QScrollBar &bar = *tvw().verticalScrollBar();
    const QPoint edge(60, tvw().viewport()->height() - 2);
    hover(edge, data);
    const items::TreeItem before = tree().SelectedItem();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() >= 3; }, Patience));
    EXPECT_NE(tree().SelectedItem(), before);
    EXPECT_EQ(tree().SelectedItem(), tvw().HitTest(edge));
    const int left = bar.value();
    QDragLeaveEvent leave;
    QApplication::sendEvent(tvw().viewport(), &leave);
    EXPECT_FALSE(QTest::qWaitFor([&] { return bar.value() != left; }, 250));
}

} // namespace

} // namespace quillon::test

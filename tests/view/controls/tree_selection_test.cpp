#include "tests/view/controls/tree_view_fixture.h"

#include <QAccessible>
#include <QSignalSpy>

namespace quillon::test {

namespace {

/// Selecting several items with mouse and keyboard.
class TreeSelectionTest : public TreeViewTest {
protected:
    QSignalSpy counts_{&tree_, &items::Tree::severalSelected};

    QString all() const {
        QStringList texts;
        for (const items::TreeItem &item : tree_.selectedItems())
            texts << item.Text();
        return texts.join(' ');
    }
    void press(int key, Qt::KeyboardModifiers keys = {}) {
        QTest::keyClick(&view_, static_cast<Qt::Key>(key), keys);
    }
    void clickWith(Qt::KeyboardModifiers keys, const QString &text) {
        click(placeOf(named(text)), keys);
    }
    void mouse(QEvent::Type type, const QPoint &position, Qt::KeyboardModifiers keys = {}) {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, position, view_.viewport()->mapToGlobal(position), button, buttons,
                          keys);
        QApplication::sendEvent(view_.viewport(), &event);
    }
    /// From one place to another with the left button down.
    void sweep(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers keys = {}) {
        mouse(QEvent::MouseButtonPress, from, keys);
        mouse(QEvent::MouseMove, (from + to) / 2, keys);
        mouse(QEvent::MouseMove, to, keys);
        mouse(QEvent::MouseButtonRelease, to, keys);
    }
};

TEST_F(TreeSelectionTest, ClicksWithShiftAndCtrl) {
    click("a1");
    clickWith(Qt::ShiftModifier, "x");
    EXPECT_EQ(all(), "a1 a2 x");
    EXPECT_EQ(selected(), "x");
    clickWith(Qt::ControlModifier, "b");
    EXPECT_EQ(all(), "a1 a2 x b");
    clickWith(Qt::ControlModifier, "a2");
    EXPECT_EQ(all(), "a1 x b");
    EXPECT_EQ(clicks_, (QStringList{"a1", "x", "b"})) << "the current one is shown, once";
    clickWith(Qt::ControlModifier | Qt::ShiftModifier, "y");
    EXPECT_EQ(all(), "a1 a2 x y b") << "from the item clicked last";
    QTest::mouseClick(view_.viewport(), Qt::RightButton, {}, placeOf(named("x")));
    EXPECT_EQ(all(), "a1 a2 x y b") << "the menu is for all of them";
    EXPECT_EQ(selected(), "x");
    QTest::mouseClick(view_.viewport(), Qt::RightButton, {}, placeOf(named("a3")));
    EXPECT_EQ(all(), "a3");
    clickWith(Qt::ControlModifier, "a1");
    click("a1");
    EXPECT_EQ(all(), "a1") << "a click makes it one again";
    EXPECT_EQ(editor(), nullptr);
}

TEST_F(TreeSelectionTest, KeysExtendAndToggle) {
    select("a2");
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(all(), "a2 x y");
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(all(), "a2 x");
    press(Qt::Key_Home, Qt::ShiftModifier);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(counts_.count(), 4) << "the last key has changed nothing";
    press(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(all(), "a a1 a2");
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(all(), "a2 x y a3 b");
    press(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_EQ(all(), "a a1 a2");
    press(Qt::Key_Up);
    EXPECT_EQ(all(), "a") << "where the cursor cannot go on, too";

    clicks_.clear();
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(all(), "a");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&view_)->focusChild()->text(QAccessible::Name),
              "a2");
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(all(), "a a2");
    EXPECT_EQ(clicks_, QStringList{"a2"});
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(all(), "a a2 x y");
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(all(), "a a2 x");
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down);
    EXPECT_EQ(all(), "a3") << "on from where Ctrl and the keys have gone";
}

TEST_F(TreeSelectionTest, AFrameSelectsTheRowsItSpans) {
    const auto beside = [&](const QString &text) {
        return QPoint(view_.viewport()->width() - 20, placeOf(named(text)).y());
    };
    select("b");
    clicks_.clear();
    sweep(QPoint(250, 190), beside("y"));
    EXPECT_EQ(all(), "y a3 b");
    EXPECT_EQ(selected(), "y");
    EXPECT_EQ(clicks_, QStringList{"y"}) << "shown once";
    EXPECT_EQ(counts_.count(), 1);
    EXPECT_EQ(counts_.takeFirst().value(0), 3);
    sweep(beside("a1"), beside("a"), Qt::ControlModifier);
    EXPECT_EQ(all(), "a a1 y a3 b");
    sweep(QPoint(250, 190), QPoint(200, 180));
    EXPECT_EQ(all(), "a a1 y a3 b") << "one that spans nothing";
    sweep(beside("a1"), beside("a2"));
    EXPECT_EQ(all(), "a1 a2");

    mouse(QEvent::MouseButtonPress, QPoint(250, 190));
    mouse(QEvent::MouseMove, beside("a3"));
    const QImage framed = view_.viewport()->grab().toImage();
    mouse(QEvent::MouseButtonRelease, beside("a3"));
    const QPoint edge(250, placeOf(named("b")).y() + 30);
    EXPECT_NE(framed.pixelColor(edge), view_.viewport()->grab().toImage().pixelColor(edge));
}

TEST_F(TreeSelectionTest, ADragTakesWhatIsSelected) {
    QStringList dragged;
    tree_.dragHandlers.start = [&] {
        dragged << all();
        return items::DragOffer();
    };
    select("a1");
    clickWith(Qt::ControlModifier, "x");
    sweep(placeOf(named("a1")), placeOf(named("b")));
    sweep(placeOf(named("x")), placeOf(named("b")), Qt::ControlModifier);
    EXPECT_EQ(all(), "a1 x");
    sweep(placeOf(named("y")), placeOf(named("b")), Qt::ControlModifier);
    EXPECT_EQ(dragged, (QStringList{"a1 x", "a1 x", "y"})) << "what is not selected goes alone";
}

TEST_F(TreeSelectionTest, SelectsHundredThousandRows) {
    constexpr int Parents = 20'000;
    const items::TreeItem top = named("b");
    tree_.nodes().beginBuild();
    for (int i = 0; i < Parents; ++i) {
        const auto parent = tree_.nodes().Add(top, items::Relationship::Child, ++sequence_);
        for (int k = 0; k < 4; ++k)
            tree_.nodes().Add(parent, items::Relationship::Child, ++sequence_);
    }
    tree_.nodes().endBuild();
    tree_.nodes().setExpandedSubtree(top, true);
    tree_.setSelectedItem(top.Child());
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(tree_.selectedCount(), Parents * 5);
    EXPECT_EQ(tree_.topmostSelectedItems().size(), Parents);
    for (int i = 0; i < 50; ++i)
        press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(tree_.selectedCount(), Parents * 5 - 50);
    auto *table = QAccessible::queryAccessibleInterface(&view_)->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->selectedRows().size(), Parents * 5 - 50);
}

} // namespace

} // namespace quillon::test

#include "tests/support/patience.h"
#include "tests/support/scripted_dialogs.h"
#include "view/controls/tree_view.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace quillon;
using namespace quillon::controls;
using quillon::test::Patience;

namespace {

/// A shown tree of three items, one below the other, whose drags end before they begin.
class DragSource : public testing::Test {
protected:
    DragSource() {
        view_.resize(300, 200);
        items::TreeItem parent;
        for (quint32 i = 1; i <= 3; ++i) {
            parent = tree_.nodes().Add(parent, items::Relationship::Child, i);
            parent.setText(QString::number(i));
        }
        tree_.nodes().setExpandedSubtree(tree_.nodes().Item(1), true);
        tree_.dragHandlers.start = [this] {
            ++starts_;
            return items::DragOffer{};
        };
        view_.show();
        view_.activateWindow();
        QApplication::processEvents();
    }

    QPoint placeOf(int index) {
        return view_.visualRect(tree_.nodes().indexOf(tree_.nodes().Item(index))).topLeft() +
               QPoint(25, 5);
    }
    /// Presses a button at one place and releases it at another, the way a hand does.
    void pull(const QPoint &from, const QPoint &to, Qt::MouseButton button) {
        QTest::mousePress(view_.viewport(), button, {}, from);
        for (int step = 1; step <= 10; ++step) {
            const QPoint at = from + (to - from) * step / 10;
            QMouseEvent move(QEvent::MouseMove, at, view_.viewport()->mapToGlobal(at), Qt::NoButton,
                             button, {});
            QApplication::sendEvent(view_.viewport(), &move);
        }
        QTest::mouseRelease(view_.viewport(), button, {}, to);
    }
    bool isEditing() const { return view_.viewport()->findChild<QLineEdit *>() != nullptr; }

    items::Tree tree_;
    TreeView view_{tree_};
    int starts_ = 0;
};

TEST_F(DragSource, BeginsWithALeftPullFromAnItem) {
    const QSignalSpy clicks(&tree_, &items::Tree::NodeClick);
    pull(placeOf(2), placeOf(3), Qt::LeftButton);
    EXPECT_EQ(starts_, 1);
    // The press selects; what the pointer crosses is not clicked, not even if no drag comes of it.
    EXPECT_EQ(tree_.SelectedItem(), tree_.nodes().Item(2));
    EXPECT_EQ(clicks.count(), 1);

    pull(placeOf(2), placeOf(3), Qt::RightButton);
    pull({150, 190}, placeOf(1), Qt::LeftButton);
    const QPoint branch = placeOf(1) - QPoint(25 + view_.indentation() / 2, 0);
    pull(branch, branch + QPoint(100, 60), Qt::LeftButton);
    EXPECT_FALSE(tree_.nodes().Item(1).Expanded());
    EXPECT_EQ(starts_, 1);
}

TEST_F(DragSource, ASecondClickStillEditsUnlessItBecomesADrag) {
    QApplication::setDoubleClickInterval(1);
    tree_.setSelectedItem(tree_.nodes().Item(2));
    pull(placeOf(2), placeOf(3), Qt::LeftButton);
    // A timer that is started later and runs longer ends after the one that would start an edit.
    bool later = false;
    QTimer::singleShot(10, [&] { later = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return later; }, Patience));
    EXPECT_FALSE(isEditing());
    // A hand that trembles does not drag.
    tree_.setSelectedItem(tree_.nodes().Item(2));
    pull(placeOf(2), placeOf(2) + QPoint(2, 1), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return isEditing(); }, Patience));
}

TEST_F(DragSource, TellsOfEveryPress) {
    QSignalSpy presses(&tree_, &items::Tree::mouseDown);
    QTest::mousePress(view_.viewport(), Qt::RightButton, {}, placeOf(3));
    QTest::mousePress(view_.viewport(), Qt::LeftButton, {}, {150, 190});
    ASSERT_EQ(presses.count(), 2);
    EXPECT_EQ(presses[0][0].value<items::TreeItem>(), tree_.nodes().Item(3));
    EXPECT_TRUE(presses[1][0].value<items::TreeItem>().isNothing());
}

} // namespace

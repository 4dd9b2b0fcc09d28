#include "tests/support/patience.h"
#include "view/controls/path_box.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using quillon::controls::PathBox;
using quillon::test::Patience;

namespace {

class PathBoxTest : public testing::Test {
protected:
    PathBoxTest() {
        box_.AddItem(QStringLiteral("/a/b"));
        box_.AddItem(QStringLiteral("/A/値"));
        box_.show();
        box_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box_, Patience));
        box_.setFocus();
    }

    PathBox box_;
    QSignalSpy enter_{&box_, &PathBox::Enter};
    QSignalSpy click_{&box_, &PathBox::Click};
};

TEST_F(PathBoxTest, LeavesTheTextToUserAndProgram) {
    EXPECT_EQ(box_.Text(), u"") << "an added entry is not the text";
    box_.setText(QStringLiteral("/set"));
    box_.AddItem(QStringLiteral("/c"));
    EXPECT_EQ(box_.Text(), u"/set");
    box_.lineEdit()->selectAll();
    QTest::keyClicks(&box_, QStringLiteral("/A/B"));
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(box_.Text(), u"/A/B") << "not completed to the case of an entry";
    const QStringList entries{QStringLiteral("/a/b"), QStringLiteral("/A/値"),
                              QStringLiteral("/c")};
    EXPECT_EQ(box_.List(), entries) << "not added to the list";
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(box_.Text(), u"/set");
    EXPECT_EQ(click_.count(), 0);
}

TEST_F(PathBoxTest, TellsReturnFromAChoice) {
    QTest::keyClicks(&box_, QStringLiteral("/a/b"));
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(enter_.count(), 1);
    EXPECT_EQ(click_.count(), 0) << "typed like an entry is not chosen";
    for (const int chosen : {1, 2}) {
        box_.showPopup();
        QTest::keyClick(box_.view(), Qt::Key_End);
        QTest::keyClick(box_.view(), Qt::Key_Return);
        EXPECT_EQ(box_.Text(), u"/A/値");
        EXPECT_EQ(click_.count(), chosen) << "the same one again, too";
    }
    EXPECT_EQ(enter_.count(), 1);
}

TEST_F(PathBoxTest, TakesNoTurnOfTheWheelForAChoice) {
    QWheelEvent down(QPointF(5, 5), box_.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box_, &down);
    EXPECT_EQ(click_.count(), 0);
    EXPECT_EQ(box_.Text(), u"");
}

/// What is proposed becomes the text when it is chosen; until then the box is as ever.
TEST_F(PathBoxTest, ProposesWithoutTakingPart) {
    box_.propose = [](const QString &typed) {
        return typed == u"/a" ? QStringList{typed + QLatin1Char('b'), typed + QLatin1Char('c')}
                              : QStringList();
    };
    const auto type = [this] {
        box_.setText(QString());
        QTest::keyClicks(&box_, QStringLiteral("/a"));
        EXPECT_TRUE(box_.proposalList()->isVisible());
        EXPECT_EQ(box_.Text(), u"/a");
    };
    const auto press = [this](Qt::Key key) { QTest::keyClick(box_.proposalList(), key); };
    type();
    QTest::keyClicks(box_.proposalList(), QStringLiteral("x"));
    EXPECT_EQ(box_.Text(), u"/ax");
    EXPECT_FALSE(box_.proposalList()->isVisible()) << "nothing to propose any more";

    type();
    press(Qt::Key_Escape);
    EXPECT_FALSE(box_.proposalList()->isVisible());
    EXPECT_EQ(box_.Text(), u"/a");
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(box_.Text(), u"");

    type();
    press(Qt::Key_Return);
    EXPECT_EQ(enter_.count(), 1) << "what was typed is what is asked";
    EXPECT_EQ(box_.Text(), u"/a");
    EXPECT_FALSE(box_.proposalList()->isVisible());

    type();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(box_.Text(), u"/ac");
    EXPECT_EQ(enter_.count(), 1) << "chosen to be gone on with";
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(enter_.count(), 2);
    EXPECT_EQ(click_.count(), 0);
    EXPECT_EQ(box_.List().size(), 2);

    box_.setText(QStringLiteral("a"));
    box_.lineEdit()->setCursorPosition(0);
    QTest::keyClicks(&box_, QStringLiteral("/"));
    EXPECT_FALSE(box_.proposalList()->isVisible()) << "in the middle of a text";
}

TEST_F(PathBoxTest, AClickBesideTheProposalsIsOne) {
    QPushButton button;
    button.setGeometry(400, 400, 100, 50);
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&button, Patience));
    const QSignalSpy clicked(&button, &QPushButton::clicked);
    box_.propose = [](const QString &typed) { return QStringList{typed + QLatin1Char('b')}; };
    box_.activateWindow();
    box_.setFocus();
    QTest::keyClicks(&box_, QStringLiteral("/"));
    ASSERT_TRUE(box_.proposalList()->isVisible());
    QTest::mouseClick(button.windowHandle(), Qt::LeftButton, {}, QPoint(50, 25));
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_FALSE(box_.proposalList()->isVisible());
    EXPECT_EQ(box_.Text(), u"/");
}

} // namespace

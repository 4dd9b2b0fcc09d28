#include "view/controls/path_box.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using quillon::controls::PathBox;

namespace {

class PathBoxTest : public testing::Test {
protected:
    PathBoxTest() {
        box_.AddItem(QStringLiteral("/a/b"));
        box_.AddItem(QStringLiteral("/A/値"));
        box_.show();
        box_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box_));
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

} // namespace

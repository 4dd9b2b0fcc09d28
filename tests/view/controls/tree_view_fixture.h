#pragma once

#include "view/controls/tree_view.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace quillon::test {

/// Counts the slow second clicks that would start an edit; those that do so wait for a timer first.
class CountingView : public controls::TreeView {
public:
    using controls::TreeView::TreeView;
    using TreeView::edit;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override {
        secondClicks += trigger == SelectedClicked;
        return TreeView::edit(index, trigger, event);
    }
    int secondClicks = 0;
};

/// A shown view with a small tree, all of it expanded: a(a1 a2(x y) a3) b.
class TreeViewTest : public testing::Test {
protected:
    TreeViewTest() {
        view_.resize(300, 200);
        const items::TreeItem a = add({}, "a");
        add(a, "a1");
        const items::TreeItem a2 = add(a, "a2");
        add(a2, "x");
        add(a2, "y");
        add(a, "a3");
        add({}, "b");
        tree_.nodes().setExpandedSubtree(a, true);
        view_.show();
        view_.activateWindow();
        view_.setFocus();
        QApplication::processEvents();
        QObject::connect(&tree_, &items::Tree::NodeClick, &view_,
                         [this](const items::TreeItem &item) { clicks_ << item.Text(); });
    }

    items::TreeItem add(const items::TreeItem &parent, const QString &text) {
        items::TreeItem item = tree_.nodes().Add(parent, items::Relationship::Child, ++sequence_);
        item.setText(text);
        return item;
    }
    items::TreeItem named(const QString &text) {
        for (int i = 1; i <= tree_.nodes().Count(); ++i) {
            if (tree_.nodes().Item(i).Text() == text)
                return tree_.nodes().Item(i);
        }
        return {};
    }
    void select(const QString &text) { tree_.setSelectedItem(named(text)); }
    QString selected() const { return tree_.SelectedItem().Text(); }

    QPoint placeOf(const items::TreeItem &item) {
        return view_.visualRect(tree_.nodes().indexOf(item)).topLeft() + QPoint(25, 5);
    }
    void click(const QPoint &position, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view_.viewport(), Qt::LeftButton, modifiers, position);
    }
    void click(const QString &text) { click(placeOf(named(text))); }
    void clickBranch(const QString &text) {
        const QRect rect = view_.visualRect(tree_.nodes().indexOf(named(text)));
        click(rect.topLeft() + QPoint(-view_.indentation() / 2, 5));
    }
    void press(int key) { QTest::keyClick(&view_, static_cast<Qt::Key>(key)); }

    QLineEdit *editor() const {
        for (auto *editor : view_.viewport()->findChildren<QLineEdit *>()) {
            if (editor->isVisible())
                return editor;
        }
        return nullptr;
    }
    /// Qt closes an editor from its event loop, and in the round after that it is ready to take a
    /// click for a new one.
    static void settle() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    /// Types into the open editor, in place of what is selected there.
    void enter(const QString &text, Qt::Key end) {
        ASSERT_NE(editor(), nullptr);
        QTest::keyClicks(editor(), text);
        QTest::keyClick(editor(), end);
        settle();
        EXPECT_EQ(editor(), nullptr);
    }

    items::Tree tree_;
    CountingView view_{tree_};
    quint32 sequence_ = 0;
    QStringList clicks_;
};

} // namespace quillon::test

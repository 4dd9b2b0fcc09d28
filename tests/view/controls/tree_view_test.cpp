#include "platform/runtime/error.h"
#include "platform/ui/message_box.h"
#include "tests/support/scripted_dialogs.h"
#include "view/controls/tree_delegate.h"
#include "view/controls/tree_view.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace quillon;
using namespace quillon::controls;

namespace {

/// Counts the slow second clicks that would start an edit; those that do so wait for a timer first.
class CountingView : public TreeView {
public:
    using TreeView::edit;
    using TreeView::TreeView;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override {
        secondClicks += trigger == SelectedClicked;
        return TreeView::edit(index, trigger, event);
    }
    int secondClicks = 0;
};

/// A shown view with a small tree, all of it expanded: a(a1 a2(x y) a3) b.
class View : public testing::Test {
protected:
    View() {
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

TEST_F(View, ClicksSelect) {
    click("a2");
    EXPECT_EQ(selected(), "a2");
    click(placeOf(named("x")), Qt::ControlModifier);
    click(placeOf(named("x")), Qt::ControlModifier);
    EXPECT_EQ(selected(), "x");
    click(QPoint(5, 195));
    EXPECT_EQ(selected(), "x") << "a click below the items changes nothing";
    select("b");
    EXPECT_EQ(clicks_, (QStringList{"a2", "x", "x"})) << "a click on the selected item is one, too";

    EXPECT_EQ(view_.HitTest(placeOf(named("a3"))), named("a3"));
    EXPECT_TRUE(view_.HitTest(QPoint(5, 195)).isNothing());
}

TEST_F(View, BranchesExpandAndCollapse) {
    select("y");
    clickBranch("a2");
    EXPECT_FALSE(named("a2").Expanded());
    EXPECT_EQ(selected(), "a2") << "the selected item must not get out of sight";
    EXPECT_EQ(clicks_, QStringList{"a2"});
    clickBranch("a2");
    EXPECT_TRUE(named("a2").Expanded());
    click("a2");
    EXPECT_EQ(view_.secondClicks, 1);
    clickBranch("a2");
    clickBranch("a2");
    EXPECT_EQ(view_.secondClicks, 1) << "a click on the branch is none on the item";

    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, placeOf(named("a")));
    EXPECT_FALSE(named("a").Expanded());
    EXPECT_TRUE(named("a2").Expanded()) << "what is below is as it was";
    EXPECT_EQ(view_.rows().count(), 2);
    select("x");
    EXPECT_EQ(view_.rows().count(), 7) << "selecting shows the item";
}

TEST_F(View, KeysMoveAndExpand) {
    struct Case {
        const char *from;
        int key;
        const char *to;
        int shown;
    };
    const Case cases[] = {
        {"a", Qt::Key_Down, "a1", 7},    {"a1", Qt::Key_Up, "a", 7},
        {"a", Qt::Key_Up, "a", 7},       {"b", Qt::Key_Down, "b", 7},
        {"a3", Qt::Key_Home, "a", 7},    {"a3", Qt::Key_End, "b", 7},
        {"a", Qt::Key_PageDown, "b", 7}, {"b", Qt::Key_PageUp, "a", 7},
        {"x", Qt::Key_Left, "a2", 7},    {"a2", Qt::Key_Left, "a2", 5},
        {"a2", Qt::Key_Left, "a", 5},    {"a2", Qt::Key_Right, "a2", 7},
        {"a2", Qt::Key_Right, "x", 7},   {"x", Qt::Key_Right, "x", 7},
        {"a", Qt::Key_Minus, "a", 2},    {"a", Qt::Key_Plus, "a", 7},
        {"a2", Qt::Key_Minus, "a2", 5},  {"a", Qt::Key_Minus, "a", 2},
        {"a", Qt::Key_Asterisk, "a", 7},
    };
    for (const auto &[from, key, to, shown] : cases) {
        SCOPED_TRACE(QKeySequence(key).toString().toStdString() + " from " + from);
        select(from);
        clicks_.clear();
        press(key);
        EXPECT_EQ(selected(), to);
        EXPECT_EQ(view_.rows().count(), shown);
        EXPECT_EQ(clicks_, selected() == from ? QStringList() : QStringList{to});
    }
}

TEST_F(View, TypingSearches) {
    select("a3");
    press(Qt::Key_A);
    EXPECT_EQ(selected(), "a") << "on from the selected item and round the end";
    press(Qt::Key_3);
    EXPECT_EQ(selected(), "a3");
    press(Qt::Key_9);
    EXPECT_EQ(selected(), "a3");
}

TEST_F(View, LabelEditsEndByKeyAndFocus) {
    const auto startByF2 = [&] { press(Qt::Key_F2); };
    const auto startByCode = [&] { tree_.StartLabelEdit(); };
    const auto startByClick = [&] {
        QApplication::setDoubleClickInterval(1);
        click(selected());
        EXPECT_TRUE(QTest::qWaitFor([&] { return editor() != nullptr; }));
        clicks_.clear();
    };
    const auto endByCode = [&] {
        QTest::keyClicks(editor(), "code");
        tree_.endLabelEdit();
    };
    for (const std::function<void()> &start :
         {std::function<void()>(startByF2), std::function<void()>(startByCode),
          std::function<void()>(startByClick)}) {
        named("a2").setText("a2\r\n ");
        tree_.setSelectedItem(named("a2\r\n "));
        start();
        ASSERT_NE(editor(), nullptr);
        EXPECT_EQ(editor()->text(), "a2\r\n ");
        EXPECT_EQ(editor()->selectedText(), "a2\r\n ");
        enter("new", Qt::Key_Return);
        EXPECT_EQ(selected(), "new");
        start();
        enter("newer", Qt::Key_Escape);
        EXPECT_EQ(selected(), "new");
        start();
        enter("tab", Qt::Key_Tab);
        EXPECT_EQ(selected(), "tab");
        start();
        QTest::keyClicks(editor(), "focus");
        view_.setFocus();
        EXPECT_EQ(selected(), "focus");
        tree_.StartLabelEdit();
        endByCode();
        EXPECT_FALSE(view_.isEditingLabel());
        EXPECT_EQ(selected(), "code");
        tree_.SelectedItem().setText("a2");
        settle();
    }
    EXPECT_EQ(clicks_, QStringList());
}

TEST_F(View, LabelEditHooksDecide) {
    bool allowed = false;
    QStringList asked;
    tree_.beforeLabelEdit = [&](const items::TreeItem &item) {
        asked << item.Text();
        return allowed;
    };
    tree_.labelEditText = [](const items::TreeItem &item) { return item.Text().toUpper(); };
    tree_.afterLabelEdit = [&](const items::TreeItem &item, QString &text) {
        EXPECT_EQ(editor(), nullptr);
        if (text == "remove")
            tree_.nodes().Remove(item);
        text += '!';
        return !text.startsWith("bad");
    };
    select("a1");
    tree_.StartLabelEdit();
    press(Qt::Key_F2);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(asked, (QStringList{"a1", "a1"}));
    const auto before = std::exchange(tree_.beforeLabelEdit, [](const items::TreeItem &) -> bool {
        quillon::runtime::raise(quillon::runtime::error_number::Overflow);
    });
    quillon::test::ScriptedDialogs dialogs;
    dialogs.answerMessage(ui::message_answer::Ok);
    tree_.StartLabelEdit();
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(dialogs.messages.size(), 1U) << "an error is shown, and refuses";
    tree_.beforeLabelEdit = before;

    allowed = true;
    tree_.StartLabelEdit();
    EXPECT_EQ(editor()->text(), "A1");
    EXPECT_EQ(editor()->selectedText(), "A1");
    named("a1").setBold(true);
    enter("good", Qt::Key_Return);
    EXPECT_EQ(selected(), "good!");
    tree_.StartLabelEdit();
    QTest::keyClicks(editor(), "b");
    tree_.SelectedItem().setBold(false);
    QApplication::processEvents();
    enter("ad", Qt::Key_Return);
    EXPECT_EQ(selected(), "good!") << "a change of the item meanwhile keeps what was typed";
    tree_.StartLabelEdit();
    enter("remove", Qt::Key_Return);
    EXPECT_EQ(selected(), "a2");
    EXPECT_EQ(asked.size(), 5);

    tree_.labelEditText = [](const items::TreeItem &item) { return item.Text(); };
    tree_.SelectedItem().setText(QString(40'000, 'x'));
    tree_.StartLabelEdit();
    EXPECT_EQ(editor()->text(), tree_.SelectedItem().Text());
    enter("", Qt::Key_Escape);
    tree_.StartLabelEdit();
    tree_.nodes().Clear();
    QApplication::processEvents();
    EXPECT_EQ(editor(), nullptr);
    tree_.StartLabelEdit();
    EXPECT_EQ(asked.size(), 7);
}

TEST_F(View, DrawsCaptionsOnOneLineAndOnlyTheirBeginning) {
    const auto *delegate = qobject_cast<const TreeDelegate *>(view_.itemDelegate());
    const auto drawn = [&](const QString &caption) {
        return delegate->displayText(caption, QLocale());
    };
    const QString limit(TreeDelegate::DrawnLength - 1, 'x');
    const std::pair<QString, QString> cases[] = {
        {"a\nb\r\nc\rd", "a↵b↵c↵d"},           {"\n\r\r\n\n", "↵↵↵↵"},
        {QString("a\u2028b\u2029c"), "a↵b↵c"}, {limit + "y", limit + "y"},
        {limit + "yz", limit + "y…"},          {limit + "𠮷", limit + "𠮷"},
        {limit + "𠮷z", limit + "𠮷…"},
    };
    for (const auto &[caption, expected] : cases)
        EXPECT_EQ(drawn(caption), expected);
}

TEST_F(View, DrawsImagesAndWeight) {
    struct Images : items::CaptionSource {
        QString caption(quint32) const override { return {}; }
        int image(quint32 sequence) const override { return static_cast<int>(sequence) - 2; }
    } images;
    tree_.nodes().setCaptionSource(&images);
    QPixmap square(16, 16);
    square.fill(Qt::magenta);
    view_.setImageList({QIcon(square)});
    const auto magenta = [&](const items::TreeItem &item) {
        const QRect rect = view_.visualRect(tree_.nodes().indexOf(item));
        const QImage picture = view_.viewport()->grab(rect).toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                count += picture.pixelColor(x, y) == Qt::magenta;
        }
        return count;
    };
    EXPECT_EQ(magenta(named("a")), 0) << "no image";
    EXPECT_GT(magenta(named("a1")), 100);
    EXPECT_EQ(magenta(named("a2")), 0) << "an image beyond the list";

    const QString wide(20, 'W');
    named("a1").setText(wide);
    const auto widthOf = [&] {
        return view_.itemDelegate()->sizeHint({}, tree_.nodes().indexOf(named(wide))).width();
    };
    const int light = widthOf();
    named(wide).setBold(true);
    EXPECT_GT(widthOf(), light);
    tree_.nodes().setCaptionSource(nullptr);
}

TEST_F(View, ScrollsToWhatIsHidden) {
    EXPECT_EQ(view_.horizontalScrollBar()->maximum(), 0);
    named("b").setText(QString(100, 'W'));
    items::TreeItem last;
    const items::TreeItem b = tree_.nodes().Item(7);
    for (int i = 0; i < 50; ++i)
        last = add(b, "child");
    QApplication::processEvents();
    EXPECT_GT(view_.horizontalScrollBar()->maximum(), 300);
    EXPECT_EQ(view_.rows().count(), 7);
    EXPECT_TRUE(view_.visualRect(tree_.nodes().indexOf(last)).isNull());

    last.EnsureVisible();
    EXPECT_TRUE(b.Expanded());
    EXPECT_TRUE(view_.viewport()->rect().contains(placeOf(last)));
    EXPECT_EQ(view_.HitTest(placeOf(last)), last);
    view_.horizontalScrollBar()->setValue(300);
    tree_.setSelectedItem(last);
    view_.horizontalScrollBar()->setValue(300);
    tree_.setSelectedItem(last);
    EXPECT_EQ(view_.horizontalScrollBar()->value(), 300) << "it was selected already";
    select("a");
    EXPECT_EQ(view_.verticalScrollBar()->value(), 0);
    EXPECT_EQ(view_.horizontalScrollBar()->value(), 0);
    items::TreeItem(b).setText("b");
    QApplication::processEvents();
    EXPECT_EQ(view_.horizontalScrollBar()->maximum(), 0);
}

/// Counts how often a widget is painted.
class Paints : public QObject {
public:
    explicit Paints(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

TEST_F(View, KeepsItsPictureWhileItIsRebuilt) {
    Paints paints(view_.viewport());
    tree_.setTreeVisible(false);
    tree_.setTreeVisible(false);
    tree_.nodes().Clear();
    for (int i = 0; i < 100; ++i) {
        add({}, "new");
        QApplication::processEvents();
    }
    EXPECT_EQ(paints.count, 0);
    EXPECT_TRUE(view_.isVisible());
    tree_.setTreeVisible(true);
    EXPECT_TRUE(tree_.treeVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
}

TEST_F(View, IsATreeToAssistiveTechnology) {
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&view_);
    view_.setAccessibleName("tree");
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    EXPECT_EQ(tree->text(QAccessible::Name), "tree");
    ASSERT_EQ(tree->childCount(), 7);
    QAccessibleInterface *a2 = tree->child(2);
    ASSERT_NE(a2, nullptr);
    auto *table = tree->tableInterface();
    auto *actions = a2->actionInterface();
    ASSERT_TRUE(table != nullptr && actions != nullptr);
    EXPECT_EQ(a2, table->cellAt(2, 0));
    EXPECT_EQ(a2->parent(), tree);
    EXPECT_EQ(tree->indexOfChild(a2), 2);
    EXPECT_EQ(a2->role(), QAccessible::TreeItem);
    EXPECT_EQ(a2->text(QAccessible::Name), "a2");
    EXPECT_TRUE(a2->state().expandable && a2->state().expanded && !a2->state().selected);
    EXPECT_EQ(tree->child(0)->text(QAccessible::Name), "a");
    EXPECT_FALSE(tree->child(1)->state().expandable);
    const QPoint middle = a2->rect().center();
    EXPECT_EQ(tree->childAt(middle.x(), middle.y()), a2);

    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(a2->state().expanded);
    EXPECT_EQ(tree->childCount(), 5);
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(a2->state().selected && a2->state().focused);
    EXPECT_EQ(tree->focusChild(), a2);
    EXPECT_EQ(table->selectedRows(), QList<int>{2});
    EXPECT_EQ(clicks_, QStringList{"a2"});

    tree_.nodes().Clear();
    EXPECT_EQ(tree->childCount(), 0);
    add({}, "new");
    EXPECT_EQ(tree->child(0)->text(QAccessible::Name), "new");
}

TEST_F(View, ShowsHundredThousandLevels) {
    constexpr int Levels = 100'000;
    tree_.nodes().Clear();
    tree_.nodes().beginBuild(Levels);
    items::TreeItem item;
    for (int i = 0; i < Levels; ++i)
        item = tree_.nodes().Add(item, items::Relationship::Child, ++sequence_);
    tree_.nodes().endBuild();
    item.setText("bottom");
    const items::TreeItem top = tree_.nodes().Item(1);
    EXPECT_EQ(item.FullPath().count('/'), Levels - 1);

    tree_.nodes().setExpandedSubtree(top, true);
    EXPECT_EQ(view_.rows().count(), Levels);
    tree_.setSelectedItem(item);
    view_.grab();
    EXPECT_EQ(view_.HitTest(placeOf(item)), item);
    EXPECT_TRUE(view_.viewport()->rect().contains(placeOf(item)));
    tree_.nodes().Remove(item);
    EXPECT_EQ(view_.rows().count(), Levels - 1);
    EXPECT_EQ(tree_.SelectedItem().Index(), Levels - 1);
    add(tree_.SelectedItem(), "again");

    tree_.nodes().setExpandedSubtree(top, false);
    EXPECT_EQ(view_.rows().count(), 1);
    EXPECT_EQ(tree_.SelectedItem(), top);
    named("again").EnsureVisible();
    EXPECT_EQ(view_.rows().count(), Levels);
    tree_.nodes().Remove(top.Child());
    EXPECT_EQ(tree_.nodes().Count(), 1);
}

TEST_F(View, ShowsAHugeSubtree) {
    constexpr int Parents = 60'000;
    const items::TreeItem top = named("b");
    tree_.nodes().beginBuild(Parents * 10);
    const items::TreeItem list = tree_.nodes().Add(top, items::Relationship::Child, ++sequence_);
    for (int i = 0; i < Parents; ++i) {
        const items::TreeItem parent =
            tree_.nodes().Add(list, items::Relationship::Child, ++sequence_);
        for (int k = 0; k < 9; ++k)
            tree_.nodes().Add(parent, items::Relationship::Child, ++sequence_);
    }
    tree_.nodes().endBuild();
    tree_.nodes().setExpandedSubtree(top, true);
    EXPECT_EQ(view_.rows().count(), 7 + 1 + Parents * 10);
    int expanded = 0;
    tree_.nodes().forEachExpanded([&](const items::TreeItem &) { ++expanded; });
    EXPECT_EQ(expanded, 2 + 1 + 1 + Parents);
    tree_.setSelectedItem(top);
    press(Qt::Key_End);
    EXPECT_EQ(tree_.SelectedItem().sequence(), sequence_);

    // One after the other, as a program restores what was expanded.
    tree_.nodes().setExpandedSubtree(top, false);
    for (items::TreeItem parent = list.Child(); parent; parent = parent.Next())
        parent.setExpanded(true);
    EXPECT_EQ(view_.rows().count(), 7);
    list.Child().EnsureVisible();
    EXPECT_EQ(view_.rows().count(), 7 + 1 + Parents * 10);
}

} // namespace

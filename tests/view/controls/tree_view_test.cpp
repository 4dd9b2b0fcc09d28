#include "tests/support/patience.h"
#include "tests/view/controls/tree_view_fixture.h"
#include "view/controls/tree_delegate.h"

#include <QAccessible>
#include <QScrollBar>

namespace quillon::test {

namespace {

TEST_F(TreeViewTest, ClicksSelect) {
    click("a2");
    EXPECT_EQ(selected(), "a2");
    click("x");
    click(placeOf(named("x")), Qt::ControlModifier);
    EXPECT_EQ(selected(), "x");
    click(QPoint(5, 195));
    EXPECT_EQ(selected(), "x") << "a click below the items changes nothing";
    select("b");
    EXPECT_EQ(clicks_, (QStringList{"a2", "x", "x"})) << "a click on the selected item is one, too";

    EXPECT_EQ(view_.HitTest(placeOf(named("a3"))), named("a3"));
    EXPECT_TRUE(view_.HitTest(QPoint(5, 195)).isNothing());
}

TEST_F(TreeViewTest, BranchesExpandAndCollapse) {
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

TEST_F(TreeViewTest, KeysMoveAndExpand) {
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

TEST_F(TreeViewTest, TypingSearches) {
    select("a3");
    press(Qt::Key_A);
    EXPECT_EQ(selected(), "a") << "on from the selected item and round the end";
    press(Qt::Key_3);
    EXPECT_EQ(selected(), "a3");
    press(Qt::Key_9);
    EXPECT_EQ(selected(), "a3");
}

TEST_F(TreeViewTest, DrawsCaptionsOnOneLineAndOnlyTheirBeginning) {
    const auto *delegate = qobject_cast<const controls::TreeDelegate *>(view_.itemDelegate());
    const auto drawn = [&](const QString &caption) {
        return delegate->displayText(caption, QLocale());
    };
    const QString limit(controls::TreeDelegate::DrawnLength - 1, 'x');
    const std::pair<QString, QString> cases[] = {
        {"a\nb\r\nc\rd", "a↵b↵c↵d"},           {"\n\r\r\n\n", "↵↵↵↵"},
        {QString("a\u2028b\u2029c"), "a↵b↵c"}, {limit + "y", limit + "y"},
        {limit + "yz", limit + "y…"},          {limit + "𠮷", limit + "𠮷"},
        {limit + "𠮷z", limit + "𠮷…"},
    };
    for (const auto &[caption, expected] : cases)
        EXPECT_EQ(drawn(caption), expected);
}

TEST_F(TreeViewTest, DrawsImagesAndWeight) {
    struct Images : items::CaptionSource {
        QString caption(const items::TreeItem &) const override { return {}; }
        int image(const items::TreeItem &item) const override {
            return static_cast<int>(item.sequence()) - 2;
        }
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

TEST_F(TreeViewTest, ScrollsToWhatIsHidden) {
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
TEST_F(TreeViewTest, KeepsItsPictureWhileItIsRebuilt) {
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }, Patience));
}

TEST_F(TreeViewTest, IsATreeToAssistiveTechnology) {
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

    EXPECT_TRUE(tree->state().multiSelectable && a2->state().multiSelectable);
    EXPECT_FALSE(table->unselectRow(2)) << "the last one";
    EXPECT_TRUE(table->selectRow(0));
    EXPECT_EQ(table->selectedRows(), (QList<int>{0, 2}));
    EXPECT_EQ(table->selectedCells(), (QList<QAccessibleInterface *>{tree->child(0), a2}));
    EXPECT_TRUE(a2->state().selected && !a2->state().focused);
    EXPECT_TRUE(table->unselectRow(0));
    EXPECT_EQ(table->selectedRows(), QList<int>{2});

    struct Kinds : items::CaptionSource {
        QString caption(const items::TreeItem &) const override { return {}; }
        int image(const items::TreeItem &) const override { return 0; }
        QString kind(const items::TreeItem &) const override { return "要素"; }
    } kinds;
    EXPECT_EQ(a2->text(QAccessible::Description), "");
    tree_.nodes().setCaptionSource(&kinds);
    EXPECT_EQ(a2->text(QAccessible::Description), "要素、レベル 2");
    tree_.nodes().setCaptionSource(nullptr);

    tree_.nodes().Clear();
    EXPECT_EQ(tree->childCount(), 0);
    add({}, "new");
    EXPECT_EQ(tree->child(0)->text(QAccessible::Name), "new");
}

TEST_F(TreeViewTest, ShowsHundredThousandLevels) {
    constexpr int Levels = 100'000;
    tree_.nodes().Clear();
    tree_.nodes().beginBuild();
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

TEST_F(TreeViewTest, ShowsAHugeSubtree) {
    constexpr int Parents = 60'000;
    const items::TreeItem top = named("b");
    tree_.nodes().beginBuild();
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

} // namespace quillon::test

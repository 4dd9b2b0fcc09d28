#include "platform/items/tree.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace quillon::items;

namespace {

/// A small tree that nobody shows, all of it expanded: a(a1 a2(x y) a3) b.
class SmallTree : public testing::Test {
protected:
    SmallTree() {
        const TreeItem a = add({}, "a");
        add(a, "a1");
        const TreeItem a2 = add(a, "a2");
        add(a2, "x");
        add(a2, "y");
        add(a, "a3");
        add({}, "b");
        tree_.nodes().setExpandedSubtree(a, true);
        QObject::connect(&tree_, &Tree::NodeClick, &tree_,
                         [this](const TreeItem &item) { clicks_ << item.Text(); });
        QObject::connect(&tree_.nodes(), &Nodes::revealRequested, &tree_,
                         [this](const TreeItem &item) { revealed_ << item.Text(); });
    }

    TreeItem add(const TreeItem &parent, const QString &text) {
        TreeItem item = tree_.nodes().Add(parent, Relationship::Child, ++sequence_);
        item.setText(text);
        return item;
    }
    TreeItem named(const QString &text) {
        for (int i = 1; i <= tree_.nodes().Count(); ++i) {
            if (tree_.nodes().Item(i).Text() == text)
                return tree_.nodes().Item(i);
        }
        return {};
    }
    void select(const QString &text) { tree_.setSelectedItem(named(text)); }
    QString selected() const { return tree_.SelectedItem().Text(); }
    static QString texts(const std::vector<TreeItem> &items) {
        QStringList texts;
        for (const TreeItem &item : items)
            texts << item.Text();
        return texts.join(' ');
    }
    QString all() const { return texts(tree_.selectedItems()); }

    Tree tree_;
    quint32 sequence_ = 0;
    QStringList clicks_;
    QStringList revealed_;
};

TEST_F(SmallTree, RemovalPassesTheSelectionOn) {
    struct Case {
        const char *selected, *removed, *then;
    };
    for (const auto &[first, removed, then] : {Case{"a1", "a1", "a2"},
                                               {"a3", "a3", "a"},
                                               {"y", "a2", "a"},
                                               {"b", "b", "a"},
                                               {"a", "a", ""}}) {
        SCOPED_TRACE(removed);
        select(first);
        ASSERT_EQ(selected(), first);
        tree_.nodes().Remove(named(removed));
        EXPECT_EQ(selected(), then);
    }
    EXPECT_EQ(clicks_, QStringList()) << "the user has selected nothing";
}

TEST_F(SmallTree, RemovalElsewhereLeavesTheSelectionAlone) {
    select("a2");
    tree_.nodes().Remove(named("a1"));
    tree_.nodes().Remove(named("x"));
    EXPECT_EQ(selected(), "a2");
    tree_.setSelectedItem({});
    EXPECT_TRUE(tree_.SelectedItem().isNothing());
    tree_.nodes().Remove(named("a2"));
    EXPECT_TRUE(tree_.SelectedItem().isNothing());
}

TEST_F(SmallTree, CollapsingSelectsWhatIsCollapsed) {
    select("y");
    named("a2").setExpanded(false);
    EXPECT_EQ(selected(), "a2");
    named("a2").setExpanded(true);
    EXPECT_EQ(selected(), "a2");
    select("a1");
    named("a2").setExpanded(false);
    EXPECT_EQ(selected(), "a1") << "not below it";
    select("y");
    tree_.nodes().setExpandedSubtree(named("a"), false);
    EXPECT_EQ(selected(), "a");
    EXPECT_EQ(clicks_, QStringList());
}

TEST_F(SmallTree, NewContentSelectsNothing) {
    select("a");
    tree_.nodes().Clear();
    EXPECT_TRUE(tree_.SelectedItem().isNothing());
    EXPECT_EQ(tree_.rows().count(), 0);
    add({}, "new");
    EXPECT_TRUE(tree_.SelectedItem().isNothing());
    EXPECT_EQ(tree_.rows().count(), 1);
}

TEST_F(SmallTree, SelectingShowsTheItemUnlessItIsToStay) {
    tree_.nodes().setExpandedSubtree(named("a"), false);
    select("x");
    EXPECT_TRUE(named("a").Expanded() && named("a2").Expanded());
    EXPECT_EQ(revealed_, QStringList{"x"});
    select("x");
    EXPECT_EQ(revealed_, QStringList{"x"}) << "it was selected already";

    bool inPlace = false;
    QObject::connect(&tree_.selectionModel(), &QItemSelectionModel::currentChanged, &tree_,
                     [&] { inPlace = tree_.isSelectingInPlace(); });
    tree_.selectInPlace(named("a3"));
    EXPECT_EQ(selected(), "a3");
    EXPECT_EQ(revealed_, QStringList{"x"});
    EXPECT_TRUE(inPlace);
    select("a1");
    EXPECT_FALSE(inPlace);
}

TEST_F(SmallTree, OnlyTheUserClicks) {
    tree_.selectAsUser(named("a2"));
    tree_.selectAsUser(named("a2"));
    tree_.asUserGesture([&] { named("a").setExpanded(false); });
    tree_.asUserGesture([&] { tree_.setSelectedItem({}); });
    select("b");
    EXPECT_EQ(clicks_, (QStringList{"a2", "a"}));
}

TEST_F(SmallTree, AsksForTheEditingOfACaption) {
    const QSignalSpy asked(&tree_, &Tree::labelEditRequested);
    tree_.StartLabelEdit();
    EXPECT_EQ(asked.count(), 0) << "nothing is selected";
    select("x");
    tree_.StartLabelEdit();
    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][0].value<TreeItem>(), named("x"));

    tree_.enterLabel(named("x"), "new");
    EXPECT_EQ(selected(), "new");
    tree_.afterLabelEdit = [](const TreeItem &item, QString &text) {
        text += item.Text();
        return text != "badnew";
    };
    tree_.enterLabel(named("new"), "bad");
    EXPECT_EQ(selected(), "new");
    tree_.enterLabel(named("new"), "re");
    EXPECT_EQ(selected(), "renew");
}

TEST_F(SmallTree, SelectsSeveralInTheOrderOfTheTree) {
    select("a1");
    tree_.extendSelection(named("x"));
    EXPECT_EQ(all(), "a1 a2 x");
    EXPECT_EQ(selected(), "x");
    tree_.toggleSelected(named("b"));
    EXPECT_EQ(all(), "a1 a2 x b");
    EXPECT_EQ(selected(), "b");
    tree_.toggleSelected(named("a1"));
    EXPECT_EQ(all(), "a2 x b") << "selected, it is no longer";
    EXPECT_EQ(selected(), "b");
    EXPECT_EQ(texts(tree_.topmostSelectedItems()), "a2 b") << "x goes with a2";
    tree_.toggleSelected(named("b"));
    EXPECT_EQ(selected(), "x") << "the nearest takes its place";
    tree_.makeCurrent(named("a2"));
    EXPECT_EQ(all(), "a2 x");
    EXPECT_EQ(selected(), "a2");
    tree_.extendSelection(named("a3"), tree_.selected());
    EXPECT_EQ(all(), "a2 x y a3");
    tree_.extendSelection(named("a1"));
    EXPECT_EQ(all(), "a1 a2") << "from where the last other gesture was";
    tree_.setSelectedItem(named("a1"));
    EXPECT_EQ(all(), "a1") << "also where it is the current one";
    tree_.toggleSelected(named("a1"));
    EXPECT_EQ(all(), "a1");
    tree_.selectItems({named("y"), named("a1"), {}}, named("b"));
    EXPECT_EQ(all(), "a1 y b");
    EXPECT_EQ(selected(), "b");
}

TEST_F(SmallTree, WhatVanishesIsNoLongerSelected) {
    const auto start = [&] {
        tree_.selectItems({named("a1"), named("x"), named("y")}, named("b"));
    };
    start();
    named("a2").setExpanded(false);
    EXPECT_EQ(all(), "a1 b") << "collapsed";
    named("a2").setExpanded(true);
    EXPECT_EQ(all(), "a1 b");
    start();
    tree_.makeCurrent(named("y"));
    named("a2").setExpanded(false);
    EXPECT_EQ(all(), "a1 a2 b") << "what is collapsed stands for the current one";
    EXPECT_EQ(selected(), "a2");
    start();
    tree_.nodes().Remove(named("a2"));
    EXPECT_EQ(all(), "a1 b");
    const Tree::Selected before = tree_.selected();
    select("a3");
    tree_.nodes().Remove(named("a1"));
    tree_.bringBack(before);
    EXPECT_EQ(all(), "b");
    tree_.extendSelection(named("a"));
    tree_.nodes().Remove(named("a"));
    EXPECT_EQ(all(), "b");
    tree_.nodes().Clear();
    EXPECT_EQ(tree_.selectedCount(), 0);
    add({}, "new");
    EXPECT_FALSE(tree_.isSelected(named("new")));
    tree_.bringBack(before);
    EXPECT_EQ(tree_.selectedCount(), 0) << "of another content";
}

TEST_F(SmallTree, TellsOnceWhetherItIsToBeSeen) {
    QSignalSpy changes(&tree_, &Tree::treeVisibleChanged);
    EXPECT_TRUE(tree_.treeVisible());
    for (const bool visible : {true, false, false, true})
        tree_.setTreeVisible(visible);
    EXPECT_EQ(changes, (QList<QVariantList>{{false}, {true}}));
}

} // namespace

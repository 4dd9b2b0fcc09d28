#include "platform/items/tree_nodes.h"
#include "platform/runtime/error.h"

#include <QSignalSpy>

#include <algorithm>
#include <gtest/gtest.h>

using namespace quillon::items;

namespace {

struct Captions : CaptionSource {
    QString caption(const TreeItem &item) const override {
        return prefix + QString::number(item.sequence());
    }
    int image(const TreeItem &item) const override { return static_cast<int>(item.sequence()) - 2; }

    QString prefix = QStringLiteral("c");
};

TEST(Nodes, DescribeTheirItems) {
    Captions captions;
    Nodes nodes;
    nodes.setCaptionSource(&captions);
    const TreeItem root = nodes.Add({}, Relationship::Child, 1);
    TreeItem child = nodes.Add(root, Relationship::Child, 2);
    const TreeItem grandchild = nodes.Add(child, Relationship::Child, 30);

    EXPECT_EQ(grandchild.Key(), "30Node");
    EXPECT_EQ(grandchild.Index(), 3);
    EXPECT_EQ(grandchild.FullPath(), "c1/c2/c30");
    EXPECT_EQ(nodes.image(root), -1);
    EXPECT_EQ(nodes.image(grandchild), 28);
    EXPECT_EQ(nodes.image({}), -1);

    child.setBold(true);
    EXPECT_TRUE(child.Bold());
    nodes.setBoldItems({grandchild});
    EXPECT_TRUE(grandchild.Bold());
    EXPECT_FALSE(child.Bold());
}

TEST(Nodes, SetAndPinnedCaptionsWinUntilCleared) {
    Captions captions;
    Nodes nodes;
    nodes.setCaptionSource(&captions);
    const TreeItem plain = nodes.Add({}, Relationship::Child, 1);
    TreeItem set = nodes.Add({}, Relationship::Child, 2);
    TreeItem pinned = nodes.Add({}, Relationship::Child, 3);
    TreeItem same = nodes.Add({}, Relationship::Child, 4);
    const QSignalSpy changes(&nodes, &Nodes::dataChanged);
    set.setText(QStringLiteral("own\n"));
    pinned.pinText();
    same.setText(QStringLiteral("x"));
    same.setText(QStringLiteral("c4"));
    EXPECT_EQ(changes.count(), 3);

    captions.prefix = QStringLiteral("d");
    EXPECT_EQ(plain.Text(), "d1");
    EXPECT_EQ(set.Text(), "own\n");
    EXPECT_EQ(nodes.data(nodes.indexOf(set), Qt::DisplayRole).toString(), "own\n");
    EXPECT_EQ(pinned.Text(), "c3");
    EXPECT_EQ(same.Text(), "d4") << "a caption like the source's own is not kept";

    nodes.Clear();
    nodes.Add({}, Relationship::Child, 1);
    EXPECT_EQ(nodes.Add({}, Relationship::Child, 2).Text(), "d2");
}

TEST(Nodes, DeadHandlesAreNothing) {
    Captions captions;
    Nodes nodes;
    nodes.setCaptionSource(&captions);
    TreeItem parent = nodes.Add({}, Relationship::Child, 7);
    TreeItem child = nodes.Add(parent, Relationship::Child, 8);
    child.setText(QStringLiteral("x"));
    child.setBold(true);
    nodes.Remove(parent);
    nodes.Remove(parent);
    TreeItem cleared = nodes.Add({}, Relationship::Child, 9);
    nodes.Clear();
    // Numbering may start again with new content; the old handles do not come back to life.
    for (quint32 sequence : {7U, 8U, 9U})
        nodes.Add({}, Relationship::Child, sequence);

    for (TreeItem item : {TreeItem(), parent, child, cleared}) {
        EXPECT_FALSE(item);
        EXPECT_EQ(item, TreeItem());
        EXPECT_NE(item, nodes.Item(1));
        EXPECT_EQ(item.Key() + item.Text() + item.FullPath(), "");
        EXPECT_EQ(item.sequence() + static_cast<quint32>(item.Index() + item.Children()), 0U);
        EXPECT_FALSE(item.Parent() || item.Child() || item.Next() || item.Previous());
        item.setText(QStringLiteral("y"));
        item.pinText();
        item.setBold(true);
        item.setExpanded(true);
        item.EnsureVisible();
        EXPECT_FALSE(item.Bold() || item.Expanded());
    }
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(nodes.Item(i).Text(), captions.caption(nodes.Item(i)));
        EXPECT_FALSE(nodes.Item(i).Bold() || nodes.Item(i).Expanded());
    }
    EXPECT_FALSE(nodes.Item(0) || nodes.Item(4));
}

TEST(Nodes, RefuseNumbersThatDoNotAscend) {
    Nodes nodes;
    EXPECT_THROW(nodes.Add({}, Relationship::Child, 0), quillon::runtime::Error);
    const TreeItem item = nodes.Add({}, Relationship::Child, 5);
    const QSignalSpy insertions(&nodes, &Nodes::rowsAboutToBeInserted);
    for (const quint32 sequence : {0U, 4U, 5U})
        EXPECT_THROW(nodes.Add(item, Relationship::Child, sequence), quillon::runtime::Error);
    EXPECT_THROW(nodes.Add({}, Relationship::Previous, 6), quillon::runtime::Error);
    EXPECT_EQ(insertions.count(), 0);
    EXPECT_EQ(nodes.Count(), 1);
}

TEST(Nodes, AnnounceABuildOnce) {
    Nodes nodes;
    const QSignalSpy resets(&nodes, &Nodes::modelReset);
    const QSignalSpy insertions(&nodes, &Nodes::rowsInserted);
    const QSignalSpy expansions(&nodes, &Nodes::expansionChanged);
    nodes.beginBuild();
    const TreeItem root = nodes.Add({}, Relationship::Child, 1);
    TreeItem child = nodes.Add(root, Relationship::Child, 2);
    child.setExpanded(true);
    nodes.endBuild();
    EXPECT_EQ(insertions.count(), 1);
    EXPECT_EQ(expansions.count(), 0);

    // Two new items below old ones, each with something below it.
    nodes.beginBuild();
    const TreeItem first = nodes.Add(child, Relationship::Child, 3);
    nodes.Add(first, Relationship::Child, 4);
    const TreeItem second = nodes.Add(first, Relationship::Previous, 5);
    nodes.Add(nodes.Add(second, Relationship::Child, 6), Relationship::Previous, 7);
    nodes.endBuild();
    EXPECT_EQ(resets.count(), 0);
    ASSERT_EQ(insertions.count(), 3);
    for (int i = 1; i < insertions.count(); ++i) {
        EXPECT_EQ(insertions[i][0].toModelIndex(), nodes.indexOf(child));
        EXPECT_EQ(insertions[i][1].toInt(), 0);
    }
    EXPECT_EQ(child.Child(), second);
    EXPECT_EQ(second.Children(), 2);

    // A build that an error has cut short does not silence what comes after.
    nodes.beginBuild();
    nodes.Clear();
    nodes.Add({}, Relationship::Child, 8);
    EXPECT_EQ(insertions.count(), 4);
}

TEST(Nodes, FindItemsAmongAMillionSiblings) {
    constexpr quint32 Count = 1'000'000;
    constexpr quint32 First = 1000;
    Nodes nodes;
    const TreeItem parent = nodes.Add({}, Relationship::Child, First);
    nodes.beginBuild();
    std::vector<TreeItem> items{parent};
    for (quint32 i = 1; i <= Count; ++i)
        items.push_back(nodes.Add(parent, Relationship::Child, First + i));
    nodes.endBuild();
    EXPECT_EQ(nodes.Count(), Count + 1);

    // Every third one goes, and each time one comes at the front.
    const QModelIndex top = nodes.indexOf(parent);
    quint32 sequence = First + Count;
    for (quint32 i = 3; i < 3000; i += 3) {
        nodes.Remove(items[i]);
        const TreeItem front = nodes.Add(parent.Child(), Relationship::Previous, ++sequence);
        EXPECT_EQ(nodes.indexOf(front).row(), 0);
    }
    EXPECT_EQ(nodes.rowCount(top), Count);
    const quint32 added = sequence - First - Count;
    for (const quint32 i : {1U, 2U, 4U, 2999U, 3000U, 65'536U, Count}) {
        const quint32 removedBefore = std::min((i - 1) / 3, added);
        const TreeItem item = items[i];
        const auto row = static_cast<int>(added + i - 1 - removedBefore);
        EXPECT_EQ(nodes.indexOf(item).row(), row);
        EXPECT_EQ(nodes.itemAt(nodes.index(row, 0, top)), item);
        EXPECT_EQ(item.Index(), static_cast<int>(i + 1 - removedBefore));
        EXPECT_EQ(nodes.Item(item.Index()), item);
    }
    EXPECT_EQ(nodes.Item(nodes.Count()).sequence(), sequence);
}

} // namespace

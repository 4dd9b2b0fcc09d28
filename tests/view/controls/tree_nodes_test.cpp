#include "platform/items/tree.h"
#include "platform/runtime/error.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

using namespace quillon::items;

namespace {

struct Captions : CaptionSource {
    QString caption(quint32 sequence) const override { return prefix + QString::number(sequence); }
    int image(quint32 sequence) const override { return static_cast<int>(sequence) - 2; }

    QString prefix = QStringLiteral("c");
};

/// The same collection done in the simplest way: a map by number, in the order of addition.
struct Reference {
    struct Entry {
        quint32 parent = 0;
        std::vector<quint32> children;
        bool expanded = false;
    };
    /// 0 is the invisible root.
    std::map<quint32, Entry> entries{{0, {}}};

    void add(quint32 sequence, quint32 parent, quint32 before) {
        auto &siblings = entries[parent].children;
        siblings.insert(std::find(siblings.begin(), siblings.end(), before), sequence);
        entries[sequence].parent = parent;
    }
    void remove(quint32 sequence) {
        auto &siblings = entries[entries[sequence].parent].children;
        siblings.erase(std::find(siblings.begin(), siblings.end(), sequence));
        erase(sequence);
    }
    void expandSubtree(quint32 sequence, bool on) {
        Entry &entry = entries[sequence];
        entry.expanded = on ? entry.expanded || !entry.children.empty() : false;
        for (const quint32 child : entry.children)
            expandSubtree(child, on);
    }
    std::vector<quint32> shown(quint32 parent = 0) const {
        std::vector<quint32> result;
        for (const quint32 child : entries.at(parent).children) {
            result.push_back(child);
            if (entries.at(child).expanded)
                std::ranges::copy(shown(child), std::back_inserter(result));
        }
        return result;
    }
    quint32 sibling(quint32 sequence, int by) const {
        const auto &all = entries.at(entries.at(sequence).parent).children;
        const auto at = std::find(all.begin(), all.end(), sequence) - all.begin() + by;
        return at < 0 || at >= std::ssize(all) ? 0 : all[static_cast<size_t>(at)];
    }

private:
    void erase(quint32 sequence) {
        for (const quint32 child : entries[sequence].children)
            erase(child);
        entries.erase(sequence);
    }
};

void expectSame(Tree &tree, const Reference &reference) {
    Nodes &nodes = tree.nodes();
    ASSERT_EQ(nodes.Count(), std::ssize(reference.entries) - 1);
    int index = 0;
    std::vector<quint32> expanded;
    for (const auto &[sequence, entry] : reference.entries) {
        const QModelIndex parent = nodes.indexOf(nodes.bySequence(sequence));
        ASSERT_EQ(nodes.rowCount(parent), std::ssize(entry.children));
        for (int row = 0; row < nodes.rowCount(parent); ++row) {
            const QModelIndex child = nodes.index(row, 0, parent);
            ASSERT_EQ(nodes.itemAt(child).sequence(), entry.children[static_cast<size_t>(row)]);
            ASSERT_EQ(nodes.indexOf(nodes.itemAt(child)), child);
        }
        if (sequence == 0)
            continue;
        const TreeItem item = nodes.Item(++index);
        ASSERT_EQ(item.sequence(), sequence);
        ASSERT_EQ(item.Index(), index);
        ASSERT_EQ(item.Parent().sequence(), entry.parent);
        ASSERT_EQ(item.Children(), std::ssize(entry.children));
        ASSERT_EQ(item.Child().sequence(), entry.children.empty() ? 0 : entry.children[0]);
        ASSERT_EQ(item.Next().sequence(), reference.sibling(sequence, 1));
        ASSERT_EQ(item.Previous().sequence(), reference.sibling(sequence, -1));
        if (entry.expanded)
            expanded.push_back(sequence);
    }
    std::vector<quint32> reported;
    nodes.forEachExpanded([&](const TreeItem &item) { reported.push_back(item.sequence()); });
    ASSERT_EQ(reported, expanded);

    const std::vector<quint32> shown = reference.shown();
    ASSERT_EQ(tree.rows().count(), std::ssize(shown));
    for (int row = 0; row < tree.rows().count(); ++row) {
        const TreeStore::Slot slot = tree.rows().at(row);
        ASSERT_EQ(nodes.item(slot).sequence(), shown[static_cast<size_t>(row)]);
        ASSERT_EQ(tree.rows().rowOf(slot), row);
    }
}

class RandomOperations : public testing::TestWithParam<unsigned> {
protected:
    RandomOperations() : random_(GetParam()) { tree_.nodes().setCaptionSource(&captions_); }

    quint32 below(quint32 limit) { return static_cast<quint32>(random_() % limit); }
    TreeItem anyItem() {
        const int count = tree_.nodes().Count();
        return count == 0
                   ? TreeItem()
                   : tree_.nodes().Item(static_cast<int>(below(static_cast<quint32>(count))) + 1);
    }
    TreeItem add(const TreeItem &relative, bool before) {
        sequence_ += 1 + (below(10) == 0 ? below(700) : 0);
        if (before)
            reference_.add(sequence_, relative.Parent().sequence(), relative.sequence());
        else
            reference_.add(sequence_, relative.sequence(), 0);
        return tree_.nodes().Add(relative, before ? Relationship::Previous : Relationship::Child,
                                 sequence_);
    }
    void build(const TreeItem &relative) {
        tree_.nodes().beginBuild(8);
        std::vector<TreeItem> added{add(relative, false)};
        for (quint32 i = below(8); i > 0; --i) {
            const quint32 to = below(static_cast<quint32>(added.size()));
            added.push_back(add(added[to], to != 0 && below(3) == 0));
            if (below(2) == 0) {
                added.back().setExpanded(true);
                reference_.entries[sequence_].expanded = true;
            }
        }
        tree_.nodes().endBuild();
    }
    void operate() {
        TreeItem item = anyItem();
        const quint32 action = below(100);
        if (action < 30) {
            add(item, item && below(2) == 0);
        } else if (action < 40) {
            build(item);
        } else if (action < 60 && item && tree_.nodes().Count() > 60) {
            reference_.remove(item.sequence());
            tree_.nodes().Remove(item);
            EXPECT_TRUE(item.isNothing());
        } else if (action < 80 && item) {
            const bool on = below(4) != 0;
            reference_.entries[item.sequence()].expanded = on;
            item.setExpanded(on);
        } else if (action < 85 && item) {
            const bool on = below(2) == 0;
            reference_.expandSubtree(item.sequence(), on);
            tree_.nodes().setExpandedSubtree(item, on);
        } else if (action < 95) {
            tree_.setSelectedItem(item);
            for (TreeItem up = item.Parent(); up; up = up.Parent())
                reference_.entries[up.sequence()].expanded = true;
        } else if (action == 99 && below(5) == 0) {
            reference_ = Reference();
            tree_.nodes().Clear();
        }
    }

    Captions captions_;
    Tree tree_;
    Reference reference_;
    std::mt19937 random_;
    quint32 sequence_ = 0;
};

TEST_P(RandomOperations, AgreeWithTheReference) {
    const QAbstractItemModelTester tester(&tree_.nodes(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int i = 0; i < 2500; ++i) {
        operate();
        // Whatever is removed or collapsed, the selected item stays in sight.
        const TreeItem selected = tree_.SelectedItem();
        ASSERT_TRUE(!selected || tree_.rows().isShown(tree_.nodes().slotOf(selected)));
        // Not each time: what is kept from one question to the next must be tried too.
        if (below(4) == 0) {
            ASSERT_NO_FATAL_FAILURE(expectSame(tree_, reference_)) << "after operation " << i;
        }
    }
    ASSERT_NO_FATAL_FAILURE(expectSame(tree_, reference_));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperations, testing::Values(1U, 2U, 3U, 4U));

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
    nodes.clearBold();
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
        EXPECT_EQ(nodes.Item(i).Text(), captions.caption(nodes.Item(i).sequence()));
        EXPECT_FALSE(nodes.Item(i).Bold() || nodes.Item(i).Expanded());
    }
    EXPECT_FALSE(nodes.Item(0) || nodes.Item(4) || nodes.bySequence(6) || nodes.bySequence(10));
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
    nodes.beginBuild(3);
    const TreeItem root = nodes.Add({}, Relationship::Child, 1);
    TreeItem child = nodes.Add(root, Relationship::Child, 2);
    child.setExpanded(true);
    nodes.endBuild();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(insertions.count() + expansions.count(), 0);

    // Two new items below old ones, each with something below it.
    nodes.beginBuild(4);
    const TreeItem first = nodes.Add(child, Relationship::Child, 3);
    nodes.Add(first, Relationship::Child, 4);
    const TreeItem second = nodes.Add(first, Relationship::Previous, 5);
    nodes.Add(nodes.Add(second, Relationship::Child, 6), Relationship::Previous, 7);
    nodes.endBuild();
    EXPECT_EQ(resets.count(), 1);
    ASSERT_EQ(insertions.count(), 2);
    for (const auto &insertion : insertions) {
        EXPECT_EQ(insertion[0].toModelIndex(), nodes.indexOf(child));
        EXPECT_EQ(insertion[1].toInt(), 0);
    }
    EXPECT_EQ(child.Child(), second);
    EXPECT_EQ(second.Children(), 2);

    // A build that an error has cut short does not silence what comes after.
    nodes.beginBuild(1);
    nodes.Clear();
    nodes.Add({}, Relationship::Child, 8);
    EXPECT_EQ(insertions.count(), 3);
}

TEST(Nodes, FindItemsAmongAMillionSiblings) {
    constexpr quint32 Count = 1'000'000;
    constexpr quint32 First = 1000;
    Nodes nodes;
    const TreeItem parent = nodes.Add({}, Relationship::Child, First);
    nodes.beginBuild(Count);
    for (quint32 i = 1; i <= Count; ++i)
        nodes.Add(parent, Relationship::Child, First + i);
    nodes.endBuild();
    EXPECT_EQ(nodes.Count(), Count + 1);

    // Every third one goes, and each time one comes at the front.
    const QModelIndex top = nodes.indexOf(parent);
    quint32 sequence = First + Count;
    for (quint32 i = 3; i < 3000; i += 3) {
        nodes.Remove(nodes.bySequence(First + i));
        const TreeItem front = nodes.Add(parent.Child(), Relationship::Previous, ++sequence);
        EXPECT_EQ(nodes.indexOf(front).row(), 0);
    }
    EXPECT_EQ(nodes.rowCount(top), Count);
    const quint32 added = sequence - First - Count;
    for (const quint32 i : {1U, 2U, 4U, 2999U, 3000U, 65'536U, Count}) {
        const quint32 removedBefore = std::min((i - 1) / 3, added);
        const TreeItem item = nodes.bySequence(First + i);
        const auto row = static_cast<int>(added + i - 1 - removedBefore);
        EXPECT_EQ(nodes.indexOf(item).row(), row);
        EXPECT_EQ(nodes.itemAt(nodes.index(row, 0, top)), item);
        EXPECT_EQ(item.Index(), static_cast<int>(i + 1 - removedBefore));
        EXPECT_EQ(nodes.Item(item.Index()), item);
    }
    EXPECT_EQ(nodes.Item(nodes.Count()).sequence(), sequence);
}

} // namespace

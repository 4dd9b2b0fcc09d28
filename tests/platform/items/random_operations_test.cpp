#include "platform/items/tree.h"

#include <QAbstractItemModelTester>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

using namespace quillon::items;

namespace {

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
    RandomOperations() : random_(GetParam()) {}

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

} // namespace

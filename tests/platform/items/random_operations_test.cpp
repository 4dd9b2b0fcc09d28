#include "platform/items/tree.h"

#include <QAbstractItemModelTester>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <random>
#include <span>

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

/// A random tree whose slots are in no order, with gaps between them.
class BaseInAnyOrder final : public BaseItems {
public:
    BaseInAnyOrder(std::mt19937 &random, quint32 firstSequence) : firstSequence_(firstSequence) {
        std::vector<Slot> unused(1 + random() % 80);
        std::iota(unused.begin(), unused.end(), 1);
        std::ranges::shuffle(unused, random);
        entries_.resize(unused.size() + 1);
        std::vector<Slot> used{0};
        for (const Slot slot : std::span(unused).first((unused.size() + 1) / 2)) {
            const Slot parent = used[random() % used.size()];
            entries_[slot].parent = parent;
            entries_[parent].children.push_back(slot);
            used.push_back(slot);
        }
        putInOrder(0);
    }
    void describe(Reference &reference) const {
        for (const Slot slot : order_)
            reference.add(sequence(slot), parent(slot) == 0 ? 0 : sequence(parent(slot)), 0);
    }

    Slot slotEnd() const override { return static_cast<Slot>(entries_.size()); }
    bool isItem(Slot slot) const override { return std::ranges::count(order_, slot) != 0; }
    Slot parent(Slot slot) const override { return entries_[slot].parent; }
    Slot next(Slot slot) const override {
        const auto &all = siblings(slot);
        const auto at = std::ranges::find(all, slot) + 1;
        return at == all.end() ? 0 : *at;
    }
    Slot previousInCircle(Slot slot) const override {
        const auto &all = siblings(slot);
        const auto at = std::ranges::find(all, slot);
        return at == all.begin() ? all.back() : *(at - 1);
    }
    Slot firstChild(Slot slot) const override {
        const auto &all = entries_[slot].children;
        return all.empty() ? 0 : all.front();
    }
    quint32 count() const override { return static_cast<quint32>(order_.size()); }
    quint32 indexOf(Slot slot) const override {
        return static_cast<quint32>(std::ranges::find(order_, slot) - order_.begin());
    }
    Slot at(quint32 index) const override { return order_[index]; }
    bool isEarlier(Slot one, Slot other) const override { return indexOf(one) < indexOf(other); }
    quint32 sequence(Slot slot) const override { return firstSequence_ + indexOf(slot); }

    Slot comparableFrom(const BaseItems &, Slot) const override { return 0; }
    bool isSurelyUnchanged(const BaseItems &, Slot) const override { return false; }

private:
    struct Entry {
        Slot parent = 0;
        std::vector<Slot> children;
    };

    const std::vector<Slot> &siblings(Slot slot) const {
        return entries_[entries_[slot].parent].children;
    }
    void putInOrder(Slot parent) {
        for (const Slot child : entries_[parent].children) {
            order_.push_back(child);
            putInOrder(child);
        }
    }

    quint32 firstSequence_;
    std::vector<Entry> entries_;
    std::vector<Slot> order_;
};

void expectSame(Tree &tree, const Reference &reference) {
    Nodes &nodes = tree.nodes();
    ASSERT_EQ(nodes.Count(), std::ssize(reference.entries) - 1);
    int index = 0;
    std::vector<quint32> expanded;
    TreeStore::Slot latest = 0;
    for (const auto &[sequence, entry] : reference.entries) {
        const TreeItem item = nodes.Item(index++);
        const QModelIndex parent = nodes.indexOf(item);
        ASSERT_EQ(nodes.rowCount(parent), std::ssize(entry.children));
        for (int row = 0; row < nodes.rowCount(parent); ++row) {
            const QModelIndex child = nodes.index(row, 0, parent);
            ASSERT_EQ(nodes.itemAt(child).sequence(), entry.children[static_cast<size_t>(row)]);
            ASSERT_EQ(nodes.indexOf(nodes.itemAt(child)), child);
        }
        if (sequence == 0)
            continue;
        ASSERT_EQ(item.sequence(), sequence);
        ASSERT_EQ(item.Index(), index - 1);
        ASSERT_TRUE(nodes.store().isItem(nodes.slotOf(item)));
        ASSERT_TRUE(index == 2 || nodes.store().isEarlier(latest, nodes.slotOf(item)));
        latest = nodes.slotOf(item);
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
    std::ranges::sort(reported);
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
        ++sequence_;
        if (before)
            reference_.add(sequence_, relative.Parent().sequence(), relative.sequence());
        else
            reference_.add(sequence_, relative.sequence(), 0);
        return tree_.nodes().Add(relative, before ? Relationship::Previous : Relationship::Child,
                                 sequence_);
    }
    void build(const TreeItem &relative) {
        tree_.nodes().beginBuild();
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
    /// Begins anew, mostly with items that somebody else keeps.
    void begin() {
        reference_ = Reference();
        std::shared_ptr<BaseInAnyOrder> base;
        if (below(4) != 0) {
            base = std::make_shared<BaseInAnyOrder>(random_, sequence_ + 1);
            base->describe(reference_);
            sequence_ += base->count();
        }
        tree_.nodes().reset(base);
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
            begin();
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
    begin();
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

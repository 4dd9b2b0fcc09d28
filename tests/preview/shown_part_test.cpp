#include "preview/shown_part.h"

#include <gtest/gtest.h>
#include <random>

namespace quillon::preview::test {

namespace {

using xml::ChildRun;
using xml::DocumentPart;
using xml::DOMDocument40;
using xml::Node;
using xml::NodeType;

class ShownPartTest : public testing::TestWithParam<unsigned> {
protected:
    /// Elements in elements, some with few children and some with many.
    QByteArray content(int depth) {
        QByteArray text;
        const int children = pick(10) == 0 ? 60 : pick(6);
        for (int i = 0; i < children; ++i) {
            if (depth == 0 || pick(3) == 0)
                text += pick(2) == 0 ? "<!--c-->" : "text<b/>";
            else
                text += "<e>" + content(depth - 1) + "</e>";
        }
        return text;
    }
    int pick(int below) { return int(random() % unsigned(below)); }
    /// Some node of the document, however deep; no attribute.
    Node anyNode() {
        Node node = document.node();
        for (int steps = pick(6); steps > 0 && node.hasChildNodes(); --steps)
            node = node.childNodes().item(pick(node.childNodes().length()));
        return node;
    }
    /// The runs of a node are all of its children in their order; at those that are left out one
    /// can ask for more.
    void check(const ShownPart &part, const DocumentPart &runs) {
        for (const auto &[number, list] : runs) {
            Node child = document.nodeByNumber(number).firstChild();
            for (const ChildRun &run : list) {
                ASSERT_EQ(run.first, child.number());
                EXPECT_EQ(part.leavesOut(child), run.kind == ChildRun::Kind::LeftOut);
                for (quint32 i = 0; i < run.count; ++i, child = child.nextSibling()) {
                    EXPECT_EQ(part.shows(child), run.kind != ChildRun::Kind::LeftOut);
                    EXPECT_EQ(child.number() == run.last, i + 1 == run.count);
                }
            }
            EXPECT_FALSE(child);
        }
    }
    Node anyLeftOut(const DocumentPart &runs) {
        std::vector<quint32> first;
        for (const auto &[number, list] : runs) {
            for (const ChildRun &run : list) {
                if (run.kind == ChildRun::Kind::LeftOut)
                    first.push_back(run.first);
            }
        }
        return first.empty() ? Node()
                             : document.nodeByNumber(first[std::size_t(pick(int(first.size())))]);
    }

    std::mt19937 random{GetParam()};
    DOMDocument40 document = DOMDocument40::create();
};

TEST_P(ShownPartTest, KeepsToTheDocument) {
    ASSERT_TRUE(
        document.loadXML("<r>" + content(3) + QByteArray("<e><f/></e>").repeated(900) + "</r>"));
    const Node selected = anyNode();
    ShownPart part = ShownPart::around(selected);
    EXPECT_TRUE(part.shows(selected));
    EXPECT_LT(part.size(), 2'500u);
    for (int step = 0; step < 30; ++step) {
        const DocumentPart runs = part.runs(document);
        check(part, runs);
        const Node at = anyNode();
        if (pick(3) == 0 && at.nodeType() == NodeType::Element) {
            if (pick(2) == 0 && at != document.documentElement())
                at.parentNode().removeChild(at);
            else
                at.insertBefore(document.createElement("new"), at.firstChild());
            part.follow(document);
            continue;
        }
        const Node first = anyLeftOut(runs);
        if (!first)
            continue;
        const auto end = pick(2) == 0 ? ShownPart::End::First : ShownPart::End::Last;
        const std::size_t before = part.size();
        const DocumentPart added = part.extend(first, end);
        EXPECT_GT(part.size(), before);
        EXPECT_TRUE(added.contains(document.node().number()));
        for (const auto &[number, list] : added) {
            for (const ChildRun &run : list)
                EXPECT_EQ(run.label.isEmpty(), run.kind != ChildRun::Kind::LeftOut);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ShownPartTest, testing::Range(1u, 20u));

TEST(ShownPart, ShowsNothingDeeperThanABrowserCan) {
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(
        document.loadXML(QByteArray("<d>").repeated(600) + QByteArray("</d>").repeated(600)));
    Node at = document.node();
    ShownPart part = ShownPart::around(at);
    while (part.shows(at))
        at = at.firstChild();
    EXPECT_EQ(depthOf(at), ShownPart::DeepestShown + 1);
    EXPECT_TRUE(part.leavesOut(at));
    EXPECT_TRUE(part.extend(at, ShownPart::End::First).empty());
}

} // namespace

} // namespace quillon::preview::test

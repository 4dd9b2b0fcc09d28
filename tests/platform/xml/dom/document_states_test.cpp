#include "platform/xml/dom/document_states.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

TEST(DocumentStates, CopiesHaveACommonOrigin) {
    DOMDocument40 document = parsed("<r><a>1</a></r>");
    const DOMDocument40 copy = document.clone();
    document.documentElement().setAttribute("new", "name");
    EXPECT_TRUE(haveCommonOrigin(document, copy));
    EXPECT_TRUE(haveCommonOrigin(copy.clone(), document.clone()));
    EXPECT_FALSE(haveCommonOrigin(document, parsed("<r><a>1</a></r>")));
    EXPECT_FALSE(haveCommonOrigin(document, {}));
    document.loadXML(QByteArray("<r><a>1</a></r>"));
    EXPECT_FALSE(haveCommonOrigin(document, copy)) << "loaded anew";
}

TEST(DocumentStates, WhatHasChangedIsNotSurelyUnchanged) {
    std::string text = "<r>";
    for (int i = 0; i < 2'000; ++i)
        text += "<a>1</a>";
    const DOMDocument40 before = parsed(text + "</r>");
    const DOMDocument40 now = before.clone();
    const Node root = now.documentElement();
    const quint32 first = root.firstChild().firstChild().number();
    const quint32 last = root.lastChild().firstChild().number();
    EXPECT_TRUE(isSurelyUnchanged(before, now, first));
    root.firstChild().firstChild().setNodeValue("2");
    EXPECT_FALSE(isSurelyUnchanged(before, now, first));
    EXPECT_TRUE(isSurelyUnchanged(before, now, last));
    const quint32 made = root.appendChild(now.createElement("b")).number();
    EXPECT_FALSE(isSurelyUnchanged(before, now, made));
}

TEST(DocumentStates, ChangedNodesAreThoseThatAnEditIsAbout) {
    std::string text = "<r>";
    for (int i = 0; i < 5'000; ++i)
        text += "<a k='1'>1</a>";
    const DOMDocument40 document = parsed(text + "<b/></r>");
    const Node root = document.documentElement();
    const Node first = root.firstChild();
    Node middle = first;
    for (int i = 0; i < 2'500; ++i)
        middle = middle.nextSibling();
    using Numbers = std::vector<quint32>;
    const auto changedBy = [&](auto edit) {
        const DOMDocument40 before = document.clone();
        edit();
        return changedNodes(before, document, 10);
    };
    EXPECT_EQ(changedBy([] {}), Numbers());
    const Node value = middle.firstChild();
    EXPECT_EQ(changedBy([&] { value.setNodeValue("2"); }), Numbers{value.number()});
    EXPECT_EQ(changedBy([&] { value.setNodeValue("3"); }), Numbers{value.number()}) << "once more";
    const Node attribute = middle.getAttributeNode("k");
    EXPECT_EQ(changedBy([&] { middle.setAttribute("k", "x"); }), Numbers{attribute.number()});
    const quint32 ahead = middle.previousSibling().number();
    const quint32 behind = middle.nextSibling().number();
    EXPECT_EQ(changedBy([&] { root.removeChild(middle); }),
              (Numbers{ahead, middle.number(), behind}));
    Node made;
    const Numbers byAppending =
        changedBy([&] { made = root.appendChild(document.createElement("new")); });
    EXPECT_EQ(byAppending,
              (Numbers{root.number(), made.previousSibling().number(), made.number()}));
    EXPECT_EQ(changedBy([&] {
                  for (Node a = first; a; a = a.nextSibling())
                      a.setAttribute("k", "y");
              }).size(),
              11U)
        << "no more than asked for, and one";
    // Undone, everything is as it was.
    const DOMDocument40 before = document.clone();
    const DOMDocument40 later = before.clone();
    later.documentElement().firstChild().firstChild().setNodeValue("later");
    EXPECT_EQ(changedNodes(later, before, 10).size(), 1U);
}

TEST(DocumentStates, DocumentOrder) {
    const DOMDocument40 document = parsed("<r k='1' l='2'><a><b/></a><c m='3'/><d/></r>");
    std::vector<Node> nodes;
    for (Node at = document.documentElement(); at;) {
        nodes.push_back(at);
        for (const Node &attribute : at.attributes().all())
            nodes.push_back(attribute);
        Node next = at.firstChild();
        for (; !next && at; at = at.parentNode())
            next = at.nextSibling();
        at = next;
    }
    ASSERT_EQ(nodes.size(), 8U);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        for (std::size_t j = 0; j < nodes.size(); ++j)
            EXPECT_EQ(isAhead(nodes[i], nodes[j]), i < j) << i << " and " << j;
    }
}

TEST(DocumentStates, NodesStandOrAreGone) {
    const DOMDocument40 document = parsed("<r><a k='1'><b>t</b></a><c/></r>");
    const Node a = document.documentElement().firstChild();
    const Node nodes[] = {
        document.node(), a, a.getAttributeNode("k"), a.firstChild(), a.firstChild().firstChild(),
        a.nextSibling()};
    const auto standing = [&] {
        StandingNodes all(document);
        std::string text;
        for (const Node &node : nodes)
            text += all.contains(node.number()) ? '#' : '.';
        return text;
    };
    EXPECT_EQ(standing(), "######");
    a.removeAttribute("k");
    EXPECT_EQ(standing(), "##.###");
    document.documentElement().removeChild(a);
    EXPECT_EQ(standing(), "#....#");
    StandingNodes all(document);
    EXPECT_FALSE(all.contains(0));
    EXPECT_FALSE(all.contains(1'000'000));
    EXPECT_FALSE(StandingNodes({}).contains(1));
}

} // namespace

} // namespace quillon::xml::test

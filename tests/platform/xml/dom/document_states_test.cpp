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

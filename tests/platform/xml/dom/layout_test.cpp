#include "platform/runtime/error.h"
#include "platform/xml/dom/arrangement.h"
#include "tests/platform/xml/xml_test_support.h"

#include <vector>

namespace quillon::xml::test {

namespace {

Node find(const DOMDocument40 &document, const char *name) {
    std::vector<Node> open{document.node()};
    while (!open.empty()) {
        const Node n = open.back();
        open.pop_back();
        if (n.nodeName() == name)
            return n;
        for (Node c = n.firstChild(); c; c = c.nextSibling())
            open.push_back(c);
    }
    return {};
}

TEST(Layout, AnInsertedNodeStandsLikeItsNewSiblings) {
    const struct {
        const char *before;
        const char *parent;
        const char *next;
        const char *after;
    } cases[] = {
        // Appended and inserted among siblings on lines of their own.
        {"<r>\n  <a/>\n</r>", "r", "", "<r>\n  <a/>\n  <N/>\n</r>"},
        {"<r>\n  <a/>\n</r>", "r", "a", "<r>\n  <N/>\n  <a/>\n</r>"},
        {"<r>\n\n\t<a/>\n\n\t<b/>\n</r>", "r", "b", "<r>\n\n\t<a/>\n\n\t<N/>\n\t<b/>\n</r>"},
        // The first child, one step deeper.
        {"<r>\n   <a/>\n</r>", "a", "", "<r>\n   <a>\n      <N/>\n   </a>\n</r>"},
        {"<r>\n\t<a></a>\n</r>", "a", "", "<r>\n\t<a>\n\t\t<N/>\n\t</a>\n</r>"},
        {"<r>\n <b>\n     <a x='1' />\n </b>\n</r>", "a", "",
         "<r>\n <b>\n     <a x='1'>\n         <N/>\n     </a>\n </b>\n</r>"},
        {"<r/>", "r", "", "<r>\n  <N/>\n</r>"},
        // Where the parent shows no step, that of the root's children, else two blanks.
        {"<!--c-->\n<r>\n   <x>\n   <a/>\n   </x>\n</r>", "a", "",
         "<!--c-->\n<r>\n   <x>\n   <a>\n      <N/>\n   </a>\n   </x>\n</r>"},
        {"<r><x>\n<a/>\n</x></r>", "a", "", "<r><x>\n<a>\n  <N/>\n</a>\n</x></r>"},
        // One-line parents and mixed content.
        {"<r><a/></r>", "r", "", "<r><a/><N/></r>"},
        {"<r><a/></r>", "r", "a", "<r><N/><a/></r>"},
        {"<r><a/></r>", "a", "", "<r><a><N/></a></r>"},
        {"<r>\n  <p>text <a/></p>\n</r>", "p", "", "<r>\n  <p>text <a/><N/></p>\n</r>"},
        {"<r>\n  text\n  <a/>\n</r>", "r", "a", "<r>\n  text\n  <N/><a/>\n</r>"},
        {"<r xml:space='preserve'>\n <a/>\n</r>", "r", "a",
         "<r xml:space='preserve'>\n <N/><a/>\n</r>"},
    };
    for (const auto &c : cases) {
        DOMDocument40 d = parsed(c.before);
        find(d, c.parent).insertBefore(d.createElement("N"), *c.next ? find(d, c.next) : Node());
        EXPECT_EQ(xml(d), c.after) << c.before;
        // Taking it out again gives the text back where a place was not made for it.
        find(d, c.parent).removeChild(find(d, "N"));
        DOMDocument40 again = parsed(xml(d));
        EXPECT_EQ(again.node().text(), parsed(c.before).node().text());
    }
}

TEST(Layout, ReplacingByInsertingAndRemovingKeepsEveryByte) {
    for (const char *text :
         {"<r>\n\n  <a/>\n\n\n  <b/>\n</r>", "<r><a/> <b/></r>", "<r>x<a/> y</r>",
          "<r>\n  <a/></r>", "<?xml version='1.0'?>\n\n<r><a/></r>\n"}) {
        DOMDocument40 d = parsed(text);
        const Node a = find(d, "a");
        Node parent = a.parentNode();
        parent.insertBefore(parsed("<a/>").documentElement(), a);
        parent.removeChild(a);
        EXPECT_EQ(xml(d), text);
    }
}

TEST(Layout, ARemovedNodeTakesItsLayoutWithIt) {
    DOMDocument40 d = parsed("<r>\n  <a/>\n\n  <b/>\n  <c/>\n</r>");
    const Node root = d.documentElement();
    root.removeChild(find(d, "b"));
    EXPECT_EQ(xml(d), "<r>\n  <a/>\n  <c/>\n</r>");
    root.removeChild(find(d, "a"));
    root.removeChild(find(d, "c"));
    EXPECT_EQ(xml(d), "<r></r>");
}

TEST(Layout, TextTakesNoLayoutInWhenItIsReadAgain) {
    const struct {
        const char *before;
        const char *next;
        const char *after;
    } cases[] = {
        {"<r>\n  <a/>\n</r>", "", "<r>\n  <a/>T</r>"},
        {"<r>\n  <a/>\n</r>", "a", "<r>T<a/>\n</r>"},
        {"<r/>", "", "<r>T</r>"},
    };
    for (const auto &c : cases) {
        DOMDocument40 d = parsed(c.before);
        d.documentElement().insertBefore(d.createTextNode("T"), *c.next ? find(d, c.next) : Node());
        EXPECT_EQ(xml(d), c.after);
        EXPECT_EQ(parsed(xml(d)).node().text(), "T");
    }
    DOMDocument40 d = parsed("<r>T<a/>\n  <b/>\n</r>");
    d.documentElement().removeChild(find(d, "a"));
    EXPECT_EQ(xml(d), "<r>T<b/>\n</r>");
}

TEST(Layout, TopLevelNodesStandOnLinesOfTheirOwn) {
    DOMDocument40 d = parsed("<?xml version='1.0'?>\n<r/>\n");
    d.node().insertBefore(d.createComment("a"), d.documentElement());
    d.node().appendChild(d.createComment("b"));
    EXPECT_EQ(xml(d), "<?xml version='1.0'?>\n<!--a-->\n<r/>\n<!--b-->\n");
    DOMDocument40 bare = parsed("<r/>");
    bare.node().insertBefore(bare.createComment("a"), bare.documentElement());
    EXPECT_EQ(xml(bare), "<!--a-->\n<r/>");
}

TEST(Layout, ChildrenMovedToANewElementKeepTheirLines) {
    DOMDocument40 d = parsed("<r>\n\t<a>\n\t\t<b/>\n\n\t\t<c/>\n\t</a>\n</r>");
    const Node a = find(d, "a");
    const Node renamed = d.createElement("n");
    while (const Node child = a.firstChild())
        renamed.appendChild(child);
    a.parentNode().replaceChild(renamed, a);
    EXPECT_EQ(xml(d), "<r>\n\t<n>\n\t\t<b/>\n\n\t\t<c/>\n\t</n>\n</r>");
}

TEST(Layout, ACopyHasTheLayoutOfItsEnd) {
    DOMDocument40 d = parsed("<r>\n  <a/>\n</r>");
    const Node a = find(d, "a");
    a.appendChild(d.createElement("b"));
    const std::string filled = "<a>\n    <b/>\n  </a>";
    EXPECT_EQ(xml(a), filled);
    EXPECT_EQ(xml(a.cloneNode(true)), filled);
    EXPECT_EQ(xml(DOMDocument40::create().setDocumentElement(a.cloneNode(true))), filled);
    EXPECT_EQ(xml(d.clone()), "<r>\n  " + filled + "\n</r>");
    // Appended behind it, the copy stands like it.
    d.documentElement().appendChild(a.cloneNode(true));
    EXPECT_EQ(xml(d), "<r>\n  " + filled + "\n  " + filled + "\n</r>");
}

TEST(Layout, ARenamedElementKeepsItsForm) {
    const struct {
        const char *before;
        const char *after;
    } cases[] = {
        {"<r><x></x></r>", "<r><N></N></r>"},
        {"<r><x /></r>", "<r><N /></r>"},
        {"<r>\n\n  <x\n    a='1'  b=\"2\"\n  >\n  </x\n></r>",
         "<r>\n\n  <N  b=\"2\"\n    a='1'\n  >\n  </N\n></r>"},
        {"<r><x>\n <b/>\n  text\n <c/>\n</x></r>", "<r><N><c/>\n  text\n <b/>\n</N></r>"},
        {"<r><x><b/>text<c/>\n</x></r>", "<r><N><c/>text<b/>\n</N></r>"},
        // Ahead of the end tag it would become part of the text.
        {"<r><x>text<b/>\n</x></r>", "<r><N><b/>text</N></r>"},
    };
    for (const auto &c : cases) {
        const DOMDocument40 d = parsed(c.before);
        const Node x = find(d, "x");
        const Node renamed = x.rename("N");
        EXPECT_EQ(xml(d), c.after);
        EXPECT_EQ(renamed, find(d, "N"));
        EXPECT_FALSE(x.parentNode());
        EXPECT_EQ(xml(renamed.cloneNode(true)), xml(renamed));
        renamed.rename("x").setAttribute("n", "");
        EXPECT_EQ(parsed(xml(d)).documentElement().text(), d.documentElement().text());
    }
    const DOMDocument40 d = parsed("<r><x/></r>");
    EXPECT_ANY_THROW(find(d, "x").rename("not a name"));
    EXPECT_ANY_THROW(d.createElement("nowhere").rename("N"));
    EXPECT_ANY_THROW(d.createTextNode("t").rename("N"));
    EXPECT_EQ(xml(d), "<r><x/></r>");
}

TEST(Layout, AttributesFollowTheOneBefore) {
    DOMDocument40 d = parsed("<r><a x='1'\n   y='2'/><b x='1'/><c/></r>");
    for (const char *name : {"a", "b", "c"})
        find(d, name).setAttribute("n", "");
    EXPECT_EQ(xml(d), "<r><a x='1'\n   y='2'\n   n=\"\"/><b x='1' n=\"\"/><c n=\"\"/></r>");
}

TEST(Layout, WhatIsBelowFollowsAMoveToAnotherDepth) {
    const struct {
        const char *before, *node, *to, *after;
    } cases[] = {
        {"<r>\n  <a>\n    <n>\n      <x/>\n\n      <y><z/>\n      </y>\n    </n>\n  </a>\n</r>",
         "n", "r", "<r>\n  <a></a>\n  <n>\n    <x/>\n\n    <y><z/>\n    </y>\n  </n>\n</r>"},
        {"<r>\r\n\t<n>\r\n\t\t<x>\r\n\t\t</x>\r\n\t</n>\r\n\t<a/>\r\n</r>", "n", "a",
         "<r>\n\t<a>\n\t\t<n>\n\t\t\t<x>\n\t\t\t</x>\n\t\t</n>\n\t</a>\n</r>"},
        // Text is content, and a line that begins otherwise is somebody's own way.
        {"<r>\n  <a>\n    <n>t\n      t<x/></n>\n  </a>\n</r>", "n", "r",
         "<r>\n  <a></a>\n  <n>t\n      t<x/></n>\n</r>"},
        {"<r>\n  <a>\n    <n>\n <x/>\n    </n>\n  </a>\n</r>", "n", "r",
         "<r>\n  <a></a>\n  <n>\n <x/>\n  </n>\n</r>"},
        {"<r><a><n>\n  <x/>\n</n></a></r>", "n", "r", "<r><a></a><n>\n  <x/>\n</n></r>"},
    };
    for (const auto &c : cases) {
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.loadXML(QByteArray(c.before)));
        const Node node = find(document, c.node);
        const auto indent = lineIndentOf(node);
        find(document, c.to).appendChild(node);
        reindentBelow(node, indent);
        EXPECT_EQ(document.xml(), c.after);
    }
}

TEST(Layout, ChildrenInAnotherOrderStandOnTheSameLines) {
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(document.loadXML(QByteArray("<r><a/>\n\n <b/><!--c-->\n <d/>\n</r>")));
    const Node r = document.documentElement();
    const Node a = find(document, "a");
    const Node b = find(document, "b");
    const Node d = find(document, "d");
    reorderChildren(r, {{d}, {b, b.nextSibling()}, {a}});
    EXPECT_EQ(document.xml(), "<r><d/>\n\n <b/><!--c-->\n <a/>\n</r>");
    EXPECT_EQ(a.previousSibling().nodeName(), "#comment");
    EXPECT_THROW(reorderChildren(r, {{d}, {a}}), runtime::Error);
    EXPECT_THROW(reorderChildren(r, {{d}, {b, b.nextSibling()}, {a}, {a}}), runtime::Error);
    EXPECT_THROW(reorderChildren(r, {{r}}), runtime::Error);
    EXPECT_EQ(document.xml(), "<r><d/>\n\n <b/><!--c-->\n <a/>\n</r>");
}

} // namespace

} // namespace quillon::xml::test

#include "platform/xml/dom/markup_places.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

std::vector<Node> below(const Node &top) {
    std::vector<Node> nodes;
    for (Node n = top.firstChild(); n; n = n.nextSibling()) {
        nodes.push_back(n);
        const std::vector<Node> deeper = below(n);
        nodes.insert(nodes.end(), deeper.begin(), deeper.end());
    }
    return nodes;
}

/// Every node is found where the markup of each node above it has it.
void expectPlaces(const DOMDocument40 &document) {
    for (const Node &node : below(document.node())) {
        for (Node above = node.parentNode(); above; above = above.parentNode()) {
            const QByteArray markup = above.xml();
            const QByteArray own = node.xml();
            MarkupAhead ahead(above, node);
            while (!ahead.count(3))
                continue;
            EXPECT_EQ(markup.mid(ahead.bytes(), own.size()), own) << markup.constData();
            EXPECT_EQ(ahead.lineEnds(), markup.first(ahead.bytes()).count('\n'));
            EXPECT_EQ(ahead.bytes(), placeInMarkup(above, node));
        }
        if (node.xml().size() > 2) {
            EXPECT_EQ(childAtPlace(node.parentNode(), placeInMarkup(node.parentNode(), node) + 1),
                      node);
        }
    }
}

TEST(MarkupPlaces, AreThoseOfTheMarkup) {
    for (const char *lineEnd : {"\n", "\r\n", "\r"}) {
        const QByteArray text =
            QByteArray(
                "<?xml version=\"1.0\"?>\n<!-- 注 -->\n<r a='1\n2'>\n <b>日本\n語</b>\n"
                " <c/>text &amp; <d x='&lt;'>\n\n<e>e</e></d><![CDATA[\n]]>\n</r>\n<?p q?>\n")
                .replace('\n', lineEnd);
        Files files;
        DOMDocument40 document = DOMDocument40::create();
        ASSERT_TRUE(document.load(files.write("in.xml", text.toStdString())));
        expectPlaces(document);
        const Node root = document.documentElement();
        const Node b = root.firstChild();
        b.firstChild().setText(QStringLiteral("x\ny & z"));
        expectPlaces(document);
        root.insertBefore(document.createElement(QStringLiteral("new")), b);
        root.setAttribute(QStringLiteral("longer"), QStringLiteral("value"));
        expectPlaces(document);
        root.removeChild(b);
        expectPlaces(document);
    }
}

TEST(MarkupPlaces, BelongToTheChildThatIsThere) {
    const DOMDocument40 document = parsed("<r>ab<c/>de<!--f--></r>");
    const Node root = document.documentElement();
    const Node text = root.firstChild();
    const Node c = text.nextSibling();
    const std::vector<std::pair<int, Node>> expected{{0, Node()},
                                                     {2, Node()},
                                                     {3, text},
                                                     {5, text},
                                                     {6, c},
                                                     {9, c.nextSibling()},
                                                     {11, c.nextSibling()},
                                                     {12, root.lastChild()},
                                                     {19, Node()},
                                                     {100, Node()}};
    for (const auto &[at, node] : expected)
        EXPECT_EQ(childAtPlace(root, at), node) << at;
}

TEST(MarkupPlaces, AreRememberedWhileTheDocumentChanges) {
    DOMDocument40 document = parsed("<r>\n\n<b>\n</b>\n<c/></r>");
    const Node c = document.documentElement().lastChild();
    MarkupAhead ahead(document.node(), c);
    ahead.count(2);
    ASSERT_TRUE(document.loadXML(QByteArray("<other/>")));
    while (!ahead.count(2))
        continue;
    EXPECT_EQ(ahead.lineEnds(), 4);
}

} // namespace

} // namespace quillon::xml::test

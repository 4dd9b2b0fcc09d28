#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

/// What each of many documents has as its root, every one written in a way of its own.
std::string rootOf(int i) {
    const std::string number = std::to_string(i);
    return "<e" + number + "  k='&#65;" + number + "' />";
}

/// A document whose nodes come from so many others that no page can name them all as its sources.
DOMDocument40 gathered(int count) {
    DOMDocument40 document = parsed("<r><!----></r>");
    for (int i = 0; i < count; ++i)
        document.documentElement().appendChild(parsed(rootOf(i)).documentElement());
    return document;
}

TEST(Sources, NodesOfAnyNumberOfDocumentsKeepTheirForm) {
    constexpr int Count = 600;
    const DOMDocument40 document = gathered(Count);
    std::string expected = "<r><!---->";
    for (int i = 0; i < Count; ++i)
        expected += rootOf(i);
    EXPECT_EQ(xml(document), expected + "</r>");
    // A node further on gets the source that it has, not the one of the same place on another page.
    const Node copy = document.documentElement().lastChild().cloneNode(true);
    EXPECT_EQ(xml(copy), rootOf(Count - 1));
    EXPECT_EQ(document.documentElement().lastChild().getAttribute("k"),
              "A" + QString::number(Count - 1));
}

TEST(Sources, EqualValuesKeepTheirForm) {
    const std::string text =
        "<!DOCTYPE r [<!ATTLIST r d CDATA 'v'>]>\r\n"
        "<r a='&#65;&lt;' b = \"x&#10;y\">&#66;\r\n<![CDATA[&]]><!--\r\n--><?p  q?></r>";
    const Files files;
    DOMDocument40 document = DOMDocument40::create();
    ASSERT_TRUE(document.load(files.write("in.xml", text)));
    const Node root = document.documentElement();
    for (Node child = root.firstChild(); child; child = child.nextSibling())
        child.setText(child.nodeValue().replace("\n", "\r\n"));
    for (const Node &attribute : root.attributes().all()) {
        root.setAttribute(attribute.nodeName(), attribute.nodeValue());
        attribute.setNodeValue(attribute.nodeValue().replace("\n", "\r"));
    }
    EXPECT_FALSE(root.getAttributeNode("d").specified());
    EXPECT_EQ(document.serialize().toStdString(), text);
    // Only another value is written anew.
    root.setAttribute("a", "A>");
    root.setAttribute("d", "w");
    EXPECT_TRUE(root.getAttributeNode("d").specified());
    EXPECT_NE(document.serialize().toStdString(), text);
}

} // namespace

} // namespace quillon::xml::test

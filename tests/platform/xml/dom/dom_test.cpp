#include "platform/runtime/error.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

namespace {

/// The description of the error that `work` raises; empty when it raises none.
template <typename Work>
std::string errorOf(Work &&work) {
    try {
        work();
    } catch (const runtime::Error &error) {
        return error.what();
    }
    return {};
}

const char *const AllKinds =
    "<?xml version='1.0' encoding='UTF-8'?>"
    "<!DOCTYPE r [<!ENTITY e 'enti<x/>ty'><!ENTITY f '&#38;#38;'><!ATTLIST r d CDATA 'v'>]>"
    "<r p:a=' 1&#10;&f;'><!-- c --><?t  d ?> x <![CDATA[ <y> ]]>&e;</r>";

TEST(Dom, FindsTheFirstEntityReferredTo) {
    const struct {
        const char *content;
        const char *entity;
    } cases[] = {
        {"<a k='v'>&amp;&#38;<!--&e;--><![CDATA[&e;]]></a>", ""},
        {"<a k='&lt;&#x26;&apos;'/>", ""},
        {"<a><b/>text &e;</a>&f;", "e"},
        {"<a k=\"&amp;&f;\">&e;</a>", "f"},
    };
    for (const auto &c : cases) {
        const std::string text = std::string("<r>") + c.content + "</r>";
        const DOMDocument40 d = parsed(
            "<!DOCTYPE r [<!ENTITY e 'x'><!ENTITY f 'y'><!ATTLIST r d CDATA '&e;'>]>" + text);
        EXPECT_EQ(d.node().referredEntity(), c.entity) << c.content;
    }
    const DOMDocument40 d = parsed("<!DOCTYPE r [<!ENTITY e 'x'>]><r k='&e;'/>");
    d.documentElement().setAttribute("k", "&e;");
    EXPECT_EQ(d.documentElement().referredEntity(), "") << "a value that was set refers to nothing";
    const DOMDocument40 unread = parsed("<!DOCTYPE r SYSTEM 'r.dtd'><r k='&base;/a'/>");
    unread.documentElement().setAttribute("k", "&base;/b");
    EXPECT_EQ(xml(unread.documentElement()), "<r k='&base;/b'/>");
    EXPECT_EQ(unread.documentElement().referredEntity(), "base") << "but what it kept counts";
}

TEST(Dom, NamesValuesAndTextOfEveryKind) {
    const DOMDocument40 document = parsed(AllKinds);
    const Node root = document.documentElement();
    const NodeList children = root.childNodes();
    const struct {
        Node node;
        const char *type;
        const char *name;
        const char *value;
        const char *text;
    } cases[] = {
        {document.node(), "DOMDocument", "#document", nullptr, " x  <y> entity"},
        {document.node().firstChild(), "IXMLDOMProcessingInstruction", "xml",
         "version='1.0' encoding='UTF-8'", "version='1.0' encoding='UTF-8'"},
        {document.node().childNodes().item(1), "IXMLDOMDocumentType", "r", nullptr, ""},
        {root, "IXMLDOMElement", "r", nullptr, " x  <y> entity"},
        {root.attributes().item(0), "IXMLDOMAttribute", "p:a", " 1\n&", " 1\n&"},
        {root.attributes().item(1), "IXMLDOMAttribute", "d", "v", "v"},
        {children.item(0), "IXMLDOMComment", "#comment", " c ", " c "},
        {children.item(1), "IXMLDOMProcessingInstruction", "t", "d ", "d "},
        {children.item(2), "IXMLDOMText", "#text", " x ", " x "},
        {children.item(3), "IXMLDOMCDATASection", "#cdata-section", " <y> ", " <y> "},
        {children.item(4), "IXMLDOMEntityReference", "e", nullptr, "entity"},
        {children.item(5), "Nothing", "", nullptr, ""},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(TypeName(c.node), c.type);
        EXPECT_EQ(c.node.nodeName(), c.name) << c.type;
        EXPECT_EQ(c.node.nodeValue().isNull(), c.value == nullptr) << c.type;
        if (c.value) {
            EXPECT_EQ(c.node.nodeValue(), c.value);
        }
        EXPECT_EQ(c.node.text(), c.text) << c.type;
    }
    EXPECT_TRUE(root.attributes().item(0).specified());
    EXPECT_FALSE(root.attributes().item(1).specified());
    EXPECT_EQ(root.attributes().length(), 2);
    EXPECT_FALSE(root.attributes().item(0).parentNode());
    EXPECT_FALSE(root.attributes().item(0).nextSibling());
}

TEST(Dom, WhiteSpaceBetweenMarkupIsContentOnlyWhereItIsPreserved) {
    const std::string text = "<r> <a>\n</a> <b xml:space='preserve'> <c> </c></b> x </r>";
    EXPECT_EQ(parsed(text).documentElement().childNodes().length(), 3);
    EXPECT_FALSE(parsed(text).documentElement().firstChild().hasChildNodes());
    EXPECT_EQ(parsed(text).node().text(), "   x ");
    DOMDocument40 preserving = DOMDocument40::create();
    preserving.setPreserveWhiteSpace(true);
    ASSERT_TRUE(preserving.loadXML(QByteArray::fromStdString(text)));
    EXPECT_EQ(preserving.documentElement().childNodes().length(), 5);
    EXPECT_EQ(preserving.node().text(), " \n    x ");
    EXPECT_EQ(xml(preserving), text);
    // Character references are content wherever they stand.
    EXPECT_EQ(parsed("<a>&#32;</a>").node().text(), " ");
}

/// The number of children of each element, in document order.
void countChildren(const Node &element, std::vector<int> &counts) {
    counts.push_back(element.childNodes().length());
    for (Node child = element.firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == NodeType::Element)
            countChildren(child, counts);
    }
}

TEST(Dom, WhatAnElementSaysOfWhiteSpaceEndsWithIt) {
    const struct {
        const char *text;
        std::vector<int> counts;
    } cases[] = {
        {"<r> <a xml:space='preserve'> <b/> </a> <c> <d/> </c> </r>", {2, 3, 0, 1, 0}},
        {"<r> <a xml:space='preserve'/> <c> <d/> </c> </r>", {2, 0, 1, 0}},
        {"<r xml:space='preserve'> <a xml:space='default'> <b/> </a> </r>", {3, 1, 0}},
        {"<r xml:space='preserve'><a xml:space='default'/> <c> </c></r>", {3, 0, 1}},
        {"<r><a xml:space='preserve'><b xml:space='default'> <c/></b> </a> </r>", {1, 2, 1, 0}},
    };
    for (const auto &c : cases) {
        std::vector<int> counts;
        countChildren(parsed(c.text).documentElement(), counts);
        EXPECT_EQ(counts, c.counts) << c.text;
    }
}

TEST(Dom, MarkupOfNodesMadeHere) {
    DOMDocument40 d = DOMDocument40::create();
    Node e = d.createElement("p:e");
    EXPECT_EQ(xml(e), "<p:e/>");
    e.setAttribute("a", "<&>\"'\t\n");
    e.setAttribute("empty", "");
    EXPECT_EQ(xml(e), "<p:e a=\"&lt;&amp;&gt;&quot;'&#9;&#10;\" empty=\"\"/>");
    EXPECT_EQ(xml(e.getAttributeNode("a")), "a=\"&lt;&amp;&gt;&quot;'&#9;&#10;\"");
    const struct {
        Node node;
        const char *markup;
    } cases[] = {
        {d.createTextNode("a<b&c>\r\nd\re\"'"), "a&lt;b&amp;c&gt;\nd\ne\"'"},
        {d.createTextNode(" \n"), "&#32;\n"},
        {d.createComment("-a--b---"), "<!---a- -b- - - -->"},
        {d.createComment(""), "<!---->"},
        {d.createCDATASection("]]>]]"), "<![CDATA[]]]]><![CDATA[>]]]]>"},
        {d.createProcessingInstruction("t", "x?>y"), "<?t x? >y?>"},
        {d.createProcessingInstruction("t", ""), "<?t?>"},
        {d.createEntityReference("nbsp"), "&nbsp;"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(xml(c.node), c.markup);
    for (const auto &c : cases)
        e.appendChild(c.node);
    EXPECT_TRUE(DOMDocument40::create().loadXML("<!DOCTYPE p:e SYSTEM 'x'>" + e.xml()));
}

TEST(Dom, NamesAndCharactersThatXmlForbidsAreRefused) {
    const DOMDocument40 d = parsed("<a/>");
    for (const char *name : {"", "1a", "-a", "a b", "a<", "<a", "a&", "あ　い", ":a", "a:", "a:b:c",
                             "a:1", "a/", "a>", "a\n", "×", "a…", "…"}) {
        EXPECT_NE(errorOf([&] { d.createElement(q(name)); }), "") << name;
        EXPECT_NE(errorOf([&] { d.createAttribute(q(name)); }), "") << name;
        EXPECT_NE(errorOf([&] { d.documentElement().setAttribute(q(name), "x"); }), "") << name;
    }
    for (const char *name :
         {"a", "日本語", "x-y.z_1", "p:ローカル", "_", "é", "Ａ", "𠮷野家", "価格（税込）"}) {
        EXPECT_EQ(d.createElement(q(name)).nodeName(), q(name));
        EXPECT_EQ(xml(parsed("<" + std::string(name) + "/>")), "<" + std::string(name) + "/>");
    }
    EXPECT_EQ(errorOf([&] { d.createElement("ab~c"); }),
              "この名前に文字 '~' は使用できません:\nab-->~<--");
    for (const QString &value :
         {QString(QChar(1)), QString(QChar(0xD800)), QString(QChar(0xFFFE)), QString(QChar(0))}) {
        EXPECT_NE(errorOf([&] { d.createTextNode(value); }), "");
        EXPECT_NE(errorOf([&] { d.documentElement().setText(value); }), "");
        EXPECT_NE(errorOf([&] { d.documentElement().setAttribute("a", value); }), "");
    }
    EXPECT_NE(errorOf([&] { d.createProcessingInstruction("xml", "version='1.0' bad"); }), "");
    EXPECT_NE(errorOf([&] { d.createProcessingInstruction("XML", ""); }), "");
    EXPECT_EQ(xml(d), "<a/>");
}

TEST(Dom, WhatMayStandWhere) {
    DOMDocument40 d = parsed("<?xml version='1.0'?><!DOCTYPE r><r><a><b/></a>t</r><!--c-->");
    const std::string before = xml(d);
    const Node top = d.node();
    const Node root = d.documentElement();
    const Node declaration = top.firstChild();
    const Node a = root.firstChild();
    const Node comment = d.createComment("x");
    const auto refused = [&](auto &&work) {
        EXPECT_NE(errorOf(work), "");
        EXPECT_EQ(xml(d), before);
    };
    refused([&] { top.appendChild(d.createElement("second")); });
    refused([&] { top.appendChild(d.createTextNode("x")); });
    refused([&] { top.appendChild(d.createCDATASection("x")); });
    refused([&] { top.appendChild(d.createEntityReference("x")); });
    refused([&] { top.insertBefore(root, top.childNodes().item(1)); });
    refused([&] { root.appendChild(d.createAttribute("x")); });
    refused([&] { root.appendChild(top); });
    refused([&] { root.appendChild(Node()); });
    refused([&] { a.childNodes().item(0).appendChild(root); });
    refused([&] { a.appendChild(a); });
    refused([&] { root.insertBefore(comment, a.firstChild()); });
    refused([&] { root.removeChild(a.firstChild()); });
    refused([&] { root.removeChild(Node()); });
    refused([&] { root.replaceChild(comment, Node()); });
    refused([&] { top.insertBefore(comment, declaration); });
    refused([&] { root.appendChild(d.createProcessingInstruction("xml", "version='1.0'")); });
    refused([&] { top.appendChild(d.createProcessingInstruction("xml", "version='1.0'")); });
    refused([&] { root.lastChild().appendChild(comment); });
    refused([&] { declaration.setNodeValue("version='1.1'"); });
    refused([&] { top.setText("x"); });
    refused([&] { root.setNodeValue("x"); });
    refused([&] { d.setDocumentElement(Node()); });
    refused(
        [&] { root.setAttributeNode(parsed("<x y=''/>").documentElement().attributes().item(0)); });
    EXPECT_NE(errorOf([] { Node().appendChild(Node()); }), "");
}

TEST(Dom, MovingReplacingAndAdopting) {
    DOMDocument40 d = parsed("<r><a i='1'/><b/><c/></r>");
    const Node root = d.documentElement();
    const Node a = root.firstChild();
    root.appendChild(a);
    EXPECT_EQ(xml(d), "<r><b/><c/><a i='1'/></r>");
    root.insertBefore(a, root.childNodes().item(1));
    EXPECT_EQ(xml(d), "<r><b/><a i='1'/><c/></r>");
    EXPECT_EQ(root.insertBefore(a, a), a);
    EXPECT_EQ(a.previousSibling().nodeName(), "b");
    EXPECT_EQ(a.nextSibling().nodeName(), "c");

    DOMDocument40 other = parsed("<x><y z='1'>t</y></x>");
    const Node y = other.documentElement().firstChild();
    const Node adopted = root.replaceChild(y, a);
    EXPECT_EQ(xml(d), "<r><b/><y z='1'>t</y><c/></r>");
    EXPECT_EQ(xml(other), "<x></x>");
    EXPECT_EQ(adopted.documentNode(), d.node());
    EXPECT_FALSE(a.parentNode());
    EXPECT_EQ(xml(a), "<a i='1'/>");

    EXPECT_NE(errorOf([&] { adopted.setAttributeNode(adopted.getAttributeNode("z")); }), "");
    Node z = d.createAttribute("z");
    const Node old = adopted.setAttributeNode(z);
    EXPECT_EQ(old.nodeValue(), "1");
    z.setNodeValue("live");
    EXPECT_EQ(adopted.getAttribute("z"), QString("live"));
    EXPECT_FALSE(adopted.getAttribute("Z"));
    EXPECT_EQ(adopted.attributes().removeNamedItem("z"), z);
    EXPECT_FALSE(adopted.attributes().removeNamedItem("z"));
    EXPECT_EQ(adopted.attributes().setNamedItem(z), z);
    EXPECT_EQ(xml(adopted), "<y z=\"live\">t</y>");
}

TEST(Dom, TheRootElementKeepsItsPlace) {
    DOMDocument40 d = parsed("<!--a-->\n\n<r/>\n<!--b-->\n");
    const DOMDocument40 typed = parsed("<n><m/></n>");
    d.setDocumentElement(typed.documentElement());
    EXPECT_EQ(xml(d), "<!--a-->\n\n<n><m/></n>\n<!--b-->\n");
    const Node n = d.documentElement();
    d.node().removeChild(n);
    EXPECT_EQ(xml(d), "<!--a-->\n<!--b-->\n");
    EXPECT_EQ(d.setDocumentElement(n), n);
    EXPECT_EQ(xml(d), "<!--a-->\n\n<n><m/></n>\n<!--b-->\n");
    DOMDocument40 empty = DOMDocument40::create();
    empty.setDocumentElement(empty.createElement("e"));
    EXPECT_EQ(xml(empty), "<e/>");
}

TEST(Dom, CopiesAreIndependent) {
    DOMDocument40 original = parsed("<r><a>one</a><b/></r>");
    const DOMDocument40 snapshot = original.clone();
    Node text = original.documentElement().firstChild().firstChild();
    const Node same = snapshot.documentElement().firstChild().firstChild();
    EXPECT_EQ(text.number(), same.number());
    EXPECT_FALSE(text == same);
    text.setText("two");
    original.documentElement().appendChild(original.createElement("c"));
    DOMDocument40 later = snapshot.clone();
    later.documentElement().removeChild(later.documentElement().lastChild());
    EXPECT_EQ(xml(original), "<r><a>two</a><b/><c/></r>");
    EXPECT_EQ(xml(snapshot), "<r><a>one</a><b/></r>");
    EXPECT_EQ(xml(later), "<r><a>one</a></r>");

    const Node shallow = original.documentElement().cloneNode(false);
    EXPECT_EQ(xml(shallow), "<r></r>");
    Node kept;
    {
        const DOMDocument40 gone = parsed("<k>kept</k>");
        kept = gone.documentElement();
    }
    EXPECT_EQ(xml(kept), "<k>kept</k>");
    const Node stale = original.documentElement();
    EXPECT_TRUE(original.loadXML(QByteArray("<new/>")));
    EXPECT_FALSE(stale);
    EXPECT_EQ(stale.nodeName(), "");
    EXPECT_NE(original.documentElement().number(), stale.number());
}

TEST(Dom, NumbersAreNeverGivenTwice) {
    DOMDocument40 d = parsed("<r/>");
    quint32 last = d.documentElement().number();
    for (int i = 0; i < 3000; ++i) {
        const Node root = d.documentElement();
        const Node made = root.appendChild(d.createElement("e"));
        EXPECT_GT(made.number(), last);
        last = made.number();
        root.removeChild(made);
    }
}

TEST(Dom, PropertiesHaveTheirDefaults) {
    const DOMDocument40 d = DOMDocument40::create();
    EXPECT_FALSE(d.preserveWhiteSpace());
    EXPECT_EQ(xml(d), "");
    EXPECT_FALSE(d.documentElement());
    EXPECT_EQ(d.encoding(), "UTF-8");
    EXPECT_EQ(parsed("<?xml version='1.0' encoding=\"x-sjis\"?><a/>").encoding(), "x-sjis");
}

TEST(Entities, HaveTheTextInTheirContent) {
    const struct {
        const char *declared;
        const char *text;
    } cases[] = {
        {"<!ENTITY e \"a<![CDATA[b]]>c<!-- x > y -->d<i q='>'>z</i>\">", "abcdz"},
        {"<!ENTITY e '<![CDATA[&lt;<x>]]>&amp;<?p > ?><i a=\"/>\"/>'>", "&lt;<x>&"},
        {"<!ENTITY f '<b>in<!--out--></b>'><!ENTITY e '(&f;&lt;&#38;amp;)'>", "(in<&)"},
        {"<!ENTITY e '&#60;b>text&#60;/b>&no;'>", "text"},
    };
    for (const auto &c : cases) {
        const DOMDocument40 d =
            parsed(std::string("<!DOCTYPE r SYSTEM 'r.dtd' [") + c.declared + "]><r>&e;</r>");
        EXPECT_EQ(d.documentElement().text().toStdString(), c.text) << c.declared;
    }
}

TEST(Entities, OfAnUnreadDtdStayReferencesInAttributes) {
    const std::string head = "<!DOCTYPE r SYSTEM 'r.dtd' [<!ENTITY in 'x&base;'>]>";
    const auto edited = [&](const std::string &value, const char *shown, const char *set) {
        const DOMDocument40 d = parsed(head + "<r a='" + value + "'/>");
        const Node a = d.documentElement().getAttributeNode("a");
        EXPECT_EQ(a.nodeValue().toStdString(), shown);
        const Node copy = d.documentElement().cloneNode(true).getAttributeNode("a");
        for (const Node &n : {a, copy}) {
            n.setNodeValue("");
            n.setNodeValue(q(set));
            EXPECT_EQ(n.nodeValue().toStdString(), set);
        }
        EXPECT_EQ(xml(a), xml(copy));
        EXPECT_EQ(parsed(xml(d)).documentElement().getAttribute("a"), q(set));
        return xml(a);
    };
    EXPECT_EQ(edited("&base;/i", "&base;/i", "&base;/j"), "a='&base;/j'");
    EXPECT_EQ(edited("&base;/i", "&base;/i", "&other;&base;&amp;&base"),
              "a='&amp;other;&base;&amp;amp;&amp;base'");
    EXPECT_EQ(edited("&in;&lt;", "x&base;<", "x&base;&in;"), "a='x&base;&amp;in;'");
    // The same characters, once as such and once as a reference.
    EXPECT_EQ(edited("&amp;b; &b;", "&b; &b;", "&b; and &b;"), "a='&amp;b; and &b;'");
    EXPECT_EQ(edited("&b; &amp;b;", "&b; &b;", "&b; &b;!"), "a='&b; &amp;b;!'");

    const DOMDocument40 d = parsed(head + "<r\n  a = '&base;&#x41;' b='2'/>");
    const Node r = d.documentElement();
    r.setAttribute("new", "&base;");
    const Node a = r.getAttributeNode("a");
    const Node renamed = a.cloneAttribute("c");
    r.removeAttribute("a");
    r.setAttributeNode(renamed);
    EXPECT_EQ(xml(r), "<r b='2' new=\"&amp;base;\"\n  c = '&base;&#x41;'/>");
    EXPECT_EQ(renamed.nodeValue(), "&base;A");
    renamed.setNodeValue("&base;B");
    EXPECT_EQ(xml(renamed), "c = '&base;B'");
    EXPECT_THROW(renamed.cloneAttribute("1"), runtime::Error);
    EXPECT_THROW(r.cloneAttribute("x"), runtime::Error);
}

} // namespace

} // namespace quillon::xml::test

#include "tests/platform/xml/transform/xslt_test_support.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

namespace quillon::xml::test {

namespace {

using testing::HasSubstr;
using testing::Not;

DOMDocument40 previewStylesheet() {
    QFile file(":/preview.xsl");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("%FONT_NAME%") && text.contains("%FONT_SIZE%"));
    text.replace("%FONT_NAME%", "MS UI Gothic").replace("%FONT_SIZE%", "9pt");
    DOMDocument40 document = DOMDocument40::create();
    EXPECT_TRUE(document.loadXML(text)) << document.parseError().reason.toStdString();
    return document;
}

QString preview(const DOMDocument40 &document) {
    return transformNode(document.node(), previewStylesheet());
}

/// The preview of a document, without head and style, and without the numbers of its nodes.
std::string body(const std::string &source) {
    static const QRegularExpression number(" data-node=\"\\d+\"");
    return preview(parsed(source)).section("<body class=\"st\">", 1).remove(number).toStdString();
}

/// Every id of the preview with the text of its element, in order.
std::vector<std::pair<QString, QString>> namesWithId(const QString &html) {
    static const QRegularExpression pattern("<span class=\"x?t\" id=\"([^\"]*)\">([^<]*)</span>");
    std::vector<std::pair<QString, QString>> found;
    for (auto it = pattern.globalMatch(html); it.hasNext();) {
        const auto match = it.next();
        found.emplace_back(match.captured(1), match.captured(2));
    }
    return found;
}

/// The node that an id leads to: its first two parts stand for the document and the root.
Node nodeAt(const DOMDocument40 &document, const QString &id) {
    Node node = document.documentElement();
    const QStringList parts = id.split('.');
    for (qsizetype i = 2; i < parts.size(); ++i)
        node = node.childNodes().item(parts[i].toInt() - 1);
    return node;
}

void collectElements(const Node &node, std::vector<Node> &elements) {
    if (node.nodeType() == NodeType::Element)
        elements.push_back(node);
    for (Node child = node.firstChild(); child; child = child.nextSibling())
        collectElements(child, elements);
}

/// Elements nested and mixed with every other kind of node, by a fixed sequence.
std::string mixedContent(unsigned &state, int depth) {
    static const char *const Others[] = {"text",    "<![CDATA[c]]>", "&e;",          "<!--c-->",
                                         "<?p d?>", "&m;",           "<![CDATA[]]>", " \n "};
    std::string content;
    for (int i = 0; i < 6; ++i) {
        state = state * 1103515245u + 12345u;
        const unsigned pick = state >> 16;
        content += Others[pick % 8];
        if (depth > 0 && pick % 3 != 0)
            content += "<e" + std::to_string(depth) + " a='&e;'>" + mixedContent(state, depth - 1) +
                       "</e" + std::to_string(depth) + ">";
    }
    return content;
}

TEST(PreviewStylesheet, EveryIdLeadsToItsElement) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        unsigned state = seed;
        const DOMDocument40 document =
            parsed("<?xml version='1.0'?><!--c--><!DOCTYPE r [<!ENTITY e 'E'><!ENTITY m "
                   "'a<x>y</x>b'>]><?p d?><r>" +
                   mixedContent(state, 4) + "</r><!--end-->");
        // Two texts side by side, as editing leaves them.
        const Node root = document.documentElement();
        root.insertBefore(document.createTextNode("1"), root.firstChild());
        root.insertBefore(document.createTextNode("2"), root.firstChild());
        std::vector<Node> elements;
        collectElements(document.node(), elements);
        const auto names = namesWithId(preview(document));
        ASSERT_EQ(names.size(), elements.size());
        ASSERT_GT(names.size(), 50u);
        for (std::size_t i = 0; i < names.size(); ++i) {
            EXPECT_TRUE(nodeAt(document, names[i].first) == elements[i])
                << names[i].first.toStdString();
            EXPECT_EQ(names[i].second, elements[i].nodeName());
        }
    }
}

TEST(PreviewStylesheet, IdsCountAllNodesOfTheDocument) {
    const auto names =
        namesWithId(preview(parsed("<?xml version='1.0'?><r>t<a/><!--c--><b/></r>")));
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0].first, "1.2");
    EXPECT_EQ(names[1].first, "1.2.2");
    EXPECT_EQ(names[2].first, "1.2.4");
}

TEST(PreviewStylesheet, EveryKindOfNode) {
    const std::string spacer = "<span class=\"b\"></span>";
    const struct {
        const char *source;
        std::string shown;
    } cases[] = {
        {"<?xml version='1.0'?><r/>", "<span class=\"pi\">xml version='1.0'</span>"},
        {"<!DOCTYPE r SYSTEM 'x.dtd'><r/>",
         "<span class=\"d\">&lt;!DOCTYPE r (View Source for full doctype...)&gt;</span>"},
        {"<r/>",
         "<div class=\"e\">" + spacer + "&lt;<span class=\"t\" id=\"1.1\">r</span> /&gt;</div>"},
        {"<r>a &amp; b</r>", "&gt;<span class=\"tx\">a &amp; b</span>&lt;/<span "
                             "class=\"t\">r</span>&gt;</div>"},
        {"<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>", "<span class=\"m\">&amp;e;</span>"},
        {"<r><?p d?></r>", "<span class=\"pi\">p d</span>"},
        {"<r><!--c<--></r>", "<span class=\"ci\"><pre>c&lt;</pre></span>"},
        {"<r><![CDATA[c<]]></r>", "<span class=\"di\"><pre>c&lt;</pre></span>"},
        {"<r><!--\nc--></r>", "<div class=\"cb\"><pre>\n\nc</pre></div>"},
        {"<r><![CDATA[c\nd]]></r>", "<div class=\"db\"><pre>c\nd</pre></div>"},
        {"<r a='1'/>", " <span class=\"t\">a</span>=\"<span class=\"tx\">1</span>\" /&gt;"},
        {"<r xmlns:p='u'/>", "<span class=\"ns\">xmlns:p</span>"},
        {"<r xml:lang='ja'/>", "<span class=\"ns\">xml:lang</span>"},
        {"<r dt:type='int'/>", "<span class=\"dt\">dt:type</span>"},
        {"<x:y xmlns:x='http://www.w3.org/1999/XSL/Transform'/>",
         "class=\"xt\" id=\"1.1\">x:y</span>"},
        {"<x:y xmlns:x='http://www.w3.org/TR/WD-xsl'/>", "class=\"xt\" id=\"1.1\">x:y</span>"},
    };
    for (const auto &c : cases)
        EXPECT_THAT(body(c.source), HasSubstr(c.shown)) << c.source;
}

TEST(PreviewStylesheet, WhatHasMoreThanTextFolds) {
    const std::string mark = "<div class=\"c\"><span class=\"b\" role=\"button\" tabindex=\"0\" "
                             "aria-expanded=\"true\"";
    for (const char *source :
         {"<r><a/></r>", "<r>x<!--c--></r>", "<r><![CDATA[c]]></r>", "<r><?p d?></r>"})
        EXPECT_THAT(body(source), HasSubstr("<div class=\"e\">" + mark)) << source;
    EXPECT_THAT(body("<r><!--a\nb--></r>"), HasSubstr("<div class=\"k\">" + mark));
    for (const char *source : {"<r/>", "<r>x</r>", "<!DOCTYPE r [<!ENTITY e 'x'>]><r>a&e;</r>"})
        EXPECT_THAT(body(source), Not(HasSubstr("role=\"button\""))) << source;
}

TEST(PreviewStylesheet, TheResultIsOneHtmlPage) {
    const QString html = preview(parsed("<r/>"));
    EXPECT_EQ(html.count("<META http-equiv=\"Content-Type\" content=\"text/html; "
                         "charset=UTF-16\">"),
              1);
    EXPECT_TRUE(html.startsWith("<!DOCTYPE html"));
    EXPECT_TRUE(html.contains("font: 9pt 'MS UI Gothic'"));
    // The script is not escaped.
    EXPECT_TRUE(html.contains("&& target.matches(\".c > .b\")"));
}

} // namespace

} // namespace quillon::xml::test

#include "platform/xml/query/node_path.h"
#include "platform/xml/query/xpath.h"
#include "platform/xml/schema/verdict/verdict.h"
#include "platform/xml/syntax/syntax_mends.h"
#include "platform/xml/transform/xslt.h"
#include "tests/platform/xml/xml_test_support.h"

/// Names that the fifth edition of XML 1.0 has, and the fourth has not, by which some of the
/// libraries in use go, on their way through the program.
namespace quillon::xml::test {

namespace {

const char *const Names[] = {"Ａ", "𠮷野家", "価格（税込）"};

/// The reasons of what a document has against it.
std::string reasons(const DOMDocument40 &document, SchemaKind kind, const QString &path) {
    std::string all;
    for (const SchemaError &error : verdict(document, {{.kind = kind, .path = path}}))
        all += error.reason.toStdString() + "\n";
    return all;
}

TEST(NewerNames, AreReadEditedAndWritten) {
    const Files files;
    for (const std::string name : Names) {
        const std::string text = "<r><x/><" + name + " " + name + "='1'>t</" + name + ">\n</r>";
        EXPECT_EQ(reloaded(files, text), text);
        const DOMDocument40 document = parsed("<r><x/></r>");
        const Node element = document.createElement(q(name));
        element.setAttribute(q(name), "1");
        element.setText("t");
        document.documentElement().appendChild(element);
        document.documentElement().firstChild().rename(q(name));
        const std::string made = xml(document);
        EXPECT_EQ(made, "<r><" + name + "/><" + name + " " + name + "=\"1\">t</" + name + "></r>");
        EXPECT_EQ(reloaded(files, made), made);
    }
}

TEST(NewerNames, AreFoundAndTransformed) {
    for (const std::string name : Names) {
        const std::string markup = "<" + name + " " + name + "=\"1\">t</" + name + ">";
        const DOMDocument40 document = parsed("<r><x/>" + markup + "</r>");
        const Node element = document.documentElement().lastChild();
        EXPECT_EQ(evaluateXPath(document.node(), pathTo(element)).nodes, std::vector{element});
        EXPECT_EQ(evaluateXPath(document.node(), q("//" + name)).nodes, std::vector{element});
        EXPECT_EQ(evaluateXPath(document.node(), q("/r/*[@" + name + "='1']")).nodes,
                  std::vector{element});
        EXPECT_EQ(transformNode(document.node(),
                                parsed("<xsl:stylesheet version='1.0' "
                                       "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                                       "<xsl:output omit-xml-declaration='yes'/><xsl:template "
                                       "match='/'><xsl:copy-of select='r/*[2]'/>"
                                       "</xsl:template></xsl:stylesheet>"))
                      .trimmed()
                      .toStdString(),
                  markup);
    }
}

TEST(NewerNames, AreValidated) {
    const Files files;
    for (const std::string name : Names) {
        const std::string text = "<r><" + name + "/></r>";
        const DOMDocument40 document = parsed(text);
        const QString xsd = files.write(
            "a.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='r'>"
                     "<xs:complexType><xs:sequence><xs:element name='y'/></xs:sequence>"
                     "</xs:complexType></xs:element></xs:schema>");
        const std::string misplaced =
            "DTD/スキーマによると、要素 'r' の内容が正しくありません。要素 '" + name +
            "' をここに置くことはできません。\n"
            "次のいずれかが必要です: y\n";
        EXPECT_EQ(reasons(document, SchemaKind::Xsd, xsd), misplaced);
        const QString relaxNg =
            files.write("a.rng", "<element name='r' xmlns='http://relaxng.org/ns/structure/1.0'>"
                                 "<element name='y'><empty/></element></element>");
        EXPECT_EQ(reasons(document, SchemaKind::RelaxNg, relaxNg), misplaced);
        const QString dtd =
            files.write("a.dtd", "<!ELEMENT r (" + name + ")><!ELEMENT " + name + " EMPTY>");
        const std::string doctype = "<!DOCTYPE r SYSTEM 'a.dtd'>";
        EXPECT_EQ(reasons(parsed(doctype + text), SchemaKind::Dtd, dtd), "");
        EXPECT_NE(reasons(parsed(doctype + "<r/>"), SchemaKind::Dtd, dtd), "");
    }
}

TEST(NewerNames, AreDeclared) {
    for (const std::string name : Names) {
        const std::string text = "<!DOCTYPE " + name + " [<!ELEMENT " + name + " ANY><!ENTITY " +
                                 name + " '" + name + "！'><!ATTLIST " + name + " " + name +
                                 " CDATA '" + name + "'>]><" + name + " b='&" + name + ";'>&" +
                                 name + ";</" + name + ">";
        const DOMDocument40 document = parsed(text);
        EXPECT_EQ(xml(document), text);
        const Node root = document.documentElement();
        EXPECT_EQ(root.getAttribute(q(name)), q(name));
        EXPECT_EQ(root.getAttribute("b"), q(name + "！"));
        EXPECT_EQ(root.text(), q(name + "！"));
    }
}

// What is wrong is told, not the name in which it is.
TEST(NewerNames, HideNoFaults) {
    for (const std::string name : Names) {
        const QByteArray text = q("<r>\n<𠮟/><" + name + "></r>").toUtf8();
        const std::optional<SyntaxFault> fault = firstSyntaxFault(text);
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->kind, SyntaxFaultKind::MissingEndTag);
        EXPECT_EQ(fault->start, text.indexOf('<', 5));
        const std::vector<SyntaxMend> mends = syntaxMends(text, *fault);
        ASSERT_FALSE(mends.empty());
        EXPECT_FALSE(firstSyntaxFault(withReplacements(text, mends.front().replacements)));
        DOMDocument40 document = DOMDocument40::create();
        EXPECT_FALSE(document.loadXML(text));
        EXPECT_EQ(document.parseError().line, 2);
        EXPECT_EQ(document.parseError().linepos, 9 + q(name).toUcs4().size());
        EXPECT_EQ(document.parseError().srcText, QString::fromUtf8(text).section('\n', 1));
    }
}

} // namespace

} // namespace quillon::xml::test

#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/platform/xml/schema/grammar/grammar_test_support.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::grammar {

namespace {

using namespace test;

const std::string XdrStart =
    "<Schema xmlns='urn:schemas-microsoft-com:xml-data' "
    "xmlns:dt='urn:schemas-microsoft-com:datatypes' xmlns:o='x-schema:other.xdr'>";

const std::string RelaxNgStart = "<grammar xmlns='http://relaxng.org/ns/structure/1.0' "
                                 "datatypeLibrary='http://www.w3.org/2001/XMLSchema-datatypes' "
                                 "xmlns:a='http://relaxng.org/ns/compatibility/annotations/1.0'>";

std::string insertable(const Grammar &grammar, QStringView space, QStringView element,
                       const std::vector<Symbol> &children = {}) {
    const Index found = grammar.globalElement(grammar.symbol(space, element));
    if (found == None)
        return "-";
    ContentMatcher matcher(grammar);
    const Candidates candidates =
        matcher.run(grammar.element(found).type, children).insertable(children.size());
    return shown(grammar, candidates) + (candidates.wildcards.empty() ? "" : " *");
}

TEST(LoadGrammar, KnowsTheLanguages) {
    const xml::test::Files files;
    const struct {
        QString name;
        std::string text;
        Language language;
    } cases[] = {
        {"a.xml",
         "<?xml encoding='UTF-8'?><!-- <a> -->\n<!ELEMENT r (a,b?)><!ELEMENT a EMPTY><!ELEMENT b "
         "EMPTY>",
         Language::Dtd},
        {"b.xml",
         "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='r'>"
         "<xs:complexType><xs:sequence><xs:element name='a'/><xs:element name='b' minOccurs='0'/>"
         "</xs:sequence></xs:complexType></xs:element></xs:schema>",
         Language::Xsd},
        {"c.xml",
         XdrStart + "<ElementType name='r' content='eltOnly' model='closed'><element type='a'/>"
                    "<element type='b' minOccurs='0'/></ElementType><ElementType name='a'/>"
                    "<ElementType name='b'/></Schema>",
         Language::Xdr},
        {"e.xml",
         RelaxNgStart + "<start><element name='r'><element name='a'><text/></element><optional>"
                        "<element name='b'><empty/></element></optional></element></start>"
                        "</grammar>",
         Language::RelaxNg},
    };
    for (const auto &at : cases) {
        const Grammar grammar = loadGrammar({files.write(at.name, at.text)});
        EXPECT_EQ(grammar.data().language, at.language);
        EXPECT_EQ(insertable(grammar, u"", u"r"), "a! / b") << at.text;
    }
    EXPECT_THROW(loadGrammar({files.write("d.xml", "<root/>")}), runtime::Error);
    // One with a fault is told as what it is.
    try {
        loadGrammar(
            {files.write("f.xsd", "<?xml version='1.0'?><!-- <!ELEMENT -->\n<schema>\n<a>")});
        FAIL();
    } catch (const runtime::Error &error) {
        EXPECT_TRUE(error.description().contains(u"f.xsd") && error.description().contains(u'3'))
            << error.what();
    }
    EXPECT_THROW(loadGrammar({files.path("missing.xsd")}), runtime::Error);
    EXPECT_EQ(insertable(loadGrammar({{}, "<!ELEMENT r (a)>"}), u"", u"r"), "a!");
}

TEST(LoadGrammar, ReadsXdr) {
    const xml::test::Files files;
    files.write("other.xdr", XdrStart + "<ElementType name='x' content='empty'/><AttributeType "
                                        "name='at' dt:type='date'/></Schema>");
    const QString path = files.write(
        "schema.xdr",
        XdrStart +
            "<AttributeType name='kind' dt:type='enumeration' dt:values='p q' required='yes'/>"
            "<AttributeType name='n' dt:type='ui1' default='3'/>"
            "<ElementType name='open' content='eltOnly'><description>An open one.</description>"
            "<attribute type='kind'/><attribute type='n'/><attribute type='o:at'/>"
            "<element type='leaf'/><element type='o:x' minOccurs='0' maxOccurs='*'/></ElementType>"
            "<ElementType name='leaf' dt:type='i2'/>"
            "<ElementType name='mixed' model='closed'><element type='leaf' maxOccurs='*'/>"
            "<group order='one'><element type='open'/></group></ElementType>"
            "<ElementType name='one' content='eltOnly' order='one' model='closed'><group "
            "minOccurs='0'><element type='leaf'/><element type='open'/></group><element "
            "type='mixed'/></ElementType>"
            "<ElementType name='many' content='eltOnly' order='many' model='closed'><element "
            "type='leaf'/><element type='open'/></ElementType></Schema>");
    const Grammar grammar = loadGrammar({.path = path, .namespaceName = "x-schema:schema.xdr"});
    const QString space = QStringLiteral("x-schema:schema.xdr");
    const Symbol leaf = grammar.symbol(space, u"leaf");
    const Symbol other = grammar.symbol(u"x-schema:other.xdr", u"x");
    ASSERT_NE(other.space, None);
    EXPECT_EQ(insertable(grammar, space, u"open"), "leaf! / x");
    EXPECT_EQ(insertable(grammar, space, u"open", {leaf, other}), "x / leaf *");
    EXPECT_EQ(insertable(grammar, space, u"leaf"), "");
    EXPECT_EQ(insertable(grammar, space, u"mixed"), "leaf open");
    EXPECT_EQ(insertable(grammar, space, u"one"), "mixed / leaf+ open");
    EXPECT_EQ(insertable(grammar, space, u"many", {leaf, leaf}), "leaf open");
    const Element &open = grammar.element(grammar.globalElement(grammar.symbol(space, u"open")));
    EXPECT_EQ(textOf(grammar, open.documentation), "An open one.");
    EXPECT_EQ(open.place.line, 1U);
    EXPECT_EQ(shown(grammar, attributeChoices(grammar, open.type, {})),
              "kind NMTOKEN p q!\nn unsignedByte = 3\nat date\n");
    const Type &text = grammar.type(grammar.element(grammar.globalElement(leaf)).type);
    EXPECT_EQ(text.content, Content::Text);
    EXPECT_EQ(textOf(grammar, grammar.data().simpleTypes[text.text].builtIn), "short");
}

TEST(LoadGrammar, ReadsRelaxNg) {
    const xml::test::Files files;
    files.write("part.rng", RelaxNgStart +
                                "<start><ref name='old'/></start><define name='old'><element "
                                "name='old'><empty/></element></define><define name='more' "
                                "combine='choice'><element name='m1' ns='u'><empty/></element>"
                                "</define><define name='kept'><element name='kept'><ref "
                                "name='old'/></element></define></grammar>");
    const std::string start =
        RelaxNgStart +
        "<include href='part.rng'><start><ref name='r'/></start><define name='old'><element "
        "name='new'><empty/></element></define></include>"
        "<define name='more' combine='choice'><element name='m2'><empty/></element></define>"
        "<define name='r'><a:documentation>The root.</a:documentation>\n<element name='r'>"
        "<interleave><oneOrMore><ref name='more'/></oneOrMore><optional><ref name='kept'/>"
        "</optional><text/></interleave><attribute name='id'><data type='ID'/></attribute>"
        "<optional><attribute name='n'><data type='byte'><param name='minInclusive'>0</param>"
        "</data></attribute></optional><choice><attribute name='x'><choice><value>p</value>"
        "<value>q</value></choice></attribute><attribute name='y' a:defaultValue='1'/></choice>"
        "<ref name='rest'/></element></define><define name='rest'><zeroOrMore><element><anyName>"
        "<except><nsName ns=''/></except></anyName><empty/></element></zeroOrMore></define>"
        "<define name='loop'><ref name='loop'/></define></grammar>";
    const Grammar grammar = loadGrammar({files.write("schema.rng", start)});
    EXPECT_EQ(insertable(grammar, u"", u"r"), "m1! m2! kept");
    EXPECT_EQ(insertable(grammar, u"", u"r", {grammar.symbol(u"", u"m2")}), "m1 m2 kept *");
    const Index root = grammar.globalElement(grammar.symbol(u"", u"r"));
    EXPECT_EQ(grammar.globalElements(), std::vector<Index>{root});
    const Element &element = grammar.element(root);
    EXPECT_EQ(textOf(grammar, element.documentation), "The root.");
    EXPECT_EQ(element.place.line, 2U);
    EXPECT_EQ(grammar.type(element.type).content, Content::Mixed);
    EXPECT_EQ(shown(grammar, attributeChoices(grammar, element.type, {})),
              "id ID!\nn byte\nx token p q\ny  = 1\n");
    const Index kept = grammar.childElement(element.type, grammar.symbol(u"", u"kept"));
    ASSERT_NE(kept, None);
    ContentMatcher matcher(grammar);
    EXPECT_EQ(shown(grammar, matcher.run(grammar.element(kept).type, {}).insertable(0)), "new!");
    // In whatever order, also among each other.
    std::vector<Symbol> children{grammar.symbol(u"", u"kept"), grammar.symbol(u"u", u"m1")};
    EXPECT_TRUE(matcher.run(element.type, children).isValid());
    children.push_back(children.front());
    EXPECT_FALSE(matcher.run(element.type, children).isValid());
}

/// What makes the child's reader die or run for ever ends in an error.
TEST(LoadGrammar, SurvivesItsReader) {
    const xml::test::Files files;
    std::string wide = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:complexType "
                       "name='T0'>";
    for (int i = 0; i < 3000; ++i)
        wide += "<xs:attribute name='a" + std::to_string(i) + "'/>";
    wide += "</xs:complexType>";
    for (int i = 1; i < 3000; ++i)
        wide +=
            "<xs:complexType name='T" + std::to_string(i) +
            "'><xs:complexContent><xs:extension base='T0'/></xs:complexContent></xs:complexType>";
    std::string deep = "<start><ref name='a'/></start><define name='a'>";
    for (int i = 0; i < 5000; ++i)
        deep += "<optional>";
    deep += "<text/>";
    for (int i = 0; i < 5000; ++i)
        deep += "</optional>";
    EXPECT_THROW(
        loadGrammar({files.write("deep.rng", RelaxNgStart + deep + "</define></grammar>")}),
        runtime::Error);
    EXPECT_TRUE(insertable(loadGrammar({files.write(
                               "circle.rng", RelaxNgStart + "<include href='circle2.rng'/><start>"
                                                            "<externalRef href='circle.rng'/>"
                                                            "</start></grammar>")}),
                           u"", u"r") == "-");
    EXPECT_THROW(loadGrammar({files.write("wide.xsd", wide + "</xs:schema>")}), runtime::Error);
}

} // namespace

} // namespace quillon::grammar

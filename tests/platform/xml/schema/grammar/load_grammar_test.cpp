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
        {"a.xml", "<!ELEMENT r (a,b?)><!ELEMENT a EMPTY><!ELEMENT b EMPTY>", Language::Dtd},
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
    };
    for (const auto &at : cases) {
        const Grammar grammar = loadGrammar({files.write(at.name, at.text)});
        EXPECT_EQ(grammar.data().language, at.language);
        EXPECT_EQ(insertable(grammar, u"", u"r"), "a! / b") << at.text;
    }
    EXPECT_THROW(loadGrammar({files.write("d.xml", "<root/>")}), runtime::Error);
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
    EXPECT_THROW(loadGrammar({files.write("wide.xsd", wide + "</xs:schema>")}), runtime::Error);
}

} // namespace

} // namespace quillon::grammar

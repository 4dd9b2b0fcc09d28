#include "platform/xml/schema/grammar/document_names.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "tests/platform/xml/schema/grammar/grammar_test_support.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::grammar {

namespace {

using namespace test;

/// The elements of a document in order: what the grammar knows of each as element and type.
std::string known(const Grammar &grammar, const std::string &xml) {
    const xml::DOMDocument40 document = xml::test::parsed(xml);
    std::string text;
    std::vector<xml::Node> pending{document.documentElement()};
    while (!pending.empty()) {
        const xml::Node at = pending.back();
        pending.pop_back();
        const KnownElement found = knownElement(grammar, at);
        text += found.element == None ? "?" : nameOf(grammar, found.element);
        text += ":" +
                (found.type == None ? "?" : textOf(grammar, grammar.type(found.type).name.local)) +
                " ";
        const NamedChildren children = namedChildren(grammar, at);
        for (std::size_t i = 0; i < children.nodes.size(); ++i) {
            EXPECT_EQ(children.names[i], symbolOf(grammar, children.nodes[i]));
            pending.insert(pending.begin(), children.nodes[i]);
        }
    }
    return text;
}

TEST(DocumentNames, FindWhatAGrammarSaysOfAnElement) {
    const xml::test::Files files;
    const Grammar grammar = loadGrammar({files.write(
        "a.xsd",
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='t' targetNamespace='t'>"
        "<xs:complexType name='B'/><xs:complexType name='C'><xs:complexContent><xs:extension "
        "base='t:B'><xs:sequence><xs:element name='c' type='xs:int'/></xs:sequence>"
        "</xs:extension></xs:complexContent></xs:complexType><xs:complexType name='R'>"
        "<xs:sequence><xs:element name='b' type='t:B' maxOccurs='9'/><xs:any processContents='lax' "
        "minOccurs='0'/></xs:sequence></xs:complexType><xs:element name='r' type='t:R'/>"
        "</xs:schema>")});
    const std::string instance = " xmlns:i='http://www.w3.org/2001/XMLSchema-instance' ";
    const struct {
        std::string xml, known;
    } cases[] = {
        {"<p:r xmlns:p='t'><b/><x/><p:r/></p:r>", "r:R b:B ?:? r:R "},
        // The same prefix and name, but not the same namespace.
        {"<r xmlns='t'><b/><b xmlns=''/><b/></r>", "r:R ?:? b:B ?:? "},
        {"<p:r xmlns:p='t'" + instance + "><b i:type='p:C'><c/></b><b i:type='p:R'/></p:r>",
         "r:R b:C b:B c:int "},
        // Below what is not known, and with something wrong ahead.
        {"<x><r xmlns='t'/></x>", "?:? r:R "},
        {"<p:r xmlns:p='t'><z/><z/><b/></p:r>", "r:R ?:? ?:? b:B "},
    };
    for (const auto &at : cases)
        EXPECT_EQ(known(grammar, at.xml), at.known) << at.xml;
}

TEST(DocumentNames, LeaveOutWhatNoSchemaSpeaksOf) {
    const std::string text = "<p:a xmlns:p='t' xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                             "i:type='x' b='1' p:b='2'/>";
    const xml::DOMDocument40 document = xml::test::parsed(text);
    const Grammar dtd = loadGrammar({{}, "<!ELEMENT p:a EMPTY>"});
    EXPECT_EQ(namedAttributes(dtd, document.documentElement()).nodes.size(), 5U);
    EXPECT_NE(knownElement(dtd, document.documentElement()).element, None);
    const xml::test::Files files;
    const Grammar xsd = loadGrammar({files.write(
        "a.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='t'>"
                 "<xs:attribute name='b'/></xs:schema>")});
    const NamedAttributes attributes = namedAttributes(xsd, document.documentElement());
    const std::vector<Symbol> names{xsd.symbol(u"", u"b"), xsd.symbol(u"t", u"b")};
    EXPECT_EQ(attributes.names, names);
}

} // namespace

} // namespace quillon::grammar

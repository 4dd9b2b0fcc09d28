#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "platform/xml/schema/grammar/grammar_from_xsd.h"
#include "tests/platform/xml/schema/grammar/grammar_test_support.h"
#include "tests/platform/xml/schema/grammar/random_models.h"
#include "tests/platform/xml/xml_test_support.h"

#include <libxml/xmlschemas.h>

namespace quillon::grammar {

namespace {

using namespace test;

std::string schema(const std::string &body, const std::string &attributes = "") {
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns:t='t' " +
           (attributes.empty() ? "targetNamespace='t' elementFormDefault='qualified'"
                               : attributes) +
           ">" + body + "</xs:schema>";
}

Grammar read(const xml::test::Files &files, const std::string &xsd) {
    const QString path = files.write("schema.xsd", xsd);
    SchemaFiles folder(path, {});
    // By way of the bytes, so that what is read is known to be sound.
    const std::optional<Data> data = fromBytes(toBytes(grammarFromXsd({path}, folder)));
    EXPECT_TRUE(data) << xsd.substr(0, 300);
    return Grammar(data.value_or(Data()));
}

Grammar read(const std::string &xsd) {
    const xml::test::Files files;
    return read(files, xsd);
}

std::string failure(const std::string &xsd) {
    try {
        read(xsd);
    } catch (const runtime::Error &error) {
        return error.description().toStdString();
    }
    return {};
}

Index typeOf(const Grammar &grammar, QStringView element, QStringView space = u"t") {
    const Index found = grammar.globalElement(grammar.symbol(space, element));
    EXPECT_NE(found, None) << element.toString().toStdString();
    return found == None ? 0 : grammar.element(found).type;
}

/// What may stand in an empty element of a type, wildcards as their namespaces.
std::string content(const Grammar &grammar, Index type) {
    ContentMatcher matcher(grammar);
    const Candidates candidates = matcher.run(type, {}).insertable(0);
    std::string text = shown(grammar, candidates);
    for (const Index wildcard : candidates.wildcards) {
        const Wildcard &any = grammar.data().wildcards[wildcard];
        text += any.rule == NamespaceRule::Any      ? " *"
                : any.rule == NamespaceRule::Listed ? " +"
                                                    : " -";
        for (Index i = 0; i < any.namespaces.count; ++i)
            text +=
                "[" + textOf(grammar, grammar.data().stringLists[any.namespaces.first + i]) + "]";
    }
    return text;
}

TEST(GrammarFromXsd, ReadsContentModels) {
    const struct {
        const char *what;
        std::string body, content;
    } cases[] = {
        {"sequence",
         "<xs:element name='r'><xs:complexType><xs:sequence>"
         "<xs:element name='a' minOccurs='0'/><xs:element name='b' maxOccurs='5'/>"
         "</xs:sequence></xs:complexType></xs:element>",
         "a b!"},
        {"nothing that may not occur",
         "<xs:element name='r'><xs:complexType><xs:choice><xs:element name='a' minOccurs='0' "
         "maxOccurs='0'/><xs:element name='b'/></xs:choice></xs:complexType></xs:element>",
         "b!"},
        {"all",
         "<xs:element name='r'><xs:complexType><xs:all><xs:element name='a'/><xs:element "
         "name='b' minOccurs='0'/></xs:all></xs:complexType></xs:element>",
         "a! b"},
        {"simple text", "<xs:element name='r' type='xs:int'/>", ""},
        {"no type", "<xs:element name='r'/>", " *"},
        {"extension",
         "<xs:complexType name='B'><xs:sequence><xs:element name='a'/></xs:sequence>"
         "</xs:complexType><xs:element name='r'><xs:complexType><xs:complexContent>"
         "<xs:extension base='t:B'><xs:sequence><xs:element name='b'/></xs:sequence>"
         "</xs:extension></xs:complexContent></xs:complexType></xs:element>",
         "a! / b"},
        {"restriction",
         "<xs:complexType name='B'><xs:sequence><xs:element name='a'/><xs:element "
         "name='b' minOccurs='0'/></xs:sequence></xs:complexType><xs:element "
         "name='r'><xs:complexType><xs:complexContent><xs:restriction base='t:B'>"
         "<xs:sequence><xs:element name='a'/></xs:sequence></xs:restriction>"
         "</xs:complexContent></xs:complexType></xs:element>",
         "a!"},
        {"groups",
         "<xs:group name='g'><xs:sequence><xs:element name='a'/><xs:group ref='t:h'/>"
         "</xs:sequence></xs:group><xs:group name='h'><xs:choice><xs:element name='b'/>"
         "</xs:choice></xs:group><xs:element name='r'><xs:complexType><xs:group "
         "ref='t:g' minOccurs='0'/></xs:complexType></xs:element>",
         " / a+ b"},
        {"substitution, abstract heads, several steps, blocked",
         "<xs:element name='head' abstract='true'/><xs:element name='a' "
         "substitutionGroup='t:head'/>"
         "<xs:element name='b' substitutionGroup='t:a'/><xs:element name='c' "
         "substitutionGroup='t:head' abstract='true'/><xs:element name='alone' "
         "block='substitution'/><xs:element name='d' substitutionGroup='t:alone'/>"
         "<xs:element name='r'><xs:complexType><xs:choice><xs:element ref='t:head'/><xs:element "
         "ref='t:alone'/></xs:choice></xs:complexType></xs:element>",
         "a! b! alone!"},
        {"wildcards",
         "<xs:element name='r'><xs:complexType><xs:choice><xs:any namespace='##other'/>"
         "<xs:any namespace='##local ##targetNamespace u' processContents='lax'/>"
         "</xs:choice></xs:complexType></xs:element>",
         " -[t][] +[][t][u]"},
        {"recursion",
         "<xs:element name='r' type='t:R'/><xs:complexType name='R'><xs:sequence>"
         "<xs:element name='x' type='t:R' minOccurs='0'/><xs:element ref='t:r' "
         "minOccurs='0'/></xs:sequence></xs:complexType>",
         "x r"},
    };
    for (const auto &at : cases) {
        const Grammar grammar = read(schema(at.body));
        EXPECT_EQ(content(grammar, typeOf(grammar, u"r")), at.content) << at.what;
    }
}

TEST(GrammarFromXsd, KnowsTheNamespaceOfLocals) {
    const struct {
        std::string attributes, space;
    } cases[] = {
        {"targetNamespace='t'", ""},
        {"targetNamespace='t' elementFormDefault='qualified'", "t"},
    };
    for (const auto &at : cases) {
        const Grammar grammar =
            read(schema("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a'/>"
                        "<xs:element name='u' form='unqualified'/><xs:element name='q' "
                        "form='qualified'/></xs:sequence></xs:complexType></xs:element>",
                        at.attributes));
        std::string spaces;
        for (const Element &element : grammar.data().elements)
            spaces += nameOf(grammar, Index(&element - grammar.data().elements.data())) + "=" +
                      textOf(grammar, element.name.space) + " ";
        EXPECT_EQ(spaces, "r=t a=" + at.space + " u= q=t ");
    }
}

TEST(GrammarFromXsd, ReadsAttributes) {
    const Grammar grammar = read(schema(
        "<xs:attribute name='g' type='xs:date'/>"
        "<xs:attributeGroup name='G'><xs:attribute name='a' use='required' type='xs:ID'/>"
        "<xs:attribute name='b' type='xs:int' default='1'/></xs:attributeGroup>"
        "<xs:complexType name='B'><xs:attributeGroup ref='t:G'/><xs:attribute ref='t:g'/>"
        "<xs:anyAttribute/></xs:complexType>"
        "<xs:element name='r'><xs:complexType><xs:complexContent><xs:restriction base='t:B'>"
        "<xs:attribute name='a' use='prohibited'/><xs:attribute name='b' fixed='2' "
        "type='xs:int'/><xs:attribute name='kind' use='required'><xs:simpleType><xs:restriction "
        "base='xs:token'><xs:enumeration value='x'/><xs:enumeration value='y'/></xs:restriction>"
        "</xs:simpleType></xs:attribute></xs:restriction></xs:complexContent></xs:complexType>"
        "</xs:element><xs:element name='e'><xs:complexType><xs:simpleContent><xs:extension "
        "base='xs:decimal'><xs:attribute name='unit' type='xs:string'/></xs:extension>"
        "</xs:simpleContent></xs:complexType></xs:element><xs:element name='base' type='t:B'/>"));
    const auto attributes = [&](QStringView element, const std::vector<Symbol> &present) {
        return shown(grammar, attributeChoices(grammar, typeOf(grammar, element), present));
    };
    EXPECT_EQ(attributes(u"base", {}), "a ID!\nb int = 1\ng date\n");
    EXPECT_EQ(attributes(u"r", {}), "b int == 2\ng date\nkind token x y!\n");
    EXPECT_EQ(attributes(u"e", {grammar.symbol(u"", u"unit")}), "unit string is there\n");
    const Type &number = grammar.type(typeOf(grammar, u"e"));
    EXPECT_EQ(number.content, Content::Text);
    EXPECT_EQ(textOf(grammar, grammar.data().simpleTypes[number.text].builtIn), "decimal");
}

TEST(GrammarFromXsd, ReadsSimpleTypes) {
    const Grammar grammar = read(
        schema("<xs:simpleType name='S'><xs:restriction base='xs:int'><xs:minInclusive value='0'/>"
               "<xs:pattern value='\\d+'/><xs:pattern value='-1'/></xs:restriction></xs:simpleType>"
               "<xs:simpleType name='T'><xs:restriction base='t:S'><xs:minExclusive value='5'/>"
               "<xs:pattern value='.'/></xs:restriction></xs:simpleType>"
               "<xs:simpleType name='L'><xs:list itemType='t:T'/></xs:simpleType>"
               "<xs:simpleType name='U'><xs:union memberTypes='t:L xs:boolean'><xs:simpleType>"
               "<xs:restriction base='xs:string'><xs:enumeration value='none'><xs:annotation>"
               "<xs:documentation>Nothing.</xs:documentation></xs:annotation></xs:enumeration>"
               "</xs:restriction></xs:simpleType></xs:union></xs:simpleType>"
               "<xs:element name='r' type='t:U'/>"));
    const Data &data = grammar.data();
    const auto simple = [&](Index type) { return data.simpleTypes[type]; };
    const auto member = [&](const SimpleType &type, Index i) {
        return simple(data.simpleTypeLists[type.members.first + i]);
    };
    const SimpleType whole = simple(grammar.type(typeOf(grammar, u"r")).text);
    ASSERT_EQ(whole.variety, Variety::Union);
    ASSERT_EQ(whole.members.count, 3U);
    EXPECT_EQ(textOf(grammar, member(whole, 1).builtIn), "boolean");
    const EnumerationValue value = data.enumerations[member(whole, 2).enumeration.first];
    EXPECT_EQ(textOf(grammar, value.text) + textOf(grammar, value.documentation), "noneNothing.");
    const SimpleType list = member(whole, 0);
    ASSERT_EQ(list.variety, Variety::List);
    const SimpleType item = member(list, 0);
    EXPECT_EQ(textOf(grammar, item.name.local) + textOf(grammar, item.builtIn), "Tint");
    std::string facets;
    for (Index i = 0; i < item.facets.count; ++i) {
        const FacetValue &facet = data.facets[item.facets.first + i];
        facets += std::to_string(int(facet.facet)) + "=" + textOf(grammar, facet.value) + " ";
    }
    EXPECT_EQ(facets, "5=2147483647 4=5 ");
    std::string patterns;
    for (Index i = 0; i < item.patterns.count; ++i) {
        const Pattern &pattern = data.patterns[item.patterns.first + i];
        patterns += std::to_string(pattern.step) + textOf(grammar, pattern.text) + " ";
    }
    EXPECT_EQ(patterns, "0\\d+ 0-1 1. ");
}

TEST(GrammarFromXsd, FollowsTypesOfInstances) {
    const Grammar grammar = read(schema(
        "<xs:complexType name='B' abstract='true'/><xs:complexType name='C'><xs:complexContent>"
        "<xs:extension base='t:B'><xs:sequence><xs:element name='c'/></xs:sequence></xs:extension>"
        "</xs:complexContent></xs:complexType><xs:complexType name='D'><xs:complexContent>"
        "<xs:restriction base='t:C'/></xs:complexContent></xs:complexType>"
        "<xs:complexType name='Z'/><xs:element name='r' type='t:B'/>"));
    std::string names;
    for (const Index type : grammar.typesFor(typeOf(grammar, u"r")))
        names += textOf(grammar, grammar.type(type).name.local);
    EXPECT_EQ(names, "CD");
    // What the element, or the type that it is declared with, blocks.
    const auto typesOf = [](const std::string &element, const std::string &type,
                            const std::string &attributes = "") {
        const Grammar known = read(schema(
            "<xs:complexType name='B' " + type +
                "/><xs:complexType name='E'><xs:complexContent>"
                "<xs:extension base='t:B'/></xs:complexContent></xs:complexType><xs:complexType "
                "name='R'><xs:complexContent><xs:restriction base='t:B'/></xs:complexContent>"
                "</xs:complexType><xs:complexType name='S'><xs:complexContent><xs:restriction "
                "base='t:E'/></xs:complexContent></xs:complexType><xs:element name='r' "
                "type='t:B' " +
                element + "/>",
            attributes));
        const Index root = known.globalElement(known.symbol(u"t", u"r"));
        std::string found;
        for (const Index at : known.typesFor(known.element(root).type, root))
            found += textOf(known, known.type(at).name.local);
        return found;
    };
    EXPECT_EQ(typesOf("", ""), "BERS");
    EXPECT_EQ(typesOf("block='extension'", ""), "BR");
    EXPECT_EQ(typesOf("", "block='restriction'"), "BE");
    EXPECT_EQ(typesOf("", "", "targetNamespace='t' blockDefault='#all'"), "B");
    EXPECT_EQ(typesOf("block=''", "block=''", "targetNamespace='t' blockDefault='#all'"), "BERS");
    EXPECT_EQ(content(grammar, grammar.namedType(grammar.symbol(u"t", u"C"))), "c!");
}

TEST(GrammarFromXsd, ReadsWhatASchemaConsistsOf) {
    const xml::test::Files files;
    files.write("part.xsd", schema("<xs:complexType name='P'><xs:sequence><xs:element name='p' "
                                   "type='Q'/></xs:sequence></xs:complexType><xs:simpleType "
                                   "name='Q'><xs:restriction base='xs:int'/></xs:simpleType>",
                                   "elementFormDefault='qualified'"));
    files.write("base.xsd",
                schema("<xs:include schemaLocation='schema.xsd'/><xs:complexType name='O'>"
                       "<xs:sequence><xs:element name='old'/></xs:sequence></xs:complexType>"
                       "<xs:group name='G'><xs:sequence><xs:element name='g'/></xs:sequence>"
                       "</xs:group><xs:attributeGroup name='A'><xs:attribute name='a'/>"
                       "</xs:attributeGroup>"));
    files.write("other.xsd", schema("<xs:element name='o'/>", "targetNamespace='u'"));
    const Grammar grammar = read(
        files,
        schema("<xs:include schemaLocation='part.xsd'/><xs:import namespace='u' "
               "schemaLocation='other.xsd'/><xs:import namespace='http://www.w3.org/XML/1998/"
               "namespace' schemaLocation='http://www.w3.org/2001/xml.xsd'/>"
               "<xs:redefine schemaLocation='base.xsd'><xs:complexType name='O'>"
               "<xs:complexContent><xs:extension base='t:O'><xs:sequence><xs:element name='new'/>"
               "</xs:sequence></xs:extension></xs:complexContent></xs:complexType>"
               "<xs:group name='G'><xs:sequence><xs:group ref='t:G'/><xs:element name='h'/>"
               "</xs:sequence></xs:group><xs:attributeGroup name='A'><xs:attributeGroup "
               "ref='t:A'/><xs:attribute ref='xml:lang'/></xs:attributeGroup></xs:redefine>"
               "<xs:element name='p' type='t:P'/><xs:element name='o' type='t:O'/>"
               "<xs:element name='g'><xs:complexType><xs:sequence><xs:group ref='t:G'/>"
               "<xs:element ref='u:o' xmlns:u='u'/></xs:sequence><xs:attributeGroup ref='t:A'/>"
               "</xs:complexType></xs:element>"));
    EXPECT_EQ(content(grammar, typeOf(grammar, u"p")), "p!");
    EXPECT_EQ(content(grammar, typeOf(grammar, u"o")), "old! / new");
    EXPECT_EQ(content(grammar, typeOf(grammar, u"g")), "g! / h o");
    EXPECT_EQ(shown(grammar, attributeChoices(grammar, typeOf(grammar, u"g"), {})),
              "a \nlang anySimpleType\n");
    const Index p = grammar.childElement(typeOf(grammar, u"p"), grammar.symbol(u"t", u"p"));
    ASSERT_NE(p, None);
    EXPECT_EQ(
        textOf(grammar,
               grammar.data().simpleTypes[grammar.type(grammar.element(p).type).text].builtIn),
        "int");
    EXPECT_TRUE(grammar.data().missing.empty());
    EXPECT_TRUE(grammar.data().undeclared.empty());
}

TEST(GrammarFromXsd, KeepsDocumentationAndPlaces) {
    const xml::test::Files files;
    const Grammar grammar =
        read(files, schema("\n<xs:element name='r'><xs:annotation><xs:documentation "
                           "xml:lang='en'>Root.</xs:documentation><xs:documentation "
                           "xml:lang='ja'>\n根。</xs:documentation></xs:annotation></xs:element>"));
    const Element &root = grammar.element(grammar.globalElement(grammar.symbol(u"t", u"r")));
    EXPECT_EQ(textOf(grammar, root.documentation), "根。");
    EXPECT_EQ(root.place.line, 2U);
    EXPECT_EQ(textOf(grammar, root.place.file),
              QFileInfo(files.path("schema.xsd")).canonicalFilePath().toStdString());
}

TEST(GrammarFromXsd, ReadsNothingFromElsewhere) {
    const xml::test::Files files, others;
    const xml::test::Listener listener;
    others.write("secret.xsd", schema("<xs:element name='secret'/>"));
    for (const std::string &address :
         {std::string("/etc/passwd"), others.path("secret.xsd").toStdString(),
          "file://" + others.path("secret.xsd").toStdString(), listener.url("a.xsd"),
          std::string("//127.0.0.1/a.xsd"), std::string("file://host/a.xsd")}) {
        const Grammar grammar = read(
            files, schema("<xs:include schemaLocation='" + address + "'/><xs:element name='r'/>"));
        EXPECT_EQ(grammar.globalElements().size(), 1U) << address;
        ASSERT_EQ(grammar.data().missing.size(), 1U) << address;
        EXPECT_EQ(textOf(grammar, grammar.data().missing[0]), address);
    }
    EXPECT_FALSE(listener.wasCalled());
}

/// Nothing in a schema, however it is meant, hangs or ends the reader.
TEST(GrammarFromXsd, StandsWhatStrangersWrite) {
    const std::string circles[] = {
        "<xs:complexType name='A'><xs:complexContent><xs:extension base='t:B'/></xs:complexContent>"
        "</xs:complexType><xs:complexType name='B'><xs:complexContent><xs:extension base='t:A'/>"
        "</xs:complexContent></xs:complexType><xs:element name='r' type='t:A'/>",
        "<xs:simpleType name='A'><xs:restriction base='t:B'/></xs:simpleType><xs:simpleType "
        "name='B'><xs:union memberTypes='t:A t:B'/></xs:simpleType><xs:element name='r' "
        "type='t:A'/>",
        "<xs:group name='A'><xs:sequence><xs:group ref='t:A'/></xs:sequence></xs:group>"
        "<xs:element name='r'><xs:complexType><xs:group ref='t:A'/></xs:complexType></xs:element>",
        "<xs:attributeGroup name='A'><xs:attributeGroup ref='t:A'/></xs:attributeGroup><xs:element "
        "name='r'><xs:complexType><xs:attributeGroup ref='t:A'/></xs:complexType></xs:element>",
        "<xs:element name='r' substitutionGroup='t:s'/><xs:element name='s' "
        "substitutionGroup='t:r'/>",
        "<xs:include schemaLocation='schema.xsd'/><xs:import namespace='wrong' "
        "schemaLocation='schema.xsd'/><xs:redefine schemaLocation='schema.xsd'/><xs:element "
        "name='r'/>",
        "<xs:element name='r' type='t:none'/><xs:element ref='t:none'/><xs:element name=''/>"
        "<xs:complexType/><xs:element name='e' type='xs:none'/>",
    };
    for (const std::string &body : circles)
        content(read(schema(body)), 0);
    std::string doubling = "<xs:element name='r'><xs:complexType><xs:group ref='t:g0'/>"
                           "<xs:attributeGroup ref='t:g0'/></xs:complexType></xs:element>";
    for (int i = 0; i < 60; ++i) {
        const std::string next = " ref='t:g" + std::to_string(i + 1) + "'/>";
        const std::string name = " name='g" + std::to_string(i) + "'>";
        doubling += "<xs:group" + name + "<xs:sequence><xs:group" + next + "<xs:group" + next +
                    "</xs:sequence></xs:group><xs:attributeGroup" + name + "<xs:attributeGroup" +
                    next + "<xs:attributeGroup" + next + "</xs:attributeGroup>";
    }
    doubling += "<xs:group name='g60'><xs:choice><xs:element name='a' minOccurs='0' "
                "maxOccurs='1000000000'/></xs:choice></xs:group><xs:attributeGroup name='g60'>"
                "<xs:attribute name='a'/></xs:attributeGroup>";
    const Grammar doubled = read(schema(doubling));
    EXPECT_EQ(content(doubled, typeOf(doubled, u"r")), "a");
    std::string deep = "<xs:element name='a'/>";
    for (int i = 0; i < 3000; ++i)
        deep = "<xs:sequence>" + deep + "</xs:sequence>";
    EXPECT_NE(failure(schema("<xs:complexType name='A'>" + deep + "</xs:complexType>")), "");
    std::string chain;
    for (int i = 0; i < 3000; ++i)
        chain += "<xs:simpleType name='S" + std::to_string(i) + "'><xs:restriction base='t:S" +
                 std::to_string(i + 1) + "'/></xs:simpleType>";
    EXPECT_NE(failure(schema(chain)), "");
    EXPECT_NE(failure("<root/>"), "");
    EXPECT_NE(failure("<!DOCTYPE a [<!ENTITY b '&b;'>]><a c='&b;'/>"), "");
}

void ignore(void *, xmlError *) {}

/// The verdict of libxml2: 1 valid, 0 invalid, -1 for a schema that it refuses.
class Libxml {
public:
    explicit Libxml(const std::string &xsd) {
        xmlSetStructuredErrorFunc(nullptr, ignore);
        xmlSchemaParserCtxt *parser = xmlSchemaNewMemParserCtxt(xsd.c_str(), int(xsd.size()));
        schema_ = xmlSchemaParse(parser);
        xmlSchemaFreeParserCtxt(parser);
    }
    ~Libxml() { xmlSchemaFree(schema_); }
    Libxml(const Libxml &) = delete;
    Libxml &operator=(const Libxml &) = delete;

    bool hasSchema() const { return schema_; }
    bool takes(const std::string &xml) const {
        xmlDoc *doc = xmlReadMemory(xml.c_str(), int(xml.size()), nullptr, nullptr, 0);
        xmlSchemaValidCtxt *context = xmlSchemaNewValidCtxt(schema_);
        xmlSchemaSetValidStructuredErrors(context, ignore, nullptr);
        const bool valid = xmlSchemaValidateDoc(context, doc) == 0;
        xmlSchemaFreeValidCtxt(context);
        xmlFreeDoc(doc);
        return valid;
    }

private:
    xmlSchema *schema_;
};

/// Children that may well be valid: what is offered, in a random choice, and sometimes one changed.
std::string randomWord(RandomModels &random, ContentMatcher &matcher, Index type) {
    const Grammar &grammar = matcher.grammar();
    std::string word;
    for (int length = random.below(7); length > 0; --length) {
        std::string offered;
        std::vector<Symbol> symbols;
        for (const char name : word)
            symbols.push_back(grammar.symbol(u"t", QString(QLatin1Char(name))));
        for (const Candidate &candidate :
             matcher.run(type, symbols).insertable(word.size()).elements) {
            if (candidate.misfit == Misfit::Fits || candidate.misfit == Misfit::NeedsMore)
                offered += nameOf(grammar, candidate.element);
        }
        if (offered.empty())
            break;
        word += offered[std::size_t(random.below(int(offered.size())))];
    }
    if (!word.empty() && random.below(3) == 0)
        word[std::size_t(random.below(int(word.size())))] =
            static_cast<char>('a' + random.below(5));
    return word;
}

TEST(GrammarFromXsd, AgreesWithLibxml2) {
    int compared = 0, valid = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomModels random(seed);
        char name = 'a';
        const std::string model = random.xsdModel(2, name);
        const std::string text = schema("<xs:element name='r'><xs:complexType><xs:sequence>" +
                                        model + "</xs:sequence></xs:complexType></xs:element>");
        const Libxml libxml(text);
        if (!libxml.hasSchema())
            continue;
        const Grammar grammar = read(text);
        ContentMatcher matcher(grammar);
        const Index type = typeOf(grammar, u"r");
        for (int count = 0; count < 12; ++count) {
            const std::string word = randomWord(random, matcher, type);
            std::string xml = "<r xmlns='t'>";
            std::vector<Symbol> symbols;
            for (const char child : word) {
                xml += std::string("<") + child + "/>";
                symbols.push_back(grammar.symbol(u"t", QString(QLatin1Char(child))));
            }
            const bool expected = libxml.takes(xml + "</r>");
            EXPECT_EQ(matcher.run(type, symbols).isValid(), expected) << model << "\n" << word;
            ++compared;
            valid += expected;
        }
    }
    EXPECT_GT(compared - valid, 100);
    EXPECT_GT(valid, 200);
}

} // namespace

} // namespace quillon::grammar

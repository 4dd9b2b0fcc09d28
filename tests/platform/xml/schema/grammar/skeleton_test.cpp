#include "platform/xml/schema/grammar/load_grammar.h"
#include "platform/xml/schema/grammar/skeleton.h"
#include "platform/xml/schema/xerces/schema_validator.h"
#include "tests/platform/xml/schema/grammar/grammar_test_support.h"
#include "tests/platform/xml/schema/grammar/random_models.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::grammar {

namespace {

using namespace test;

std::string made(const Grammar &grammar, QStringView name, const NameScope &scope = {},
                 const Chooser &choose = {}, QStringView space = u"") {
    const Index element = grammar.globalElement(grammar.symbol(space, name));
    EXPECT_NE(element, None) << name.toString().toStdString();
    return element == None ? std::string()
                           : SkeletonMaker(grammar).markup(element, scope, choose).toStdString();
}

/// A schema of types that refer to each other at random, T0 among them, a text.
std::string randomSchema(RandomModels &random, int types) {
    std::string text =
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
        "<xs:simpleType name='T0'><xs:restriction base='xs:string'/></xs:simpleType>";
    for (int type = 1; type <= types; ++type) {
        char name = 'a';
        std::string model = random.xsdModel(2, name);
        const std::string plain = "type='xs:string'";
        for (std::size_t at = model.find(plain); at != std::string::npos; at = model.find(plain))
            model.replace(at, plain.size(), "type='T" + std::to_string(random.below(types)) + "'");
        const std::string number = std::to_string(type);
        text += "<xs:complexType name='T" + number + "'><xs:sequence>" + model +
                "</xs:sequence><xs:attribute name='v' use='required' type='xs:boolean'/>"
                "</xs:complexType><xs:element name='e" +
                number + "' type='T" + number + "'/>";
    }
    return text + "</xs:schema>";
}

TEST(Skeleton, IsValidForAllSchemasAndChoices) {
    const xml::test::Files files;
    int made = 0, asked = 0, endless = 0;
    for (unsigned seed = 0; seed < 120; ++seed) {
        RandomModels random(seed);
        const std::string schema = randomSchema(random, 5);
        const QString path = files.write("schema.xsd", schema);
        const Grammar grammar = loadGrammar({path});
        const SkeletonMaker maker(grammar);
        const Chooser anyhow = [&](const OpenChoice &choice) {
            ++asked;
            return std::size_t(random.below(int(choice.alternatives.size())));
        };
        for (const Index element : grammar.globalElements()) {
            const QString first = maker.markup(element, {});
            const QString other = maker.markup(element, {}, anyhow);
            if (maker.isEndless(element)) {
                ++endless;
                continue;
            }
            for (const QString &text : {first, other}) {
                const xml::DOMDocument40 document = xml::test::parsed(text.toStdString());
                const std::vector<xml::SchemaError> errors = xml::validateByXsd(document, path);
                ++made;
                ASSERT_TRUE(errors.empty()) << errors.front().reason.toStdString() << "\n"
                                            << text.toStdString() << "\n"
                                            << schema;
            }
        }
    }
    EXPECT_GT(made, 100);
    EXPECT_GT(asked, 20);
    EXPECT_GT(endless, 5);
}

TEST(Skeleton, HasWhatIsMandatoryAndNothingElse) {
    const struct {
        std::string dtd;
        QString root;
        std::string markup;
    } cases[] = {
        {"<!ELEMENT r (a,b?,(c|d),e+)*>", "r", "<r/>"},
        {"<!ELEMENT r (a,b?,(c|d),e+)>", "r", "<r><a/><c/><e/></r>"},
        {"<!ELEMENT r (#PCDATA|a)*><!ATTLIST r x CDATA #REQUIRED y CDATA 'd' z (p|q) #REQUIRED "
         "p:w CDATA #REQUIRED>",
         "r", "<r x=\"\" z=\"p\" p:w=\"\"></r>"},
        // What holds itself: the first alternative that need not, and none when there is none.
        {"<!ELEMENT r (r|a)>", "r", "<r><a/></r>"},
        {"<!ELEMENT r (a,b)><!ELEMENT a (r|b)><!ELEMENT b EMPTY>", "r", "<r><a><b/></a><b/></r>"},
        {"<!ELEMENT r (a|b)><!ELEMENT a (r)><!ELEMENT b EMPTY>", "r", "<r><a><r><b/></r></a></r>"},
        {"<!ELEMENT r (a)><!ELEMENT a (r)>", "r", "<r/>"},
    };
    const xml::test::Files files;
    for (const auto &at : cases) {
        std::string dtd = at.dtd;
        for (const char name : {'a', 'b', 'c', 'd', 'e'}) {
            const std::string declaration = std::string("<!ELEMENT ") + name;
            if (dtd.find(declaration + " ") == std::string::npos)
                dtd += declaration + " EMPTY>";
        }
        const Grammar grammar = loadGrammar({files.write("a.dtd", dtd)});
        EXPECT_EQ(made(grammar, at.root), at.markup) << at.dtd;
    }
}

TEST(Skeleton, EndsForSchemasThatNeedTooMuch) {
    const xml::test::Files files;
    std::string doubled, great;
    for (int i = 0; i < 60; ++i)
        doubled += "<!ELEMENT e" + std::to_string(i) + " (e" + std::to_string(i + 1) + ",e" +
                   std::to_string(i + 1) + ")>";
    const Grammar wide = loadGrammar({files.write("a.dtd", doubled + "<!ELEMENT e60 EMPTY>")});
    EXPECT_LT(made(wide, u"e0").size(), 10'000U);
    const Grammar many = loadGrammar({files.write(
        "b.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='r'>"
                 "<xs:complexType><xs:choice minOccurs='1000000000' maxOccurs='1000000000'>"
                 "<xs:element name='a'/><xs:element name='b'/></xs:choice></xs:complexType>"
                 "</xs:element></xs:schema>")});
    int asked = 0;
    const std::string text = made(many, u"r", {}, [&](const OpenChoice &) {
        ++asked;
        return std::size_t(1);
    });
    EXPECT_LT(text.size(), 10'000U);
    EXPECT_LT(asked, 10);
}

const std::string Instance = "http://www.w3.org/2001/XMLSchema-instance";

TEST(Skeleton, DeclaresWhatItsPlaceDoesNotHave) {
    const xml::test::Files files;
    files.write("u.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                         "targetNamespace='u'><xs:attribute name='at' type='xs:string'/>"
                         "<xs:element name='o' type='xs:string'/></xs:schema>");
    const Grammar grammar = loadGrammar({files.write(
        "a.xsd",
        "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='t' xmlns:t='t' "
        "xmlns:u='u'><xs:import namespace='u' schemaLocation='u.xsd'/>"
        "<xs:complexType name='A' abstract='true'/>"
        "<xs:complexType name='B'><xs:complexContent><xs:extension base='t:A'><xs:sequence>"
        "<xs:element name='n' type='xs:string' fixed='&lt;7&gt;'/></xs:sequence></xs:extension>"
        "</xs:complexContent></xs:complexType>"
        "<xs:element name='head' abstract='true' type='xs:string'/>"
        "<xs:element name='member' substitutionGroup='t:head'/>"
        "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='local' "
        "form='qualified' type='xs:string'/><xs:element name='plain' type='t:A'/>"
        "<xs:element ref='t:head'/><xs:element ref='u:o'/></xs:sequence>"
        "<xs:attribute ref='u:at' use='required'/></xs:complexType></xs:element></xs:schema>")});
    const struct {
        NameScope scope;
        std::string markup;
    } cases[] = {
        {{},
         "<r xmlns=\"t\" xmlns:ns=\"u\" ns:at=\"\"><local></local><plain xmlns=\"\" "
         "xmlns:ns1=\"t\" "
         "xmlns:xsi=\"" +
             Instance +
             "\" xsi:type=\"ns1:B\"><n>&lt;7&gt;</n></plain><member></member><ns:o></ns:o></r>"},
        {{{{"p", "t"}, {"q", "u"}, {"i", QString::fromStdString(Instance)}}},
         "<p:r q:at=\"\"><p:local></p:local><plain "
         "i:type=\"p:B\"><n>&lt;7&gt;</n></plain><p:member></p:member>"
         "<q:o></q:o></p:r>"},
        // Of several prefixes that of the parent.
        {{{{"", "t"}, {"p", "t"}, {"q", "u"}, {"i", QString::fromStdString(Instance)}}, "p"},
         "<p:r q:at=\"\"><p:local></p:local><plain xmlns=\"\" "
         "i:type=\"p:B\"><n>&lt;7&gt;</n></plain>"
         "<p:member></p:member><q:o></q:o></p:r>"},
    };
    for (const auto &at : cases)
        EXPECT_EQ(made(grammar, u"r", at.scope, {}, u"t"), at.markup);
}

TEST(Skeleton, AsksWhatIsToBeChosen) {
    const xml::test::Files files;
    const Grammar grammar = loadGrammar(
        {files.write("a.dtd", "<!ELEMENT r (x,((a,b)|c|(d?,e)),f)><!ELEMENT x (a|b)*>"
                              "<!ELEMENT a EMPTY><!ELEMENT b EMPTY><!ELEMENT c (a|b)>"
                              "<!ELEMENT d EMPTY><!ELEMENT e EMPTY><!ELEMENT f EMPTY>")});
    std::string asked;
    const Chooser second = [&](const OpenChoice &choice) {
        asked += nameOf(grammar, choice.element) + ":";
        for (const std::vector<Index> &alternative : choice.alternatives)
            asked += " (" + namesOf(grammar, alternative) + ")";
        asked += "\n";
        return std::size_t(1);
    };
    EXPECT_EQ(made(grammar, u"r", {}, second), "<r><x/><c><b/></c><f/></r>");
    EXPECT_EQ(asked, "r: (a b) (c) (e)\nc: (a) (b)\n");
    const auto giveUp = [](const OpenChoice &) -> std::size_t { throw 1; };
    EXPECT_THROW(made(grammar, u"r", {}, giveUp), int);
}

} // namespace

} // namespace quillon::grammar

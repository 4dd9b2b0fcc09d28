#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/attribute_choices.h"
#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "platform/xml/schema/grammar/grammar_from_dtd.h"
#include "tests/platform/xml/schema/grammar/grammar_test_support.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::grammar {

namespace {

using namespace test;

Data read(const xml::test::Files &files, const std::string &dtd, const std::string &subset = {}) {
    const QString path = dtd.empty() ? QString() : files.write("schema.dtd", dtd);
    SchemaFiles folder(files.path("schema.dtd"), {});
    return grammarFromDtd(path, QByteArray::fromStdString(subset), folder);
}

std::string failure(const std::string &dtd) {
    const xml::test::Files files;
    try {
        read(files, dtd);
    } catch (const runtime::Error &error) {
        return error.description().toStdString();
    }
    return {};
}

/// An element's content: what may stand in an empty one, then what it needs.
std::string content(const Grammar &grammar, QStringView name) {
    const Index element = grammar.globalElement(grammar.symbol(u"", name));
    if (element == None)
        return "-";
    const Index type = grammar.element(element).type;
    ContentMatcher matcher(grammar);
    return shown(grammar, matcher.run(type, {}).insertable(0));
}

TEST(GrammarFromDtd, ReadsAllThatADtdSays) {
    const xml::test::Files files;
    files.write("part.mod", "<?xml encoding='UTF-8'?>\n<!ELEMENT part (title, %more;)>");
    const Grammar grammar{
        read(files,
             "<!ENTITY % kind 'INCLUDE'>"
             "<!ENTITY % more '(a | b)*'>"
             "<!ENTITY % any 'book'>"
             "<!ENTITY % part SYSTEM 'part.mod'> %part;"
             "<![%kind;[<!-- ==== doc: A title. ==== --><!ELEMENT title (#PCDATA)>]]>"
             "<![IGNORE[<!ELEMENT gone EMPTY>]]>"
             "<!-- The root. -->\n"
             "<!ELEMENT book (title?, part+, (%any;|note)?)>"
             "<!ELEMENT a EMPTY><!ELEMENT b ANY>"
             "<!ELEMENT note (#PCDATA | a | b)*>",
             "<!ENTITY % any 'a'>")};
    const struct {
        QString name;
        std::string content, documentation;
        Content kind;
    } elements[] = {
        {"book", "title part! / a note", "The root.", Content::Elements},
        {"part", "title! / a b", "", Content::Elements},
        {"title", "", "A title.", Content::Text},
        {"a", "", "", Content::Empty},
        {"b", "part title a b book note", "", Content::Any},
        {"note", "a b", "", Content::Mixed},
        {"gone", "-", "", Content::Empty},
    };
    for (const auto &element : elements) {
        const std::string name = element.name.toStdString();
        EXPECT_EQ(content(grammar, element.name), element.content) << name;
        const Index at = grammar.globalElement(grammar.symbol(u"", element.name));
        if (at == None)
            continue;
        EXPECT_EQ(grammar.text(grammar.element(at).documentation).toString().toStdString(),
                  element.documentation)
            << name;
        EXPECT_EQ(grammar.type(grammar.element(at).type).content, element.kind) << name;
    }
    const Place place = grammar.element(grammar.globalElement(grammar.symbol(u"", u"part"))).place;
    EXPECT_TRUE(grammar.text(place.file).endsWith(u"/part.mod"));
    EXPECT_EQ(place.line, 2U);
}

TEST(GrammarFromDtd, ReadsAttributes) {
    const xml::test::Files files;
    const Grammar grammar{read(files, "",
                               "<!ATTLIST a x:id ID #REQUIRED kind (one|two) 'one'\n"
                               " v CDATA #FIXED 'é&#x3042;' kind CDATA #IMPLIED>"
                               "<!ELEMENT a EMPTY><!ATTLIST a ref IDREFS #IMPLIED>")};
    const Index type = grammar.element(grammar.globalElement(grammar.symbol(u"", u"a"))).type;
    const AttributeChoices choices =
        attributeChoices(grammar, type, {grammar.symbol(u"", u"ref"), grammar.symbol(u"", u"id")});
    EXPECT_EQ(shown(grammar, choices),
              "x:id ID!\nkind NMTOKEN one two = one\nv string == éあ\nref IDREFS is there\n");
    EXPECT_EQ(choices.unexpected, std::vector<int>{1});
}

TEST(GrammarFromDtd, SaysWhatCannotBeRead) {
    const std::string part = "<!ENTITY % a 'x'><!ELEMENT b EMPTY>\n";
    EXPECT_NE(failure(part + "<!ELEMENT b (a,>").find("schema.dtd"), std::string::npos);
    EXPECT_NE(failure(part + "<!ELEMENT b (a,>").find("2"), std::string::npos);
    EXPECT_NE(failure("<!ENTITY % a '&#37;a;'> %a;"), "");
    std::string bomb = "<!ENTITY % a0 '<!ELEMENT x EMPTY><!ELEMENT y EMPTY>'>";
    for (int i = 1; i < 40; ++i)
        bomb += "<!ENTITY % a" + std::to_string(i) + " '&#37;a" + std::to_string(i - 1) +
                ";&#37;a" + std::to_string(i - 1) + ";'>";
    EXPECT_NE(failure(bomb + "%a39;"), "");
    const std::string deep = "<!ELEMENT a " + std::string(2000, '(') + "b" + std::string(2000, ')');
    EXPECT_NE(failure(deep + ">"), "");
}

TEST(GrammarFromDtd, ReadsNothingFromElsewhere) {
    const xml::test::Files files, others;
    const xml::test::Listener listener;
    others.write("secret.mod", "<!ELEMENT secret EMPTY>");
    const std::string outside[] = {others.path("secret.mod").toStdString(),
                                   "file://" + others.path("secret.mod").toStdString(),
                                   "../" +
                                       others.path("secret.mod").section(u'/', -2).toStdString(),
                                   listener.url("a.mod"),
                                   "//127.0.0.1/a.mod",
                                   "missing.mod"};
    for (const std::string &address : outside) {
        const Grammar grammar{read(files, "<!ENTITY % a SYSTEM '" + address +
                                              "'>%a;<!ENTITY % e 'EMPTY'><!ELEMENT b %e;>")};
        EXPECT_EQ(content(grammar, u"secret"), "-") << address;
        EXPECT_EQ(content(grammar, u"b"), "") << address;
        ASSERT_EQ(grammar.data().missing.size(), 1U) << address;
        EXPECT_EQ(grammar.text(grammar.data().missing[0]).toString().toStdString(), address);
    }
    EXPECT_FALSE(listener.wasCalled());
    // A catalog may know it.
    SchemaFiles known(files.path("schema.dtd"), {}, [&](const QString &name) {
        return name == QLatin1String("-//X//Y") ? others.path("secret.mod") : QString();
    });
    const Grammar grammar{grammarFromDtd(
        files.write("schema.dtd", "<!ENTITY % a PUBLIC '-//X//Y' 'http://x/y'>%a;"), {}, known)};
    EXPECT_EQ(content(grammar, u"secret"), "");
}

} // namespace

} // namespace quillon::grammar

#include "platform/runtime/error.h"
#include "platform/xml/schema/libxml_validator.h"
#include "platform/xml/schema/xerces/schema_validator.h"
#include "tests/platform/xml/schema/grammar/random_models.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml {

namespace {

class SchemaValidator : public testing::Test {
protected:
    QString schema(const std::string &name, const std::string &content,
                   const std::string &attributes = "") {
        return files.write(QString::fromStdString(name),
                           "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' " + attributes +
                               ">" + content + "</xs:schema>");
    }
    /// Each as "line:column code attribute".
    static std::string shown(const std::vector<SchemaError> &errors) {
        QStringList rows;
        for (const SchemaError &error : errors)
            rows.append(QStringLiteral("%1:%2 %3 %4")
                            .arg(error.line)
                            .arg(error.column)
                            .arg(QString::number(error.errorCode & 0xfff, 16), error.attribute)
                            .trimmed());
        return rows.join(QStringLiteral(", ")).toStdString();
    }

    test::Files files;
};

std::string repeated(const std::string &text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST_F(SchemaValidator, SeveralSchemasJudgeTogether) {
    // The one imports the other without saying where it is.
    const QString a = schema("a.xsd",
                             "<xs:import namespace='urn:b'/><xs:element name='a'><xs:complexType>"
                             "<xs:sequence><xs:element ref='b:b' maxOccurs='2'/></xs:sequence>"
                             "<xs:attribute ref='b:n'/></xs:complexType></xs:element>",
                             "targetNamespace='urn:a' xmlns:b='urn:b'");
    const QString b = schema("b.xsd",
                             "<xs:element name='b' type='xs:int'/>"
                             "<xs:attribute name='n' type='xs:int'/>",
                             "targetNamespace='urn:b'");
    const DOMDocument40 document = test::parsed("<p:a xmlns:p='urn:a' xmlns:q='urn:b'\n q:n='x'>\n"
                                                "<q:b>1</q:b> <q:b>\xe6\x97\xa5</q:b><q:c/></p:a>");
    for (const auto &order : std::vector<std::vector<XsdSource>>{{{"urn:a", a}, {"urn:b", b}},
                                                                 {{"urn:b", b}, {"urn:a", a}}}) {
        const auto found = validateByXsds(document, order);
        EXPECT_EQ(shown(found), "1:1 17 q:n, 3:14 201, 3:26 14");
        ASSERT_EQ(found.size(), 3u);
        EXPECT_TRUE(found[2].reason.contains("'q:c'")) << found[2].reason.toStdString();
    }
    // What the document says of where its schemas are is left alone, and nothing is read twice.
    schema("hint.xsd", "<xs:element name='c'/>", "targetNamespace='urn:c'");
    EXPECT_EQ(shown(validateByXsds(
                  test::parsed("<c xmlns='urn:c' xmlns:i='http://www.w3.org/2001/"
                               "XMLSchema-instance' i:schemaLocation='urn:c hint.xsd'/>"),
                  {{"urn:b", b}})),
              "1:1 d");
    EXPECT_THROW(validateByXsds(document, {{"urn:a", a}}), runtime::Error);
    try {
        validateByXsds(document, {{"urn:other", b}});
        ADD_FAILURE() << "the namespace is another one";
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.description().toStdString(),
                  "スキーマ 'b.xsd' を読み込めません。\n"
                  "取り込むファイルの対象の名前空間が一致しません。");
    }
}

TEST_F(SchemaValidator, PlacesAreThoseOfTheTextThatWouldBeSaved) {
    const QString path =
        schema("s.xsd", "<xs:element name='r'><xs:complexType><xs:sequence>"
                        "<xs:element name='a' type='xs:int' maxOccurs='9'/></xs:sequence>"
                        "</xs:complexType></xs:element>");
    const DOMDocument40 document =
        test::parsed("<?xml version='1.0'?>\n<!DOCTYPE r [<!-- <a> ]> --><!ENTITY e '<a>x</a>'>]>\n"
                     "<!-- <a> --><?p <a> ?><r>&e;<a>1</a>\n\n<a>2</a></r>");
    // What an entity holds is told at the element in which the reference stands.
    EXPECT_EQ(shown(validateByXsd(document, path)), "3:23 201");
    // An element that comes from another text.
    const Node root = document.documentElement();
    root.firstChild().nextSibling().setText(QStringLiteral("x"));
    root.appendChild(test::parsed("<a\n\n>y</a>").documentElement());
    EXPECT_EQ(shown(validateByXsd(document, path)), "3:23 201, 3:29 201, 6:1 201");
}

TEST_F(SchemaValidator, WhatIsTooMuchForOneLibraryTheOtherJudges) {
    const std::string item = "<xs:element name='a' type='xs:int'/><xs:element name='b'/>";
    const auto groups = [&](const std::string &occurrences) {
        return "<xs:element name='r'><xs:complexType><xs:sequence " + occurrences + ">" + item +
               "</xs:sequence></xs:complexType></xs:element>";
    };
    // Written out, the group would fill all the memory there is.
    const QString path = schema("s.xsd", groups("maxOccurs='1000000000'"));
    EXPECT_EQ(shown(validateByXsd(test::parsed("<r><a>1</a><b/><a>2</a><b/></r>"), path)), "");
    EXPECT_EQ(shown(validateByXsd(test::parsed("<r><a>x</a><b/><a>2</a></r>"), path)),
              "1:1 12, 1:4 201");
    schema("s.xsd", groups("maxOccurs='40'"));
    EXPECT_EQ(shown(validateByXsd(test::parsed("<r><a>1</a><b/><a>x</a><b/></r>"), path)),
              "1:16 201");
    // A pattern that takes longer with each further letter.
    schema("s.xsd", "<xs:element name='r'><xs:simpleType><xs:restriction base='xs:string'>"
                    "<xs:pattern value='(a|a)*b'/></xs:restriction></xs:simpleType></xs:element>");
    EXPECT_EQ(shown(validateByXsd(test::parsed("<r>" + repeated("a", 60) + "</r>"), path)),
              "1:1 201");
}

TEST_F(SchemaValidator, KeysAreBrokenByElements) {
    const QString path = schema(
        "s.xsd",
        "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='g' "
        "maxOccurs='unbounded'><xs:complexType><xs:sequence><xs:any processContents='lax' "
        "maxOccurs='unbounded'/></xs:sequence></xs:complexType>"
        "<xs:key name='k'><xs:selector xpath='.//i'/><xs:field xpath='@x'/><xs:field xpath='y'/>"
        "</xs:key><xs:keyref name='kr' refer='k'><xs:selector xpath='j|l'/><xs:field xpath='@x'/>"
        "<xs:field xpath='@y'/></xs:keyref></xs:element></xs:sequence></xs:complexType>"
        "</xs:element><xs:element name='n'><xs:complexType><xs:sequence><xs:element ref='i'/>"
        "</xs:sequence></xs:complexType></xs:element><xs:element "
        "name='i'><xs:complexType><xs:sequence>"
        "<xs:element name='y' type='xs:string'/></xs:sequence><xs:attribute name='x' "
        "type='xs:int'/>"
        "</xs:complexType></xs:element><xs:complexType name='ref'><xs:attribute name='x' "
        "type='xs:int'/><xs:attribute name='y' type='xs:string'/></xs:complexType><xs:element "
        "name='j' type='ref'/>"
        "<xs:element name='l' type='ref'/>");
    EXPECT_EQ(shown(validateByXsd(test::parsed("<r><g><n><i x='1'><y>2</y></i></n>"
                                               "<j x='1' y='2'/></g>\n"
                                               "<g><i x='1'><y>2</y></i><j x='2' y='2'/>\n"
                                               "<i x=' 1'><y>3</y></i><l x='1' y='3'/></g></r>"),
                                  path)),
              "2:25 14");
}

TEST_F(SchemaValidator, RandomDocumentsAreJudgedAlikeByBothLibraries) {
    int valid = 0, invalid = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        grammar::test::RandomModels random(seed);
        char next = 'a';
        const std::string model = random.xsdModel(2, next);
        const QString path =
            schema("s.xsd", "<xs:element name='r'><xs:complexType><xs:sequence>" + model +
                                "</xs:sequence></xs:complexType></xs:element>");
        for (int i = 0; i < 6; ++i) {
            std::string document = "<r>";
            for (const char name : random.word())
                document += std::string("<") + name + "/>";
            document += "</r>";
            const DOMDocument40 parsed = test::parsed(document);
            const bool isValid = libxmlVerdictByXsd(parsed, {{QString(), path}}).empty();
            EXPECT_EQ(validateByXsd(parsed, path).empty(), isValid) << model << document;
            ++(isValid ? valid : invalid);
        }
    }
    EXPECT_GT(valid, 10);
    EXPECT_GT(invalid, 10);
}

} // namespace

} // namespace quillon::xml

#include "platform/runtime/error.h"
#include "platform/xml/schema/xerces/schema_validator.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml {

namespace {

std::string codes(const std::vector<SchemaError> &found) {
    QStringList list;
    for (const SchemaError &error : found)
        list.append(QString::number(error.errorCode & 0xfff, 16).rightJustified(3, u'0'));
    return list.join(u' ').toStdString();
}

struct Row {
    std::string document;
    std::string codes;
};

class Schema : public testing::Test {
protected:
    std::vector<SchemaError> byDtd(const std::string &document) {
        return validateByDtd(test::parsed("<!DOCTYPE r SYSTEM 's.dtd'>" + document),
                             files.path("s.dtd"));
    }
    std::vector<SchemaError> byXsd(const std::string &document) {
        return validateByXsd(test::parsed(document), files.path("s.xsd"));
    }
    void writeXsd(const std::string &content, const std::string &attributes = "") {
        files.write("s.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' " +
                                 attributes + ">" + content + "</xs:schema>");
    }
    /// What is raised, or nothing.
    template <typename Function>
    QString failure(Function &&function) {
        try {
            function();
        } catch (const runtime::Error &error) {
            return error.description();
        }
        return {};
    }

    test::Files files;
};

TEST_F(Schema, Dtd) {
    files.write("s.dtd",
                "<!ELEMENT r (a, b?)><!ELEMENT a (#PCDATA)><!ELEMENT b EMPTY>"
                "<!ATTLIST r q CDATA #REQUIRED f CDATA #FIXED 'v' e (x|y) #IMPLIED id ID #IMPLIED "
                "ref IDREF #IMPLIED><!ENTITY % more SYSTEM 'more.dtd'>%more;");
    files.write("more.dtd", "<?xml encoding='x-sjis'?><!ENTITY known '\x93\xfa'>"
                            "<!ELEMENT m (#PCDATA|a)*>");
    const std::vector<Row> rows{
        {"<r q='1'><a>x</a><b/></r>", ""},
        {"<r q='1'> <a>&known;</a><!--c--></r>", ""},
        {"<r q='1' f='v' e='x' id='i' ref='i'><a/></r>", ""},
        {"<r q='1'/>", "011"},
        {"<r q='1'><b/></r>", "014"},
        {"<r><a/></r>", "020"},
        {"<r q='1' z='1'><a/></r>", "015"},
        {"<r q='1' f='w'><a/></r>", "016"},
        {"<r q='1' e='z'><a/></r>", "017"},
        {"<r q='1' ref='i'><a/></r>", "00e"},
        {"<r q='1'><a>&unknown;</a></r>", "002"},
        {"<r q='1'><a/><b>x</b></r>", "018"},
        {"<a/>", "013"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(codes(byDtd(row.document)), row.codes) << row.document;
    const auto found = byDtd("\n<r q='1'>\n<a/>\n<zz/></r>");
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(codes(found), "014 00d");
    EXPECT_EQ(found[1].node.nodeName(), "zz");
    EXPECT_EQ(found[1].line, 4);
    EXPECT_TRUE(found[1].reason.contains("'zz'"));
}

TEST_F(Schema, Xsd) {
    writeXsd(
        "<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' type='xs:int'/>"
        "<xs:element name='b' minOccurs='0' maxOccurs='2'><xs:simpleType>"
        "<xs:restriction base='xs:string'><xs:maxLength value='2'/></xs:restriction>"
        "</xs:simpleType></xs:element><xs:element name='e' minOccurs='0'><xs:complexType/>"
        "</xs:element><xs:element name='f' fixed='v' type='xs:string' minOccurs='0'/>"
        "</xs:sequence><xs:attribute name='q' use='required'/>"
        "<xs:attribute name='n' type='xs:int'/><xs:attribute name='f' fixed='v'/>"
        "</xs:complexType><xs:unique name='u'><xs:selector xpath='b'/><xs:field xpath='.'/>"
        "</xs:unique></xs:element>");
    const std::vector<Row> rows{
        {"<r q='1' n='2' f='v'><a>1</a><b>x</b><b>y</b></r>", ""},
        {"<r q='1'/>", "012"},
        {"<r q='1'><b>x</b></r>", "014"},
        {"<r q='1'><a>1</a><zz/></r>", "014"},
        {"<r q='1'>x<a>1</a></r>", "018"},
        {"<r><a>1</a></r>", "020"},
        {"<r q='1' z='1'><a>1</a></r>", "015"},
        {"<r q='1' f='w'><a>1</a></r>", "016"},
        {"<r q='1' n='x'><a>1</a></r>", "017"},
        {"<r q='1'><a>x</a></r>", "201"},
        {"<r q='1'><a>1</a><b>xyz</b></r>", "201"},
        {"<r q='1'><a>1</a><b>x</b><b>x</b></r>", "014"},
        {"<r q='1'><a>1</a><e>x</e></r>", "018"},
        {"<r q='1'><a>1</a><f>w</f></r>", "014"},
        {"<zz/>", "00d"},
        {"<!DOCTYPE r SYSTEM 'none.dtd'><r q='1'><a>&unknown;</a></r>", "002"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(codes(byXsd(row.document)), row.codes) << row.document;
    const auto found = byXsd("<!DOCTYPE r [<!ENTITY e '<b>x</b>'>]>\n<r q='1'>\n<a>1</a>&e;\n"
                             "<b>\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e</b></r>");
    ASSERT_EQ(codes(found), "201");
    EXPECT_EQ(found[0].node.text(), QString::fromUtf8("\u65e5\u672c\u8a9e"));
    EXPECT_EQ(found[0].line, 4);
    EXPECT_TRUE(found[0].reason.contains("'b'")) << found[0].reason.toStdString();
}

TEST_F(Schema, ReferencesThatLeadNowhereComeInTheOrderOfTheDocument) {
    // The library has them in a table, in another order in every second.
    files.write("s.dtd", "<!ELEMENT r (a|b)*><!ELEMENT a EMPTY><!ELEMENT b EMPTY>"
                         "<!ATTLIST a z IDREF #IMPLIED><!ATTLIST b c IDREF #IMPLIED>");
    writeXsd("<xs:element name='r'><xs:complexType><xs:choice maxOccurs='unbounded'>"
             "<xs:element name='a'><xs:complexType><xs:attribute name='z' type='xs:IDREF'/>"
             "</xs:complexType></xs:element>"
             "<xs:element name='b'><xs:complexType><xs:attribute name='c' type='xs:IDREF'/>"
             "</xs:complexType></xs:element></xs:choice></xs:complexType></xs:element>");
    std::string document, names;
    for (int i = 9; i > 0; --i) {
        document += (i % 2 ? "<a z='v" : "<b c='v") + std::to_string(i) + "'/>";
        names += i % 2 ? "a" : "b";
    }
    document = "<r>" + document + "</r>";
    for (const auto &found : {byDtd(document), byXsd(document)}) {
        std::string order;
        for (const SchemaError &error : found)
            order += error.node.nodeName().toStdString();
        EXPECT_EQ(order, names);
    }
}

TEST_F(Schema, OnlyTheFolderIsRead) {
    files.write("part.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                            "<xs:element name='r' type='xs:int'/></xs:schema>");
    writeXsd("<xs:include schemaLocation='part.xsd'/>");
    EXPECT_EQ(codes(byXsd("<r>1</r>")), "");
    QTemporaryDir outside;
    const test::Listener listener;
    ASSERT_TRUE(QFile::copy(files.path("part.xsd"), outside.filePath("part.xsd")));
    const QString upward = QDir(files.path(".")).relativeFilePath(outside.filePath("part.xsd"));
    ASSERT_TRUE(upward.startsWith("../") && QFile::exists(files.path(upward)));
    for (const QString &place :
         {outside.filePath("part.xsd"), upward, QString::fromStdString(listener.url("part.xsd")),
          QString("none.xsd")}) {
        writeXsd("<xs:include schemaLocation='" + place.toStdString() + "'/>");
        EXPECT_FALSE(failure([&] { byXsd("<r>1</r>"); }).isNull()) << place.toStdString();
    }
    EXPECT_FALSE(listener.wasCalled());
    // The first part that is missing is named.
    writeXsd("<xs:include schemaLocation='first.xsd'/><xs:include schemaLocation='second.xsd'/>");
    EXPECT_TRUE(failure([&] { byXsd("<r>1</r>"); }).contains("first.xsd"));
    // A link does not lead out of it either.
    ASSERT_TRUE(QFile::link(outside.filePath("part.xsd"), files.path("link.xsd")));
    writeXsd("<xs:include schemaLocation='link.xsd'/>");
    EXPECT_FALSE(failure([&] { byXsd("<r>1</r>"); }).isNull());
}

TEST_F(Schema, UnusableSchemasAreRefused) {
    const auto reason = [&](const std::string &content, const std::string &attributes = "") {
        writeXsd(content, attributes);
        return failure([&] { byXsd("<r/>"); });
    };
    EXPECT_TRUE(reason("", "targetNamespace='urn:t'").contains("'urn:t'"));
    EXPECT_TRUE(reason("<xs:element name='r' type='none'/>").contains("s.xsd"));
    files.write("s.xsd", "<r/>");
    EXPECT_FALSE(failure([&] { byXsd("<r/>"); }).isNull());
    files.write("s.xsd", "<r>");
    EXPECT_FALSE(failure([&] { byXsd("<r/>"); }).isNull());
    EXPECT_FALSE(failure([&] { byDtd("<r/>"); }).isNull());
    files.write("s.dtd", "<!ELEMENT r EMPTY>\n<!ELEMENT");
    const QString fault = failure([&] { byDtd("<r/>"); });
    EXPECT_TRUE(fault.contains("s.dtd") && fault.contains("2 ")) << fault.toStdString();
}

std::string bomb(const std::string &mark) {
    std::string text = "<!ENTITY " + mark + "e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i) {
        const std::string inner = (mark.empty() ? "&e" : "%e") + std::to_string(i - 1) + ";";
        text += "<!ENTITY " + mark + "e" + std::to_string(i) + " '";
        for (int k = 0; k < 10; ++k)
            text += inner;
        text += "'>";
    }
    return text;
}

TEST_F(Schema, EntitiesDoNotMultiply) {
    const std::string elements = "<!ELEMENT r ANY><!ATTLIST r q CDATA #IMPLIED>";
    files.write("s.dtd", elements + bomb(""));
    EXPECT_FALSE(failure([&] { byDtd("<r>&e11;</r>"); }).isNull());
    EXPECT_FALSE(failure([&] { byDtd("<r q='&e11;'/>"); }).isNull());
    files.write("s.dtd", elements + bomb("% ") + "<!ENTITY e '%e11;'>");
    EXPECT_FALSE(failure([&] { byDtd("<r>&e;</r>"); }).isNull());
    files.write("s.dtd", elements + "<!ENTITY e '&f;'><!ENTITY f '&e;'>");
    EXPECT_FALSE(failure([&] { byDtd("<r>&e;</r>"); }).isNull());

    const std::string schema = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element "
                               "name='r'/><xs:annotation><xs:documentation>&e11;"
                               "</xs:documentation></xs:annotation></xs:schema>";
    files.write("s.xsd", "<!DOCTYPE xs:schema [" + bomb("") + "]>" + schema);
    EXPECT_FALSE(failure([&] { byXsd("<r/>"); }).isNull());
}

TEST_F(Schema, OnlySoManyErrorsAreKept) {
    std::string document = "<r>";
    for (int i = 0; i < 50'000; ++i)
        document += "<a>x</a>\n";
    document += "</r>";
    files.write("s.dtd", "<!ELEMENT r ANY><!ELEMENT a EMPTY>");
    writeXsd("<xs:element name='r'><xs:complexType><xs:sequence><xs:element name='a' type='xs:int' "
             "maxOccurs='unbounded'/></xs:sequence></xs:complexType></xs:element>");
    for (const auto &found : {byDtd(document), byXsd(document)}) {
        ASSERT_EQ(found.size(), MaxSchemaErrors + 1) << "there are more";
        EXPECT_EQ(found.back().line, 1001);
    }
}

TEST_F(Schema, DepthIsNoObstacle) {
    constexpr int Depth = 50'000;
    std::string document;
    for (int i = 0; i < Depth; ++i)
        document += "<r>";
    document += "<zz/>";
    for (int i = 0; i < Depth; ++i)
        document += "</r>";
    files.write("s.dtd", "<!ELEMENT r ANY>");
    EXPECT_EQ(codes(byDtd(document)), "00d");
    writeXsd("<xs:element name='r'><xs:complexType><xs:sequence><xs:element ref='r'/></xs:sequence>"
             "</xs:complexType></xs:element>");
    EXPECT_EQ(codes(byXsd(document)), "014");
}

} // namespace

} // namespace quillon::xml

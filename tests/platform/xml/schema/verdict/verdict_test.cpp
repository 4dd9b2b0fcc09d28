#include "platform/xml/schema/schema_error_bytes.h"
#include "platform/xml/schema/verdict/verdict.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml {

namespace {

/// Each as "line:column code", with the attribute where there is one, "?" for what has no place.
std::string shown(const std::vector<SchemaError> &errors) {
    QStringList rows;
    for (const SchemaError &error : errors) {
        const QString place =
            error.node ? QStringLiteral("%1:%2").arg(error.line).arg(error.column) : "?";
        rows.append(place + u' ' + QString::number(error.errorCode & 0xfff, 16) +
                    (error.attribute.isEmpty() ? QString() : u' ' + error.attribute));
    }
    return rows.join(QStringLiteral(", ")).toStdString();
}

class Verdict : public testing::Test {
protected:
    void SetUp() override {
        files.write("s.dtd", "<!ELEMENT r (a+)><!ELEMENT a (#PCDATA)>");
        files.write("s.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                             "<xs:element name='r'><xs:complexType><xs:sequence>"
                             "<xs:element name='a' type='xs:int' maxOccurs='unbounded'/>"
                             "</xs:sequence></xs:complexType></xs:element></xs:schema>");
        files.write("s.xdr", "<Schema xmlns='urn:schemas-microsoft-com:xml-data'>"
                             "<ElementType name='r' content='eltOnly'><element type='a' "
                             "maxOccurs='*'/></ElementType><ElementType name='a'/></Schema>");
        files.write("s.sch", "<schema xmlns='http://purl.oclc.org/dsdl/schematron'><pattern>"
                             "<rule context='z'><report test='true()'>no z, please</report></rule>"
                             "</pattern></schema>");
        files.write("bad.xsd", "<not-closed");
    }
    SchemaForVerdict schema(SchemaKind kind, const char *name) {
        return {.kind = kind, .path = files.path(name)};
    }

    test::Files files;
};

TEST_F(Verdict, SeveralSchemasAreOneAnswer) {
    const DOMDocument40 document =
        test::parsed("<?xml version='1.0'?>\n<!-- \u65e5 --><r><a>x</a>\n <a>1</a><z/></r>");
    const std::string byXsd = shown(verdict(document, {schema(SchemaKind::Xsd, "s.xsd")}));
    EXPECT_EQ(byXsd, "2:14 201, 3:10 14");
    // What the other says of the same place is said already; the undeclared is said of by one.
    EXPECT_EQ(
        shown(verdict(document, {schema(SchemaKind::Xsd, "s.xsd"), schema(SchemaKind::Dtd, "s.dtd"),
                                 schema(SchemaKind::Xdr, "s.xdr")})),
        "2:14 201, 3:10 14, 3:10 d");
    // One that cannot be used says so, and stops no other.
    const auto found =
        verdict(document, {schema(SchemaKind::Xsd, "bad.xsd"), schema(SchemaKind::Xsd, "s.xsd")});
    EXPECT_EQ(shown(found), byXsd + ", ? 225");
    EXPECT_TRUE(found.back().isWarning);
}

TEST_F(Verdict, AnInternalSubsetIsASchema) {
    const std::string type = "<!DOCTYPE r [<!ELEMENT r (a)><!ELEMENT a EMPTY>]>\n";
    const std::vector<SchemaForVerdict> internal{{.kind = SchemaKind::Dtd}};
    EXPECT_EQ(shown(verdict(test::parsed(type + "<r><a/></r>"), internal)), "");
    EXPECT_EQ(shown(verdict(test::parsed(type + "<r><a/><b/></r>"), internal)), "2:8 14, 2:8 d");
}

TEST_F(Verdict, BytesKeepEverything) {
    const DOMDocument40 document = test::parsed("<r><a/><a/></r>");
    const Node second = document.documentElement().lastChild();
    const std::vector<SchemaError> errors{
        {schema_error::InvalidAttribute, "one", second, 7, true, "q", 9},
        {schema_error::UndefinedId, "two", {}}};
    const QByteArray bytes = toBytes(errors, document);
    const auto back = schemaErrorsFrom(bytes, document);
    ASSERT_EQ(back.size(), 2u);
    EXPECT_EQ(back[0].reason, "one");
    EXPECT_TRUE(back[0].node == second);
    EXPECT_EQ(shown(back), "7:9 17 q, ? e");
    EXPECT_TRUE(back[0].isWarning && !back[1].isWarning);
    // In a document with other elements they have other nodes, or none.
    EXPECT_TRUE(schemaErrorsFrom(bytes, test::parsed("<r/>"))[0].node.isNull());
    for (qsizetype size = 0; size < bytes.size(); ++size)
        EXPECT_LT(schemaErrorsFrom(bytes.first(size), document).size(), 2u);
}

} // namespace

} // namespace quillon::xml

#include "schemas/schema_inference.h"
#include "tests/platform/xml/xml_test_support.h"

#include <cstdarg>
#include <libxml/parser.h>
#include <libxml/valid.h>
#include <libxml/xmlschemas.h>
#include <random>

namespace quillon::schemas {

namespace {

using xml::test::parsed;

void collect(void *errors, const char *format, ...) {
    std::array<char, 1000> line;
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(line.data(), line.size(), format, arguments);
    va_end(arguments);
    static_cast<std::string *>(errors)->append(line.data());
}

xmlDoc *read(const std::string &text) {
    return xmlReadMemory(text.data(), int(text.size()), nullptr, nullptr, XML_PARSE_NOENT);
}

/// What libxml2 has against a document, or against the schema.
std::string faultsByXsd(const std::string &document, const std::string &schema) {
    std::string faults;
    xmlSchemaParserCtxt *parser = xmlSchemaNewMemParserCtxt(schema.data(), int(schema.size()));
    xmlSchemaSetParserErrors(parser, collect, collect, &faults);
    xmlSchema *compiled = xmlSchemaParse(parser);
    xmlSchemaFreeParserCtxt(parser);
    if (!compiled)
        return "no schema: " + faults;
    xmlSchemaValidCtxt *validator = xmlSchemaNewValidCtxt(compiled);
    xmlSchemaSetValidErrors(validator, collect, collect, &faults);
    xmlDoc *tree = read(document);
    if (xmlSchemaValidateDoc(validator, tree) != 0)
        faults += "invalid";
    xmlFreeDoc(tree);
    xmlSchemaFreeValidCtxt(validator);
    xmlSchemaFree(compiled);
    return faults;
}

std::string faultsByDtd(const std::string &document, const std::string &dtd) {
    std::string faults;
    xmlDtd *compiled = xmlIOParseDTD(
        nullptr, xmlParserInputBufferCreateMem(dtd.data(), int(dtd.size()), XML_CHAR_ENCODING_NONE),
        XML_CHAR_ENCODING_NONE);
    if (!compiled)
        return "no DTD";
    xmlValidCtxt *validator = xmlNewValidCtxt();
    validator->userData = &faults;
    validator->error = collect;
    validator->warning = collect;
    xmlDoc *tree = read(document);
    if (xmlValidateDtd(validator, tree, compiled) != 1)
        faults += "invalid";
    xmlFreeDoc(tree);
    xmlFreeValidCtxt(validator);
    xmlFreeDtd(compiled);
    return faults;
}

std::string made(const std::string &document, SchemaKind kind) {
    return inferredSchema(parsed(document), kind).toStdString();
}

TEST(SchemaInference, SaysWhatTheDocumentShows) {
    const std::string document = "<o id='1' day='2024-02-29'><i n='a'><p>1.5</p><q>2</q></i>"
                                 "<i n='b' k='true'><q>3</q></i><e/><t>x<b/>y</t><s> </s></o>";
    EXPECT_EQ(made(document, SchemaKind::Dtd),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "\n<!ELEMENT o (i+, e, t, s)>\n"
              "<!ATTLIST o\n          id CDATA #REQUIRED\n          day CDATA #REQUIRED>\n"
              "\n<!ELEMENT i (p?, q)>\n"
              "<!ATTLIST i\n          n CDATA #REQUIRED\n          k CDATA #IMPLIED>\n"
              "\n<!ELEMENT e EMPTY>\n\n<!ELEMENT t (#PCDATA | b)*>\n\n<!ELEMENT s (#PCDATA)>\n"
              "\n<!ELEMENT p (#PCDATA)>\n\n<!ELEMENT q (#PCDATA)>\n\n<!ELEMENT b EMPTY>\n");
    const std::string schema = made(document, SchemaKind::Xsd);
    for (const char *part :
         {"<xs:element ref=\"i\" maxOccurs=\"unbounded\"/>",
          "<xs:element ref=\"p\" minOccurs=\"0\"/>", "<xs:element name=\"p\" type=\"xs:decimal\"/>",
          "<xs:element name=\"q\" type=\"xs:integer\"/>", "<xs:complexType mixed=\"true\">",
          "<xs:attribute name=\"day\" type=\"xs:date\" use=\"required\"/>",
          "<xs:attribute name=\"k\" type=\"xs:boolean\"/>"})
        EXPECT_NE(schema.find(part), std::string::npos) << part << "\n" << schema;
    // What differs from the document is wrong.
    EXPECT_EQ(faultsByXsd(document, schema), "");
    for (const char *other : {"<o id='x' day='2024-02-29'/>", "<q>a</q>",
                              "<i n=''><q>1</q><p>1</p></i>", "<e>x</e>", "<i><q>1</q></i>"})
        EXPECT_NE(faultsByXsd(other, schema), "") << other;
}

TEST(SchemaInference, KnowsOneNamespaceAndLetsOthersIn) {
    for (const std::string document :
         {"<r xmlns='urn:a' xmlns:b='urn:b' b:x='1' xml:lang='ja'><c/><b:d><c/></b:d>"
          "<e xmlns=''/></r>",
          "<p:r xmlns:p='urn:a' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>"
          "<p:n xsi:nil='true'/><p:n>1</p:n><q/></p:r>",
          "<r xmlns:b='urn:b'><b:c/><b:c/><d/></r>"})
        EXPECT_EQ(faultsByXsd(document, made(document, SchemaKind::Xsd)), "")
            << document << "\n"
            << made(document, SchemaKind::Xsd);
}

/// Documents of any shape, so that what is taken for a rule is none.
class RandomDocument {
public:
    explicit RandomDocument(unsigned seed) : random_(seed) {}

    std::string written() {
        isNamespaced_ = chance(2);
        return element(0, isNamespaced_ ? " xmlns='urn:a' xmlns:b='urn:b'" : "");
    }

private:
    bool chance(unsigned of) { return random_() % of == 0; }
    template <std::size_t Count>
    std::string one(const std::array<const char *, Count> &of) {
        return of[random_() % Count];
    }
    std::string value() {
        return one(std::array{"", " ", "1", "-01", " 2\n", "1.50", ".5", "1.", "true", "0",
                              "2024-02-29", "2023-02-29", "2001-01-01T00:00:00Z",
                              "2001-01-01T24:00:00", "12:30:00", "x y", "&#160;7", "１", "+1"});
    }
    std::string element(int depth, const std::string &declarations) {
        const bool isForeign = isNamespaced_ && depth > 0 && chance(8);
        const std::string name =
            (isForeign ? "b:" : "") + one(std::array{"a", "b", "c", "d", "要素"});
        std::string text = "<" + name + declarations;
        for (const char *attribute : {"k", "l", "xml:space"}) {
            if (chance(3))
                text += std::string(" ") + attribute + "='" +
                        (attribute[0] == 'x' ? "preserve" : value()) + "'";
        }
        if (isNamespaced_ && chance(6))
            text += " b:m='1'";
        const auto kind = random_() % 5;
        if (kind == 0)
            return text + "/>";
        text += ">";
        if (kind == 1)
            text += value();
        if (kind == 2 && chance(3))
            text += one(std::array{"<!-- c -->", "<?pi x?>", "<![CDATA[ ]]>"});
        for (auto count = kind >= 3 && depth < 4 ? random_() % 6 : 0; count > 0; --count)
            text += element(depth + 1, "") + (chance(9) ? "t" : chance(3) ? "\n" : "");
        return text + "</" + name + ">";
    }

    std::mt19937 random_;
    bool isNamespaced_ = false;
};

TEST(SchemaInference, TheDocumentKeepsToItsSchema) {
    for (unsigned seed = 0; seed < 1500; ++seed) {
        const std::string document = RandomDocument(seed).written();
        const std::string schema = made(document, SchemaKind::Xsd);
        ASSERT_EQ(faultsByXsd(document, schema), "") << seed << "\n" << document << "\n" << schema;
        const std::string dtd = made(document, SchemaKind::Dtd);
        ASSERT_EQ(faultsByDtd(document, dtd), "") << seed << "\n" << document << "\n" << dtd;
    }
}

} // namespace

} // namespace quillon::schemas

#include "platform/xml/schema/grammar/load_grammar.h"
#include "platform/xml/schema/grammar/value_check.h"
#include "platform/xml/schema/libxml_validator.h"
#include "tests/platform/xml/xml_test_support.h"

#include <set>

namespace quillon::grammar {

namespace {

using xml::test::parsed;

class Values : public testing::Test {
protected:
    Grammar grammarOf(const std::string &content) {
        files.write("s.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>" + content +
                                 "</xs:schema>");
        return loadGrammar({.path = files.path("s.xsd")});
    }
    /// Of a type given by its markup: the reason why a value does not fit, "ok" or "?".
    std::string verdict(const std::string &type, const std::string &value) {
        const Grammar grammar = grammarOf("<xs:element name='e'>" + type + "</xs:element>");
        const Element &element = grammar.element(0);
        ValueChecker checker(grammar);
        const ValueVerdict found =
            checker.check(element, element.type, QString::fromStdString(value));
        return found.fit == ValueFit::Fits      ? "ok"
               : found.fit == ValueFit::Unknown ? "?"
                                                : found.reason.toStdString();
    }

    xml::test::Files files;
};

std::string restriction(const std::string &base, const std::string &facets) {
    return "<xs:simpleType><xs:restriction base='xs:" + base + "'>" + facets +
           "</xs:restriction></xs:simpleType>";
}

std::string pattern(const std::string &text) {
    return restriction("string", "<xs:pattern value='" + text + "'/>");
}

/// What the library takes, or does not, against the words of the standard.
bool isItsOwnFault(const QString &type, const QString &value) {
    static const QRegularExpression beyondBase64("[^A-Za-z0-9+/= ]");
    return (type == "base64Binary" && value.contains(beyondBase64)) || value == "1e" ||
           (type.startsWith("unsigned") && (value == "+1" || value == "-0"));
}

/// The library that validates says of every built-in type what its values are.
TEST_F(Values, BuiltInTypesAreWhatTheLibrarySays) {
    const std::vector<std::string> types{"string",
                                         "token",
                                         "language",
                                         "NMTOKEN",
                                         "Name",
                                         "NCName",
                                         "boolean",
                                         "decimal",
                                         "float",
                                         "double",
                                         "duration",
                                         "dateTime",
                                         "time",
                                         "date",
                                         "gYearMonth",
                                         "gYear",
                                         "gMonthDay",
                                         "gDay",
                                         "gMonth",
                                         "hexBinary",
                                         "base64Binary",
                                         "QName",
                                         "integer",
                                         "nonPositiveInteger",
                                         "negativeInteger",
                                         "long",
                                         "int",
                                         "short",
                                         "byte",
                                         "nonNegativeInteger",
                                         "unsignedLong",
                                         "unsignedInt",
                                         "unsignedShort",
                                         "unsignedByte",
                                         "positiveInteger",
                                         "NMTOKENS"};
    const std::vector<std::string> values{"",
                                          "a",
                                          "a:b",
                                          ":a",
                                          "a:",
                                          "1a",
                                          "-1a",
                                          "\xE6\x97\xA5",
                                          "a b",
                                          "true",
                                          "TRUE",
                                          "1",
                                          "0",
                                          "-0",
                                          "+1",
                                          "-1",
                                          "127",
                                          "128",
                                          "-129",
                                          "65536",
                                          "4294967296",
                                          "18446744073709551616",
                                          "9223372036854775808",
                                          "1.0",
                                          ".5",
                                          "5.",
                                          ".",
                                          "1e5",
                                          "1E-5",
                                          "INF",
                                          "-INF",
                                          "NaN",
                                          "1e",
                                          "2024-02-29",
                                          "2023-02-29",
                                          "2024-13-01",
                                          "2024-02-29Z",
                                          "2024-02-29+14:00",
                                          "2024-02-29+14:01",
                                          "12024-01-01",
                                          "-0044-03-15",
                                          "24-01-01",
                                          "2024-02-29T12:00:00",
                                          "2024-02-29T24:00:00",
                                          "2024-02-29T24:00:01",
                                          "2024-02-29T12:00:00.5Z",
                                          "2024-02-29T12:00",
                                          "12:00:00",
                                          "12:60:00",
                                          "2024",
                                          "2024-02",
                                          "--02-29",
                                          "--02-30",
                                          "---31",
                                          "---32",
                                          "--12",
                                          "--13",
                                          "P1Y",
                                          "P",
                                          "PT",
                                          "P1YT",
                                          "P1M2DT3H4M5.5S",
                                          "-P1D",
                                          "P1S",
                                          "1Y",
                                          "0aF",
                                          "0af0",
                                          "AAAA",
                                          "AAA=",
                                          "AA==",
                                          "AAB=",
                                          "AB==",
                                          "A===",
                                          "en",
                                          "en-US",
                                          "abcdefghi",
                                          "en-abcdefghi"};
    std::string choices, elements;
    for (const std::string &type : types) {
        choices += "<xs:element name='" + type + "' type='xs:" + type + "'/>";
        for (const std::string &value : values)
            elements += "<" + type + ">" + value + "</" + type + ">";
    }
    const Grammar grammar =
        grammarOf("<xs:element name='r'><xs:complexType><xs:choice maxOccurs='unbounded'>" +
                  choices + "</xs:choice></xs:complexType></xs:element>");
    const xml::DOMDocument40 document = parsed("<r xmlns:a='a'>" + elements + "</r>");
    std::set<quint32> refused;
    for (const std::string &type : types) {
        // One type at a time: no more than so many errors are told.
        const xml::DOMDocument40 part = document.clone();
        for (xml::Node at = part.documentElement().firstChild(), next; at; at = next) {
            next = at.nextSibling();
            if (at.nodeName() != QString::fromStdString(type))
                part.documentElement().removeChild(at);
        }
        for (const xml::SchemaError &error :
             xml::libxmlVerdictByXsd(part, {{QString(), files.path("s.xsd")}}))
            refused.insert(error.node.number());
    }
    EXPECT_GT(refused.size(), types.size() * values.size() / 2);
    ValueChecker checker(grammar);
    const Index root = grammar.globalElement(grammar.symbol(u"", u"r"));
    for (xml::Node at = document.documentElement().firstChild(); at; at = at.nextSibling()) {
        const Element &element = grammar.element(
            grammar.childElement(grammar.element(root).type, grammar.symbol(u"", at.nodeName())));
        const ValueVerdict found = checker.check(element, element.type, at.text());
        if (isItsOwnFault(at.nodeName(), at.text()))
            continue;
        EXPECT_EQ(found.fit == ValueFit::DoesNotFit, refused.contains(at.number()))
            << at.nodeName().toStdString() << " '" << at.text().toStdString() << "'";
        EXPECT_EQ(found.reason.isEmpty(), found.fit == ValueFit::Fits);
    }
}

TEST_F(Values, FacetsLimitThem) {
    struct Row {
        std::string type;
        std::string value;
        std::string verdict;
    };
    const std::string colors = "<xs:enumeration value='red'/><xs:enumeration value='dark blue'/>";
    const std::string list = "<xs:simpleType><xs:list itemType='xs:int'/></xs:simpleType>";
    const std::string either = "<xs:simpleType><xs:union memberTypes='xs:int'>" +
                               restriction("token", colors) + "</xs:union></xs:simpleType>";
    const std::vector<Row> rows{
        {restriction("token", colors), " dark\n blue ", "ok"},
        {restriction("token", colors), "green", "使用できる値: 'red', 'dark blue'"},
        {restriction("int", "<xs:enumeration value='1'/>"), " 01", "ok"},
        {restriction("string", "<xs:maxLength value='2'/>"), "\xF0\xA0\xAE\x9F\xF0\xA0\xAE\x9F",
         "ok"},
        {restriction("string", "<xs:maxLength value='2'/>"), "abc",
         "長さは 2 以下でなければなりませんが、3 です。"},
        {restriction("hexBinary", "<xs:length value='2'/>"), "0a0b", "ok"},
        {restriction("decimal", "<xs:minExclusive value='1.50'/>"), "1.5",
         "1.50 より大きい値が必要です。"},
        {restriction("decimal", "<xs:maxInclusive value='-1.5'/>"), "-1.49",
         "-1.5 以下の値が必要です。"},
        {restriction("decimal", "<xs:totalDigits value='3'/>"), "0012.30", "ok"},
        {restriction("decimal", "<xs:fractionDigits value='1'/>"), "1.25",
         "小数部は 1 桁までです。"},
        {restriction("date", "<xs:minInclusive value='2024-01-01'/>"), "2023-12-30",
         "2024-01-01 以上の値が必要です。"},
        {restriction("date", "<xs:minInclusive value='2024-01-01Z'/>"), "2024-01-01", "?"},
        {restriction("duration", "<xs:maxInclusive value='P1M'/>"), "P30D", "?"},
        {restriction("duration", "<xs:maxInclusive value='P1M'/>"), "P2M",
         "P1M 以下の値が必要です。"},
        {list, "1 2\n3", "ok"},
        {list, "1 x 3", "int データ型の値が必要です。"},
        {either, "7", "ok"},
        {either, "dark blue", "ok"},
        {either, "green", "int データ型の値が必要です。または、使用できる値: 'red', 'dark blue'"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(verdict(row.type, row.value), row.verdict) << row.type << " " << row.value;
}

TEST_F(Values, PatternsAreThoseOfSchemas) {
    struct Row {
        std::string pattern;
        std::string fits;
        std::string doesNot;
    };
    const std::vector<Row> rows{
        {"[A-Z]{2}[0-9]+", "AB12", "AB"},
        {"a|bc", "bc", "abc"},
        {"^a$", "^a$", "a"},
        {"\\d+", "\xEF\xBC\x91", "a"},
        {"\\w+", "a\xE6\x97\xA5", "a-b"},
        {"\\i\\c*", "a:b-1", "1a"},
        {"[\\i-[:]][\\c-[:]]*", "ab-1", "a:b"},
        {"[a-z-[aeiou]]+", "xyz", "xay"},
        {"[^a-c]", "d", "a"},
        {"\\p{Lu}\\P{Lu}", "Ab", "AB"},
        {"\\p{IsHiragana}+", "\xE3\x81\x82", "\xE3\x82\xA2"},
        {"\\P{IsBasicLatin}", "\xE3\x81\x82", "a"},
        {"a.c", "abc", "ac"},
        {"\\[\\]\\\\\\.", "[]\\.", "[]\\a"},
        {"[\\-+]?x", "-x", "*x"},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(verdict(pattern(row.pattern), row.fits), "ok") << row.pattern;
        EXPECT_TRUE(verdict(pattern(row.pattern), row.doesNot).starts_with("値がパターン"))
            << row.pattern << " " << row.doesNot;
    }
    // All of one step are alternatives; a further step limits them further.
    EXPECT_EQ(verdict(restriction("string", "<xs:pattern value='a'/><xs:pattern value='b'/>"), "b"),
              "ok");
    // What cannot be told is said to be so, and soon.
    for (const char *hard :
         {"\\p{IsKhmer}", "(?=a)b", "[\\I]", "(a|a)*[bc]", "(a|aa)+[bc]", "(", "a{99999}"})
        EXPECT_EQ(verdict(pattern(hard), std::string(28, 'a')), "?") << hard;
}

TEST_F(Values, FixedValuesAndOtherLanguages) {
    EXPECT_EQ(verdict("", ""), "ok");
    const Grammar grammar = grammarOf("<xs:element name='e' type='xs:decimal' fixed='1.0'/>"
                                      "<xs:attribute name='a' type='xs:token' fixed='x'/>");
    ValueChecker checker(grammar);
    const Element &element = grammar.element(0);
    EXPECT_EQ(checker.check(element, element.type, "1").fit, ValueFit::Fits);
    EXPECT_EQ(checker.check(element, element.type, "").fit, ValueFit::Fits);
    EXPECT_EQ(checker.check(element, element.type, "2").reason,
              "固定値 '1.0' でなければなりません。");
    const Attribute &attribute = *grammar.globalAttribute(grammar.symbol(u"", u"a"));
    EXPECT_EQ(checker.check(attribute, " x ").fit, ValueFit::Fits);
    EXPECT_EQ(checker.check(attribute, "y").fit, ValueFit::DoesNotFit);

    files.write("s.xdr", "<Schema xmlns='urn:schemas-microsoft-com:xml-data' "
                         "xmlns:dt='urn:schemas-microsoft-com:datatypes'>"
                         "<ElementType name='e' content='textOnly' dt:type='boolean'/></Schema>");
    const Grammar xdr = loadGrammar({.path = files.path("s.xdr")});
    ValueChecker xdrChecker(xdr);
    EXPECT_EQ(xdrChecker.check(xdr.element(0), xdr.element(0).type, " 1 ").fit, ValueFit::Fits);
    EXPECT_EQ(xdrChecker.check(xdr.element(0), xdr.element(0).type, "true").reason,
              "boolean データ型の値が必要です。");
}

} // namespace

} // namespace quillon::grammar

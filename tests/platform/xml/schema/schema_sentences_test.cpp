#include "platform/runtime/error.h"
#include "platform/xml/schema/xerces/schema_validator.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml {

namespace {

/// What validation says of a document: all sentences, one a line, each with its line ahead if there
/// is one, and with "!" for a warning.
struct Said {
    std::string document;
    std::string sentences;
};

class SchemaSentences : public testing::Test {
protected:
    /// What is raised counts as the only sentence.
    template <typename Validate>
    std::string said(Validate &&validate) {
        QStringList sentences;
        try {
            for (const SchemaError &error : validate())
                sentences.append((error.isWarning ? QStringLiteral("! ") : QString()) +
                                 (error.line ? QString::number(error.line) + u' ' : QString()) +
                                 error.reason);
        } catch (const runtime::Error &error) {
            sentences.append(error.description());
        }
        return sentences.join(u'\n').toStdString();
    }
    void expectDtd(const std::vector<Said> &rows) {
        for (const Said &row : rows) {
            const DOMDocument40 document =
                test::parsed("<!DOCTYPE r SYSTEM 's.dtd'>" + row.document);
            EXPECT_EQ(said([&] { return validateByDtd(document, files.path("s.dtd")); }),
                      row.sentences)
                << row.document;
        }
    }
    void expectXsd(const std::vector<Said> &rows) {
        for (const Said &row : rows) {
            const DOMDocument40 document = test::parsed(row.document);
            EXPECT_EQ(said([&] { return validateByXsd(document, files.path("s.xsd")); }),
                      row.sentences)
                << row.document;
        }
    }
    void writeXsd(const std::string &content) {
        files.write("s.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>" + content +
                                 "</xs:schema>");
    }

    test::Files files;
};

TEST_F(SchemaSentences, Dtd) {
    files.write("s.dtd", "<!ELEMENT r (a|b|p)*><!ELEMENT a EMPTY><!ELEMENT b (a,a)>"
                         "<!ELEMENT p (#PCDATA|a)*>"
                         "<!ATTLIST a id ID #IMPLIED ref IDREF #IMPLIED e (x|y) #IMPLIED f CDATA "
                         "#FIXED 'v' n NMTOKEN #IMPLIED pic ENTITY #IMPLIED>"
                         "<!ATTLIST p must CDATA #REQUIRED>"
                         "<!ENTITY v 'v1'><!ENTITY x 'x'><!ENTITY frag '<a id=\"inside\"/>'>"
                         "<!ENTITY part SYSTEM 'part.ent'>");
    files.write("part.ent", "<a id='outside'/>");
    expectDtd({
        {"<r><a id='&v;' e='&x;' n='&v;'/><a ref='v1'/><a ref='inside'/>&frag;&part;"
         "<a ref='outside'/></r>",
         ""},
        {"<r>\n<a id='one'/>\n<a id='one'/><zz/></r>",
         "3 要素 'a' の ID 'one' は、ドキュメントの中ですでに使用されています。\n"
         "3 DTD/スキーマによると、要素 'r' の内容が正しくありません。要素 'zz' "
         "をここに置くことはできません。\n"
         "次のいずれかが必要です: a, b, p\n"
         "3 要素 'zz' が使用されていますが、DTD/スキーマで宣言されていません。"},
        {"<r><b/><b><a/></b><b>x</b></r>",
         "1 DTD/スキーマによると、要素 'b' を空にすることはできません。\n"
         "次のいずれかが必要です: (a, a)\n"
         "1 DTD/スキーマによると、要素 'b' の内容が正しくありません。\n"
         "次のいずれかが必要です: (a, a)\n"
         "1 DTD/スキーマによると、要素 'b' にテキストを含めることはできません。\n"
         "1 DTD/スキーマによると、要素 'b' の内容が正しくありません。\n"
         "次のいずれかが必要です: (a, a)"},
        {"<r><p>x</p><a e='z'/><a f='w'/><a n='a b'/><a ref='none'/><a q='1'/></r>",
         "1 要素 'p' に必須の属性 'must' がありません。\n"
         "1 DTD/スキーマによると、要素 'a' の属性 'e' の値 'z' が正しくありません。\n"
         "1 要素 'a' の属性 'f' の値が、DTD/スキーマで定義されている固定値と一致しません。\n"
         "1 DTD/スキーマによると、要素 'a' の属性 'n' の値 'a b' が正しくありません。\n"
         "1 属性 'ref' が参照している ID 'none' は、ドキュメントのどこにも定義されていません。\n"
         "1 要素 'a' の属性 'q' は、DTD/スキーマで定義されていません。"},
        {"<r><p must=''><b/></p><a>x</a>&none;<a pic='none'/></r>",
         "1 未定義の実体 'none' が参照されています。\n"
         "1 DTD/スキーマによると、要素 'p' の内容が正しくありません。要素 'b' "
         "をここに置くことはできません。\n"
         "次のいずれかが必要です: a\n"
         "1 DTD/スキーマによると、要素 'b' を空にすることはできません。\n"
         "次のいずれかが必要です: (a, a)\n"
         "1 DTD/スキーマによると、要素 'a' にテキストを含めることはできません。\n"
         "1 属性 'pic' が参照している実体 'none' は、DTD で宣言されていません。"},
        {"<zz/>", "1 最上位の要素 'zz' の名前は、文書型宣言の名前と一致する必要があります。"},
    });
    files.write("s.dtd", "<!ELEMENT r ANY><!ELEMENT r EMPTY><!ELEMENT p (#PCDATA|a|a)*>"
                         "<!ATTLIST a id ID 'x' e (x|y) 'z' two ID #IMPLIED n NMTOKEN 'a b'>");
    expectDtd(
        {{"<r/>", "DTD で、要素 'r' の宣言が重複しています。\n"
                  "DTD で、要素 'p' の混在内容の宣言に同じ名前が重複しています。\n"
                  "DTD で、要素 'a' の ID 型の属性 'id' に既定値または固定値が指定されています。\n"
                  "DTD で、要素 'a' に ID 型の属性が 2 つ以上宣言されています。\n"
                  "DTD で、要素 'a' の属性 'n' の既定値が属性の型に合っていません。\n"
                  "DTD で、要素 'a' の属性 'e' の既定値 'z' "
                  "が、列挙されている値のいずれでもありません。"}});
    files.write("s.dtd", "<!ELEMENT r ANY>\n<!ELEMENT p (#PCDATA|a>");
    expectDtd({{"<r/>", "スキーマ 's.dtd' を読み込めません。\n"
                        "2 行目: 宣言の構文が正しくありません。"}});
    files.write("s.dtd", "<!ELEMENT r ANY><!ENTITY % more SYSTEM 'none.dtd'>%more;");
    expectDtd({{"<r/>", "スキーマ 'none.dtd' を読み込めません。\n"
                        "ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。"}});
}

TEST_F(SchemaSentences, Xsd) {
    writeXsd(
        "<xs:element name='r'><xs:complexType><xs:sequence>"
        "<xs:element name='a' minOccurs='0' maxOccurs='9'><xs:complexType><xs:simpleContent>"
        "<xs:extension base='xs:string'><xs:attribute name='id' type='xs:ID'/><xs:attribute "
        "name='ref' type='xs:IDREF'/><xs:attribute name='refs' type='xs:IDREFS'/>"
        "</xs:extension></xs:simpleContent></xs:complexType></xs:element>"
        "<xs:element name='b' minOccurs='0' maxOccurs='9'><xs:simpleType><xs:restriction "
        "base='xs:string'><xs:length value='2'/><xs:enumeration value='xy'/><xs:enumeration "
        "value='zw'/></xs:restriction></xs:simpleType></xs:element>"
        "<xs:element name='c' minOccurs='0' maxOccurs='9'><xs:simpleType><xs:restriction "
        "base='xs:decimal'><xs:minInclusive value='1'/><xs:maxExclusive value='90'/>"
        "<xs:totalDigits value='3'/><xs:fractionDigits value='1'/><xs:pattern value='[0-9.]+'/>"
        "</xs:restriction></xs:simpleType></xs:element>"
        "<xs:element name='d' minOccurs='0' maxOccurs='9'><xs:complexType><xs:attribute "
        "name='n' type='xs:int'/><xs:attribute name='s'><xs:simpleType><xs:restriction "
        "base='xs:string'><xs:minLength value='2'/><xs:maxLength value='3'/></xs:restriction>"
        "</xs:simpleType></xs:attribute><xs:attribute name='f' fixed='v'/><xs:attribute "
        "name='must' "
        "use='required'/></xs:complexType></xs:element>"
        "<xs:element name='e' type='xs:ID' minOccurs='0'/>"
        "</xs:sequence></xs:complexType>"
        "<xs:unique name='u'><xs:selector xpath='b'/><xs:field xpath='.'/></xs:unique>"
        "<xs:key name='k'><xs:selector xpath='d'/><xs:field xpath='@n'/></xs:key>"
        "<xs:keyref name='kr' refer='k'><xs:selector xpath='c'/><xs:field xpath='.'/></xs:keyref>"
        "</xs:element>");
    expectXsd({
        {"<r><a id='one'/><a ref='one' refs='one two'/><e>two</e></r>", ""},
        {"<r>\n<a id='one'/>\n<a id='one'/>\n<a ref='none' refs='one no ne'/></r>",
         "3 要素 'a' の ID 'one' は、ドキュメントの中ですでに使用されています。\n"
         "4 属性 'ref' が参照している ID 'none' は、ドキュメントのどこにも定義されていません。\n"
         "4 属性 'refs' が参照している ID 'no' は、ドキュメントのどこにも定義されていません。\n"
         "4 属性 'refs' が参照している ID 'ne' は、ドキュメントのどこにも定義されていません。"},
        {"<r><b>abc</b><b>ab</b><b>xy</b><b>xy</b></r>",
         "1 スキーマによると、要素 'b' の値 'abc' が正しくありません。長さは 2 "
         "でなければなりませんが、3 です。\n"
         "1 スキーマによると、要素 'b' の値 'ab' が正しくありません。使用できる値: 'xy', 'zw'\n"
         "1 要素 'b' の値 ['xy'] は、一意性の制約 'u' に反して重複しています。"},
        {"<r><c>0</c></r>",
         "1 スキーマによると、要素 'c' の値 '0' が正しくありません。1 以上の値が必要です。"},
        {"<r><c>100</c><c>1.25</c><c>12.34</c><c>0012.3400</c><c>x</c><c>+2</c></r>",
         "1 スキーマによると、要素 'c' の値 '100' が正しくありません。90 より小さい値が必要です。\n"
         "1 スキーマによると、要素 'c' の値 '1.25' が正しくありません。小数部は 1 桁までです。\n"
         "1 スキーマによると、要素 'c' の値 '12.34' が正しくありません。小数部は 1 桁までです。\n"
         "1 スキーマによると、要素 'c' の値 '0012.3400' が正しくありません。小数部は 1 "
         "桁までです。\n"
         "1 スキーマによると、要素 'c' の値 'x' が正しくありません。値がパターン '[0-9.]+' "
         "と一致しません。\n"
         "1 スキーマによると、要素 'c' の値 '+2' が正しくありません。値がパターン '[0-9.]+' "
         "と一致しません。"},
        {"<r><d n='x' must=''/><d must='' s='1'/><d must='' s='1234'/><d f='w' n='1'/></r>",
         "1 スキーマによると、要素 'd' の属性 'n' の値 'x' が正しくありません。"
         "xs:int データ型の値が必要です。\n"
         "1 スキーマによると、要素 'd' の属性 's' の値 '1' が正しくありません。長さは 2 "
         "以上でなければなりませんが、1 です。\n"
         "1 要素 'd' に、キー 'k' に必要な値がありません。\n"
         "1 スキーマによると、要素 'd' の属性 's' の値 '1234' が正しくありません。長さは 3 "
         "以下でなければなりませんが、4 です。\n"
         "1 要素 'd' に、キー 'k' に必要な値がありません。\n"
         "1 要素 'd' の属性 'f' の値が、DTD/スキーマで定義されている固定値と一致しません。\n"
         "1 要素 'd' に必須の属性 'must' がありません。"},
        {"<r>\n<c>2</c><c>3</c>\n<d must='' n='2'/></r>",
         "2 要素 'c' の値 ['3'] は、キー参照 'kr' が指すキーのいずれとも一致しません。"},
        {"<r>x<zz/></r>", "1 DTD/スキーマによると、要素 'r' にテキストを含めることはできません。\n"
                          "1 DTD/スキーマによると、要素 'r' の内容が正しくありません。要素 'zz' "
                          "をここに置くことはできません。\n"
                          "次のいずれかが必要です: a, b, c, d, e"},
        {"<zz/>", "1 要素 'zz' が使用されていますが、DTD/スキーマで宣言されていません。"},
    });
}

TEST_F(SchemaSentences, SchemasWithFaults) {
    const std::string element = "<xs:element name='r'>";
    const std::vector<Said> rows{
        {element + "<xs:complexType><xs:sequence><xs:element ref='q'/></xs:sequence>"
                   "</xs:complexType></xs:element>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:element 'q' の属性 'ref': 要素 'q' は宣言されていません。"},
        {"\n<xs:element name='r' type='none'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "2 行目: xs:element 'r' の属性 'type': 型 'none' は宣言されていません。"},
        {"<xs:element name='r' type='p:none'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:element 'r': 接頭辞 'p' は宣言されていません。"},
        {"<xs:element/>", "スキーマ 's.xsd' を読み込めません。\n"
                          "1 行目: xs:element: 属性 'name' または 'ref' が必要です。"},
        {"<xs:element name='r' foo='1'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:element 'r': 属性 'foo' を使用することはできません。"},
        {"<xs:element name='r'/><xs:element name='r'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:element 'r': 'r' という名前の宣言が重複しています。"},
        {"<xs:elemnt name='r'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:elemnt 'r': この要素の位置または内容が正しくありません。"},
        {element + "<xs:simpleType><xs:restriction base='xs:int'><xs:minInclusive value='5'/>"
                   "<xs:maxInclusive value='1'/></xs:restriction></xs:simpleType></xs:element>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:restriction: ファセット maxInclusive と minInclusive の値が矛盾しています。"},
        {element + "<xs:simpleType><xs:restriction base='xs:string'><xs:pattern value='['/>"
                   "</xs:restriction></xs:simpleType></xs:element>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:restriction: パターンが正規表現として正しくありません。"},
        {"<xs:element name='r' default='a' fixed='b'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:element 'r': 同時に指定できない属性または子要素があります。"},
        {"<xs:group name='g'><xs:sequence><xs:group ref='g'/></xs:sequence></xs:group>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:group 'g': 定義が循環しています。"},
        {"<xs:include schemaLocation='none.xsd'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "スキーマが取り込む 'none.xsd' が見つかりません。"},
        {"<xs:attribute name='x' type='xs:ID' default='q'/>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:attribute 'x': ID 型の宣言に既定値または固定値を指定することはできません。"},
        {"<xs:complexType name='b' final='#all'/><xs:complexType name='d'><xs:complexContent>"
         "<xs:extension base='b'/></xs:complexContent></xs:complexType>",
         "スキーマ 's.xsd' を読み込めません。\n"
         "1 行目: xs:extension: 基底型が 'extension' による派生を禁止しています。"},
        {"<xs:element name='r'>", "スキーマ 's.xsd' を読み込めません。\n"
                                  "1 行目: 終了タグが開始タグと一致しません。"},
    };
    for (const Said &row : rows) {
        writeXsd(row.document);
        EXPECT_EQ(said([&] { return validateByXsd(test::parsed("<r/>"), files.path("s.xsd")); }),
                  row.sentences)
            << row.document;
    }
}

TEST_F(SchemaSentences, Imports) {
    const std::string element =
        "<xs:element name='r'><xs:complexType><xs:attribute ref='xml:lang'/><xs:attributeGroup "
        "ref='l:simpleAttrs' "
        "xmlns:l='http://www.w3.org/1999/xlink'/></xs:complexType></xs:element>";
    const auto import = [](const std::string &name, const std::string &location) {
        return "<xs:import namespace='" + name + "'" +
               (location.empty() ? "" : " schemaLocation='" + location + "'") + "/>";
    };
    const std::string xml = "http://www.w3.org/XML/1998/namespace";
    const std::string xlink = "http://www.w3.org/1999/xlink";
    for (const char *place : {"", "none.xsd", "http://www.w3.org/somewhere/x.xsd"}) {
        writeXsd(import(xml, place) + import(xlink, place) + element);
        expectXsd({{"<r xml:lang='ja' l:type='simple' l:href='a' xmlns:l='" + xlink + "'/>", ""}});
    }
    expectXsd({{"<r xml:lang='***'/>",
                "1 スキーマによると、要素 'r' の属性 'xml:lang' の値 '***' が正しくありません。"}});
    writeXsd(import("urn:n", "sub/none.xsd") + import("urn:m", "") + "<xs:element name='r'/>");
    expectXsd(
        {{"<r/>",
          "! スキーマが取り込む 'sub/none.xsd' "
          "が見つからないため、その宣言を使わずに検証しました。\n"
          "! スキーマが取り込む 'urn:m' が見つからないため、その宣言を使わずに検証しました。"}});
    writeXsd(import("urn:n", "sub/none.xsd") + "<xs:element name='r' type='n:t' xmlns:n='urn:n'/>");
    expectXsd({{"<r/>", "スキーマ 's.xsd' を読み込めません。\n"
                        "1 行目: xs:element 'r' の属性 'type': 型 't' は宣言されていません。\n"
                        "スキーマが取り込む 'sub/none.xsd' が見つかりません。"}});
}

} // namespace

} // namespace quillon::xml

#include "platform/runtime/error.h"
#include "platform/xml/schema/relaxng/relaxng_validator.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml {

namespace {

class RelaxNg : public testing::Test {
protected:
    void write(const std::string &content, const std::string &name = "s.rng") {
        files.write(name.c_str(),
                    "<grammar xmlns='http://relaxng.org/ns/structure/1.0' datatypeLibrary="
                    "'http://www.w3.org/2001/XMLSchema-datatypes'>" +
                        content + "</grammar>");
    }
    /// A line for each error: "line name@attribute: what is said"; what is raised, if anything is.
    std::string said(const std::string &document) {
        std::string lines;
        try {
            for (const SchemaError &error :
                 validateByRelaxNg(test::parsed(document), files.path("s.rng")))
                lines += std::to_string(error.line) + " " + error.node.nodeName().toStdString() +
                         (error.attribute.isEmpty() ? "" : "@" + error.attribute.toStdString()) +
                         ": " + error.reason.toStdString() + "\n";
        } catch (const runtime::Error &error) {
            return error.description().toStdString();
        }
        return lines;
    }

    test::Files files;
};

TEST_F(RelaxNg, EachFaultIsSaidOnceWhereItIs) {
    write("<start><element name='r'><zeroOrMore><choice>"
          "<element name='a'><attribute name='n'><data type='int'/></attribute>"
          "<optional><attribute name='kind'><choice><value>x</value><value>y</value></choice>"
          "</attribute></optional><ref name='b'/><optional><ref name='c'/></optional></element>"
          "<element name='d'><data type='date'/></element>"
          "<element name='any'><zeroOrMore><element><anyName/><text/></element></zeroOrMore>"
          "<zeroOrMore><attribute><anyName/></attribute></zeroOrMore></element>"
          "</choice></zeroOrMore></element></start>"
          "<define name='b'><element name='b'><empty/></element></define>"
          "<define name='c'><element name='c'><interleave><ref name='b'/><element name='e'>"
          "<text/></element></interleave></element></define>");
    struct Row {
        std::string content;
        std::string said;
    };
    const std::string unexpected = "の内容が正しくありません。要素 ";
    const std::string rule = "DTD/スキーマによると、要素 ";
    const std::vector<Row> rows{
        {"<a n='1'><b/></a><d>2024-02-29</d><a n='2' kind='y'><b/><c><e/><b/></c></a>"
         "<any x='1'><q/></any>",
         ""},
        {"<a><b/></a>", "2 a@n: 要素 'a' に必須の属性 'n' がありません。\n"},
        {"<a n='x'><b/></a>", "2 a@n: スキーマによると、要素 'a' の属性 'n' の値 'x' "
                              "が正しくありません。int データ型の値が必要です。\n"},
        {"<a n='1' kind='z'><b/></a>",
         "2 a@kind: スキーマによると、要素 'a' の属性 'kind' の値 'z' が正しくありません。"
         "使用できる値: 'x', 'y'\n"},
        {"<a n='1' m='2'><b/></a>",
         "2 a@m: 要素 'a' の属性 'm' は、DTD/スキーマで定義されていません。\n"},
        {"<a n='1'/>",
         "2 a: " + rule + "'a' を空にすることはできません。\n次のいずれかが必要です: b\n"},
        {"<a n='1'><c><b/><e/></c></a>", "2 c: " + rule +
                                             "'a' の中で、要素 'c' の前に必要な要素がありません。\n"
                                             "次のいずれかが必要です: b\n"},
        {"<a n='1'><b/><z/></a>", "2 z: " + rule + "'a' " + unexpected +
                                      "'z' をここに置くことはできません。\n"
                                      "次のいずれかが必要です: c\n"},
        {"<a n='1'><b/>text</a>", "2 a: " + rule + "'a' にテキストを含めることはできません。\n"},
        {"<d>2023-02-29</d>", "2 d: スキーマによると、要素 'd' の値 '2023-02-29' "
                              "が正しくありません。date データ型の値が必要です。\n"},
        {"<a n='1'><b>x</b><c><e/></c></a>",
         "2 b: " + rule +
             "'b' にテキストを含めることはできません。\n"
             "2 c: " +
             rule + "'c' の内容が不完全です。\n次のいずれかが必要です: b\n"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(said("<r>\n" + row.content + "</r>"), row.said) << row.content;
    EXPECT_EQ(said("<!DOCTYPE r SYSTEM 'r.dtd'><r>&none;<a/></r>"),
              "1 r: 未定義の実体 'none' が参照されています。\n");
    EXPECT_EQ(said("<x/>"), "1 x: スキーマによると、要素 'x' をルート要素にすることはできません。\n"
                            "次のいずれかが必要です: r\n");
}

/// What the grammar does not know: which attribute goes with which content.
TEST_F(RelaxNg, TheLibraryHasTheWord) {
    write("<start><element name='r'><zeroOrMore><choice><element name='p'><choice>"
          "<attribute name='ref'/><group><attribute name='id'/><text/></group></choice></element>"
          "<element name='n'><attribute name='t'><value>int</value></attribute>"
          "<data type='int'/></element>"
          "<element name='n'><attribute name='t'><value>day</value></attribute>"
          "<data type='date'/></element>"
          "</choice></zeroOrMore></element></start>");
    EXPECT_EQ(said("<r><p ref='x'/><p id='x'>y</p><n t='int'>1</n><n t='day'>2024-01-01</n></r>"),
              "");
    const std::string both = said("<r>\n<p ref='x' id='y'/></r>");
    EXPECT_TRUE(both.starts_with("2 p: ")) << both;
    EXPECT_EQ(std::ranges::count(both, '\n'), 1) << both;
    // The reading with the least against it.
    EXPECT_EQ(said("<r><n t='day'>x</n></r>"),
              "1 n: スキーマによると、要素 'n' の値 'x' が正しくありません。"
              "date データ型の値が必要です。\n");
}

TEST_F(RelaxNg, PartsAndFaultsOfTheSchema) {
    files.write("part.rng", "<grammar xmlns='http://relaxng.org/ns/structure/1.0'><define name='a'>"
                            "<element name='a'><empty/></element></define></grammar>");
    files.write("outer.rng", "<element name='o' xmlns='http://relaxng.org/ns/structure/1.0'>"
                             "<text/></element>");
    write("<include href='part.rng'/><start><element name='r'><ref name='a'/>"
          "<externalRef href='outer.rng'/></element></start>");
    EXPECT_EQ(said("<r><a/><o/></r>"), "");
    EXPECT_NE(said("<r><a/></r>"), "");
    struct Row {
        std::string content;
        std::string said;
    };
    const std::vector<Row> rows{
        {"\n<start><ref name='none'/></start>", "スキーマ 's.rng' を読み込めません。\n2 行目: ref "
                                                "'none': 参照先の定義がスキーマにありません。"},
        {"<start>\n<element name='a'/></start>",
         "スキーマ 's.rng' を読み込めません。\n2 行目: element 'a': 内容がありません。"},
        {"<start><element name='a'>\n<data type='nothing'/></element></start>",
         "スキーマ 's.rng' を読み込めません。\n2 行目: data 'nothing': "
         "データ型がないか、認識できません。"},
        {"<include href='/etc/passwd'/><start><empty/></start>",
         "スキーマ 'passwd' を読み込めません。\n"
         "ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。"},
        {"<include href='http://localhost/x.rng'/><start><empty/></start>",
         "スキーマ 'x.rng' を読み込めません。\n"
         "ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。"},
    };
    for (const Row &row : rows) {
        write(row.content);
        EXPECT_EQ(said("<a/>"), row.said) << row.content;
    }
    files.write("s.rng", "<r/>");
    EXPECT_EQ(said("<r/>"),
              "スキーマ 's.rng' を読み込めません。\n1 行目: RELAX NG スキーマではありません。");
}

TEST_F(RelaxNg, TheCompactSyntaxMeansTheSame) {
    files.write("part.rnc", "default namespace = 'urn:d' namespace p = 'urn:p'\n"
                            "p = element p:p { mixed { element \\list { text }* } }\n"
                            "div { q |= element q { empty } }");
    const std::string schema =
        "# comment\ndefault namespace = \"urn:d\"\nnamespace p = 'urn:p'\n"
        "namespace a = 'http://relaxng.org/ns/compatibility/annotations/1.0'\n"
        "datatypes x = \"http://www.w3.org/2001/XMLSchema-\" ~ \"datatypes\"\n"
        "include \"part.rnc\" { q = element q { attribute n { \"1\" | \"2\" } } }\n"
        "a:note [ \"of nothing\" a:inner [ ] ]\n"
        "start = \n## The root\nelement r {\n"
        "  [ a:defaultValue = \"3\" ] attribute count { x:int { minInclusive = '3' } }?,\n"
        "  attribute p:* { text }*,\n"
        "  ((p | q)+ & element (o1 | o2) { list { x:int+ } }?)\n"
        "}\n";
    files.write("s.rng", schema);
    const std::string start = "<r xmlns='urn:d' xmlns:p='urn:p' ";
    EXPECT_EQ(said(start + "count='4' p:any=''><o2>1 2</o2><p:p>x<list>y</list>"
                           "</p:p><q n='2'/></r>"),
              "");
    EXPECT_EQ(said(start + "count='2'><q n='3'/></r>"),
              "1 r@count: スキーマによると、要素 'r' の属性 'count' の値 '2' が正しくありません。"
              "3 以上の値が必要です。\n1 q@n: スキーマによると、要素 'q' の属性 'n' の値 '3' "
              "が正しくありません。使用できる値: '1', '2'\n");
    EXPECT_NE(said(start + "><q xmlns='' n='1'/></r>"), "");
    EXPECT_NE(said(start + "><q n='1'/><o1>x</o1></r>"), "");
    // Faults are told with their lines, those of the schema's meaning, too.
    const std::string cannot = "スキーマ 's.rng' を読み込めません。\n";
    for (const auto &[text, reason] : std::vector<std::pair<std::string, std::string>>{
             {"start =\n element r { text", "2 行目: RELAX NG 短縮構文の誤りです。"
                                            "'' をここに置くことはできません。"},
             {"start = a, b |\nc", "1 行目: RELAX NG 短縮構文の誤りです。"
                                   "'|' をここに置くことはできません。"},
             {"start = element r { \"x }", "1 行目: RELAX NG 短縮構文の誤りです。"
                                           "'\"' をここに置くことはできません。"},
             {"start = element r {\n none }",
              "2 行目: ref 'none': 参照先の定義がスキーマにありません。"}}) {
        files.write("s.rng", text);
        EXPECT_EQ(said("<r/>"), cannot + reason) << text;
    }
    files.write("s.rng", "start = " + std::string(100'000, '('));
    EXPECT_TRUE(said("<r/>").starts_with(cannot));
}

} // namespace

} // namespace quillon::xml

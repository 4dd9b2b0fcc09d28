#include "platform/runtime/error.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/schema/schema_error_bytes.h"
#include "platform/xml/schema/schematron/schematron_validator.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml {

namespace {

class Schematron : public testing::Test {
protected:
    /// A line for each fault: "line name@attribute: what is said", "~" ahead of hints; what is
    /// raised, if anything is.
    std::string said(const std::string &document, const QString &phase = {}) {
        const DOMDocument40 source = test::parsed(document);
        std::string lines;
        try {
            // The processor is not to be left as it is after this.
            const QByteArray bytes = runInChild(
                [&] {
                    return toBytes(validateBySchematron(source, files.path("s.sch"), {}, phase),
                                   source);
                },
                {std::chrono::seconds(20), qint64(1) << 30});
            for (const SchemaError &error : schemaErrorsFrom(bytes, source)) {
                EXPECT_EQ(error.errorCode, schema_error::RuleViolation);
                lines += (error.isWarning ? "~" : "") + std::to_string(error.line) + " " +
                         error.node.nodeName().toStdString() +
                         (error.attribute.isEmpty() ? "" : "@" + error.attribute.toStdString()) +
                         ": " + error.reason.toStdString() + "\n";
            }
        } catch (const runtime::Error &error) {
            return error.description().toStdString();
        }
        return lines;
    }
    void write(const std::string &content, const std::string &attributes = "") {
        files.write("s.sch", "<schema xmlns='http://purl.oclc.org/dsdl/schematron' " + attributes +
                                 ">" + content + "</schema>");
    }
    std::string saidBy(const std::string &content, const std::string &document) {
        write(content);
        return said(document);
    }

    test::Files files;
};

std::string pattern(const std::string &rules) {
    return "<pattern>" + rules + "</pattern>";
}

TEST_F(Schematron, RulesAreAppliedToWhatTheyMean) {
    const std::string document = "<r>\n<a n='1'>x</a>\n<a n='2' m='3'><b/></a><!--c--></r>";
    struct Row {
        std::string rules;
        std::string said;
    };
    const std::vector<Row> rows{
        {"<rule context='a'><assert test='b'>a\n wants  b</assert><report test='b'>has b</report>"
         "</rule>",
         "2 a: a wants b\n3 a: has b\n"},
        // The first one that fits, and no other of the same pattern.
        {"<rule context=\"a[@n='1']\"/><rule context='a'><assert "
         "test='false()'>two</assert></rule>",
         "3 a: two\n"},
        {"<rule context='a/@*'><assert test='. = 1'>not 1</assert></rule>",
         "3 a@n: not 1\n3 a@m: not 1\n"},
        {"<rule context='text()'><report test='true()'>text</report></rule>", "2 a: text\n"},
        {"<rule context='comment()'><report test='true()'>comment</report></rule>",
         "1 r: comment\n"},
        {"<rule context='/'><assert test='count(//a) = 3'>three</assert></rule>", "1 r: three\n"},
        {"<rule context='r'><assert test='a[3]' role='warning'>three</assert></rule>",
         "~1 r: three\n"},
        {"<rule context='b'><assert test='false()'><name/> in <emph>an</emph> <name path='..'/> of "
         "<value-of select='../@n'/></assert></rule>",
         "3 b: b in an a of 2\n"},
        {"<rule context='b'><assert test='x &lt; 1'/></rule>",
         "3 b: 規則 'x < 1' が満たされていません。\n"},
        {"<rule context='a'><assert test=\"count(key('by-n', @n)) = 2\">key</assert></rule>",
         "2 a: key\n3 a: key\n"},
        {"<rule context='a'><assert test='../a[@n = current()/@n + 1]'>next</assert></rule>",
         "3 a: next\n"},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(saidBy("<xsl:key xmlns:xsl='http://www.w3.org/1999/XSL/Transform' name='by-n' "
                         "match='a' use='@n'/>" +
                             pattern(row.rules),
                         document),
                  row.said)
            << row.rules;
    }
}

TEST_F(Schematron, WhatSavesWordsIsPutInItsPlace) {
    files.write("part.sch", "<pattern xmlns='http://purl.oclc.org/dsdl/schematron' id='included'>"
                            "<rule context='q'><assert test='false()'>included</assert></rule>"
                            "</pattern>");
    write("<ns prefix='p' uri='urn:p'/><let name='limit' value='2'/>"
          "<phase id='few'><active pattern='uses'/><let name='limit' value='0'/></phase>"
          "<include href='part.sch'/>"
          "<pattern abstract='true' id='atMost'><rule context='$what'>"
          "<assert test='count($parts) &lt;= $limit' diagnostics='how'>at most "
          "<value-of select='$limit'/> $partsNot</assert></rule></pattern>"
          "<pattern id='uses' is-a='atMost'><param name='what' value='p:list'/>"
          "<param name='parts' value='p:item'/></pattern>"
          "<pattern id='rules'><let name='limit' value=\"'own'\"/>"
          "<rule abstract='true' id='named'><let name='name' value='string(@n)'/>"
          "<assert test='$name'>no name (<value-of select='$limit'/>)</assert></rule>"
          "<rule context='p:item'><extends rule='named'/></rule></pattern>"
          "<diagnostics><diagnostic id='how'>not <value-of select='count(*)'/></diagnostic>"
          "</diagnostics>");
    const std::string document = "<p:list xmlns:p='urn:p'>\n<p:item n='1'/>\n<p:item/>\n"
                                 "<p:item n='3'/><q/></p:list>";
    EXPECT_EQ(said(document), "4 q: included\n1 p:list: at most 2 $partsNot not 4\n"
                              "3 p:item: no name (own)\n");
    EXPECT_EQ(said(document, "few"), "1 p:list: at most 0 $partsNot not 4\n");
    write("<phase id='none'/>" + pattern("<rule context='q'><report test='true()'/></rule>"),
          "defaultPhase='none'");
    EXPECT_EQ(said(document), "");
    EXPECT_EQ(said(document, "#ALL"), "4 q: 規則 'true()' に該当します。\n");
}

TEST_F(Schematron, OtherHomesOfRules) {
    const std::string rule = "pattern name='x'><s:rule context='a'><s:assert test='b'>no b"
                             "</s:assert></s:rule></s:pattern>";
    files.write("s.sch", "<s:schema xmlns:s='http://www.ascc.net/xml/schematron'><s:" + rule +
                             "</s:schema>");
    EXPECT_EQ(said("<a/>"), "1 a: no b\n");
    files.write("s.sch", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                         "xmlns:s='http://purl.oclc.org/dsdl/schematron'><xs:element name='a'>"
                         "<xs:annotation><xs:appinfo><s:" +
                             rule + "</xs:appinfo></xs:annotation></xs:element></xs:schema>");
    EXPECT_EQ(said("<a/>"), "1 a: no b\n");
}

TEST_F(Schematron, FaultsOfTheSchemaHaveAPlace) {
    struct Row {
        std::string content;
        std::string said;
    };
    const std::string start = "スキーマ 's.sch' を読み込めません。\n";
    const std::string rule = "<rule context='a'>\n";
    const std::vector<Row> rows{
        {pattern("\n<rule><assert test='a'/></rule>"),
         "2 行目: 要素 'rule' に必須の属性 'context' がありません。"},
        {pattern(rule + "<assert>x</assert></rule>"),
         "2 行目: 要素 'assert' に必須の属性 'test' がありません。"},
        {"\n\n<pattern is-a='x'/>", "3 行目: 抽象パターン 'x' はスキーマにありません。"},
        {pattern(rule + "<extends rule='x'/></rule>"),
         "2 行目: 抽象規則 'x' はスキーマにありません。"},
        {"\n<phase id='p'>\n<active pattern='x'/></phase>", ""},
        {"<include href='/etc/passwd'/>",
         "1 行目: 取り込む '/etc/passwd' が見つからないか、読み込めません。"},
        {"<include href='s.sch'/>", "1 行目: 定義の入れ子が深すぎるか、循環しています。"},
        {pattern("<rule abstract='true' id='x'><extends rule='x'/></rule><rule context='a'>"
                 "<extends rule='x'/></rule>"),
         "1 行目: 定義の入れ子が深すぎるか、循環しています。"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(saidBy(row.content, "<a/>"), row.said.empty() ? "" : start + row.said)
            << row.content;
    // What the processor says; English is not shown.
    for (const char *test : {"a[", "$unknown", "unknown()", "p:a", "count(1)", "1) or (2"}) {
        const std::string found =
            saidBy(pattern(rule + "<assert test='" + test + "'>x</assert></rule>"), "<a/>");
        EXPECT_TRUE(found.starts_with(start + "2 行目: ")) << test << ": " << found;
        EXPECT_EQ(found.find("rror"), std::string::npos) << found;
    }
    EXPECT_TRUE(saidBy(pattern("\n<rule context='a['/>"), "<a/>").starts_with(start + "2 行目: "));
    write("", "queryBinding='xslt2'");
    EXPECT_TRUE(QString::fromStdString(said("<a/>")).contains("クエリ言語 'xslt2'"));
    write(pattern("<rule context='a'/>"));
    EXPECT_EQ(said("<a/>", "x"), start + "1 行目: フェーズ 'x' はスキーマにありません。");
    files.write("s.sch", "<r/>");
    EXPECT_EQ(said("<a/>"), start + "1 行目: Schematron スキーマではありません。");
}

TEST_F(Schematron, StrangersCanDoNoHarm) {
    // Nothing is read but what stands beside the schema.
    files.write("beside.xml", "<beside/>");
    const auto reads = [&](const std::string &address) {
        return saidBy(pattern("<rule context='a'><report test=\"document('" + address +
                              "')\">read</report></rule>"),
                      "<a/>");
    };
    EXPECT_EQ(reads("beside.xml"), "1 a: read\n");
    EXPECT_EQ(reads("/proc/self/environ"), "");
    EXPECT_EQ(reads("file:///etc/fstab"), "");
    EXPECT_EQ(reads("http://localhost/"), "");
    // Abstract parts that double at every step.
    std::string rules;
    for (int i = 1; i <= 40; ++i)
        rules += "<rule abstract='true' id='r" + std::to_string(i) + "'><extends rule='r" +
                 std::to_string(i - 1) + "'/><extends rule='r" + std::to_string(i - 1) +
                 "'/></rule>";
    EXPECT_EQ(saidBy(pattern("<rule abstract='true' id='r0'><assert test='a'/></rule>" + rules +
                             "<rule context='a'><extends rule='r40'/></rule>"),
                     "<a/>"),
              "スキーマ 's.sch' を読み込めません。\n定義を展開した結果が大きすぎます。");
    // A deep document, and one in which everything is wrong.
    EXPECT_EQ(saidBy(
                  pattern("<rule context='b'><report test='true()'>b</report></rule>"),
                  "<b>" + std::string() +
                      [] {
                          std::string deep;
                          for (int i = 0; i < 30'000; ++i)
                              deep += "<a>";
                          for (int i = 0; i < 30'000; ++i)
                              deep += "</a>";
                          return deep;
                      }() +
                      "</b>"),
              "1 b: b\n");
    std::string many;
    for (int i = 0; i < 3000; ++i)
        many += "<b/>";
    const std::string all = said("<r>" + many + "</r>");
    EXPECT_EQ(std::ranges::count(all, '\n'), 1001);
}

} // namespace

} // namespace quillon::xml

#include "platform/runtime/error.h"
#include "platform/xml/schema/xdr/xdr_validator.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// All that validation by XDR schemas says, as it is said.
namespace quillon::xdr {

namespace {

struct Said {
    QString input;
    std::string sentences;
};

xml::DOMDocument40 parsed(const QString &text) {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    EXPECT_TRUE(document.loadXML(text)) << text.toStdString();
    return document;
}

/// The sentences of a validation, each after its line; what is raised counts as the only one.
std::string said(const QString &declarations, const QString &document) {
    QStringList sentences;
    try {
        Validator validator{QStringList()};
        validator.addSchema(
            "スキーマ.xml",
            parsed("<Schema xmlns='urn:schemas-microsoft-com:xml-data' xmlns:x='urn:other' "
                   "xmlns:dt='urn:schemas-microsoft-com:datatypes'>\n" +
                   declarations + "</Schema>"));
        for (const xml::SchemaError &error : validator.validate(parsed(document)))
            sentences.append(QString::number(error.line) + u' ' + error.reason);
    } catch (const runtime::Error &error) {
        sentences.append(error.description());
    }
    return sentences.join(u'\n').toStdString();
}

/// The rows hold what follows the name of the root, which puts the document into the schema's
/// namespace.
void expectErrors(const QString &declarations, const std::vector<Said> &rows) {
    for (const Said &row : rows)
        EXPECT_EQ(said(declarations, "<r xmlns='スキーマ.xml'" + row.input), row.sentences)
            << row.input.toStdString();
}

TEST(XdrSentences, Documents) {
    expectErrors(
        "<ElementType name='e' content='empty'/><ElementType name='a'/><ElementType "
        "name='b'/><ElementType name='t' content='textOnly'/><ElementType name='o' "
        "content='eltOnly'><element type='b'/><element type='a'/></ElementType><ElementType "
        "name='m' model='closed'><element type='a'/></ElementType><ElementType name='r' "
        "content='eltOnly' order='many'><element type='e'/><element type='t'/><element "
        "type='o'/><element type='m'/></ElementType>",
        {
            {">\n"
             "<e>x</e>\n"
             "<t><a/></t></r>",
             "2 DTD/スキーマによると、要素 'e' にテキストを含めることはできません。\n"
             "3 DTD/スキーマによると、要素 't' の内容が正しくありません。要素 'a' "
             "をここに置くことはできません。"},
            {">\n"
             "<o/>\n"
             "<o><b/></o><o><a/></o></r>",
             "2 DTD/スキーマによると、要素 'o' を空にすることはできません。\n"
             "次のいずれかが必要です: b\n"
             "3 DTD/スキーマによると、要素 'o' の内容が不完全です。\n"
             "次のいずれかが必要です: a\n"
             "3 DTD/スキーマによると、要素 'o' の内容が正しくありません。要素 'a' "
             "をここに置くことはできません。\n"
             "次のいずれかが必要です: b"},
            {">\n"
             "<o>x<b/><a/></o>\n"
             "<m><b/></m><zz/></r>",
             "2 DTD/スキーマによると、要素 'o' にテキストを含めることはできません。\n"
             "3 DTD/スキーマによると、要素 'm' の内容が正しくありません。要素 'b' "
             "をここに置くことはできません。\n"
             "次のいずれかが必要です: a\n"
             "3 要素 'zz' が使用されていますが、DTD/スキーマで宣言されていません。"},
            {" zz='1'>\n"
             "<o yy='%1'><b/><a/></o></r>",
             "1 要素 'r' の属性 'zz' は、DTD/スキーマで定義されていません。\n"
             "2 要素 'o' の属性 'yy' は、DTD/スキーマで定義されていません。"},
        });
    expectErrors(
        "<AttributeType name='n' dt:type='int'/><AttributeType name='q' "
        "required='yes'/><AttributeType name='f' default='v' required='yes'/><AttributeType "
        "name='e' dt:type='enumeration' dt:values='a b'/><AttributeType name='l' "
        "dt:maxLength='2'/><AttributeType name='ent' dt:type='entity'/><ElementType "
        "name='r'><attribute type='n'/><attribute type='q'/><attribute type='f'/><attribute "
        "type='e'/><attribute type='l'/><attribute type='ent'/></ElementType>",
        {
            {" n='x' f='w' e='c' l='abc' ent='pic'/>",
             "1 DTD/スキーマによると、要素 'r' の属性 'n' の値 'x' が正しくありません。\n"
             "1 要素 'r' の属性 'f' の値が、DTD/スキーマで定義されている固定値と一致しません。\n"
             "1 DTD/スキーマによると、要素 'r' の属性 'e' の値 'c' が正しくありません。\n"
             "1 DTD/スキーマによると、要素 'r' の属性 'l' の値 'abc' が正しくありません。\n"
             "1 DTD/スキーマによると、要素 'r' の属性 'ent' の値 'pic' が正しくありません。\n"
             "1 要素 'r' に必須の属性 'q' がありません。"},
        });
    expectErrors(
        "<ElementType name='i' dt:type='i1'/><ElementType name='s' content='textOnly'><datatype "
        "dt:type='string' dt:minLength='2'/></ElementType><ElementType name='n' "
        "dt:type='entity'/><ElementType name='r'><element type='i'/><element "
        "type='s'/></ElementType>",
        {
            {">\n"
             "<i>200</i>\n"
             "<s>a</s><n>pic</n><i/></r>",
             "2 要素 'i' の値 '200' を i1 データ型として解析できません。\n"
             "3 スキーマによると、要素 's' の値の長さが正しくありません。\n"
             "3 要素 'n' の値 'pic' を entity データ型として解析できません。\n"
             "3 要素 'i' の値 '' を i1 データ型として解析できません。"},
        });
    expectErrors(
        "<AttributeType name='id' dt:type='id'/><AttributeType name='ref' "
        "dt:type='idref'/><AttributeType name='refs' dt:type='idrefs'/><ElementType name='k' "
        "dt:type='idref'/><ElementType name='r'><attribute type='id'/><attribute "
        "type='ref'/><attribute type='refs'/></ElementType>",
        {
            {" id='a'>\n"
             "<r id='a'/>\n"
             "<r ref='x' refs='a y z'/><k>w</k></r>",
             "2 要素 'r' の ID 'a' は、ドキュメントの中ですでに使用されています。\n"
             "3 属性 'ref' が参照している ID 'x' は、ドキュメントのどこにも定義されていません。\n"
             "3 属性 'refs' が参照している ID 'y' は、ドキュメントのどこにも定義されていません。\n"
             "3 属性 'refs' が参照している ID 'z' は、ドキュメントのどこにも定義されていません。\n"
             "3 要素 'k' が参照している ID 'w' は、ドキュメントのどこにも定義されていません。"},
        });
    EXPECT_EQ(said("", "<r xmlns='urn:unknown'/>"),
              "1 DTD/スキーマの宣言が見つからないため、ドキュメントを検証できませんでした。");
}

TEST(XdrSentences, Schemas) {
    // On the second line.
    const std::vector<Said> rows{
        {"<ElementType/>", "2 行目: 要素 'ElementType' に属性 'name' が必要です。"},
        {"<ElementType name='p:a'/>",
         "2 行目: 要素 'ElementType' の属性 'name' の値 'p:a' が正しくありません。"},
        {"<ElementType name=''/>", "2 行目: 要素 'ElementType' の属性 'name' の値が空です。"},
        {"<ElementType name='a'/><ElementType name='b'/><ElementType name='a'/>",
         "2 行目: 'a' という名前の宣言が重複しています。"},
        {"<AttributeType name='a'/><AttributeType name='a'/>",
         "2 行目: 'a' という名前の宣言が重複しています。"},
        {"<ElementType name='r' content='any'/>",
         "2 行目: 要素 'ElementType' の属性 'content' の値 'any' が正しくありません。"},
        {"<ElementType name='r' model='shut'/>",
         "2 行目: 要素 'ElementType' の属性 'model' の値 'shut' が正しくありません。"},
        {"<ElementType name='r' order='all'/>",
         "2 行目: 要素 'ElementType' の属性 'order' の値 'all' が正しくありません。"},
        {"<ElementType name='r' color='red'/>",
         "2 行目: 要素 'ElementType' で属性 'color' を使用することはできません。"},
        {"<ElementType name='r'><element type='none'/></ElementType>",
         "2 行目: 'none' という名前の ElementType が宣言されていません。"},
        {"<ElementType name='r'><element type='x:a'/></ElementType>",
         "2 行目: 'x:a' という名前の ElementType が宣言されていません。"},
        {"<ElementType name='r'><element type=''/></ElementType>",
         "2 行目: 要素 'element' の属性 'type' の値が空です。"},
        {"<ElementType name='r'><element/></ElementType>",
         "2 行目: 要素 'element' に属性 'type' が必要です。"},
        {"<ElementType name='r'><attribute/></ElementType>",
         "2 行目: 要素 'attribute' に属性 'type' が必要です。"},
        {"<ElementType name='r'><attribute type='none'/></ElementType>",
         "2 行目: 'none' という名前の AttributeType が宣言されていません。"},
        {"<ElementType name='a'/><ElementType name='b'/><ElementType name='r'><element type='a' "
         "minOccurs='2'/></ElementType>",
         "2 行目: 要素 'element' の属性 'minOccurs' の値 '2' が正しくありません。"},
        {"<ElementType name='a'/><ElementType name='b'/><ElementType name='r'><element type='a' "
         "maxOccurs='0'/></ElementType>",
         "2 行目: 要素 'element' の属性 'maxOccurs' の値 '0' が正しくありません。"},
        {"<ElementType name='a'/><ElementType name='b'/><ElementType name='r' "
         "content='empty'><element type='a'/></ElementType>",
         "2 行目: ElementType 'r' の content と内容の宣言が矛盾しています。"},
        {"<ElementType name='a'/><ElementType name='b'/><ElementType name='r' "
         "content='textOnly'><group/></ElementType>",
         "2 行目: ElementType 'r' の content と内容の宣言が矛盾しています。"},
        {"<ElementType name='r' content='eltOnly' dt:type='int'/>",
         "2 行目: ElementType 'r' の content と内容の宣言が矛盾しています。"},
        {"<ElementType name='r' dt:type='integer'/>",
         "2 行目: 要素 'ElementType' の属性 'dt:type' の値 'integer' が正しくありません。"},
        {"<ElementType name='r'><datatype dt:type='integer'/></ElementType>",
         "2 行目: 要素 'datatype' の属性 'dt:type' の値 'integer' が正しくありません。"},
        {"<ElementType name='r' dt:type='enumeration' dt:values='a'/>",
         "2 行目: 要素 'ElementType' の属性 'dt:type' の値 'enumeration' が正しくありません。"},
        {"<ElementType name='r' dt:type='int'><datatype dt:type='int'/></ElementType>",
         "2 行目: 要素 'datatype' を要素 'ElementType' の中で使用することはできません。"},
        {"<AttributeType name='a' dt:type='enumeration'/>",
         "2 行目: 要素 'AttributeType' に属性 'dt:values' が必要です。"},
        {"<AttributeType name='a' dt:type='enumeration' dt:values=' '/>",
         "2 行目: 要素 'AttributeType' に属性 'dt:values' が必要です。"},
        {"<AttributeType name='a' dt:values='a b'/>",
         "2 行目: 要素 'AttributeType' の属性 'dt:values' の値 'a b' が正しくありません。"},
        {"<AttributeType name='a' dt:type='int' default='x'/>",
         "2 行目: 属性 'a' の既定値 'x' がデータ型に合っていません。"},
        {"<AttributeType name='a' dt:type='int' default=''/>",
         "2 行目: 属性 'a' の既定値 '' がデータ型に合っていません。"},
        {"<AttributeType name='a' required='maybe'/>",
         "2 行目: 要素 'AttributeType' の属性 'required' の値 'maybe' が正しくありません。"},
        {"<AttributeType name='a' dt:minLength='x'/>",
         "2 行目: 要素 'AttributeType' の属性 'dt:minLength' の値 'x' が正しくありません。"},
        {"<AttributeType name='a' dt:minLength='3' dt:maxLength='2'/>",
         "2 行目: 要素 'AttributeType' の属性 'dt:minLength' の値 '3' が正しくありません。"},
        {"<AttributeType name='a'/><ElementType name='r'><attribute type='a'/><attribute "
         "type='a'/></ElementType>",
         "2 行目: 'a' という名前の宣言が重複しています。"},
        {"<ElementType name='r'><AttributeType name='a'/><AttributeType name='a'/></ElementType>",
         "2 行目: 'a' という名前の宣言が重複しています。"},
        {"<group/>", "2 行目: 要素 'group' を要素 'Schema' の中で使用することはできません。"},
        {"<complexType name='r'/>",
         "2 行目: 要素 'complexType' を要素 'Schema' の中で使用することはできません。"},
        {"<ElementType name='r' content=''/>",
         "2 行目: 要素 'ElementType' の属性 'content' の値が空です。"},
        {"<AttributeType name='a' dt:color='red'/>",
         "2 行目: 要素 'AttributeType' で属性 'dt:color' を使用することはできません。"},
        {"<ElementType name='r'>" + QString("<group>").repeated(300) +
             QString("</group>").repeated(300) + "</ElementType>",
         "2 行目: group の入れ子が深すぎます。"},
    };
    for (const Said &row : rows)
        EXPECT_EQ(said(row.input, "<r/>"),
                  "スキーマ 'スキーマ.xml' を読み込めません。\n" + row.sentences)
            << row.input.toStdString();
}

TEST(XdrSentences, FilesOfSchemas) {
    QTemporaryDir folder;
    const auto write = [&](const QString &name, const QByteArray &text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("other.xml", "<a/>");
    write("open.xml", "<Schema>\n<a></Schema>");
    const std::vector<Said> rows{
        {"無い.xml", "スキーマ '無い.xml' "
                     "を読み込めません。\nファイルが、スキーマのフォルダーにも作業フォルダーにも見"
                     "つかりません。"},
        {"../../etc/passwd", "スキーマ '../../etc/passwd' "
                             "を読み込めません。\nファイルが、スキーマのフォルダーにも作業フォルダ"
                             "ーにも見つかりません。"},
        {"#s", "スキーマ '#s' "
               "を読み込めません。\nファイルが、スキーマのフォルダーにも作業フォルダーにも見つかり"
               "ません。"},
        {"other.xml", "スキーマ 'other.xml' を読み込めません。\n1 行目: XML-Data Reduced (XDR) "
                      "スキーマではありません。"},
        {"open.xml",
         "スキーマ 'open.xml' を読み込めません。\n2 行目: 終了タグが開始タグと一致しません。"},
    };
    for (const Said &row : rows) {
        try {
            Validator({folder.path()}).validate(parsed("<r xmlns='x-schema:" + row.input + "'/>"));
            ADD_FAILURE() << row.input.toStdString();
        } catch (const runtime::Error &error) {
            EXPECT_EQ(error.description().toStdString(), row.sentences);
        }
    }
}

} // namespace

} // namespace quillon::xdr

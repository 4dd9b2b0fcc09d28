#include "platform/xml/engine/child_process.h"
#include "schemas/fetched_schemas.h"
#include "schemas/schema_finder.h"
#include "schemas/schema_words.h"
#include "tests/platform/xml/xml_test_support.h"

#include <sys/stat.h>

namespace quillon::schemas {

namespace {

using xml::test::Files;

const std::string Xsd = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                        "<xs:element name='r'/></xs:schema>";
const std::string XsdOfN =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:n'>"
    "<xs:element name='r'/></xs:schema>";
const std::string Dtd = "<!ELEMENT r ANY>";
const std::string Rng = "<element name='r' xmlns='http://relaxng.org/ns/structure/1.0'><text/>"
                        "</element>";
const std::string Sch = "<schema xmlns='http://purl.oclc.org/dsdl/schematron'/>";
const std::string Xdr = "<Schema xmlns='urn:schemas-microsoft-com:xml-data'>"
                        "<ElementType name='r'/></Schema>";
const std::string Instance = " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";

/// Documents in a folder with schemas, and what is said of them.
class SchemaFinderTest : public testing::Test {
protected:
    SchemaFinderTest() {
        QDir(files.path("")).mkpath("docs/sub");
        for (const auto &[name, text] : std::vector<std::pair<QString, std::string>>{
                 {"docs/order.xsd", Xsd},
                 {"docs/n.xsd", XsdOfN},
                 {"docs/order.dtd", Dtd},
                 {"docs/sub/order.rng", Rng},
                 {"docs/order.sch", Sch},
                 {"docs/order.rnc", "# <!ELEMENT\nelement r { text }"},
                 {"docs/order.xdr", Xdr},
                 {"docs/broken.xsd", "<xs:schema"},
                 {"docs/名前 1.xsd", Xsd},
                 {"above.xsd", Xsd},
                 {"secret.txt", Xsd}})
            files.write(name, text);
    }

    FoundSchemas find(const std::string &document, FinderRequest request = {}) {
        request.references = referencesOf(xml::test::parsed(document));
        if (request.documentPath.isNull())
            request.documentPath = files.path("docs/doc.xml");
        request.fetchedFolder = files.path("fetched");
        qputenv("XML_CATALOG_FILES", files.path("catalog.xml").toUtf8());
        const IsKnown nothing = [](const QString &) { return false; };
        return unpacked(xml::runInChild([&] { return packed(findSchemas(request, nothing)); }, {}));
    }
    /// All links with their states, a line each.
    std::string told(const std::string &document, const FinderRequest &request = {}) {
        QStringList lines;
        for (const SchemaLink &link : find(document, request).links)
            lines.append(linkWords(link) + u' ' + stateWords(link));
        return lines.join(u'\n').toStdString();
    }
    void catalog(const std::string &entries) {
        files.write("catalog.xml", "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'>" +
                                       entries + "</catalog>");
    }

    Files files;
};

TEST_F(SchemaFinderTest, SaysWhichSchemaIsInForceOrWhyNot) {
    const struct {
        std::string document;
        std::string told;
    } cases[] = {
        {"<r/>", ""},
        {"<!DOCTYPE html><html/>", ""},
        {"<!DOCTYPE r [<!ENTITY e 'x'>]><r/>", ""},
        {"<!DOCTYPE r [<!ELEMENT r ANY>]><r/>", "内部サブセット（内部サブセット） 使用中"},
        {"<!DOCTYPE r SYSTEM 'order.dtd'><r/>", "order.dtd（DOCTYPE） 使用中"},
        {"<!DOCTYPE r SYSTEM 'no.dtd'><r/>",
         "no.dtd（DOCTYPE） ファイル 'no.dtd' が見つかりません。"},
        {"<!DOCTYPE r PUBLIC '-//X//Y' 'http://x.example/y.dtd'><r/>",
         "y.dtd（DOCTYPE） 'http://x.example/y.dtd' "
         "はネットワーク上のアドレスです。「取得」を押すまで接続しません。"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation=' order.xsd '/>",
         "order.xsd（xsi:noNamespaceSchemaLocation） 使用中"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='./sub/../order.xsd'/>",
         "order.xsd（xsi:noNamespaceSchemaLocation） 使用中"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='../above.xsd'/>",
         "above.xsd（xsi:noNamespaceSchemaLocation） 使用中"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='../secret.txt'/>",
         "secret.txt（xsi:noNamespaceSchemaLocation） '../secret.txt' "
         "は文書のフォルダーの外にあり、スキーマの拡張子 (.xsd、.dtd、.rng、.rnc、.sch、.xdr) "
         "を持たないため、読み込みません。"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='%E5%90%8D%E5%89%8D%201.xsd'/>",
         "名前 1.xsd（xsi:noNamespaceSchemaLocation） 使用中"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='file://other/order.xsd'/>",
         "order.xsd（xsi:noNamespaceSchemaLocation） 'file://other/order.xsd' "
         "は別のコンピューター上のファイルです。読み込みません。"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='\\\\other\\order.xsd'/>",
         "\\\\other\\order.xsd（xsi:noNamespaceSchemaLocation） '\\\\other\\order.xsd' "
         "は別のコンピューター上のファイルです。読み込みません。"},
        {"<r" + Instance + "xsi:noNamespaceSchemaLocation='ftp://x.example/order.xsd'/>",
         "order.xsd（xsi:noNamespaceSchemaLocation） 'ftp://x.example/order.xsd' "
         "は対応していないアドレスです。https で始まるアドレスだけを取得できます。"},
        {"<r xmlns='urn:n'" + Instance + "xsi:schemaLocation='urn:n n.xsd urn:m no.xsd'/>",
         "n.xsd（xsi:schemaLocation） 使用中\n"
         "no.xsd（xsi:schemaLocation） ファイル 'no.xsd' が見つかりません。"},
        {"<r xmlns='urn:n'" + Instance + "xsi:schemaLocation='urn:n n.xsd urn:m broken.xsd'/>",
         "n.xsd（xsi:schemaLocation） 使用中\n"
         "broken.xsd（xsi:schemaLocation） スキーマ 'broken.xsd' を読み込めません。\n"
         "1 行目: 閉じていない構文があります。"},
        {"<r xmlns:s='urn:other' s:schemaLocation='urn:n n.xsd'/>", ""},
        {"<?xml-model href='order.xsd'?><r/>", "order.xsd（xml-model） 使用中"},
        {"<?xml-model href='sub/order.rng' "
         "schematypens='http://relaxng.org/ns/structure/1.0'?>"
         "<?xml-model href=\"order.sch\" type=\"application/xml\"?>"
         "<?xml-model href='order.rnc'?><?xml-model type='x'?>"
         "<?xml-model href='n.nvdl' schematypens='urn:nvdl'?><r/>",
         "order.rng（xml-model） 使用中\norder.sch（xml-model） 使用中\n"
         "order.rnc（xml-model） 使用中\n"
         "（xml-model） xml-model 命令に href がありません。\n"
         "n.nvdl（xml-model） 'n.nvdl' のスキーマ言語 'urn:nvdl' には対応していません。"},
        {"<r xmlns='x-schema:order.xdr'/>", "order.xdr（x-schema:） 使用中"},
        {"<r xmlns='x-schema:#s'/>",
         "#s（x-schema:） '#s' は文書の中のスキーマです。候補の表示には使用できません。"},
        // What comes first counts, what fails does not.
        {"<!DOCTYPE r SYSTEM 'order.dtd'><r" + Instance +
             "xsi:noNamespaceSchemaLocation='order.xsd'/>",
         "order.dtd（DOCTYPE） 使用中\norder.xsd（xsi:noNamespaceSchemaLocation） "
         "使用していません。上にあるスキーマが優先されます。"},
        {"<!DOCTYPE r SYSTEM 'no.dtd'><?xml-model href='order.sch'?><r" + Instance +
             "xsi:noNamespaceSchemaLocation='order.xsd'/>",
         "no.dtd（DOCTYPE） ファイル 'no.dtd' が見つかりません。\n"
         "order.xsd（xsi:noNamespaceSchemaLocation） 使用中\norder.sch（xml-model） 使用中"},
    };
    for (const auto &at : cases)
        EXPECT_EQ(told(at.document), at.told) << at.document;
}

TEST_F(SchemaFinderTest, ADocumentWithoutAFolderSaysSo) {
    const std::string document = "<r" + Instance + "xsi:noNamespaceSchemaLocation='order.xsd'/>";
    EXPECT_EQ(told(document, {.documentPath = ""}),
              "order.xsd（xsi:noNamespaceSchemaLocation） "
              "文書がまだ保存されていないため、'order.xsd' の場所がわかりません。");
    const auto links = find(document, {.documentPath = "https://x.example/a/doc.xml"}).links;
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].fetchable, "https://x.example/a/order.xsd");
}

TEST_F(SchemaFinderTest, TheUsersChoiceAndRulesHaveTheirPlaces) {
    const std::string named = "<r" + Instance + "xsi:noNamespaceSchemaLocation='order.xsd'/>";
    const QString rng = files.path("docs/sub/order.rng");
    EXPECT_EQ(told(named, {.choice = rng}),
              "order.rng（この文書用に選択） 使用中\norder.xsd（xsi:noNamespaceSchemaLocation） "
              "使用していません。上にあるスキーマが優先されます。");
    EXPECT_EQ(told(named, {.choice = "/nowhere/a.xsd"}),
              "a.xsd（この文書用に選択） ファイル '/nowhere/a.xsd' が見つかりません。\n"
              "order.xsd（xsi:noNamespaceSchemaLocation） 使用中");
    const std::string inForce = "order.rng（規則） 使用中";
    const struct {
        SchemaRule rule;
        std::string told;
    } cases[] = {
        {{"*.xml", "", "", rng}, inForce}, {{"D?C.XML", "", "", rng}, inForce},
        {{"*.xm", "", "", rng}, ""},       {{"", "r", "", rng}, inForce},
        {{"", "q", "", rng}, ""},          {{"", "", "urn:x", rng}, inForce},
        {{"", "", "urn:y", rng}, ""},      {{"*.xml", "q", "", rng}, ""},
        {{"docs", "", "", rng}, ""},       {{"", "", "", rng}, ""},
    };
    for (const auto &at : cases)
        EXPECT_EQ(told("<r xmlns='urn:x'/>", {.rules = {at.rule}}), at.told);
    EXPECT_EQ(told("<r/>", {.rules = {{"*.xml", "", "", rng}, {"", "r", "", rng}}}),
              inForce + "\norder.rng（規則） 使用していません。上にあるスキーマが優先されます。");
}

TEST_F(SchemaFinderTest, CatalogsAnswerForIdentifiersAddressesAndNamespaces) {
    const std::string folder = "file://" + files.path("docs").toStdString();
    catalog("<public publicId='-//X//Y' uri='" + folder +
            "/order.dtd'/>"
            "<system systemId='http://x.example/s.dtd' uri='docs/order.dtd'/>"
            "<uri name='urn:n' uri='docs/n.xsd'/>"
            "<uri name='http://x.example/order.xsd' uri='docs/order.xsd'/>"
            "<rewriteURI uriStartString='http://x.example/all/' rewritePrefix='docs/sub/'/>"
            "<rewriteSystem systemIdStartString='http://x.example/system/' "
            "rewritePrefix='docs/sub/'/>"
            "<uri name='urn:away' uri='http://x.example/away.xsd'/>"
            "<uri name='urn:host' uri='file://host/away.xsd'/>"
            "<uri name='urn:gone' uri='docs/gone.xsd'/>");
    const struct {
        std::string document;
        std::string told;
    } cases[] = {
        {"<!DOCTYPE r PUBLIC '-//X//Y' 'http://x.example/y.dtd'><r/>",
         "order.dtd（DOCTYPE、カタログ） 使用中"},
        {"<!DOCTYPE r SYSTEM 'http://x.example/s.dtd'><r/>",
         "order.dtd（DOCTYPE、カタログ） 使用中"},
        {"<r xmlns='urn:n'/>", "n.xsd（カタログ） 使用中"},
        {"<r xmlns='urn:n'" + Instance + "xsi:schemaLocation='urn:n http://y.example/n.xsd'/>",
         "n.xsd（xsi:schemaLocation、カタログ） 使用中\n"
         "n.xsd（カタログ） 使用していません。上にあるスキーマが優先されます。"},
        {"<?xml-model href='http://x.example/order.xsd'?><r/>",
         "order.xsd（xml-model、カタログ） 使用中"},
        {"<?xml-model href='http://x.example/system/order.rng'?><r/>",
         "order.rng（xml-model、カタログ） 使用中"},
        {"<?xml-model href='http://x.example/all/order.rng'?><r/>",
         "order.rng（xml-model、カタログ） 使用中"},
        {"<r xmlns='urn:away'/>", "urn:away（カタログ） カタログが 'urn:away' "
                                  "に対してネットワーク上のアドレス 'http://x.example/away.xsd' "
                                  "を示しています。読み込みません。"},
        {"<r xmlns='urn:host'/>", "urn:host（カタログ） カタログが 'urn:host' "
                                  "に対してネットワーク上のアドレス 'file://host/away.xsd' "
                                  "を示しています。読み込みません。"},
    };
    for (const auto &at : cases)
        EXPECT_EQ(told(at.document), at.told) << at.document;
}

TEST_F(SchemaFinderTest, HostileCatalogsReachNothingAndHoldNobodyUp) {
    const xml::test::Listener listener;
    const std::string address = listener.url("c.xml");
    ASSERT_EQ(::mkfifo(files.path("pipe").toUtf8().constData(), 0600), 0);
    const std::string inForce = "order.dtd（DOCTYPE） 使用中";
    for (const std::string &entries :
         {"<nextCatalog catalog='" + address + "'/>",
          "<delegateSystem systemIdStartString='order' catalog='" + address +
              "'/>"
              "<delegatePublic publicIdStartString='-' catalog='" +
              address +
              "'/>"
              "<delegateURI uriStartString='urn:' catalog='" +
              address + "'/>",
          std::string("<nextCatalog catalog='catalog.xml'/>"),
          std::string("<nextCatalog catalog='pipe'/><nextCatalog catalog='/dev/zero'/>"),
          std::string("<not-closed>"), std::string()}) {
        catalog(entries);
        EXPECT_EQ(told("<!DOCTYPE r PUBLIC '-//A' 'order.dtd'><r/>"), inForce) << entries;
        EXPECT_EQ(told("<r xmlns='urn:n'/>"), "") << entries;
    }
    EXPECT_FALSE(listener.wasCalled());
}

TEST_F(SchemaFinderTest, WhatWasFetchedIsFoundAsAtItsAddress) {
    const FetchedSchemas fetched(files.path("fetched"));
    fetched.keep("http://x.example/a/main.xsd",
                 "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>"
                 "<xs:include schemaLocation='../b/part.xsd'/>"
                 "<xs:include schemaLocation='none.xsd'/></xs:schema>");
    fetched.keep("https://x.example/b/part.xsd", QByteArray::fromStdString(Xsd));
    const std::string document =
        "<r" + Instance + "xsi:noNamespaceSchemaLocation='https://x.example/a/main.xsd'/>";
    const FoundSchemas found = find(document);
    EXPECT_EQ(linkWords(found.links.at(0)), "main.xsd（xsi:noNamespaceSchemaLocation、取得済み）");
    EXPECT_EQ(found.files.size(), 2U);
    EXPECT_EQ(found.missing, QStringList("none.xsd"));
    fetched.clear();
    EXPECT_EQ(find(document).links.at(0).fetchable, "https://x.example/a/main.xsd");
}

TEST(FetchedSchemas, KeepWithinTheirFolder) {
    const FetchedSchemas fetched("/c");
    for (const char *address :
         {"ftp://x/a", "file:///a", "/a", "https://", "https://u:p@x/a", "http://x:81/a"})
        EXPECT_EQ(fetched.pathOf(address), "") << address;
    QStringList paths;
    for (const char *address :
         {"https://x/a", "https://x/a/", "https://x/a/b.xsd", "https://x:81/a", "https://x",
          "https://x/../../etc/a", "https://x/%2e%2e/%2e%2e/a", "https://x/..%2f..%2fa",
          "https://x/a?b=../c", "https://x/.hidden"}) {
        const QString path = fetched.pathOf(address);
        EXPECT_TRUE(path.startsWith("/c/") && !path.contains("/..")) << path.toStdString();
        paths.append(path);
    }
    EXPECT_EQ(fetched.pathOf("http://x/a#part"), paths.first());
    paths.removeDuplicates();
    // Two of them are the same address, written in two ways.
    EXPECT_GE(paths.size(), 9);
}

} // namespace

} // namespace quillon::schemas

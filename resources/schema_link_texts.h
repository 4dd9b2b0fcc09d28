#pragma once

#include <QStringView>

/// What is said of the schemas that a document has.
namespace quillon::resources::schema_link_texts {

// How a schema was found.
inline constexpr QStringView ByChoice = u"この文書用に選択";
inline constexpr QStringView ByInternalSubset = u"内部サブセット";
inline constexpr QStringView ByDocumentType = u"DOCTYPE";
inline constexpr QStringView BySchemaLocation = u"xsi:schemaLocation";
inline constexpr QStringView ByNoNamespaceSchemaLocation = u"xsi:noNamespaceSchemaLocation";
inline constexpr QStringView ByModelInstruction = u"xml-model";
inline constexpr QStringView ByXdrNamespace = u"x-schema:";
inline constexpr QStringView ByRule = u"規則";
inline constexpr QStringView ByCatalog = u"カタログ";
/// Behind one of these, where the file comes from.
inline constexpr QStringView ThroughCatalog = u"%1、カタログ";
inline constexpr QStringView Fetched = u"%1、取得済み";
inline constexpr QStringView BuiltIn = u"%1、内蔵";

// What is said of one. %1 is its name, %2 how it was found.
inline constexpr QStringView LinkWords = u"%1（%2）";
inline constexpr QStringView InternalSubsetName = u"内部サブセット";
inline constexpr QStringView LanguageUnknown = u"不明";
inline constexpr QStringView InForce = u"使用中";
inline constexpr QStringView Unused = u"未使用";
inline constexpr QStringView Unfetched = u"未取得";
inline constexpr QStringView Useless = u"使用不可";
inline constexpr QStringView NotAsked = u"使用していません。上にあるスキーマが優先されます。";

// The line in the status bar. %1 is what is said of the first schema.
inline constexpr QStringView AndOthers = u"%1 ほか %2 件";
inline constexpr QStringView NoSchema = u"スキーマなし";
inline constexpr QStringView Finding = u"検索中...";
/// %2 is why.
inline constexpr QStringView Unusable = u"%1 を使用できません。%2";

// Why a schema cannot be used.
inline constexpr QStringView MissingFile = u"ファイル '%1' が見つかりません。";
inline constexpr QStringView NoFolder =
    u"文書がまだ保存されていないため、'%1' の場所がわかりません。";
inline constexpr QStringView DocumentIsElsewhere =
    u"文書がネットワーク上にあるため、'%1' は読み込みません。";
inline constexpr QStringView OnTheNetwork =
    u"'%1' はネットワーク上のアドレスです。「取得」を押すまで接続しません。";
inline constexpr QStringView NotFetchable =
    u"'%1' は対応していないアドレスです。https で始まるアドレスだけを取得できます。";
inline constexpr QStringView OnOtherMachine =
    u"'%1' は別のコンピューター上のファイルです。読み込みません。";
inline constexpr QStringView CatalogLeadsAway =
    u"カタログが '%1' に対してネットワーク上のアドレス '%2' を示しています。読み込みません。";
inline constexpr QStringView OutsideFolder =
    u"'%1' は文書のフォルダーの外にあり、スキーマの拡張子 "
    u"(.xsd、.dtd、.rng、.rnc、.sch、.xdr) を持たないため、読み込みません。";
inline constexpr QStringView UnknownLanguage = u"'%1' のスキーマ言語 '%2' には対応していません。";
inline constexpr QStringView NoLocation = u"xml-model 命令に href がありません。";
inline constexpr QStringView InDocument =
    u"'%1' は文書の中のスキーマです。候補の表示には使用できません。";

// Fetching. %1 is an address.
inline constexpr QStringView AskFetch =
    u"次のアドレスからスキーマを取得します。接続するのはこのアドレスだけです。\n\n%1\n\n"
    u"よろしいですか？";
inline constexpr QStringView AskRedirect =
    u"サーバーが、別の場所からの取得を求めています。\n\n%1\n\nこの場所に接続しますか？";
inline constexpr QStringView Fetching = u"スキーマを取得しています...";
inline constexpr QStringView FetchDone = u"%1 を取得しました。";
/// %2 is why.
inline constexpr QStringView CannotFetch = u"%1 を取得できません。\n%2";
inline constexpr QStringView BadStatus = u"%1 を取得できません。\nサーバーの応答コードは %2 です。";
inline constexpr QStringView TooLarge = u"%1 を取得できません。\n16 MB を超えています。";
inline constexpr QStringView NoSchemaThere =
    u"%1 にあるのはスキーマではありません。保存しませんでした。";
inline constexpr QStringView AskClearFetched = u"取得したスキーマ %1 件を削除しますか？";

// Choosing.
inline constexpr QStringView ChooseTitle = u"この文書で使用するスキーマの選択";
inline constexpr QStringView DialogFilter = u"スキーマ(*.xsd, *.dtd, *.rng, *.rnc, *.sch, *.xdr, "
                                            u"*.xml)|*.xsd;*.dtd;*.rng;*.rnc;*.sch;*.xdr;*.xml|"
                                            u"すべてのファイル(*.*)|*";

// Naming a schema in the document.
inline constexpr QStringView NotASchema =
    u"'%1' はスキーマではありません。DTD、XML Schema、XDR、RELAX NG、Schematron "
    u"を選択してください。";
inline constexpr QStringView DocumentIsReadOnly = u"文書は読み取り専用です。";
inline constexpr QStringView CannotBeWritten = u"この名前は文書型宣言に書けません。";
inline constexpr QStringView HasOtherNamespace =
    u"ルート要素が別の名前空間に属しているため、x-schema: の名前空間を指定できません。";
inline constexpr QStringView NoRootToBind = u"文書にルート要素がありません。";

// Making a schema from the document.
inline constexpr QStringView Creating = u"スキーマを作成しています...";
inline constexpr QStringView SaveTitle = u"スキーマの保存";
inline constexpr QStringView SaveFilter = u"XML Schema(*.xsd)|*.xsd|DTD(*.dtd)|*.dtd";
inline constexpr QStringView Created = u"%1 を作成しました。";
inline constexpr QStringView AskBindCreated = u"作成した '%1' をこの文書に結び付けますか？";

} // namespace quillon::resources::schema_link_texts

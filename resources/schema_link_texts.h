#pragma once

#include "resources/text.h"

/// What is said of the schemas that a document has.
namespace quillon::resources::schema_link_texts {

// How a schema was found.
inline constexpr Text ByChoice = u"この文書用に選択";
inline constexpr Text ByInternalSubset = u"内部サブセット";
inline constexpr Text ByDocumentType = u"DOCTYPE";
inline constexpr Text BySchemaLocation = u"xsi:schemaLocation";
inline constexpr Text ByNoNamespaceSchemaLocation = u"xsi:noNamespaceSchemaLocation";
inline constexpr Text ByModelInstruction = u"xml-model";
inline constexpr Text ByXdrNamespace = u"x-schema:";
inline constexpr Text ByRule = u"規則";
inline constexpr Text ByCatalog = u"カタログ";
/// Behind one of these, where the file comes from.
inline constexpr Text ThroughCatalog = u"%1、カタログ";
inline constexpr Text Fetched = u"%1、取得済み";
inline constexpr Text BuiltIn = u"%1、内蔵";

// What is said of one. %1 is its name, %2 how it was found.
inline constexpr Text LinkWords = u"%1（%2）";
inline constexpr Text InternalSubsetName = u"内部サブセット";
inline constexpr Text LanguageUnknown = u"不明";
inline constexpr Text InForce = u"使用中";
inline constexpr Text Unused = u"未使用";
inline constexpr Text Unfetched = u"未取得";
inline constexpr Text Useless = u"使用不可";
inline constexpr Text NotAsked = u"使用していません。上にあるスキーマが優先されます。";

// The line in the status bar. %1 is what is said of the first schema.
inline constexpr Text AndOthers = u"%1 ほか %2 件";
inline constexpr Text NoSchema = u"スキーマなし";
inline constexpr Text Finding = u"検索中...";
/// %2 is why.
inline constexpr Text Unusable = u"%1 を使用できません。%2";

// Why a schema cannot be used.
inline constexpr Text MissingFile = u"ファイル '%1' が見つかりません。";
inline constexpr Text NoFolder = u"文書がまだ保存されていないため、'%1' の場所がわかりません。";
inline constexpr Text DocumentIsElsewhere =
    u"文書がネットワーク上にあるため、'%1' は読み込みません。";
inline constexpr Text OnTheNetwork =
    u"'%1' はネットワーク上のアドレスです。「取得」を押すまで接続しません。";
inline constexpr Text NotFetchable =
    u"'%1' は対応していないアドレスです。https で始まるアドレスだけを取得できます。";
inline constexpr Text OnOtherMachine =
    u"'%1' は別のコンピューター上のファイルです。読み込みません。";
inline constexpr Text CatalogLeadsAway =
    u"カタログが '%1' に対してネットワーク上のアドレス '%2' を示しています。読み込みません。";
inline constexpr Text OutsideFolder =
    u"'%1' は文書のフォルダーの外にあり、スキーマの拡張子 "
    u"(.xsd、.dtd、.rng、.rnc、.sch、.xdr) を持たないため、読み込みません。";
inline constexpr Text UnknownLanguage = u"'%1' のスキーマ言語 '%2' には対応していません。";
inline constexpr Text NoLocation = u"xml-model 命令に href がありません。";
inline constexpr Text InDocument = u"'%1' は文書の中のスキーマです。候補の表示には使用できません。";

// Fetching. %1 is an address.
inline constexpr Text AskFetch =
    u"次のアドレスからスキーマを取得します。接続するのはこのアドレスだけです。\n\n%1\n\n"
    u"よろしいですか？";
inline constexpr Text AskRedirect =
    u"サーバーが、別の場所からの取得を求めています。\n\n%1\n\nこの場所に接続しますか？";
inline constexpr Text Fetching = u"スキーマを取得しています...";
inline constexpr Text FetchDone = u"%1 を取得しました。";
/// %2 is why.
inline constexpr Text CannotFetch = u"%1 を取得できません。\n%2";
inline constexpr Text BadStatus = u"%1 を取得できません。\nサーバーの応答コードは %2 です。";
inline constexpr Text TooLarge = u"%1 を取得できません。\n16 MB を超えています。";
inline constexpr Text NoSchemaThere = u"%1 にあるのはスキーマではありません。保存しませんでした。";
inline constexpr Text AskClearFetched = u"取得したスキーマ %1 件を削除しますか？";

// Choosing.
inline constexpr Text ChooseTitle = u"この文書で使用するスキーマの選択";
inline constexpr Text DialogFilter = u"スキーマ(*.xsd, *.dtd, *.rng, *.rnc, *.sch, *.xdr, "
                                     u"*.xml)|*.xsd;*.dtd;*.rng;*.rnc;*.sch;*.xdr;*.xml|"
                                     u"すべてのファイル(*.*)|*";

// Naming a schema in the document.
inline constexpr Text NotASchema =
    u"'%1' はスキーマではありません。DTD、XML Schema、XDR、RELAX NG、Schematron "
    u"を選択してください。";
inline constexpr Text DocumentIsReadOnly = u"文書は読み取り専用です。";
inline constexpr Text CannotBeWritten = u"この名前は文書型宣言に書けません。";
inline constexpr Text HasOtherNamespace =
    u"ルート要素が別の名前空間に属しているため、x-schema: の名前空間を指定できません。";
inline constexpr Text NoRootToBind = u"文書にルート要素がありません。";

// Making a schema from the document.
inline constexpr Text Creating = u"スキーマを作成しています...";
inline constexpr Text SaveTitle = u"スキーマの保存";
inline constexpr Text SaveFilter = u"XML Schema(*.xsd)|*.xsd|DTD(*.dtd)|*.dtd";
inline constexpr Text Created = u"%1 を作成しました。";
inline constexpr Text AskBindCreated = u"作成した '%1' をこの文書に結び付けますか？";

} // namespace quillon::resources::schema_link_texts

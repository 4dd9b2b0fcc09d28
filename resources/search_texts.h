#pragma once

#include <QString>

/// What searching and replacing says. %1, %2 stand for what the sentence names.
namespace quillon::resources::search_texts {

// Patterns
inline constexpr QStringView NothingToFind = u"検索する文字列を入力してください。";
inline constexpr QStringView TooManySteps =
    u"正規表現の照合に手間がかかりすぎるため、検索を中止しました。正規表現を見直してください。";
inline constexpr QStringView NoSuchGroup =
    u"置換後の文字列の %1 に当たるグループが、正規表現にありません。";

// Why a place cannot be replaced
inline constexpr QStringView NamesLocked = u"要素・属性名はロックされています。";
inline constexpr QStringView NotAName = u"「%1」は名前として使用できません。";
inline constexpr QStringView AttributeExists = u"同じ要素に属性「%1」が 2 つできてしまいます。";
inline constexpr QStringView UndeclaredPrefix =
    u"名前空間の接頭辞「%1」は、ここでは宣言されていません。";
inline constexpr QStringView PrefixInUse =
    u"接頭辞「%1」を使用する名前が残るため、その宣言の名前は変更できません。";
inline constexpr QStringView DefaultAttribute =
    u"文書型宣言の既定値による属性なので、名前は変更できません。";
inline constexpr QStringView InstructionTarget = u"処理命令の名前は変更できません。";
inline constexpr QStringView DeclarationIsFixed = u"XML 宣言は変更できません。";
inline constexpr QStringView CommentHyphens =
    u"コメントに「--」を含めることや、「-」で終わらせることはできません。";
inline constexpr QStringView InstructionEnd = u"処理命令に「?>」を含めることはできません。";
inline constexpr QStringView CDataEnd = u"CDATA セクションに「]]>」を含めることはできません。";
inline constexpr QStringView PartOfReference = u"実体参照の一部だけを置換することはできません。";
inline constexpr QStringView EmptyNamespace =
    u"接頭辞のある名前空間宣言の値を空にすることはできません。";

// What has been found and done; %L1, %L2 are numbers.
inline constexpr QStringView Searching = u"検索しています...";
inline constexpr QStringView Replacing = u"置換しています...";
inline constexpr QStringView NothingFound = u"見つかりませんでした。";
inline constexpr QStringView FoundFromTheTop = u"終わりまで検索したので、先頭に戻りました。";
inline constexpr QStringView PlacesFound = u"%L1 か所で見つかりました。";
inline constexpr QStringView NoQueryHits =
    u"検索の対象になる XPath の検索結果がありません。先に XPath で検索してください。";
inline constexpr QStringView CannotReplaceReadOnly =
    u"ドキュメントは読み取り専用なので、置換できません。";
inline constexpr QStringView Planned =
    u"%L1 か所を置換します。内容を確認して「実行」を押してください。";
inline constexpr QStringView PlannedLess = u"%L1 か所を置換します。%L2 "
                                           u"か所は置換できません。内容を確認して「実行」"
                                           u"を押してください。";
inline constexpr QStringView NothingTicked = u"置換する項目が選択されていません。";
inline constexpr QStringView PlanGivenUp = u"置換を取り消しました。";
inline constexpr QStringView Replaced = u"%L1 か所を置換しました。";
/// %3 is the reason for the first of them.
inline constexpr QStringView ReplacedLess =
    u"%L1 か所を置換しました。%L2 か所は置換できませんでした: %3";

/// What is wrong with a regular expression, by the library's own words; `offset` is the 0-based
/// place in it.
QString expressionFault(const QString &message, qsizetype offset);

} // namespace quillon::resources::search_texts

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
inline constexpr QStringView NothingPlanned =
    u"%L1 か所で見つかりましたが、置換できません。理由は一覧に表示されています。";
inline constexpr QStringView NothingTicked = u"置換する項目が選択されていません。";
inline constexpr QStringView PlanGivenUp = u"置換を取り消しました。";
inline constexpr QStringView Replaced = u"%L1 か所を置換しました。";
/// %3 is the reason for the first of them.
inline constexpr QStringView ReplacedLess =
    u"%L1 か所を置換しました。%L2 か所は置換できませんでした: %3";

// The dialog. Names are for screen readers, which are not to read access keys.
inline constexpr QStringView DialogTitle = u"検索と置換";
inline constexpr QStringView WhatLabel = u"検索する文字列(&N):";
inline constexpr QStringView WhatName = u"検索する文字列";
inline constexpr QStringView WithLabel = u"置換後の文字列(&P):";
inline constexpr QStringView WithName = u"置換後の文字列";
inline constexpr QStringView KindGroup = u"検索の方法";
inline constexpr QStringView KindPlain = u"文字列(&T)";
inline constexpr QStringView KindWildcards = u"ワイルドカード(&K)";
inline constexpr QStringView KindExpression = u"正規表現(&G)";
inline constexpr QStringView PlainHint = u"入力した文字列をそのまま検索します。";
inline constexpr QStringView WildcardsHint =
    u"*: 任意の文字列　?: 1 文字　#: 数字　[あいう]: いずれか　[!あいう]: それ以外";
inline constexpr QStringView ExpressionHint =
    u"置換後の文字列では　$1, $2: グループ　$&: 全体　\\n: 改行　\\t: タブ";
inline constexpr QStringView MatchCase = u"大文字と小文字を区別する(&C)";
inline constexpr QStringView WholeWord = u"単語単位で検索する(&W)";
inline constexpr QStringView MatchWidth = u"全角と半角、ひらがなとカタカナを区別する(&Z)";
inline constexpr QStringView PartsGroup = u"検索する場所";
inline constexpr QStringView ElementNames = u"要素名(&1)";
inline constexpr QStringView AttributeNames = u"属性名(&2)";
inline constexpr QStringView AttributeValues = u"属性値(&3)";
inline constexpr QStringView TextNodes = u"テキスト(&4)";
inline constexpr QStringView CDataNodes = u"CDATA(&5)";
inline constexpr QStringView Comments = u"コメント(&6)";
inline constexpr QStringView Instructions = u"処理命令(&7)";
inline constexpr QStringView NoParts = u"検索する場所を選択してください。";
inline constexpr QStringView ScopeGroup = u"検索する範囲";
inline constexpr QStringView ScopeDocument = u"ドキュメント全体(&D)";
inline constexpr QStringView ScopeSelection = u"選択したノードとその下(&S)";
inline constexpr QStringView ScopeQueryHits = u"XPath の検索結果とその下(&X)";
inline constexpr QStringView FindNextButton = u"次を検索(&F)";
inline constexpr QStringView FindAllButton = u"すべて検索(&A)";
inline constexpr QStringView ReplaceButton = u"置換(&R)";
inline constexpr QStringView ReplaceAllButton = u"すべて置換(&L)...";
inline constexpr QStringView ExecuteButton = u"実行(&E)";
inline constexpr QStringView DiscardButton = u"取り消し(&U)";
inline constexpr QStringView CloseButton = u"閉じる";
inline constexpr QStringView MessageName = u"結果";

/// What is wrong with a regular expression, by the library's own words; `offset` is the 0-based
/// place in it.
QString expressionFault(const QString &message, qsizetype offset);

} // namespace quillon::resources::search_texts

#pragma once

#include "resources/text.h"

#include <QString>

/// What searching and replacing says. %1, %2 stand for what the sentence names.
namespace quillon::resources::search_texts {

// Patterns
inline constexpr Text NothingToFind = u"検索する文字列を入力してください。";
inline constexpr Text TooManySteps =
    u"正規表現の照合に手間がかかりすぎるため、検索を中止しました。正規表現を見直してください。";
inline constexpr Text NoSuchGroup =
    u"置換後の文字列の %1 に当たるグループが、正規表現にありません。";

// Why a place cannot be replaced
inline constexpr Text NamesLocked = u"要素・属性名はロックされています。";
inline constexpr Text NotAName = u"「%1」は名前として使用できません。";
inline constexpr Text AttributeExists = u"同じ要素に属性「%1」が 2 つできてしまいます。";
inline constexpr Text UndeclaredPrefix = u"名前空間の接頭辞「%1」は、ここでは宣言されていません。";
inline constexpr Text PrefixInUse =
    u"接頭辞「%1」を使用する名前が残るため、その宣言の名前は変更できません。";
inline constexpr Text DefaultAttribute =
    u"文書型宣言の既定値による属性なので、名前は変更できません。";
inline constexpr Text InstructionTarget = u"処理命令の名前は変更できません。";
inline constexpr Text DeclarationIsFixed = u"XML 宣言は変更できません。";
inline constexpr Text CommentHyphens =
    u"コメントに「--」を含めることや、「-」で終わらせることはできません。";
inline constexpr Text InstructionEnd = u"処理命令に「?>」を含めることはできません。";
inline constexpr Text CDataEnd = u"CDATA セクションに「]]>」を含めることはできません。";
inline constexpr Text PartOfReference = u"実体参照の一部だけを置換することはできません。";
inline constexpr Text EmptyNamespace = u"接頭辞のある名前空間宣言の値を空にすることはできません。";

// What has been found and done; %L1, %L2 are numbers.
inline constexpr Text Searching = u"検索しています...";
inline constexpr Text Replacing = u"置換しています...";
inline constexpr Text NothingFound = u"見つかりませんでした。";
inline constexpr Text FoundFromTheTop = u"終わりまで検索したので、先頭に戻りました。";
inline constexpr Text PlacesFound = u"%L1 か所で見つかりました。";
inline constexpr Text NoQueryHits =
    u"検索の対象になる XPath の検索結果がありません。先に XPath で検索してください。";
inline constexpr Text CannotReplaceReadOnly = u"ドキュメントは読み取り専用なので、置換できません。";
inline constexpr Text Planned = u"%L1 か所を置換します。内容を確認して「実行」を押してください。";
inline constexpr Text PlannedLess = u"%L1 か所を置換します。%L2 "
                                    u"か所は置換できません。内容を確認して「実行」"
                                    u"を押してください。";
inline constexpr Text NothingPlanned =
    u"%L1 か所で見つかりましたが、置換できません。理由は一覧に表示されています。";
inline constexpr Text NothingTicked = u"置換する項目が選択されていません。";
inline constexpr Text PlanGivenUp = u"置換を取り消しました。";
inline constexpr Text Replaced = u"%L1 か所を置換しました。";
/// %3 is the reason for the first of them.
inline constexpr Text ReplacedLess = u"%L1 か所を置換しました。%L2 か所は置換できませんでした: %3";

// The dialog. Names are for screen readers, which are not to read access keys.
inline constexpr Text DialogTitle = u"検索と置換";
inline constexpr Text WhatLabel = u"検索する文字列(&N):";
inline constexpr Text WhatName = u"検索する文字列";
inline constexpr Text WithLabel = u"置換後の文字列(&P):";
inline constexpr Text WithName = u"置換後の文字列";
inline constexpr Text KindGroup = u"検索の方法";
inline constexpr Text KindPlain = u"文字列(&T)";
inline constexpr Text KindWildcards = u"ワイルドカード(&K)";
inline constexpr Text KindExpression = u"正規表現(&G)";
inline constexpr Text PlainHint = u"入力した文字列をそのまま検索します。";
inline constexpr Text WildcardsHint =
    u"*: 任意の文字列　?: 1 文字　#: 数字　[あいう]: いずれか　[!あいう]: それ以外";
inline constexpr Text ExpressionHint =
    u"置換後の文字列では　$1, $2: グループ　$&: 全体　\\n: 改行　\\t: タブ";
inline constexpr Text MatchCase = u"大文字と小文字を区別する(&C)";
inline constexpr Text WholeWord = u"単語単位で検索する(&W)";
inline constexpr Text MatchWidth = u"全角と半角、ひらがなとカタカナを区別する(&Z)";
inline constexpr Text PartsGroup = u"検索する場所";
inline constexpr Text ElementNames = u"要素名(&1)";
inline constexpr Text AttributeNames = u"属性名(&2)";
inline constexpr Text AttributeValues = u"属性値(&3)";
inline constexpr Text TextNodes = u"テキスト(&4)";
inline constexpr Text CDataNodes = u"CDATA(&5)";
inline constexpr Text Comments = u"コメント(&6)";
inline constexpr Text Instructions = u"処理命令(&7)";
inline constexpr Text NoParts = u"検索する場所を選択してください。";
inline constexpr Text ScopeGroup = u"検索する範囲";
inline constexpr Text ScopeDocument = u"ドキュメント全体(&D)";
inline constexpr Text ScopeSelection = u"選択したノードとその下(&S)";
inline constexpr Text ScopeQueryHits = u"XPath の検索結果とその下(&X)";
inline constexpr Text FindNextButton = u"次を検索(&F)";
inline constexpr Text FindAllButton = u"すべて検索(&A)";
inline constexpr Text ReplaceButton = u"置換(&R)";
inline constexpr Text ReplaceAllButton = u"すべて置換(&L)...";
inline constexpr Text ExecuteButton = u"実行(&E)";
inline constexpr Text DiscardButton = u"取り消し(&U)";
inline constexpr Text CloseButton = u"閉じる";
inline constexpr Text MessageName = u"結果";

/// What is wrong with a regular expression, by the library's own words; `offset` is the 0-based
/// place in it.
QString expressionFault(const QString &message, qsizetype offset);

} // namespace quillon::resources::search_texts

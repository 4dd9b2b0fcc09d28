#pragma once

#include "resources/text.h"

/// What is said of what may stand at a node.
namespace quillon::resources::candidate_texts {

// Why an element or attribute cannot be put there, or what comes of it.
inline constexpr Text NeedsMore = u"このあとに別の要素が必要です。";
inline constexpr Text NotHere = u"この位置には置けません。";
inline constexpr Text BreaksWhatFollows = u"ここに置くと、後に続く要素が正しくなくなります。";
inline constexpr Text Endless = u"自分自身を必要とするため、完成できません。";
inline constexpr Text ByWildcard = u"任意の要素として置けます。";
inline constexpr Text IsThere = u"既にあります。";

// Of a list as a whole.
inline constexpr Text OneRootOnly = u"ルート要素は 1 つだけです。";
inline constexpr Text NoElementsHere = u"ここに要素は置けません。";
inline constexpr Text NoChildrenOfNode = u"このノードに子は置けません。";
inline constexpr Text NoChildren = u"空要素のため、子を置けません。";
inline constexpr Text TextOnly = u"テキストだけを持つ要素のため、子要素を置けません。";
inline constexpr Text NoElementsLeft = u"置ける要素はありません。";
inline constexpr Text NoAttributes = u"属性は定義されていません。";
inline constexpr Text NoAttributesOfNode = u"このノードに属性は付けられません。";
/// %1: namespaces.
inline constexpr Text AnyElement = u"ほかに、任意の要素を置けます。";
inline constexpr Text AnyElementOf = u"ほかに、次の名前空間の要素を置けます: %1";
inline constexpr Text AnyElementNotOf = u"ほかに、次以外の名前空間の要素を置けます: %1";
inline constexpr Text NoNamespace = u"(名前空間なし)";
inline constexpr Text FromDocument = u"スキーマがないため、文書中で使われている名前です。";
inline constexpr Text UnknownToSchema = u"スキーマにない要素のため、文書中で使われている名前です。";
inline constexpr Text SchemaAwaited = u"スキーマを読み込んでいます...";
inline constexpr Text StillCounting = u"文書から集めています...";
inline constexpr Text NothingSeen = u"文書中に同じ例がありません。";

// The panel.
inline constexpr Text PanelName = u"候補";
inline constexpr Text ClosePanelName = u"候補パネルを閉じる";
inline constexpr Text TabsName = u"候補を入れる場所";
inline constexpr Text ChildTab = u"子";
inline constexpr Text ChildTabTip = u"子として追加";
inline constexpr Text AheadTab = u"前";
inline constexpr Text AheadTabTip = u"前に挿入";
inline constexpr Text BehindTab = u"後";
inline constexpr Text BehindTabTip = u"後に挿入";
inline constexpr Text AttributeTab = u"属性";
inline constexpr Text AttributeTabTip = u"属性を追加";
/// %1: the name of the tab, %2: how many there are; something is missing there.
inline constexpr Text TabWithCount = u"%1 (%2)";
inline constexpr Text TabWithNeeded = u"%1 (%2) !";
inline constexpr Text FilterName = u"候補の絞り込み";
inline constexpr Text FilterHint = u"絞り込み";
inline constexpr Text DetailsName = u"候補の説明";
inline constexpr Text NothingFound = u"一致する候補はありません。";
// In the menu of the tree. %1: how many more there are.
inline constexpr Text NoEntries = u"(候補はありません)";
inline constexpr Text MoreEntries = u"ほか %1 件 (候補パネルを開く)";

// What is asked when there is a choice. %1 is an element.
inline constexpr Text ChooseContent = u"要素「%1」に入れるものを選んでください。";
inline constexpr Text ChooseType = u"要素「%1」の型を選んでください。";
inline constexpr Text CannotBeMade =
    u"スキーマの名前が XML の名前として使えないため、「%1」を挿入できません。";

// What stands in an element.
inline constexpr Text EmptyContent = u"空要素";
inline constexpr Text TextContent{u"テキスト", "what an element holds"};
inline constexpr Text ElementContent{u"要素", "what an element holds"};
inline constexpr Text MixedContent = u"テキストと要素";
inline constexpr Text AnyContent = u"任意の内容";
/// %1: what stands in it, %2: the name of its type.
inline constexpr Text ContentOfType = u"%1 (型 %2)";

// Values. %1 is the value or values.
inline constexpr Text ListOf = u"%1 の並び";
inline constexpr Text Or = u" または ";
inline constexpr Text OneOf = u"値: %1";
inline constexpr Text Between = u"、";
inline constexpr Text MoreValues = u" ほか";
inline constexpr Text MatchesPattern = u"パターン %1";
inline constexpr Text HasLength = u"長さ %1";
inline constexpr Text HasMinLength = u"長さ %1 以上";
inline constexpr Text HasMaxLength = u"長さ %1 以下";
inline constexpr Text AtLeast = u"%1 以上";
inline constexpr Text MoreThan = u"%1 より大きい";
inline constexpr Text AtMost = u"%1 以下";
inline constexpr Text LessThan = u"%1 未満";
inline constexpr Text HasTotalDigits = u"全 %1 桁まで";
inline constexpr Text HasFractionDigits = u"小数 %1 桁まで";
inline constexpr Text DefaultValue = u"既定値 %1";
inline constexpr Text FixedValue = u"固定値 %1";
inline constexpr Text Mandatory = u"必須";

} // namespace quillon::resources::candidate_texts

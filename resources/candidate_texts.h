#pragma once

#include <QStringView>

/// What is said of what may stand at a node.
namespace quillon::resources::candidate_texts {

// Why an element or attribute cannot be put there, or what comes of it.
inline constexpr QStringView NeedsMore = u"このあとに別の要素が必要です。";
inline constexpr QStringView NotHere = u"この位置には置けません。";
inline constexpr QStringView BreaksWhatFollows =
    u"ここに置くと、後に続く要素が正しくなくなります。";
inline constexpr QStringView Endless = u"自分自身を必要とするため、完成できません。";
inline constexpr QStringView ByWildcard = u"任意の要素として置けます。";
inline constexpr QStringView IsThere = u"既にあります。";
inline constexpr QStringView IsCurrentName = u"現在の名前です。";

// Of a list as a whole.
inline constexpr QStringView OneRootOnly = u"ルート要素は 1 つだけです。";
inline constexpr QStringView NoElementsHere = u"ここに要素は置けません。";
inline constexpr QStringView NoChildrenOfNode = u"このノードに子は置けません。";
inline constexpr QStringView NoChildren = u"空要素のため、子を置けません。";
inline constexpr QStringView TextOnly = u"テキストだけを持つ要素のため、子要素を置けません。";
inline constexpr QStringView NoElementsLeft = u"置ける要素はありません。";
inline constexpr QStringView NoAttributes = u"属性は定義されていません。";
inline constexpr QStringView NoAttributesOfNode = u"このノードに属性は付けられません。";
/// %1: namespaces.
inline constexpr QStringView AnyElement = u"ほかに、任意の要素を置けます。";
inline constexpr QStringView AnyElementOf = u"ほかに、次の名前空間の要素を置けます: %1";
inline constexpr QStringView AnyElementNotOf = u"ほかに、次以外の名前空間の要素を置けます: %1";
inline constexpr QStringView NoNamespace = u"(名前空間なし)";
inline constexpr QStringView FromDocument = u"スキーマがないため、文書中で使われている名前です。";
inline constexpr QStringView UnknownToSchema =
    u"スキーマにない要素のため、文書中で使われている名前です。";
inline constexpr QStringView SchemaAwaited = u"スキーマを読み込んでいます...";
inline constexpr QStringView StillCounting = u"文書から集めています...";
inline constexpr QStringView NothingSeen = u"文書中に同じ例がありません。";

// The panel.
inline constexpr QStringView PanelName = u"候補";
inline constexpr QStringView ClosePanelName = u"候補パネルを閉じる";
inline constexpr QStringView TabsName = u"候補を入れる場所";
inline constexpr QStringView ChildTab = u"子";
inline constexpr QStringView ChildTabTip = u"子として追加";
inline constexpr QStringView AheadTab = u"前";
inline constexpr QStringView AheadTabTip = u"前に挿入";
inline constexpr QStringView BehindTab = u"後";
inline constexpr QStringView BehindTabTip = u"後に挿入";
inline constexpr QStringView AttributeTab = u"属性";
inline constexpr QStringView AttributeTabTip = u"属性を追加";
/// %1: the name of the tab, %2: how many there are; something is missing there.
inline constexpr QStringView TabWithCount = u"%1 (%2)";
inline constexpr QStringView TabWithNeeded = u"%1 (%2) !";
inline constexpr QStringView FilterName = u"候補の絞り込み";
inline constexpr QStringView FilterHint = u"絞り込み";
inline constexpr QStringView DetailsName = u"候補の説明";
inline constexpr QStringView NothingFound = u"一致する候補はありません。";
// In the menu of the tree. %1: how many more there are.
inline constexpr QStringView NoEntries = u"(候補はありません)";
inline constexpr QStringView MoreEntries = u"ほか %1 件 (候補パネルを開く)";

// What is asked when there is a choice. %1 is an element.
inline constexpr QStringView ChooseContent = u"要素「%1」に入れるものを選んでください。";
inline constexpr QStringView ChooseType = u"要素「%1」の型を選んでください。";
inline constexpr QStringView CannotBeMade =
    u"スキーマの名前が XML の名前として使えないため、「%1」を挿入できません。";

// What stands in an element.
inline constexpr QStringView EmptyContent = u"空要素";
inline constexpr QStringView TextContent = u"テキスト";
inline constexpr QStringView ElementContent = u"要素";
inline constexpr QStringView MixedContent = u"テキストと要素";
inline constexpr QStringView AnyContent = u"任意の内容";
/// %1: what stands in it, %2: the name of its type.
inline constexpr QStringView ContentOfType = u"%1 (型 %2)";

// Values. %1 is the value or values.
inline constexpr QStringView ListOf = u"%1 の並び";
inline constexpr QStringView Or = u" または ";
inline constexpr QStringView OneOf = u"値: %1";
inline constexpr QStringView Between = u"、";
inline constexpr QStringView MoreValues = u" ほか";
inline constexpr QStringView MatchesPattern = u"パターン %1";
inline constexpr QStringView HasLength = u"長さ %1";
inline constexpr QStringView HasMinLength = u"長さ %1 以上";
inline constexpr QStringView HasMaxLength = u"長さ %1 以下";
inline constexpr QStringView AtLeast = u"%1 以上";
inline constexpr QStringView MoreThan = u"%1 より大きい";
inline constexpr QStringView AtMost = u"%1 以下";
inline constexpr QStringView LessThan = u"%1 未満";
inline constexpr QStringView HasTotalDigits = u"全 %1 桁まで";
inline constexpr QStringView HasFractionDigits = u"小数 %1 桁まで";
inline constexpr QStringView DefaultValue = u"既定値 %1";
inline constexpr QStringView FixedValue = u"固定値 %1";
inline constexpr QStringView Mandatory = u"必須";

} // namespace quillon::resources::candidate_texts

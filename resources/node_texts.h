#pragma once

#include "resources/text.h"

/// What the commands on nodes say, and what assistive technology says of the items of the tree.
namespace quillon::resources::node_texts {

// The kinds of nodes.
inline constexpr Text Document = u"ドキュメント";
inline constexpr Text Element = u"要素";
inline constexpr Text Attribute = u"属性";
inline constexpr Text TextNode = u"テキスト";
inline constexpr Text Comment = u"コメント";
inline constexpr Text CDataSection = u"CDATA セクション";
inline constexpr Text Instruction = u"処理命令";
inline constexpr Text DocumentType = u"文書型宣言";
inline constexpr Text EntityReference = u"実体参照";

/// %1 is the kind of a tree item, %2 how deep it stands; the document is on level 1.
inline constexpr Text KindAndLevel = u"%1、レベル %2";
/// The editor that opens in the place of a caption.
inline constexpr Text LabelEditorName = u"名前または値の編集";

// Several nodes at once. %1 is their number.
inline constexpr Text SeveralSelected = u"%1 個のノードを選択しています。";
inline constexpr Text ConfirmDeleteSeveral = u"%1 個のノードを削除してもよろしいですか？";

// Why a command on nodes does nothing. %1 is the caption of the node that stands in the way.
inline constexpr Text CannotMoveUp = u"「%1」は上へ移動できないため、何も変更していません。";
inline constexpr Text CannotMoveDown = u"「%1」は下へ移動できないため、何も変更していません。";
inline constexpr Text CannotRaise = u"「%1」は一段上げることができないため、何も変更していません。";
inline constexpr Text CannotLower =
    u"「%1」は一段下げることができないため、何も変更していません。\n"
    u"直前に、移動先になる要素が必要です。";
inline constexpr Text CannotDuplicate = u"「%1」は複製できないため、何も変更していません。";
inline constexpr Text InstructionsAreNotInserted =
    u"処理命令と文書型宣言は挿入できないため、何も挿入していません。";
inline constexpr Text OnlyElementsAndComments =
    u"ドキュメントの直下に挿入できるのは要素とコメントだけのため、何も挿入していません。";
inline constexpr Text OnlyOneRoot =
    u"ルート要素は 1 つだけのため、2 つ以上の要素は挿入できません。何も挿入していません。";
inline constexpr Text SameAttributeTwice =
    u"同じ名前の属性「%1」が 2 つ以上あり、1 つの要素には挿入できません。\n"
    u"何も挿入していません。";
inline constexpr Text OneRootOnly =
    u"ルート要素は 1 つだけです。「%1」を変更すると 2 つ以上になるため、何も変更していません。";
inline constexpr Text TextUnderDocument =
    u"「%1」はルート要素の外に置けないため、何も変更していません。";
/// Where the name of an entity stands in its place.
inline constexpr Text ReferenceStays =
    u"実体 %1 の参照は移動も削除もできないため、何も変更していません。";

// Enclosing nodes in an element, and the reverse.
inline constexpr Text EnclosePrompt = u"選択したノードを囲む要素の名前を入力してください。";
inline constexpr Text CannotEnclose = u"「%1」は要素で囲めないため、何も変更していません。";
inline constexpr Text EncloseSiblingsOnly =
    u"1 つの要素で囲めるのは、同じ親を持つノードだけです。何も変更していません。";
inline constexpr Text CannotUnwrap =
    u"「%1」は要素ではないため、囲みを外せません。何も変更していません。";
inline constexpr Text RootStays =
    u"ルート要素「%1」の中に要素がないため、囲みを外せません。何も変更していません。";
/// %1 is the number of attributes.
inline constexpr Text UnwrapLosesAttributes =
    u"囲みを外すと、要素の属性 %1 個が失われます。よろしいですか？";

// Sorting the children of an element. What ends in Name is what assistive technology says.
inline constexpr Text SortTitle = u"子要素の並べ替え";
inline constexpr Text SortByGroup = u"並べ替えの基準";
inline constexpr Text SortByName = u"要素名(&N)";
inline constexpr Text SortByAttribute = u"属性の値(&A):";
inline constexpr Text SortAttributeName = u"基準にする属性の名前";
inline constexpr Text SortByPath = u"XPath 式の値(&X):";
inline constexpr Text SortPathName = u"基準にする XPath 式";
inline constexpr Text SortDescending = u"降順(&D)";
inline constexpr Text SortHint =
    u"数値だけの値は数の大きさで比べます。値のない要素は最後になります。";
inline constexpr Text SortAttributeMissing = u"属性の名前を入力してください。";
inline constexpr Text SortPathMissing = u"XPath 式を入力してください。";
inline constexpr Text CannotSort =
    u"「%1」には並べ替える子要素が 2 つ以上ないため、何も変更していません。";
inline constexpr Text CannotSortMixed =
    u"「%1」の子にはテキストがあり、並べ替えると文章の順序が変わります。\n"
    u"何も変更していません。";
inline constexpr Text Sorting = u"並べ替えています...";
inline constexpr Text SortedAlready = u"すでにこの順序に並んでいます。";

} // namespace quillon::resources::node_texts

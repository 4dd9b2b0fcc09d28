#pragma once

#include <QStringView>

/// What the commands on nodes say, and what assistive technology says of the items of the tree.
namespace quillon::resources::node_texts {

// The kinds of nodes.
inline constexpr QStringView Document = u"ドキュメント";
inline constexpr QStringView Element = u"要素";
inline constexpr QStringView Attribute = u"属性";
inline constexpr QStringView Text = u"テキスト";
inline constexpr QStringView Comment = u"コメント";
inline constexpr QStringView CDataSection = u"CDATA セクション";
inline constexpr QStringView Instruction = u"処理命令";
inline constexpr QStringView DocumentType = u"文書型宣言";
inline constexpr QStringView EntityReference = u"実体参照";

/// %1 is the kind of a tree item, %2 how deep it stands; the document is on level 1.
inline constexpr QStringView KindAndLevel = u"%1、レベル %2";
/// The editor that opens in the place of a caption.
inline constexpr QStringView LabelEditorName = u"名前または値の編集";

// Several nodes at once. %1 is their number.
inline constexpr QStringView SeveralSelected = u"%1 個のノードを選択しています。";
inline constexpr QStringView ConfirmDeleteSeveral = u"%1 個のノードを削除してもよろしいですか？";

// Why a command on nodes does nothing. %1 is the caption of the node that stands in the way.
inline constexpr QStringView CannotMoveUp = u"「%1」は上へ移動できないため、何も変更していません。";
inline constexpr QStringView CannotMoveDown =
    u"「%1」は下へ移動できないため、何も変更していません。";
inline constexpr QStringView CannotRaise =
    u"「%1」は一段上げることができないため、何も変更していません。";
inline constexpr QStringView CannotLower =
    u"「%1」は一段下げることができないため、何も変更していません。\n"
    u"直前に、移動先になる要素が必要です。";
inline constexpr QStringView CannotDuplicate = u"「%1」は複製できないため、何も変更していません。";
inline constexpr QStringView CannotDelete = u"「%1」は削除できないため、何も変更していません。";
inline constexpr QStringView InstructionsAreNotInserted =
    u"処理命令と文書型宣言は挿入できないため、何も挿入していません。";
inline constexpr QStringView OnlyElementsAndComments =
    u"ドキュメントの直下に挿入できるのは要素とコメントだけのため、何も挿入していません。";
inline constexpr QStringView OnlyOneRoot =
    u"ルート要素は 1 つだけのため、2 つ以上の要素は挿入できません。何も挿入していません。";
inline constexpr QStringView SameAttributeTwice =
    u"同じ名前の属性「%1」が 2 つ以上あり、1 つの要素には挿入できません。\n"
    u"何も挿入していません。";
inline constexpr QStringView OneRootOnly =
    u"ルート要素は 1 つだけです。「%1」を変更すると 2 つ以上になるため、何も変更していません。";
inline constexpr QStringView TextUnderDocument =
    u"「%1」はルート要素の外に置けないため、何も変更していません。";
/// Where the name of an entity stands in its place.
inline constexpr QStringView ReferenceStays =
    u"実体 %1 の参照は移動も削除もできないため、何も変更していません。";

// Enclosing nodes in an element, and the reverse.
inline constexpr QStringView EnclosePrompt = u"選択したノードを囲む要素の名前を入力してください。";
inline constexpr QStringView CannotEnclose = u"「%1」は要素で囲めないため、何も変更していません。";
inline constexpr QStringView EncloseSiblingsOnly =
    u"1 つの要素で囲めるのは、同じ親を持つノードだけです。何も変更していません。";
inline constexpr QStringView CannotUnwrap =
    u"「%1」は要素ではないため、囲みを外せません。何も変更していません。";
inline constexpr QStringView RootStays =
    u"ルート要素「%1」の中に要素がないため、囲みを外せません。何も変更していません。";
/// %1 is the number of attributes.
inline constexpr QStringView UnwrapLosesAttributes =
    u"囲みを外すと、要素の属性 %1 個が失われます。よろしいですか？";

// Sorting the children of an element. What ends in Name is what assistive technology says.
inline constexpr QStringView SortTitle = u"子要素の並べ替え";
inline constexpr QStringView SortByGroup = u"並べ替えの基準";
inline constexpr QStringView SortByName = u"要素名(&N)";
inline constexpr QStringView SortByAttribute = u"属性の値(&A):";
inline constexpr QStringView SortAttributeName = u"基準にする属性の名前";
inline constexpr QStringView SortByPath = u"XPath 式の値(&X):";
inline constexpr QStringView SortPathName = u"基準にする XPath 式";
inline constexpr QStringView SortDescending = u"降順(&D)";
inline constexpr QStringView SortHint =
    u"数値だけの値は数の大きさで比べます。値のない要素は最後になります。";
inline constexpr QStringView SortAttributeMissing = u"属性の名前を入力してください。";
inline constexpr QStringView SortPathMissing = u"XPath 式を入力してください。";
inline constexpr QStringView CannotSort =
    u"「%1」には並べ替える子要素が 2 つ以上ないため、何も変更していません。";
inline constexpr QStringView CannotSortMixed =
    u"「%1」の子にはテキストがあり、並べ替えると文章の順序が変わります。\n"
    u"何も変更していません。";
inline constexpr QStringView Sorting = u"並べ替えています...";
inline constexpr QStringView SortedAlready = u"すでにこの順序に並んでいます。";

} // namespace quillon::resources::node_texts

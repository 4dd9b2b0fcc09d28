#pragma once

#include "resources/text.h"

/// What the list of hits and its panel say.
namespace quillon::resources::hit_texts {

// The kinds of nodes.
inline constexpr Text Element = u"要素";
inline constexpr Text Attribute = u"属性";
inline constexpr Text TextNode = u"テキスト";
inline constexpr Text CDataSection = u"CDATA";
inline constexpr Text EntityReference = u"実体参照";
inline constexpr Text Instruction = u"処理命令";
inline constexpr Text Comment = u"コメント";
inline constexpr Text Document = u"ドキュメント";
inline constexpr Text DocumentType = u"文書型宣言";

/// Below the prompt of the search for captions.
inline constexpr Text FindWildcards =
    u"* は任意の文字列、? は任意の 1 文字、# は数字 1 文字、[ABC] はその中の 1 文字、"
    u"[!ABC] はそれ以外の 1 文字を表します。";

// Status bar. %1 is the row, %2 the number of rows.
inline constexpr Text PlaceInList = u"検索結果 %1 / %2";
inline constexpr Text LastHit = u"これより後の検索結果はありません。";
inline constexpr Text FirstHit = u"これより前の検索結果はありません。";
inline constexpr Text NoHits = u"検索結果はありません。";
// The same for the list of what is wrong.
inline constexpr Text PlaceInFaults = u"エラー %1 / %2";
inline constexpr Text LastFault = u"これより後のエラーはありません。";
inline constexpr Text FirstFault = u"これより前のエラーはありません。";
inline constexpr Text NoFaults = u"エラーはありません。";

// The panel. %1 is the number of rows, %2 what was searched for.
inline constexpr Text PanelName = u"一覧パネル";
inline constexpr Text PanelTabsName = u"一覧の種類";
inline constexpr Text HitsName = u"検索結果";
inline constexpr Text HitsTitle = u"検索結果 (%1)";
inline constexpr Text HitsToolTip = u"検索: %2\n%1 件";
inline constexpr Text HitsButton = u"検索結果: %1 件(&R)";
inline constexpr Text HitsButtonTip = u"検索結果の一覧を表示します。";
inline constexpr Text NoHitsYet =
    u"検索結果はありません。\nパスによる検索 (パスの入力欄)、「検索」(Ctrl+F)、"
    u"「検索と置換」(Ctrl+H) で見つかったものが、ここに表示されます。";
inline constexpr Text CopyRows = u"コピー";
inline constexpr Text CopyRowsName = u"一覧の行をコピー";
inline constexpr Text CopyRowsTip =
    u"選択した行 (2 行以上を選択していないときは、すべての行) をタブ区切りでコピーします。";
inline constexpr Text SaveRows = u"保存...";
inline constexpr Text SaveRowsName = u"一覧をファイルに保存";
inline constexpr Text SaveRowsTip =
    u"選択した行 (2 行以上を選択していないときは、すべての行) をタブ区切りのファイルに保存します。";
inline constexpr Text ClosePanelName = u"一覧パネルを閉じる";
inline constexpr Text ClosePanelTip = u"閉じる (Esc)";

// The columns.
inline constexpr Text KindColumn = u"種類";
inline constexpr Text PathColumn = u"パス";
inline constexpr Text TextColumn = u"テキスト";
inline constexpr Text FaultColumn = u"説明";
inline constexpr Text BeforeColumn = u"変更前";
inline constexpr Text AfterColumn = u"変更後";
inline constexpr Text ObstacleColumn = u"変更できない理由";
/// In place of the text of a row whose node is gone, until the row goes.
inline constexpr Text GoneRow = u"(削除されました)";

// Sorting, copying and saving of rows. %1 is the number of rows, %2 the file.
inline constexpr Text Sorting = u"並べ替えています...";
inline constexpr Text CollectingRows = u"一覧を作成しています...";
inline constexpr Text RowsCopied = u"%1 行をコピーしました。";
inline constexpr Text RowsSaved = u"%1 行を %2 に保存しました。";
inline constexpr Text SaveRowsTitle = u"一覧の保存";
inline constexpr Text SaveRowsFilter =
    u"タブ区切りテキスト(*.tsv)|*.tsv|テキストファイル(*.txt)|*.txt|すべてのファイル(*.*)|*.*";

} // namespace quillon::resources::hit_texts

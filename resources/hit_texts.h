#pragma once

#include <QStringView>

/// What the list of hits and its panel say.
namespace quillon::resources::hit_texts {

// The kinds of nodes.
inline constexpr QStringView Element = u"要素";
inline constexpr QStringView Attribute = u"属性";
inline constexpr QStringView Text = u"テキスト";
inline constexpr QStringView CDataSection = u"CDATA";
inline constexpr QStringView EntityReference = u"実体参照";
inline constexpr QStringView Instruction = u"処理命令";
inline constexpr QStringView Comment = u"コメント";
inline constexpr QStringView Document = u"ドキュメント";
inline constexpr QStringView DocumentType = u"文書型宣言";

/// Below the prompt of the search for captions.
inline constexpr QStringView FindWildcards =
    u"* は任意の文字列、? は任意の 1 文字、# は数字 1 文字、[ABC] はその中の 1 文字、"
    u"[!ABC] はそれ以外の 1 文字を表します。";

// Status bar. %1 is the row, %2 the number of rows.
inline constexpr QStringView PlaceInList = u"検索結果 %1 / %2";
inline constexpr QStringView LastHit = u"これより後の検索結果はありません。";
inline constexpr QStringView FirstHit = u"これより前の検索結果はありません。";
inline constexpr QStringView NoHits = u"検索結果はありません。";
// The same for the list of what is wrong.
inline constexpr QStringView PlaceInFaults = u"エラー %1 / %2";
inline constexpr QStringView LastFault = u"これより後のエラーはありません。";
inline constexpr QStringView FirstFault = u"これより前のエラーはありません。";
inline constexpr QStringView NoFaults = u"エラーはありません。";

// The panel. %1 is the number of rows, %2 what was searched for.
inline constexpr QStringView PanelName = u"一覧パネル";
inline constexpr QStringView PanelTabsName = u"一覧の種類";
inline constexpr QStringView HitsName = u"検索結果";
inline constexpr QStringView HitsTitle = u"検索結果 (%1)";
inline constexpr QStringView HitsToolTip = u"検索: %2\n%1 件";
inline constexpr QStringView HitsButton = u"検索結果: %1 件(&R)";
inline constexpr QStringView HitsButtonTip = u"検索結果の一覧を表示します。";
inline constexpr QStringView NoHitsYet =
    u"検索結果はありません。\nパスによる検索 (パスの入力欄)、「検索」(Ctrl+F)、"
    u"「検索と置換」(Ctrl+H) で見つかったものが、ここに表示されます。";
inline constexpr QStringView CopyRows = u"コピー";
inline constexpr QStringView CopyRowsName = u"一覧の行をコピー";
inline constexpr QStringView CopyRowsTip =
    u"選択した行 (2 行以上を選択していないときは、すべての行) をタブ区切りでコピーします。";
inline constexpr QStringView SaveRows = u"保存...";
inline constexpr QStringView SaveRowsName = u"一覧をファイルに保存";
inline constexpr QStringView SaveRowsTip =
    u"選択した行 (2 行以上を選択していないときは、すべての行) をタブ区切りのファイルに保存します。";
inline constexpr QStringView ClosePanel = u"閉じる";
inline constexpr QStringView ClosePanelName = u"一覧パネルを閉じる";
inline constexpr QStringView ClosePanelTip = u"閉じる (Esc)";

// The columns.
inline constexpr QStringView KindColumn = u"種類";
inline constexpr QStringView PathColumn = u"パス";
inline constexpr QStringView TextColumn = u"テキスト";
inline constexpr QStringView FaultColumn = u"説明";
inline constexpr QStringView BeforeColumn = u"変更前";
inline constexpr QStringView AfterColumn = u"変更後";
inline constexpr QStringView ObstacleColumn = u"変更できない理由";
/// In place of the text of a row whose node is gone, until the row goes.
inline constexpr QStringView GoneRow = u"(削除されました)";

// Sorting, copying and saving of rows. %1 is the number of rows, %2 the file.
inline constexpr QStringView Sorting = u"並べ替えています...";
inline constexpr QStringView CollectingRows = u"一覧を作成しています...";
inline constexpr QStringView RowsCopied = u"%1 行をコピーしました。";
inline constexpr QStringView RowsSaved = u"%1 行を %2 に保存しました。";
inline constexpr QStringView SaveRowsTitle = u"一覧の保存";
inline constexpr QStringView SaveRowsFilter =
    u"タブ区切りテキスト(*.tsv)|*.tsv|テキストファイル(*.txt)|*.txt|すべてのファイル(*.*)|*.*";

} // namespace quillon::resources::hit_texts

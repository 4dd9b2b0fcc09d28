#pragma once

#include "resources/text.h"

/// What is said of faults while a document is edited, and of mending them.
namespace quillon::resources::live_texts {

// Sentences about faults.
/// %1 is the child, %2 the parent.
inline constexpr Text NotHere = u"要素 '%1' を要素 '%2' のここに置くことはできません。";
inline constexpr Text MissingAhead = u"要素 '%2' の中で、要素 '%1' の前に要素が不足しています。";
/// One after the other on a line.
inline constexpr Text TwoSentences = u"%1%2";
/// %1 is a list, %2 how many more there are.
inline constexpr Text AndMore = u"%1 ほか %2 件";
/// %1 is the line, %2 the column in the pane, %3 the reason.
inline constexpr Text SyntaxAt = u"構文エラー（%1 行 %2 桁）: %3";

// The list of faults.
inline constexpr Text FaultsName = u"エラー";
inline constexpr Text FaultsTitle = u"エラー (%1)";
inline constexpr Text FaultsToolTip = u"編集中のドキュメントのエラー: %1 件";
inline constexpr Text NoFaults = u"エラーはありません。";
inline constexpr Text NoSchema =
    u"スキーマが結び付けられていないため、構文エラーだけを調べています。";
inline constexpr Text SwitchedOff = u"入力中の検証はオフです（[表示]-[入力中の検証]）。";

// The button on the status bar.
inline constexpr Text FaultsButton = u"エラー %1 件";
inline constexpr Text FaultsButtonMore = u"エラー %1 件以上";
inline constexpr Text FaultsButtonNone = u"エラーなし";
inline constexpr Text FaultsButtonTip = u"エラーの一覧を表示します (F4: 次のエラー)";

// For those who cannot see the marks.
inline constexpr Text FaultBelow = u"この中にエラーがあります";

// Mends.
inline constexpr Text InsertElement = u"要素 '%1' を挿入";
inline constexpr Text InsertAll = u"不足している要素をすべて挿入 (%1)";
inline constexpr Text RenameElement = u"要素の名前を '%1' に変更";
inline constexpr Text RemoveElement = u"要素 '%1' を削除";
inline constexpr Text RemoveText = u"テキストを削除";
inline constexpr Text AddAttribute = u"属性 '%1' を追加";
inline constexpr Text RenameAttribute = u"属性の名前を '%1' に変更";
inline constexpr Text RemoveAttribute = u"属性 '%1' を削除";
inline constexpr Text SetValue = u"値を '%1' に変更";
inline constexpr Text NoMends = u"修正候補はありません";
inline constexpr Text NoFaultHere = u"ここにエラーはありません。";
inline constexpr Text Outdated = u"ドキュメントが変わったため、この修正は行えません。";
inline constexpr Text Mended = u"修正しました: %1";
inline constexpr Text MendsName = u"エラーの修正候補";

} // namespace quillon::resources::live_texts

#pragma once

#include "resources/text.h"

/// The first page, the window of the manual and the box that finds commands. What ends in Name is
/// what assistive technology calls the control.
namespace quillon::resources::help_texts {

// The first page.
inline constexpr Text FirstPageName = u"はじめのページ";
inline constexpr Text FirstPageLead = u"XML ドキュメントを開くか、新しく作成してください。";
inline constexpr Text BeginHeading = u"始める";
inline constexpr Text SamplesHeading = u"サンプル";
inline constexpr Text RecentHeading = u"最近使ったファイル";
inline constexpr Text NoRecentFiles = u"開いたファイルがここに表示されます。";
/// Behind the folder of a file that is not there any more.
inline constexpr Text FileIsGone = u"%1 (見つかりません)";
inline constexpr Text DropHere = u"ここに XML ファイルをドロップ";
inline constexpr Text ShowFirstPage = u"ドキュメントがないときにこのページを表示する(&W)";
/// What a button says: what it is called, and what stands below or beside it.
inline constexpr Text WithRemark = u"%1、%2";
/// %1 is a key, %2 what it does.
inline constexpr Text KeyHint = u"%1 %2";

// What the samples show.
inline constexpr Text OrdersSample = u"受注データ (スタイルシート付き)";
inline constexpr Text DictionarySample = u"シフト JIS の辞書";
inline constexpr Text LetterSample = u"UTF-16 の手紙";
inline constexpr Text EntitiesSample = u"実体参照のある通知";

// The manual.
inline constexpr Text ManualTitle = u"マニュアル - Quillon XML Editor";
inline constexpr Text ContentsName = u"目次";
inline constexpr Text PageName = u"マニュアルの本文";
inline constexpr Text FindInManual = u"マニュアルを検索";
inline constexpr Text FindingsName = u"マニュアルの検索結果";
inline constexpr Text NoFindings = u"見つかりませんでした。";
inline constexpr Text FindingsCount = u"%1 件";
inline constexpr Text Back = u"戻る";
inline constexpr Text BackTip = u"戻る (Alt+←)";
inline constexpr Text Forward = u"進む";
inline constexpr Text ForwardTip = u"進む (Alt+→)";
inline constexpr Text ZoomIn = u"拡大";
inline constexpr Text ZoomInTip = u"文字を大きくする (Ctrl++)";
inline constexpr Text ZoomOut = u"縮小";
inline constexpr Text ZoomOutTip = u"文字を小さくする (Ctrl+-)";

/// Between what is said of one thing.
inline constexpr Text Between = u"、";
inline constexpr Text BetweenHints = u"　　";

// The box that finds commands.
inline constexpr Text CommandBoxName = u"コマンドの検索";
inline constexpr Text CommandField = u"コマンド、メニュー、キーの一部を入力";
inline constexpr Text CommandListName = u"コマンドの一覧";
inline constexpr Text NoCommands = u"見つかりませんでした。";
inline constexpr Text CommandCount = u"%1 個のコマンド";
inline constexpr Text CannotRunNow = u"「%1」は今は実行できません。";
/// What stands at a command that does not apply, for those who do not see that it is grey.
inline constexpr Text NotNow = u"今は実行できません";

} // namespace quillon::resources::help_texts

#pragma once

#include "resources/text.h"

/// What is said while pages are printed, and looked at before.
namespace quillon::resources::print_texts {

inline constexpr Text Printing = u"ツリーを印刷しています...";
inline constexpr Text LayingOut = u"ページを構成しています...";
inline constexpr Text CannotPrint =
    u"印刷を開始できません。プリンター、または出力先のファイルを確認してください。";
inline constexpr Text Stopped = u"ページの構成を中止しました。";

// The preview. %1 is the name of the document.
inline constexpr Text PagePreviewTitle = u"印刷プレビュー - %1";
inline constexpr Text TreePreviewTitle = u"ツリーの印刷プレビュー - %1";
inline constexpr Text SheetName = u"ページの表示";
// %1 is a page, %2 how many there are.
inline constexpr Text SheetDescription = u"%1 / %2 ページ";
inline constexpr Text PreviousPage = u"前のページ (PageUp)";
inline constexpr Text NextPage = u"次のページ (PageDown)";
inline constexpr Text PageLabel = u"ページ(&G):";
inline constexpr Text PageName = u"ページ番号";
inline constexpr Text ZoomLabel = u"倍率(&Z):";
inline constexpr Text ZoomName = u"倍率";
inline constexpr Text ZoomIn = u"拡大 (Ctrl++)";
inline constexpr Text ZoomOut = u"縮小 (Ctrl+-)";
inline constexpr Text WholePage = u"ページ全体";
inline constexpr Text PageWidth = u"ページの幅";
inline constexpr Text PageSetup = u"ページ設定(&U)...";
inline constexpr Text PageSetupTitle = u"ページ設定";
inline constexpr Text Print = u"印刷(&P)...";
inline constexpr Text Close = u"閉じる";
inline constexpr Text PreparingPages = u"ページを準備しています...";

// Why there are no pages. %1 is the program that is missing, %2 its package.
inline constexpr Text PageGone =
    u"プレビューのページを表示できないため、印刷プレビューを作成できません。";
inline constexpr Text NoProgram =
    u"%1 を起動できないため、印刷プレビューを表示できません。パッケージ %2 "
    u"をインストールしてください。";
inline constexpr Text PageTooLong =
    u"このページは描画に時間がかかりすぎるため、表示を中止しました。";

} // namespace quillon::resources::print_texts

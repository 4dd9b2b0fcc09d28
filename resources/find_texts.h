#pragma once

#include "resources/text.h"

/// The bar that finds within the edit pane. What ends in Name is what assistive technology calls
/// the control.
namespace quillon::resources::find_texts {

inline constexpr Text BarName = u"編集ペイン内の検索";
inline constexpr Text FieldLabel = u"ペイン内を検索:";
inline constexpr Text FieldName = u"編集ペインで検索する文字列";
inline constexpr Text Next = u"次を検索";
inline constexpr Text NextTip = u"次を検索 (F3)";
inline constexpr Text Previous = u"前を検索";
inline constexpr Text PreviousTip = u"前を検索 (Shift+F3)";
inline constexpr Text MatchCase = u"大文字と小文字を区別";
inline constexpr Text Close = u"ペイン内の検索を閉じる";
inline constexpr Text CloseTip = u"閉じる (Esc)";

// What has come of it.
inline constexpr Text NotFound = u"見つかりませんでした。";
inline constexpr Text FromStart = u"先頭に戻りました。";
inline constexpr Text FromEnd = u"末尾に戻りました。";

} // namespace quillon::resources::find_texts

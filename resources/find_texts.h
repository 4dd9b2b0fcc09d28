#pragma once

#include <QStringView>

/// The bar that finds within the edit pane. What ends in Name is what assistive technology calls
/// the control.
namespace quillon::resources::find_texts {

inline constexpr QStringView BarName = u"編集ペイン内の検索";
inline constexpr QStringView FieldLabel = u"ペイン内を検索:";
inline constexpr QStringView FieldName = u"編集ペインで検索する文字列";
inline constexpr QStringView Next = u"次を検索";
inline constexpr QStringView NextTip = u"次を検索 (F3)";
inline constexpr QStringView Previous = u"前を検索";
inline constexpr QStringView PreviousTip = u"前を検索 (Shift+F3)";
inline constexpr QStringView MatchCase = u"大文字と小文字を区別";
inline constexpr QStringView Close = u"ペイン内の検索を閉じる";
inline constexpr QStringView CloseTip = u"閉じる (Esc)";

// What has come of it.
inline constexpr QStringView NotFound = u"見つかりませんでした。";
inline constexpr QStringView FromStart = u"先頭に戻りました。";
inline constexpr QStringView FromEnd = u"末尾に戻りました。";

} // namespace quillon::resources::find_texts

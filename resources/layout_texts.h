#pragma once

#include "resources/text.h"

/// What is said about laying a document out anew. What ends in Name is what assistive technology
/// says.
namespace quillon::resources::layout_texts {

inline constexpr Text Title = u"整形";

inline constexpr Text ScopeGroup = u"対象";
inline constexpr Text ScopeDocument = u"文書全体(&D)";
inline constexpr Text ScopeElements = u"選択した要素(&S)";

inline constexpr Text IndentGroup = u"字下げ";
inline constexpr Text IndentBlanks = u"空白(&B):";
inline constexpr Text IndentTab = u"タブ(&T)";
inline constexpr Text IndentWidthName = u"字下げの空白の数";
inline constexpr Text KeepBlankLines = u"空行を 1 行だけ残す(&L)";

inline constexpr Text AttributesLabel = u"属性(&A):";
inline constexpr Text AttributesKeep = u"変更しない";
inline constexpr Text AttributesWrap = u"行の幅で折り返す";
inline constexpr Text AttributesOnePerLine = u"1 つずつ別の行に置く";
inline constexpr Text WidthLabel = u"行の幅(&W):";
inline constexpr Text WidthSuffix = u" 桁";
inline constexpr Text AlignAttributes = u"最初の属性に揃える(&G)";

inline constexpr Text EmptyLabel = u"空要素(&M):";
inline constexpr Text EmptyKeep = u"変更しない";
inline constexpr Text EmptyClosed = u"<a/>";
inline constexpr Text EmptyWithEndTag = u"<a></a>";

inline constexpr Text ShowAfter = u"整形後(&R)";
inline constexpr Text ShowBefore = u"整形前(&O)";
inline constexpr Text PreviewName = u"整形のプレビュー。変わる行は * で始まります。";
/// %1 of %2 lines are changed, after which there are %3.
inline constexpr Text ChangedLines = u"%2 行のうち %1 行が変わり、%3 行になります。";
inline constexpr Text NoChangedLines = u"変わる行はありません。";
/// %1 lines are shown.
inline constexpr Text BeginningOnly = u"大きいため、先頭の %1 行だけを表示しています。";
inline constexpr Text Hint = u"文字データを含む要素の内容、xml:space=\"preserve\" の内容、"
                             u"コメントの中は変更しません。";
inline constexpr Text FormatButton = u"整形(&F)";

// While it is done, and afterwards. %1 is the number of places that were changed.
inline constexpr Text Formatting = u"整形しています...";
inline constexpr Text Formatted = u"整形しました(%1 か所)。";
inline constexpr Text FormattedAlready = u"すでに整形されているため、何も変更していません。";

} // namespace quillon::resources::layout_texts

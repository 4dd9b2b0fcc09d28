#pragma once

#include "resources/text.h"

#include <utility>

/// What is said where names and values are proposed and nodes are explained.
namespace quillon::resources::completion_texts {

inline constexpr Text ListName = u"候補";
inline constexpr Text DescriptionName = u"候補の説明";
/// Ahead of the reason why an entry cannot be taken.
inline constexpr Text DoesNotFit = u"ここには置けません。%1";
inline constexpr Text Needed = u"必須";
/// In the menu of the pane.
inline constexpr Text ShowList = u"候補を表示\tCtrl+Space";

inline constexpr Text FromCalendar = u"カレンダーから...";
inline constexpr Text FromClock = u"時刻の選択...";
inline constexpr Text FromColours = u"色の選択...";
inline constexpr Text CalendarTitle = u"日付の選択";
inline constexpr Text ClockTitle = u"時刻の選択";
inline constexpr Text TimeLabel = u"時刻(&T):";
inline constexpr Text TimeName = u"時刻";
inline constexpr Text ColourTitle = u"色の選択";

// Behind a value, why it is proposed.
inline constexpr Text FixedValue = u"固定値";
inline constexpr Text DefaultValue = u"既定値";
inline constexpr Text IdInDocument = u"この文書の ID";
/// Behind an end tag.
inline constexpr Text EndTag = u"終了タグ";
inline constexpr Text NothingToPropose = u"ここで入力できる候補はありません。";

// What a node is by the schema.
/// %1: the kind of node, %2: its name.
inline constexpr Text KindAndName = u"%1「%2」";
/// %1: what it holds, in words.
inline constexpr Text Holds = u"内容: %1";

// Where a node is declared. %1: its caption, %2: a file.
inline constexpr Text DeclaredAt = u"「%1」は、次の DTD で宣言されています。\n%2";
inline constexpr Text DeclaredInProgram =
    u"「%1」は、このプログラムに付属するスキーマ %2 で宣言されています。";
inline constexpr Text DeclaredInDocument =
    u"「%1」は、この文書の文書型宣言の中で宣言されています。";
inline constexpr Text DeclaredSomewhere = u"「%1」の宣言の場所は分かりません。";
/// %1: a line.
inline constexpr Text AtLine = u"\n%1 行目";

/// The languages that are proposed, by their codes.
inline constexpr std::pair<QStringView, Text> Languages[] = {
    {u"ja", u"日本語"},
    {u"en", u"英語"},
    {u"en-US", u"英語 (米国)"},
    {u"zh-CN", u"中国語 (簡体字)"},
    {u"zh-TW", u"中国語 (繁体字)"},
    {u"ko", u"韓国語"},
    {u"fr", u"フランス語"},
    {u"de", u"ドイツ語"},
    {u"es", u"スペイン語"},
    {u"it", u"イタリア語"},
    {u"pt", u"ポルトガル語"},
    {u"ru", u"ロシア語"},
};

} // namespace quillon::resources::completion_texts

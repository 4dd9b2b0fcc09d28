#pragma once

#include <QStringView>

#include <utility>

/// What is said where names and values are proposed and nodes are explained.
namespace quillon::resources::completion_texts {

inline constexpr QStringView ListName = u"候補";
inline constexpr QStringView DescriptionName = u"候補の説明";
/// Ahead of the reason why an entry cannot be taken.
inline constexpr QStringView DoesNotFit = u"ここには置けません。%1";
inline constexpr QStringView Needed = u"必須";
/// In the menu of the pane.
inline constexpr QStringView ShowList = u"候補を表示\tCtrl+Space";

inline constexpr QStringView FromCalendar = u"カレンダーから...";
inline constexpr QStringView FromClock = u"時刻の選択...";
inline constexpr QStringView FromColours = u"色の選択...";
inline constexpr QStringView CalendarTitle = u"日付の選択";
inline constexpr QStringView ClockTitle = u"時刻の選択";
inline constexpr QStringView TimeLabel = u"時刻(&T):";
inline constexpr QStringView TimeName = u"時刻";
inline constexpr QStringView ColourTitle = u"色の選択";

// Behind a value, why it is proposed.
inline constexpr QStringView FixedValue = u"固定値";
inline constexpr QStringView DefaultValue = u"既定値";
inline constexpr QStringView IdInDocument = u"この文書の ID";
/// Behind an end tag.
inline constexpr QStringView EndTag = u"終了タグ";
inline constexpr QStringView NothingToPropose = u"ここで入力できる候補はありません。";

// What a node is by the schema.
/// %1: the kind of node, %2: its name.
inline constexpr QStringView KindAndName = u"%1「%2」";
/// %1: what it holds, in words.
inline constexpr QStringView Holds = u"内容: %1";

// Where a node is declared. %1: its caption, %2: a file.
inline constexpr QStringView DeclaredAt = u"「%1」は、次の DTD で宣言されています。\n%2";
inline constexpr QStringView DeclaredInProgram =
    u"「%1」は、このプログラムに付属するスキーマ %2 で宣言されています。";
inline constexpr QStringView DeclaredInDocument =
    u"「%1」は、この文書の文書型宣言の中で宣言されています。";
inline constexpr QStringView DeclaredSomewhere = u"「%1」の宣言の場所は分かりません。";
/// %1: a line.
inline constexpr QStringView AtLine = u"\n%1 行目";

/// The languages that are proposed, by their codes.
inline constexpr std::pair<QStringView, QStringView> Languages[] = {
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

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

#pragma once

#include <QStringView>

/// What is said of transformations that fail. %1, %2 stand for what the sentence names.
namespace quillon::resources::xslt_text {

inline constexpr QStringView BadStylesheet = u"スタイルシートに誤りがあります。\n%1";
inline constexpr QStringView Failed = u"スタイルシートを適用できませんでした。\n%1";
/// Follows the message of the processor.
inline constexpr QStringView AtLine = u"%1 (%2 行目)";
inline constexpr QStringView AtLineOfFile = u"%1 (%2、%3 行目)";
inline constexpr QStringView Terminated = u"スタイルシートが処理を中止しました。\n%1";
inline constexpr QStringView NoMessage = u"プロセッサーは原因を示していません。";

inline constexpr QStringView TooDeep =
    u"テンプレートの呼び出しが深すぎるか、終わりのない再帰になっているため、処理を中止しました。";
inline constexpr QStringView OutputLimit =
    u"結果が大きすぎるため、スタイルシートの処理を中止しました。";
inline constexpr QStringView ScriptNotSupported =
    u"msxsl:script によるスクリプトはサポートされていません。";
inline constexpr QStringView FileOutOfReach =
    u"'%1' を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業フォルダーに"
    u"あるファイルだけです。";

// Stylesheets of the old dialect. %1 is the construct, %2 the pattern it stands in.
inline constexpr QStringView WdPatternRefused =
    u"旧形式のスタイルシートのパターン '%2' の '%1' は XSLT 1.0 に変換できません。";
inline constexpr QStringView WdElementRefused =
    u"旧形式のスタイルシートの要素 <%1> は XSLT 1.0 に変換できません。";
inline constexpr QStringView WdScriptRefused =
    u"旧形式のスタイルシートのスクリプト (%1) はサポートされていません。";
inline constexpr QStringView WdAttributeMissing =
    u"旧形式のスタイルシートの要素 <%1> に属性 %2 がありません。";

} // namespace quillon::resources::xslt_text

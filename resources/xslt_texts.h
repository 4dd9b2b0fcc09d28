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

/// What the processor says most often, as a pattern, and the same in Japanese; %1 to %3 are the
/// groups, and nothing is said for an empty text. What is not in the table is shown as it comes.
struct Translation {
    QStringView pattern;
    QStringView text;
};
inline constexpr Translation Translations[] = {
    // These only follow others that say more.
    {u"XPath evaluation returned no result\\.", u""},
    {u"xsltLoadStyleDocument: read rights for .* denied", u""},
    {u"Network file read for .* refused", u""},
    // XPath
    {u"Invalid expression", u"XPath 式の構文が正しくありません。"},
    {u"Invalid expression: (.*)", u"XPath 式の構文が正しくありません: %1"},
    {u"Undefined variable", u"宣言されていない変数が使用されています。"},
    {u"Undefined namespace prefix", u"宣言されていない接頭辞が使用されています。"},
    {u"Undefined namespace prefix: (.*)", u"宣言されていない接頭辞が使用されています: %1"},
    {u"Unregistered function", u"存在しない関数が使用されています。"},
    {u"Invalid number of arguments", u"関数の引数の数が正しくありません。"},
    {u"Invalid type", u"XPath 式の値の型が正しくありません。"},
    {u"Invalid predicate", u"XPath 式の述語が正しくありません。"},
    {u"Invalid predicate: (.*)", u"XPath 式の述語が正しくありません: %1"},
    {u"Variable '(.*)' has not been declared\\.", u"変数 '%1' は宣言されていません。"},
    {u"xmlXPathCompOpEval: function (.*) not found", u"関数 '%1' はありません。"},
    // Instructions
    {u"(?:XSLT-|xsl:)(\\S+?) ?: could not compile (\\S+) expression '(.*)'\\.?",
     u"xsl:%1 の %2 の式 '%3' が正しくありません。"},
    {u"(?:XSLT-|xsl:)(\\S+?) ?: (?:The attribute ')?(\\S+?)'? is (?:missing|not defined)\\.?",
     u"xsl:%1 に属性 %2 がありません。"},
    {u"xsl:(\\S+?) ?: The (?:effective name|value) '([^']*)' (?:of the attribute 'name' )?"
     u"is not a valid QName\\.",
     u"xsl:%1 の名前 '%2' が正しくありません。"},
    {u"XSLT-(variable|param|with-param): .*'?select'?.*",
     u"xsl:%1 に属性 select がある場合、内容を書くことはできません。"},
    {u"(?:xsltStylePreCompute: unknown xsl:|xsltParseStylesheetTop: unknown )(\\S+)(?: element)?",
     u"XSLT 1.0 に xsl:%1 という要素はありません。"},
    {u"xsl:choose: The instruction has no content\\.", u"xsl:choose に内容がありません。"},
    {u"(?:The (?:XSLT-)?)?element '?(.*?)'? is not allowed "
     u"(?:at this position|within that context)\\.?",
     u"要素 %1 はこの位置では使用できません。"},
    {u"Attribute '(.*)': The AVT has an unmatched '(.)'\\.",
     u"属性 '%1' の値の '%2' に対応する括弧がありません。"},
    // Templates and other stylesheets
    {u"xsl:template: need to specify match or name attribute",
     u"xsl:template には属性 match または name が必要です。"},
    {u"xsl:template: error duplicate name '(.*)'", u"テンプレート '%1' が二重に定義されています。"},
    {u"The called template '(.*)' was not found\\.", u"テンプレート '%1' がありません。"},
    {u"xsltCompileStepPattern : '(.)' expected", u"パターンに '%1' が必要です。"},
    {u"xsltCompilePattern : failed to compile '(.*)'", u"パターン '%1' が正しくありません。"},
    {u"xsl:(import|include) : unable to load (.*)", u"xsl:%1 のファイル %2 を読み込めません。"},
    {u"xsl:(import|include) : recursion detected on \\S+ URL (.*)", u"xsl:%1 が循環しています: %2"},
};

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

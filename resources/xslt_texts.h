#pragma once

#include "resources/text.h"
#include "resources/translation.h"

/// What is said of transformations that fail. %1, %2 stand for what the sentence names.
namespace quillon::resources::xslt_texts {

inline constexpr Text BadStylesheet = u"スタイルシートに誤りがあります。\n%1";
inline constexpr Text Failed = u"スタイルシートを適用できませんでした。\n%1";
/// Follows the message of the processor.
inline constexpr Text AtLine = u"%1 (%2 行目)";
inline constexpr Text AtLineOfFile = u"%1 (%2、%3 行目)";
inline constexpr Text Terminated = u"スタイルシートが処理を中止しました。\n%1";
inline constexpr Text NoMessage = u"プロセッサーは原因を示していません。";
inline constexpr Text FileOutOfReach =
    u"'%1' を読み込むことはできません。使用できるのは、スタイルシートのフォルダーと作業フォルダーに"
    u"あるファイルだけです。";

/// Follows a message about an XPath expression.
inline constexpr Text InExpression = u"%1式: %2";
inline constexpr Text UnknownInstruction = u"XSLT 1.0 に xsl:%1 という要素はありません。";
inline constexpr Text TopLevelWithoutNamespace = u"最上位の要素 %1 には名前空間が必要です。";
/// For a message of the processor that has no translation below.
inline constexpr Text UnknownMessage =
    u"スタイルシートの処理中に、内容を特定できないエラーが発生しました。";

/// What the processor says of run-time errors that XSLT 1.0 lets it recover from, and it does.
inline constexpr QStringView Recovered[] = {
    u"xsl:attribute: Cannot add attributes to an element if children .*",
    u"xsl:attribute: The effective name 'xmlns' is not allowed\\.",
    u"Attribute nodes must be added before any child nodes to an element\\.",
    u"Cannot add an attribute node to a non-element node\\.",
    u"Namespace nodes must be added before .*",
    u"xsl:comment : '--' or ending '-' not allowed in comment",
    u"xsl:processing-instruction: '\\?>' not allowed within PI content",
    // document() gives no nodes.
    u"(?:Network|Local) file read for .* refused",
    u"xsltLoadDocument: read rights for .* denied",
};

/// What the processor says. Nothing is said for an empty text.
inline constexpr Translation Translations[] = {
    // These only follow others that say more, or are no errors.
    {u"XPath evaluation returned no result\\.", u""},
    {u"(?:Network|Local) file read for .* refused", u""},
    {u"Unimplemented block at .*", u""},
    {u"xsltCheckRead: URL parsing failed for .*", u""},
    {u"Failed to evaluate the '(?:select|match|use)' expression\\.", u""},
    {u"Failed to evaluate the expression of variable '.*'\\.", u""},
    {u"Evaluating global variable .* failed", u""},
    {u"Failed to compile predicate", u""},
    {u"exsltFuncResultElem: ret == NULL", u""},
    {u"Undefined variable|Unregistered function|Stack usage error", u""},
    {u"xsl:version is missing: document may not be a stylesheet", u""},
    {u"xsl:version: only 1\\.1 features are supported", u""},
    {u"xsltStylePreCompute: unknown xsl:.*", u""},
    {u"xsl:number : letter-value .* not implemented", u""},
    {u"xsl:number : lang attribute not implemented", u""},
    {u"xsl:number : invalid value .* for (?:level|letter-value)", u""},
    {u"xsl-number : negative value", u""},
    {u"xsltFormatNumberConversion : .*", u""},
    {u"xsltParseStylestyleDecimalFormat: .* already exists", u""},
    {u"xsl:decimal-format: Invalid QName '.*'\\.", u""},
    {u"xsl:(?:exclude-result-prefixes|extension-element-prefix) : undefined namespace .*", u""},
    {u"xsltParseStylesheet(?:Preserve|Strip)Space: missing elements attribute", u""},
    {u"xsltSortComp: (?:no support for data-type|invalid value) .*", u""},
    {u"invalid value for method: .*", u""},
    {u"xsl:(?:text|value-of) ?: disable-output-escaping allows only yes or no", u""},
    {u"XSLT-(?:with-param|param): The content should be empty .*", u""},
    {u"Namespaces prefix .* used for multiple namespaces", u""},
    {u"xsltParseTemplateContent: ignoring misplaced param element", u""},

    // XPath
    {u"Invalid expression|Invalid operand|Syntax error|Missing closing curly brace|Start of "
     u"literal",
     u"XPath 式の構文が正しくありません。"},
    {u"Number encoding", u"XPath 式の数値が正しくありません。"},
    {u"Unfinished literal", u"XPath 式の文字列が閉じていません。"},
    {u"Expected \\$ for variable reference", u"XPath 式の '$' の後には変数名が必要です。"},
    {u"Forbidden variable", u"この式で使用できない変数が使用されています。"},
    {u"Undefined namespace prefix", u"宣言されていない接頭辞が使用されています。"},
    {u"Invalid number of arguments", u"関数の引数の数が正しくありません。"},
    {u"Invalid type", u"XPath 式の値の型が正しくありません。"},
    {u"Invalid predicate", u"XPath 式の述語が正しくありません。"},
    {u"(?:Operation|Recursion) limit exceeded",
     u"XPath 式の評価に必要な処理が多すぎるか、入れ子が深すぎます。"},
    {u"Memory allocation error", u"XPath 式の結果が大きすぎるか、メモリが不足しています。"},
    {u"Encoding error|Char out of XML range", u"XPath 式で使用できない文字があります。"},
    {u"Invalid context .*|Invalid or incomplete context|(?:Sub r|R)esource error",
     u"XPath 式を評価できません。"},
    {u"Variable '(.*)' has not been declared\\.", u"変数 '%1' は宣言されていません。"},
    {u"xmlXPathCompOpEval: function (.*) not found", u"関数 '%1' はありません。"},
    {u"xmlXPathCompOpEval: function (.*) bound to undefined prefix (.*)",
     u"関数 '%1' の接頭辞 '%2' は宣言されていません。"},
    {u"xmlXPathCompOpEval: variable (.*) bound to undefined prefix (.*)",
     u"変数 '%1' の接頭辞 '%2' は宣言されていません。"},
    // The processor misspells it.
    {u"dyn:evalute\\(\\) ?: .*", u"関数 dyn:evaluate() の引数の数が正しくありません。"},
    {u"([a-z:-]+)\\(\\) ?: (?:invalid number of args .*|expects .*|function uses no argument)",
     u"関数 %1() の引数の数が正しくありません。"},
    {u"([a-z:-]+)\\(\\) ?: invalid arg.*", u"関数 %1() の引数の型が正しくありません。"},
    {u"([a-z:-]+)\\(\\) : prefix (.*) is not bound",
     u"関数 %1() の引数の接頭辞 '%2' は宣言されていません。"},
    {u"document\\(\\) : .*", u"document() の引数が示すものを取得できません。"},
    {u"format-number\\(\\) : undeclared decimal format '(.*)'",
     u"format-number() の数値書式 '%1' は xsl:decimal-format で宣言されていません。"},
    {u"format-number : No namespace found for QName '(.*)'",
     u"format-number() の数値書式 '%1' の接頭辞は宣言されていません。"},
    {u"use-attribute-set : No namespace found for QName '(.*)'|"
     u"xsl:attribute-set : No namespace found for QName '(.*)' in use-attribute-sets",
     u"use-attribute-sets の名前 '%1%2' の接頭辞は宣言されていません。"},
    {u"(\\S+) : No namespace found for QName '(.*)'",
     u"%1 の名前 '%2' の接頭辞は宣言されていません。"},
    {u"Failed to find key definition for (.*)", u"キー '%1' は宣言されていません。"},
    {u"Key definition for (.*) is recursive", u"キー '%1' の定義が循環しています。"},
    {u"The '(.*)' expression d(?:id|oes) not evaluate to a node set\\.",
     u"%1 の式の結果がノードではありません。"},
    {u"dyn:evaluate\\(\\) : unable to evaluate expression '(.*)'",
     u"dyn:evaluate() の式 '%1' を評価できません。"},

    // Functions of the stylesheet itself
    {u"\\{.*\\}(.*): not found", u"関数 '%1' はありません。"},
    {u"\\{.*\\}(.*): called with too many arguments", u"関数 '%1' の引数が多すぎます。"},
    {u"\\{.*\\}(.*): cannot write to result tree .*",
     u"関数 '%1' の中では、結果に書き出すことはできません。"},
    {u"func:function: not a QName", u"func:function の名前が正しくありません。"},
    {u"func:function: undeclared prefix (.*)",
     u"func:function の名前の接頭辞 '%1' は宣言されていません。"},
    {u"Failed to register function \\{.*\\}(.*)", u"関数 '%1' が二重に定義されています。"},
    {u"exsltFuncResultElem: only xsl:fallback .*",
     u"func:result の後に書けるのは xsl:fallback だけです。"},
    {u"func:result element not .*", u"func:result はこの位置では使用できません。"},
    {u"func:result already instanciated", u"関数の中で func:result が 2 回実行されました。"},
    {u"func:result content must be empty .*",
     u"func:result に属性 select がある場合、内容を書くことはできません。"},

    // Instructions
    {u"(?:XSLT-|xsl:)(\\S+?) ?: (?:could not|Failed to) compile (\\S+) expression '\\s*'\\.?",
     u"xsl:%1 の %2 の式が空です。"},
    {u"(?:XSLT-|xsl:)(\\S+?) ?: (?:could not|Failed to) compile (\\S+) expression '(.*)'\\.?",
     u"xsl:%1 の %2 の式 '%3' が正しくありません。"},
    {u"XSLT-variable: Failed to compile the XPath expression '\\s*'\\.",
     u"xsl:variable の select の式が空です。"},
    {u"xsltSortComp: could not compile select expression '\\s*'",
     u"xsl:sort の select の式が空です。"},
    {u"xsl:key : 'use' expression compilation failed '\\s*'", u"xsl:key の use の式が空です。"},
    {u"xsl:key : 'use' expression compilation failed '(.*)'",
     u"xsl:key の use の式 '%1' が正しくありません。"},
    {u"XSLT-variable: Failed to compile the XPath expression '(.*)'\\.",
     u"xsl:variable の select の式 '%1' が正しくありません。"},
    {u"xsltSortComp: could not compile select expression '(.*)'",
     u"xsl:sort の select の式 '%1' が正しくありません。"},
    {u"(?:XSLT-|xsl:)(\\S+?) ?: (?:The attribute ')?(\\S+?)'? is (?:missing|not defined)\\.?",
     u"xsl:%1 に属性 %2 がありません。"},
    {u"xsl:(import|include) : missing href attribute", u"xsl:%1 に属性 href がありません。"},
    {u"xsl:(\\S+) : (?:error )?missing (\\S+)(?: attribute)?", u"xsl:%1 に属性 %2 がありません。"},
    {u"(\\S+): (?:The attribute ')?(\\S+) (?:attribute|is) missing",
     u"%1 に属性 %2 がありません。"},
    {u"The attribute '(.*)' is missing\\.", u"属性 %1 がありません。"},
    {u"xsl:(\\S+?) ?: The (?:effective name|value) '' (?:of the attribute 'name' )?is not a valid "
     u"QName\\.",
     u"xsl:%1 の名前が空です。"},
    {u"xsl:(\\S+?) ?: The value '(.*)' of the attribute 'mode' is not a valid QName\\.",
     u"xsl:%1 の属性 mode の値 '%2' が正しくありません。"},
    {u"xsl:(\\S+?) ?: The (?:effective name|name|value) '([^']*)' "
     u"(?:of the attribute 'name' |in use-attribute-sets )?is not a valid QName\\.",
     u"xsl:%1 の名前 '%2' が正しくありません。"},
    {u"xsl:template: error duplicate name '(.*)'", u"テンプレート '%1' が二重に定義されています。"},
    {u"xsl:template ?: .*(?:name|value) '(.*?)'.*",
     u"xsl:template の名前 '%1' が正しくありません。"},
    {u"The name '(.*)' in use-attribute-sets is not a valid QName\\.",
     u"use-attribute-sets の名前 '%1' が正しくありません。"},
    {u"Attribute '(.*)': The value '(.*)' is not a valid QName\\.",
     u"属性 %1 の名前 '%2' が正しくありません。"},
    {u"Attribute '(.*)': Not a valid QName\\.", u"属性 %1 の名前が正しくありません。"},
    {u"xsl:(\\S+?): The (?:prefixed )?QName '(.*)' has no namespace binding .*",
     u"xsl:%1 の名前 '%2' の接頭辞は宣言されていません。"},
    {u"xsl:attribute: The attribute name 'xmlns' is not allowed\\.|"
     u"xsl:attribute: Namespace .* forbidden\\.",
     u"xsl:attribute で名前空間を宣言することはできません。"},
    {u"Namespace (?:fixup|normalization) error: .*", u"結果の名前空間を宣言できません。"},
    {u"xsl:attribute-set : use-attribute-sets (?:recursion|maximum).* on (.*)",
     u"属性セット '%1' が循環しています。"},
    {u"xsl:attribute-set : (?:unexpected child|child of unexpected type).*",
     u"xsl:attribute-set に書けるのは xsl:attribute だけです。"},
    {u"XSLT-variable: There must be no child nodes.*",
     u"xsl:variable に属性 select がある場合、内容を書くことはできません。"},
    {u"(?:XSLT-(?:variable|param): )?Redefinition of (?:variable|parameter|variable or parameter) "
     u"'(.*)'\\.|redefinition of global variable (.*)|Global (?:variable|parameter) (.*) already "
     u"defined",
     u"変数 '%1%2%3' が二重に定義されています。"},
    {u"Recursive definition of (.*)", u"変数 '%1' の定義が循環しています。"},
    {u"xsl(?:tParseTemplateContent: xslt)?:text content problem",
     u"xsl:text に要素を書くことはできません。"},
    {u"xsl:sort : improper use .*", u"xsl:sort はこの位置では使用できません。"},
    {u"xsl:sort : is not empty", u"xsl:sort に内容を書くことはできません。"},
    {u"The number .*of xsl:sort instructions exceeds .*", u"xsl:sort が多すぎます。"},
    {u"xsl:message : terminate expecting 'yes' or 'no'",
     u"xsl:message の属性 terminate の値は 'yes' か 'no' でなければなりません。"},
    {u"xsl:choose: The instruction has no content\\.", u"xsl:choose に内容がありません。"},
    {u"xsl:choose: xsl:when expected first",
     u"xsl:choose は xsl:when で始まらなければなりません。"},
    {u"xsltParseStylesheetTop: unknown (\\S+)(?: element)?",
     u"xsl:%1 はこの位置では使用できません。"},
    {u"xsltApplySequenceConstructor: (.*) was not compiled", UnknownInstruction},
    {u"xsltApplySequenceConstructor: failed to find extension (.*)",
     u"拡張要素 %1 はサポートされていません。"},
    {u"(?:Unknown extension instruction|Unexpected XSLT element) '(.*)'\\.",
     u"要素 %1 は使用できません。"},
    {u"(?:The (?:XSLT-)?)?element '?(.*?)'? (?:is not allowed|only allowed) .*",
     u"xsl:%1 はこの位置では使用できません。"},
    {u"xsltParseStylesheetTop: ignoring misplaced import element",
     u"xsl:import は、ほかの要素より前に書かなければなりません。"},
    {u"misplaced text node: '\\s*(.*?)\\s*'", u"文字列 '%1' をこの位置に書くことはできません。"},
    {u"xsl:call-template: misplaced (.*?)(?: element)?",
     u"xsl:call-template の中に %1 を書くことはできません。"},
    {u"It is an error to call 'apply-imports' .*",
     u"xsl:apply-imports は、テンプレートの中でだけ使用できます。"},
    {u"xsltAttrTemplateValueProcessNode: unmatched '(.)'",
     u"属性の値の '%1' に対応する括弧がありません。"},
    {u"Internal error: Failed to evaluate the AVT of attribute '(.*)'\\.",
     u"属性 %1 の値の式が正しくありません。"},
    {u"Attribute '(.*)': The AVT has an unmatched '(.)'\\.?",
     u"属性 %1 の値の '%2' に対応する括弧がありません。"},
    {u"Attribute '(.*)': Failed to compile the expression '(.*)' in the AVT\\.",
     u"属性 %1 の値の式 '%2' が正しくありません。"},
    {u"namespace-alias: prefix (.*) not bound to any namespace|"
     u"(?:.*)[Nn]o namespace bound to prefix '?([^' ]*)'?\\.?",
     u"接頭辞 '%1%2' は宣言されていません。"},

    // Templates and other stylesheets
    {u"xsl:template: need to specify match or name attribute",
     u"xsl:template には属性 match または name が必要です。"},
    {u"The called template '(.*)' was not found\\.", u"テンプレート '%1' がありません。"},
    {u"xsltCompile(?:Step|LocationPath|IdKey)Pattern : '?(\\S)'? expected",
     u"パターンに '%1' が必要です。"},
    {u"xsltCompile(?:Step|LocationPath|IdKey)Pattern : .*", u"パターンの構文が正しくありません。"},
    {u"xsltCompilePattern : failed to compile '(.*)'|xsl:key : 'match' pattern is malformed: (.*)",
     u"パターン '%1%2' が正しくありません。"},
    {u"xsltCompilePattern : NULL pattern|xsl:key : 'match' pattern is empty",
     u"パターンが空です。"},
    {u"xsltAddTemplate: invalid compiled pattern", u"パターンが正しくありません。"},
    // The folder of a stylesheet that has none is "nowhere:/".
    {u"(?:xsltLoadStyleDocument|xsl:import): read rights for (?:nowhere:/)?(.*) denied",
     FileOutOfReach},
    {u"xsl:(import|include) : invalid URI reference (.*)",
     u"xsl:%1 の属性 href の値 '%2' が正しくありません。"},
    {u"xsl:(import|include) : unable to load .*", u"xsl:%1 で指定されたファイルを読み込めません。"},
    {u"xsl:(import|include) : recursion detected .*", u"xsl:%1 が循環しています。"},
    {u"The attribute 'xsl:version' is missing; .*|"
     u"xsltParseStylesheetProcess : (?:document is not a stylesheet|empty stylesheet)",
     u"スタイルシートではありません。ルート要素は、名前空間 "
     u"http://www.w3.org/1999/XSL/Transform の xsl:stylesheet または xsl:transform か、属性 "
     u"xsl:version のある要素でなければなりません。"},
    {u"xsltDocumentElem: .*|(?:File write|Directory creation) for .* refused|"
     u"xsltApplyStylesheet: (?:forbidden to save|saving) to .*",
     u"スタイルシートからファイルに書き込むことはできません。"},
    {u"invalid value for (standalone|indent|omit-xml-declaration): (.*)",
     u"xsl:output の属性 %1 の値 '%2' は 'yes' か 'no' でなければなりません。"},
    {u"xsltApplyStylesheetInternal: unsupported method \\(?(.*?)\\)?",
     u"出力方法 '%1' はサポートされていません。"},
};

inline constexpr Text TooDeep =
    u"テンプレートの呼び出しが深すぎるか、終わりのない再帰になっているため、処理を中止しました。";
inline constexpr Text OutputLimit = u"結果が大きすぎるため、スタイルシートの処理を中止しました。";
inline constexpr Text ScriptNotSupported =
    u"msxsl:script によるスクリプトはサポートされていません。";
inline constexpr Text NotParsed =
    u"XML 文書として読み込めません。実体の展開や要素の入れ子が大きすぎる可能性があります。";

// Stylesheets of the old dialect. %1 is the construct, %2 the pattern it stands in.
inline constexpr Text WdPatternRefused =
    u"旧形式のスタイルシートのパターン '%2' の '%1' は XSLT 1.0 に変換できません。";
inline constexpr Text WdPatternUnfinished =
    u"旧形式のスタイルシートのパターン '%1' は途中で終わっています。";
inline constexpr Text WdPatternEmpty = u"旧形式のスタイルシートに空のパターンがあります。";
inline constexpr Text WdElementRefused =
    u"旧形式のスタイルシートの要素 <%1> は XSLT 1.0 に変換できません。";
inline constexpr Text WdScriptRefused =
    u"旧形式のスタイルシートのスクリプト (%1) はサポートされていません。";
/// The attribute of an element that holds a script.
inline constexpr Text WdExprOf = u"%1 の属性 expr";
inline constexpr Text WdAttributeMissing =
    u"旧形式のスタイルシートの要素 <%1> に属性 %2 がありません。";

} // namespace quillon::resources::xslt_texts

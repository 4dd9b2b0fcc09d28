#pragma once

#include "resources/text.h"
#include "resources/translation.h"
#include "resources/validation_texts.h"
#include "resources/xml_texts.h"

/// What is wrong with a schema or a DTD, and with XML that libxml2 reads for validation.
namespace quillon::resources::schema_fault_texts {

/// What the schema compiler says after the names ahead of it. Names come without their namespaces.
inline constexpr Translation Translations[] = {
    {u"The QName value '(.*)' does not resolve to a\\(n\\) (?:simple |complex )?type definition\\.",
     u"型 '%1' は宣言されていません。"},
    {u"The QName value '(.*)' does not resolve to a\\(n\\) element declaration\\.",
     u"要素 '%1' は宣言されていません。"},
    {u"The QName value '(.*)' does not resolve to a\\(n\\) attribute declaration\\.",
     u"属性 '%1' は宣言されていません。"},
    {u"The QName value '(.*)' does not resolve to a\\(n\\) attribute group definition\\.",
     u"属性グループ '%1' は宣言されていません。"},
    {u"The QName value '(.*)' does not resolve to a\\(n\\) model group definition\\.",
     u"モデル グループ '%1' は宣言されていません。"},
    {u"The QName value '(.*)' does not resolve to a\\(n\\) .*identity-constraint\\.",
     u"キー '%1' は宣言されていません。"},
    {u"References from this schema to components in the namespace '(.*)' are not allowed.*",
     u"名前空間 '%1' が xs:import で取り込まれていません。"},
    {u"References from this schema to components in no namespace are not allowed.*",
     u"名前空間のない宣言が xs:import で取り込まれていません。"},
    {u"The value '(.*)' of simple type '.*' has no corresponding namespace declaration.*",
     u"値 '%1' の接頭辞は宣言されていません。"},
    {u"The XPath expression '(.*)' could not be compiled\\.",
     u"XPath 式 '%1' はここでは使用できません。"},
    {u"The attribute '(.*)' is required but missing\\.", u"必須の属性 '%1' がありません。"},
    {u"The attribute '(.*)' is not allowed\\.", u"属性 '%1' を使用することはできません。"},
    {u"A global .* '(.*)' does already exist\\.", u"'%1' という名前の宣言が重複しています。"},
    {u"The content is not valid\\..*", u"この要素の位置または内容が正しくありません。"},
    {u"'(.*)' is not a valid value of the .*type.*", u"値 '%1' が正しくありません。"},
    {u"The value '(.*)' of the facet 'pattern' is not a valid regular expression\\.",
     u"パターン '%1' は正規表現として正しくありません。"},
    {u"The value '(.*)' of the facet.*", u"ファセットの値 '%1' が正しくありません。"},
    {u"'(.*)' has to be .* '(.*)'\\.?", u"ファセット %1 と %2 の値が矛盾しています。"},
    {u"The value must not be greater than the value of 'maxOccurs'\\.",
     u"minOccurs の値が maxOccurs の値より大きくなっています。"},
    {u"Invalid value for (maxOccurs|minOccurs).*", u"%1 の値が正しくありません。"},
    {u"The value '(.*)' is not valid\\..*", u"値 '%1' が正しくありません。"},
    {u".*mutually exclusive.*", u"同時に指定できない属性または子要素があります。"},
    {u".*[Cc]ircular.*", u"定義が循環しています。"},
    {u"The schema must not import/include/redefine itself\\.",
     u"スキーマに自分自身を取り込むことはできません。"},
    {u"The target namespace .*", u"取り込むファイルの対象の名前空間が一致しません。"},
    {u"Failed to (?:parse the XML resource|load the document) .*",
     u"取り込むファイルを読み込めません。"},
    {u"The content model is not determinist.*",
     u"内容モデルがあいまいです。子要素がどの宣言に一致するかを決められません。"},
    {u"Notation has no name", u"名前がありません。"},
    {u"The value of the attribute must not match 'xmlns'\\.",
     u"'xmlns' を属性の名前にすることはできません。"},
    {u"Value constraints are not allowed if .*",
     u"ID 型の宣言に既定値または固定値を指定することはできません。"},
    {u"The 'final' of the base type definition contains '(.*)'\\.",
     u"基底型が '%1' による派生を禁止しています。"},
    {u"Either the attribute '(.*)' or .*", u"属性 '%1' または同じ意味の子要素が必要です。"},
    {u".*base .*", u"派生した型が基底型と矛盾しています。"},
};

// %1 is the element of the schema, %2 what is wrong, %3 the attribute.
inline constexpr Text AtElement = u"%1: %2";
inline constexpr Text AtAttribute = u"%1 の属性 '%3': %2";
inline constexpr Text Other = u"定義が正しくありません (エラー番号 %1)。";

// DTDs. %1 is the element, %2 the attribute or the name.
inline constexpr Text DuplicateInMixed =
    u"DTD で、要素 '%1' の混在内容の宣言に '%2' が重複しています。";
inline constexpr Text RepeatedInMixed =
    u"DTD で、要素 '%1' の混在内容の宣言に同じ名前が重複しています。";
inline constexpr Text AmbiguousContent =
    u"DTD で、要素 '%1' の内容の宣言があいまいです。子要素がどの名前に一致するかを決められません。";
inline constexpr Text DuplicateElement = u"DTD で、要素 '%1' の宣言が重複しています。";
inline constexpr Text IdWithDefault =
    u"DTD で、要素 '%1' の ID 型の属性 '%2' に既定値または固定値が指定されています。";
inline constexpr Text SeveralIds = u"DTD で、要素 '%1' に ID 型の属性が 2 つ以上宣言されています。";
/// %3 is the default.
inline constexpr Text DefaultNotInSet =
    u"DTD で、要素 '%1' の属性 '%2' の既定値 '%3' が、列挙されている値のいずれでもありません。";
inline constexpr Text BadDefault =
    u"DTD で、要素 '%1' の属性 '%2' の既定値が属性の型に合っていません。";
/// %1 is the value.
inline constexpr Text DuplicateToken = u"DTD で、属性に列挙されている値 '%1' が重複しています。";
inline constexpr Text NotationOfEmpty =
    u"DTD で、空要素 '%1' に NOTATION 型の属性 '%2' が宣言されています。";
inline constexpr Text SeveralNotations =
    u"DTD で、要素 '%1' に NOTATION 型の属性が 2 つ以上宣言されています。";
inline constexpr Text DuplicateNotation = u"DTD で、記法 '%1' の宣言が重複しています。";
inline constexpr Text UndeclaredNotation = u"DTD で、記法 '%1' が宣言されていません。";

// XML that libxml2 cannot read, beyond what xml_text says of it.
inline constexpr Text BadReference = u"文字参照または実体参照の構文が正しくありません。";
inline constexpr Text BadDeclarationSyntax = u"宣言の構文が正しくありません。";
inline constexpr Text BadAttribute = u"属性の構文が正しくありません。";
inline constexpr Text UnclosedLiteral = u"引用符が閉じていません。";
inline constexpr Text UnknownEncoding = u"エンコードが正しくありません。";

} // namespace quillon::resources::schema_fault_texts

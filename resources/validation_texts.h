#pragma once

#include "resources/text.h"

/// What validation says. %1, %2, %3 stand for what the sentence names.
namespace quillon::resources::validation_texts {

// The commands.
inline constexpr Text DialogTitle = u"検証用ファイルの選択";
inline constexpr Text DialogFilter = u"DTD(*.dtd)|*.dtd|XML-Schema(XSD)(*.xsd)|*.xsd|"
                                     u"XML-Data Reduced(XDR)(*.xml)|*.xml";
inline constexpr Text Validating = u"検証しています...";
inline constexpr Text AtLine = u"%1 行目: %2";
inline constexpr Text NoRoot =
    u"ドキュメントにルート要素が 1 つだけ含まれていないため、検証できませんでした。";

// A document that does not keep to its schema.
inline constexpr Text UndefinedEntity = u"未定義の実体 '%1' が参照されています。";
inline constexpr Text UndeclaredElement =
    u"要素 '%1' が使用されていますが、DTD/スキーマで宣言されていません。";
inline constexpr Text UndefinedId =
    u"属性 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。";
inline constexpr Text UndefinedElementId =
    u"要素 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。";
inline constexpr Text EmptyElement =
    u"DTD/スキーマによると、要素 '%1' を空にすることはできません。";
inline constexpr Text IncompleteContent = u"DTD/スキーマによると、要素 '%1' の内容が不完全です。";
inline constexpr Text WrongRoot =
    u"最上位の要素 '%1' の名前は、文書型宣言の名前と一致する必要があります。";
inline constexpr Text InvalidContent =
    u"DTD/スキーマによると、要素 '%1' の内容が正しくありません。";
inline constexpr Text UnexpectedElement =
    u"DTD/スキーマによると、要素 '%1' の内容が正しくありません。要素 '%2' "
    u"をここに置くことはできません。";
/// Ahead of %2 in %1.
inline constexpr Text MissingAhead =
    u"DTD/スキーマによると、要素 '%1' の中で、要素 '%2' の前に必要な要素がありません。";
inline constexpr Text UnexpectedRoot =
    u"スキーマによると、要素 '%1' をルート要素にすることはできません。";
inline constexpr Text Expecting = u"次のいずれかが必要です: %1";
inline constexpr Text UndefinedAttribute =
    u"要素 '%2' の属性 '%1' は、DTD/スキーマで定義されていません。";
inline constexpr Text FixedAttribute =
    u"要素 '%2' の属性 '%1' の値が、DTD/スキーマで定義されている固定値と一致しません。";
inline constexpr Text FixedElement =
    u"要素 '%1' の値が、スキーマで定義されている固定値と一致しません。";
inline constexpr Text InvalidAttribute =
    u"DTD/スキーマによると、要素 '%2' の属性 '%1' の値 '%3' が正しくありません。";
inline constexpr Text TextNotAllowed =
    u"DTD/スキーマによると、要素 '%1' にテキストを含めることはできません。";
inline constexpr Text MissingAttribute = u"要素 '%2' に必須の属性 '%1' がありません。";
inline constexpr Text InvalidDatatype = u"要素 '%3' の値 '%1' を %2 データ型として解析できません。";
inline constexpr Text InvalidLength = u"スキーマによると、要素 '%1' の値の長さが正しくありません。";
inline constexpr Text DuplicateId =
    u"要素 '%2' の ID '%1' は、ドキュメントの中ですでに使用されています。";
inline constexpr Text NoSchemaFound =
    u"DTD/スキーマの宣言が見つからないため、ドキュメントを検証できませんでした。";

// The same, where only an XML Schema can say it.
inline constexpr Text InvalidElementValue =
    u"スキーマによると、要素 '%1' の値 '%2' が正しくありません。";
inline constexpr Text InvalidAttributeValue =
    u"スキーマによると、要素 '%1' の属性 '%2' の値 '%3' が正しくありません。";
// What follows these. %1 is the limit, %2 what the value has.
inline constexpr Text FacetLength = u"長さは %1 でなければなりませんが、%2 です。";
inline constexpr Text FacetMinLength = u"長さは %1 以上でなければなりませんが、%2 です。";
inline constexpr Text FacetMaxLength = u"長さは %1 以下でなければなりませんが、%2 です。";
inline constexpr Text FacetMinInclusive = u"%1 以上の値が必要です。";
inline constexpr Text FacetMaxInclusive = u"%1 以下の値が必要です。";
inline constexpr Text FacetMinExclusive = u"%1 より大きい値が必要です。";
inline constexpr Text FacetMaxExclusive = u"%1 より小さい値が必要です。";
inline constexpr Text FacetTotalDigits = u"桁数は %1 桁までです。";
inline constexpr Text FacetFractionDigits = u"小数部は %1 桁までです。";
inline constexpr Text FacetPattern = u"値がパターン '%1' と一致しません。";
inline constexpr Text FacetEnumeration = u"使用できる値: %1";
inline constexpr Text FixedValue = u"固定値 '%1' でなければなりません。";
inline constexpr Text ExpectedType = u"%1 データ型の値が必要です。";
/// Between what the members of a union want.
inline constexpr Text Or = u"または、";
// %1 is the element, %2 the value, %3 the name of the constraint.
inline constexpr Text DuplicateKey =
    u"要素 '%1' の値 %2 は、一意性の制約 '%3' に反して重複しています。";
inline constexpr Text UnmatchedKeyRef =
    u"要素 '%1' の値 %2 は、キー参照 '%3' が指すキーのいずれとも一致しません。";
inline constexpr Text IncompleteKey = u"要素 '%1' に、キー '%2' に必要な値がありません。";
inline constexpr Text AbstractElement =
    u"要素 '%1' は抽象要素または抽象型なので、ドキュメントに置くことはできません。";
inline constexpr Text InvalidNil =
    u"要素 '%1' の xsi:nil 属性を使用できないか、内容が空ではありません。";
inline constexpr Text InvalidInstanceType = u"要素 '%1' の xsi:type 属性の型が正しくありません。";
inline constexpr Text BlockedSubstitution =
    u"要素 '%1' は、スキーマで置換が禁止されているため、ここに置くことはできません。";
inline constexpr Text ViolatedKey =
    u"要素 '%1' の値が、スキーマの一意性またはキーの制約を満たしていません。";
/// Where it is not known which of them.
inline constexpr Text InvalidAttributes = u"要素 '%1' の属性の値が正しくありません。";
inline constexpr Text StandaloneAttribute =
    u"要素 '%2' の属性 '%1' が外部の DTD の宣言によって変わるため、standalone=\"yes\" "
    u"を指定することはできません。";
inline constexpr Text StandaloneContent =
    u"要素 '%1' の内容が外部の DTD の宣言によって変わるため、standalone=\"yes\" "
    u"を指定することはできません。";
inline constexpr Text OtherSchemaViolation =
    u"要素 '%1' はスキーマの制約を満たしていません (エラー番号 %2)。";
inline constexpr Text DtdViolation = u"要素 '%1' は DTD の制約を満たしていません (エラー番号 %2)。";
inline constexpr Text SchemaViolation =
    u"ドキュメントは DTD/スキーマの制約を満たしていません (エラー番号 %1)。";
inline constexpr Text UndeclaredEntity =
    u"属性 '%1' が参照している実体 '%2' は、DTD で宣言されていません。";

// Schemas that cannot be used.
inline constexpr Text CannotLoadSchema = u"スキーマ '%1' を読み込めません。\n%2";
inline constexpr Text SchemaLine = u"%1 行目: ";
inline constexpr Text SchemaNotFound =
    u"ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。";
inline constexpr Text NotAnXsd = u"XML スキーマ (XSD) ではありません。";
inline constexpr Text TargetNamespace =
    u"スキーマに対象の名前空間 '%1' があるため、名前空間なしの検証には使用できません。";
inline constexpr Text ExpansionLimit = u"実体の展開が大きすぎるため、検証を中止しました。";
/// Where it is the document itself that cannot be read for validation.
inline constexpr Text DocumentFault = u"ドキュメントを検証できませんでした。\n%1";
/// A file or a namespace that a schema imports; after the message of success, or what the missing
/// declarations lead to.
inline constexpr Text MissingImport =
    u"スキーマが取り込む '%1' が見つからないため、その宣言を使わずに検証しました。";
inline constexpr Text MissingImportOfFault = u"スキーマが取り込む '%1' が見つかりません。";
inline constexpr Text ValidatorFailed = u"検証を実行できませんでした。";

// XDR schemas.
inline constexpr Text NotAnXdr = u"XML-Data Reduced (XDR) スキーマではありません。";
inline constexpr Text XdrUnknownElement = u"要素 '%1' を要素 '%2' の中で使用することはできません。";
inline constexpr Text XdrUnknownAttribute = u"要素 '%2' で属性 '%1' を使用することはできません。";
inline constexpr Text XdrMissingAttribute = u"要素 '%2' に属性 '%1' が必要です。";
inline constexpr Text XdrInvalidAttribute = u"要素 '%2' の属性 '%1' の値 '%3' が正しくありません。";
inline constexpr Text XdrEmptyAttribute = u"要素 '%2' の属性 '%1' の値が空です。";
inline constexpr Text XdrDuplicate = u"'%1' という名前の宣言が重複しています。";
inline constexpr Text XdrUndefinedType = u"'%1' という名前の %2 が宣言されていません。";
inline constexpr Text XdrContradiction =
    u"ElementType '%1' の content と内容の宣言が矛盾しています。";
inline constexpr Text XdrBadDefault = u"属性 '%1' の既定値 '%2' がデータ型に合っていません。";
inline constexpr Text XdrTooDeep = u"group の入れ子が深すぎます。";

} // namespace quillon::resources::validation_texts

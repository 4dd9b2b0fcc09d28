#pragma once

#include <QStringView>

/// What validation says. %1, %2, %3 stand for what the sentence names.
namespace quillon::resources::validation_texts {

// The commands.
inline constexpr QStringView DialogTitle = u"検証用ファイルの選択";
inline constexpr QStringView DialogFilter = u"DTD(*.dtd)|*.dtd|XML-Schema(XSD)(*.xsd)|*.xsd|"
                                            u"XML-Data Reduced(XDR)(*.xml)|*.xml";
inline constexpr QStringView Validating = u"検証しています...";
inline constexpr QStringView AtLine = u"%1 行目: %2";
inline constexpr QStringView NoRoot =
    u"ドキュメントにルート要素が 1 つだけ含まれていないため、検証できませんでした。";

// A document that does not keep to its schema.
inline constexpr QStringView UndefinedEntity = u"未定義の実体 '%1' が参照されています。";
inline constexpr QStringView UndeclaredElement =
    u"要素 '%1' が使用されていますが、DTD/スキーマで宣言されていません。";
inline constexpr QStringView UndefinedId =
    u"属性 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。";
inline constexpr QStringView UndefinedElementId =
    u"要素 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。";
inline constexpr QStringView EmptyElement =
    u"DTD/スキーマによると、要素 '%1' を空にすることはできません。";
inline constexpr QStringView IncompleteContent =
    u"DTD/スキーマによると、要素 '%1' の内容が不完全です。";
inline constexpr QStringView WrongRoot =
    u"最上位の要素 '%1' の名前は、文書型宣言の名前と一致する必要があります。";
inline constexpr QStringView InvalidContent =
    u"DTD/スキーマによると、要素 '%1' の内容が正しくありません。";
inline constexpr QStringView UnexpectedElement =
    u"DTD/スキーマによると、要素 '%1' の内容が正しくありません。要素 '%2' "
    u"をここに置くことはできません。";
/// Ahead of %2 in %1.
inline constexpr QStringView MissingAhead =
    u"DTD/スキーマによると、要素 '%1' の中で、要素 '%2' の前に必要な要素がありません。";
inline constexpr QStringView UnexpectedRoot =
    u"スキーマによると、要素 '%1' をルート要素にすることはできません。";
inline constexpr QStringView Expecting = u"次のいずれかが必要です: %1";
inline constexpr QStringView UndefinedAttribute =
    u"要素 '%2' の属性 '%1' は、DTD/スキーマで定義されていません。";
inline constexpr QStringView FixedAttribute =
    u"要素 '%2' の属性 '%1' の値が、DTD/スキーマで定義されている固定値と一致しません。";
inline constexpr QStringView FixedElement =
    u"要素 '%1' の値が、スキーマで定義されている固定値と一致しません。";
inline constexpr QStringView InvalidAttribute =
    u"DTD/スキーマによると、要素 '%2' の属性 '%1' の値 '%3' が正しくありません。";
inline constexpr QStringView TextNotAllowed =
    u"DTD/スキーマによると、要素 '%1' にテキストを含めることはできません。";
inline constexpr QStringView MissingAttribute = u"要素 '%2' に必須の属性 '%1' がありません。";
inline constexpr QStringView InvalidDatatype =
    u"要素 '%3' の値 '%1' を %2 データ型として解析できません。";
inline constexpr QStringView InvalidLength =
    u"スキーマによると、要素 '%1' の値の長さが正しくありません。";
inline constexpr QStringView DuplicateId =
    u"要素 '%2' の ID '%1' は、ドキュメントの中ですでに使用されています。";
inline constexpr QStringView NoSchemaFound =
    u"DTD/スキーマの宣言が見つからないため、ドキュメントを検証できませんでした。";

// The same, where only an XML Schema can say it.
inline constexpr QStringView InvalidElementValue =
    u"スキーマによると、要素 '%1' の値 '%2' が正しくありません。";
inline constexpr QStringView InvalidAttributeValue =
    u"スキーマによると、要素 '%1' の属性 '%2' の値 '%3' が正しくありません。";
// What follows these. %1 is the limit, %2 what the value has.
inline constexpr QStringView FacetLength = u"長さは %1 でなければなりませんが、%2 です。";
inline constexpr QStringView FacetMinLength = u"長さは %1 以上でなければなりませんが、%2 です。";
inline constexpr QStringView FacetMaxLength = u"長さは %1 以下でなければなりませんが、%2 です。";
inline constexpr QStringView FacetMinInclusive = u"%1 以上の値が必要です。";
inline constexpr QStringView FacetMaxInclusive = u"%1 以下の値が必要です。";
inline constexpr QStringView FacetMinExclusive = u"%1 より大きい値が必要です。";
inline constexpr QStringView FacetMaxExclusive = u"%1 より小さい値が必要です。";
inline constexpr QStringView FacetTotalDigits = u"桁数は %1 桁までです。";
inline constexpr QStringView FacetFractionDigits = u"小数部は %1 桁までです。";
inline constexpr QStringView FacetPattern = u"値がパターン '%1' と一致しません。";
inline constexpr QStringView FacetEnumeration = u"使用できる値: %1";
inline constexpr QStringView FixedValue = u"固定値 '%1' でなければなりません。";
inline constexpr QStringView ExpectedType = u"%1 データ型の値が必要です。";
/// Between what the members of a union want.
inline constexpr QStringView Or = u"または、";
// %1 is the element, %2 the value, %3 the name of the constraint.
inline constexpr QStringView DuplicateKey =
    u"要素 '%1' の値 %2 は、一意性の制約 '%3' に反して重複しています。";
inline constexpr QStringView UnmatchedKeyRef =
    u"要素 '%1' の値 %2 は、キー参照 '%3' が指すキーのいずれとも一致しません。";
inline constexpr QStringView IncompleteKey = u"要素 '%1' に、キー '%2' に必要な値がありません。";
inline constexpr QStringView AbstractElement =
    u"要素 '%1' は抽象要素または抽象型なので、ドキュメントに置くことはできません。";
inline constexpr QStringView InvalidNil =
    u"要素 '%1' の xsi:nil 属性を使用できないか、内容が空ではありません。";
inline constexpr QStringView InvalidInstanceType =
    u"要素 '%1' の xsi:type 属性の型が正しくありません。";
inline constexpr QStringView BlockedSubstitution =
    u"要素 '%1' は、スキーマで置換が禁止されているため、ここに置くことはできません。";
inline constexpr QStringView ViolatedKey =
    u"要素 '%1' の値が、スキーマの一意性またはキーの制約を満たしていません。";
/// Where it is not known which of them.
inline constexpr QStringView InvalidAttributes = u"要素 '%1' の属性の値が正しくありません。";
inline constexpr QStringView StandaloneAttribute =
    u"要素 '%2' の属性 '%1' が外部の DTD の宣言によって変わるため、standalone=\"yes\" "
    u"を指定することはできません。";
inline constexpr QStringView StandaloneContent =
    u"要素 '%1' の内容が外部の DTD の宣言によって変わるため、standalone=\"yes\" "
    u"を指定することはできません。";
inline constexpr QStringView OtherSchemaViolation =
    u"要素 '%1' はスキーマの制約を満たしていません (エラー番号 %2)。";
inline constexpr QStringView DtdViolation =
    u"要素 '%1' は DTD の制約を満たしていません (エラー番号 %2)。";
inline constexpr QStringView SchemaViolation =
    u"ドキュメントは DTD/スキーマの制約を満たしていません (エラー番号 %1)。";
inline constexpr QStringView UndeclaredEntity =
    u"属性 '%1' が参照している実体 '%2' は、DTD で宣言されていません。";

// Schemas that cannot be used.
inline constexpr QStringView CannotLoadSchema = u"スキーマ '%1' を読み込めません。\n%2";
inline constexpr QStringView SchemaLine = u"%1 行目: ";
inline constexpr QStringView SchemaNotFound =
    u"ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。";
inline constexpr QStringView NotAnXsd = u"XML スキーマ (XSD) ではありません。";
inline constexpr QStringView TargetNamespace =
    u"スキーマに対象の名前空間 '%1' があるため、名前空間なしの検証には使用できません。";
inline constexpr QStringView ExpansionLimit = u"実体の展開が大きすぎるため、検証を中止しました。";
/// Where it is the document itself that cannot be read for validation.
inline constexpr QStringView DocumentFault = u"ドキュメントを検証できませんでした。\n%1";
/// A file or a namespace that a schema imports; after the message of success, or what the missing
/// declarations lead to.
inline constexpr QStringView MissingImport =
    u"スキーマが取り込む '%1' が見つからないため、その宣言を使わずに検証しました。";
inline constexpr QStringView MissingImportOfFault = u"スキーマが取り込む '%1' が見つかりません。";
inline constexpr QStringView ValidatorFailed = u"検証を実行できませんでした。";

// XDR schemas.
inline constexpr QStringView NotAnXdr = u"XML-Data Reduced (XDR) スキーマではありません。";
inline constexpr QStringView XdrUnknownElement =
    u"要素 '%1' を要素 '%2' の中で使用することはできません。";
inline constexpr QStringView XdrUnknownAttribute =
    u"要素 '%2' で属性 '%1' を使用することはできません。";
inline constexpr QStringView XdrMissingAttribute = u"要素 '%2' に属性 '%1' が必要です。";
inline constexpr QStringView XdrInvalidAttribute =
    u"要素 '%2' の属性 '%1' の値 '%3' が正しくありません。";
inline constexpr QStringView XdrEmptyAttribute = u"要素 '%2' の属性 '%1' の値が空です。";
inline constexpr QStringView XdrDuplicate = u"'%1' という名前の宣言が重複しています。";
inline constexpr QStringView XdrUndefinedType = u"'%1' という名前の %2 が宣言されていません。";
inline constexpr QStringView XdrContradiction =
    u"ElementType '%1' の content と内容の宣言が矛盾しています。";
inline constexpr QStringView XdrBadDefault =
    u"属性 '%1' の既定値 '%2' がデータ型に合っていません。";
inline constexpr QStringView XdrTooDeep = u"group の入れ子が深すぎます。";

} // namespace quillon::resources::validation_texts

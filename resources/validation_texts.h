#pragma once

#include <QString>

/// What validation says. %1, %2, %3 stand for what the sentence names.
namespace quillon::resources::validation_text {

// The commands.
inline const QString DialogTitle = QStringLiteral("検証用ファイルの選択");
inline const QString DialogFilter = QStringLiteral("DTD(*.dtd)|*.dtd|XML-Schema(XSD)(*.xsd)|*.xsd|"
                                                   "XML-Data Reduced(XDR)(*.xml)|*.xml");
inline const QString Validating = QStringLiteral("検証しています...");
inline const QString AtLine = QStringLiteral("%1 行目: %2");
inline const QString NoRoot =
    QStringLiteral("ドキュメントにルート要素が 1 つだけ含まれていないため、検証できませんでした。");

// A document that does not keep to its schema.
inline const QString UndefinedEntity = QStringLiteral("未定義の実体 '%1' が参照されています。");
inline const QString UndeclaredElement =
    QStringLiteral("要素 '%1' が使用されていますが、DTD/スキーマで宣言されていません。");
inline const QString UndefinedId = QStringLiteral(
    "属性 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。");
inline const QString UndefinedElementId = QStringLiteral(
    "要素 '%1' が参照している ID '%2' は、ドキュメントのどこにも定義されていません。");
inline const QString EmptyElement =
    QStringLiteral("DTD/スキーマによると、要素 '%1' を空にすることはできません。");
inline const QString IncompleteContent =
    QStringLiteral("DTD/スキーマによると、要素 '%1' の内容が不完全です。");
inline const QString WrongRoot =
    QStringLiteral("最上位の要素 '%1' の名前は、文書型宣言の名前と一致する必要があります。");
inline const QString InvalidContent =
    QStringLiteral("DTD/スキーマによると、要素 '%1' の内容が正しくありません。");
inline const QString UnexpectedElement =
    QStringLiteral("DTD/スキーマによると、要素 '%1' の内容が正しくありません。要素 '%2' "
                   "をここに置くことはできません。");
inline const QString Expecting = QStringLiteral("次のいずれかが必要です: %1");
inline const QString UndefinedAttribute =
    QStringLiteral("要素 '%2' の属性 '%1' は、DTD/スキーマで定義されていません。");
inline const QString FixedAttribute = QStringLiteral(
    "要素 '%2' の属性 '%1' の値が、DTD/スキーマで定義されている固定値と一致しません。");
inline const QString FixedElement =
    QStringLiteral("要素 '%1' の値が、スキーマで定義されている固定値と一致しません。");
inline const QString InvalidAttribute =
    QStringLiteral("DTD/スキーマによると、要素 '%2' の属性 '%1' の値 '%3' が正しくありません。");
inline const QString TextNotAllowed =
    QStringLiteral("DTD/スキーマによると、要素 '%1' にテキストを含めることはできません。");
inline const QString MissingAttribute =
    QStringLiteral("要素 '%2' に必須の属性 '%1' がありません。");
inline const QString InvalidDatatype =
    QStringLiteral("要素 '%3' の値 '%1' を %2 データ型として解析できません。");
inline const QString InvalidLength =
    QStringLiteral("スキーマによると、要素 '%1' の値の長さが正しくありません。");
inline const QString DuplicateId =
    QStringLiteral("要素 '%2' の ID '%1' は、ドキュメントの中ですでに使用されています。");
inline const QString NoSchemaFound =
    QStringLiteral("DTD/スキーマの宣言が見つからないため、ドキュメントを検証できませんでした。");

// The same, where only an XML Schema can say it.
inline const QString InvalidElementValue =
    QStringLiteral("スキーマによると、要素 '%1' の値 '%2' が正しくありません。");
inline const QString InvalidAttributeValue =
    QStringLiteral("スキーマによると、要素 '%1' の属性 '%2' の値 '%3' が正しくありません。");
// What follows these. %1 is the limit, %2 what the value has.
inline const QString FacetLength = QStringLiteral("長さは %1 でなければなりませんが、%2 です。");
inline const QString FacetMinLength =
    QStringLiteral("長さは %1 以上でなければなりませんが、%2 です。");
inline const QString FacetMaxLength =
    QStringLiteral("長さは %1 以下でなければなりませんが、%2 です。");
inline const QString FacetMinInclusive = QStringLiteral("%1 以上の値が必要です。");
inline const QString FacetMaxInclusive = QStringLiteral("%1 以下の値が必要です。");
inline const QString FacetMinExclusive = QStringLiteral("%1 より大きい値が必要です。");
inline const QString FacetMaxExclusive = QStringLiteral("%1 より小さい値が必要です。");
inline const QString FacetTotalDigits = QStringLiteral("桁数は %1 桁までです。");
inline const QString FacetFractionDigits = QStringLiteral("小数部は %1 桁までです。");
inline const QString FacetPattern = QStringLiteral("値がパターン '%1' と一致しません。");
inline const QString FacetEnumeration = QStringLiteral("使用できる値: %1");
// %1 is the element, %2 the value, %3 the name of the constraint.
inline const QString DuplicateKey =
    QStringLiteral("要素 '%1' の値 %2 は、一意性の制約 '%3' に反して重複しています。");
inline const QString UnmatchedKeyRef =
    QStringLiteral("要素 '%1' の値 %2 は、キー参照 '%3' が指すキーのいずれとも一致しません。");
inline const QString IncompleteKey =
    QStringLiteral("要素 '%1' に、キー '%2' に必要な値がありません。");
inline const QString AbstractElement =
    QStringLiteral("要素 '%1' は抽象要素または抽象型なので、ドキュメントに置くことはできません。");
inline const QString InvalidNil =
    QStringLiteral("要素 '%1' の xsi:nil 属性を使用できないか、内容が空ではありません。");
inline const QString InvalidInstanceType =
    QStringLiteral("要素 '%1' の xsi:type 属性の型が正しくありません。");
inline const QString OtherSchemaViolation =
    QStringLiteral("要素 '%1' はスキーマの制約を満たしていません (エラー番号 %2)。");
inline const QString DtdViolation =
    QStringLiteral("要素 '%1' は DTD の制約を満たしていません (エラー番号 %2)。");
inline const QString SchemaViolation =
    QStringLiteral("ドキュメントは DTD/スキーマの制約を満たしていません (エラー番号 %1)。");
inline const QString UndeclaredEntity =
    QStringLiteral("属性 '%1' が参照している実体 '%2' は、DTD で宣言されていません。");

// Schemas that cannot be used.
inline const QString CannotLoadSchema = QStringLiteral("スキーマ '%1' を読み込めません。\n%2");
inline const QString SchemaLine = QStringLiteral("%1 行目: ");
inline const QString SchemaNotFound =
    QStringLiteral("ファイルが、スキーマのフォルダーにも作業フォルダーにも見つかりません。");
inline const QString NotAnXsd = QStringLiteral("XML スキーマ (XSD) ではありません。");
inline const QString TargetNamespace = QStringLiteral(
    "スキーマに対象の名前空間 '%1' があるため、名前空間なしの検証には使用できません。");
inline const QString ExpansionLimit =
    QStringLiteral("実体の展開が大きすぎるため、検証を中止しました。");
/// Where it is the document itself that cannot be read for validation.
inline const QString DocumentFault = QStringLiteral("ドキュメントを検証できませんでした。\n%1");
/// A file or a namespace that a schema imports; after the message of success, or what the missing
/// declarations lead to.
inline const QString MissingImport =
    QStringLiteral("スキーマが取り込む '%1' が見つからないため、その宣言を使わずに検証しました。");
inline const QString MissingImportOfFault =
    QStringLiteral("スキーマが取り込む '%1' が見つかりません。");
inline const QString ValidatorFailed = QStringLiteral("検証を実行できませんでした。");

// XDR schemas.
inline const QString NotAnXdr = QStringLiteral("XML-Data Reduced (XDR) スキーマではありません。");
inline const QString XdrUnknownElement =
    QStringLiteral("要素 '%1' を要素 '%2' の中で使用することはできません。");
inline const QString XdrUnknownAttribute =
    QStringLiteral("要素 '%2' で属性 '%1' を使用することはできません。");
inline const QString XdrMissingAttribute = QStringLiteral("要素 '%2' に属性 '%1' が必要です。");
inline const QString XdrInvalidAttribute =
    QStringLiteral("要素 '%2' の属性 '%1' の値 '%3' が正しくありません。");
inline const QString XdrEmptyAttribute = QStringLiteral("要素 '%2' の属性 '%1' の値が空です。");
inline const QString XdrDuplicate = QStringLiteral("'%1' という名前の宣言が重複しています。");
inline const QString XdrUndefinedType =
    QStringLiteral("'%1' という名前の %2 が宣言されていません。");
inline const QString XdrContradiction =
    QStringLiteral("ElementType '%1' の content と内容の宣言が矛盾しています。");
inline const QString XdrBadDefault =
    QStringLiteral("属性 '%1' の既定値 '%2' がデータ型に合っていません。");
inline const QString XdrTooDeep = QStringLiteral("group の入れ子が深すぎます。");

} // namespace quillon::resources::validation_text

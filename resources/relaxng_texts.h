#pragma once

#include <QStringView>

/// What is wrong with a RELAX NG schema. %1 stands for the element of the schema and its name.
namespace quillon::resources::relaxng_texts {

inline constexpr QStringView NotRelaxNg = u"RELAX NG スキーマではありません。";
/// Of the compact syntax. %1 is what stands where something else would have to.
inline constexpr QStringView CompactFault =
    u"RELAX NG 短縮構文の誤りです。'%1' をここに置くことはできません。";

inline constexpr QStringView UndefinedReference = u"%1: 参照先の定義がスキーマにありません。";
inline constexpr QStringView CyclicReference = u"%1: 定義が要素を介さずに循環しています。";
inline constexpr QStringView CyclicInclude = u"%1: スキーマの取り込みが循環しています。";
inline constexpr QStringView MissingFile = u"%1: 取り込むファイルを読み込めません。";
inline constexpr QStringView MissingAddress = u"%1: 取り込むファイルの指定がありません。";
inline constexpr QStringView BadAddress = u"%1: ファイルまたは名前空間の指定が正しくありません。";
inline constexpr QStringView MissingStart = u"%1: start がないか、内容が正しくありません。";
inline constexpr QStringView MissingName = u"%1: 名前がないか、正しくありません。";
inline constexpr QStringView MissingContent = u"%1: 内容がありません。";
inline constexpr QStringView BadContent = u"%1: この内容を置くことはできません。";
inline constexpr QStringView NeedsCombine =
    u"%1: 同じ名前の定義が複数あります。combine 属性で組み合わせ方を指定する必要があります。";
inline constexpr QStringView BadCombine =
    u"%1: 同じ名前の定義の combine 属性が矛盾しているか、正しくありません。";
inline constexpr QStringView Conflict = u"%1: 同じ属性または要素が同時に複数指定されています。";
inline constexpr QStringView UnknownType = u"%1: データ型がないか、認識できません。";
inline constexpr QStringView BadValue = u"%1: 値がデータ型に合っていません。";
inline constexpr QStringView UnknownElement =
    u"%1: RELAX NG にない要素または属性か、ここには置けないものです。";
/// %2 is the number of the fault.
inline constexpr QStringView Other = u"%1: 定義が正しくありません (エラー番号 %2)。";

} // namespace quillon::resources::relaxng_texts

#pragma once

#include "resources/text.h"

/// What is wrong with a RELAX NG schema. %1 stands for the element of the schema and its name.
namespace quillon::resources::relaxng_texts {

inline constexpr Text NotRelaxNg = u"RELAX NG スキーマではありません。";
/// Of the compact syntax. %1 is what stands where something else would have to.
inline constexpr Text CompactFault =
    u"RELAX NG 短縮構文の誤りです。'%1' をここに置くことはできません。";

inline constexpr Text UndefinedReference = u"%1: 参照先の定義がスキーマにありません。";
inline constexpr Text CyclicReference = u"%1: 定義が要素を介さずに循環しています。";
inline constexpr Text CyclicInclude = u"%1: スキーマの取り込みが循環しています。";
inline constexpr Text MissingFile = u"%1: 取り込むファイルを読み込めません。";
inline constexpr Text MissingAddress = u"%1: 取り込むファイルの指定がありません。";
inline constexpr Text BadAddress = u"%1: ファイルまたは名前空間の指定が正しくありません。";
inline constexpr Text MissingStart = u"%1: start がないか、内容が正しくありません。";
inline constexpr Text MissingName = u"%1: 名前がないか、正しくありません。";
inline constexpr Text MissingContent = u"%1: 内容がありません。";
inline constexpr Text BadContent = u"%1: この内容を置くことはできません。";
inline constexpr Text NeedsCombine =
    u"%1: 同じ名前の定義が複数あります。combine 属性で組み合わせ方を指定する必要があります。";
inline constexpr Text BadCombine =
    u"%1: 同じ名前の定義の combine 属性が矛盾しているか、正しくありません。";
inline constexpr Text Conflict = u"%1: 同じ属性または要素が同時に複数指定されています。";
inline constexpr Text UnknownType = u"%1: データ型がないか、認識できません。";
inline constexpr Text BadValue = u"%1: 値がデータ型に合っていません。";
inline constexpr Text UnknownElement =
    u"%1: RELAX NG にない要素または属性か、ここには置けないものです。";
/// %2 is the number of the fault.
inline constexpr Text Other = u"%1: 定義が正しくありません (エラー番号 %2)。";

} // namespace quillon::resources::relaxng_texts

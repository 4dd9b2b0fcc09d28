#pragma once

#include <QStringView>

/// What the list of hits and its panel say.
namespace quillon::resources::hit_texts {

// The kinds of nodes.
inline constexpr QStringView Element = u"要素";
inline constexpr QStringView Attribute = u"属性";
inline constexpr QStringView Text = u"テキスト";
inline constexpr QStringView CDataSection = u"CDATA";
inline constexpr QStringView EntityReference = u"実体参照";
inline constexpr QStringView Instruction = u"処理命令";
inline constexpr QStringView Comment = u"コメント";
inline constexpr QStringView Document = u"ドキュメント";
inline constexpr QStringView DocumentType = u"文書型宣言";

} // namespace quillon::resources::hit_texts

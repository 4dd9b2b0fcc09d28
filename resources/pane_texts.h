#pragma once

#include "resources/text.h"

/// What the commands of the edit pane say.
namespace quillon::resources::pane_texts {

inline constexpr Text RenamePrompt = u"新しいタグ名を入力してください。";
inline constexpr Text NoTagsHere =
    u"カーソルの位置に、開始タグと終了タグのそろった要素がありません。";
inline constexpr Text NamesAreLocked =
    u"要素名を変更できません。ドキュメントが読み取り専用か、名前がロックされています。";
inline constexpr Text NoPartner = u"対応する括弧またはタグがありません。";
inline constexpr Text NothingToFold = u"折りたためる要素がありません。";
/// %1 is a number of percent.
inline constexpr Text ZoomIs = u"表示倍率: %1%";

} // namespace quillon::resources::pane_texts

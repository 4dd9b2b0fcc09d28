#pragma once

#include "resources/text.h"

/// What the path box and the command that copies a path tell the user.
namespace quillon::resources::query_texts {

inline constexpr Text MatchesInDefaultNamespace = u"既定の名前空間で %1 件";
// A number, a text or a truth value.
inline constexpr Text Result = u"結果: %1";
inline constexpr Text ResultInDefaultNamespace = u"結果: %1 (既定の名前空間)";
inline constexpr Text EmptyResult = u"(空の文字列)";

inline constexpr Text PathCopied = u"XPath をコピーしました: %1";
inline constexpr Text NoPathOfDocumentType = u"文書型宣言を選択する XPath はありません。";
inline constexpr Text NoPathOfDeclaration = u"XML 宣言を選択する XPath はありません。";
inline constexpr Text NoPathOfUndeclaration =
    u"名前空間の宣言を取り消す属性を選択する XPath はありません。";
inline constexpr Text NoPath = u"このノードを選択する XPath はありません。";

// What assistive technology calls the list below the path box.
inline constexpr Text ProposalsName = u"パスの候補";

} // namespace quillon::resources::query_texts

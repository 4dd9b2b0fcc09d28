#pragma once

#include <QStringView>

/// What the path box and the command that copies a path tell the user.
namespace quillon::resources::query_texts {

inline constexpr QStringView MatchesInDefaultNamespace = u"既定の名前空間で %1 件";
// A number, a text or a truth value.
inline constexpr QStringView Result = u"結果: %1";
inline constexpr QStringView ResultInDefaultNamespace = u"結果: %1 (既定の名前空間)";
inline constexpr QStringView EmptyResult = u"(空の文字列)";

inline constexpr QStringView PathCopied = u"XPath をコピーしました: %1";
inline constexpr QStringView NoPathOfDocumentType = u"文書型宣言を選択する XPath はありません。";
inline constexpr QStringView NoPathOfDeclaration = u"XML 宣言を選択する XPath はありません。";
inline constexpr QStringView NoPathOfUndeclaration =
    u"名前空間の宣言を取り消す属性を選択する XPath はありません。";
inline constexpr QStringView NoPath = u"このノードを選択する XPath はありません。";

// What assistive technology calls the list below the path box.
inline constexpr QStringView ProposalsName = u"パスの候補";

} // namespace quillon::resources::query_texts

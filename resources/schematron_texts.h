#pragma once

#include "resources/text.h"

/// What is wrong with a Schematron schema. %1, %2 stand for what the sentence names.
namespace quillon::resources::schematron_texts {

inline constexpr Text NotASchematron = u"Schematron スキーマではありません。";
inline constexpr Text QueryBinding =
    u"クエリ言語 '%1' には対応していません。使用できるのは XSLT 1.0 (queryBinding=\"xslt\") "
    u"だけです。";
inline constexpr Text MissingAttribute = u"要素 '%1' に必須の属性 '%2' がありません。";
inline constexpr Text UnknownPattern = u"パターン '%1' はスキーマにありません。";
inline constexpr Text UnknownAbstractPattern = u"抽象パターン '%1' はスキーマにありません。";
inline constexpr Text UnknownAbstractRule = u"抽象規則 '%1' はスキーマにありません。";
inline constexpr Text UnknownPhase = u"フェーズ '%1' はスキーマにありません。";
inline constexpr Text UnknownDiagnostic = u"診断 '%1' はスキーマにありません。";
inline constexpr Text MissingFile = u"取り込む '%1' が見つからないか、読み込めません。";
inline constexpr Text TooDeep = u"定義の入れ子が深すぎるか、循環しています。";
inline constexpr Text TooLarge = u"定義を展開した結果が大きすぎます。";
/// For an assertion of which the author says nothing. %1 is its test.
inline constexpr Text Violated = u"規則 '%1' が満たされていません。";
/// The same for a report, whose test is true.
inline constexpr Text Reported = u"規則 '%1' に該当します。";

} // namespace quillon::resources::schematron_texts

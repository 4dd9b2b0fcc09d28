#pragma once

#include <QStringView>

/// What is wrong with a Schematron schema. %1, %2 stand for what the sentence names.
namespace quillon::resources::schematron_texts {

inline constexpr QStringView NotASchematron = u"Schematron スキーマではありません。";
inline constexpr QStringView QueryBinding =
    u"クエリ言語 '%1' には対応していません。使用できるのは XSLT 1.0 (queryBinding=\"xslt\") "
    u"だけです。";
inline constexpr QStringView MissingAttribute = u"要素 '%1' に必須の属性 '%2' がありません。";
inline constexpr QStringView UnknownPattern = u"パターン '%1' はスキーマにありません。";
inline constexpr QStringView UnknownAbstractPattern = u"抽象パターン '%1' はスキーマにありません。";
inline constexpr QStringView UnknownAbstractRule = u"抽象規則 '%1' はスキーマにありません。";
inline constexpr QStringView UnknownPhase = u"フェーズ '%1' はスキーマにありません。";
inline constexpr QStringView UnknownDiagnostic = u"診断 '%1' はスキーマにありません。";
inline constexpr QStringView MissingFile = u"取り込む '%1' が見つからないか、読み込めません。";
inline constexpr QStringView TooDeep = u"定義の入れ子が深すぎるか、循環しています。";
inline constexpr QStringView TooLarge = u"定義を展開した結果が大きすぎます。";
/// For an assertion of which the author says nothing. %1 is its test.
inline constexpr QStringView Violated = u"規則 '%1' が満たされていません。";
/// The same for a report, whose test is true.
inline constexpr QStringView Reported = u"規則 '%1' に該当します。";

} // namespace quillon::resources::schematron_texts

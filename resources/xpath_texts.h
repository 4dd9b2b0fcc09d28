#pragma once

#include <QStringView>

/// What the XML parser service says of a path query that it cannot answer.
namespace quillon::resources::xpath_texts {

// The sentence, and the expression with the part it is about between the arrows.
inline constexpr QStringView Message = u"%1式: %2";
inline constexpr QStringView Marked = u"%1-->%2<--%3";
inline constexpr QStringView EndOfExpression = u"(式の終わり)";

inline constexpr QStringView Syntax =
    u"XPath 式の構文が正しくありません。この位置には式が必要です。";
inline constexpr QStringView Unexpected =
    u"XPath 式の構文が正しくありません。この部分を解釈できません。";
inline constexpr QStringView Empty = u"XPath 式が空です。ノードを返す式が必要です。";
inline constexpr QStringView BracketExpected =
    u"XPath 式の構文が正しくありません。この位置には ']' が必要です。";
inline constexpr QStringView ParenthesisExpected =
    u"XPath 式の構文が正しくありません。この位置には ')' が必要です。";
inline constexpr QStringView UnclosedLiteral =
    u"XPath 式の文字列が閉じていません。閉じる引用符が必要です。";
inline constexpr QStringView VariableNameExpected = u"XPath 式の '$' の後には変数名が必要です。";
inline constexpr QStringView NumberExpected = u"XPath 式の数値が正しくありません。";
inline constexpr QStringView ForbiddenCharacter = u"XPath 式で使用できない文字があります。";
inline constexpr QStringView UnknownVariable =
    u"この変数は定義されていません。使用できる変数は、選択中のノードを表す $selection だけです。";
inline constexpr QStringView UnknownFunction = u"この名前の関数はありません。";
inline constexpr QStringView WrongArgumentCount = u"関数の引数の数が正しくありません。";
inline constexpr QStringView WrongType =
    u"XPath 式の値の型が正しくありません。この式にはノード セットが必要な箇所があります。";
inline constexpr QStringView UndeclaredPrefix =
    u"この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。";
inline constexpr QStringView NotNodes =
    u"XPath 式の結果がノードではありません。ノードを返す式が必要です。";
inline constexpr QStringView TooManySteps =
    u"XPath 式の評価に必要な処理が多すぎるため中止しました。式の範囲を絞ってください。";
inline constexpr QStringView TooDeep = u"XPath 式の入れ子が深すぎます。入れ子を浅くしてください。";
inline constexpr QStringView TooLarge =
    u"XPath 式の結果が大きすぎるか、メモリが不足しています。式の範囲を絞ってください。";
inline constexpr QStringView CannotEvaluate = u"XPath 式を評価できません。";

inline constexpr QStringView BadContext =
    u"このノードを起点として XPath 式を評価することはできません。";

} // namespace quillon::resources::xpath_texts

#pragma once

#include "resources/text.h"

/// What the XML parser service says of a path query that it cannot answer.
namespace quillon::resources::xpath_texts {

// The sentence, and the expression with the part it is about between the arrows.
inline constexpr Text Message = u"%1式: %2";
inline constexpr Text Marked = u"%1-->%2<--%3";
inline constexpr Text EndOfExpression = u"(式の終わり)";

inline constexpr Text Syntax = u"XPath 式の構文が正しくありません。この位置には式が必要です。";
inline constexpr Text Unexpected = u"XPath 式の構文が正しくありません。この部分を解釈できません。";
inline constexpr Text Empty = u"XPath 式が空です。ノードを返す式が必要です。";
inline constexpr Text BracketExpected =
    u"XPath 式の構文が正しくありません。この位置には ']' が必要です。";
inline constexpr Text ParenthesisExpected =
    u"XPath 式の構文が正しくありません。この位置には ')' が必要です。";
inline constexpr Text UnclosedLiteral =
    u"XPath 式の文字列が閉じていません。閉じる引用符が必要です。";
inline constexpr Text VariableNameExpected = u"XPath 式の '$' の後には変数名が必要です。";
inline constexpr Text NumberExpected = u"XPath 式の数値が正しくありません。";
inline constexpr Text ForbiddenCharacter = u"XPath 式で使用できない文字があります。";
inline constexpr Text UnknownVariable =
    u"この変数は定義されていません。使用できる変数は、選択中のノードを表す $selection だけです。";
inline constexpr Text UnknownFunction = u"この名前の関数はありません。";
inline constexpr Text WrongArgumentCount = u"関数の引数の数が正しくありません。";
inline constexpr Text WrongType =
    u"XPath 式の値の型が正しくありません。この式にはノード セットが必要な箇所があります。";
inline constexpr Text UndeclaredPrefix =
    u"この接頭辞は宣言されていません。宣言済みの接頭辞を使用してください。";
inline constexpr Text NotNodes =
    u"XPath 式の結果がノードではありません。ノードを返す式が必要です。";
inline constexpr Text TooManySteps =
    u"XPath 式の評価に必要な処理が多すぎるため中止しました。式の範囲を絞ってください。";
inline constexpr Text TooDeep = u"XPath 式の入れ子が深すぎます。入れ子を浅くしてください。";
inline constexpr Text TooLarge =
    u"XPath 式の結果が大きすぎるか、メモリが不足しています。式の範囲を絞ってください。";
inline constexpr Text CannotEvaluate = u"XPath 式を評価できません。";

inline constexpr Text BadContext = u"このノードを起点として XPath 式を評価することはできません。";

} // namespace quillon::resources::xpath_texts

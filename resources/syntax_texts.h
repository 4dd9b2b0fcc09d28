#pragma once

#include "resources/text.h"

/// What is said of text that is not well-formed, and of mending it. Pieces of markup stand in
/// brackets of their own.
namespace quillon::resources::syntax_texts {

// Sentences about faults.
/// %1 is the name of an element, %2 the line of its start tag.
inline constexpr Text MissingEndTag = u"<%1> (%2 行目) に対応する終了タグがありません。";
/// %1 is the end tag, %2 the start tag, %3 its line.
inline constexpr Text WrongCase =
    u"終了タグ </%1> は、大文字と小文字が開始タグ <%2> (%3 行目) と一致しません。";
inline constexpr Text OtherEndTag = u"終了タグ </%1> が開始タグ <%2> (%3 行目) と一致しません。";
inline constexpr Text StrayEndTag = u"終了タグ </%1> に対応する開始タグがありません。";
/// %1 is the name of an attribute in all of these.
inline constexpr Text UnquotedValue = u"属性 '%1' の値が引用符で囲まれていません。";
inline constexpr Text UnclosedQuote = u"属性 '%1' の値の引用符が閉じていません。";
/// %2 is the line of the first one.
inline constexpr Text DuplicateAttribute = u"属性 '%1' が重複しています (1 つ目は %2 行目)。";
inline constexpr Text MissingEquals = u"属性 '%1' の後に = がありません。";
inline constexpr Text MissingValue = u"属性 '%1' に値がありません。";
inline constexpr Text MissingBlank = u"属性 '%1' の前に空白がありません。";
inline constexpr Text BareAmpersand =
    u"& がそのまま書かれています (文字としての & は &amp; と書きます)。";
inline constexpr Text BareLessThan =
    u"< がそのまま書かれています (文字としての < は &lt; と書きます)。";
inline constexpr Text UndeclaredEntity = u"実体 '%1' は宣言されていません。";
inline constexpr Text BadReference = u"文字参照 &%1; は XML で使用できない文字を表します。";
/// %1 is the start of the tag.
inline constexpr Text UnclosedTag = u"タグ %1 が > で閉じられていません。";
/// %1 is its name.
inline constexpr Text SecondRoot =
    u"ルート要素の後に別の要素 <%1> があります (最上位の要素は 1 つだけです)。";
inline constexpr Text TextOutsideRoot = u"ルート要素の外に文字があります。";
inline constexpr Text NoElement = u"XML ドキュメントには最上位の要素が必要です。";
/// %1 is its code.
inline constexpr Text ForbiddenCharacter = u"XML で使用できない文字 (%1) があります。";
inline constexpr Text BlanksAhead = u"XML 宣言の前に空白があります。";
inline constexpr Text AheadOfDeclaration = u"XML 宣言がドキュメントの先頭にありません。";
inline constexpr Text DoubleHyphen = u"コメントの中に -- があります。";
inline constexpr Text UnclosedComment = u"コメントが --> で閉じられていません。";
inline constexpr Text UnclosedSection = u"CDATA セクションが ]]> で閉じられていません。";
inline constexpr Text UnclosedInstruction = u"処理命令が ?> で閉じられていません。";
inline constexpr Text SectionEnd = u"テキストの中に ]]> があります (]]&gt; と書きます)。";

/// %1 is the line, %2 the column in the pane, %3 the sentence.
inline constexpr Text FaultAt = u"%1 行 %2 桁: %3";
inline constexpr Text LookingForMends = u"修正候補を調べています...";

// What a mend does.
/// %1 is the name of an element, %2 the line.
inline constexpr Text InsertEndTag = u"終了タグ </%1> を挿入 (%2 行目)";
/// %1 is how many.
inline constexpr Text InsertEndTags = u"不足している終了タグ %1 個を挿入";
inline constexpr Text MakeEmpty = u"<%1> を空要素 <%1/> に変更";
inline constexpr Text RemoveStartTag = u"開始タグ <%1> (%2 行目) を削除";
/// %1 is the end tag, %2 the start tag.
inline constexpr Text RenameEndTag = u"終了タグ </%1> を </%2> に変更";
/// %1 is the start tag, %2 the end tag, %3 the line.
inline constexpr Text RenameStartTag = u"開始タグ <%1> (%3 行目) を <%2> に変更";
inline constexpr Text RemoveEndTag = u"終了タグ </%1> を削除";
/// %2 is the line.
inline constexpr Text RemoveEndTagAt = u"終了タグ </%1> (%2 行目) を削除";
/// %1 is the attribute with its value in all of these.
inline constexpr Text QuoteValue = u"値を引用符で囲む: %1";
inline constexpr Text CloseQuote = u"引用符を閉じる: %1";
inline constexpr Text SetValue = u"値を付ける: %1";
inline constexpr Text RemoveSecondAttribute = u"2 つ目の属性 %1 を削除";
inline constexpr Text RemoveFirstAttribute = u"1 つ目の属性 %1 を削除";
/// %1 and %2 are names of attributes.
inline constexpr Text RenameSecondAttribute = u"2 つ目の属性 '%1' の名前を '%2' に変更";
inline constexpr Text InsertEquals = u"属性 '%1' の後に = を挿入";
inline constexpr Text RemoveAttribute = u"属性 '%1' を削除";
inline constexpr Text InsertBlank = u"属性 '%1' の前に空白を挿入";
inline constexpr Text EscapeAmpersand = u"& を &amp; に変更";
inline constexpr Text EscapeLessThan = u"< を &lt; に変更";
inline constexpr Text EscapeSectionEnd = u"]]> を ]]&gt; に変更";
inline constexpr Text ReplaceBy = u"%1 を %2 に変更";
/// %1 is the text.
inline constexpr Text RemoveText = u"「%1」を削除";
inline constexpr Text RemoveBlanks = u"< の後の空白を削除";
/// %1 is ">" or "/>".
inline constexpr Text CloseTag = u"タグを %1 で閉じる";
inline constexpr Text WrapInRoot = u"全体を新しいルート要素 <root> で囲む";
/// %1 is the name of the root element.
inline constexpr Text MoveIntoRoot = u"後の要素をルート要素 <%1> の中に入れる";
inline constexpr Text MoveTextIntoRoot = u"文字をルート要素 <%1> の中に入れる";
inline constexpr Text MakeComment = u"文字をコメントにする";
inline constexpr Text RemoveCharacter = u"この文字を削除";
inline constexpr Text BlankForCharacter = u"この文字を空白に変更";
/// %1 is how many there are.
inline constexpr Text RemoveCharacters = u"同じ文字をすべて削除 (%1 個)";
inline constexpr Text RemoveBlanksAhead = u"XML 宣言の前の空白を削除";
inline constexpr Text MoveDeclaration = u"XML 宣言を先頭に移動";
inline constexpr Text CloseComment = u"コメントを --> で閉じる";
inline constexpr Text PartHyphens = u"コメントの -- を - - に変更";
inline constexpr Text CloseSection = u"CDATA セクションを ]]> で閉じる";
inline constexpr Text CloseInstruction = u"処理命令を ?> で閉じる";

} // namespace quillon::resources::syntax_texts

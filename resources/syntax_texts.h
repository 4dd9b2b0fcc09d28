#pragma once

#include <QStringView>

/// What is said of text that is not well-formed, and of mending it. Pieces of markup stand in
/// brackets of their own.
namespace quillon::resources::syntax_texts {

// Sentences about faults.
/// %1 is the name of an element, %2 the line of its start tag.
inline constexpr QStringView MissingEndTag = u"<%1> (%2 行目) に対応する終了タグがありません。";
/// %1 is the end tag, %2 the start tag, %3 its line.
inline constexpr QStringView WrongCase =
    u"終了タグ </%1> は、大文字と小文字が開始タグ <%2> (%3 行目) と一致しません。";
inline constexpr QStringView OtherEndTag =
    u"終了タグ </%1> が開始タグ <%2> (%3 行目) と一致しません。";
inline constexpr QStringView StrayEndTag = u"終了タグ </%1> に対応する開始タグがありません。";
/// %1 is the name of an attribute in all of these.
inline constexpr QStringView UnquotedValue = u"属性 '%1' の値が引用符で囲まれていません。";
inline constexpr QStringView UnclosedQuote = u"属性 '%1' の値の引用符が閉じていません。";
/// %2 is the line of the first one.
inline constexpr QStringView DuplicateAttribute =
    u"属性 '%1' が重複しています (1 つ目は %2 行目)。";
inline constexpr QStringView MissingEquals = u"属性 '%1' の後に = がありません。";
inline constexpr QStringView MissingValue = u"属性 '%1' に値がありません。";
inline constexpr QStringView MissingBlank = u"属性 '%1' の前に空白がありません。";
inline constexpr QStringView BareAmpersand =
    u"& がそのまま書かれています (文字としての & は &amp; と書きます)。";
inline constexpr QStringView BareLessThan =
    u"< がそのまま書かれています (文字としての < は &lt; と書きます)。";
inline constexpr QStringView UndeclaredEntity = u"実体 '%1' は宣言されていません。";
inline constexpr QStringView BadReference = u"文字参照 &%1; は XML で使用できない文字を表します。";
/// %1 is the start of the tag.
inline constexpr QStringView UnclosedTag = u"タグ %1 が > で閉じられていません。";
/// %1 is its name.
inline constexpr QStringView SecondRoot =
    u"ルート要素の後に別の要素 <%1> があります (最上位の要素は 1 つだけです)。";
inline constexpr QStringView TextOutsideRoot = u"ルート要素の外に文字があります。";
inline constexpr QStringView NoElement = u"XML ドキュメントには最上位の要素が必要です。";
/// %1 is its code.
inline constexpr QStringView ForbiddenCharacter = u"XML で使用できない文字 (%1) があります。";
inline constexpr QStringView BlanksAhead = u"XML 宣言の前に空白があります。";
inline constexpr QStringView AheadOfDeclaration = u"XML 宣言がドキュメントの先頭にありません。";
inline constexpr QStringView DoubleHyphen = u"コメントの中に -- があります。";
inline constexpr QStringView UnclosedComment = u"コメントが --> で閉じられていません。";
inline constexpr QStringView UnclosedSection = u"CDATA セクションが ]]> で閉じられていません。";
inline constexpr QStringView UnclosedInstruction = u"処理命令が ?> で閉じられていません。";
inline constexpr QStringView SectionEnd = u"テキストの中に ]]> があります (]]&gt; と書きます)。";

/// %1 is the line, %2 the column in the pane, %3 the sentence.
inline constexpr QStringView FaultAt = u"%1 行 %2 桁: %3";
inline constexpr QStringView LookingForMends = u"修正候補を調べています...";

// What a mend does.
/// %1 is the name of an element, %2 the line.
inline constexpr QStringView InsertEndTag = u"終了タグ </%1> を挿入 (%2 行目)";
/// %1 is how many.
inline constexpr QStringView InsertEndTags = u"不足している終了タグ %1 個を挿入";
inline constexpr QStringView MakeEmpty = u"<%1> を空要素 <%1/> に変更";
inline constexpr QStringView RemoveStartTag = u"開始タグ <%1> (%2 行目) を削除";
/// %1 is the end tag, %2 the start tag.
inline constexpr QStringView RenameEndTag = u"終了タグ </%1> を </%2> に変更";
/// %1 is the start tag, %2 the end tag, %3 the line.
inline constexpr QStringView RenameStartTag = u"開始タグ <%1> (%3 行目) を <%2> に変更";
inline constexpr QStringView RemoveEndTag = u"終了タグ </%1> を削除";
/// %2 is the line.
inline constexpr QStringView RemoveEndTagAt = u"終了タグ </%1> (%2 行目) を削除";
/// %1 is the attribute with its value in all of these.
inline constexpr QStringView QuoteValue = u"値を引用符で囲む: %1";
inline constexpr QStringView CloseQuote = u"引用符を閉じる: %1";
inline constexpr QStringView SetValue = u"値を付ける: %1";
inline constexpr QStringView RemoveSecondAttribute = u"2 つ目の属性 %1 を削除";
inline constexpr QStringView RemoveFirstAttribute = u"1 つ目の属性 %1 を削除";
/// %1 and %2 are names of attributes.
inline constexpr QStringView RenameSecondAttribute = u"2 つ目の属性 '%1' の名前を '%2' に変更";
inline constexpr QStringView InsertEquals = u"属性 '%1' の後に = を挿入";
inline constexpr QStringView RemoveAttribute = u"属性 '%1' を削除";
inline constexpr QStringView InsertBlank = u"属性 '%1' の前に空白を挿入";
inline constexpr QStringView EscapeAmpersand = u"& を &amp; に変更";
inline constexpr QStringView EscapeLessThan = u"< を &lt; に変更";
inline constexpr QStringView EscapeSectionEnd = u"]]> を ]]&gt; に変更";
inline constexpr QStringView ReplaceBy = u"%1 を %2 に変更";
/// %1 is the text.
inline constexpr QStringView RemoveText = u"「%1」を削除";
inline constexpr QStringView RemoveBlanks = u"< の後の空白を削除";
/// %1 is ">" or "/>".
inline constexpr QStringView CloseTag = u"タグを %1 で閉じる";
inline constexpr QStringView WrapInRoot = u"全体を新しいルート要素 <root> で囲む";
/// %1 is the name of the root element.
inline constexpr QStringView MoveIntoRoot = u"後の要素をルート要素 <%1> の中に入れる";
inline constexpr QStringView MoveTextIntoRoot = u"文字をルート要素 <%1> の中に入れる";
inline constexpr QStringView MakeComment = u"文字をコメントにする";
inline constexpr QStringView RemoveCharacter = u"この文字を削除";
inline constexpr QStringView BlankForCharacter = u"この文字を空白に変更";
/// %1 is how many there are.
inline constexpr QStringView RemoveCharacters = u"同じ文字をすべて削除 (%1 個)";
inline constexpr QStringView RemoveBlanksAhead = u"XML 宣言の前の空白を削除";
inline constexpr QStringView MoveDeclaration = u"XML 宣言を先頭に移動";
inline constexpr QStringView CloseComment = u"コメントを --> で閉じる";
inline constexpr QStringView PartHyphens = u"コメントの -- を - - に変更";
inline constexpr QStringView CloseSection = u"CDATA セクションを ]]> で閉じる";
inline constexpr QStringView CloseInstruction = u"処理命令を ?> で閉じる";

} // namespace quillon::resources::syntax_texts

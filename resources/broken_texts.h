#pragma once

#include "resources/text.h"

/// What is said while a file that is not well-formed is mended as text.
namespace quillon::resources::broken_texts {

/// Behind the name in the caption.
inline constexpr Text Mark = u" (修正中)";

// Asked and told.
inline constexpr Text ConfirmSave =
    u"このファイルは整形式の XML ではありません。このままの内容で保存しますか？\n\n%1";
inline constexpr Text Mended = u"整形式の XML になりました。";

// Sentences about faults.
/// %1 is the encoding, %2 the bytes.
inline constexpr Text Undecodable = u"エンコード '%1' では読めないバイト (%2) があります。";
/// %1 is the character, %2 the encoding.
inline constexpr Text Unencodable = u"文字 '%1' は、エンコード '%2' で表すことができません。";

// What a mend does.
/// %1 is the encoding.
inline constexpr Text DeclareEncoding = u"エンコードの宣言を '%1' に変更";
inline constexpr Text ConvertEncoding = u"エンコードを '%1' に変更";
/// %1 are the bytes.
inline constexpr Text RemoveBytes = u"読めないバイト (%1) を削除";
/// %1 is the character, %2 the reference.
inline constexpr Text WriteReference = u"文字 '%1' を文字参照 %2 に変更";
/// %1 is the character.
inline constexpr Text RemoveCharacter = u"文字 '%1' を削除";

} // namespace quillon::resources::broken_texts

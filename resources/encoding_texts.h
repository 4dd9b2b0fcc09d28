#pragma once

#include "resources/text.h"

/// What is said about the encoding of a document. What ends in Name is what assistive technology
/// says.
namespace quillon::resources::encoding_texts {

inline constexpr Text Title = u"エンコードの変更";
/// %1 is the encoding.
inline constexpr Text Present = u"現在のエンコード: %1";
inline constexpr Text PresentNotSupported = u"%1(対応していません)";
inline constexpr Text WithMark = u"%1(BOM 付き)";
inline constexpr Text LittleEndian = u"%1(リトルエンディアン)";
inline constexpr Text BigEndian = u"%1(ビッグエンディアン)";

inline constexpr Text EncodingLabel = u"新しいエンコード(&E):";
inline constexpr Text LineEndsLabel = u"改行(&L):";
inline constexpr Text LineEndsKeep = u"変更しない";
inline constexpr Text LineEndsLf = u"LF に統一する";
inline constexpr Text LineEndsCrLf = u"CR+LF に統一する";

inline constexpr Text UnheldLabel = u"新しいエンコードで表せない文字(&U):";
inline constexpr Text UnheldName = u"新しいエンコードで表せない文字。Enter でその場所へ移動";
inline constexpr Text LineHeader = u"行";
inline constexpr Text CharacterHeader = u"文字";
inline constexpr Text PlaceHeader = u"場所";
inline constexpr Text ResultHeader = u"変更後";
/// %1 is the reference.
inline constexpr Text BecomesReference = u"文字参照 %1 になります";
inline constexpr Text CannotBeWritten = u"表せません";
/// %1 is the name of an attribute, or the kind of a node; %2 the name of the element it is in.
inline constexpr Text PlaceInElement = u"%1(要素 %2)";

// The sum of it.
inline constexpr Text AllIsHeld = u"すべての文字を表せます。";
/// %1 is a number of characters.
inline constexpr Text References = u"%1 文字は文字参照になります。読み込むと同じ文字に戻ります。";
inline constexpr Text Obstacles =
    u"%1 文字は名前、コメント、CDATA "
    u"セクション、処理命令、文書型宣言の中にあり、文字参照にできません。"
    u"その文字を変えるまで、このエンコードには変更できません。";
inline constexpr Text AtLeast = u"%1 以上の";
inline constexpr Text ChangeButton = u"変更(&C)";
inline constexpr Text GoToButton = u"場所を表示(&G)";

inline constexpr Text Checking = u"文字を調べています...";
inline constexpr Text Changing = u"エンコードを変更しています...";
/// %1 is the encoding.
inline constexpr Text Changed = u"次の保存から %1 で書き込みます。";

} // namespace quillon::resources::encoding_texts

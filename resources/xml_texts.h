#pragma once

#include "resources/text.h"

#include <QString>

/// What the XML parser service says of failures. %1, %2 stand for what the sentence names.
namespace quillon::resources::xml_texts {

inline constexpr Text NumbersUsedUp = u"このドキュメントには、これ以上ノードを作成できません。\n"
                                      u"保存してから開き直すと、編集を続けることができます。";
inline constexpr Text TooLarge =
    u"ファイルが大きすぎます。2 GB までのファイルを開くことができます。";
inline constexpr Text TooLongToken =
    u"誤りがあります。1 GB を超えるタグまたはコメントがあるため、その場所を調べられません。";

// Names and values
inline constexpr Text EmptyName = u"空の文字列 '' は名前として使用できません。";
inline constexpr Text BadNameCharacter = u"この名前に文字 '%1' は使用できません:\n%2";
inline constexpr Text BadNameStart = u"この名前を文字 '%1' で始めることはできません:\n%2";
inline constexpr Text ColonInName = u"名前に含めることができるコロンは、前後に文字のある "
                                    u"1 つだけです: %1";
inline constexpr Text ForbiddenCharacter = u"XML で使用できない文字 (%1) が含まれています。";
inline constexpr Text ReservedTarget =
    u"名前 'xml' は予約されています。小文字で指定する必要があります。";
inline constexpr Text BadDeclaration = u"XML 宣言の構文が正しくありません。";

// Changing the tree
inline constexpr Text NoNode = u"ノードが指定されていません。";
inline constexpr Text ReadOnlyNode = u"読み取り専用のノードは変更できません。";
inline constexpr Text NoValue = u"この種類のノード (%1) に値を設定することはできません。";
inline constexpr Text WrongKind = u"この操作は、種類が %1 のノードでは実行できません。";
inline constexpr Text SecondRoot = u"ルート要素は 1 つだけ使用できます。";
inline constexpr Text SecondDocumentType = u"文書型宣言は 1 つだけ使用できます。";
inline constexpr Text RootBeforeDocumentType =
    u"ルート要素を文書型宣言より前に置くことはできません。";
inline constexpr Text BeforeDeclaration = u"XML 宣言はドキュメントの先頭にのみ置くことができます。";
inline constexpr Text UnderItself =
    u"ノードまたはその上位ノードを、そのノード自身の下に挿入することはできません。";
inline constexpr Text NotAChild = u"指定されたノードは、このノードの子ではありません。";
inline constexpr Text OutsideOfValue = u"値の範囲外の文字が指定されています。";
inline constexpr Text AttributeInUse =
    u"属性を別のノードに追加する前に、元のノードから削除する必要があります。";

// Loading
inline constexpr Text CannotOpen = u"指定されたファイルを開くことができません: %1";
inline constexpr Text CannotOpenSpecial = u"デバイス、パイプ、ソケットを開くことはできません: %1";
inline constexpr Text CannotOpenFolder = u"フォルダーを開くことはできません: %1";
inline constexpr Text NoElement = u"XML ドキュメントには最上位の要素が必要です。";
inline constexpr Text UnexpectedEnd = u"ファイルが途中で終わっています。";
inline constexpr Text InvalidToken = u"無効な文字または構文があります。";
inline constexpr Text MismatchedTag = u"終了タグが開始タグと一致しません。";
inline constexpr Text DuplicateAttribute = u"同じ名前の属性が重複しています。";
inline constexpr Text JunkAfterRoot =
    u"XML ドキュメントの最上位に置くことができる要素は 1 つだけです。";
inline constexpr Text UndefinedEntity = u"未定義の実体が参照されています。";
inline constexpr Text EntityLoop = u"実体の参照が循環しています。";
inline constexpr Text EntityLimit = u"実体の展開が大きすぎるため、読み込みを中止しました。";
inline constexpr Text MisplacedDeclaration = u"XML 宣言の位置が正しくありません。";
inline constexpr Text UnclosedCData = u"CDATA セクションが閉じていません。";
inline constexpr Text UnclosedToken = u"閉じていない構文があります。";
inline constexpr Text UnknownEncoding = u"指定されたエンコード '%1' はサポートされていません。";
inline constexpr Text EncodingSwitch =
    u"現在のエンコードから指定されたエンコードへの切り替えはサポートされていません。";
inline constexpr Text BadBytes = u"エンコード '%1' として正しくない文字コードがあります。";
inline constexpr Text OtherSyntaxError = u"XML の構文が正しくありません。";

// Saving
inline constexpr Text Unencodable = u"文字 '%1' (U+%2) は、ドキュメントのエンコード '%3' "
                                    u"で表すことができないため、保存できません。";
inline constexpr Text SourceNotWritten =
    u"ドキュメントの変更していない部分を書き出せないため、保存できません。";
inline constexpr Text NotReadableAgain =
    u"エンコード '%1' で書き出した内容を元どおりに読み出せないため、保存できません。";
inline constexpr Text CannotSave = u"ファイルを保存できません: %1\n%2";
inline constexpr Text CannotSaveToSpecial =
    u"ファイルを保存できません: %1\nデバイス、パイプ、ソケットには保存できません。";
inline constexpr Text CannotPutBack =
    u"ファイルへの書き込みが途中で失敗し、元の内容に戻すこともできませんでした: %1\n%2\n"
    u"ドキュメントを閉じずに、別の場所に保存してください。";

/// The system's reason for a failed file operation, by its errno.
QString systemReason(int error);

} // namespace quillon::resources::xml_texts

#pragma once

#include <QString>

/// What the XML parser service says of failures. %1, %2 stand for what the sentence names.
namespace quillon::resources::xml_texts {

inline constexpr QStringView TooManyNodes = u"ドキュメントのノード数が上限を超えました。";
inline constexpr QStringView TooLarge =
    u"ファイルが大きすぎます。2 GB までのファイルを開くことができます。";

// Names and values
inline constexpr QStringView EmptyName = u"空の文字列 '' は名前として使用できません。";
inline constexpr QStringView BadNameCharacter = u"この名前に文字 '%1' は使用できません:\n%2";
inline constexpr QStringView BadNameStart = u"この名前を文字 '%1' で始めることはできません:\n%2";
inline constexpr QStringView ColonInName = u"名前に含めることができるコロンは、前後に文字のある "
                                           u"1 つだけです: %1";
inline constexpr QStringView ForbiddenCharacter = u"XML で使用できない文字 (%1) が含まれています。";
inline constexpr QStringView ReservedTarget =
    u"名前 'xml' は予約されています。小文字で指定する必要があります。";
inline constexpr QStringView BadDeclaration = u"XML 宣言の構文が正しくありません。";

// Changing the tree
inline constexpr QStringView NoNode = u"ノードが指定されていません。";
inline constexpr QStringView ReadOnlyNode = u"読み取り専用のノードは変更できません。";
inline constexpr QStringView NoValue = u"この種類のノード (%1) に値を設定することはできません。";
inline constexpr QStringView WrongKind = u"この操作は、種類が %1 のノードでは実行できません。";
inline constexpr QStringView SecondRoot = u"ルート要素は 1 つだけ使用できます。";
inline constexpr QStringView SecondDocumentType = u"文書型宣言は 1 つだけ使用できます。";
inline constexpr QStringView RootBeforeDocumentType =
    u"ルート要素を文書型宣言より前に置くことはできません。";
inline constexpr QStringView BeforeDeclaration =
    u"XML 宣言はドキュメントの先頭にのみ置くことができます。";
inline constexpr QStringView UnderItself =
    u"ノードまたはその上位ノードを、そのノード自身の下に挿入することはできません。";
inline constexpr QStringView NotAChild = u"指定されたノードは、このノードの子ではありません。";
inline constexpr QStringView OutsideOfValue = u"値の範囲外の文字が指定されています。";
inline constexpr QStringView AttributeInUse =
    u"属性を別のノードに追加する前に、元のノードから削除する必要があります。";

// Loading
inline constexpr QStringView CannotOpen = u"指定されたファイルを開くことができません: %1";
inline constexpr QStringView CannotOpenSpecial =
    u"デバイス、パイプ、ソケットを開くことはできません: %1";
inline constexpr QStringView CannotOpenFolder = u"フォルダーを開くことはできません: %1";
inline constexpr QStringView NoElement = u"XML ドキュメントには最上位の要素が必要です。";
inline constexpr QStringView UnexpectedEnd = u"ファイルが途中で終わっています。";
inline constexpr QStringView InvalidToken = u"無効な文字または構文があります。";
inline constexpr QStringView MismatchedTag = u"終了タグが開始タグと一致しません。";
inline constexpr QStringView DuplicateAttribute = u"同じ名前の属性が重複しています。";
inline constexpr QStringView JunkAfterRoot =
    u"XML ドキュメントの最上位に置くことができる要素は 1 つだけです。";
inline constexpr QStringView UndefinedEntity = u"未定義の実体が参照されています。";
inline constexpr QStringView EntityLoop = u"実体の参照が循環しています。";
inline constexpr QStringView EntityLimit = u"実体の展開が大きすぎるため、読み込みを中止しました。";
inline constexpr QStringView MisplacedDeclaration = u"XML 宣言の位置が正しくありません。";
inline constexpr QStringView UnclosedCData = u"CDATA セクションが閉じていません。";
inline constexpr QStringView UnclosedToken = u"閉じていない構文があります。";
inline constexpr QStringView DocumentTypeSyntax = u"文書型宣言の構文が正しくありません。";
inline constexpr QStringView UnknownEncoding =
    u"指定されたエンコード '%1' はサポートされていません。";
inline constexpr QStringView EncodingSwitch =
    u"現在のエンコードから指定されたエンコードへの切り替えはサポートされていません。";
inline constexpr QStringView BadBytes = u"エンコード '%1' として正しくない文字コードがあります。";
inline constexpr QStringView OtherSyntaxError = u"XML の構文が正しくありません。";

// Saving
inline constexpr QStringView Unencodable = u"文字 '%1' (U+%2) は、ドキュメントのエンコード '%3' "
                                           u"で表すことができないため、保存できません。";
inline constexpr QStringView SourceNotWritten =
    u"ドキュメントの変更していない部分を書き出せないため、保存できません。";
inline constexpr QStringView NotReadableAgain =
    u"エンコード '%1' で書き出した内容を元どおりに読み出せないため、保存できません。";
inline constexpr QStringView CannotSave = u"ファイルを保存できません: %1\n%2";
inline constexpr QStringView CannotSaveToSpecial =
    u"ファイルを保存できません: %1\nデバイス、パイプ、ソケットには保存できません。";
inline constexpr QStringView CannotPutBack =
    u"ファイルへの書き込みが途中で失敗し、元の内容に戻すこともできませんでした: %1\n%2\n"
    u"ドキュメントを閉じずに、別の場所に保存してください。";

/// The system's reason for a failed file operation, by its errno.
QString systemReason(int error);

} // namespace quillon::resources::xml_texts

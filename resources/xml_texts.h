#pragma once

#include <QString>

/// What the XML parser service says of failures. %1, %2 stand for what the sentence names.
namespace quillon::resources::xml_text {

inline const QString TooManyNodes = QStringLiteral("ドキュメントのノード数が上限を超えました。");
inline const QString TooLarge =
    QStringLiteral("ファイルが大きすぎます。2 GB までのファイルを開くことができます。");

// Names and values
inline const QString EmptyName = QStringLiteral("空の文字列 '' は名前として使用できません。");
inline const QString BadNameCharacter = QStringLiteral("この名前に文字 '%1' は使用できません:\n%2");
inline const QString BadNameStart =
    QStringLiteral("この名前を文字 '%1' で始めることはできません:\n%2");
inline const QString ColonInName =
    QStringLiteral("名前に含めることができるコロンは、前後に文字のある "
                   "1 つだけです: %1");
inline const QString ForbiddenCharacter =
    QStringLiteral("XML で使用できない文字 (%1) が含まれています。");
inline const QString ReservedTarget =
    QStringLiteral("名前 'xml' は予約されています。小文字で指定する必要があります。");
inline const QString BadDeclaration = QStringLiteral("XML 宣言の構文が正しくありません。");

// Changing the tree
inline const QString NoNode = QStringLiteral("ノードが指定されていません。");
inline const QString ReadOnlyNode = QStringLiteral("読み取り専用のノードは変更できません。");
inline const QString NoValue =
    QStringLiteral("この種類のノード (%1) に値を設定することはできません。");
inline const QString WrongKind =
    QStringLiteral("この操作は、種類が %1 のノードでは実行できません。");
inline const QString SecondRoot = QStringLiteral("ルート要素は 1 つだけ使用できます。");
inline const QString SecondDocumentType = QStringLiteral("文書型宣言は 1 つだけ使用できます。");
inline const QString RootBeforeDocumentType =
    QStringLiteral("ルート要素を文書型宣言より前に置くことはできません。");
inline const QString BeforeDeclaration =
    QStringLiteral("XML 宣言はドキュメントの先頭にのみ置くことができます。");
inline const QString UnderItself =
    QStringLiteral("ノードまたはその上位ノードを、そのノード自身の下に挿入することはできません。");
inline const QString NotAChild =
    QStringLiteral("指定されたノードは、このノードの子ではありません。");
inline const QString AttributeInUse =
    QStringLiteral("属性を別のノードに追加する前に、元のノードから削除する必要があります。");

// Loading
inline const QString CannotOpen = QStringLiteral("指定されたファイルを開くことができません: %1");
inline const QString CannotOpenSpecial =
    QStringLiteral("デバイス、パイプ、ソケットを開くことはできません: %1");
inline const QString CannotOpenFolder = QStringLiteral("フォルダーを開くことはできません: %1");
inline const QString NoElement = QStringLiteral("XML ドキュメントには最上位の要素が必要です。");
inline const QString UnexpectedEnd = QStringLiteral("ファイルが途中で終わっています。");
inline const QString InvalidToken = QStringLiteral("無効な文字または構文があります。");
inline const QString MismatchedTag = QStringLiteral("終了タグが開始タグと一致しません。");
inline const QString DuplicateAttribute = QStringLiteral("同じ名前の属性が重複しています。");
inline const QString JunkAfterRoot =
    QStringLiteral("XML ドキュメントの最上位に置くことができる要素は 1 つだけです。");
inline const QString UndefinedEntity = QStringLiteral("未定義の実体が参照されています。");
inline const QString EntityLoop = QStringLiteral("実体の参照が循環しています。");
inline const QString EntityLimit =
    QStringLiteral("実体の展開が大きすぎるため、読み込みを中止しました。");
inline const QString MisplacedDeclaration = QStringLiteral("XML 宣言の位置が正しくありません。");
inline const QString UnclosedCData = QStringLiteral("CDATA セクションが閉じていません。");
inline const QString UnclosedToken = QStringLiteral("閉じていない構文があります。");
inline const QString DocumentTypeSyntax = QStringLiteral("文書型宣言の構文が正しくありません。");
inline const QString UnknownEncoding =
    QStringLiteral("指定されたエンコード '%1' はサポートされていません。");
inline const QString EncodingSwitch = QStringLiteral(
    "現在のエンコードから指定されたエンコードへの切り替えはサポートされていません。");
inline const QString BadBytes =
    QStringLiteral("エンコード '%1' として正しくない文字コードがあります。");
inline const QString OtherSyntaxError = QStringLiteral("XML の構文が正しくありません。");

// Saving
inline const QString Unencodable =
    QStringLiteral("文字 '%1' (U+%2) は、ドキュメントのエンコード '%3' "
                   "で表すことができないため、保存できません。");
inline const QString SourceNotWritten =
    QStringLiteral("ドキュメントの変更していない部分を書き出せないため、保存できません。");
inline const QString NotReadableAgain = QStringLiteral(
    "エンコード '%1' で書き出した内容を元どおりに読み出せないため、保存できません。");
inline const QString CannotSave = QStringLiteral("ファイルを保存できません: %1\n%2");
inline const QString CannotSaveToSpecial =
    QStringLiteral("ファイルを保存できません: %1\nデバイス、パイプ、ソケットには保存できません。");
inline const QString CannotPutBack = QStringLiteral(
    "ファイルへの書き込みが途中で失敗し、元の内容に戻すこともできませんでした: %1\n%2\n"
    "ドキュメントを閉じずに、別の場所に保存してください。");

/// The system's reason for a failed file operation, by its errno.
QString systemReason(int error);

} // namespace quillon::resources::xml_text

#pragma once

#include <QStringView>

/// The texts the user sees that have no number in the message table. All Japanese of the program
/// stands in this folder, to be read and checked in one place.
namespace quillon::resources::texts {

inline constexpr QStringView ApplicationTitle = u"Quillon XML Editor";

// Buttons of the message and input boxes.
inline constexpr QStringView ButtonOk = u"OK";
inline constexpr QStringView ButtonCancel = u"キャンセル";
inline constexpr QStringView ButtonYes = u"はい(&Y)";
inline constexpr QStringView ButtonNo = u"いいえ(&N)";

// File dialogs. %1 is the path as the user chose it.
inline constexpr QStringView OpenDialogTitle = u"開く";
inline constexpr QStringView SaveDialogTitle = u"名前を付けて保存";
inline constexpr QStringView FontDialogTitle = u"フォント";
inline constexpr QStringView OpenReadOnly = u"読み取り専用で開く(&R)";
inline constexpr QStringView FileNotFound =
    u"%1\nファイルが見つかりません。ファイル名を確認してください。";
inline constexpr QStringView FolderNotFound =
    u"%1\nフォルダーが見つかりません。パスを確認してください。";
inline constexpr QStringView ConfirmOverwrite = u"%1\nはすでに存在します。上書きしますか？";

// Documents.
inline constexpr QStringView NewDocument = u"New XML File";
inline constexpr QStringView ReadOnlyMark = u" (読み取り専用)";
inline constexpr QStringView OpenFilter =
    u"XMLファイル(*.xml)|*.xml|XSLファイル(*.xsl)|*.xsl|すべてのファイル(*.*)|*.*";
// In English and without an entry for all files, unlike the one above; that is meant so.
inline constexpr QStringView SaveFilter = u"XML File(*.xml)|*.xml|XSL File(*.xsl)|*.xsl";
inline constexpr QStringView LoseAllChanges = u"変更は全て失われます。よろしいですか？";
inline constexpr QStringView OverwriteChangedFile =
    u"このファイルは、開いた後に他のプログラムによって変更されています。\n"
    u"上書きしてもよろしいですか？";

// Recovery after a crash. %1 is the document; in CannotRecover the copy of it, %2 the reason.
inline constexpr QStringView OfferRecovery =
    u"前回保存されなかった変更があります。復元しますか？\n\n%1";
inline constexpr QStringView RecoveredMark = u" (復元)";
inline constexpr QStringView CannotRecover =
    u"復元できませんでした。変更の控えは次のファイルに残っています。\n%1\n\n%2";

// Status bar.
inline constexpr QStringView SyntaxError = u"構文エラー";
inline constexpr QStringView Loading = u"読み込んでいます...";
inline constexpr QStringView FileChangedOnDisk =
    u"このファイルは他のプログラムによって変更されました。「再読込」で新しい内容を読み込めます。";
inline constexpr QStringView SearchedToEnd = u"終わりまで検索しました。";
inline constexpr QStringView SearchedToTop = u"先頭まで検索しました。";
inline constexpr QStringView NothingFound = u"見つかりませんでした";
// Directly after the number.
inline constexpr QStringView MatchesFound = u"件検索されました。";

// Settings. %1 to %3 are section, key and value, %4 is what is wrong with it.
inline constexpr QStringView BrokenSetting = u"設定 [%1] %2 の値 \"%3\" が正しくありません。\n%4";
inline constexpr QStringView DuplicateEditor =
    u"外部エディタ \"%1\" が二重に設定されています。これ以降の設定は読み込みません。";

// Preview. %1 and %2 are line and column, or path, %3 what is wrong.
inline constexpr QStringView SelectStylesheetTitle = u"プレビュー用XSLファイルの選択";
inline constexpr QStringView StylesheetFilter = u"XSLファイル(*.xsl)|*.xsl";
inline constexpr QStringView StylesheetFault = u"スタイルシートの %1 行 %2 列: %3";
inline constexpr QStringView CannotWritePreview = u"%1 に書き込めません。\n%2";
inline constexpr QStringView Rendering = u"プレビューを作成しています...";
/// The page that stands in for a large document; %1 is its number of nodes.
inline constexpr QStringView LargePreview =
    u"<!DOCTYPE html><html lang=\"ja\"><head><meta charset=\"utf-8\"><title>プレビュー</title>"
    u"<style>body{font-family:sans-serif;color:#444;margin:2em}</style></head><body>"
    u"<p>このドキュメントは大きいため (約 %1 ノード)、プレビューを自動では更新しません。</p>"
    u"<p><b>F5</b> キーを押すと表示します。</p></body></html>";

// Validation. %1 is the number of errors, or the line, %2 the reason.
inline constexpr QStringView ValidationListTitle = u"検証エラーの一覧";
inline constexpr QStringView ValidationListButton = u"エラー一覧 (%1)";
inline constexpr QStringView ErrorAtLine = u"%1 行目: %2";

// Sending. %1 is the address, %2 the reason.
inline constexpr QStringView CannotSend = u"%1 に送信できません。\n%2";
inline constexpr QStringView BadAddress = u"アドレスが正しくありません。";

inline constexpr QStringView LegalNotice = u"Copyright (C) 2026 Quillon XML Editor の開発者";

// An entry of the tree's context menu that no menu of the menu bar has.
inline constexpr QStringView AddAttributeToParent = u"親要素に属性を追加(&P)";

// Search.
inline constexpr QStringView FindPrompt = u"検索する文字列を入力してください。";

// What assistive technology calls the parts of the window.
inline constexpr QStringView ToolBarName = u"ツールバー";
inline constexpr QStringView MoveToolBarName = u"パスへの移動";
inline constexpr QStringView PathName = u"パス";
inline constexpr QStringView ColumnsName = u"左右の分割";
inline constexpr QStringView RowsName = u"上下の分割";
inline constexpr QStringView TreeName = u"ドキュメント ツリー";
inline constexpr QStringView PaneName = u"編集ペイン";
inline constexpr QStringView PreviewName = u"プレビュー";

// The font of the edit pane and the tree until another is chosen.
inline constexpr QStringView DefaultFontName = u"MS UI Gothic";
inline constexpr int DefaultFontSize = 10;

// Failures that carry no Japanese description of their own. %1 is what the failure says of itself.
inline constexpr QStringView UnexpectedError = u"予期しないエラーが発生しました。\n%1";
inline constexpr QStringView UnknownError = u"原因不明のエラーが発生しました。";

} // namespace quillon::resources::texts

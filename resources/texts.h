#pragma once

#include "resources/text.h"

/// The texts the user sees that have no number in the message table. All Japanese of the program
/// stands in this folder, to be read and checked in one place.
namespace quillon::resources::texts {

inline constexpr Text ApplicationTitle = u"Quillon XML Editor";

// Buttons of the message and input boxes.
inline constexpr Text ButtonOk = u"OK";
inline constexpr Text ButtonCancel = u"キャンセル";
inline constexpr Text ButtonYes = u"はい(&Y)";
inline constexpr Text ButtonNo = u"いいえ(&N)";
inline constexpr Text ButtonStop = u"中止";

// File dialogs. %1 is the path as the user chose it.
inline constexpr Text OpenDialogTitle = u"開く";
inline constexpr Text SaveDialogTitle = u"名前を付けて保存";
inline constexpr Text FontDialogTitle = u"フォント";
inline constexpr Text OpenReadOnly = u"読み取り専用で開く(&R)";
inline constexpr Text OtherNames = u"UTF-8 以外の名前(&U):";
inline constexpr Text OtherNamesName = u"名前が UTF-8 でないファイル";
inline constexpr Text ChooseOtherName = u"ここからファイルを選択できます";
inline constexpr Text FileNotFound =
    u"%1\nファイルが見つかりません。ファイル名を確認してください。";
inline constexpr Text FolderNotFound = u"%1\nフォルダーが見つかりません。パスを確認してください。";
inline constexpr Text ConfirmOverwrite = u"%1\nはすでに存在します。上書きしますか？";

// Documents.
inline constexpr Text NewDocument = u"New XML File";
inline constexpr Text ReadOnlyMark = u" (読み取り専用)";
inline constexpr Text OpenFilter =
    u"XMLファイル(*.xml)|*.xml|XSLファイル(*.xsl)|*.xsl|すべてのファイル(*.*)|*.*";
// In English and without an entry for all files, unlike the one above: it names what is written.
inline constexpr Text SaveFilter = u"XML File(*.xml)|*.xml|XSL File(*.xsl)|*.xsl";
inline constexpr Text LoseAllChanges = u"変更は全て失われます。よろしいですか？";
inline constexpr Text OverwriteChangedFile =
    u"このファイルは、開いた後に他のプログラムによって変更されています。\n"
    u"上書きしてもよろしいですか？";

inline constexpr Text NothingToSave =
    u"ファイルを読み込めなかったため、保存する内容がありません。\n"
    u"ファイルを開き直してください。";

// Recovery after a crash. %1 is the document, %2 when its changes were written; in CannotRecover
// the copy of it, %2 the reason.
inline constexpr Text OfferRecovery =
    u"前回保存されなかった変更があります。復元しますか？\n\n%1\n(%2 の内容)\n\n"
    u"「いいえ」を選択すると、この変更は削除されます。";
inline constexpr Text RecoveredMark = u" (復元)";
inline constexpr Text CannotKeepChanges =
    u"異常終了に備えた変更の控えを作業フォルダーに書き込めません。ドキュメントを保存してください。";
inline constexpr Text CannotRecover =
    u"復元できませんでした。変更の控えは次のファイルに残っています。\n%1\n\n%2";

// The working folder. %1 is the folder, or the file, %2 the reason, or where it was to be copied,
// %3 the reason.
inline constexpr Text CannotUseWorkingFolder = u"作業フォルダーを使用できません: %1\n%2";
inline constexpr Text NoFolderThere = u"フォルダー以外のものが同じ名前で存在します。";
inline constexpr Text FolderOfAnotherUser = u"他のユーザーのフォルダーです。";
inline constexpr Text CannotCopy = u"%1 を次の場所にコピーできません: %2\n%3";

/// %1 is the instruction.
inline constexpr Text UnreadableStylesheetLink =
    u"次の命令の href "
    u"を読み取れないため、スタイルシートを作業フォルダーにコピーできませんでした。\n"
    u"ドキュメントは開かれています。\n\n%1";

// Status bar.
inline constexpr Text SyntaxError = u"構文エラー";
inline constexpr Text Loading = u"読み込んでいます...";
inline constexpr Text FileChangedOnDisk =
    u"このファイルは他のプログラムによって変更されました。「再読込」で新しい内容を読み込めます。";
inline constexpr Text Querying = u"検索しています...";
inline constexpr Text SearchedToEnd = u"終わりまで検索しました。";
inline constexpr Text SearchedToTop = u"先頭まで検索しました。";
inline constexpr Text NothingFound = u"見つかりませんでした";
// Directly after the number.
inline constexpr Text MatchesFound = u"件検索されました。";

// Text in the pane that the document does not hold.
inline constexpr Text GiveUpUnparsedText =
    u"編集ペインのテキストは構文エラーのため、ドキュメントに反映されていません。\n"
    u"このテキストを破棄しますか？\n\n"
    u"「いいえ」を選択すると、編集に戻ります。";

// Moving and copying nodes.
inline constexpr Text EntityNotDeclaredHere =
    u"挿入するノードは、このドキュメントで同じ内容に宣言されていない実体を参照しています。";

// Settings. %1 to %3 are section, key and value, %4 is what is wrong with it.
inline constexpr Text BrokenSetting = u"設定 [%1] %2 の値 \"%3\" が正しくありません。\n%4";
inline constexpr Text DuplicateEditor =
    u"外部エディタ \"%1\" が二重に設定されています。これ以降の設定は読み込みません。";

// Preview. %1 and %2 are line and column, or path, %3 what is wrong.
inline constexpr Text SelectStylesheetTitle = u"プレビュー用XSLファイルの選択";
inline constexpr Text StylesheetFilter = u"XSLファイル(*.xsl)|*.xsl";
inline constexpr Text StylesheetFault = u"スタイルシートの %1 行目、%2 列目: %3";
inline constexpr Text CannotWritePreview = u"%1 に書き込めません。\n%2";
inline constexpr Text Rendering = u"プレビューを作成しています...";
/// The page that stands in for one that is not made unasked; %1 says why. Then the reasons, with a
/// number of nodes and of levels.
inline constexpr Text PreviewNotice =
    u"<!DOCTYPE html><html lang=\"ja\"><head><meta charset=\"utf-8\"><title>プレビュー</title>"
    u"<style>body{font-family:sans-serif;color:#444;margin:2em}@media "
    u"screen{:root.dark{color-scheme:"
    u"dark;background:#1e1e1e}.dark body{color:#e6e6e6}}</style></head><body>"
    u"<p>%1</p>"
    u"<p><b>F5</b> キーを押すと表示します。</p></body></html>";
inline constexpr Text LargePreview =
    u"このドキュメントは大きいため (目安として %1 ノード)、プレビューを自動では更新しません。";
inline constexpr Text DeepPreview =
    u"このドキュメントは要素の入れ子が深いため (%1 段)、プレビューを自動では更新しません。";

/// In place of nodes that are not in the page of a large document; %1 is how many.
inline constexpr Text LeftOutNodes = u"… %1 件";

// The page in the preview. %1 is an address, or what the page says.
inline constexpr Text OpenLink = u"次のアドレスをブラウザーで開きますか?\n\n%1";
inline constexpr Text LinkTooLong =
    u"リンクのアドレスが長すぎて全体を表示できないため、開きませんでした。";
inline constexpr Text MessageOfPage = u"プレビューのページからのメッセージ: %1";
inline constexpr Text PageStopped = u"プレビューのページが応答しないため、停止しました。";
inline constexpr Text PageDied = u"プレビューのページは異常終了しました。";

// The context menu of the preview.
inline constexpr Text BrowserReload = u"再読込(&R)";
inline constexpr Text BrowserCopy = u"コピー(&C)";
inline constexpr Text BrowserSelectAll = u"すべて選択(&A)";
inline constexpr Text BrowserCopyLink = u"リンクのアドレスをコピー(&L)";
inline constexpr Text BrowserCopyImage = u"画像をコピー(&I)";

// The list of validation errors. %1 is their number.
inline constexpr Text ValidationListTitle = u"検証エラーの一覧";
inline constexpr Text ValidationListButton = u"エラー一覧: %1 件(&L)";
inline constexpr Text ValidationListButtonMore = u"エラー一覧: %1 件以上(&L)";

inline constexpr Text Sending = u"送信しています...";
// Sending. %1 is the address, %2 the reason.
inline constexpr Text CannotSend = u"%1 に送信できません。\n%2";
inline constexpr Text BadAddress = u"アドレスが正しくありません。";
inline constexpr Text TooManyRedirects = u"転送が繰り返されています。";
// The address that the answer redirects to.
inline constexpr Text RedirectWithDocument = u"送信先が、別の場所への転送を求めています。\n\n%1\n\n"
                                             u"この場所へドキュメントを送信しますか？";
inline constexpr Text RedirectWithoutDocument =
    u"ドキュメントを送信しました。送信先が、別の場所への接続を求めています。\n\n%1\n\n"
    u"この場所へ接続しますか？ (ドキュメントは送信しません)";

/// The name of the file that the Help menu shows, one a language.
inline constexpr Text ReadmeFile = u"readme.txt";

// Showing a file with the desktop's viewer. %1 is the file.
inline constexpr Text NoViewer = u"%1\nを表示するプログラムが見つかりません。";

inline constexpr Text LegalNotice = u"Copyright (C) 2026 Quillon XML Editor の開発者";

// Entities. %1 is the name of one.
inline constexpr Text DocumentTypeInUse =
    u"ドキュメントの中で実体 %1 が参照されているため、\n文書型宣言を削除できません。";
inline constexpr Text EntityReferenceStays = u"実体 %1 の参照は移動できません。";

// Search.
inline constexpr Text FindPrompt = u"検索する文字列を入力してください。";

// What assistive technology calls the parts of the window.
inline constexpr Text ToolBarName = u"ツールバー";
inline constexpr Text MoveToolBarName = u"パスへの移動";
inline constexpr Text PathName = u"パス";
inline constexpr Text ColumnsName = u"左右の分割";
inline constexpr Text RowsName = u"上下の分割";
inline constexpr Text TreeName = u"ドキュメント ツリー";
inline constexpr Text FirstScreenName = u"読み込み中のドキュメントの先頭";
inline constexpr Text PaneName = u"編集ペイン";
inline constexpr Text PreviewName = u"プレビュー";

// The options dialog. What ends in Name is what assistive technology calls the control.
inline constexpr Text OptionsTitle = u"オプション";
inline constexpr Text EditorsGroup = u"外部エディタ";
inline constexpr Text EditorListLabel = u"「他のエディタで開く」のメニュー(&E):";
inline constexpr Text EditorListName = u"外部エディタの一覧";
inline constexpr Text UnnamedEditor = u"(名前なし)";
inline constexpr Text AddEditor = u"追加(&A)";
inline constexpr Text AddEditorName = u"外部エディタを追加";
inline constexpr Text RemoveEditor = u"削除(&D)";
inline constexpr Text RemoveEditorName = u"外部エディタを削除";
inline constexpr Text MoveEditorUp = u"上へ(&U)";
inline constexpr Text MoveEditorUpName = u"外部エディタを上へ移動";
inline constexpr Text MoveEditorDown = u"下へ(&W)";
inline constexpr Text MoveEditorDownName = u"外部エディタを下へ移動";
inline constexpr Text EditorNameLabel = u"名前(&N):";
inline constexpr Text EditorNameName = u"外部エディタの名前";
inline constexpr Text EditorNameMissing = u"名前を入力してください。";
inline constexpr Text EditorNameTaken =
    u"同じ名前の外部エディタがあります。別の名前を入力してください。";
inline constexpr Text EditorProgramLabel = u"プログラム(&P):";
inline constexpr Text EditorProgramName = u"外部エディタのプログラム";
inline constexpr Text EditorProgramMissing = u"プログラムを指定してください。";
inline constexpr Text BrowseProgram = u"参照(&B)...";
inline constexpr Text BrowseProgramName = u"プログラムを参照";
inline constexpr Text BrowseProgramTitle = u"プログラムの選択";
inline constexpr Text FontGroup = u"フォント";
inline constexpr Text FontNameLabel = u"フォント名(&F):";
inline constexpr Text FontNameName = u"フォント名";
inline constexpr Text FontNameMissing = u"フォント名を入力してください。";
inline constexpr Text FontSizeLabel = u"サイズ(&S):";
inline constexpr Text FontSizeName = u"フォントのサイズ";
inline constexpr Text FontSizeUnit = u" ポイント";
inline constexpr Text FontSample = u"<要素 属性=\"Abc 123\">あア亜</要素>";
inline constexpr Text FontSampleName = u"フォントの見本";
inline constexpr Text AppearanceGroup = u"表示";
inline constexpr Text ThemeLabel = u"テーマ(&T):";
inline constexpr Text ThemeName = u"テーマ";
inline constexpr Text ThemeAutomatic = u"自動 (デスクトップに合わせる)";
inline constexpr Text ThemeLight = u"ライト";
inline constexpr Text ThemeDark = u"ダーク";
inline constexpr Text LanguageLabel = u"言語 / Language(&L):";
inline constexpr Text LanguageName = u"表示言語";
inline constexpr Text LanguageOfDesktop = u"デスクトップに合わせる";
inline constexpr Text LanguageHint = u"言語は、次に起動したときから変わります。";
inline constexpr Text FirstPageOption = u"ドキュメントがないときに、はじめのページを表示(&G)";
inline constexpr Text RecentFilesGroup = u"最近使ったファイル";
inline constexpr Text RecentFilesCount = u"%1 件を記憶しています。";
inline constexpr Text RecentFilesToBeCleared = u"OK を押すと一覧を消去します。";
inline constexpr Text ClearRecentFiles = u"一覧を消去(&C)";
inline constexpr Text ClearRecentFilesName = u"最近使ったファイルの一覧を消去";

// Failures that carry no Japanese description of their own. %1 is what the failure says of itself.
inline constexpr Text UnexpectedError = u"予期しないエラーが発生しました。\n%1";
inline constexpr Text UnknownError = u"原因不明のエラーが発生しました。";

} // namespace quillon::resources::texts

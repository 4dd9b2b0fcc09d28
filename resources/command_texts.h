#pragma once

#include "resources/text.h"

/// What the menus and toolbars call the commands. '&' stands before the access key; after a tab
/// comes a key that is part of the caption.
namespace quillon::resources::command_texts {

inline constexpr Text FileMenu = u"ファイル(&F)";
inline constexpr Text FileNew = u"新規作成(&N)";
inline constexpr Text FileOpen = u"開く(&O)...";
inline constexpr Text FileReload = u"再読込(&R)";
inline constexpr Text FileSave = u"保存(&S)";
inline constexpr Text FileSaveAs = u"名前を付けて保存(&A)...";
inline constexpr Text FilePrint = u"プレビューの印刷(&P)...";
inline constexpr Text FilePrintTree = u"ツリーの印刷(&T)...";
inline constexpr Text FileMRU = u"最近使ったファイル(&M)";
inline constexpr Text FileMRUNone = u"(なし)";
inline constexpr Text FileClose = u"閉じる(&C)";
inline constexpr Text FileQuit = u"終了(&X)\tAlt+F4";
inline constexpr Text FilePrintPreview = u"印刷プレビュー(&V)...";
inline constexpr Text FilePrintTreePreview = u"ツリーの印刷プレビュー(&W)...";

inline constexpr Text EditMenu = u"編集(&E)";
inline constexpr Text EditUndo = u"元に戻す(&U)";
inline constexpr Text EditRedo = u"やり直す(&R)";
inline constexpr Text EditUndoAll = u"開いた時の状態に戻す(&A)";
inline constexpr Text EditCut = u"切り取り(&T)\tCtrl+X";
inline constexpr Text EditCopy = u"コピー(&C)\tCtrl+C";
inline constexpr Text EditPaste = u"貼り付け(&P)\tCtrl+V";
inline constexpr Text EditDelete = u"削除(&D)\tCtrl+D";
inline constexpr Text EditRename = u"名前の変更(&R)";
inline constexpr Text EditFind = u"検索(&F)...";
inline constexpr Text EditFindNext = u"次を検索(&N)";
inline constexpr Text EditReplace = u"検索と置換(&H)...";
inline constexpr Text EditCopyXPath = u"XPath をコピー(&Q)";
inline constexpr Text EditSelectMatches = u"一致した項目を選択(&M)";
inline constexpr Text EditFormat = u"整形(&G)...";
inline constexpr Text EditEncoding = u"エンコードの変更(&E)...";
inline constexpr Text ViewLock = u"要素・属性名のロック(&L)";

inline constexpr Text ViewMenu = u"表示(&V)";
inline constexpr Text NodeCollapse = u"ツリー項目の折りたたみ(&C)";
inline constexpr Text NodeExpand = u"ツリー項目の展開(&E)";
inline constexpr Text ViewText = u"テキストの内容をツリーに表示(&T)";
inline constexpr Text ViewFont = u"フォント(&F)...";

inline constexpr Text ViewLive = u"入力中の検証(&L)";
inline constexpr Text NodeMend = u"エラーの修正(&F)...";
inline constexpr Text ViewPanel = u"検索結果パネル(&P)";
inline constexpr Text ViewNextHit = u"次の検索結果・エラー(&N)";
inline constexpr Text ViewPreviousHit = u"前の検索結果・エラー(&B)";
inline constexpr Text ViewCandidates = u"候補パネル(&D)";
inline constexpr Text ViewInsertCandidate = u"候補から挿入(&I)";
inline constexpr Text ViewNextPart = u"次の領域へ移動(&M)";
inline constexpr Text ViewPreviousPart = u"前の領域へ移動(&O)";

inline constexpr Text ViewPropose = u"入力中に候補を表示(&K)";

inline constexpr Text ViewTheme = u"テーマ(&H)";
inline constexpr Text ThemeAutomatic = u"自動(&A)";
inline constexpr Text ThemeLight = u"ライト(&L)";
inline constexpr Text ThemeDark = u"ダーク(&D)";

inline constexpr Text PaneMenu = u"編集ペイン(&W)";
inline constexpr Text PaneFold = u"折りたたむ(&F)";
inline constexpr Text PaneUnfold = u"展開(&U)";
inline constexpr Text PaneFoldAll = u"すべて折りたたむ(&A)";
inline constexpr Text PaneUnfoldAll = u"すべて展開(&X)";
inline constexpr Text PanePartner = u"対応する括弧・タグへ移動(&M)";
inline constexpr Text PaneRenameTags = u"タグ名の変更(&R)...";
inline constexpr Text PaneJump = u"ツリーと編集ペインの間を移動(&J)";
inline constexpr Text PaneWrap = u"行の折り返し(&W)";
inline constexpr Text PaneBlanks = u"空白の表示(&B)";
inline constexpr Text PaneFileLines = u"ファイルの行番号(&L)";
inline constexpr Text PaneClose = u"終了タグの自動入力(&E)";

inline constexpr Text ZoomMenu = u"表示倍率(&Z)";
inline constexpr Text ZoomIn = u"拡大(&I)";
inline constexpr Text ZoomOut = u"縮小(&O)";
inline constexpr Text ZoomReset = u"標準に戻す(&R)";

inline constexpr Text NodeMenu = u"ノード(&N)";
inline constexpr Text NodeMoveUp = u"上へ移動(&U)";
inline constexpr Text NodeMoveDown = u"下へ移動(&D)";
inline constexpr Text NodeAddElement = u"要素の追加(&E)";
inline constexpr Text NodeAddAttribute = u"属性の追加(&A)\tCtrl+A";
inline constexpr Text NodeAddText = u"テキストの追加(&T)";
inline constexpr Text NodeAddComment = u"コメントの追加(&C)";
inline constexpr Text NodeAddCDATA = u"CDATAの追加(&D)";
inline constexpr Text NodeInsElement = u"要素の挿入(&L)\tCtrl+Alt+E";
inline constexpr Text NodeInsText = u"テキストの挿入(&X)\tCtrl+Alt+T";
inline constexpr Text NodeInsComment = u"コメントの挿入(&M)\tCtrl+Alt+K";
inline constexpr Text NodeInsCDATA = u"CDATAの挿入";
inline constexpr Text NodeDelete = u"削除(&D)";
inline constexpr Text NodeDuplicate = u"複製(&B)";
inline constexpr Text NodeRaise = u"一段上げる(&R)";
inline constexpr Text NodeLower = u"一段下げる(&W)";
inline constexpr Text NodeEnclose = u"要素で囲む(&G)...";
inline constexpr Text NodeUnwrap = u"囲みを外す(&O)";
inline constexpr Text NodeSort = u"並べ替え(&S)...";
inline constexpr Text NodeChooseValue = u"値の候補(&V)...";
inline constexpr Text NodeExplain = u"ノードの説明(&I)...";
inline constexpr Text NodeDefinition = u"定義へ移動(&J)";
/// In the context menu of the tree alone.
inline constexpr Text CandidateChildren = u"子として追加(&1)";
inline constexpr Text CandidatesAhead = u"前に挿入(&2)";
inline constexpr Text CandidatesBehind = u"後に挿入(&3)";
inline constexpr Text CandidateAttributes = u"属性を追加(&4)";
inline constexpr Text CandidatePanel = u"候補パネル(&5)...";
inline constexpr Text AddAttributeToParent = u"親要素に属性を追加(&P)";
inline constexpr Text NodeContextMenu = u"Popup";

inline constexpr Text ToolMenu = u"ツール(&T)";
inline constexpr Text ToolSelXSL = u"プレビュー用XSLファイルの選択(&X)...";
inline constexpr Text ToolPreview = u"プレビュー(&P)";
inline constexpr Text ToolPreviewSel = u"選択したノードのプレビュー(&N)";
inline constexpr Text ToolPrevHTML = u"プレビューをHTMLとして表示(&H)";
inline constexpr Text ToolPreviewSync = u"プレビューとツリーの同期(&Y)";
inline constexpr Text ToolVerifyNew = u"検証用ファイルの選択(&S)...";
inline constexpr Text ToolVerify = u"検証(&V)";
inline constexpr Text ToolSend = u"送信(&S)...";
inline constexpr Text ToolRemoveText = u"全てのテキスト・属性値のクリア(&C)";
inline constexpr Text ToolOpenEditor = u"他のエディタで開く(&E)";
/// The user's own editors take its place.
inline constexpr Text ToolOpen = u"&BizTalkエディタ";
inline constexpr Text ToolOption = u"オプション(&O)...";
inline constexpr Text ToolSchemas = u"スキーマ(&M)...";
inline constexpr Text ToolBindSchema = u"スキーマを結び付ける(&B)...";
inline constexpr Text ToolCreateSchema = u"スキーマを作成(&K)...";

inline constexpr Text WindowMenu = u"ウィンドウ(&W)";
inline constexpr Text WindowTileH = u"横に並べる(&H)";

/// The windows that are open take its place.
inline constexpr Text WindowList = u"&1";
inline constexpr Text WindowMore = u"その他のウィンドウ(&M)...";

inline constexpr Text HelpMenu = u"ヘルプ(&H)";
inline constexpr Text HelpReadme = u"Readme.txt表示(&R)...";
inline constexpr Text HelpManual = u"マニュアル(&M)";
inline constexpr Text HelpFindCommand = u"コマンドの検索(&S)...";
inline constexpr Text HelpAbout = u"バージョン情報(&A)...";

// Tool-tips of the buttons.
inline constexpr Text NewTip = u"新規作成(Ctrl+N)";
inline constexpr Text OpenTip = u"開く(Ctrl+O)";
inline constexpr Text SaveTip = u"保存(Ctrl+S)";
inline constexpr Text PrintTip = u"印刷(Ctrl+P)";
inline constexpr Text PreviewTip = u"プレビュー(F5)";
inline constexpr Text CutTip = u"切り取り(Ctrl+X)";
inline constexpr Text CopyTip = u"コピー(Ctrl+C)";
inline constexpr Text PasteTip = u"貼り付け(Ctrl+V)";
inline constexpr Text DeleteTip = u"削除(Ctrl+D)";
inline constexpr Text FindTip = u"検索(F3)";
inline constexpr Text UndoTip = u"元に戻す(Ctrl+Z)";
inline constexpr Text RedoTip = u"やり直す(Ctrl+Y)";
inline constexpr Text VerifyTip = u"検証(F7)";
inline constexpr Text MoveTip = u"パスの項目へ移動(Enter)";

} // namespace quillon::resources::command_texts

#pragma once

#include <QStringView>

/// What the menus and toolbars call the commands. '&' stands before the access key; after a tab
/// comes a key that is part of the caption.
namespace quillon::resources::command_texts {

inline constexpr QStringView FileMenu = u"ファイル(&F)";
inline constexpr QStringView FileNew = u"新規作成(&N)";
inline constexpr QStringView FileOpen = u"開く(&O)...";
inline constexpr QStringView FileReload = u"再読込(&R)";
inline constexpr QStringView FileSave = u"保存(&S)";
inline constexpr QStringView FileSaveAs = u"名前を付けて保存(&A)...";
inline constexpr QStringView FilePrint = u"プレビューの印刷(&P)...";
inline constexpr QStringView FilePrintTree = u"ツリーの印刷(&T)...";
inline constexpr QStringView FileMRU = u"最近使ったファイル(&M)";
inline constexpr QStringView FileMRUNone = u"(なし)";
inline constexpr QStringView FileClose = u"閉じる(&C)";
inline constexpr QStringView FileQuit = u"終了(&X)\tAlt+F4";

inline constexpr QStringView EditMenu = u"編集(&E)";
inline constexpr QStringView EditUndo = u"元に戻す(&U)";
inline constexpr QStringView EditRedo = u"やり直す(&R)";
inline constexpr QStringView EditUndoAll = u"開いた時の状態に戻す(&A)";
inline constexpr QStringView EditCut = u"切り取り(&T)\tCtrl+X";
inline constexpr QStringView EditCopy = u"コピー(&C)\tCtrl+C";
inline constexpr QStringView EditPaste = u"貼り付け(&P)\tCtrl+V";
inline constexpr QStringView EditDelete = u"削除(&D)\tCtrl+D";
inline constexpr QStringView EditRename = u"名前の変更(&R)";
inline constexpr QStringView EditFind = u"検索(&F)...";
inline constexpr QStringView EditFindNext = u"次を検索(&N)";
inline constexpr QStringView EditReplace = u"検索と置換(&H)...";
inline constexpr QStringView EditCopyXPath = u"XPath をコピー(&Q)";
inline constexpr QStringView EditSelectMatches = u"一致した項目を選択(&M)";
inline constexpr QStringView ViewLock = u"要素・属性名のロック(&L)";

inline constexpr QStringView ViewMenu = u"表示(&V)";
inline constexpr QStringView NodeCollapse = u"ツリー項目の折りたたみ(&C)";
inline constexpr QStringView NodeExpand = u"ツリー項目の展開(&E)";
inline constexpr QStringView ViewText = u"テキストの内容をツリーに表示(&T)";
inline constexpr QStringView ViewFont = u"フォント(&F)...";

inline constexpr QStringView ViewLive = u"入力中の検証(&L)";
inline constexpr QStringView NodeMend = u"エラーの修正(&F)...";
inline constexpr QStringView ViewPanel = u"検索結果パネル(&P)";
inline constexpr QStringView ViewNextHit = u"次の検索結果・エラー(&N)";
inline constexpr QStringView ViewPreviousHit = u"前の検索結果・エラー(&B)";
inline constexpr QStringView ViewCandidates = u"候補パネル(&D)";
inline constexpr QStringView ViewInsertCandidate = u"候補から挿入(&I)";
inline constexpr QStringView ViewNextPart = u"次の領域へ移動(&M)";
inline constexpr QStringView ViewPreviousPart = u"前の領域へ移動(&O)";

inline constexpr QStringView ViewPropose = u"入力中に候補を表示(&K)";

inline constexpr QStringView ViewTheme = u"テーマ(&H)";
inline constexpr QStringView ThemeAutomatic = u"自動(&A)";
inline constexpr QStringView ThemeLight = u"ライト(&L)";
inline constexpr QStringView ThemeDark = u"ダーク(&D)";

inline constexpr QStringView NodeMenu = u"ノード(&N)";
inline constexpr QStringView NodeMoveUp = u"上へ移動(&U)";
inline constexpr QStringView NodeMoveDown = u"下へ移動(&D)";
inline constexpr QStringView NodeAddElement = u"要素の追加(&E)";
inline constexpr QStringView NodeAddAttribute = u"属性の追加(&A)\tCtrl+A";
inline constexpr QStringView NodeAddText = u"テキストの追加(&T)";
inline constexpr QStringView NodeAddComment = u"コメントの追加(&C)";
inline constexpr QStringView NodeAddCDATA = u"CDATAの追加(&D)";
inline constexpr QStringView NodeInsElement = u"要素の挿入(&L)\tCtrl+Alt+E";
inline constexpr QStringView NodeInsText = u"テキストの挿入(&X)\tCtrl+Alt+T";
inline constexpr QStringView NodeInsComment = u"コメントの挿入(&M)\tCtrl+Alt+K";
inline constexpr QStringView NodeInsCDATA = u"CDATAの挿入";
inline constexpr QStringView NodeDelete = u"削除(&D)";
inline constexpr QStringView NodeDuplicate = u"複製(&B)";
inline constexpr QStringView NodeRaise = u"一段上げる(&R)";
inline constexpr QStringView NodeLower = u"一段下げる(&W)";
inline constexpr QStringView NodeEnclose = u"要素で囲む(&G)...";
inline constexpr QStringView NodeUnwrap = u"囲みを外す(&O)";
inline constexpr QStringView NodeSort = u"並べ替え(&S)...";
inline constexpr QStringView NodeChooseValue = u"値の候補(&V)...";
inline constexpr QStringView NodeExplain = u"ノードの説明(&I)...";
inline constexpr QStringView NodeDefinition = u"定義へ移動(&J)";
/// In the context menu of the tree alone.
inline constexpr QStringView CandidateChildren = u"子として追加(&1)";
inline constexpr QStringView CandidatesAhead = u"前に挿入(&2)";
inline constexpr QStringView CandidatesBehind = u"後に挿入(&3)";
inline constexpr QStringView CandidateAttributes = u"属性を追加(&4)";
inline constexpr QStringView CandidatePanel = u"候補パネル(&5)...";
inline constexpr QStringView AddAttributeToParent = u"親要素に属性を追加(&P)";
inline constexpr QStringView NodeContextMenu = u"Popup";

inline constexpr QStringView ToolMenu = u"ツール(&T)";
inline constexpr QStringView ToolSelXSL = u"プレビュー用XSLファイルの選択(&X)...";
inline constexpr QStringView ToolPreview = u"プレビュー(&P)";
inline constexpr QStringView ToolPreviewSel = u"選択したノードのプレビュー(&N)";
inline constexpr QStringView ToolPrevHTML = u"プレビューをHTMLとして表示(&H)";
inline constexpr QStringView ToolPreviewSync = u"プレビューとツリーの同期(&Y)";
inline constexpr QStringView ToolVerifyNew = u"検証用ファイルの選択(&S)...";
inline constexpr QStringView ToolVerify = u"検証(&V)";
inline constexpr QStringView ToolSend = u"送信(&S)...";
inline constexpr QStringView ToolRemoveText = u"全てのテキスト・属性値のクリア(&C)";
inline constexpr QStringView ToolOpenEditor = u"他のエディタで開く(&E)";
/// The user's own editors take its place.
inline constexpr QStringView ToolOpen = u"&BizTalkエディタ";
inline constexpr QStringView ToolOption = u"オプション(&O)...";
inline constexpr QStringView ToolSchemas = u"スキーマ(&M)...";
inline constexpr QStringView ToolBindSchema = u"スキーマを結び付ける(&B)...";
inline constexpr QStringView ToolCreateSchema = u"スキーマを作成(&K)...";

inline constexpr QStringView WindowMenu = u"ウィンドウ(&W)";
inline constexpr QStringView WindowTileH = u"横に並べる(&H)";

inline constexpr QStringView HelpMenu = u"ヘルプ(&H)";
inline constexpr QStringView HelpReadme = u"Readme.txt表示(&R)...";
inline constexpr QStringView HelpAbout = u"バージョン情報(&A)...";

// Tool-tips of the buttons.
inline constexpr QStringView NewTip = u"新規作成(Ctrl+N)";
inline constexpr QStringView OpenTip = u"開く(Ctrl+O)";
inline constexpr QStringView SaveTip = u"保存(Ctrl+S)";
inline constexpr QStringView PrintTip = u"印刷(Ctrl+P)";
inline constexpr QStringView PreviewTip = u"プレビュー(F5)";
inline constexpr QStringView CutTip = u"切り取り(Ctrl+X)";
inline constexpr QStringView CopyTip = u"コピー(Ctrl+C)";
inline constexpr QStringView PasteTip = u"貼り付け(Ctrl+V)";
inline constexpr QStringView DeleteTip = u"削除(Ctrl+D)";
inline constexpr QStringView FindTip = u"検索(F3)";
inline constexpr QStringView UndoTip = u"元に戻す(Ctrl+Z)";
inline constexpr QStringView RedoTip = u"やり直す(Ctrl+Y)";
inline constexpr QStringView VerifyTip = u"検証(F7)";
inline constexpr QStringView MoveTip = u"パスの項目へ移動(Enter)";

} // namespace quillon::resources::command_texts

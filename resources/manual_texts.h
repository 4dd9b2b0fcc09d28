#pragma once

#include "resources/text.h"

/// The titles of the manual's pages, and what is made of the commands in it. What it says stands in
/// manual/, a folder a language and a file a page.
namespace quillon::resources::manual_texts {

inline constexpr Text StartTitle = u"はじめに";
inline constexpr Text FilesTitle = u"開く・保存する";
inline constexpr Text TreeTitle = u"ツリーの編集";
inline constexpr Text PaneTitle = u"編集ペイン";
inline constexpr Text SearchTitle = u"検索と置換";
inline constexpr Text SchemaTitle = u"スキーマと検証";
inline constexpr Text CompletionTitle = u"候補と補完";
inline constexpr Text PreviewTitle = u"プレビューと印刷";
inline constexpr Text BrokenTitle = u"壊れたファイルの修正";
inline constexpr Text EncodingTitle = u"文字コード";
inline constexpr Text RecoveryTitle = u"保存しなかった変更の復元";
inline constexpr Text SettingsTitle = u"設定";
inline constexpr Text AutomationTitle = u"他のプログラムからの操作";
inline constexpr Text KeysTitle = u"キーの一覧";
inline constexpr Text CommandsTitle = u"コマンドの一覧";

/// Stands between a menu and what is in it, and between a page and its section.
inline constexpr Text MenuStep = u" › ";
inline constexpr Text CommandHeading = u"コマンド";
inline constexpr Text KeyHeading = u"キー";
inline constexpr Text MenuHeading = u"メニュー";
inline constexpr Text KeysOfWindow = u"ウィンドウのどこでも使えるキー";
inline constexpr Text KeysOfTree = u"ツリーで使うキー";
inline constexpr Text KeysAlone = u"メニューにないコマンド";
inline constexpr Text TreeMenu = u"ツリーの右クリック";

// The names of commands that stand in no menu.
inline constexpr Text SearchBackward = u"前を検索";
inline constexpr Text MoveUp = u"上へ移動";
inline constexpr Text MoveDown = u"下へ移動";
inline constexpr Text SelectByPath = u"パスへ移動";

} // namespace quillon::resources::manual_texts

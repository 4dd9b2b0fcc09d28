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
inline constexpr QStringView OpenReadOnly = u"読み取り専用で開く(&R)";
inline constexpr QStringView FileNotFound =
    u"%1\nファイルが見つかりません。ファイル名を確認してください。";
inline constexpr QStringView FolderNotFound =
    u"%1\nフォルダーが見つかりません。パスを確認してください。";
inline constexpr QStringView ConfirmOverwrite = u"%1\nはすでに存在します。上書きしますか？";

// Status bar.
inline constexpr QStringView SyntaxError = u"構文エラー";

// Failures that carry no Japanese description of their own. %1 is what the failure says of itself.
inline constexpr QStringView UnexpectedError = u"予期しないエラーが発生しました。\n%1";
inline constexpr QStringView UnknownError = u"原因不明のエラーが発生しました。";

} // namespace quillon::resources::texts

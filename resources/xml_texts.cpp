#include "resources/xml_texts.h"

#include <cerrno>

namespace quillon::resources::xml_texts {

QString systemReason(int error) {
    switch (error) {
    case EACCES:
    case EPERM:
        return QStringLiteral("書き込む権限がありません。");
    case EROFS:
        return QStringLiteral("読み取り専用のファイル システムです。");
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return QStringLiteral("ディスクの空き領域が足りません。");
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("フォルダーが見つかりません。");
    case EISDIR:
        return QStringLiteral("同じ名前のフォルダーがあります。");
    case ELOOP:
        return QStringLiteral("シンボリック リンクが循環しています。");
    case ENAMETOOLONG:
        return QStringLiteral("ファイル名が長すぎます。");
    default:
        return QStringLiteral("入出力エラーが発生しました (%1)。").arg(error);
    }
}

} // namespace quillon::resources::xml_texts

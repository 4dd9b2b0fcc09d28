#include "resources/xml_texts.h"

#include <cerrno>

namespace quillon::resources::xml_texts {

QString systemReason(int error) {
    switch (error) {
    case EACCES:
    case EPERM:
        return Text(u"書き込む権限がありません。").toString();
    case EROFS:
        return Text(u"読み取り専用のファイル システムです。").toString();
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Text(u"ディスクの空き領域が足りません。").toString();
    case ENOENT:
    case ENOTDIR:
        return Text(u"フォルダーが見つかりません。").toString();
    case EISDIR:
        return Text(u"同じ名前のフォルダーがあります。").toString();
    case ELOOP:
        return Text(u"シンボリック リンクが循環しています。").toString();
    case ENAMETOOLONG:
        return Text(u"ファイル名が長すぎます。").toString();
    default:
        return Text(u"入出力エラーが発生しました (%1)。").toString().arg(error);
    }
}

} // namespace quillon::resources::xml_texts

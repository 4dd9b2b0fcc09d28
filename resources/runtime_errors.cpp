#include "resources/runtime_errors.h"

#include "resources/text.h"

#include <algorithm>
#include <array>

namespace quillon::resources {

namespace {

struct Entry {
    qint32 number;
    Text text;
};

constexpr std::array table{
    Entry{5, u"プロシージャの呼び出し、または引数が不正です。"},
    Entry{6, u"オーバーフローしました。"},
    Entry{7, u"メモリが不足しています。"},
    Entry{9, u"インデックスが有効範囲にありません。"},
    Entry{13, u"型が一致しません。"},
    Entry{53, u"ファイルが見つかりません。"},
    Entry{57, u"デバイスの入出力エラーが発生しました。"},
    Entry{58, u"同じ名前のファイルがすでに存在します。"},
    Entry{61, u"ディスクの空き容量が不足しています。"},
    Entry{70, u"アクセスが拒否されました。"},
    Entry{75, u"パスまたはファイルにアクセスできません。"},
    Entry{76, u"パスが見つかりません。"},
    Entry{91, u"オブジェクトが設定されていません。"},
    Entry{93, u"パターン文字列が不正です。"},
    Entry{32755, u"中止しました。"},
};

} // namespace

QString runtimeErrorText(qint32 number) {
    const auto found = std::ranges::find(table, number, &Entry::number);
    if (found == table.end())
        return Text(u"アプリケーション定義またはオブジェクト定義のエラーです。").toString();
    return found->text.toString();
}

} // namespace quillon::resources

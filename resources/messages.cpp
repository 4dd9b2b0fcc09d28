#include "resources/messages.h"

#include "resources/text.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace quillon::resources {

namespace {

struct Entry {
    int number;
    Text text;
};

constexpr int firstNumber = 1000;

constexpr std::array table{
    Entry{1005, u"ルート要素は削除できません。"},
    Entry{1006, u"削除してもよろしいですか？"},
    Entry{1007, u"変更を破棄して再読込しますか？"},
    Entry{1008, u"XMLをパースできません。"},
    Entry{1009, u"ルート要素がすでに存在します。"},
    Entry{1010, u"バージョン情報"},
    Entry{1012, u"保存しますか？"},
    Entry{1013, u"プレビューを表示できません。"},
    Entry{1014, u"ドキュメントの検証が正常に終了しました。"},
};

} // namespace

QString messageText(int n) {
    const auto found = std::ranges::find(table, firstNumber + n, &Entry::number);
    if (found == table.end())
        throw std::out_of_range("no message " + std::to_string(n));
    return found->text.toString();
}

} // namespace quillon::resources

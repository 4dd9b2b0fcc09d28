#include "bench/order_file.h"

#include <array>
#include <random>

namespace quillon::bench {

std::string orderRecords(std::size_t bytes) {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<orders>\n";
    out.reserve(bytes + 1024);
    std::mt19937 random(1);
    for (int id = 1; out.size() < bytes; ++id) {
        out += "  <order id=\"" + std::to_string(id) + "\" date=\"2026-" +
               std::to_string(10 + id % 3) + "-" + std::to_string(10 + id % 18) +
               "\">\n    <customer>株式会社山田商店 第" + std::to_string(random() % 997) +
               "営業所</customer>\n";
        for (unsigned item = 0, count = 1 + random() % 4; item < count; ++item)
            out += "    <item n=\"" + std::to_string(item) + "\"><code>A-" +
                   std::to_string(10000 + random() % 89999) + "</code><qty>" +
                   std::to_string(item + 1) + "</qty></item>\n";
        out += "  </order>\n";
    }
    return out + "</orders>\n";
}

std::string dictionaryEntries(std::size_t bytes) {
    constexpr std::array Readings = {"あい", "うみ", "かぜ", "ことば", "さくら", "たび", "なつ"};
    constexpr std::array Words = {"愛", "海", "風", "言葉", "桜", "旅", "夏", "辞書", "水"};
    constexpr std::array Glosses = {"love; affection",  "the sea; ocean", "wind; breeze",
                                    "a word; language", "cherry tree",    "journey on foot"};
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<dictionary>\n";
    out.reserve(bytes + 1024);
    std::mt19937 random(2);
    const auto add = [&](std::string_view start, const auto &texts, std::string_view end) {
        out += start;
        for (int count = 0; count < 6; ++count)
            out += texts[random() % texts.size()];
        out += end;
    };
    for (int id = 1'000'000; out.size() < bytes; ++id) {
        out += "<entry>\n<seq>" + std::to_string(id) + "</seq>\n";
        if (random() % 4 != 0)
            add("<k_ele>\n<keb>", Words, "</keb>\n</k_ele>\n");
        add("<r_ele>\n<reb>", Readings, "</reb>\n</r_ele>\n");
        out += "<sense>\n<pos>名詞</pos>\n";
        for (auto gloss = 1 + random() % 3; gloss > 0; --gloss)
            add("<gloss xml:lang=\"eng\">", Glosses, "</gloss>\n");
        out += "</sense>\n</entry>\n";
    }
    return out + "</dictionary>\n";
}

std::string flatDocument(int children) {
    std::string out = "<r>\n";
    for (int i = 0; i < children; ++i)
        out += "  <c/>\n";
    return out + "</r>\n";
}

std::string deepDocument(int levels) {
    std::string out;
    for (int i = 0; i < levels; ++i)
        out += "<d>";
    out += 'x';
    for (int i = 0; i < levels; ++i)
        out += "</d>";
    return out;
}

} // namespace quillon::bench

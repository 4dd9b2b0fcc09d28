#include "bench/order_file.h"

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
    for (int i = 0; i < levels; ++i)
        out += "</d>";
    return out;
}

} // namespace quillon::bench

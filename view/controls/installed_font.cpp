#include "view/controls/installed_font.h"

#include <QFontDatabase>

namespace quillon::controls {

namespace {

constexpr QStringView Monospaced[] = {u"Noto Sans Mono CJK JP", u"IPAGothic", u"VL Gothic",
                                      u"TakaoGothic"};

} // namespace

QString installedFamily(const QString &family) {
    if (QFontDatabase::hasFamily(family))
        return family;
    for (const QStringView other : Monospaced) {
        if (QFontDatabase::hasFamily(other.toString()))
            return other.toString();
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

} // namespace quillon::controls

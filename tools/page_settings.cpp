#include "tools/page_settings.h"

namespace quillon::tools {

namespace {

constexpr double UnitsPerMillimetre = 100;

QPageSize sizeNamed(const QString &key) {
    for (int id = 0; id <= int(QPageSize::LastPageSize); ++id) {
        if (id != int(QPageSize::Custom) && QPageSize::key(QPageSize::PageSizeId(id)) == key)
            return QPageSize(QPageSize::PageSizeId(id));
    }
    return QPageSize(QPageSize::A4);
}

} // namespace

QPageLayout paperOf(const settings::Values &values) {
    QPageLayout paper(sizeNamed(values.paper),
                      values.isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                      QMarginsF(), QPageLayout::Millimeter);
    const QMarginsF margins =
        QMarginsF(values.marginLeft, values.marginTop, values.marginRight, values.marginBottom) /
        UnitsPerMillimetre;
    const QSizeF sheet = paper.fullRect().size();
    if (margins.left() + margins.right() < sheet.width() * 3 / 4 &&
        margins.top() + margins.bottom() < sheet.height() * 3 / 4)
        paper.setMargins(margins);
    return paper;
}

void keepPaper(const QPageLayout &paper, settings::Values &values) {
    const auto units = [](double length) { return qint16(qRound(length * UnitsPerMillimetre)); };
    const QMarginsF margins = paper.margins(QPageLayout::Millimeter);
    values.paper = paper.pageSize().key();
    values.isLandscape = paper.orientation() == QPageLayout::Landscape;
    values.marginLeft = units(margins.left());
    values.marginTop = units(margins.top());
    values.marginRight = units(margins.right());
    values.marginBottom = units(margins.bottom());
}

} // namespace quillon::tools

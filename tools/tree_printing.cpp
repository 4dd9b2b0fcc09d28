#include "tools/tree_printing.h"

#include "platform/runtime/file_names.h"
#include "platform/runtime/numbers.h"
#include "platform/runtime/paths.h"
#include "resources/texts.h"
#include "view/controls/printer_dialog.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace quillon::tools {

using items::TreeItem;

namespace {

constexpr double TwipsPerInch = 1440;
/// Side of an icon: 16 pixels of 15 twips.
constexpr double IconTwips = 16 * 15;
/// Stands for a line break in a caption.
constexpr char16_t LineBreakMark = u'\u21B5';

} // namespace

PrintSurface::PrintSurface(QPrinter &printer, const QFont &font)
    : printer_(printer), painter_(std::make_unique<QPainter>(&printer)) {
    painter_->setFont(font);
    pageHeight_ = printer.pageLayout().paintRectPixels(printer.resolution()).height() *
                  TwipsPerInch / printer.resolution();
}

PrintSurface::~PrintSurface() = default;

double PrintSurface::toDevice(double twips) const {
    return twips * printer_.resolution() / TwipsPerInch;
}

double PrintSurface::TextHeight() const {
    return QFontMetricsF(painter_->font(), painter_->device()).height() * TwipsPerInch /
           printer_.resolution();
}

void PrintSurface::PaintPicture(const QIcon &icon, double x, double y, double size) {
    const QRectF place(toDevice(x), toDevice(y), toDevice(size), toDevice(size));
    icon.paint(painter_.get(), place.toAlignedRect());
}

void PrintSurface::print(const QString &text) {
    const QFontMetricsF metrics(painter_->font(), painter_->device());
    painter_->drawText(QPointF(toDevice(CurrentX), toDevice(CurrentY) + metrics.ascent()), text);
    CurrentX += metrics.horizontalAdvance(text) * TwipsPerInch / printer_.resolution();
}

void PrintSurface::printLine(const QString &text) {
    print(text);
    CurrentX = 0;
    CurrentY += TextHeight();
}

void PrintSurface::needRoom(double height) {
    if (CurrentY == 0 || CurrentY + height <= pageHeight_)
        return;
    printer_.newPage();
    CurrentY = 0;
}

QString TreePrinting::connector(const std::vector<bool> &siblingFollows, qint16 depth) {
    QString out;
    for (qint16 level = 1; level < depth; ++level)
        out += siblingFollows[std::size_t(level)] ? QStringLiteral(" | ") : QStringLiteral("   ");
    if (depth > 0)
        out += siblingFollows[std::size_t(depth)] ? QStringLiteral(" |-") : QStringLiteral(" +-");
    return out;
}

void TreePrinting::mnuFilePrintTree_Click() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(runtime::shownPath(runtime::fileName(state_.m_FileName)));
    if (controls::choosePrinter(printer))
        print(printer);
}

void TreePrinting::print(QPrinter &printer) {
    const TreeItem first = tree_.nodes().Item(1);
    if (!first)
        return;
    longWork_.run(resources::texts::Printing.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      const bool isDone = printItems(printer, first, progress);
                      if (!isDone && !printer.outputFileName().isEmpty())
                          QFile::remove(printer.outputFileName());
                  });
}

bool TreePrinting::printItems(QPrinter &printer, const TreeItem &first,
                              const runtime::Progress &progress) {
    const PrintLook drawn = look();
    PrintSurface surface(printer, drawn.font);
    levelFlags_.clear();
    qint16 depth = 0;
    const double count = tree_.nodes().Count();
    double printed = 0;
    // Down to the children, along to the next item, up when there is none.
    for (TreeItem item = first; item;) {
        if (progress && !progress(printed++ / count)) {
            printer.abort();
            return false;
        }
        PrintTreeNode(surface, drawn.images, item, depth);
        if (TreeItem child = item.Child()) {
            depth = runtime::checkedAdd16(depth, 1);
            item = child;
            continue;
        }
        while (item && !item.Next()) {
            item = item.Parent();
            --depth;
        }
        item = item.Next();
    }
    return true;
}

void TreePrinting::PrintTreeNode(PrintSurface &surface, const QList<QIcon> &images,
                                 const TreeItem &item, qint16 depth) {
    if (levelFlags_.size() <= std::size_t(depth))
        levelFlags_.resize(std::size_t(depth) + 1);
    levelFlags_[std::size_t(depth)] = bool(item.Next());
    const double height = surface.TextHeight();
    surface.needRoom(std::max(height, IconTwips));
    double iconTop = surface.CurrentY;
    if (height < IconTwips)
        surface.CurrentY += (IconTwips - height) / 2;
    else
        iconTop =
            runtime::toInteger(static_cast<qint64>(surface.CurrentY + (height - IconTwips) / 2));
    if (depth > 0)
        surface.print(connector(levelFlags_, depth));
    surface.PaintPicture(images.value(tree_.nodes().image(item)), surface.CurrentX, iconTop,
                         IconTwips);
    surface.CurrentX += IconTwips;
    surface.printLine(item.Text().replace(QLatin1Char('\n'), QChar(LineBreakMark)));
}

} // namespace quillon::tools

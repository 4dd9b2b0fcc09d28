#include "tools/tree_pages.h"

#include "platform/runtime/numbers.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace quillon::tools {

using items::TreeItem;

namespace {

constexpr double TwipsPerPoint = 20;
/// Side of the place of an icon: 16 pixels of 15 twips.
constexpr double IconTwips = 16 * 15;
/// So much of the place stays free on each side: neither a branch nor a letter touches the icon.
constexpr double IconMargin = 24;
/// Of an icon; in fewer nothing can be made out.
constexpr int LeastPixels = 4;
/// More lines of a caption are not printed.
constexpr qsizetype MostLines = 3;
/// No paper has room for more characters of a caption in so many lines.
constexpr qsizetype MostCharacters = 3000;
/// At least so much of the page's width is for captions.
constexpr double CaptionShare = 0.4;
constexpr double LeastFootPoints = 7;
constexpr double FootShare = 0.8;
/// Stands for a line break in a caption.
constexpr char16_t LineBreakMark = u'\u21B5';

const QString Bar = QStringLiteral(" | ");
const QString Empty = QStringLiteral("   ");
const QString Branch = QStringLiteral(" |-");
const QString LastBranch = QStringLiteral(" +-");

QFont inTwips(QFont font, double points) {
    font.setPixelSize(std::max(1, int(std::lround(points * TwipsPerPoint))));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double pointsOf(const QFont &font) {
    return font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
}

/// Whether no character is wider than high. To measure a million captions takes its time.
bool isPlain(const QString &text) {
    return std::ranges::all_of(text, [](QChar c) {
        return c < QChar(0x180) || (c >= QChar(0x3000) && c < QChar(0xA000));
    });
}

} // namespace

TreePages::TreePages(const items::Nodes &nodes, PrintLook look)
    : nodes_(nodes), look_(std::move(look)), font_(inTwips(look_.font, pointsOf(look_.font))),
      footFont_(inTwips(look_.font, std::max(LeastFootPoints, pointsOf(look_.font) * FootShare))),
      metrics_(font_), footMetrics_(footFont_) {
    for (const QString &piece : {Bar, Empty, Branch, LastBranch})
        columnWidth_ = std::max(columnWidth_, metrics_.horizontalAdvance(piece));
    levelColumns_ =
        int(std::ceil(metrics_.horizontalAdvance(QStringLiteral("32767…")) / columnWidth_));
}

QString TreePages::connector(const std::vector<bool> &siblingFollows, qint16 depth) {
    QString out;
    for (qint16 level = 1; level < depth; ++level)
        out += siblingFollows[std::size_t(level)] ? Bar : Empty;
    if (depth > 0)
        out += siblingFollows[std::size_t(depth)] ? Branch : LastBranch;
    return out;
}

void TreePages::advance(TreeItem &item, qint16 &depth) {
    // Down to the children, along to the next item, up when there is none.
    if (const TreeItem child = item.Child()) {
        depth = runtime::checkedAdd16(depth, 1);
        item = child;
        return;
    }
    while (item && !item.Next()) {
        item = item.Parent();
        --depth;
    }
    item = item.Next();
}

bool TreePages::layOut(const QSizeF &page, const runtime::Progress &progress) {
    starts_.clear();
    page_ = QSizeF(page.width(), page.height() - 2 * footMetrics_.height());
    mostColumns_ = std::max(levelColumns_ + 1,
                            int((page_.width() * (1 - CaptionShare) - IconTwips) / columnWidth_));
    const double count = nodes_.Count();
    double done = 0;
    double y = 0;
    qint16 depth = 0;
    for (TreeItem item = nodes_.Item(1); item; advance(item, depth)) {
        if (progress && !progress(done++ / count)) {
            starts_.clear();
            return false;
        }
        const double height = rowOf(item, depth).height;
        if (starts_.empty() || y + height > page_.height()) {
            starts_.push_back({item, depth});
            y = 0;
        }
        y += height;
    }
    return true;
}

qint16 TreePages::firstColumn(qint16 depth) const {
    return depth <= mostColumns_ ? 1 : qint16(depth - mostColumns_ + levelColumns_ + 1);
}

TreePages::Row TreePages::rowOf(const TreeItem &item, qint16 depth) const {
    Row row;
    row.x = std::min<int>(depth, mostColumns_) * columnWidth_;
    row.lines = linesOf(item, page_.width() - row.x - IconTwips);
    row.height =
        std::max(metrics_.height(), IconTwips) + double(row.lines.size() - 1) * metrics_.height();
    return row;
}

QStringList TreePages::linesOf(const TreeItem &item, double width) const {
    QString caption = item.Text().left(MostCharacters);
    caption.replace(u'\n', QChar(LineBreakMark)).replace(u'\t', u' ');
    if (double(caption.size()) * font_.pixelSize() <= width && isPlain(caption))
        return {caption};
    QTextLayout layout(caption, font_);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == MostLines) {
            lines.append(metrics_.elidedText(caption.mid(line.textStart()), Qt::ElideRight, width));
            break;
        }
        lines.append(caption.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines.isEmpty() ? QStringList{QString()} : lines;
}

void TreePages::takeFlag(const TreeItem &item, qint16 depth) {
    if (levelFlags_.size() <= std::size_t(depth))
        levelFlags_.resize(std::size_t(depth) + 1);
    levelFlags_[std::size_t(depth)] = bool(item.Next());
}

void TreePages::makePictures(const QPainter &painter) {
    const double pixels = (IconTwips - 2 * IconMargin) * painter.deviceTransform().m11();
    const int side = std::clamp(int(std::lround(pixels)), LeastPixels, int(IconTwips));
    if (side == pictureSide_)
        return;
    pictureSide_ = side;
    pictures_.clear();
    for (const QIcon &icon : look_.images)
        pictures_.push_back(icon.pixmap(QSize(side, side), 1.0));
}

void TreePages::paint(QPainter &painter, int page) {
    const auto [first, firstDepth] = starts_[std::size_t(page)];
    const TreeItem end = page + 1 < count() ? starts_[std::size_t(page) + 1].item : TreeItem();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::black);
    makePictures(painter);
    TreeItem ancestor = first.Parent();
    for (qint16 level = firstDepth; level > 0; ancestor = ancestor.Parent())
        takeFlag(ancestor, --level);
    qint16 depth = firstDepth;
    double y = 0;
    for (TreeItem item = first; item && item != end; advance(item, depth)) {
        takeFlag(item, depth);
        PrintTreeNode(painter, item, depth, y);
        y += rowOf(item, depth).height;
    }
    printFoot(painter, page);
}

void TreePages::PrintTreeNode(QPainter &painter, const TreeItem &item, qint16 depth, double y) {
    const Row row = rowOf(item, depth);
    const double height = metrics_.height();
    double iconTop = y;
    if (height < IconTwips)
        y += (IconTwips - height) / 2;
    else
        iconTop = std::trunc(y + (height - IconTwips) / 2);
    painter.setFont(font_);
    printBranches(painter, item, depth, row, y);
    const int image = nodes_.image(item);
    if (image >= 0 && std::size_t(image) < pictures_.size()) {
        const QPixmap &picture = pictures_[std::size_t(image)];
        const QRectF place(row.x, iconTop, IconTwips, IconTwips);
        painter.drawPixmap(place.adjusted(IconMargin, IconMargin, -IconMargin, -IconMargin),
                           picture, picture.rect());
    }
    for (const QString &line : row.lines) {
        painter.drawText(QPointF(row.x + IconTwips, y + metrics_.ascent()), line);
        y += height;
    }
}

void TreePages::printBranches(QPainter &painter, const TreeItem &item, qint16 depth, const Row &row,
                              double y) const {
    const qint16 first = firstColumn(depth);
    const auto print = [&](int column, const QString &piece, double top) {
        painter.drawText(QPointF(column * columnWidth_, top + metrics_.ascent()), piece);
    };
    // Where branches further out have no room, the number of the level stands in their place.
    const int shift = first == 1 ? 1 : first - levelColumns_;
    const auto printLine = [&](double top, const QString &own) {
        for (qint16 level = first; level < depth; ++level) {
            if (levelFlags_[std::size_t(level)])
                print(level - shift, Bar, top);
        }
        if (depth > 0)
            print(depth - shift, own, top);
    };
    if (first > 1)
        print(0, QString::number(depth + 1) + u'…', y);
    printLine(y, levelFlags_[std::size_t(depth)] ? Branch : LastBranch);
    for (qsizetype line = 1; line < row.lines.size(); ++line) {
        y += metrics_.height();
        printLine(y, levelFlags_[std::size_t(depth)] ? Bar : Empty);
        if (item.Child() && depth < mostColumns_)
            print(depth - shift + 1, Bar, y);
    }
}

void TreePages::printFoot(QPainter &painter, int page) const {
    const double gap = footMetrics_.height();
    const double top = page_.height() + gap * 3 / 4;
    const double width = page_.width();
    painter.setFont(footFont_);
    painter.setPen(QPen(Qt::gray, TwipsPerPoint / 2));
    painter.drawLine(QPointF(0, top - gap / 8), QPointF(width, top - gap / 8));
    painter.setPen(Qt::black);
    const QString number = QStringLiteral("%1 / %2").arg(page + 1).arg(count());
    const double numberWidth = footMetrics_.horizontalAdvance(number);
    const double dateWidth = footMetrics_.horizontalAdvance(look_.date);
    const double dateLeft = width - numberWidth - dateWidth - 3 * gap;
    const double baseline = top + footMetrics_.ascent();
    painter.drawText(QPointF(0, baseline),
                     footMetrics_.elidedText(look_.title, Qt::ElideMiddle, dateLeft - gap));
    painter.drawText(QPointF(dateLeft, baseline), look_.date);
    painter.drawText(QPointF(width - numberWidth, baseline), number);
}

} // namespace quillon::tools

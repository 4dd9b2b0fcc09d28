#include "app/main_window/hit_table.h"

#include "platform/ui/error_boundary.h"
#include "resources/hit_texts.h"
#include "tree/node_captions.h"
#include "view/controls/row_table.h"

#include <QPoint>

namespace quillon::app {

namespace texts = resources::hit_texts;
using search::HitOrder;
using search::HitRow;

namespace {

/// So many rows are remembered: more than are in sight.
constexpr std::size_t MostMade = 500;
constexpr int KindWidth = 130;
constexpr int PathWidth = 330;
constexpr int TextWidth = 260;

HitOrder orderOf(int column) {
    constexpr HitOrder Orders[] = {HitOrder::Kind, HitOrder::Path, HitOrder::Text, HitOrder::After};
    return column >= 0 && column < int(std::size(Orders)) ? Orders[column] : HitOrder::Document;
}

QPoint pointOf(const search::Span &span) {
    return {int(span.at), int(span.length)};
}

} // namespace

HitTable::HitTable(search::HitList &hits, QList<QIcon> images, ui::LongWork &longWork,
                   QObject *parent)
    : QAbstractTableModel(parent), hits_(hits), images_(std::move(images)), longWork_(longWork) {
    connect(&hits_, &search::HitList::shown, this, &HitTable::reset);
    connect(&hits_, &search::HitList::rowsChanged, this, &HitTable::reset);
    connect(&hits_, &search::HitList::rowTextsChanged, this, &HitTable::forgetTexts);
}

void HitTable::reset() {
    const bool hasChanges = hits_.hasChanges();
    if (hasChanges != hasChanges_) {
        hasChanges ? beginInsertColumns({}, After, Obstacle)
                   : beginRemoveColumns({}, After, Obstacle);
        hasChanges_ = hasChanges;
        hasChanges ? endInsertColumns() : endRemoveColumns();
    }
    beginResetModel();
    made_.clear();
    endResetModel();
}

void HitTable::forgetTexts() {
    made_.clear();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int HitTable::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : hits_.rowCount();
}

int HitTable::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : hasChanges_ ? Columns : After;
}

const HitRow &HitTable::row(int row) const {
    if (made_.size() >= MostMade && !made_.contains(row))
        made_.clear();
    const auto [known, isNew] = made_.try_emplace(row);
    if (isNew)
        known->second = hits_.row(row);
    return known->second;
}

QIcon HitTable::imageOf(int row) const {
    return image ? image(row) : images_.value(tree::imageKeys().indexOf(this->row(row).image));
}

QVariant HitTable::textAt(const HitRow &row, int column) const {
    switch (column) {
    case Kind:
        return row.kind;
    case Path:
        return row.path;
    case Text:
        return row.image.isEmpty() ? texts::GoneRow.toString() : row.text;
    case After:
        return row.after;
    default:
        return row.obstacle;
    }
}

QVariant HitTable::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || index.row() >= hits_.rowCount())
        return {};
    const HitRow &row = this->row(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return textAt(row, column);
    case Qt::ToolTipRole:
        return column == Kind ? QVariant() : textAt(row, column);
    case Qt::DecorationRole:
        return column == Kind ? imageOf(index.row()) : QVariant();
    case Qt::CheckStateRole:
        if (column != Kind || !hasChanges_)
            return {};
        return hits_.isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    case controls::row_role::Mark:
        return column == Text    ? QVariant(pointOf(row.mark))
               : column == After ? QVariant(pointOf(row.afterMark))
                                 : QVariant();
    default:
        return {};
    }
}

bool HitTable::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid() || !hasChanges_)
        return false;
    hits_.setTicked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QVariant HitTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    const QString names[] = {texts::KindColumn.toString(), texts::PathColumn.toString(),
                             hits_.nameOfTexts(), texts::AfterColumn.toString(),
                             texts::ObstacleColumn.toString()};
    constexpr int Widths[] = {KindWidth, PathWidth, TextWidth, TextWidth, TextWidth};
    if (role == Qt::DisplayRole)
        return names[section];
    return role == controls::row_role::Width ? QVariant(Widths[section]) : QVariant();
}

Qt::ItemFlags HitTable::flags(const QModelIndex &index) const {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (index.column() == Kind && hasChanges_ && hits_.change(index.row()).obstacle.isEmpty())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

int HitTable::sortedColumn() const {
    switch (hits_.order()) {
    case HitOrder::Kind:
        return Kind;
    case HitOrder::Path:
        return Path;
    case HitOrder::Text:
        return Text;
    case HitOrder::After:
        return After;
    default:
        return -1;
    }
}

void HitTable::sort(int column, Qt::SortOrder order) {
    ui::guarded([&] {
        longWork_.run(texts::Sorting.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          hits_.sort(orderOf(column), order, progress);
                      });
    });
}

} // namespace quillon::app

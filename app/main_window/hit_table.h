#pragma once

#include "platform/ui/long_work.h"
#include "search/hit_list.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <functional>
#include <unordered_map>

namespace quillon::app {

/// The list of hits as a table: kind, path and text, and what the text is to become where that is
/// planned.
class HitTable : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The images are those of the kinds of nodes, by their number in tree::imageKeys().
    HitTable(search::HitList &hits, QList<QIcon> images, ui::LongWork &longWork,
             QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Column -1 is the order of the document.
    void sort(int column, Qt::SortOrder order) override;

    /// The image of a row, where it is not that of the kind of its node.
    std::function<QIcon(int row)> image;

    /// What the rows are sorted by now.
    int sortedColumn() const;

private:
    enum Column { Kind, Path, Text, After, Obstacle, Columns };

    void reset();
    void forgetTexts();
    const search::HitRow &row(int row) const;
    QIcon imageOf(int row) const;
    QVariant textAt(const search::HitRow &row, int column) const;

    search::HitList &hits_;
    const QList<QIcon> images_;
    ui::LongWork &longWork_;
    bool hasChanges_ = false;
    /// A cell is asked for many things at once, and the rows in sight again and again.
    mutable std::unordered_map<int, search::HitRow> made_;
};

} // namespace quillon::app

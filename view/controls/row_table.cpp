#include "view/controls/row_table.h"

#include "view/controls/mark_delegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace quillon::controls {

namespace {

/// Pixels between the lines of neighbouring rows.
constexpr int RowSpace = 6;
constexpr int LeastColumn = 48;

} // namespace

RowTable::RowTable(QAbstractItemModel &model, QWidget *parent) : QTableView(parent) {
    setItemDelegate(new MarkDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView &head = *horizontalHeader();
    head.setHighlightSections(false);
    head.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    head.setStretchLastSection(true);
    head.setMinimumSectionSize(LeastColumn);
    head.setSortIndicatorClearable(true);
    head.setSortIndicator(-1, Qt::AscendingOrder);
    setModel(&model);
    setSortingEnabled(true);
    fitColumns();
    setTextFont(font());

    connect(&model, &QAbstractItemModel::columnsInserted, this, &RowTable::fitColumns);
    connect(this, &QAbstractItemView::clicked, this,
            [this](const QModelIndex &index) { Q_EMIT clickedRow(index.row()); });
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &index) { Q_EMIT enteredRow(index.row()); });
}

void RowTable::fitColumns() {
    for (int column = 0; column + 1 < model()->columnCount(); ++column) {
        const QVariant width = model()->headerData(column, Qt::Horizontal, row_role::Width);
        setColumnWidth(column, width.toInt());
    }
}

void RowTable::setTextFont(const QFont &font) {
    setFont(font);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(font).height() + RowSpace);
}

std::vector<int> RowTable::selectedRows() const {
    std::vector<int> rows;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::ranges::sort(rows);
    return rows;
}

void RowTable::showOrder(int column, Qt::SortOrder order) {
    const QSignalBlocker blocker(horizontalHeader());
    horizontalHeader()->setSortIndicator(column, order);
    horizontalHeader()->viewport()->update();
}

void RowTable::setCurrentRow(int row) {
    if (row < 0 || row >= model()->rowCount())
        return setCurrentIndex({});
    // Across, the place stays.
    const int across = horizontalScrollBar()->value();
    setCurrentIndex(model()->index(row, std::max(0, currentIndex().column())));
    horizontalScrollBar()->setValue(across);
}

bool RowTable::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.matches(QKeySequence::Copy) || key.matches(QKeySequence::SelectAll)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void RowTable::enterCurrentRow() {
    // Moved to with Ctrl held down it is not selected, and would not be seen from elsewhere.
    const int row = currentIndex().row();
    if (!selectionModel()->isRowSelected(row))
        selectRow(row);
    Q_EMIT enteredRow(row);
}

void RowTable::keyPressEvent(QKeyEvent *event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy))
        Q_EMIT copyRequested();
    else if (isEnter && currentIndex().isValid())
        enterCurrentRow();
    else
        QTableView::keyPressEvent(event);
}

} // namespace quillon::controls

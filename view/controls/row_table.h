#pragma once

#include <QTableView>

namespace quillon::controls {

/// What the cells of a RowTable are made from, beside Qt's own roles.
namespace row_role {
/// A QPoint: where in the text, in UTF-16 units, and how much of it is to be marked.
inline constexpr int Mark = Qt::UserRole;
/// Of the head of a column: how wide it is at first, in pixels. The last column takes what is left.
inline constexpr int Width = Qt::UserRole + 1;
} // namespace row_role

/// A table of rows that are made when they come into sight, so that a million of them do no harm.
/// The rows are sorted by the model: a click on a column's head goes from ascending to descending
/// and back to the model's own order.
class RowTable : public QTableView {
    Q_OBJECT

public:
    /// The model must outlive the table.
    explicit RowTable(QAbstractItemModel &model, QWidget *parent = nullptr);

    void setTextFont(const QFont &font);
    /// The rows selected, from the top; one that is only the current one is not among them.
    std::vector<int> selectedRows() const;
    /// Marks the head of the column that the rows are sorted by, -1 for none, without sorting.
    void showOrder(int column, Qt::SortOrder order);
    /// Makes a row the current one and brings it into sight; -1 for none.
    void setCurrentRow(int row);

Q_SIGNALS:
    /// The user has clicked a row, or wants to go where it leads: by Enter or a double click.
    void clickedRow(int row);
    void enteredRow(int row);
    /// Ctrl+C was pressed.
    void copyRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

private:
    void fitColumns();
    void enterCurrentRow();
};

} // namespace quillon::controls

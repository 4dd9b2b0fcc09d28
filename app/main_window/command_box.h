#pragma once

#include "help/command_finder.h"

#include <QAbstractTableModel>
#include <QFrame>
#include <QPointer>

#include <functional>

class QLabel;
class QLineEdit;
class QTreeView;

namespace quillon::app {

/// The commands that have been found, a row each: name, menu, key.
class CommandRowsModel : public QAbstractTableModel {
public:
    enum Column { Title, Menu, Key, Columns };

    struct Row {
        const help::Command *command = nullptr;
        bool isEnabled = false;
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setRows(std::vector<Row> rows);
    const Row &row(int at) const { return rows_[std::size_t(at)]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<Row> rows_;
};

/// A box over the window that finds commands by what is typed and runs the one that is chosen. The
/// keyboard goes back to where it came from ahead of the command.
class CommandBox : public QFrame {
    Q_OBJECT

public:
    CommandBox(help::Commands commands, QWidget &window);

    /// Whether a command applies; asked for each one when the box opens.
    std::function<bool(const QString &command)> isEnabled;
    /// What was run before, by name, the latest first.
    std::function<QStringList()> recent;

    void open();

Q_SIGNALS:
    /// The user wants a command run that applies. The box has closed.
    void chosen(const QString &command);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void layOut();
    void place();
    void find();
    void choose();
    void giveBackFocus();
    bool takeKey(int key);
    void tell(const QString &text);

    const help::CommandFinder finder_;
    QWidget &window_;
    QPointer<QWidget> focusBefore_;
    QStringList recent_;
    std::vector<bool> applies_;
    CommandRowsModel rows_;
    QLineEdit *field_;
    QTreeView *list_;
    QLabel *remark_;
};

} // namespace quillon::app

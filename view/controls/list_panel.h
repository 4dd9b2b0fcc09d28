#pragma once

#include "view/controls/row_table.h"

#include <QWidget>

class QStackedWidget;
class QTabBar;
class QToolButton;

namespace quillon::controls {

/// Lists of rows, a tab each, with the commands that all of them have.
class ListPanel : public QWidget {
    Q_OBJECT

public:
    explicit ListPanel(QWidget *parent = nullptr);

    /// Adds a list behind those that are there, with what is to be read in its place while it has
    /// no rows. Returns its table, which is the panel's own.
    RowTable &addList(QAbstractItemModel &model, const QString &name, const QString &emptyText);
    /// What is to be read on the tab of a list, and all of it when the pointer rests there.
    void setTitle(const RowTable &list, const QString &title, const QString &toolTip);
    /// What is to be read in the place of a list while it has no rows.
    void setEmptyText(const RowTable &list, const QString &text);
    /// The list that is to be seen.
    RowTable &shownList() const;
    void show(const RowTable &list);
    /// Gives the keyboard to the list that is to be seen.
    void takeFocus();

Q_SIGNALS:
    void copyRequested();
    void saveRequested();
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *addButton(QStringView icon, QStringView text, QStringView name,
                           QStringView toolTip);
    /// Whether the shown list has rows decides what is to be seen.
    void showRowsOrText();

    QTabBar *tabs_;
    QStackedWidget *pages_;
    QToolButton *copy_;
    QToolButton *save_;
    QToolButton *close_;
    std::vector<RowTable *> tables_;
};

} // namespace quillon::controls

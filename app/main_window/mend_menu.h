#pragma once

#include "app/main_window/result_panel.h"
#include "view/controls/text_box.h"
#include "view/controls/tree_view.h"

#include <QObject>

namespace quillon::app {

/// The list of what may be done about the faults at a place, as a menu: faults of the document, or
/// what keeps the text in the pane from being well-formed.
class MendMenu : public QObject {
    Q_OBJECT

public:
    MendMenu(Editor &editor, controls::TreeView &tree, controls::TextBox &pane, ResultPanel &panel,
             QWidget *window);

    /// Opens it for the place that has the keyboard: the caret in the pane, the current row of the
    /// list of faults, else the item that is selected in the tree. Where nothing is wrong that is
    /// told in the status bar.
    void open();

private:
    struct Entries;

    void openForRow(int row, const QPoint &point);
    void openForMarks(const std::vector<ui::TextMark> &marks, const QPoint &point);
    void openAt(const std::vector<quint32> &nodes, const QPoint &point);
    void openForSyntax(const QPoint &point);
    void addOfNode(quint32 number, Entries &entries);
    void show(const Entries &entries, const QPoint &point);

    Editor &editor_;
    controls::TreeView &tree_;
    controls::TextBox &pane_;
    ResultPanel &panel_;
    QWidget *window_;
};

} // namespace quillon::app

#pragma once

#include "app/editor.h"
#include "app/main_window/hit_table.h"
#include "view/controls/list_panel.h"

#include <QDockWidget>
#include <QPointer>

class QMainWindow;
class QPushButton;

namespace quillon::app {

/// The panel under the tree and the panes: lists of what has been found and of what is wrong, and
/// the way from there to the nodes. It does not open of itself; where it is closed, a button offers
/// what has been found. Another one tells how much is wrong, whether it is closed or not.
class ResultPanel : public QDockWidget {
    Q_OBJECT

public:
    ResultPanel(Editor &editor, const QList<QIcon> &images, ui::LongWork &longWork,
                QMainWindow *window);

    /// Shows itself and takes the keyboard; or closes, which gives it back.
    void open();
    void shut();
    /// The same with the list of what is wrong.
    void openFaults();
    /// How tall it is, in pixels; while it is closed, how tall it was and is to be again.
    int usualHeight() const { return isVisible() ? height() : usualHeight_; }
    void setUsualHeight(int height) { usualHeight_ = height; }
    /// Gives the keyboard to the list.
    void takeFocus() { lists_->takeFocus(); }
    /// Whether the list of what is wrong has the keyboard; and asks for the mends of its current
    /// row.
    bool hasFocusInFaults() const;
    void askForMendsOfCurrentRow();
    /// What leads on from row to row: in the list that is shown, or else in the one that has rows.
    search::HitNavigation &navigation() { return *walkedTab().navigation; }
    /// Shown while there are hits and the panel is closed; the window puts it on its status bar.
    QPushButton &button() { return *button_; }
    /// Shown while there is something wrong, or a schema says that there is not.
    QPushButton &faultsButton() { return *faultsButton_; }
    void setTextFont(const QFont &font);

Q_SIGNALS:
    /// The keyboard has nowhere to go back to.
    void focusGivenUp();
    /// A hit has been gone to by the Enter key or a double click. `inPane` tells whether it is
    /// selected in the pane.
    void entered(bool inPane);
    /// The mends of a fault are asked for, by a row of the list, at a point of the screen.
    void mendsRequested(int row, const QPoint &point);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// A list with what goes with it.
    struct Tab {
        search::HitList *hits;
        search::HitNavigation *navigation;
        search::HitExport *out;
        HitTable *model;
        controls::RowTable *table;
    };

    void connectTab(const Tab &tab);
    void connectFaults();
    const Tab &shownTab() const { return &lists_->shownList() == faults_.table ? faults_ : hits_; }
    const Tab &walkedTab() const;
    void showTitle();
    void showFaultsTitle();
    void showHitsShown();
    static void showCurrentRow(const Tab &tab);
    bool goTo(const Tab &tab, int row);
    /// Whether a row of the faults is about text that the pane alone has.
    bool isOfSyntax(int row) const;
    static std::vector<int> chosenRows(const Tab &tab);
    void askForMends(const QPoint &position);

    Editor &editor_;
    controls::ListPanel *lists_;
    Tab hits_;
    Tab faults_;
    QPushButton *button_;
    QPushButton *faultsButton_;
    int usualHeight_ = 0;
    /// Who had the keyboard before the panel was opened.
    QPointer<QWidget> focusBefore_;
};

} // namespace quillon::app

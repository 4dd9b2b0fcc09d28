#pragma once

#include "app/editor.h"
#include "app/main_window/hit_table.h"
#include "view/controls/list_panel.h"

#include <QDockWidget>
#include <QPointer>

class QMainWindow;
class QPushButton;

namespace quillon::app {

/// The panel under the tree and the panes: lists of what has been found, and the way from there to
/// the nodes. It does not open of itself; where it is closed, a button offers it.
class ResultPanel : public QDockWidget {
    Q_OBJECT

public:
    ResultPanel(Editor &editor, const QList<QIcon> &images, ui::LongWork &longWork,
                QMainWindow *window);

    /// Shows itself and takes the keyboard; or closes, which gives it back.
    void open();
    void shut();
    /// How tall it is, in pixels; while it is closed, how tall it was and is to be again.
    int usualHeight() const { return isVisible() ? height() : usualHeight_; }
    void setUsualHeight(int height) { usualHeight_ = height; }
    /// Gives the keyboard to the list.
    void takeFocus() { lists_->takeFocus(); }
    /// Shown while there are hits and the panel is closed; the window puts it on its status bar.
    QPushButton &button() { return *button_; }
    void setTextFont(const QFont &font) { table_->setTextFont(font); }

Q_SIGNALS:
    /// The keyboard has nowhere to go back to.
    void focusGivenUp();
    /// A hit has been gone to by the Enter key or a double click. `inPane` tells whether it is
    /// selected in the pane.
    void entered(bool inPane);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void connectTable();
    void showTitle();
    void showCurrentRow();
    bool goTo(int row);
    std::vector<int> chosenRows() const;

    Editor &editor_;
    HitTable *hits_;
    controls::ListPanel *lists_;
    controls::RowTable *table_;
    QPushButton *button_;
    int usualHeight_ = 0;
    /// Who had the keyboard before the panel was opened.
    QPointer<QWidget> focusBefore_;
};

} // namespace quillon::app

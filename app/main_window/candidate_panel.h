#pragma once

#include "app/editor.h"
#include "app/main_window/candidate_rows.h"

#include <QDockWidget>
#include <QPointer>
#include <QTimer>

#include <array>

class QLabel;
class QLineEdit;
class QMainWindow;
class QStackedWidget;
class QTabBar;
class QTextEdit;
class QToolButton;
class QTreeView;

namespace quillon::app {

/// The panel at the right of the window: what may stand at the selected node, a tab for each way to
/// insert it, with a line to look for something in the list and what the schema says of it.
class CandidatePanel : public QDockWidget {
    Q_OBJECT

public:
    /// The ways to insert something, in the order of the tabs.
    enum class Way { Child, Ahead, Behind, Attribute };
    static constexpr int Ways = 4;

    /// The images are those of the kinds of nodes, by their number in tree::imageKeys().
    CandidatePanel(Editor &editor, const QList<QIcon> &images, QMainWindow *window);

    /// Shows itself and takes the keyboard; with a way, that list is the one to be seen. Or closes,
    /// which gives the keyboard back.
    void open();
    void open(Way way);
    void shut();
    /// How wide it is, in pixels; while it is closed, how wide it was and is to be again.
    int usualWidth() const { return isVisible() ? width() : usualWidth_; }
    void setUsualWidth(int width) { usualWidth_ = width; }
    /// Gives the keyboard to the line above the list.
    void takeFocus();
    void setTextFont(const QFont &font);

    /// What may be inserted in a way at the selected node; and inserts it. Errors are shown to the
    /// user.
    candidates::EntryList entries(Way way) const;
    void insert(const candidates::Entry &entry, Way way);

Q_SIGNALS:
    /// The keyboard has nowhere to go back to.
    void focusGivenUp();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void layOut();
    void connectParts();
    void connectNews();
    Way way() const;
    /// Says what schema is in force, or why there is none.
    void showSchema();
    /// Fills the lists once there is nothing else to do.
    void refreshSoon(int milliseconds);
    void refresh();
    void showList();
    void showCurrentEntry();
    void enterCurrentRow();
    void selectRow(int row);
    bool takesKey(const QKeyEvent &event);
    void giveKeyboardBack();

    Editor &editor_;
    const QIcon elementIcon_;
    const QIcon attributeIcon_;
    QLabel *schema_;
    QToolButton *close_;
    QTabBar *tabs_;
    QLineEdit *filter_;
    QStackedWidget *pages_;
    QTreeView *list_;
    QLabel *empty_;
    QLabel *remark_;
    QTextEdit *details_;
    CandidateRows rows_;
    std::array<candidates::EntryList, Ways> lists_;
    QTimer soon_;
    bool isStale_ = true;
    int usualWidth_ = 0;
    /// Who had the keyboard before the panel was opened.
    QPointer<QWidget> focusBefore_;
};

} // namespace quillon::app

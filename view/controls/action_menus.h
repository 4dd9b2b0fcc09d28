#pragma once

#include "view/controls/action_set.h"

#include <QObject>
#include <QStringView>

#include <functional>
#include <map>
#include <vector>

class QMenu;
class QMenuBar;

namespace quillon::controls {

/// The menus of one window, made from the rows of its set of actions.
class ActionMenus : public QObject {
    Q_OBJECT

public:
    /// One entry of a menu that the program makes from a list.
    struct Element {
        /// With '&' before the access key; a '&' to be shown is written twice.
        QString caption;
        /// What the entry stands for; not shown.
        QString tag;
    };
    /// Receives the element's index in its control array, and its tag.
    using RunElement = std::function<void(int index, const QString &tag)>;

    /// Fills a menu bar, which becomes the parent, and makes the context menus. Each menu is its
    /// action's menu(). The set of actions must outlive this object.
    ActionMenus(ActionSet &actions, QMenuBar &bar);

    /// Has a function run each time a menu opens, ahead of the `enabled` functions of its entries;
    /// several run in the order in which they were given. Entries start out enabled; a state that
    /// the function sets lasts until the menu closes and does not hold back keys. Errors are shown
    /// to the user. Raises std::out_of_range for a name that is no menu's.
    void onMenuOpening(QStringView menu, std::function<void()> function);

    /// Makes a list the elements of a control array from index `first` on, 0 or 1, in place of an
    /// earlier list. With 0 the first one takes over element 0, which is hidden while the list is
    /// empty. With 1 element 0 keeps its caption, does nothing, and is shown only while the list
    /// is empty. Element 0 is action(array); the others are called like "mnuFileMRUFiles(1)".
    /// Errors of `run` are shown to the user. Raises std::out_of_range for a name that is no
    /// array's.
    void setElements(QStringView array, const std::vector<Element> &elements, RunElement run,
                     int first);

private:
    struct Array {
        QMenu *menu = nullptr;
        /// Element 0 first.
        std::vector<QAction *> elements;
        RunElement run;
    };

    void addMenu(const ActionRow &row);
    void makeStatesFollow(const QMenu &menu, QStringView name);
    void opens(QStringView menu);
    QAction *addElement(QStringView name);
    void dropElements(Array &array, size_t keep);
    void runElement(QStringView name, size_t index);

    ActionSet &actions_;
    QMenuBar &bar_;
    std::map<QStringView, std::vector<std::function<void()>>> opening_;
    std::map<QStringView, Array> arrays_;
};

} // namespace quillon::controls

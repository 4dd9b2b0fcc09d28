#pragma once

#include "search/find_and_replace.h"

#include <QDialog>

#include <functional>
#include <utility>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace quillon::app {

class Editor;

/// The fields and buttons of searching and replacing, beside the window that they are about. It
/// keeps what has been entered as long as its window lives. A fault of a pattern is told while it
/// is being typed.
class ReplaceDialog : public QDialog {
    Q_OBJECT

public:
    ReplaceDialog(Editor &editor, QWidget *parent);

    /// Shows the dialog, ready for another text to be typed.
    void showForInput();
    /// What the fields say.
    search::SearchRequest request() const;

private:
    QWidget *fields();
    QWidget *kindGroup();
    QWidget *partsGroup();
    QWidget *scopeGroup();
    QWidget *buttons();
    QPushButton *addButton(QStringView caption, const char *name, std::function<void()> press);

    /// Runs what a button stands for.
    void run(const std::function<void()> &command);
    void showHistories();
    void showState();
    QString fault() const;

    Editor &editor_;
    search::FindAndReplace &commands_;

    QComboBox *what_;
    QComboBox *with_;
    QLabel *fault_;
    QLabel *hint_;
    QLabel *message_;
    QButtonGroup *kinds_;
    QCheckBox *matchCase_;
    QCheckBox *wholeWord_;
    QCheckBox *matchWidth_;
    std::vector<std::pair<QCheckBox *, unsigned>> parts_;
    QButtonGroup *scopes_;
    /// Those that need a good pattern, and those that need a plan.
    std::vector<QPushButton *> searching_;
    std::vector<QPushButton *> planned_;
    QWidget *buttonColumn_ = nullptr;
};

} // namespace quillon::app

#pragma once

#include "view/controls/text_box.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace quillon::controls {

/// A text box with a bar below that finds within its text. Ctrl+F opens the bar, F3 and Shift+F3 go
/// on, Escape in the bar closes it; while the keyboard is in here, these keys reach nobody else.
class TextPane : public QWidget {
    Q_OBJECT

public:
    /// The text box becomes part of this.
    explicit TextPane(TextBox &textBox, QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *addButton(QStringView icon, QStringView name, QStringView toolTip);
    void layOutBar();
    void openBar();
    void closeBar();
    void findNext();
    void findPrevious();
    /// Finds what the field says as far as it is typed, starting from what is found already.
    void findTyped();
    void tell(TextBox::Found found, TextBox::Direction direction);

    TextBox &textBox_;
    QWidget *bar_;
    QLineEdit *field_;
    QToolButton *next_;
    QToolButton *previous_;
    QCheckBox *matchCase_;
    QLabel *message_;
    QToolButton *close_;
};

} // namespace quillon::controls

#pragma once

#include "platform/ui/path_box.h"

#include <QComboBox>

namespace quillon::controls {

/// The path box on the screen. What is typed is never completed,
/// changed or added to the list. Escape brings back the text that the program set last.
class PathBox : public QComboBox, public ui::PathBox {
    Q_OBJECT

public:
    explicit PathBox(QWidget *parent = nullptr);

    QString Text() const override { return currentText(); }
    void setText(const QString &text) override;
    QStringList List() const override;
    void AddItem(const QString &text) override;

Q_SIGNALS:
    /// Return was pressed.
    void Enter();
    /// An entry was chosen from the list and has become the text.
    void Click();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString textSet_;
};

} // namespace quillon::controls

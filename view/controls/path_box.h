#pragma once

#include <QComboBox>
#include <QString>
#include <QStringList>

namespace quillon::controls {

/// A line of text with a list of earlier ones to choose from. What is typed is never completed,
/// changed or added to the list. Escape brings back the text that the program set last.
class PathBox : public QComboBox {
    Q_OBJECT

public:
    explicit PathBox(QWidget *parent = nullptr);

    QString Text() const { return currentText(); }
    void setText(const QString &text);

    /// The entries of the list, first to last.
    QStringList List() const;
    /// Adds an entry at the end of the list; the text stays as it is.
    void AddItem(const QString &text);

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

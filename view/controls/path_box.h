#pragma once

#include "platform/ui/path_box.h"

#include <QComboBox>
#include <QCompleter>
#include <QStringListModel>

#include <functional>

namespace quillon::controls {

/// The path box on the screen. What is typed is never changed or added to the list unasked. Below
/// it stands a list of what could be meant; an entry that is chosen there becomes the text, to be
/// gone on with. Escape puts that list away, and without it brings back the text that the program
/// set last.
class PathBox : public QComboBox, public ui::PathBox {
    Q_OBJECT

public:
    explicit PathBox(QWidget *parent = nullptr);

    QString Text() const override { return currentText(); }
    void setText(const QString &text) override;
    QStringList List() const override;
    void AddItem(const QString &text) override;

    /// Says what could be meant by a text that has been typed to its end. None: nothing is
    /// proposed.
    std::function<QStringList(const QString &typed)> propose;
    /// The list of proposals, which is shown while there are any.
    QAbstractItemView *proposalList() const { return completer_.popup(); }

Q_SIGNALS:
    /// Return was pressed.
    void Enter();
    /// An entry was chosen from the list and has become the text.
    void Click();

protected:
    /// F4 opens the list, as in every such box, also where the window has another use for it.
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    /// Turning the wheel on the way over the toolbar is no choice from the list.
    void wheelEvent(QWheelEvent *event) override;

private:
    void showProposals(const QString &typed);
    void passOn(const QMouseEvent &press);

    QString textSet_;
    QStringListModel proposals_;
    QCompleter completer_;
};

} // namespace quillon::controls

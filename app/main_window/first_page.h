#pragma once

#include "help/command.h"
#include "platform/items/tree_drag.h"

#include <QPushButton>
#include <QScrollArea>
#include <QStringList>

class QBoxLayout;
class QCheckBox;
class QLabel;
class QVBoxLayout;

namespace quillon::app {

/// A line of the first page that can be pressed: a picture, what it is called, and what is to be
/// known of it below or at the right.
class PageLink : public QPushButton {
public:
    enum class Remark { Below, AtTheRight };

    PageLink(const QIcon &icon, const QString &title, const QString &remark, Remark place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int lineHeight() const;

    const QString title_;
    const QString remark_;
    const Remark place_;
};

/// What stands in the window while it has no document: ways to get one.
class FirstPage : public QScrollArea {
    Q_OBJECT

public:
    /// `samples`: the folder with the documents to try. `dragHandlers` are asked about what is
    /// dragged over the page and take what is dropped; they must outlive it.
    FirstPage(const help::Commands &commands, const QString &samples,
              const items::DragHandlers &dragHandlers);

    /// `gone` are those of the recent files that are not there any more.
    void setRecentFiles(const QStringList &files, const QStringList &gone);
    void setShownAgain(bool again);
    void takeFocus();

Q_SIGNALS:
    void commandChosen(const QString &command);
    void fileChosen(const QString &path);
    /// The user wants the page each time there is no document, or never again.
    void shownAgainChanged(bool again);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QVBoxLayout *addGroup(QStringView heading, QVBoxLayout &column);
    void addCommands(const help::Commands &commands, QVBoxLayout &group);
    void addSamples(const QString &folder, QVBoxLayout &group);
    QLabel *keyHints(const help::Commands &commands);
    PageLink *fileLink(const QString &path, const QString &title, const QString &remark);

    const items::DragHandlers &dragHandlers_;
    QBoxLayout *columns_;
    QVBoxLayout *recentFiles_ = nullptr;
    QCheckBox *again_;
    PageLink *first_ = nullptr;
};

} // namespace quillon::app

#pragma once

#include "platform/items/tree_nodes.h"
#include "platform/ui/proposals.h"

#include <QIcon>
#include <QStyledItemDelegate>

#include <functional>

namespace quillon::controls {

/// Draws and edits the captions of a tree view. A caption is drawn on one line, each line break in
/// it as a mark, and only its beginning is measured and laid out.
class TreeDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// How many UTF-16 units of a caption are drawn.
    static constexpr int DrawnLength = 500;

    /// Gives the text with which an editor opens.
    using InitialText = std::function<QString(const QModelIndex &)>;
    /// Takes the text of an editor that is about to close.
    using Commit = std::function<void(const QModelIndex &, const QString &)>;

    /// The items and the image list must outlive it.
    TreeDelegate(const items::Nodes &nodes, const QList<QIcon> &images, InitialText initialText,
                 Commit commit, QObject *parent);

    /// Gives who knows what can be typed into an editor; none: nobody does.
    std::function<ui::Proposer(const QModelIndex &)> proposerFor;

    /// With the mark of the item on its icon.
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QString displayText(const QVariant &value, const QLocale &locale) const override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    /// The list of what can be typed gets its keys before they end the editing.
    bool eventFilter(QObject *editor, QEvent *event) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    const items::Nodes &nodes_;
    const QList<QIcon> &images_;
    InitialText initialText_;
    Commit commit_;
};

} // namespace quillon::controls

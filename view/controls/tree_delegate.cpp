#include "view/controls/tree_delegate.h"

#include "resources/node_texts.h"
#include "view/controls/fault_mark.h"
#include "view/controls/line_proposals.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <limits>

namespace quillon::controls {

namespace {

constexpr QChar LineBreakMark = u'↵';
constexpr QChar CutMark = u'…';

bool isLineBreak(QChar c) {
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

TreeDelegate::TreeDelegate(const items::Nodes &nodes, const QList<QIcon> &images,
                           InitialText initialText, Commit commit, QObject *parent)
    : QStyledItemDelegate(parent), nodes_(nodes), images_(images),
      initialText_(std::move(initialText)), commit_(std::move(commit)) {}

void TreeDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const items::TreeItem item = nodes_.itemAt(index);
    if (item.Bold()) {
        option->font.setBold(true);
        option->fontMetrics = QFontMetrics(option->font);
    }
    const int image = nodes_.image(item);
    if (image < 0 || image >= images_.size())
        return;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = images_[image];
    const auto mode =
        option->state.testFlag(QStyle::State_Selected) ? QIcon::Selected : QIcon::Normal;
    option->decorationSize =
        option->icon.actualSize(option->decorationSize, mode).boundedTo(option->decorationSize);
}

void TreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const items::TreeItem item = nodes_.itemAt(index);
    items::Mark mark = nodes_.mark(item);
    // What is to be seen below need not be told above.
    const bool isBelow = mark == items::Mark::None && !item.Expanded();
    if (isBelow)
        mark = nodes_.markBelow(item);
    if (mark == items::Mark::None)
        return;
    QStyleOptionViewItem styled = option;
    initStyleOption(&styled, index);
    const QStyle *style = styled.widget ? styled.widget->style() : QApplication::style();
    const QRect icon =
        style->subElementRect(QStyle::SE_ItemViewItemDecoration, &styled, styled.widget);
    const qreal side = std::max(8.0, icon.height() * 0.8);
    paintFaultMark(*painter,
                   QRectF(icon.right() + 1 - side * 0.75, icon.bottom() + 1 - side, side, side),
                   mark, isBelow);
}

QString TreeDelegate::displayText(const QVariant &value, const QLocale &) const {
    const QString caption = value.toString();
    QString drawn;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const QChar c = caption[i];
        // Between the two units of one character the caption must not be cut.
        if (i >= DrawnLength && !c.isLowSurrogate())
            return drawn + CutMark;
        if (!isLineBreak(c))
            drawn += c;
        else if (c != u'\n' || i == 0 || caption[i - 1] != u'\r')
            drawn += LineBreakMark;
    }
    return drawn;
}

QWidget *TreeDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &index) const {
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAccessibleName(resources::node_texts::LabelEditorName.toString());
    editor->setMaxLength(std::numeric_limits<int>::max());
    // The text is put in here and once: a change of the item must not overwrite what the user has
    // typed since.
    editor->setText(initialText_(index));
    editor->selectAll();
    if (ui::Proposer proposer = proposerFor ? proposerFor(index) : ui::Proposer())
        new LineProposals(*editor, std::move(proposer));
    return editor;
}

bool TreeDelegate::eventFilter(QObject *editor, QEvent *event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        auto *const proposals = editor->findChild<LineProposals *>();
        if (proposals && proposals->takeKey(*static_cast<QKeyEvent *>(event))) {
            event->accept();
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

void TreeDelegate::setEditorData(QWidget *, const QModelIndex &) const {}

void TreeDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const {
    // Not as wide as the contents but within the viewport, and never too narrow to type in.
    constexpr int UsefulWidth = 120;
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    QRect rect = editor->geometry();
    const int viewportWidth = editor->parentWidget()->width();
    rect.setLeft(std::max(0, std::min(rect.left(), viewportWidth - UsefulWidth)));
    rect.setRight(viewportWidth - 1);
    editor->setGeometry(rect);
}

void TreeDelegate::setModelData(QWidget *editor, QAbstractItemModel *,
                                const QModelIndex &index) const {
    commit_(index, qobject_cast<QLineEdit *>(editor)->text());
}

} // namespace quillon::controls

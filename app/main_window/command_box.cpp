#include "app/main_window/command_box.h"

#include "platform/ui/error_boundary.h"
#include "resources/help_texts.h"

#include <QApplication>
#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace quillon::app {

namespace texts = resources::help_texts;

namespace {

constexpr int Margin = 8;
constexpr int UsualWidth = 620;
constexpr int UsualHeight = 400;
/// What stays free between the box and the edges of the window.
constexpr int Distance = 24;

/// How much higher a row is than its text, and how much wider a menu and a key.
constexpr QSize RowPadding(16, 8);

/// Rows with some room; what does not apply is grey when it is selected, too.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + RowPadding;
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        // The keyboard is in the field, but what it chooses is here.
        option->state |= QStyle::State_Active;
        const auto &model = static_cast<const CommandRowsModel &>(*index.model());
        if (model.row(index.row()).isEnabled)
            return;
        QPalette &palette = option->palette;
        palette.setBrush(QPalette::Highlight, palette.brush(QPalette::AlternateBase));
        palette.setBrush(QPalette::HighlightedText,
                         palette.brush(QPalette::Disabled, QPalette::Text));
    }
};

} // namespace

void CommandRowsModel::setRows(std::vector<Row> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int CommandRowsModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(rows_.size());
}

int CommandRowsModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant CommandRowsModel::data(const QModelIndex &index, int role) const {
    const auto &[command, isEnabled] = row(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return column == Title ? command->title : column == Menu ? command->menu : command->key;
    case Qt::ForegroundRole: {
        const QPalette palette = QApplication::palette();
        if (!isEnabled)
            return palette.brush(QPalette::Disabled, QPalette::Text);
        return column == Title ? QVariant() : palette.brush(QPalette::PlaceholderText);
    }
    case Qt::TextAlignmentRole:
        return column == Key ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    case Qt::AccessibleTextRole: {
        // Who goes through the rows hears the first column.
        if (column != Title)
            return {};
        QStringList spoken{command->title, command->menu, command->key};
        if (!isEnabled)
            spoken.append(texts::NotNow.toString());
        spoken.removeAll(QString());
        return spoken.join(texts::Between.toString());
    }
    default:
        return {};
    }
}

CommandBox::CommandBox(help::Commands commands, QWidget &window)
    : QFrame(&window), finder_(std::move(commands)), window_(window), field_(new QLineEdit),
      list_(new QTreeView), remark_(new QLabel) {
    setObjectName(QStringLiteral("commandBox"));
    setAccessibleName(texts::CommandBoxName.toString());
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Raised);
    setAutoFillBackground(true);
    layOut();
    hide();
    window_.installEventFilter(this);
    field_->installEventFilter(this);
    connect(field_, &QLineEdit::textChanged, this, &CommandBox::find);
    connect(list_, &QTreeView::clicked, this, &CommandBox::choose);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (isVisible() && now && now != this && !isAncestorOf(now))
            hide();
    });
}

void CommandBox::layOut() {
    field_->setObjectName(QStringLiteral("commandField"));
    field_->setAccessibleName(texts::CommandBoxName.toString());
    field_->setPlaceholderText(texts::CommandField.toString());
    field_->setClearButtonEnabled(true);
    list_->setObjectName(QStringLiteral("commandList"));
    list_->setAccessibleName(texts::CommandListName.toString());
    list_->setModel(&rows_);
    list_->setItemDelegate(new RowDelegate(list_));
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setHeaderHidden(true);
    list_->setAllColumnsShowFocus(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The keyboard stays in the field, which passes on what is for the list.
    list_->setFocusPolicy(Qt::NoFocus);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(CommandRowsModel::Title, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(CommandRowsModel::Menu, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(CommandRowsModel::Key, QHeaderView::ResizeToContents);
    remark_->setObjectName(QStringLiteral("commandRemark"));
    remark_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(Margin);
    column->addWidget(field_);
    column->addWidget(list_, 1);
    column->addWidget(remark_);
}

void CommandBox::place() {
    const QSize room = window_.size() - QSize(2 * Distance, 2 * Distance);
    resize(QSize(UsualWidth, UsualHeight).boundedTo(room));
    move((window_.width() - width()) / 2, Distance);
}

void CommandBox::open() {
    focusBefore_ = QApplication::focusWidget();
    recent_ = recent();
    applies_.clear();
    for (const help::Command &command : finder_.commands()) {
        bool applies = false;
        ui::guarded([&] { applies = isEnabled(command.name); });
        applies_.push_back(applies);
    }
    field_->clear();
    find();
    place();
    show();
    raise();
    field_->setFocus(Qt::PopupFocusReason);
}

void CommandBox::find() {
    std::vector<CommandRowsModel::Row> rows;
    for (const std::size_t at : finder_.find(field_->text(), recent_))
        rows.push_back({&finder_.commands()[at], applies_[at]});
    const auto count = rows.size();
    rows_.setRows(std::move(rows));
    list_->setCurrentIndex(rows_.index(0, 0));
    tell(count == 0 ? texts::NoCommands.toString() : texts::CommandCount.toString().arg(count));
}

void CommandBox::tell(const QString &text) {
    remark_->setText(text);
    // Read out with the field, where the keyboard is.
    field_->setAccessibleDescription(text);
}

void CommandBox::choose() {
    const QModelIndex index = list_->currentIndex();
    if (!index.isValid())
        return;
    const CommandRowsModel::Row &row = rows_.row(index.row());
    if (!row.isEnabled)
        return tell(texts::CannotRunNow.toString().arg(row.command->title));
    const QString command = row.command->name;
    giveBackFocus();
    hide();
    Q_EMIT chosen(command);
}

void CommandBox::giveBackFocus() {
    QWidget *const before = focusBefore_;
    QWidget *const next = before != nullptr && before->isVisible() ? before : &window_;
    next->setFocus(Qt::PopupFocusReason);
}

bool CommandBox::takeKey(int key) {
    switch (key) {
    case Qt::Key_Escape:
        giveBackFocus();
        hide();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose();
        return true;
    default:
        return false;
    }
}

bool CommandBox::eventFilter(QObject *watched, QEvent *event) {
    if (watched == &window_ && event->type() == QEvent::Resize && isVisible())
        place();
    if (watched != field_)
        return false;
    const bool isKey = event->type() == QEvent::KeyPress;
    // Keys of the window would run its commands instead.
    if (!isKey && event->type() != QEvent::ShortcutOverride)
        return false;
    auto &key = static_cast<QKeyEvent &>(*event);
    const bool isForList = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down ||
                           key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    if (!isKey) {
        if (isForList || key.key() == Qt::Key_Escape)
            event->accept();
        return false;
    }
    if (isForList) {
        QApplication::sendEvent(list_, event);
        return true;
    }
    return takeKey(key.key());
}

void CommandBox::hideEvent(QHideEvent *event) {
    QFrame::hideEvent(event);
    focusBefore_.clear();
}

} // namespace quillon::app

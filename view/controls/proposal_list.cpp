#include "view/controls/proposal_list.h"

#include "resources/candidate_texts.h"
#include "resources/completion_texts.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace quillon::controls {

namespace texts = resources::completion_texts;

namespace {

constexpr int MaxRows = 12;
constexpr int LeastWidth = 220;
constexpr int MostWidth = 460;
constexpr int DescriptionWidth = 280;
constexpr int Margin = 6;
/// Rows whose width is measured; more are not read anyhow.
constexpr int MeasuredRows = 500;

/// Draws the text, a mark ahead of it for what is needed, and behind it the detail.
class ProposalDelegate : public QStyledItemDelegate {
public:
    enum Role { Detail = Qt::UserRole, IsNeeded, Fits };

    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        const QFontMetrics &metrics = option.fontMetrics;
        const int width = markWidth(metrics) + metrics.horizontalAdvance(index.data().toString()) +
                          4 * Margin + metrics.horizontalAdvance(index.data(Detail).toString());
        return {width, metrics.height() + Margin};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        const bool fits = index.data(Fits).toBool();
        const QPalette::ColorGroup group = fits ? QPalette::Active : QPalette::Disabled;
        const auto ink = isSelected && fits ? QPalette::HighlightedText : QPalette::Text;
        if (isSelected)
            painter->fillRect(option.rect, option.palette.brush(QPalette::Active,
                                                                fits ? QPalette::Highlight
                                                                     : QPalette::AlternateBase));
        painter->save();
        QFont font = option.font;
        font.setBold(index.data(IsNeeded).toBool());
        painter->setFont(font);
        painter->setPen(option.palette.color(group, ink));
        const QFontMetrics metrics(font);
        QRect rest = option.rect.adjusted(Margin, 0, -Margin, 0);
        if (index.data(IsNeeded).toBool())
            painter->drawText(rest, Qt::AlignVCenter, QStringLiteral("!"));
        rest.setLeft(rest.left() + markWidth(option.fontMetrics));
        const QString text =
            metrics.elidedText(index.data().toString(), Qt::ElideMiddle, rest.width());
        painter->drawText(rest, Qt::AlignVCenter | Qt::TextSingleLine, text);
        rest.setLeft(rest.left() + metrics.horizontalAdvance(text) + 2 * Margin);
        painter->setFont(option.font);
        if (!isSelected)
            painter->setPen(option.palette.color(QPalette::PlaceholderText));
        painter->drawText(rest, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
                          option.fontMetrics.elidedText(index.data(Detail).toString(),
                                                        Qt::ElideRight, rest.width()));
        painter->restore();
    }

private:
    static int markWidth(const QFontMetrics &metrics) {
        return metrics.horizontalAdvance(QLatin1Char('!')) + Margin;
    }
};

} // namespace

// ---- The entries

void ProposalModel::set(std::vector<ui::Proposal> proposals) {
    proposals_ = std::move(proposals);
    filter({});
}

void ProposalModel::filter(const QString &typed) {
    beginResetModel();
    shown_.clear();
    std::vector<std::size_t> containing;
    for (std::size_t i = 0; i < proposals_.size(); ++i) {
        const QString &text = proposals_[i].text;
        // What opens an editor goes with any value.
        if (proposals_[i].editor != ui::ValueEditor::None ||
            text.startsWith(typed, Qt::CaseInsensitive))
            shown_.push_back(i);
        else if (text.contains(typed, Qt::CaseInsensitive))
            containing.push_back(i);
    }
    shown_.insert(shown_.end(), containing.begin(), containing.end());
    endResetModel();
}

int ProposalModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(shown_.size());
}

QVariant ProposalModel::data(const QModelIndex &index, int role) const {
    const ui::Proposal &proposal = at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return proposal.text;
    case Qt::AccessibleTextRole: {
        QStringList parts{proposal.text};
        if (proposal.isNeeded)
            parts.append(texts::Needed.toString());
        if (!proposal.detail.isEmpty())
            parts.append(proposal.detail);
        return parts.join(resources::candidate_texts::Between);
    }
    case Qt::AccessibleDescriptionRole:
        return proposal.reason.isEmpty() ? proposal.documentation : proposal.reason;
    case ProposalDelegate::Detail:
        return proposal.detail;
    case ProposalDelegate::IsNeeded:
        return proposal.isNeeded;
    case ProposalDelegate::Fits:
        return proposal.reason.isEmpty();
    default:
        return {};
    }
}

// ---- The list

ProposalPopup::ProposalPopup(QWidget &owner)
    : QFrame(&owner, Qt::ToolTip | Qt::FramelessWindowHint), owner_(owner),
      view_(new QListView(this)), description_(new QLabel(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameStyle(QFrame::Panel | QFrame::Plain);
    setFocusPolicy(Qt::NoFocus);
    view_->setModel(&model_);
    view_->setItemDelegate(new ProposalDelegate(view_));
    view_->setUniformItemSizes(true);
    view_->setFrameStyle(QFrame::NoFrame);
    view_->setFocusPolicy(Qt::NoFocus);
    // As high as its rows need, or the description.
    view_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setAccessibleName(texts::ListName.toString());
    description_->setAccessibleName(texts::DescriptionName.toString());
    // A schema comes from a stranger: what it says is text and nothing else.
    description_->setTextFormat(Qt::PlainText);
    description_->setWordWrap(true);
    description_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    description_->setMargin(Margin);
    description_->setFixedWidth(DescriptionWidth);
    description_->setAutoFillBackground(true);
    description_->setBackgroundRole(QPalette::AlternateBase);
    description_->setForegroundRole(QPalette::Text);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(1, 1, 1, 1);
    row->setSpacing(0);
    row->addWidget(view_);
    row->addWidget(description_);
    connect(view_, &QListView::clicked, this, &ProposalPopup::take);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ProposalPopup::describe);
    hide();
}

void ProposalPopup::open(ui::ProposalList list, const QString &typed, const QRect &caret) {
    list_ = std::move(list);
    caret_ = caret;
    QPalette colours = QApplication::palette();
    colours.setColor(QPalette::WindowText, colours.color(QPalette::Mid));
    colours.setColor(QPalette::Window, colours.color(QPalette::Base));
    setPalette(colours);
    model_.set(list_.proposals);
    filter(typed);
}

void ProposalPopup::filter(const QString &typed) {
    model_.filter(typed);
    if (shownCount() == 0) {
        hide();
        return;
    }
    int first = 0;
    while (first + 1 < shownCount() && !model_.at(first).reason.isEmpty())
        ++first;
    choose(model_.at(first).reason.isEmpty() ? first : 0);
    place();
    if (!isVisible()) {
        // Whatever takes the keyboard, or the window, away from the owner ends this.
        owner_.installEventFilter(this);
        owner_.window()->installEventFilter(this);
        show();
    }
}

void ProposalPopup::hideEvent(QHideEvent *event) {
    owner_.removeEventFilter(this);
    owner_.window()->removeEventFilter(this);
    QFrame::hideEvent(event);
}

bool ProposalPopup::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
        hide();
        break;
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

bool ProposalPopup::takeKey(const QKeyEvent &event) {
    if (!isVisible() || (event.modifiers() & ~Qt::KeypadModifier) != 0)
        return false;
    const int row = view_->currentIndex().row();
    switch (event.key()) {
    case Qt::Key_Down:
        choose(row + 1 < shownCount() ? row + 1 : 0);
        return true;
    case Qt::Key_Up:
        choose(row > 0 ? row - 1 : shownCount() - 1);
        return true;
    case Qt::Key_PageDown:
        choose(std::min(row + MaxRows - 1, shownCount() - 1));
        return true;
    case Qt::Key_PageUp:
        choose(std::max(row - MaxRows + 1, 0));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        return take(view_->currentIndex());
    case Qt::Key_Escape:
        hide();
        return true;
    default:
        return false;
    }
}

void ProposalPopup::choose(int row) {
    const QModelIndex index = model_.index(row);
    view_->setCurrentIndex(index);
    view_->scrollTo(index);
    if (!QAccessible::isActive())
        return;
    // The keyboard is elsewhere; this has the entry read all the same.
    QAccessibleEvent focus(view_, QAccessible::Focus);
    focus.setChild(row);
    QAccessible::updateAccessibility(&focus);
}

bool ProposalPopup::take(const QModelIndex &index) {
    hide();
    if (!index.isValid() || !model_.at(index.row()).reason.isEmpty())
        return false;
    const ui::Proposal proposal = model_.at(index.row());
    Q_EMIT taken(proposal);
    return true;
}

void ProposalPopup::describe(const QModelIndex &index) {
    QStringList lines;
    if (index.isValid()) {
        const ui::Proposal &proposal = model_.at(index.row());
        if (!proposal.reason.isEmpty())
            lines.append(texts::DoesNotFit.toString().arg(proposal.reason));
        // The list itself has the detail.
        if (!proposal.documentation.isEmpty() && proposal.documentation != proposal.detail)
            lines.append(proposal.documentation);
    }
    if (!list_.origin.isEmpty())
        lines.append(list_.origin);
    description_->setText(lines.join(QStringLiteral("\n\n")));
    description_->setVisible(!lines.isEmpty());
}

void ProposalPopup::place() {
    int width = LeastWidth;
    QStyleOptionViewItem option;
    option.font = view_->font();
    option.fontMetrics = view_->fontMetrics();
    for (int row = 0; row < std::min(shownCount(), MeasuredRows); ++row)
        width = std::max(width, view_->itemDelegate()->sizeHint(option, model_.index(row)).width() +
                                    2 * Margin);
    const int rowHeight = view_->itemDelegate()->sizeHint(option, model_.index(0)).height();
    view_->setFixedWidth(std::min(width, MostWidth));
    view_->setMinimumHeight(rowHeight * std::clamp(shownCount(), 1, MaxRows));
    layout()->activate();
    adjustSize();
    const QRect screen = owner_.screen()->availableGeometry();
    const int below = caret_.bottom() + 2;
    const bool fitsBelow = below + height() <= screen.bottom();
    const int left =
        std::max(screen.left(), std::min(caret_.left(), screen.right() - this->width()));
    move(left, fitsBelow ? below : std::max(screen.top(), caret_.top() - height() - 2));
}

} // namespace quillon::controls
